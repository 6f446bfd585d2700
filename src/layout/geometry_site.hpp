// What a size change needs from the rest of the control. Geometry decides what changes and in
// which order; the control carries the consequences to editing, the header strip, scrolling and
// drawing, and decides whether a position pass runs now or waits for EndUpdate.
#pragma once

#include <cstdint>

namespace quilta::layout {

class GeometrySite {
 public:
  virtual ~GeometrySite() = default;

  // Raises QuitCustomEdit and ends an in-cell edit: sizes never change under an open editor.
  virtual void EndEditing() = 0;
  // Row positions from this row down are stale (the pass waits while updates are suspended).
  virtual void RecalcRowsFrom(int32_t row) = 0;
  virtual void RecalcColumns() = 0;
  virtual void RequestRedraw() = 0;

  // The header strip keeps one item per header-item column, numbered from 0 in display order.
  virtual void HeaderItemResized(int32_t /*item*/, int32_t /*width*/) {}
  virtual void HeaderItemInserted(int32_t /*item*/, int32_t /*slot*/) {}
  virtual void HeaderItemRemoved(int32_t /*item*/) {}
  virtual void HeaderItemMoved(int32_t /*from*/, int32_t /*to*/) {}

  // Row heights or visibility changed: scroll data cached from row positions is dropped.
  virtual void RowPositionsInvalidated() {}
  // The totals behind the scroll ranges changed: the scroll bars are set up again.
  virtual void ScrollRangesChanged() {}
};

}  // namespace quilta::layout
