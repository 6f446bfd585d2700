// Cost of producing cell text: a precompiled format applied to a value, and plain conversion.
#include <benchmark/benchmark.h>

#include <iterator>
#include <quilta/variant.hpp>
#include <string>

#include "model/format/compiled_format.hpp"

namespace {

using quilta::Variant;
using quilta::fmt::CompiledFormat;

void AppendWith(benchmark::State& state, const char* pattern, const Variant& value) {
  const CompiledFormat format(pattern);
  std::string out;
  for (auto _ : state) {
    out.clear();
    format.AppendTo(value, out);
    benchmark::DoNotOptimize(out.data());
  }
}

void BM_AppendNumberFixed(benchmark::State& state) {
  AppendWith(state, "0.00", Variant(12345.678));
}
BENCHMARK(BM_AppendNumberFixed);

void BM_AppendNumberGrouped(benchmark::State& state) {
  AppendWith(state, "#,##0.00;(#,##0.00)", Variant(-1234567.891));
}
BENCHMARK(BM_AppendNumberGrouped);

void BM_AppendDateIso(benchmark::State& state) {
  AppendWith(state, "yyyy-mm-dd", Variant::Date(45123.0));
}
BENCHMARK(BM_AppendDateIso);

void BM_AppendDateTime(benchmark::State& state) {
  AppendWith(state, "dddd, mmmm d, yyyy hh:nn:ss AM/PM", Variant::Date(45123.6789));
}
BENCHMARK(BM_AppendDateTime);

void BM_CStrDouble(benchmark::State& state) {
  const Variant value(3.141592653589793);
  for (auto _ : state) benchmark::DoNotOptimize(quilta::CStr(value));
}
BENCHMARK(BM_CStrDouble);

// Plain text of the values whose rounding or form needs more than one conversion step: Singles,
// exact halves, small numbers, whole numbers beyond fifteen digits.
void BM_PlainTextMixed(benchmark::State& state) {
  const Variant values[] = {Variant(654322.25f),  Variant(0.1f),       Variant(200000000000000.5),
                            Variant(0.000056789), Variant(5.6789e-12), Variant(1e16),
                            Variant(12345.0f),    Variant(0.1 + 0.2)};
  const CompiledFormat plain;
  std::string out;
  for (auto _ : state) {
    for (const Variant& value : values) {
      out.clear();
      plain.AppendTo(value, out);
      benchmark::DoNotOptimize(out.data());
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(std::size(values)));
}
BENCHMARK(BM_PlainTextMixed);

void BM_CompileFormat(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(CompiledFormat("#,##0.00;(#,##0.00);\"-\""));
}
BENCHMARK(BM_CompileFormat);

}  // namespace
