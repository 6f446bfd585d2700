// What data exchange asks of the rest of the control.
#include "control/control.hpp"
#include "ops/sorting/sorter.hpp"

namespace quilta::control {

void Control::ExchangeSite::ColumnTableReplaced() {
  c.store.Cols().InvalidateTemplates();
  c.geometry.RecordChange(model::kLayoutColumnWidths);
  c.RecalcColumns();
  // The header strip rebuilds its items from the visible columns in position order; until it
  // exists, the redraw is all there is to do.
  c.RequestRedraw();
}

void Control::ExchangeSite::SortGrid() { ops::Sorter(c).SortAll(); }

void Control::ExchangeSite::CellValuesWritten(int32_t firstRow) {
  c.geometry.RecordChange(model::kLayoutRows);
  c.RecalcRowsFrom(firstRow);
  c.RequestRedraw();
}

}  // namespace quilta::control
