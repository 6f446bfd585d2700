// The header strip's painting and mouse handling, and what the strip asks of the control.
#include <quilta/error.hpp>

#include "control/control.hpp"
#include "ops/sorting/sorter.hpp"

namespace quilta::control {

void Control::PaintHeader(Painter& painter, const Rect& clip) { headerStrip.Paint(painter, clip); }

int32_t Control::HeaderItemWidthNeeded(int32_t slot) { return headerStrip.WidthNeeded(slot); }

header::HeaderMouse HeaderMouseOf(MouseAction action) {
  switch (action) {
    case MouseAction::Down:
      return header::HeaderMouse::Down;
    case MouseAction::Move:
      return header::HeaderMouse::Move;
    case MouseAction::Up:
      return header::HeaderMouse::Up;
    case MouseAction::DblClick:
      return header::HeaderMouse::DblClick;
    case MouseAction::Leave:
      break;
  }
  return header::HeaderMouse::Leave;
}

bool Control::HeaderMouse(MouseAction action, int16_t button, int16_t shift, Point at) {
  return headerStrip.Mouse(HeaderMouseOf(action), button, shift, at);
}

void Control::InvalidateHeader() {
  if (view.HeaderVisible()) headerSite.InvalidateHeader(view.HeaderArea());
}

// ---- HeaderSite ---------------------------------------------------------------------------------

int32_t Control::HeaderSite::FrozenCols() const { return c.props.Long(model::Prop::FrozenCols); }

header::HeaderLook Control::HeaderSite::Look() const {
  const header::HeaderOptions& o = c.headerStrip.Options();
  header::HeaderLook look;
  look.font = o.font ? o.font : c.DefaultFont();
  look.images = o.imageList ? c.ImageListAt(o.imageList) : nullptr;
  look.foreColor = c.TranslateColor(o.foreColor);
  look.backColor = c.TranslateColor(o.backColor);
  look.shadowColor = c.platform->SystemColor(16);
  look.highlightColor = c.platform->SystemColor(13);
  look.enabled = c.props.Bool(model::Prop::Enabled);
  look.disabledColor = c.props.Bool(model::Prop::ChangeColorsWhenDisabled)
                           ? c.platform->SystemColor(17)
                           : look.foreColor;
  const bool themed = !o.flat && c.props.Bool(model::Prop::UseXPStyles);
  look.look = themed ? ControlLook::Themed : ControlLook::Flat;
  look.dpi = c.platform->Dpi();
  return look;
}

void Control::HeaderSite::HeaderClicked(int32_t colIndex, int16_t shift) {
  ops::Sorter(c).HeaderClicked(colIndex, shift);
}

void Control::HeaderSite::ResizeColumn(int32_t slot, int32_t width) {
  c.ColumnSizer().SetColWidth(slot, width);
}

bool Control::HeaderSite::MoveColumn(int32_t slot, int32_t toSlot) {
  try {
    c.ColumnSizer().Move(slot, toSlot);
    return true;
  } catch (const Error&) {
    return false;  // a move the order rules refuse is simply not made
  }
}

void Control::HeaderSite::InvalidateHeader(const Rect& r) {
  if (c.updates.count > 0) return;
  c.platform->InvalidateRect(r);
}

}  // namespace quilta::control
