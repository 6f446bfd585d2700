// View hooks of the control: the layout pass, cell rectangles and scrolling.
#include <algorithm>

#include "control/control.hpp"
#include "layout/scale.hpp"

namespace quilta::control {

int32_t Control::HeaderHeightPixels() const {
  if (headerHeight >= 0) return headerHeight;
  // Automatic: one line of the grid's font with a margin of three pixels above and below.
  const int32_t margin = layout::Scale(3, platform->Dpi());
  return platform->MeasureText("Ag", *FontOf(0), quTextSingleLine, 0).cy + 2 * margin;
}

void Control::EnsureLayout() {
  view.SetHeaderHeight(HeaderHeightPixels());
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

bool Control::ScrollTo(EScrollBar bar, int32_t pos) {
  if (!view.SetScrollPos(bar, pos)) return false;
  EnsureLayout();
  RequestRedraw();
  return true;
}

}  // namespace quilta::control
