// The clipboard: copying a large selection and pasting a large block, no event sink attached.
#include <benchmark/benchmark.h>

#include <quilta/quilta.hpp>
#include <string>

namespace {

constexpr int16_t kCtrl = 2, kC = 67, kV = 86;

void FillDoubles(quilta::Quilta& grid, int32_t rows) {
  grid.SetMultiSelect(true);
  grid.AddCol({.lCount = 10});
  grid.AddRow({.lCount = rows});
  for (int32_t r = 1; r <= rows; ++r)
    for (int32_t c = 1; c <= 10; ++c) grid.SetCellValue(r, c, r * 10.0 + c + 0.25);
}

// Ctrl+C over rows x 10 selected cells: the block is found, every text made and kept, and the
// clipboard text written, each in one pass.
void BM_CopySelected(benchmark::State& state) {
  const auto rows = static_cast<int32_t>(state.range(0));
  quilta::HeadlessPlatform platform;
  quilta::Quilta grid(platform);
  FillDoubles(grid, rows);
  grid.SelectAll();
  for (auto _ : state) {
    grid.DoKeyboardCommand(kC, kCtrl);
    benchmark::DoNotOptimize(platform.ClipboardSequenceNumber());
  }
  state.SetItemsProcessed(state.iterations() * rows * 10);
}
BENCHMARK(BM_CopySelected)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

// Ctrl+V of a rows x 10 block of numbers from another program into Double cells: parsing,
// conversion, storing and selecting the pasted block.
void BM_PasteBlock(benchmark::State& state) {
  const auto rows = static_cast<int32_t>(state.range(0));
  quilta::HeadlessPlatform platform;
  quilta::Quilta grid(platform);
  FillDoubles(grid, rows);
  std::string text;
  for (int32_t r = 1; r <= rows; ++r) {
    for (int32_t c = 1; c <= 10; ++c) {
      text += std::to_string(r * 100 + c) + ".5";
      text += c < 10 ? "\t" : "\r\n";
    }
  }
  platform.SetClipboardTextFromOtherProgram(text);
  for (auto _ : state) {
    grid.SetCurCell(1, 1);
    grid.DoKeyboardCommand(kV, kCtrl);
  }
  state.SetItemsProcessed(state.iterations() * rows * 10);
}
BENCHMARK(BM_PasteBlock)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
