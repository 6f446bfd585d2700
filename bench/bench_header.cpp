// The header strip at scale: painting it and hovering over it read only the columns, so their
// cost does not grow with the number of rows; it grows with the columns walked, not drawn.
#include <benchmark/benchmark.h>

#include <memory>
#include <quilta/quilta.hpp>

namespace {

// Counts the calls instead of drawing: what is measured is the strip's own work.
class NullPainter final : public quilta::Painter {
 public:
  int64_t calls = 0;
  void FillRect(const quilta::Rect&, quilta::Color) override { ++calls; }
  void FillRectAlpha(const quilta::Rect&, quilta::Color, uint8_t) override { ++calls; }
  void FrameRect(const quilta::Rect&, quilta::Color, int32_t) override { ++calls; }
  void Line(quilta::Point, quilta::Point, quilta::Color, int32_t) override { ++calls; }
  void DottedLine(quilta::Point, quilta::Point, quilta::Color) override { ++calls; }
  void FillHatch(const quilta::Rect&, quilta::EHatchStyles, quilta::Color) override { ++calls; }
  void DrawText(const quilta::Rect&, std::string_view, const quilta::Font&, quilta::Color,
                int32_t) override {
    ++calls;
  }
  void DrawImage(const quilta::ImageList&, int32_t, quilta::Point, quilta::Color, bool) override {
    ++calls;
  }
  void DrawCheckBox(const quilta::Rect&, quilta::ECellCheckState, quilta::ControlLook,
                    bool) override {
    ++calls;
  }
  void DrawTreeButton(const quilta::Rect&, bool, quilta::Color, quilta::Color,
                      quilta::Color) override {
    ++calls;
  }
  void DrawComboButton(const quilta::Rect&, bool, quilta::ControlLook, bool) override { ++calls; }
  void DrawHeaderItem(const quilta::Rect&, const quilta::HeaderItemState&) override { ++calls; }
  void DrawSortMark(const quilta::Rect&, bool, quilta::Color) override { ++calls; }
  void DrawFocusRect(const quilta::Rect&, quilta::Color, quilta::Color) override { ++calls; }
  void PushClip(const quilta::Rect&) override {}
  void PopClip() override {}
};

struct Grid {
  quilta::HeadlessPlatform platform;
  quilta::Quilta grid{platform};
  Grid(int32_t rows, int32_t cols) {
    platform.SetClientSize({1920, 1080});
    grid.AddCol({.sHeader = "Column caption", .lWidth = 90, .lCount = cols});
    grid.AddRow({.lCount = rows});
    grid.SetColSortKey(1, 1);
    grid.SetColSortKey(2, 2);
  }
};

Grid& GridOf(int32_t rows, int32_t cols) {
  static std::unique_ptr<Grid> grid;
  static int32_t shape[2] = {-1, -1};
  if (shape[0] != rows || shape[1] != cols) {
    grid.reset();
    grid = std::make_unique<Grid>(rows, cols);
    shape[0] = rows;
    shape[1] = cols;
  }
  return *grid;
}

// One paint of the header strip of a 1920 x 1080 view (about 21 items shown).
void BM_PaintHeader(benchmark::State& state) {
  Grid& g = GridOf(static_cast<int32_t>(state.range(0)), static_cast<int32_t>(state.range(1)));
  const quilta::Rect strip{0, 0, 1920, g.grid.Header().Height()};
  NullPainter painter;
  for (auto _ : state) g.grid.Paint(painter, strip);
  state.counters["calls_per_paint"] =
      static_cast<double>(painter.calls) / static_cast<double>(state.iterations());
}
BENCHMARK(BM_PaintHeader)->Args({1'000, 50})->Args({1'000'000, 50})->Args({1'000, 1'000});

// Hot tracking: the pointer crosses the strip item by item.
void BM_HoverHeader(benchmark::State& state) {
  Grid& g = GridOf(static_cast<int32_t>(state.range(0)), 50);
  int32_t x = 0;
  for (auto _ : state) {
    x = (x + 37) % 1900;
    g.grid.HostMouseMove(0, 0, x, 10);
  }
}
BENCHMARK(BM_HoverHeader)->Arg(1'000)->Arg(1'000'000);

}  // namespace
