// Divider double-click auto-sizing. HOOK: auto-width belongs to hit testing and visibility; the
// merge wires this to its auto-width of one column (with the header item's width when
// AutoWidthColWithHeader is on, clamped through the ColWidth path).
#include "control/control.hpp"

namespace quilta::control {

void Control::AutoSizeColumnFromDivider(int32_t) {}

}  // namespace quilta::control
