// A Painter that draws nothing and remembers every call, in order, with the clip rectangle in
// force at the time. Tests assert what the control drew and where; a host can replay a recorded
// paint onto a real surface; Dump() gives a readable text listing for debugging.
//
// Text is recorded, not rasterised: where text lands is computed with the headless platform's
// documented metrics (see headless.hpp), which is what the control measured with.
#pragma once

#include <cstdint>
#include <quilta/platform/painter.hpp>
#include <string>
#include <vector>

namespace quilta {

class Quilta;

enum class PaintOpKind : uint8_t {
  FillRect,
  FillRectAlpha,
  FrameRect,
  Line,
  DottedLine,
  FillHatch,
  DrawText,
  DrawImage,
  DrawCheckBox,
  DrawTreeButton,
  DrawComboButton,
  DrawHeaderItem,
  DrawSortMark,
  DrawFocusRect,
  PushClip,
  PopClip,
};

// One recorded call. Which fields mean something depends on the kind:
//   rect    every kind with a rectangle (for DrawImage: the image's own rectangle)
//   from/to Line, DottedLine
//   color   the fill, line, text, hatch, sort-mark, blend or first focus colour; the tree
//           button's border
//   color2  the second focus colour; the tree button's back colour
//   color3  the tree button's fore colour
//   value   thickness (FrameRect, Line), alpha (FillRectAlpha), text flags (DrawText), hatch
//           style (FillHatch), image index (DrawImage), check state (DrawCheckBox)
//   flag    expanded (tree button), pressed (combo button, header item), ascending (sort
//           mark), disabled (image), enabled (check box, combo button), hot (header item)
//   look    check boxes, combo buttons and header items
//   text    DrawText
//   font    index into RecordingPainter::Fonts() (DrawText)
//   images  the image list (DrawImage)
//   clip    the clip in force: the paint's clip and every pushed rectangle intersected
struct PaintOp {
  PaintOpKind kind = PaintOpKind::FillRect;
  bool flag = false;
  ControlLook look = ControlLook::Flat;
  uint16_t font = 0;
  int32_t value = 0;
  Rect rect;
  Point from;
  Point to;
  Color color = 0;
  Color color2 = 0;
  Color color3 = 0;
  const ImageList* images = nullptr;
  Rect clip;
  std::string text;
};

class RecordingPainter final : public Painter {
 public:
  // clip: the paint's own clip rectangle (what the host asked to be painted).
  explicit RecordingPainter(const Rect& clip = {-(1 << 29), -(1 << 29), 1 << 29, 1 << 29});

  void FillRect(const Rect& r, Color rgb) override;
  void FillRectAlpha(const Rect& r, Color rgb, uint8_t alpha) override;
  void FrameRect(const Rect& r, Color rgb, int32_t thickness) override;
  void Line(Point from, Point to, Color rgb, int32_t thickness) override;
  void DottedLine(Point from, Point to, Color rgb) override;
  void FillHatch(const Rect& r, EHatchStyles style, Color rgb) override;
  void DrawText(const Rect& r, std::string_view text, const Font& font, Color rgb,
                int32_t textFlags) override;
  void DrawImage(const ImageList& list, int32_t index, Point at, Color blend,
                 bool disabled) override;
  void DrawCheckBox(const Rect& r, ECellCheckState state, ControlLook look, bool enabled) override;
  void DrawTreeButton(const Rect& r, bool expanded, Color border, Color back, Color fore) override;
  void DrawComboButton(const Rect& r, bool pressed, ControlLook look, bool enabled) override;
  void DrawHeaderItem(const Rect& r, const HeaderItemState& state) override;
  void DrawSortMark(const Rect& r, bool ascending, Color rgb) override;
  void DrawFocusRect(const Rect& r, Color rgb1, Color rgb2) override;
  void PushClip(const Rect& r) override;
  void PopClip() override;

  const std::vector<PaintOp>& Ops() const { return ops_; }
  // The recorded calls of one kind, in order.
  std::vector<const PaintOp*> OpsOf(PaintOpKind kind) const;
  const std::vector<Font>& Fonts() const { return fonts_; }
  const Rect& PaintClip() const { return clips_.front(); }
  // Forgets every call, keeping the paint's clip; the clip stack must be balanced.
  void Clear();
  // One line per call, indented by the clip depth; colours as #RRGGBB.
  std::string Dump() const;

 private:
  PaintOp& Add(PaintOpKind kind, const Rect& r);
  uint16_t FontIndex(const Font& font);

  std::vector<PaintOp> ops_;
  std::vector<Rect> clips_;  // [0] the paint's clip; then each pushed one, intersected
  std::vector<Font> fonts_;
};

// The name of a kind as Dump() writes it ("fill", "text", ...).
const char* PaintOpName(PaintOpKind kind);

// Paints the whole client area of a grid through a RecordingPainter and returns its Dump().
std::string DumpPaint(Quilta& grid);

}  // namespace quilta
