#include "interaction/tool_tips.hpp"

namespace quilta::interaction {

void ToolTips::PointerMoved(Point at, bool buttonDown) {
  if (buttonDown) {
    Hide();
    return;
  }
  const ToolTipSite::CellAt cell = site_.CellUnder(at);
  // Resting inside the same cell changes nothing, also after its tip timed out.
  if (cell == cell_) return;
  Reset();
  cell_ = cell;
  if (cell.row < 1) return;
  const int32_t delay = props_.Long(model::Prop::ToolTipDelayTime);
  waiting_ = site_.StartTimer(kDelayTimer, delay < 0 ? kDefaultDelayMs : delay, *this);
}

void ToolTips::Hide() {
  Reset();
  cell_ = {};
}

void ToolTips::Reset() {
  if (waiting_) site_.StopTimer(kDelayTimer);
  if (visibleTimer_) site_.StopTimer(kVisibleTimer);
  if (showing_) site_.HideToolTip();
  waiting_ = showing_ = visibleTimer_ = false;
}

void ToolTips::TimerFired(int32_t id) {
  if (id == kDelayTimer) {
    site_.StopTimer(kDelayTimer);
    waiting_ = false;
    Show();
  } else if (id == kVisibleTimer) {
    // The pointer stays on the cell: the tip does not come back until it moves to another.
    site_.StopTimer(kVisibleTimer);
    visibleTimer_ = false;
    if (showing_) site_.HideToolTip();
    showing_ = false;
  }
}

// Clipping is checked when the delay ends, not on every move: the text may have changed since.
void ToolTips::Show() {
  Rect near;
  const std::string text = site_.ClippedText(cell_.row, cell_.col, near);
  if (text.empty()) return;
  site_.ShowToolTip(text, near);
  showing_ = true;
  const int32_t visible = props_.Long(model::Prop::ToolTipVisibleTime);
  if (visible >= 0) visibleTimer_ = site_.StartTimer(kVisibleTimer, visible, *this);
}

}  // namespace quilta::interaction
