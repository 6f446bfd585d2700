#include <cstdio>
#include <quilta/platform/recording_painter.hpp>
#include <quilta/quilta.hpp>

namespace quilta {

RecordingPainter::RecordingPainter(const Rect& clip) {
  clips_.push_back(clip);
  ops_.reserve(1024);
}

PaintOp& RecordingPainter::Add(PaintOpKind kind, const Rect& r) {
  PaintOp& op = ops_.emplace_back();
  op.kind = kind;
  op.rect = r;
  op.clip = clips_.back();
  return op;
}

uint16_t RecordingPainter::FontIndex(const Font& font) {
  for (size_t i = fonts_.size(); i-- > 0;) {
    if (fonts_[i] == font) return static_cast<uint16_t>(i);
  }
  fonts_.push_back(font);
  return static_cast<uint16_t>(fonts_.size() - 1);
}

void RecordingPainter::FillRect(const Rect& r, Color rgb) {
  Add(PaintOpKind::FillRect, r).color = rgb;
}

void RecordingPainter::FillRectAlpha(const Rect& r, Color rgb, uint8_t alpha) {
  PaintOp& op = Add(PaintOpKind::FillRectAlpha, r);
  op.color = rgb;
  op.value = alpha;
}

void RecordingPainter::FrameRect(const Rect& r, Color rgb, int32_t thickness) {
  PaintOp& op = Add(PaintOpKind::FrameRect, r);
  op.color = rgb;
  op.value = thickness;
}

void RecordingPainter::Line(Point from, Point to, Color rgb, int32_t thickness) {
  PaintOp& op = Add(PaintOpKind::Line, {});
  op.from = from;
  op.to = to;
  op.color = rgb;
  op.value = thickness;
}

void RecordingPainter::DottedLine(Point from, Point to, Color rgb) {
  PaintOp& op = Add(PaintOpKind::DottedLine, {});
  op.from = from;
  op.to = to;
  op.color = rgb;
  op.value = 1;
}

void RecordingPainter::FillHatch(const Rect& r, EHatchStyles style, Color rgb) {
  PaintOp& op = Add(PaintOpKind::FillHatch, r);
  op.color = rgb;
  op.value = style;
}

void RecordingPainter::DrawText(const Rect& r, std::string_view text, const Font& font, Color rgb,
                                int32_t textFlags) {
  const uint16_t fontIndex = FontIndex(font);
  PaintOp& op = Add(PaintOpKind::DrawText, r);
  op.text.assign(text);
  op.font = fontIndex;
  op.color = rgb;
  op.value = textFlags;
}

void RecordingPainter::DrawImage(const ImageList& list, int32_t index, Point at, Color blend,
                                 bool disabled) {
  const Size s = list.ImageSize();
  PaintOp& op = Add(PaintOpKind::DrawImage, {at.x, at.y, at.x + s.cx, at.y + s.cy});
  op.images = &list;
  op.value = index;
  op.color = blend;
  op.flag = disabled;
}

void RecordingPainter::DrawCheckBox(const Rect& r, ECellCheckState state, ControlLook look,
                                    bool enabled) {
  PaintOp& op = Add(PaintOpKind::DrawCheckBox, r);
  op.value = state;
  op.look = look;
  op.flag = enabled;
}

void RecordingPainter::DrawTreeButton(const Rect& r, bool expanded, Color border, Color back,
                                      Color fore) {
  PaintOp& op = Add(PaintOpKind::DrawTreeButton, r);
  op.flag = expanded;
  op.color = border;
  op.color2 = back;
  op.color3 = fore;
}

void RecordingPainter::DrawComboButton(const Rect& r, bool pressed, ControlLook look,
                                       bool enabled) {
  PaintOp& op = Add(PaintOpKind::DrawComboButton, r);
  op.flag = pressed;
  op.look = look;
  op.value = enabled;
}

void RecordingPainter::DrawHeaderItem(const Rect& r, const HeaderItemState& state) {
  PaintOp& op = Add(PaintOpKind::DrawHeaderItem, r);
  op.flag = state.pressed;
  op.value = state.hot;
  op.look = state.look;
}

void RecordingPainter::DrawSortMark(const Rect& r, bool ascending, Color rgb) {
  PaintOp& op = Add(PaintOpKind::DrawSortMark, r);
  op.flag = ascending;
  op.color = rgb;
}

void RecordingPainter::DrawFocusRect(const Rect& r, Color rgb1, Color rgb2) {
  PaintOp& op = Add(PaintOpKind::DrawFocusRect, r);
  op.color = rgb1;
  op.color2 = rgb2;
}

void RecordingPainter::PushClip(const Rect& r) {
  Add(PaintOpKind::PushClip, r);
  const Rect inside = clips_.back().Intersection(r);
  clips_.push_back(inside);
}

void RecordingPainter::PopClip() {
  Add(PaintOpKind::PopClip, {});
  if (clips_.size() > 1) clips_.pop_back();
}

std::vector<const PaintOp*> RecordingPainter::OpsOf(PaintOpKind kind) const {
  std::vector<const PaintOp*> out;
  for (const PaintOp& op : ops_) {
    if (op.kind == kind) out.push_back(&op);
  }
  return out;
}

void RecordingPainter::Clear() {
  ops_.clear();
  clips_.resize(1);
}

const char* PaintOpName(PaintOpKind kind) {
  static constexpr const char* kNames[] = {"fill",      "fill-alpha",  "frame",        "line",
                                           "dotted",    "hatch",       "text",         "image",
                                           "check-box", "tree-button", "combo-button", "header",
                                           "sort-mark", "focus-rect",  "clip",         "end-clip"};
  return kNames[static_cast<size_t>(kind)];
}

namespace {

std::string Hex(Color c) {
  char buf[16];
  const auto u = static_cast<uint32_t>(c);
  std::snprintf(buf, sizeof buf, "#%02X%02X%02X", u & 0xFF, (u >> 8) & 0xFF, (u >> 16) & 0xFF);
  return buf;
}

std::string RectText(const Rect& r) {
  char buf[64];
  std::snprintf(buf, sizeof buf, "(%d,%d)-(%d,%d)", r.left, r.top, r.right, r.bottom);
  return buf;
}

std::string PointText(Point p) {
  return "(" + std::to_string(p.x) + "," + std::to_string(p.y) + ")";
}

const char* LookName(ControlLook look) { return look == ControlLook::Flat ? "flat" : "themed"; }

std::string Details(const PaintOp& op, const std::vector<Font>& fonts) {
  switch (op.kind) {
    case PaintOpKind::FillRect:
      return RectText(op.rect) + " " + Hex(op.color);
    case PaintOpKind::FillRectAlpha:
      return RectText(op.rect) + " " + Hex(op.color) + " alpha " + std::to_string(op.value);
    case PaintOpKind::FrameRect:
      return RectText(op.rect) + " " + Hex(op.color) + " width " + std::to_string(op.value);
    case PaintOpKind::Line:
      return PointText(op.from) + "-" + PointText(op.to) + " " + Hex(op.color) + " width " +
             std::to_string(op.value);
    case PaintOpKind::DottedLine:
      return PointText(op.from) + "-" + PointText(op.to) + " " + Hex(op.color);
    case PaintOpKind::FillHatch:
      return RectText(op.rect) + " style " + std::to_string(op.value) + " " + Hex(op.color);
    case PaintOpKind::DrawText: {
      const Font& f = fonts[op.font];
      char size[32];
      std::snprintf(size, sizeof size, "%g", f.size);
      return RectText(op.rect) + " \"" + op.text + "\" " + Hex(op.color) + " flags " +
             std::to_string(op.value) + " font " + f.name + " " + size + (f.bold ? " bold" : "") +
             (f.italic ? " italic" : "");
    }
    case PaintOpKind::DrawImage:
      return RectText(op.rect) + " #" + std::to_string(op.value) +
             (op.color != -1 ? " blend " + Hex(op.color) : "") + (op.flag ? " disabled" : "");
    case PaintOpKind::DrawCheckBox:
      return RectText(op.rect) + " state " + std::to_string(op.value) + " " + LookName(op.look) +
             (op.flag ? "" : " disabled");
    case PaintOpKind::DrawTreeButton:
      return RectText(op.rect) + (op.flag ? " expanded " : " collapsed ") + Hex(op.color) + " " +
             Hex(op.color2) + " " + Hex(op.color3);
    case PaintOpKind::DrawComboButton:
      return RectText(op.rect) + " " + LookName(op.look) + (op.flag ? " pressed" : "") +
             (op.value ? "" : " disabled");
    case PaintOpKind::DrawHeaderItem:
      return RectText(op.rect) + " " + LookName(op.look) + (op.value ? " hot" : "") +
             (op.flag ? " pressed" : "");
    case PaintOpKind::DrawSortMark:
      return RectText(op.rect) + (op.flag ? " up " : " down ") + Hex(op.color);
    case PaintOpKind::DrawFocusRect:
      return RectText(op.rect) + " " + Hex(op.color) + " " + Hex(op.color2);
    case PaintOpKind::PushClip:
      return RectText(op.rect);
    case PaintOpKind::PopClip:
      return {};
  }
  return {};
}

}  // namespace

std::string RecordingPainter::Dump() const {
  std::string out;
  size_t depth = 0;
  for (const PaintOp& op : ops_) {
    if (op.kind == PaintOpKind::PopClip && depth > 0) --depth;
    out.append(2 * depth, ' ');
    out += PaintOpName(op.kind);
    const std::string details = Details(op, fonts_);
    if (!details.empty()) out += " " + details;
    out += '\n';
    if (op.kind == PaintOpKind::PushClip) ++depth;
  }
  return out;
}

std::string DumpPaint(Quilta& grid) {
  const Size client = grid.GetPlatform().ClientSize();
  const Rect all{0, 0, client.cx, client.cy};
  RecordingPainter painter(all);
  grid.Paint(painter, all);
  return painter.Dump();
}

}  // namespace quilta
