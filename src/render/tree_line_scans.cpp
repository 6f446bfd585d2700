#include "render/tree_line_scans.hpp"

namespace quilta::render {

void TreeLineScans::Sync(uint64_t rowsVersion) {
  if (rowsVersion == version_) return;
  scans_.fill({});
  version_ = rowsVersion;
}

bool TreeLineScans::ContinuesBelow(const model::RowStore& rows, int32_t row, uint8_t level) {
  Scan& scan = scans_[level];
  auto answer = [&] { return scan.found != 0 && rows.At(scan.found).level == level; };
  const bool known = scan.found >= 0;
  if (known && row >= scan.from && (scan.found == 0 || row < scan.found)) return answer();
  if (known && row < scan.from) {
    // Above the remembered range: only the rows up to its start can hold an earlier answer.
    for (int32_t r = row + 1; r <= scan.from; ++r) {
      if (rows.At(r).level <= level) {
        scan = {row, r};
        return answer();
      }
    }
    scan.from = row;
    return answer();
  }
  scan = {row, 0};
  for (int32_t r = row + 1; r <= rows.Count(); ++r) {
    if (rows.At(r).level <= level) {
      scan.found = r;
      break;
    }
  }
  return answer();
}

}  // namespace quilta::render
