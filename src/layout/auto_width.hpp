// Sizing a column to its contents: the widest of the cells it examines (and its header item when
// asked), brought into the column's own limits and the caller's, in a fixed order.
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>

#include "model/grid_store.hpp"

namespace quilta::layout {

// The measuring that lives above the layout: a cell's contents laid out as drawing lays them
// out (raising the dynamic icon event first where drawing would), and a header item's needs.
class AutoWidthSite {
 public:
  virtual ~AutoWidthSite() = default;
  virtual int32_t CellWidthNeeded(int32_t row, int32_t colIndex) = 0;
  virtual int32_t HeaderItemWidthNeeded(int32_t slot) = 0;
};

struct AutoWidthQuery {
  int32_t slot = 0;
  ECellVisibilityFilter filter = quCellVisCurrentlyVisible;
  int32_t maxRows = 0;  // AutoWidthColMaxRows: > 0 examines only that many leading rows
  bool withHeader = false;
};

// Whether a row passes a visibility filter: every row, rows shown now, or rows whose own
// visibility property is set.
bool PassesVisibilityFilter(const model::RowRecord& row, ECellVisibilityFilter filter);

// The width the column's contents need: rows 1..N (N the row count, or maxRows when it is
// positive and smaller) that pass the filter, skipping group rows and custom-drawn cells.
int32_t ContentWidthNeeded(const model::GridStore& store, const AutoWidthQuery& q,
                           AutoWidthSite& site);

// The limits in their fixed order: the column's minimum, the given minimum, the column's
// maximum, the given maximum, each only when it is not negative; the given maximum has the
// last word.
int32_t ApplyAutoWidthLimits(int32_t width, const model::Column& col, int32_t minWidth,
                             int32_t maxWidth);

}  // namespace quilta::layout
