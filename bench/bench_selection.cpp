// How selecting costs as the selection grows: SelectAll over 10M cells (time and the memory each
// selected item adds), the single-item operations with 10M cells selected, and the sorted text
// of 100k items.
#include <benchmark/benchmark.h>

#include <memory>
#include <quilta/quilta.hpp>
#include <random>

#include "memory.hpp"

using quilta::Quilta;

namespace {

constexpr int32_t kRows = 1'000'000;
constexpr int32_t kCols = 10;

// 1M x 10 cells, each holding a number (so cell records exist before anything is selected).
std::unique_ptr<Quilta> FilledGrid(int32_t rows, bool values = true) {
  auto grid = std::make_unique<Quilta>();
  grid->AddCol({.lCount = kCols});
  grid->AddRow({.lCount = rows});
  if (values)
    for (int c = 1; c <= kCols; ++c) grid->SetColCellsProp(c, quilta::quPropCellValue, 1.5);
  grid->SetMultiSelect(true);
  return grid;
}

// The bytes per item are what selecting adds: the list and the row table. `uniform` grids have
// no cell records yet, so there the figure includes the cell records selecting creates.
void SelectAll(benchmark::State& state, bool values) {
  double bytesPerItem = 0;
  for (auto _ : state) {
    state.PauseTiming();
    auto grid = FilledGrid(kRows, values);
    long before = quilta::bench::ResidentBytes();
    state.ResumeTiming();
    grid->SelectAll();
    state.PauseTiming();
    int32_t count = grid->SelItems().Count();
    bytesPerItem = double(quilta::bench::ResidentBytes() - before) / count;
    if (count != kRows * kCols) state.SkipWithError("not everything was selected");
    grid.reset();
    state.ResumeTiming();
  }
  state.counters["bytes_per_item"] = bytesPerItem;
}
void BM_SelectAll(benchmark::State& state) { SelectAll(state, true); }
void BM_SelectAllUniformCells(benchmark::State& state) { SelectAll(state, false); }
BENCHMARK(BM_SelectAll)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(BM_SelectAllUniformCells)->Unit(benchmark::kMillisecond)->Iterations(2);

// A grid with every one of its cells selected, shared by the single-item benchmarks: 10M cells,
// and 100k cells to compare with.
Quilta& AllSelected(int32_t rows = kRows) {
  auto make = [](int32_t n) {
    auto g = FilledGrid(n);
    g->SelectAll();
    return g;
  };
  static std::unique_ptr<Quilta> large = make(kRows);
  static std::unique_ptr<Quilta> small = make(10'000);
  return rows == kRows ? *large : *small;
}

void BM_CountWith10MSelected(benchmark::State& state) {
  Quilta& g = AllSelected();
  for (auto _ : state) benchmark::DoNotOptimize(g.SelItems().Count());
}
BENCHMARK(BM_CountWith10MSelected);

void BM_CellSelected(benchmark::State& state) {
  const int32_t rows = static_cast<int32_t>(state.range(0));
  Quilta& g = AllSelected(rows);
  std::mt19937 rng(7);
  std::uniform_int_distribution<int32_t> row(1, rows), col(1, kCols);
  for (auto _ : state) benchmark::DoNotOptimize(g.CellSelected(row(rng), col(rng)));
  state.counters["selected"] = double(g.SelItems().Count());
}
BENCHMARK(BM_CellSelected)->Arg(10'000)->Arg(kRows);

// Taking one random cell out of the 10M and putting it back: a remove and an add in the list.
void BM_DeselectReselect(benchmark::State& state) {
  const int32_t rows = static_cast<int32_t>(state.range(0));
  Quilta& g = AllSelected(rows);
  std::mt19937 rng(11);
  std::uniform_int_distribution<int32_t> row(1, rows), col(1, kCols);
  for (auto _ : state) {
    int32_t r = row(rng), c = col(rng);
    g.SetCellSelected(r, c, false);
    g.SetCellSelected(r, c, true);
  }
  if (g.SelItems().Count() != rows * kCols) state.SkipWithError("selection changed");
  state.counters["selected"] = double(g.SelItems().Count());
}
BENCHMARK(BM_DeselectReselect)->Arg(10'000)->Arg(kRows);

// Ctrl+Down moves the focus and Ctrl+Space toggles the cell there, with 10M cells selected.
void BM_CtrlMoveAndToggleWith10MSelected(benchmark::State& state) {
  Quilta& g = AllSelected();
  g.DoKeyboardCommand(36, 2);  // Ctrl+Home: the focus moves, the selection stays
  for (auto _ : state) {
    if (g.CurRow() == kRows) g.DoKeyboardCommand(36, 2);  // Ctrl+Home
    g.DoKeyboardCommand(40, 2);                           // Ctrl+Down
    g.DoKeyboardCommand(32, 2);                           // Ctrl+Space
    g.DoKeyboardCommand(32, 2);
  }
}
BENCHMARK(BM_CtrlMoveAndToggleWith10MSelected);

// The single selection moving down a 1M-row grid one row at a time.
void BM_MoveSingleSelection(benchmark::State& state) {
  auto g = FilledGrid(kRows);
  g->SetMultiSelect(false);
  g->SetCurCell(1, 1);
  for (auto _ : state) {
    if (g->CurRow() == kRows) g->SetCurRow(1);
    g->DoKeyboardCommand(40, 0);
  }
}
BENCHMARK(BM_MoveSingleSelection);

// The same in multiselection mode, far down the grid: each move selects only the new cell.
void BM_MoveSelectOnlyFarDown(benchmark::State& state) {
  auto g = FilledGrid(kRows);
  g->SetCurCell(kRows / 2, 1);
  for (auto _ : state) {
    if (g->CurRow() == kRows) g->SetCurRow(kRows / 2);
    g->DoKeyboardCommand(40, 0);
  }
}
BENCHMARK(BM_MoveSelectOnlyFarDown);

// 100k items (10k rows x 10 columns) listed by row and column as text.
void BM_GetStringSorted100k(benchmark::State& state) {
  auto g = FilledGrid(10'000);
  g->SelectAll();
  size_t length = 0;
  for (auto _ : state) length = g->SelItems().GetString().size();
  state.counters["chars"] = double(length);
}
BENCHMARK(BM_GetStringSorted100k)->Unit(benchmark::kMillisecond);

// The same items selected in scattered order, so the list's own order is not row order.
void BM_GetStringSorted100kScattered(benchmark::State& state) {
  auto g = FilledGrid(100'000);
  std::mt19937 rng(3);
  std::uniform_int_distribution<int32_t> row(1, 100'000), col(1, kCols);
  while (g->SelItems().Count() < 100'000) g->SetCellSelected(row(rng), col(rng), true);
  for (auto _ : state) benchmark::DoNotOptimize(g->SelItems().GetString());
}
BENCHMARK(BM_GetStringSorted100kScattered)->Unit(benchmark::kMillisecond);

}  // namespace
