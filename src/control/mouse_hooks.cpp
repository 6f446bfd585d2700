// Mouse handling in the cells area. Placeholder until selection by mouse lands.
#include "control/control.hpp"

namespace quilta::control {

void Control::CellsMouse(MouseAction, int16_t, int16_t, Point) {}

}  // namespace quilta::control
