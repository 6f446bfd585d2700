// What the row hierarchy and sorting ask of the rest of the control.
#include "control/control.hpp"

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

// Grouping builds no group rows yet, so the grid is never grouped and there is nothing to rebuild.
void Control::Regroup() {}

}  // namespace quilta::control
