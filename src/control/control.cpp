#include "control/control.hpp"

#include <algorithm>

#include "ops/sorting/sorter.hpp"

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
  grouping.ColumnsSettled();
  if (sortMarksPending) {
    sortMarksPending = false;
    ops::Sorter(*this).SyncColumnMarks();
  }
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
  mouse.ForgetPress();
  headerStrip.Reset();  // the strip tracks columns by index, and indexes moved
  groupByBand.Reset();
  grouping.ColumnsInserted(index, count);
  ops::SortGroupAccess::ColumnsInserted(sortObject, index, count);
  ops::SortGroupAccess::ColumnsInserted(groupObject, index, count);
  selection.ColumnsInserted(index, count);
  editor.ColumnsInserted(index, count);
}

void Control::ColumnsRemoved(int32_t index, int32_t count) {
  mouse.ForgetPress();
  headerStrip.Reset();
  groupByBand.Reset();
  grouping.ColumnsRemoving(index, count);
  ops::SortGroupAccess::ColumnsRemoved(groupObject, index, count);
  // A sort column going: the keys of the columns sorted after it move up once it is gone.
  if (ops::SortGroupAccess::ColumnsRemoved(sortObject, index, count)) sortMarksPending = true;
  selection.ColumnsRemoved(index, count);
  editor.ColumnsRemoved(index, count);
}

// Rows from `row` on changed places: a row pass held back by BeginUpdate for a row below them
// must now start at `row`, or the rows that moved up into its range keep stale positions.
void Control::PendingPassFrom(int32_t row) {
  if (updates.pendingRow > row) updates.pendingRow = std::max(row, 1);
}

void Control::RowsInserted(int32_t row, int32_t count) {
  mouse.ForgetPress();
  PendingPassFrom(row);
  grouping.RowsInserted(row, count);
  selection.RowsInserted(row, count);
  editor.RowsInserted(row, count);
}

void Control::RowsRemoved(int32_t row, int32_t count) {
  mouse.ForgetPress();
  PendingPassFrom(row);
  grouping.RowsRemoving(row, count);
  selection.RowsRemoved(row, count, false);
  editor.RowsRemoved(row, count);
}

void Control::RowsTruncated(int32_t row, int32_t count) {
  mouse.ForgetPress();
  PendingPassFrom(row);
  selection.RowsRemoved(row, count, true);
  editor.RowsRemoved(row, count);
}

void Control::RowsCleared(bool columnsToo) {
  mouse.ForgetPress();
  if (columnsToo) {
    ScrollTo(quScrollBarH, 0);
    headerStrip.Reset();
    groupByBand.Reset();
  }
  grouping.RowsCleared();
  if (columnsToo) {
    grouping.ColumnsCleared();
    ops::SortGroupAccess::Items(sortObject).clear();
    ops::SortGroupAccess::Items(groupObject).clear();
  }
  selection.RowsCleared();
  editor.Drop();
}

bool Control::RequestRow(int32_t row) {
  bool noMoreRows = false;
  if (events) events->RequestRow(row, noMoreRows);
  return !noMoreRows;
}

void Control::RequestRowData(int32_t row) {
  if (events) events->RequestRowData(row);
}

// ---- Column default cells ------------------------------------------------------------------

void Control::DefaultCellChanged(const CellObject&) { store.Cols().InvalidateTemplates(); }

std::shared_ptr<Font> Control::DefaultFont() const {
  return std::make_shared<Font>(props.FontValue());
}

}  // namespace quilta::control
