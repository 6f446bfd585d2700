// Which cells must have their text measured again. A cell carries the re-measure bit in its
// state byte; but a cell still equal to its column's template has no record of its own, and
// constructing records (48 bytes a row) only to flag one row would be absurd. So a row whose
// cells all need measuring is also flagged here, by physical row, and the question "does this
// cell need measuring" is answered from both places.
#pragma once

#include <cstdint>
#include <vector>

namespace quilta::model {
class GridStore;
}

namespace quilta::layout {

class RemeasureMarks {
 public:
  // Flags every cell of a row, the row text cell included.
  void MarkRow(model::GridStore& store, int32_t row);
  bool CellNeedsRemeasure(const model::GridStore& store, int32_t row, int32_t colIndex) const;
  // The row's cells were all measured: every flag of the row is cleared.
  void RowMeasured(model::GridStore& store, int32_t row);

 private:
  bool PhysMarked(int32_t phys) const {
    return phys <= static_cast<int32_t>(rows_.size()) && rows_[phys - 1];
  }
  // By physical row, which never changes while a row exists. A freed and reused physical row may
  // keep its flag: a fresh cell measured once more costs time, never correctness.
  std::vector<bool> rows_;
};

}  // namespace quilta::layout
