// What the row hierarchy asks of the rest of the control.
#include "control/control.hpp"

namespace quilta::control {

void Control::RelayoutAll() {
  geometry.RecordChange(model::kLayoutRows);
  RecalcColumns();
  RecalcRowsFrom(1);
  RequestRedraw();
}

}  // namespace quilta::control
