// Fuzzes the grid members that take host text: column and row keys (added, looked up, renamed),
// references given as key strings, the automatic header template, format strings on cells and
// property values read back from a property bag. Input: NUL-separated pieces of text used in turn.
// Every call either succeeds or raises the object model's error, and the grid stays consistent.
#include <cstdint>
#include <quilta/quilta.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "consistency_checker.hpp"

namespace {

using quilta::Variant;

std::vector<std::string_view> Pieces(std::string_view text) {
  std::vector<std::string_view> pieces;
  size_t start = 0;
  while (start <= text.size() && pieces.size() < 64) {
    size_t nul = text.find('\0', start);
    if (nul == std::string_view::npos) nul = text.size();
    pieces.push_back(text.substr(start, nul - start));
    start = nul + 1;
  }
  return pieces;
}

template <class F>
void Try(F&& f) {
  try {
    f();
  } catch (const quilta::Error&) {
  }
}

void Exercise(quilta::Quilta& grid, std::string_view piece, size_t i) {
  switch (i % 8) {
    case 0:
      Try([&] { grid.AddCol({.sKey = std::string(piece), .sHeader = std::string(piece)}); });
      break;
    case 1:
      Try([&] { grid.AddRow({.sKey = std::string(piece)}); });
      break;
    case 2:
      Try([&] { grid.SetCellValue(piece, piece, piece); });
      Try([&] { (void)grid.CellText(grid.RowIndex(piece), grid.ColIndex(piece)); });
      break;
    case 3:
      Try([&] { grid.SetRowKey(1, piece); });
      break;
    case 4:
      Try([&] { grid.SetColKey(1, piece); });
      break;
    case 5:
      Try([&] {
        grid.SetAutoColHeaderTextTemplate(piece);
        grid.SetColCount(grid.ColCount() + 1);
      });
      break;
    case 6:
      Try([&] {
        grid.SetCellFmtString(1, 1, piece);
        (void)grid.CellText(1, 1);
      });
      break;
    default: {
      quilta::MemoryPropertyBag bag;
      grid.WriteProperties(bag);
      bag.Set("AutoColHeaderTextTemplate", Variant(piece));
      bag.Set("TreeCol", Variant(piece));
      bag.Set("BackColor", Variant(piece));
      Try([&] { grid.ReadProperties(bag); });
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  quilta::Quilta grid;
  grid.AddCol({.sKey = "a"});
  grid.AddRow({.sKey = "1", .lCount = 2});
  grid.SetCellValue(1, 1, 12.5);
  std::vector<std::string_view> pieces = Pieces(text);
  for (size_t i = 0; i < pieces.size(); ++i) Exercise(grid, pieces[i], i);
  if (!quilta::testkit::ConsistencyChecker::ForGrid().Run(grid).empty()) __builtin_trap();
  return 0;
}
