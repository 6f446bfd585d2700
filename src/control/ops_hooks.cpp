// What the row hierarchy and sorting ask of the rest of the control.
#include "control/control.hpp"
#include "ops/sorting/sorter.hpp"

namespace quilta::control {

void Control::RelayoutAll() {
  geometry.RecordChange(model::kLayoutRows);
  RecalcColumns();
  RecalcRowsFrom(1);
  RequestRedraw();
}

// The header strip draws the marks from ColSortKey and ColSortOrder.
void Control::SortMarksChanged() { InvalidateHeader(); }

// Scrolling into view belongs to hit testing and visibility, which is not built yet.
void Control::ScrollCurRowIntoView() {}

bool Control::CellDynamicIconsEnabled() const {
  return events && (dynamicContentEvents & quDCEventCellDynamicIcons);
}

// A header click on a grouped column regroups whatever AllowGrouping says: the grid is grouped
// already, and the click only reverses one group's order.
void Control::Regroup() { grouping.Group(); }

void Control::RowsRearranged() {
  mouse.ForgetPress();
  grouping.RowsRearranged();  // a moved data row may have changed groups
}

// Groups hold top-level rows with their subtrees, so the sort keeps subtrees together whatever
// TreeCol says: a flat sort would carry child rows away from their parents and out of every group.
void Control::GroupingSite::SortForGrouping(const ops::Criteria& criteria) {
  ops::Sorter(c).SortRange(1, c.store.RowCount(), criteria, ops::Arrangement::Tree, false, true);
}

void Control::GroupingSite::SortCriteriaChanged() { ops::Sorter(c).SyncColumnMarks(); }

void Control::GroupingSite::CustomGroupValue(int32_t row, int32_t col, Variant& value,
                                             std::string& text) {
  if (c.events) c.events->CustomGroupValue(row, col, value, text);
}

int32_t Control::GroupingSite::CurrentRowPhys() {
  int32_t row = c.CurRow();
  return row >= 1 && row <= c.store.RowCount() ? c.store.Rows().At(row).phys : 0;
}

void Control::GroupingSite::SetCurrentRowPhys(int32_t phys) {
  int32_t row = phys ? c.store.Rows().RowOfPhys(phys) : 0;
  if (row == c.CurRow()) return;  // the selection already followed its row
  c.selection.SetCurCellPos(row, row ? c.CurCol() : 0);
  c.selection.RaisePendingSelEvents();
}

}  // namespace quilta::control
