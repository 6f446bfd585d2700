// The drawing surface the control paints through. A host hands the control one Painter for one
// paint; the control draws nothing any other way. Coordinates are client pixels of the control,
// colours plain RGB (0x00BBGGRR, system colours already translated).
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>
#include <quilta/font.hpp>
#include <string_view>

namespace quilta {

struct Point {
  int32_t x = 0;
  int32_t y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

struct Size {
  int32_t cx = 0;
  int32_t cy = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

// Right and bottom are exclusive: a rectangle covers left <= x < right, top <= y < bottom.
struct Rect {
  int32_t left = 0;
  int32_t top = 0;
  int32_t right = 0;
  int32_t bottom = 0;
  int32_t Width() const { return right - left; }
  int32_t Height() const { return bottom - top; }
  bool IsEmpty() const { return right <= left || bottom <= top; }
  bool Contains(Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
  bool Intersects(const Rect& r) const {
    return left < r.right && r.left < right && top < r.bottom && r.top < bottom;
  }
  Rect Intersection(const Rect& r) const {
    Rect i{left > r.left ? left : r.left, top > r.top ? top : r.top,
           right < r.right ? right : r.right, bottom < r.bottom ? bottom : r.bottom};
    return i.IsEmpty() ? Rect{} : i;
  }
  friend bool operator==(const Rect&, const Rect&) = default;
};

// A row of equally sized images that cells and header items show by index. Index 0 means no
// image; images are numbered from 1.
class ImageList {
 public:
  virtual ~ImageList() = default;
  virtual Size ImageSize() const = 0;
  virtual int32_t ImageCount() const = 0;
};

// How a frame control is drawn: the grid's flat look (FlatCellControls, a flat header) or the
// platform's themed look (UseXPStyles).
enum class ControlLook : int32_t { Flat = 0, Themed = 1 };

// States of a header item for drawing.
struct HeaderItemState {
  bool hot = false;      // the mouse is over it (hot tracking)
  bool pressed = false;  // a click on it is in progress
  ControlLook look = ControlLook::Themed;
};

class Painter {
 public:
  virtual ~Painter() = default;

  // ---- Shapes
  virtual void FillRect(const Rect& r, Color rgb) = 0;
  // Fills blending rgb over what is there: alpha 255 is opaque, 0 leaves it unchanged.
  virtual void FillRectAlpha(const Rect& r, Color rgb, uint8_t alpha) = 0;
  // A frame of the given thickness drawn inside r.
  virtual void FrameRect(const Rect& r, Color rgb, int32_t thickness) = 0;
  // A line from one point to another, both ends included; thickness grows right and down.
  virtual void Line(Point from, Point to, Color rgb, int32_t thickness) = 0;
  // A dotted line (tree lines): every other pixel.
  virtual void DottedLine(Point from, Point to, Color rgb) = 0;
  // Hatches r with one of the six patterns in rgb; the gaps are left as they are.
  virtual void FillHatch(const Rect& r, EHatchStyles style, Color rgb) = 0;

  // ---- Text: drawn inside r with the ETextFormatFlags alignment, ellipsis, word-break and
  // single-line flags; clipped to r unless quTextNoClip is given.
  virtual void DrawText(const Rect& r, std::string_view text, const Font& font, Color rgb,
                        int32_t textFlags) = 0;

  // ---- Images and frame controls
  // Image `index` (1-based) of the list with its top-left corner at `at`; `blend` tints it with
  // the selection colour (HighlightSelIcons; -1: no tint), `disabled` draws it greyed.
  virtual void DrawImage(const ImageList& list, int32_t index, Point at, Color blend,
                         bool disabled) = 0;
  virtual void DrawCheckBox(const Rect& r, ECellCheckState state, ControlLook look,
                            bool enabled) = 0;
  // The box with a minus (expanded) or plus (collapsed) sign of the tree of rows.
  virtual void DrawTreeButton(const Rect& r, bool expanded, Color border, Color back,
                              Color fore) = 0;
  virtual void DrawComboButton(const Rect& r, bool pressed, ControlLook look, bool enabled) = 0;
  // The background and frame of a header item (the caption, icon and sort mark are drawn by the
  // control on top of it).
  virtual void DrawHeaderItem(const Rect& r, const HeaderItemState& state) = 0;
  // A sort mark (triangle) inside r, pointing up for ascending.
  virtual void DrawSortMark(const Rect& r, bool ascending, Color rgb) = 0;
  // A focus rectangle: a one-pixel dotted frame alternating the two colours.
  virtual void DrawFocusRect(const Rect& r, Color rgb1, Color rgb2) = 0;

  // ---- Clipping: every drawing call is clipped to the intersection of the pushed rectangles
  // and the paint's own clip rectangle.
  virtual void PushClip(const Rect& r) = 0;
  virtual void PopClip() = 0;
};

}  // namespace quilta
