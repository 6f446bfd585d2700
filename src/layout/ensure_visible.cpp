#include "layout/ensure_visible.hpp"

namespace quilta::layout {
namespace {

enum Mode : int32_t { kAuto = 0, kNear = 1, kNearForce = 2, kFar = 3, kFarForce = 4 };

}  // namespace

std::optional<int32_t> EnsureVisibleTarget(const AxisView& view, const AxisSpan& span, int32_t mode,
                                           int32_t gap) {
  const int32_t start = span.start;
  const int32_t end = span.start + span.size;
  const int32_t viewEnd = view.nearEdge + view.extent;
  const bool fullyVisible = start >= view.nearEdge && end <= viewEnd;
  const bool fits = span.size <= view.extent;
  const int32_t nearWithGap = view.pos - view.nearEdge + start - gap;
  const int32_t farWithGap = view.pos - view.nearEdge - view.extent + end + gap;
  const int32_t nearNoGap = view.pos - view.nearEdge + start;
  // A span larger than the view shows its beginning rather than its end.
  const int32_t far = fits ? farWithGap : nearNoGap;
  switch (mode) {
    case kAuto:
      if (start < view.nearEdge) return nearWithGap;
      if (end <= viewEnd) return std::nullopt;
      return far;
    case kNear:
      if (fullyVisible) return std::nullopt;
      return nearWithGap;
    case kNearForce:
      return nearWithGap;
    case kFar:
      if (fullyVisible) return std::nullopt;
      return far;
    case kFarForce:
      return far;
    default:
      return std::nullopt;
  }
}

}  // namespace quilta::layout
