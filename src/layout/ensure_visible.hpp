// How far to scroll so that a row or a column comes into view. Rows and columns follow the same
// rules along their own axis, so one routine serves both: the ensure-visible modes of rows
// (auto, top, top force, bottom, bottom force) mirror those of columns (auto, left, left force,
// right, right force) value for value.
#pragma once

#include <cstdint>
#include <optional>

namespace quilta::layout {

// One axis of the view: the scroll position P, the grid coordinate shown at the near edge of
// the scrolled area (view top, or view left) and the extent of that area.
struct AxisView {
  int32_t pos = 0;
  int32_t nearEdge = 0;
  int32_t extent = 0;
};

// The row or column along the axis: its start (start Y or start X) and its size.
struct AxisSpan {
  int32_t start = 0;
  int32_t size = 0;
};

// The scroll position that brings the span into view by a mode (0..4 as above) with a gap kept
// from the edge it is brought to; nothing when the mode leaves the view as it is (or is not one
// of the five). The scroll bar clamps the answer into its range.
std::optional<int32_t> EnsureVisibleTarget(const AxisView& view, const AxisSpan& span, int32_t mode,
                                           int32_t gap);

}  // namespace quilta::layout
