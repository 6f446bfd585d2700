#include "exchange/clipboard/context_menu.hpp"

#include <algorithm>

namespace quilta::exchange {

using model::Prop;

void BuiltinContextMenu::ShowForCell(int32_t row, int32_t col) {
  Point at{0, 0};
  if (row >= 1 && row <= store_.RowCount() && col >= 1 && col <= store_.Cols().RowTextCol()) {
    const Rect r = site_.CellRect(row, col);
    at = {r.left, r.bottom};
  }
  Show(col, at);
}

void BuiltinContextMenu::Show(int32_t col, Point at) {
  if (!props_.Bool(Prop::BuiltinContextMenus)) return;
  const std::vector<MenuItem> items = Items(col);
  const int32_t chosen = site_.GetPlatform().TrackPopupMenu(items, at);
  const auto item = std::find_if(items.begin(), items.end(),
                                 [&](const MenuItem& m) { return m.id == chosen && m.id != 0; });
  if (item != items.end() && item->enabled) Run(chosen, col);
}

std::vector<MenuItem> BuiltinContextMenu::Items(int32_t col) {
  std::vector<MenuItem> items{{kCut, "Cut", clipboard_.CanCut()},
                              {kCopy, "Copy", clipboard_.CanCopy()},
                              {kCopyWithHeaders, "Copy with Headers", clipboard_.CanCopy()},
                              {kPaste, "Paste", clipboard_.CanPaste()}};
  if (col >= 1 && col <= store_.ColCount()) {
    const bool sortable = props_.Bool(Prop::AllowSorting) && store_.RowCount() > 1 &&
                          store_.Cols().AtIndex(col).sortType != quSortNone;
    items.push_back({0, {}});
    items.push_back({kSortAsc, "Sort Ascending", sortable});
    items.push_back({kSortDesc, "Sort Descending", sortable});
  }
  return items;
}

void BuiltinContextMenu::Run(int32_t command, int32_t col) {
  switch (command) {
    case kCut:
      return clipboard_.Cut();
    case kCopy:
      return clipboard_.Copy(false);
    case kCopyWithHeaders:
      return clipboard_.Copy(true);
    case kPaste:
      return clipboard_.Paste();
    case kSortAsc:
      return site_.SortByColumn(col, quSortAsc);
    case kSortDesc:
      return site_.SortByColumn(col, quSortDesc);
    default:
      return;
  }
}

}  // namespace quilta::exchange
