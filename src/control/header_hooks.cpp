// The header strip's painting and mouse handling. Placeholder until the header lands.
#include "control/control.hpp"

namespace quilta::control {

void Control::PaintHeader(Painter&, const Rect&) {}

int32_t Control::HeaderItemWidthNeeded(int32_t) { return 0; }

bool Control::HeaderMouse(MouseAction, int16_t, int16_t, Point) { return false; }

}  // namespace quilta::control
