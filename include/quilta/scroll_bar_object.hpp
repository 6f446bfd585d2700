// ScrollBarObject: one of the grid's two scroll bars (Quilta::ScrollBar(quScrollBarH or
// quScrollBarV)). Positions are pixels of the grid: the vertical bar's position is the Y of the
// rows shown at the top of the cells area, the horizontal bar's the X by which the scrollable
// columns are shifted left (frozen columns never scroll).
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>

namespace quilta {

namespace control {
struct Control;
}

// When a scroll bar is shown.
enum EScrollBarVisibility : int32_t {
  quScrollBarAutomatic = 0,  // only while the content is larger than the view
  quScrollBarAlways = 1,     // always (disabled while everything fits)
  quScrollBarNever = 2       // never; the grid still scrolls by keyboard, wheel and code
};

class ScrollBarObject {
 public:
  ScrollBarObject(const ScrollBarObject&) = delete;
  ScrollBarObject& operator=(const ScrollBarObject&) = delete;

  EScrollBar Bar() const { return bar_; }
  // The scroll position; setting it scrolls the grid (clamped into 0..Max) and redraws.
  int32_t Value() const;
  void SetValue(int32_t lValue);
  // The largest position: the content's extent less the page.
  int32_t Max() const;
  // The page: the extent of the area the bar scrolls (the cells area below the header, or the
  // scrollable columns' area).
  int32_t LargeChange() const;
  // The line step of the arrows: DefaultRowHeight for the vertical bar, 16 pixels at 96 dpi for
  // the horizontal one.
  int32_t SmallChange() const;
  // Whether the bar is shown now, after the last layout.
  bool Visible() const;
  // When the bar is shown (its look follows the grid's ScrollBarStyle); an out-of-range value
  // fails with 514.
  EScrollBarVisibility Visibility() const;
  void SetVisibility(EScrollBarVisibility eVisibility);

 private:
  friend struct control::Control;
  ScrollBarObject(control::Control& c, EScrollBar bar) : c_(&c), bar_(bar) {}
  control::Control* c_;
  EScrollBar bar_;
};

}  // namespace quilta
