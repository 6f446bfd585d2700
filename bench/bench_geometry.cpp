// Row geometry at scale: a height change costs one pass over the rows below it and nothing
// above, and a bulk height change costs one pass for the whole range.
#include <benchmark/benchmark.h>

#include <quilta/quilta.hpp>

namespace {

constexpr int32_t kRows = 1'000'000;

quilta::Quilta& BigGrid() {
  static quilta::Quilta* grid = [] {
    auto* g = new quilta::Quilta();
    g->AddCol({.lCount = 5});
    g->AddRow({.lCount = kRows});
    return g;
  }();
  return *grid;
}

// Alternates one row's height so every iteration is a real change.
void ChangeOneRow(benchmark::State& state, int32_t row) {
  quilta::Quilta& grid = BigGrid();
  int32_t height = 18;
  for (auto _ : state) {
    height = height == 18 ? 30 : 18;
    grid.SetRowHeight(row, height);
  }
  grid.SetRowHeight(row, 18);
  state.counters["rows_below"] = kRows - row;
}

void BM_RowHeightNearEnd(benchmark::State& state) { ChangeOneRow(state, kRows - 100); }
void BM_RowHeightNearStart(benchmark::State& state) { ChangeOneRow(state, 100); }

void BM_SetRowHeightsAllRows(benchmark::State& state) {
  quilta::Quilta& grid = BigGrid();
  int32_t height = 18;
  for (auto _ : state) {
    height = height == 18 ? 30 : 18;
    grid.SetRowHeights(height);
  }
  grid.SetRowHeights(18);
  state.SetItemsProcessed(state.iterations() * kRows);
}

// Inside BeginUpdate, many scattered changes cost one pass at EndUpdate.
void BM_ScatteredHeightsInOneUpdate(benchmark::State& state) {
  quilta::Quilta& grid = BigGrid();
  int32_t height = 18;
  for (auto _ : state) {
    height = height == 18 ? 30 : 18;
    grid.BeginUpdate();
    for (int32_t row = kRows; row >= 1; row -= kRows / 1000) grid.SetRowHeight(row, height);
    grid.EndUpdate();
  }
  state.SetItemsProcessed(state.iterations() * 1000);
}

}  // namespace

BENCHMARK(BM_RowHeightNearEnd);
BENCHMARK(BM_RowHeightNearStart)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SetRowHeightsAllRows)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScatteredHeightsInOneUpdate)->Unit(benchmark::kMillisecond);
