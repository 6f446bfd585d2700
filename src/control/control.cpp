#include "control/control.hpp"

#include <algorithm>

namespace quilta::control {

Control::Control(Platform* hostPlatform)
    : ownedPlatform(hostPlatform ? nullptr : std::make_unique<HeadlessPlatform>()),
      platform(hostPlatform ? hostPlatform : ownedPlatform.get()),
      resources(std::make_shared<model::CellResources>()),
      store(*this, resources, this),
      sortObject(ops::SortGroupAccess::Make(store)),
      groupObject(ops::SortGroupAccess::Make(store)) {}

Control::~Control() = default;

// ---- Recalculation and drawing -------------------------------------------------------------

void Control::RecalcRowsFrom(int32_t row) {
  if (updates.count >= 1 && !props.Bool(model::Prop::BeginUpdateRecalcRowParms) &&
      !geometry.LayoutForced()) {
    if (updates.pendingRow == 0 || row < updates.pendingRow) updates.pendingRow = row;
    return;
  }
  // A pass forced inside an update block starts where the deferred ones would have started:
  // positions above that are not to be trusted.
  if (updates.pendingRow && updates.pendingRow < row) row = updates.pendingRow;
  RunRowPass(row);
}

void Control::RunRowPass(int32_t from) {
  updates.pendingRow = 0;
  layout::Geometry::RunRowPass(store.Rows(), from);
  geometry.CountRowPass();
}

void Control::RecalcColumns() {
  geometry.RunColumnPass(store.Cols(), props.Long(model::Prop::FrozenCols));
}

void Control::RequestRedraw() {
  if (updates.count > 0) return;  // EndUpdate redraws once
  platform->Invalidate();
}

void Control::BeginUpdate() { ++updates.count; }

void Control::EndUpdate() {
  if (updates.count == 0) return;
  if (--updates.count > 0) return;
  if (updates.pendingRow) RunRowPass(updates.pendingRow);
  platform->Invalidate();
}

void Control::SetRecalcRowParms(bool on) {
  if (on && updates.count >= 1 && updates.pendingRow) RunRowPass(updates.pendingRow);
}

// ---- Store notices -------------------------------------------------------------------------

void Control::ColumnsInserted(int32_t index, int32_t count) {
  if (curCol >= index) curCol += count;
}

void Control::ColumnsRemoved(int32_t index, int32_t count) {
  if (curCol >= index + count) {
    curCol -= count;
  } else if (curCol >= index) {
    SetCurrentCell(curRow, 0);
  }
}

// Rows from `row` on changed places: a row pass held back by BeginUpdate for a row below them
// must now start at `row`, or the rows that moved up into its range keep stale positions.
void Control::PendingPassFrom(int32_t row) {
  if (updates.pendingRow > row) updates.pendingRow = std::max(row, 1);
}

void Control::RowsInserted(int32_t row, int32_t count) {
  PendingPassFrom(row);
  if (curRow >= row) curRow += count;
}

void Control::RowsRemoved(int32_t row, int32_t count) {
  PendingPassFrom(row);
  // A current row strictly inside the removed block moves to current row - count, before the
  // block: the grid has always done so and hosts rely on it.
  if (curRow > row) {
    curRow -= count;
    if (curRow < 1) SetCurrentCell(0, curCol);
  } else if (curRow == row) {
    SetCurrentCell(0, curCol);
  }
}

void Control::RowsCleared(bool columnsToo) {
  if (columnsToo) geometry.SetHScrollPos(0);
  SetCurrentCell(0, 0);
}

bool Control::RequestRow(int32_t row) {
  bool noMoreRows = false;
  if (events) events->RequestRow(row, noMoreRows);
  return !noMoreRows;
}

void Control::RequestRowData(int32_t row) {
  if (events) events->RequestRowData(row);
}

void Control::SetCurrentCell(int32_t row, int32_t col) {
  int32_t oldRow = curRow;
  int32_t oldCol = curCol;
  curRow = row;
  curCol = col;
  if (!events || (oldRow == row && oldCol == col)) return;
  events->CurCellChange(row, col, oldRow, oldCol);
  if (oldRow != row) events->CurRowChange(row, oldRow);
  if (oldCol != col) events->CurColChange(col, oldCol);
}

// ---- Column default cells ------------------------------------------------------------------

void Control::DefaultCellChanged(const CellObject&) { store.Cols().InvalidateTemplates(); }

std::shared_ptr<Font> Control::DefaultFont() const {
  return std::make_shared<Font>(props.FontValue());
}

}  // namespace quilta::control
