// Derived pixel geometry: the column position pass, the row position pass and the layout-change
// mark. Positions are recomputed from the first changed item downwards; nothing here is stored
// that cannot be derived again from widths, heights and flags.
#pragma once

#include <cstdint>

#include "model/column_store.hpp"
#include "model/row_store.hpp"

namespace quilta::layout {

struct ColumnTotals {
  int32_t frozenWidth = 0;
  int32_t frozenCount = 0;  // header-item columns among the frozen slots
  int32_t lastFrozenSlot = 0;
  int32_t scrollableWidth = 0;
  int32_t scrollableCount = 0;  // shown columns after the frozen slots
  int32_t firstScrollableSlot = 0;
  int32_t firstShownSlot = 0;
  int32_t lastShownSlot = 0;
};

class Geometry {
 public:
  // Layout-change mark: 0 none, 1 rows or everything, 4 column widths only.
  int32_t LayoutMark() const { return layoutMark_; }
  void RecordChange(int32_t kind) { layoutMark_ = layoutMark_ == 0 ? kind : 1; }
  int32_t TakeLayoutMark() {
    int32_t mark = layoutMark_;
    layoutMark_ = 0;
    return mark;
  }

  static bool ColumnShown(const model::Column& c) { return c.visible && c.width >= 1; }
  void RunColumnPass(model::ColumnStore& cols, int32_t frozenCols);
  const ColumnTotals& Columns() const { return columns_; }

  // Row pass over rows from..to (to = 0: the last row).
  static void RunRowPass(model::RowStore& rows, int32_t from, int32_t to = 0);
  int64_t RowPasses() const { return rowPasses_; }
  void CountRowPass() { ++rowPasses_; }

 private:
  int32_t layoutMark_ = 0;
  ColumnTotals columns_;
  int64_t rowPasses_ = 0;
};

}  // namespace quilta::layout
