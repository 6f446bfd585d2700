// The control facade: hit testing, cell rectangles, scrolling into view, column auto-width and
// the scroll bars. Members resolve and check their arguments here before anything changes.
#include <algorithm>
#include <quilta/quilta.hpp>

#include "control/control.hpp"
#include "layout/hit_test.hpp"

namespace quilta {
namespace {

using P = model::Prop;

[[noreturn]] void Raise(int32_t code) { throw Error::FromCode(code); }

void CheckMode(int32_t mode) {
  if (mode < quEnsVisRowAuto || mode > quEnsVisRowBottomForce) Raise(quErrInvalidArgument);
}

void CheckFilter(ECellVisibilityFilter filter) {
  if (filter < quCellVisAllCells || filter > quCellVisVisibleProperty) {
    Raise(quErrInvalidArgument);
  }
}

void CheckWidthLimits(int32_t minWidth, int32_t maxWidth) {
  if (minWidth >= 0 && maxWidth >= 0 && minWidth > maxWidth) Raise(quErrInvalidArgument);
}

struct ResolvedCell {
  int32_t row;
  int32_t colIndex;
};

ResolvedCell Resolve(const control::Control& c, const Variant& vRow, const Variant& vCol) {
  const int32_t row = c.store.ResolveRow(vRow);
  return {row, c.store.ResolveColIndex(vCol)};
}

void Output(const Rect& r, int32_t& lLeft, int32_t& lTop, int32_t& lWidth, int32_t& lHeight) {
  lLeft = r.left;
  lTop = r.top;
  lWidth = r.Width();
  lHeight = r.Height();
}

Rect CellRectNow(control::Control& c, const ResolvedCell& cell) {
  c.SyncRowPositions();
  c.EnsureLayout();
  return c.CellRect(cell.row, cell.colIndex);
}

// Suspends redrawing over a run of changes and redraws once, also when one of them throws.
struct UpdateBlock {
  explicit UpdateBlock(control::Control& control) : c(control) { c.BeginUpdate(); }
  ~UpdateBlock() { c.EndUpdate(); }
  control::Control& c;
};

}  // namespace

// ---- Points and rectangles -----------------------------------------------------------------

ECellParts Quilta::HitTest(int32_t xPixels, int32_t yPixels, int32_t lRow, int32_t lCol) const {
  control::Control& c = *c_;
  ResolvedCell cell{};
  if (lRow != 0 && lCol != 0) {
    cell = Resolve(c, lRow, lCol);
  } else {
    CellFromPoint(xPixels, yPixels, cell.row, cell.colIndex);
    if (cell.row == 0) return quCellPartNone;
  }
  const layout::CellPartsInput in =
      c.CellPartsFor(cell.row, cell.colIndex, CellRectNow(c, cell), true);
  const model::Cell& data = c.store.CellAt(cell.row, cell.colIndex);
  const layout::CellHitInfo info{in.treeButton, data.CheckVisible(), data.Type()};
  return layout::PartUnderPoint(layout::LayoutCellParts(in), info, {xPixels, yPixels});
}

void Quilta::CellFromPoint(int32_t xPixels, int32_t yPixels, int32_t& lRow, int32_t& lCol) const {
  control::Control& c = *c_;
  c.SyncRowPositions();
  c.EnsureLayout();
  const model::ColumnStore& cols = c.store.Cols();
  layout::RowTextLayout rowText;
  rowText.frozenCols = c.props.Long(P::FrozenCols);
  rowText.rowTextSlot = std::max(1, cols.SlotOfIndex(c.geometry.RowTextStartCol()));
  rowText.drawRowText = c.props.Bool(P::DrawRowText);
  const layout::CellRef at = layout::CellUnderPoint(c.view, cols, c.geometry.Columns(),
                                                    c.store.Rows(), rowText, {xPixels, yPixels});
  lRow = at.row;
  lCol = at.colIndex;
}

void Quilta::CellBoundary(const Variant& vRow, const Variant& vCol, int32_t& lLeft, int32_t& lTop,
                          int32_t& lWidth, int32_t& lHeight) const {
  const ResolvedCell cell = Resolve(*c_, vRow, vCol);
  Output(CellRectNow(*c_, cell), lLeft, lTop, lWidth, lHeight);
}

void Quilta::CellTextBoundary(const Variant& vRow, const Variant& vCol, int32_t& lLeft,
                              int32_t& lTop, int32_t& lWidth, int32_t& lHeight) const {
  const ResolvedCell cell = Resolve(*c_, vRow, vCol);
  c_->SyncRowPositions();
  Output(c_->CellPartsAt(cell.row, cell.colIndex).text, lLeft, lTop, lWidth, lHeight);
}

bool Quilta::IsCellTextClipped(const Variant& vRow, const Variant& vCol) const {
  const ResolvedCell cell = Resolve(*c_, vRow, vCol);
  c_->SyncRowPositions();
  return c_->CellTextClipped(cell.row, cell.colIndex);
}

// ---- Scrolling into view -------------------------------------------------------------------

void Quilta::EnsureVisibleRow(const Variant& vRow, EEnsureVisibleRowMode eMode, int32_t lGap) {
  const int32_t row = c_->store.ResolveRow(vRow);
  CheckMode(eMode);
  c_->EnsureRowVisible(row, eMode, lGap, true);
}

void Quilta::EnsureVisibleCol(const Variant& vCol, EEnsureVisibleColMode eMode, int32_t lGap) {
  // Horizontal scrolling by column is refused outright while columns are frozen.
  if (c_->props.Long(P::FrozenCols) > 0) Raise(quErrIllegalOperation);
  const int32_t slot = c_->store.ResolveColSlot(vCol);
  CheckMode(eMode);
  c_->EnsureColVisible(slot, eMode, lGap, true);
}

void Quilta::EnsureVisibleCell(const Variant& vRow, const Variant& vCol) {
  const int32_t row = c_->store.ResolveRow(vRow);
  const int32_t slot = c_->store.ResolveColSlot(vCol);
  // The edit ends once, by whichever of the two scrolls runs first.
  const bool rowEndsEditing =
      c_->props.Bool(P::EnsureVisibleAutoVScroll) && c_->store.Rows().At(row).Shown();
  c_->EnsureRowVisible(row, quEnsVisRowAuto, 8, true);
  c_->EnsureColVisible(slot, quEnsVisColAuto, 8, !rowEndsEditing);
}

// ---- Auto-width and text measuring ---------------------------------------------------------

void Quilta::AutoWidthCol(const Variant& vCol, int32_t lMinimumWidth, int32_t lMaximumWidth,
                          ECellVisibilityFilter eCellVisibility) {
  const int32_t slot = c_->store.ResolveColSlot(vCol);
  if (slot > c_->store.ColCount()) Raise(quErrInvalidArgument);  // the row text column
  CheckWidthLimits(lMinimumWidth, lMaximumWidth);
  CheckFilter(eCellVisibility);
  c_->AutoWidthColumn(slot, lMinimumWidth, lMaximumWidth, eCellVisibility);
}

void Quilta::AutoWidthCols(const Variant& vStartCol, const Variant& vEndCol, int32_t lMinimumWidth,
                           int32_t lMaximumWidth, ECellVisibilityFilter eCellVisibility) {
  const int32_t count = c_->store.ColCount();
  const int32_t first = vStartCol.IsMissing() ? 1 : c_->store.ResolveColIndex(vStartCol);
  const int32_t last = vEndCol.IsMissing() ? count : c_->store.ResolveColIndex(vEndCol);
  CheckWidthLimits(lMinimumWidth, lMaximumWidth);
  CheckFilter(eCellVisibility);
  UpdateBlock once(*c_);
  for (int32_t slot = 1; slot <= count; ++slot) {
    const int32_t index = c_->store.Cols().AtSlot(slot).index;
    if (index < first || index > last) continue;
    c_->AutoWidthColumn(slot, lMinimumWidth, lMaximumWidth, eCellVisibility);
  }
}

int32_t Quilta::EvaluateTextWidth(const Variant& vRow, const Variant& vCol) const {
  const ResolvedCell cell = Resolve(*c_, vRow, vCol);
  return c_->CellTextSize(cell.row, cell.colIndex, 0).cx;
}

int32_t Quilta::EvaluateTextHeight(const Variant& vRow, const Variant& vCol, int32_t lWidth) const {
  const ResolvedCell cell = Resolve(*c_, vRow, vCol);
  if (lWidth < -1) Raise(quErrInvalidArgument);
  if (lWidth == -1) {
    c_->SyncRowPositions();
    lWidth = std::max(1, c_->CellPartsAt(cell.row, cell.colIndex).text.Width());
  }
  return c_->CellTextSize(cell.row, cell.colIndex, lWidth).cy;
}

// ---- Scroll bars -----------------------------------------------------------------------------

ScrollBarObject& Quilta::ScrollBar(EScrollBar eBar) {
  if (eBar == quScrollBarH) return c_->hScrollBar;
  if (eBar == quScrollBarV) return c_->vScrollBar;
  Raise(quErrInvalidArgument);
}

}  // namespace quilta
