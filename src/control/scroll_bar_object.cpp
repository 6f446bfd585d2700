// ScrollBarObject: reads the view's scroll state after a layout pass; setting the value
// scrolls through the control, so the grid redraws.
#include <quilta/scroll_bar_object.hpp>

#include "control/control.hpp"
#include "layout/scale.hpp"

namespace quilta {

namespace {

const layout::ScrollState& StateOf(control::Control& c, EScrollBar bar) {
  c.EnsureLayout();
  return c.view.Scroll(bar);
}

}  // namespace

int32_t ScrollBarObject::Value() const { return StateOf(*c_, bar_).pos; }
void ScrollBarObject::SetValue(int32_t lValue) {
  c_->EnsureLayout();
  c_->ScrollTo(bar_, lValue);
}

int32_t ScrollBarObject::Max() const { return StateOf(*c_, bar_).maxPos; }
int32_t ScrollBarObject::LargeChange() const { return StateOf(*c_, bar_).page; }

int32_t ScrollBarObject::SmallChange() const {
  if (bar_ == quScrollBarV) return c_->store.Defaults().height;
  return layout::Scale(16, c_->platform->Dpi());
}

bool ScrollBarObject::Visible() const { return StateOf(*c_, bar_).visible; }

EScrollBarVisibility ScrollBarObject::Visibility() const {
  return static_cast<EScrollBarVisibility>(c_->view.BarVisibility(bar_));
}
void ScrollBarObject::SetVisibility(EScrollBarVisibility eVisibility) {
  if (eVisibility < quScrollBarAutomatic || eVisibility > quScrollBarNever) {
    throw Error::FromCode(quErrInvalidArgument);
  }
  if (eVisibility == c_->view.BarVisibility(bar_)) return;
  c_->view.SetBarVisibility(bar_, eVisibility);
  c_->EnsureLayout();
  c_->RequestRedraw();
}

}  // namespace quilta
