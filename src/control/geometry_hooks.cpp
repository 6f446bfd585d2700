// Geometry hooks of the control: deferred row positions and scaled sizes.
#include "control/control.hpp"

namespace quilta::control {

void Control::SyncRowPositions() {
  if (updates.pendingRow == 0) return;
  layout::ForcedLayout forced(geometry);
  RecalcRowsFrom(updates.pendingRow);
}

int32_t Control::LevelIndentPixels() {
  return geometry.ScaledLevelIndent(props.Long(model::Prop::LevelIndent), platform->Dpi());
}

}  // namespace quilta::control
