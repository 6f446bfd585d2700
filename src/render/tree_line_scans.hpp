// Whether a tree line runs on below a row: a later row of the line's level follows before any row
// of a lower level. Answering needs a scan down the rows, possibly past a large subtree, so each
// answer is remembered, per level, as "the first row after `from` at or above this level is
// `found`", which answers every row between the two without scanning again. The answers hold
// across paints until the rows change (the caller passes a version that changes with them), so
// a large subtree costs one scan per change of the rows, not one per frame; scrolling up or down
// scans only the rows scrolled over.
#pragma once

#include <array>
#include <cstdint>

#include "model/row_store.hpp"

namespace quilta::render {

class TreeLineScans {
 public:
  // Forgets every answer when the version of the rows differs from the last one seen.
  void Sync(uint64_t rowsVersion);
  bool ContinuesBelow(const model::RowStore& rows, int32_t row, uint8_t level);

 private:
  struct Scan {
    int32_t from = 0;
    int32_t found = -1;  // -1: nothing known; 0: no such row down to the last
  };
  std::array<Scan, 256> scans_{};
  uint64_t version_ = ~uint64_t{0};
};

}  // namespace quilta::render
