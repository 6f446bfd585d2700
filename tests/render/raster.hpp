// A small rasteriser for recorded paints, so that tests and developers can look at what the grid
// drew as a PNG picture. Text is drawn as one block per character in the headless metrics, which
// shows where text lands and how it is clipped, not the glyphs.
#pragma once

#include <cstdint>
#include <quilta/platform/recording_painter.hpp>
#include <string>
#include <vector>

namespace quilta::test {

class Raster {
 public:
  Raster(int32_t width, int32_t height, Color background = 0xFFFFFF);
  void Replay(const RecordingPainter& painter);
  Color At(int32_t x, int32_t y) const { return pixels_[static_cast<size_t>(y) * w_ + x]; }
  bool WritePng(const std::string& path) const;

 private:
  void Plot(int32_t x, int32_t y, Color c, const Rect& clip, uint8_t alpha = 255);
  void Fill(const Rect& r, Color c, const Rect& clip, uint8_t alpha = 255);
  void Text(const PaintOp& op, const Font& font);
  void Hatch(const PaintOp& op);
  void Frame(const Rect& r, Color c, int32_t t, const Rect& clip);

  int32_t w_;
  int32_t h_;
  std::vector<Color> pixels_;
};

}  // namespace quilta::test
