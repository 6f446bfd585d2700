// Grouping speed: 1M rows grouped by one column into about 1,000 groups and by two columns into
// 100 x 10 groups, each with a sum aggregate; and one cell change in a grouped 1M-row grid, which
// keeps the aggregates of its groups (and their shown texts) right.
#include <benchmark/benchmark.h>

#include <quilta/quilta.hpp>
#include <random>

using namespace quilta;

namespace {

constexpr int32_t kRows = 1'000'000;

// Column "k1": 0..999, "k2": 0..99, "k3": 0..9, "amount": a Double, "units": a Long; rows in
// random order of their keys.
void Fill(Quilta& grid) {
  grid.AddCol({.sKey = "k1", .sHeader = "Key"});
  grid.AddCol({.sKey = "k2", .sHeader = "Key 2"});
  grid.AddCol({.sKey = "k3", .sHeader = "Key 3"});
  grid.AddCol({.sKey = "amount", .sHeader = "Amount"});
  grid.AddCol({.sKey = "units", .sHeader = "Units"});
  grid.AddRow({.lCount = kRows});
  std::mt19937 random(42);
  for (int32_t r = 1; r <= kRows; ++r) {
    grid.SetCellValue(r, 1, static_cast<int32_t>(random() % 1000));
    grid.SetCellValue(r, 2, static_cast<int32_t>(random() % 100));
    grid.SetCellValue(r, 3, static_cast<int32_t>(random() % 10));
    grid.SetCellValue(r, 4, static_cast<double>(random() % 100000) / 100);
    grid.SetCellValue(r, 5, static_cast<int32_t>(random() % 50));
  }
}

// Each run groups a freshly filled grid, so the rows come in unsorted.
void GroupBy(benchmark::State& state, std::initializer_list<const char*> cols) {
  for (auto _ : state) {
    state.PauseTiming();
    auto grid = std::make_unique<Quilta>();
    Fill(*grid);
    grid->AggrFuncs().AddItem("amount", quAggrSum);
    for (const char* col : cols) grid->GroupObject().AddItem(col);
    state.ResumeTiming();
    grid->Group();
    benchmark::DoNotOptimize(grid->RowCount());
    state.PauseTiming();
    state.counters["groups"] = grid->RowCount() - kRows;
    grid.reset();
    state.ResumeTiming();
  }
}

void BM_GroupOneColumn1M(benchmark::State& state) { GroupBy(state, {"k1"}); }
BENCHMARK(BM_GroupOneColumn1M)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_GroupTwoColumns1M(benchmark::State& state) { GroupBy(state, {"k2", "k3"}); }
BENCHMARK(BM_GroupTwoColumns1M)->Unit(benchmark::kMillisecond)->Iterations(3);

// Regrouping an already grouped grid (a header click on the grouped column reverses it).
void BM_RegroupReversed1M(benchmark::State& state) {
  Quilta grid;
  Fill(grid);
  grid.AggrFuncs().AddItem("amount", quAggrSum);
  grid.Group("k1");
  for (auto _ : state) grid.DoDefaultSort("k1");
}
BENCHMARK(BM_RegroupReversed1M)->Unit(benchmark::kMillisecond)->Iterations(3);

// One cell value changed in a grouped grid; its group's sum (and the shown text) follows. The
// argument is the number of aggregates on the changed column (sum, then average, then maximum).
void BM_SetCellValueGrouped1M(benchmark::State& state) {
  Quilta grid;
  Fill(grid);
  const EAggrFuncs funcs[] = {quAggrSum, quAggrAvg, quAggrMax};
  for (int64_t i = 0; i < state.range(0); ++i) grid.AggrFuncs().AddItem("amount", funcs[i]);
  grid.Group("k1");
  std::mt19937 random(7);
  std::vector<int32_t> dataRows;
  for (int32_t r = 1; r <= grid.RowCount() && dataRows.size() < 4096; r += 97)
    if (!grid.RowIsGroupRow(r)) dataRows.push_back(r);
  size_t i = 0;
  for (auto _ : state) {
    int32_t row = dataRows[i++ % dataRows.size()];
    grid.SetCellValue(row, 4, static_cast<double>(random() % 100000) / 100);
  }
}
BENCHMARK(BM_SetCellValueGrouped1M)->Arg(1)->Arg(3)->Unit(benchmark::kMicrosecond);

// The same, reading the group's sum back through the object model after each change.
void BM_SetCellValueAndReadSum1M(benchmark::State& state) {
  Quilta grid;
  Fill(grid);
  grid.AggrFuncs().AddItem("amount", quAggrSum);
  grid.Group("k1");
  std::vector<std::pair<int32_t, int32_t>> cells;  // data row, its group row
  for (int32_t r = 1, group = 0; r <= grid.RowCount() && cells.size() < 4096; ++r) {
    if (grid.RowIsGroupRow(r)) {
      group = r;
    } else if (r % 97 == 0) {
      cells.emplace_back(r, group);
    }
  }
  std::mt19937 random(7);
  size_t i = 0;
  for (auto _ : state) {
    auto [row, group] = cells[i++ % cells.size()];
    grid.SetCellValue(row, 4, static_cast<double>(random() % 100000) / 100);
    benchmark::DoNotOptimize(grid.GroupRowAggrValue(group, 1));
  }
}
BENCHMARK(BM_SetCellValueAndReadSum1M)->Unit(benchmark::kMicrosecond);

}  // namespace
