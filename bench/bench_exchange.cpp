// Layout strings and arrays: how their cost grows with columns and rows.
#include <benchmark/benchmark.h>

#include <quilta/quilta.hpp>

namespace {

// Writing and reading LayoutCol for a grid of n columns, each placed by a lookup of its index.
void BM_LayoutColRoundTrip(benchmark::State& state) {
  quilta::Quilta grid;
  grid.AddCol({.lCount = static_cast<int32_t>(state.range(0))});
  for (auto _ : state) {
    std::string layout = grid.LayoutCol();
    grid.SetLayoutCol(layout);
    benchmark::DoNotOptimize(layout.size());
  }
}
BENCHMARK(BM_LayoutColRoundTrip)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMicrosecond);

// A rows x 10 array into and out of the grid: linear in the cells, one redraw.
void BM_LoadFromArray(benchmark::State& state) {
  const auto rows = static_cast<int32_t>(state.range(0));
  quilta::Quilta grid;
  grid.AddCol({.lCount = 10});
  grid.AddRow({.lCount = rows});
  quilta::Variant a = quilta::Variant::Array2D(0, rows, 0, 10);
  for (int32_t r = 0; r < rows; ++r)
    for (int32_t c = 0; c < 10; ++c) a.SetAt(r, c, r * 10.0 + c);
  for (auto _ : state) grid.LoadFromArray(1, 1, a);
  state.SetItemsProcessed(state.iterations() * rows * 10);
}
BENCHMARK(BM_LoadFromArray)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

void BM_LoadIntoArray(benchmark::State& state) {
  const auto rows = static_cast<int32_t>(state.range(0));
  quilta::Quilta grid;
  grid.AddCol({.lCount = 10});
  grid.AddRow({.lCount = rows});
  for (int32_t c = 1; c <= 10; ++c) grid.SetColCellsProp(c, quilta::quPropCellValue, 1.5);
  quilta::Variant a = quilta::Variant::Array2D(0, rows, 0, 10);
  for (auto _ : state) grid.LoadIntoArray(1, 1, a);
  state.SetItemsProcessed(state.iterations() * rows * 10);
}
BENCHMARK(BM_LoadIntoArray)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
