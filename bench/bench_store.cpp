// How adding rows, finding keys and setting cell values cost as the grid grows.
#include <benchmark/benchmark.h>

#include <memory>
#include <quilta/quilta.hpp>
#include <string>

#include "memory.hpp"

using quilta::Quilta;

namespace {

std::unique_ptr<Quilta> GridWithColumns(int cols) {
  auto grid = std::make_unique<Quilta>();
  grid->AddCol({.lCount = cols});
  return grid;
}

// One call adding lCount rows to a 10-column grid, with the resident bytes per cell it costs
// once every cell holds a number.
void BM_AddRowBulk(benchmark::State& state) {
  const int32_t rows = static_cast<int32_t>(state.range(0));
  double bytesPerCell = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto grid = GridWithColumns(10);
    long before = quilta::bench::ResidentBytes();
    state.ResumeTiming();
    grid->AddRow({.lCount = rows});
    state.PauseTiming();
    for (int c = 1; c <= 10; ++c) grid->SetColCellsProp(c, quilta::quPropCellValue, 1.5);
    bytesPerCell = double(quilta::bench::ResidentBytes() - before) / (double(rows) * 10);
    grid.reset();
    state.ResumeTiming();
  }
  state.counters["bytes_per_cell"] = bytesPerCell;
}
BENCHMARK(BM_AddRowBulk)->Arg(1'000'000)->Unit(benchmark::kMillisecond)->Iterations(3);

// A 1M-row grid in which only the first 1,000 rows of each column get values, as when a host
// fills a page of rows first: the rest of each column stays its template and costs no resident
// memory.
void BM_WriteFirstRowsOnly(benchmark::State& state) {
  constexpr int32_t kRows = 1'000'000;
  double bytesPerCell = 0;
  for (auto _ : state) {
    auto grid = GridWithColumns(10);
    long before = quilta::bench::ResidentBytes();
    grid->AddRow({.lCount = kRows});
    for (int32_t r = 1; r <= 1000; ++r)
      for (int c = 1; c <= 10; ++c) grid->SetCellValue(r, c, r * 0.5);
    bytesPerCell = double(quilta::bench::ResidentBytes() - before) / (double(kRows) * 10);
    state.PauseTiming();
    grid.reset();
    state.ResumeTiming();
  }
  state.counters["bytes_per_cell"] = bytesPerCell;
}
BENCHMARK(BM_WriteFirstRowsOnly)->Unit(benchmark::kMillisecond)->Iterations(3);

// AddRow one row at a time: the time of one call at 10k, 100k and 1M existing rows.
void AddRowsOneByOne(benchmark::State& state, bool keys) {
  const int32_t existing = static_cast<int32_t>(state.range(0));
  auto grid = GridWithColumns(10);
  if (keys) grid->SetStoreInitRowNumbers(quilta::quStoreInitRowNoInRowKey);
  for (int32_t r = 0; r < existing; ++r) grid->AddRow();
  for (auto _ : state) grid->AddRow();
  state.SetItemsProcessed(state.iterations());
}
void BM_AddRowOneAtATime(benchmark::State& state) { AddRowsOneByOne(state, false); }
void BM_AddRowOneAtATimeWithKeys(benchmark::State& state) { AddRowsOneByOne(state, true); }
BENCHMARK(BM_AddRowOneAtATime)->Arg(10'000)->Arg(100'000)->Arg(1'000'000);
BENCHMARK(BM_AddRowOneAtATimeWithKeys)->Arg(10'000)->Arg(100'000)->Arg(1'000'000);

void BM_RowIndexByKey(benchmark::State& state) {
  const int32_t rows = static_cast<int32_t>(state.range(0));
  auto grid = GridWithColumns(2);
  grid->SetStoreInitRowNumbers(quilta::quStoreInitRowNoInRowKey);
  grid->AddRow({.lCount = rows});
  int32_t probe = 1;
  for (auto _ : state) {
    benchmark::DoNotOptimize(grid->RowIndex(std::to_string(probe)));
    probe = probe % rows + 7919 % rows + 1;
  }
}
BENCHMARK(BM_RowIndexByKey)->Arg(10'000)->Arg(1'000'000);

void BM_SetCellValue(benchmark::State& state) {
  auto grid = GridWithColumns(10);
  grid->AddRow({.lCount = 100'000});
  int32_t row = 1;
  for (auto _ : state) {
    grid->SetCellValue(row, 5, 3.25);
    row = row % 100'000 + 1;
  }
}
BENCHMARK(BM_SetCellValue);

}  // namespace
