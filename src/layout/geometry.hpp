// Derived pixel geometry: the column position pass, the row position pass, the layout-change
// mark and the few grid-wide values that feed the layout. Positions are recomputed from the
// first changed item downwards; nothing here is stored that cannot be derived again from
// widths, heights and flags.
#pragma once

#include <cstdint>

#include "layout/remeasure.hpp"
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
  // Layout-change mark: 0 none, 1 rows or everything, 4 column widths only. A second change of
  // any kind before the layout pass asks for everything.
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

  // While forced, position passes run at once even when updates are suspended: set by
  // operations that must read exact positions in the middle of a BeginUpdate block.
  bool LayoutForced() const { return forced_ > 0; }
  void BeginForcedLayout() { ++forced_; }
  void EndForcedLayout() { --forced_; }

  // The column index at whose slot the row text starts.
  int32_t RowTextStartCol() const { return rowTextStartCol_; }
  void SetRowTextStartCol(int32_t index) { rowTextStartCol_ = index; }

  // LevelIndent in device pixels, kept for the indent and resolution it was scaled for, so a
  // change of either is picked up the next time it is asked for.
  int32_t ScaledLevelIndent(int32_t levelIndent, int32_t dpi);

  RemeasureMarks& Remeasure() { return remeasure_; }
  const RemeasureMarks& Remeasure() const { return remeasure_; }

 private:
  int32_t layoutMark_ = 0;
  ColumnTotals columns_;
  int64_t rowPasses_ = 0;
  int32_t forced_ = 0;
  int32_t rowTextStartCol_ = 1;
  int32_t levelIndent_ = -1;  // the unscaled value behind levelIndentPixels_; -1 = not yet
  int32_t levelIndentDpi_ = 0;
  int32_t levelIndentPixels_ = 0;
  RemeasureMarks remeasure_;
};

// Keeps positions exact for its lifetime, also inside BeginUpdate.
class ForcedLayout {
 public:
  explicit ForcedLayout(Geometry& g) : g_(g) { g_.BeginForcedLayout(); }
  ~ForcedLayout() { g_.EndForcedLayout(); }
  ForcedLayout(const ForcedLayout&) = delete;
  ForcedLayout& operator=(const ForcedLayout&) = delete;

 private:
  Geometry& g_;
};

}  // namespace quilta::layout
