// A recording painter and a small rasteriser for the header tests: the recording says what was
// drawn where, the rasteriser turns it into a picture to look at while developing.
#pragma once

#include <quilta/quilta.hpp>
#include <string>
#include <vector>

#include "control/internals_access.hpp"

namespace quilta::testing {

struct PaintCall {
  enum Kind {
    Fill,
    FillAlpha,
    Frame,
    Line,
    Dotted,
    Hatch,
    Text,
    Image,
    Check,
    Tree,
    Combo,
    HeaderItem,
    SortMark,
    Focus
  };
  PaintCall(Kind k, Rect r, Color c = 0, std::string t = {})
      : kind(k), rect(r), color(c), text(std::move(t)) {}
  Kind kind;
  Rect rect;  // for lines: left/top = from, right/bottom = to
  Color color = 0;
  std::string text;
  int32_t flags = 0;  // text flags, image index, alpha or thickness
  HeaderItemState state{};
  bool ascending = false;
  Rect clip;  // the clip in force
};

class RecordingPainter final : public Painter {
 public:
  explicit RecordingPainter(Rect paintClip) { clips_.push_back(paintClip); }
  std::vector<PaintCall> calls;

  void FillRect(const Rect& r, Color rgb) override { Add(PaintCall(PaintCall::Fill, r, rgb)); }
  void FillRectAlpha(const Rect& r, Color rgb, uint8_t alpha) override {
    PaintCall c(PaintCall::FillAlpha, r, rgb);
    c.flags = alpha;
    Add(c);
  }
  void FrameRect(const Rect& r, Color rgb, int32_t thickness) override {
    PaintCall c(PaintCall::Frame, r, rgb);
    c.flags = thickness;
    Add(c);
  }
  void Line(Point from, Point to, Color rgb, int32_t thickness) override {
    PaintCall c(PaintCall::Line, {from.x, from.y, to.x, to.y}, rgb);
    c.flags = thickness;
    Add(c);
  }
  void DottedLine(Point from, Point to, Color rgb) override {
    Add(PaintCall(PaintCall::Dotted, {from.x, from.y, to.x, to.y}, rgb));
  }
  void FillHatch(const Rect& r, EHatchStyles, Color rgb) override {
    Add(PaintCall(PaintCall::Hatch, r, rgb));
  }
  void DrawText(const Rect& r, std::string_view text, const Font&, Color rgb,
                int32_t textFlags) override {
    PaintCall c(PaintCall::Text, r, rgb, std::string(text));
    c.flags = textFlags;
    Add(c);
  }
  void DrawImage(const ImageList& list, int32_t index, Point at, Color, bool) override {
    PaintCall c(PaintCall::Image,
                {at.x, at.y, at.x + list.ImageSize().cx, at.y + list.ImageSize().cy});
    c.flags = index;
    Add(c);
  }
  void DrawCheckBox(const Rect& r, ECellCheckState, ControlLook, bool) override {
    Add(PaintCall(PaintCall::Check, r));
  }
  void DrawTreeButton(const Rect& r, bool, Color, Color, Color) override {
    Add(PaintCall(PaintCall::Tree, r));
  }
  void DrawComboButton(const Rect& r, bool, ControlLook, bool) override {
    Add(PaintCall(PaintCall::Combo, r));
  }
  void DrawHeaderItem(const Rect& r, const HeaderItemState& state) override {
    PaintCall c(PaintCall::HeaderItem, r);
    c.state = state;
    Add(c);
  }
  void DrawSortMark(const Rect& r, bool ascending, Color rgb) override {
    PaintCall c(PaintCall::SortMark, r, rgb);
    c.ascending = ascending;
    Add(c);
  }
  void DrawFocusRect(const Rect& r, Color rgb1, Color) override {
    Add(PaintCall(PaintCall::Focus, r, rgb1));
  }
  void PushClip(const Rect& r) override { clips_.push_back(clips_.back().Intersection(r)); }
  void PopClip() override { clips_.pop_back(); }

  std::vector<PaintCall> Of(PaintCall::Kind kind) const {
    std::vector<PaintCall> out;
    for (const PaintCall& c : calls)
      if (c.kind == kind) out.push_back(c);
    return out;
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> out;
    for (const PaintCall& c : Of(PaintCall::Text)) out.push_back(c.text);
    return out;
  }
  const PaintCall* TextCall(std::string_view text) const {
    for (const PaintCall& c : calls)
      if (c.kind == PaintCall::Text && c.text == text) return &c;
    return nullptr;
  }

 private:
  void Add(PaintCall c) {
    c.clip = clips_.back();
    calls.push_back(std::move(c));
  }
  std::vector<Rect> clips_;
};

// Paints a whole grid (header and cells) into a recording.
// Paints the header strip (the cells below it have tests of their own).
inline RecordingPainter PaintAll(Quilta& grid) {
  const Size client = grid.GetPlatform().ClientSize();
  const Rect all{0, 0, client.cx, grid.Header().Visible() ? grid.Header().Height() : 0};
  RecordingPainter p(all);
  grid.Paint(p, all);
  return p;
}

// Writes what a recording drew as a PNG (text as one block per character), for looking at.
void WritePicture(const RecordingPainter& p, Size size, const std::string& path);

}  // namespace quilta::testing
