// How the grid's own tests and benchmarks reach a grid's subsystems; hosts have only the object
// model.
#pragma once

#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta::control {

struct InternalsAccess {
  static Control& Of(Quilta& grid) { return *grid.c_; }
};

inline Control& Internals(Quilta& grid) { return InternalsAccess::Of(grid); }

}  // namespace quilta::control
