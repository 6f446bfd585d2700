// Producing cell text and setting a property over a whole column.
#include <benchmark/benchmark.h>

#include <quilta/quilta.hpp>

using quilta::Quilta;
using quilta::Variant;

namespace {

void CellTextOf(benchmark::State& state, const Variant& value, const char* format) {
  Quilta grid;
  grid.AddCol();
  grid.AddRow();
  grid.SetCellValue(1, 1, value);
  grid.SetCellFmtString(1, 1, format);
  for (auto _ : state) benchmark::DoNotOptimize(grid.CellText(1, 1));
}

void BM_CellTextNumberFormat(benchmark::State& state) {
  CellTextOf(state, 1234567.891, "#,##0.00");
}
void BM_CellTextDateFormat(benchmark::State& state) {
  CellTextOf(state, Variant::Date(45000.75), "yyyy-mm-dd hh:nn");
}
void BM_CellTextPlainDouble(benchmark::State& state) { CellTextOf(state, 3.14159265, ""); }
BENCHMARK(BM_CellTextNumberFormat);
BENCHMARK(BM_CellTextDateFormat);
BENCHMARK(BM_CellTextPlainDouble);

// One pass over a million rows; the value is converted and checked once.
void BM_SetColCellsProp(benchmark::State& state) {
  Quilta grid;
  grid.AddCol({.lCount = 3});
  grid.AddRow({.lCount = 1'000'000});
  int32_t colour = 0;
  for (auto _ : state) grid.SetColCellsProp(2, quilta::quPropCellBackColor, ++colour);
  state.SetItemsProcessed(state.iterations() * 1'000'000);
}
BENCHMARK(BM_SetColCellsProp)->Unit(benchmark::kMillisecond);

}  // namespace
