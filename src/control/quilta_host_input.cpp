// The control facade: paint and input routed from the host's window.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {

void Quilta::Paint(Painter& painter, const Rect& clip) {
  c_->EnsureLayout();
  const Rect band = clip.Intersection(c_->view.GroupByArea());
  if (!band.IsEmpty()) c_->PaintGroupBy(painter, band);
  const Rect header = clip.Intersection(c_->view.HeaderArea());
  if (!header.IsEmpty()) c_->PaintHeader(painter, header);
  const Rect cells = clip.Intersection({0, c_->view.CellsArea().top, clip.right, clip.bottom});
  if (!cells.IsEmpty()) c_->PaintCells(painter, cells);
}

namespace {

void Route(control::Control& c, control::MouseAction action, int16_t button, int16_t shift,
           Point at) {
  c.EnsureLayout();
  if (c.GroupByMouse(action, button, shift, at)) {
    c.toolTips.Hide();
  } else if (c.HeaderMouse(action, button, shift, at)) {
    c.toolTips.Hide();
  } else {
    c.CellsMouse(action, button, shift, at);
  }
}

}  // namespace

void Quilta::HostMouseDown(int16_t Button, int16_t Shift, int32_t x, int32_t y) {
  Route(*c_, control::MouseAction::Down, Button, Shift, {x, y});
}

void Quilta::HostMouseMove(int16_t Button, int16_t Shift, int32_t x, int32_t y) {
  Route(*c_, control::MouseAction::Move, Button, Shift, {x, y});
}

void Quilta::HostMouseUp(int16_t Button, int16_t Shift, int32_t x, int32_t y) {
  Route(*c_, control::MouseAction::Up, Button, Shift, {x, y});
}

void Quilta::HostDblClick(int16_t Button, int16_t Shift, int32_t x, int32_t y) {
  Route(*c_, control::MouseAction::DblClick, Button, Shift, {x, y});
}

void Quilta::HostMouseLeave() { Route(*c_, control::MouseAction::Leave, 0, 0, {-1, -1}); }

void Quilta::HostMouseWheel(int32_t lDelta, int16_t Shift) {
  c_->EnsureLayout();
  // Three rows of the default height per notch, as desktop lists scroll.
  const int32_t step = 3 * c_->store.Defaults().height;
  const EScrollBar bar = (Shift & 1) ? quScrollBarH : quScrollBarV;
  c_->ScrollTo(bar, c_->view.Scroll(bar).pos - lDelta * step / 120);
}

void Quilta::HostScroll(EScrollBar eBar, int32_t lPos) {
  if (eBar != quScrollBarH && eBar != quScrollBarV) throw Error::FromCode(quErrInvalidArgument);
  c_->EnsureLayout();
  c_->ScrollTo(eBar, lPos);
}

void Quilta::HostResize() {
  c_->EnsureLayout();
  c_->RequestRedraw();
}

void Quilta::HostFocusChanged(bool bFocused) {
  if (!bFocused) c_->toolTips.Hide();  // a window that loses the focus keeps no tip up
  c_->RequestRedraw();
}

}  // namespace quilta
