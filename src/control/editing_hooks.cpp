// Ending an in-cell edit. No editor exists yet: only the host's custom editor is told to quit.
#include "control/control.hpp"

namespace quilta::control {

void Control::EndEditing() {
  if (events) events->QuitCustomEdit();
}

}  // namespace quilta::control
