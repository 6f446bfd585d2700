// Painting one 1920 x 1080 view through the recording painter at 1k, 1M and 10M rows: painting
// visits only the rows and columns in view, so a frame costs the same at every row count.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <quilta/platform/headless.hpp>
#include <quilta/platform/recording_painter.hpp>
#include <quilta/quilta.hpp>

namespace {

constexpr int32_t kCols = 12;

struct View {
  quilta::HeadlessPlatform platform;
  std::unique_ptr<quilta::Quilta> grid;
};

// Every cell shows text: the columns' default cells carry the values, so ten million rows take
// no cell memory and each row still paints like a loaded one.
View& ViewOf(int32_t rows) {
  static std::map<int32_t, std::unique_ptr<View>> views;
  auto& v = views[rows];
  if (v) return *v;
  v = std::make_unique<View>();
  v->platform.SetClientSize({1920, 1080});
  v->grid = std::make_unique<quilta::Quilta>(v->platform);
  quilta::Quilta& g = *v->grid;
  for (int32_t c = 1; c <= kCols; ++c) {
    auto cell = g.AddCol({.sHeader = "Column", .lWidth = 160});
    if (c == 1) {
      cell->SetvValue("Order line");
    } else {
      cell->SetvValue(1234.5 * c);
      cell->SetsFmtString("#,##0.00");
      cell->SeteAlignH(quilta::quAlignHRight);
    }
  }
  g.AddRow({.lCount = rows});
  g.SetBackColorEvenRows(0xF0F0F0);
  g.HostScroll(quilta::quScrollBarV, rows / 2 * 18);  // the middle of the grid
  return *v;
}

void BM_PaintView(benchmark::State& state) {
  View& v = ViewOf(static_cast<int32_t>(state.range(0)));
  const quilta::Rect all{0, 0, 1920, 1080};
  quilta::RecordingPainter painter(all);
  for (auto _ : state) {
    painter.Clear();
    v.grid->Paint(painter, all);
    benchmark::DoNotOptimize(painter.Ops().data());
  }
  state.counters["ops"] = static_cast<double>(painter.Ops().size());
}
BENCHMARK(BM_PaintView)->Arg(1'000)->Arg(1'000'000)->Arg(10'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace

namespace {

// A tree of one root over every other row, with tree lines: the root's line runs past the whole
// grid, which painting learns once per change of the rows, not once per frame.
View& TreeViewOf(int32_t rows) {
  static std::unique_ptr<View> v;
  if (v) return *v;
  v = std::make_unique<View>();
  v->platform.SetClientSize({1920, 1080});
  v->grid = std::make_unique<quilta::Quilta>(v->platform);
  quilta::Quilta& g = *v->grid;
  for (int32_t c = 1; c <= kCols; ++c) g.AddCol({.lWidth = 160})->SetvValue("Node");
  g.AddRow({.lCount = rows});
  g.BeginUpdate();
  for (int32_t r = 2; r <= rows; ++r) g.SetRowLevel(r, 1);
  g.EndUpdate();
  g.SetRowTreeButton(1, quilta::quRowTreeButtonVisible);
  g.SetTreeCol(1);
  g.SetTreeLines(quilta::quTreeLinesDotted);
  g.HostScroll(quilta::quScrollBarV, rows / 2 * 18);
  return *v;
}

void BM_PaintTreeView(benchmark::State& state) {
  View& v = TreeViewOf(static_cast<int32_t>(state.range(0)));
  const quilta::Rect all{0, 0, 1920, 1080};
  quilta::RecordingPainter painter(all);
  for (auto _ : state) {
    painter.Clear();
    v.grid->Paint(painter, all);
    benchmark::DoNotOptimize(painter.Ops().data());
  }
}
BENCHMARK(BM_PaintTreeView)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace
