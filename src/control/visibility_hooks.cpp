// Visibility hooks of the control: scrolling rows and columns into view, cell parts and text
// measured as drawing lays them out, and sizing columns to their contents.
#include <algorithm>

#include "control/control.hpp"
#include "layout/auto_width.hpp"
#include "layout/ensure_visible.hpp"
#include "layout/scale.hpp"

namespace quilta::control {

bool Control::EnsureRowVisible(int32_t row, int32_t mode, int32_t gap, bool endEditing) {
  if (!props.Bool(model::Prop::EnsureVisibleAutoVScroll)) return false;
  SyncRowPositions();
  const model::RowRecord& r = store.Rows().At(row);
  if (!r.Shown()) return false;
  if (endEditing) EndEditing();
  EnsureLayout();
  const layout::AxisView axis{view.Scroll(quScrollBarV).pos, view.ViewTop(), view.ViewHeight()};
  const auto target = layout::EnsureVisibleTarget(axis, {r.startY, r.height}, mode, gap);
  return target && ScrollTo(quScrollBarV, *target);
}

bool Control::EnsureColVisible(int32_t slot, int32_t mode, int32_t gap, bool endEditing) {
  if (!props.Bool(model::Prop::EnsureVisibleAutoHScroll)) return false;
  const model::ColumnStore& cols = store.Cols();
  if (slot < 1 || slot > cols.ColCount() || !cols.AtSlot(slot).headerItem) return false;
  if (slot <= props.Long(model::Prop::FrozenCols)) return false;
  if (endEditing) EndEditing();
  EnsureLayout();
  const model::Column& c = cols.AtSlot(slot);
  // The grid X at the left edge of the scrollable area lies past the frozen columns.
  const int32_t pos = view.Scroll(quScrollBarH).pos;
  const layout::AxisView axis{pos, view.ViewLeft() + view.FrozenWidth(), view.ViewWidth()};
  const auto target = layout::EnsureVisibleTarget(axis, {c.startX, c.width}, mode, gap);
  return target && ScrollTo(quScrollBarH, *target);
}

layout::CellParts Control::CellPartsAt(int32_t row, int32_t colIndex) {
  EnsureLayout();
  return layout::LayoutCellParts(CellPartsFor(row, colIndex, CellRect(row, colIndex), true));
}

bool Control::CellTextClipped(int32_t row, int32_t colIndex) {
  const Rect text = CellPartsAt(row, colIndex).text;
  // Without room there is nothing to break the text into: any text is clipped.
  if (text.Width() <= 0) return !CellText(row, colIndex).empty();
  const Size need = CellTextSize(row, colIndex, text.Width());
  return need.cx > text.Width() || need.cy > text.Height();
}

Size Control::CellTextSize(int32_t row, int32_t colIndex, int32_t maxWidth) {
  const model::Cell& c = store.CellAt(row, colIndex);
  const int32_t flags = c.textFlags;
  const std::shared_ptr<Font> font = FontOf(c.font);
  const std::string text = CellText(row, colIndex);
  if (text.empty()) return {};
  return platform->MeasureText(text, *font, flags, maxWidth);
}

namespace {

// Measures cells and header items for auto-width as drawing lays them out.
struct AutoWidthMeasure final : layout::AutoWidthSite {
  explicit AutoWidthMeasure(Control& control) : c(control) {}
  int32_t CellWidthNeeded(int32_t row, int32_t colIndex) override {
    const Rect cell{0, 0, 0, c.store.Rows().At(row).height};
    const layout::CellPartsInput in = c.CellPartsFor(row, colIndex, cell, true);
    return layout::CellWidthForText(in, c.CellTextSize(row, colIndex, 0).cx);
  }
  int32_t HeaderItemWidthNeeded(int32_t slot) override { return c.HeaderItemWidthNeeded(slot); }
  Control& c;
};

}  // namespace

void Control::AutoWidthColumn(int32_t slot, int32_t minWidth, int32_t maxWidth,
                              ECellVisibilityFilter filter) {
  geometry.RecordChange(model::kLayoutRows);
  EndEditing();
  AutoWidthMeasure measure(*this);
  layout::AutoWidthQuery q;
  q.slot = slot;
  q.filter = filter;
  q.maxRows = props.Long(model::Prop::AutoWidthColMaxRows);
  q.withHeader = props.Bool(model::Prop::AutoWidthColWithHeader);
  const int32_t need = layout::ContentWidthNeeded(store, q, measure);
  const int32_t width =
      layout::ApplyAutoWidthLimits(need, store.Cols().AtSlot(slot), minWidth, maxWidth);
  ColumnSizer().SetWidth(slot, width);
  RecalcColumns();
  RequestRedraw();
}

}  // namespace quilta::control
