// Feeds arbitrary texts to the readers of LayoutCol and LayoutSort on a small grid, then checks
// that the columns still form one display order, that the row text column stays last, and that
// what the grid writes reads back to itself.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <quilta/quilta.hpp>
#include <string>
#include <vector>

namespace {

void Check(bool ok) {
  if (!ok) std::abort();
}

void CheckColumns(quilta::Quilta& grid) {
  int32_t n = grid.ColCount();
  std::vector<bool> taken(static_cast<size_t>(n) + 1, false);
  for (int32_t c = 1; c <= n; ++c) {
    int32_t pos = grid.ColPos(c);
    Check(pos >= 1 && pos <= n && !taken[static_cast<size_t>(pos)]);
    taken[static_cast<size_t>(pos)] = true;
    Check(grid.ColFromPos(pos) == c);
    Check(grid.ColWidth(c) >= 0);
  }
  Check(grid.ColFromPos(n + 1) == grid.RowTextCol());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 1) return 0;
  static auto* platform = new quilta::HeadlessPlatform;
  platform->SetDpi(72 + (data[0] & 0x3f) * 3);
  quilta::Quilta grid(*platform);
  grid.AddCol({.sKey = "a", .lWidth = 120});
  grid.AddCol({.sKey = "b", .lMinWidth = 10, .lMaxWidth = 90});
  grid.AddCol({.sKey = "c", .eSortType = quilta::quSortNone});
  grid.AddCol({.sKey = "d", .bVisible = false});
  for (int i = 0; i < 6; ++i) {
    int32_t r = grid.AddRow();
    grid.SetCellValue(r, 1, (i * 7) % 5);
    grid.SetCellValue(r, 2, std::string(1, static_cast<char>('a' + (i * 3) % 4)));
  }
  std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
  if (data[0] & 0x80) {
    grid.SetLayoutSort(text);
    std::string written = grid.LayoutSort();
    grid.SetLayoutSort(written);
    Check(grid.LayoutSort() == written);
  } else {
    grid.SetLayoutCol(text);
    CheckColumns(grid);
    std::string written = grid.LayoutCol();
    grid.SetLayoutCol(written);
    Check(grid.LayoutCol() == written);
  }
  CheckColumns(grid);
  return 0;
}
