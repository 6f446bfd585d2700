// Sorting speed: a grid of 10 columns sorted by one string column (general rule, ignoring case)
// and by a string and a number column. Each run sorts the same shuffled rows.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <map>
#include <memory>
#include <quilta/quilta.hpp>
#include <random>
#include <string>

#include "control/control.hpp"
#include "control/internals_access.hpp"

using namespace quilta;

namespace {

constexpr int32_t kCols = 10;

std::string RandomWord(std::mt19937& random) {
  static const char kLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  std::string word(5 + random() % 8, ' ');
  for (char& ch : word) ch = kLetters[random() % 52];
  return word;
}

// Column 1: words (mostly distinct, some repeated in other cases); column 2: integers 0..9999
// (many ties); column 3: integers 0..999999; column 4: integers over the whole 32-bit range (few
// ties); the other columns keep their defaults.
struct SortGrid {
  Quilta grid;
  std::vector<model::RowRecord> shuffled;

  explicit SortGrid(int32_t rows) {
    grid.AddCol({.lCount = kCols});
    grid.AddRow({.lCount = rows});
    std::mt19937 random(42);
    auto& store = control::Internals(grid).store;
    std::vector<std::string> recent;
    for (int32_t r = 1; r <= rows; ++r) {
      std::string word = recent.size() > 100 && random() % 10 == 0
                             ? recent[random() % recent.size()]
                             : RandomWord(random);
      if (random() % 2 == 0 && !word.empty()) word[0] = static_cast<char>(word[0] ^ 0x20);
      if (recent.size() < 1000) recent.push_back(word);
      store.MutableCell(r, 1).value = Variant(word);
      store.Cells().Column(1).NoteRefs(store.MutableCell(r, 1));
      store.MutableCell(r, 2).value = Variant(static_cast<int32_t>(random() % 10000));
      store.MutableCell(r, 3).value = Variant(static_cast<int32_t>(random() % 1000000));
      store.MutableCell(r, 4).value = Variant(static_cast<int32_t>(random()));
    }
    shuffled = store.Rows().Records();
    // Rows in an order unrelated to their physical rows, as after an earlier sort.
    scattered = shuffled;
    std::shuffle(scattered.begin(), scattered.end(), random);
  }

  void Scatter() {
    control::Internals(grid).store.Rows().Records() = scattered;
    control::Internals(grid).store.Rows().NotePositionsChanged(1);
  }
  std::vector<model::RowRecord> scattered;

  void Reshuffle() {
    control::Internals(grid).store.Rows().Records() = shuffled;
    control::Internals(grid).store.Rows().NotePositionsChanged(1);
  }
};

SortGrid& GridOf(int32_t rows) {
  static std::map<int32_t, std::unique_ptr<SortGrid>> grids;
  auto& grid = grids[rows];
  if (!grid) grid = std::make_unique<SortGrid>(rows);
  return *grid;
}

void SortBy(benchmark::State& state, const std::vector<int32_t>& cols, ESortTypes type) {
  SortGrid& g = GridOf(static_cast<int32_t>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    g.Reshuffle();
    g.grid.SortObject().Clear();
    for (int32_t col : cols) g.grid.SortObject().AddItem(col, quSortAsc, type);
    state.ResumeTiming();
    g.grid.Sort();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

void BM_SortOneStringColumn(benchmark::State& state) { SortBy(state, {1}, quSortByValueGeneral); }
// The values as text ignoring case: read in place from the cells, as the general rule does.
void BM_SortValueTextNoCase(benchmark::State& state) { SortBy(state, {1}, quSortByValueNoCase); }

void SortScatteredBy(benchmark::State& state, int32_t col) {
  SortGrid& g = GridOf(static_cast<int32_t>(state.range(0)));
  for (auto _ : state) {
    state.PauseTiming();
    g.Scatter();
    g.grid.SortObject().Clear();
    g.grid.SortObject().AddItem(col, quSortAsc, quSortByValueGeneral);
    state.ResumeTiming();
    g.grid.Sort();
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Integers 0..999999 (about a third of them repeated) in rows scattered over the cell store:
// ranked by their distance from the lowest.
void BM_SortIntegerColumnScattered(benchmark::State& state) { SortScatteredBy(state, 3); }
// Integers spread over the whole 32-bit range: ranked by a radix sort.
void BM_SortWideIntegerColumnScattered(benchmark::State& state) { SortScatteredBy(state, 4); }
BENCHMARK(BM_SortIntegerColumnScattered)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortWideIntegerColumnScattered)
    ->Arg(100000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);
void BM_SortStringThenNumber(benchmark::State& state) {
  SortBy(state, {1, 2}, quSortByValueGeneral);
}
void BM_SortNumberThenString(benchmark::State& state) {
  SortBy(state, {2, 1}, quSortByValueGeneral);
}

// The same string sort decided by the host, one CustomSort per comparison.
struct GeneralRuleHandler : QuiltaEvents {
  void CustomSort(int32_t, int32_t, int32_t, const Variant& v1, const Variant& v2,
                  int32_t& lCompareResult) override {
    lCompareResult = Compare(v1, v2, vbTextCompare);
  }
};

void BM_SortOneStringColumnThroughEvents(benchmark::State& state) {
  GeneralRuleHandler handler;
  GridOf(static_cast<int32_t>(state.range(0))).grid.SetEventSink(&handler);
  SortBy(state, {1}, quSortCustom);
  GridOf(static_cast<int32_t>(state.range(0))).grid.SetEventSink(nullptr);
}

}  // namespace

BENCHMARK(BM_SortOneStringColumn)
    ->Arg(100000)
    ->Arg(300000)
    ->Arg(1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortValueTextNoCase)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortStringThenNumber)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortNumberThenString)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortOneStringColumnThroughEvents)->Arg(100000)->Unit(benchmark::kMillisecond);
