// The key-search highlight that grid painting draws. Placeholder until key search lands: no
// cell shows a match.
#include "control/control.hpp"

namespace quilta::control {

int32_t Control::KeySearchHighlight(int32_t, int32_t) { return 0; }

}  // namespace quilta::control
