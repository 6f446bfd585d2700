// Tooltips: what they see of hit testing and cell text.
#include "control/control.hpp"

namespace quilta::control {

interaction::ToolTipSite::CellAt Control::ToolTipSiteImpl::CellUnder(Point at) {
  const interaction::MouseSite::Hit hit = c.mouseSite.HitAt(at);
  return {hit.row, hit.row >= 1 ? hit.col : 0};
}

std::string Control::ToolTipSiteImpl::ClippedText(int32_t row, int32_t col, Rect& cell) {
  c.SyncRowPositions();
  c.EnsureLayout();
  if (row > c.store.Rows().Count() || col > c.store.Cols().RowTextCol()) return {};
  if (!c.store.Rows().At(row).Shown()) return {};
  if (!c.CellTextClipped(row, col)) return {};
  cell = c.CellRect(row, col);
  return c.CellText(row, col);
}

}  // namespace quilta::control
