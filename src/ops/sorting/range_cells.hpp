#pragma once

#include <cstdint>
#include <vector>

#include "model/cell_store.hpp"
#include "model/row_store.hpp"

namespace quilta::ops {

// The cells of a range's rows, column by column. When the range is a good part of the grid, the
// cells are visited in physical-row order: after an earlier sort the rows lie scattered over the
// cell store, and reading a column front to back keeps the reads sequential.
class RangeCells {
 public:
  RangeCells(const model::RowStore& rows, const model::CellStore& cells, int32_t first, uint32_t n)
      : rows_(rows), cells_(cells), first_(first), n_(n) {
    const int32_t high = rows_.PhysHighWater();
    if (static_cast<int64_t>(n) * 4 < high) return;
    offsetOfPhys_.assign(static_cast<size_t>(high) + 1, kNone);
    for (uint32_t off = 0; off < n; ++off) offsetOfPhys_[Phys(off)] = off;
  }

  // Calls fn(offset, cell) for each cell of the column; stops early when fn returns false.
  template <class Fn>
  bool ForEach(int32_t col, Fn&& fn) const {
    if (offsetOfPhys_.empty()) {
      for (uint32_t off = 0; off < n_; ++off)
        if (!fn(off, cells_.Get(col, Phys(off)))) return false;
      return true;
    }
    for (size_t phys = 1; phys < offsetOfPhys_.size(); ++phys) {
      uint32_t off = offsetOfPhys_[phys];
      if (off != kNone && !fn(off, cells_.Get(col, static_cast<int32_t>(phys)))) return false;
    }
    return true;
  }

 private:
  static constexpr uint32_t kNone = UINT32_MAX;
  int32_t Phys(uint32_t off) const { return rows_.At(first_ + static_cast<int32_t>(off)).phys; }

  const model::RowStore& rows_;
  const model::CellStore& cells_;
  int32_t first_;
  uint32_t n_;
  std::vector<uint32_t> offsetOfPhys_;
};

}  // namespace quilta::ops
