// Hit testing and scrolling into view at scale: a point is mapped to a cell and a part by binary
// search on the row positions, and a row is brought into view from its position alone, so the
// cost per call stays flat from a thousand rows to ten million.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <quilta/platform/headless.hpp>
#include <quilta/quilta.hpp>
#include <random>
#include <vector>

namespace {

// A 1920 x 1080 view on a grid of ten columns with check boxes in the first, scrolled to the
// middle; one grid per row count, built once.
struct Setup {
  quilta::HeadlessPlatform platform;
  quilta::Quilta grid{platform};
  explicit Setup(int32_t rows) {
    platform.SetClientSize({1920, 1080});
    grid.AddCol({.lWidth = 150, .lCount = 10});
    grid.AddRow({.lCount = rows});
    grid.SetColCellsProp(1, quilta::quPropCellCheckVisible, true, 1, std::min(rows, 100'000));
    grid.ScrollBar(quilta::quScrollBarV).SetValue(grid.ScrollBar(quilta::quScrollBarV).Max() / 2);
  }
};

Setup& GridOf(int64_t rows) {
  static std::map<int64_t, std::unique_ptr<Setup>> grids;
  auto& g = grids[rows];
  if (!g) g = std::make_unique<Setup>(static_cast<int32_t>(rows));
  return *g;
}

// Points spread over the cells area, visited in a scrambled order.
std::vector<std::pair<int32_t, int32_t>> Points() {
  std::vector<std::pair<int32_t, int32_t>> points;
  std::mt19937 random(7);
  for (int i = 0; i < 1024; ++i) {
    points.emplace_back(static_cast<int32_t>(random() % 1900),
                        30 + static_cast<int32_t>(random() % 1030));
  }
  return points;
}

void BM_CellFromPoint(benchmark::State& state) {
  quilta::Quilta& grid = GridOf(state.range(0)).grid;
  const auto points = Points();
  size_t i = 0;
  int32_t row = 0, col = 0;
  for (auto _ : state) {
    const auto [x, y] = points[i++ & 1023];
    grid.CellFromPoint(x, y, row, col);
    benchmark::DoNotOptimize(row);
    benchmark::DoNotOptimize(col);
  }
}
BENCHMARK(BM_CellFromPoint)->Arg(1'000)->Arg(1'000'000)->Arg(10'000'000);

void BM_HitTest(benchmark::State& state) {
  quilta::Quilta& grid = GridOf(state.range(0)).grid;
  const auto points = Points();
  size_t i = 0;
  for (auto _ : state) {
    const auto [x, y] = points[i++ & 1023];
    benchmark::DoNotOptimize(grid.HitTest(x, y));
  }
}
BENCHMARK(BM_HitTest)->Arg(1'000)->Arg(1'000'000)->Arg(10'000'000);

// Rows scattered over the whole grid: every call scrolls.
void BM_EnsureVisibleRow(benchmark::State& state) {
  Setup& setup = GridOf(state.range(0));
  quilta::Quilta& grid = setup.grid;
  std::mt19937 random(11);
  std::vector<int32_t> rows;
  for (int i = 0; i < 1024; ++i) {
    rows.push_back(1 + static_cast<int32_t>(random() % static_cast<uint32_t>(state.range(0))));
  }
  size_t i = 0;
  for (auto _ : state) grid.EnsureVisibleRow(rows[i++ & 1023]);
  grid.ScrollBar(quilta::quScrollBarV).SetValue(grid.ScrollBar(quilta::quScrollBarV).Max() / 2);
}
BENCHMARK(BM_EnsureVisibleRow)->Arg(1'000)->Arg(1'000'000)->Arg(10'000'000);

// A row already in view: the common case of keyboard navigation.
void BM_EnsureVisibleRowInView(benchmark::State& state) {
  quilta::Quilta& grid = GridOf(state.range(0)).grid;
  int32_t row = 0, col = 0;
  grid.CellFromPoint(10, 500, row, col);
  for (auto _ : state) grid.EnsureVisibleRow(row);
}
BENCHMARK(BM_EnsureVisibleRowInView)->Arg(1'000)->Arg(10'000'000);

// The same points with the group-by band shown above the header, the grid grouped by two of
// its columns (100 x 10 groups): the layout pass that each call runs also sizes the band.
void BM_CellFromPointGroupByBand(benchmark::State& state) {
  static Setup* setup = [] {
    auto* s = new Setup(1'000'000);
    for (int32_t r = 1; r <= s->grid.RowCount(); ++r) {
      s->grid.SetCellValue(r, 1, r % 100);
      s->grid.SetCellValue(r, 2, r % 10);
    }
    s->grid.SetGroupByBoxVisible(true);
    s->grid.Group(1);
    s->grid.GroupObject().AddItem(2);
    s->grid.Group();
    return s;
  }();
  const auto points = Points();
  size_t i = 0;
  int32_t row = 0, col = 0;
  for (auto _ : state) {
    const auto [x, y] = points[i++ & 1023];
    setup->grid.CellFromPoint(x, y, row, col);
    benchmark::DoNotOptimize(row);
  }
}
BENCHMARK(BM_CellFromPointGroupByBand);

}  // namespace
