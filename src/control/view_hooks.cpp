// View hooks of the control: the layout pass, cell rectangles and scrolling.
#include <algorithm>

#include "control/control.hpp"
#include "layout/scale.hpp"

namespace quilta::control {

int32_t Control::HeaderHeightPixels() const {
  if (headerHeight >= 0) return headerHeight;
  // Automatic: one line of the header's font with a margin of three pixels above and below.
  const int32_t margin = layout::Scale(3, platform->Dpi());
  const std::shared_ptr<Font>& own = headerStrip.Options().font;
  return platform->MeasureText("Ag", own ? *own : *FontOf(0), quTextSingleLine, 0).cy + 2 * margin;
}

void Control::EnsureLayout() {
  view.SetHeaderHeight(HeaderHeightPixels());
  view.SetGroupByHeight(GroupByHeightPixels());
  view.Layout(platform->ClientSize(), platform->ScrollBarSize(), geometry.Columns(),
              layout::ContentHeight(store.Rows()));
  geometry.TakeLayoutMark();
  const auto style = static_cast<EScrollBarStyles>(props.Long(model::Prop::ScrollBarStyle));
  for (EScrollBar bar : {quScrollBarH, quScrollBarV}) {
    const layout::ScrollState& s = view.Scroll(bar);
    const ScrollBarInfo info{0, s.maxPos + s.page, s.page, s.pos, s.visible, style};
    if (info == shownScrollBars[bar]) continue;
    shownScrollBars[bar] = info;
    platform->SetScrollBar(bar, info);
  }
}

Rect Control::CellRect(int32_t row, int32_t colIndex) {
  const model::ColumnStore& cols = store.Cols();
  layout::CellRectQuery q;
  q.slot = colIndex == cols.RowTextCol() ? 0 : cols.SlotOfIndex(colIndex);
  q.frozenCols = props.Long(model::Prop::FrozenCols);
  q.rowTextSlot = std::max(1, cols.SlotOfIndex(geometry.RowTextStartCol()));
  q.drawRowText = props.Bool(model::Prop::DrawRowText);
  return layout::CellRect(view, cols, geometry.Columns(), store.Rows().At(row), q);
}

const ImageList* Control::ImageListAt(uint8_t number) const {
  return number < 16 ? imageLists[number].get() : nullptr;
}

namespace {

Size ImageSizeIn(const ImageList* list, int16_t index) {
  return list && index > 0 && index <= list->ImageCount() ? list->ImageSize() : Size{};
}

}  // namespace

layout::CellPartsInput Control::CellPartsFor(int32_t row, int32_t colIndex, const Rect& cell,
                                             bool dynamicIcons, int16_t* shownIcons) {
  const model::Cell& c = store.CellAt(row, colIndex);
  const model::RowRecord& r = store.Rows().At(row);
  const int32_t dpi = platform->Dpi();
  layout::CellPartsInput in;
  in.cell = cell;
  const int32_t treeCol = props.Long(model::Prop::TreeCol);
  const bool treeCell =
      r.GroupRow() ? colIndex == store.Cols().RowTextCol() : treeCol != 0 && colIndex == treeCol;
  if (treeCell) {
    in.treeSlots = r.level + (props.Bool(model::Prop::TreeRootLines) || r.GroupRow() ? 1 : 0);
    in.levelIndent = LevelIndentPixels();
    in.treeButton = r.TreeButton() == quRowTreeButtonVisible && in.treeSlots > 0;
    in.treeButtonSize = layout::Scale(props.Long(model::Prop::TreeButtonSize), dpi);
  }
  const ECellTypes type = c.Type();
  const bool comboType = type == quCellCombo || type == quCellTextCombo;
  if (comboType && (props.Bool(model::Prop::ShowControlsInAllCells) ||
                    (row == CurRow() && colIndex == CurCol()))) {
    in.comboButtonWidth = platform->ComboButtonWidth();
  }
  in.indentLeft = c.indentLeft;
  in.indentRight = c.indentRight;
  in.indentTop = c.indentTop;
  in.indentBottom = c.indentBottom;
  if (c.CheckVisible()) {
    in.checkBox = platform->CheckBoxSize();
    in.checkPos = c.CheckPos();
    in.checkGap = layout::Scale(props.Long(model::Prop::CellCheckGap), dpi);
  }
  int16_t icon = c.Icon(), extraIcon = c.ExtraIcon();
  if (dynamicIcons && events && (dynamicContentEvents & quDCEventCellDynamicIcons)) {
    events->CellDynamicIcons(row, colIndex, c.value, icon, extraIcon);
  }
  if (shownIcons) shownIcons[0] = icon, shownIcons[1] = extraIcon;
  in.icon = ImageSizeIn(ImageListAt(c.ImageList()), icon);
  in.extraIcon = ImageSizeIn(ImageListAt(c.ExtraImageList()), extraIcon);
  in.iconToText = c.IconToText();
  in.iconGap = layout::Scale(props.Long(model::Prop::CellIconGap), dpi);
  in.alignV = c.AlignV();
  return in;
}

bool Control::ScrollTo(EScrollBar bar, int32_t pos) {
  if (!view.SetScrollPos(bar, pos)) return false;
  toolTips.Hide();
  EnsureLayout();
  RequestRedraw();
  return true;
}

}  // namespace quilta::control
