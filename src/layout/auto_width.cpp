#include "layout/auto_width.hpp"

#include <algorithm>

namespace quilta::layout {

bool PassesVisibilityFilter(const model::RowRecord& row, ECellVisibilityFilter filter) {
  switch (filter) {
    case quCellVisCurrentlyVisible:
      return row.Shown();
    case quCellVisVisibleProperty:
      return row.Visible();
    default:
      return true;
  }
}

int32_t ContentWidthNeeded(const model::GridStore& store, const AutoWidthQuery& q,
                           AutoWidthSite& site) {
  const model::ColumnStore& cols = store.Cols();
  const int32_t colIndex = cols.AtSlot(q.slot).index;
  const int32_t count = store.RowCount();
  const int32_t last = q.maxRows > 0 && q.maxRows < count ? q.maxRows : count;
  int32_t widest = 0;
  for (int32_t row = 1; row <= last; ++row) {
    const model::RowRecord& r = store.Rows().At(row);
    if (r.GroupRow() || !PassesVisibilityFilter(r, q.filter)) continue;
    if (store.CellAt(row, colIndex).Type() == quCellCustomDraw) continue;
    widest = std::max(widest, site.CellWidthNeeded(row, colIndex));
  }
  if (q.withHeader) widest = std::max(widest, site.HeaderItemWidthNeeded(q.slot));
  return widest;
}

int32_t ApplyAutoWidthLimits(int32_t width, const model::Column& col, int32_t minWidth,
                             int32_t maxWidth) {
  if (col.minWidth >= 0) width = std::max(width, static_cast<int32_t>(col.minWidth));
  if (minWidth >= 0) width = std::max(width, minWidth);
  if (col.maxWidth >= 0) width = std::min(width, static_cast<int32_t>(col.maxWidth));
  if (maxWidth >= 0) width = std::min(width, maxWidth);
  return width;
}

}  // namespace quilta::layout
