// Row hierarchy speed: expanding and collapsing a node with 100,000 descendants, and moving a
// subtree of 10,000 rows.
#include <benchmark/benchmark.h>

#include <quilta/quilta.hpp>

using namespace quilta;

namespace {

// One node with `children` children of `grandchildren` rows each.
void AddNode(Quilta& grid, int32_t children, int32_t grandchildren) {
  grid.AddRow();
  for (int32_t c = 0; c < children; ++c) {
    grid.AddRow({.btLevel = 1});
    grid.AddRow({.btLevel = 2, .lCount = grandchildren});
  }
}

// Row 1 holds 1,000 children with 99 grandchildren each: 100,000 descendants.
Quilta& BigNode() {
  static Quilta grid;
  if (grid.RowCount() == 0) {
    grid.AddCol({.lCount = 10});
    AddNode(grid, 1000, 99);
    AddNode(grid, 10, 9);
  }
  return grid;
}

void BM_CollapseThenExpandNode(benchmark::State& state) {
  Quilta& grid = BigNode();
  for (auto _ : state) {
    grid.SetRowExpanded(1, false);
    grid.SetRowExpanded(1, true);
  }
  state.SetItemsProcessed(state.iterations() * 2 * 100000);
}

void BM_CollapseThenExpandAllChildRows(benchmark::State& state) {
  Quilta& grid = BigNode();
  for (auto _ : state) {
    grid.CollapseAllChildRows(1);
    grid.ExpandAllChildRows(1);
  }
  state.SetItemsProcessed(state.iterations() * 2 * 100000);
}

// Ten top-level nodes of 10,000 rows each; the first moves behind the last, over and over.
void BM_MoveSubtreeOf10kRows(benchmark::State& state) {
  Quilta grid;
  grid.AddCol({.lCount = 10});
  for (int node = 0; node < 10; ++node) AddNode(grid, 99, 100);
  for (auto _ : state) grid.MoveRow(1, grid.RowCount() - 9999, 1, quMoveRowAfter);
  state.SetItemsProcessed(state.iterations() * 10000);
}

}  // namespace

BENCHMARK(BM_CollapseThenExpandNode)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CollapseThenExpandAllChildRows)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MoveSubtreeOf10kRows)->Unit(benchmark::kMillisecond);
