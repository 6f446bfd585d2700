// Painting the cells area. Placeholder until grid painting lands: draws nothing.
#include "control/control.hpp"

namespace quilta::control {

void Control::PaintCells(Painter&, const Rect&) {}

}  // namespace quilta::control
