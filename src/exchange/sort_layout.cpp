#include "exchange/sort_layout.hpp"

#include <algorithm>

#include "exchange/layout_items.hpp"

namespace quilta::exchange {

std::string SortLayout::Write() const {
  std::string out;
  for (int32_t slot = 1; slot <= cols_.ColCount(); ++slot) {
    const model::Column& c = cols_.AtSlot(slot);
    if (c.sortKey <= 0) continue;
    AppendItem(out, c.index, "SortKey", c.sortKey);
    AppendItem(out, c.index, "SortOrder", c.sortOrder);
  }
  return out;
}

std::optional<int32_t> SortLayout::ReadKeys(std::string_view layout) {
  int32_t largest = 0;
  LayoutItemReader reader(layout);
  while (auto item = reader.Next()) {
    bool isKey = item->name == "SortKey";
    if (!isKey && item->name != "SortOrder") continue;
    if (item->col < 1 || item->col > cols_.ColCount()) return std::nullopt;
    model::Column& c = cols_.AtIndex(item->col);
    auto value = ParseInteger(item->value);
    if (!value) return std::nullopt;
    if (isKey) {
      // Priorities beyond the column count never come from the writer.
      if (*value < 0 || *value > cols_.ColCount()) return std::nullopt;
      if (*value > 0 && c.sortType == quSortNone) return std::nullopt;
      c.sortKey = *value;
      largest = std::max(largest, *value);
    } else {
      if (*value != quSortAsc && *value != quSortDesc) return std::nullopt;
      c.sortOrder = static_cast<ESortOrders>(*value);
    }
  }
  if (reader.Damaged()) return std::nullopt;
  return largest;
}

void SortLayout::SortByKeys(int32_t keys) {
  sortObject_.SetColCount(keys);
  for (int32_t slot = 1; slot <= cols_.ColCount(); ++slot) {
    const model::Column& c = cols_.AtSlot(slot);
    if (c.sortKey <= 0) continue;
    sortObject_.SetSortCol(c.sortKey, c.index);
    sortObject_.SetSortOrder(c.sortKey, c.sortOrder);
    sortObject_.SetSortType(c.sortKey, c.sortType);
  }
  site_.SortGrid();
}

void SortLayout::Read(std::string_view layout) {
  if (layout.empty()) return;
  for (model::Column& c : cols_.Slots()) c.sortKey = 0;
  std::optional<int32_t> largest = ReadKeys(layout);
  site_.SortMarksChanged();
  if (largest && *largest > 0) SortByKeys(*largest);
}

}  // namespace quilta::exchange
