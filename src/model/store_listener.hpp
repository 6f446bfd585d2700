// What the stores tell the rest of the control when rows and columns come and go. The control
// implements it and passes each notice to the subsystem that owns the state (geometry, current
// cell, selection, header, drawing).
#pragma once

#include <cstdint>

namespace quilta::model {

enum LayoutChange : int32_t { kLayoutRows = 1, kLayoutColumnWidths = 4 };

class StoreListener {
 public:
  virtual ~StoreListener() = default;
  virtual void MarkLayoutDirty(LayoutChange kind) = 0;
  virtual void RecalcRowsFrom(int32_t row) = 0;
  virtual void RecalcColumns() = 0;
  virtual void RequestRedraw() = 0;
  // Indexes of columns >= index moved up by count (new columns took their place).
  virtual void ColumnsInserted(int32_t index, int32_t count) = 0;
  // Columns index..index+count-1 are gone; later indexes moved down by count.
  virtual void ColumnsRemoved(int32_t index, int32_t count) = 0;
  virtual void RowsInserted(int32_t row, int32_t count) = 0;
  virtual void RowsRemoved(int32_t row, int32_t count) = 0;
  // The last count rows, from row on, are about to go because RowCount shrank.
  virtual void RowsTruncated(int32_t row, int32_t count) = 0;
  virtual void RowsCleared(bool columnsToo) = 0;
  // Virtual mode: the host is asked for a row; returns false when it has no more rows.
  virtual bool RequestRow(int32_t row) = 0;
  virtual void RequestRowData(int32_t row) = 0;
};

}  // namespace quilta::model
