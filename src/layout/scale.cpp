#include "layout/scale.hpp"

#include <cmath>
#include <limits>

namespace quilta::layout {

int32_t Scale(int32_t length, int32_t dpi) {
  int64_t product = static_cast<int64_t>(length) * dpi;
  // nearbyint follows the default rounding mode, which rounds half to even.
  double scaled = std::nearbyint(static_cast<double>(product) / kDesignDpi);
  if (scaled > std::numeric_limits<int32_t>::max()) return std::numeric_limits<int32_t>::max();
  if (scaled < std::numeric_limits<int32_t>::min()) return std::numeric_limits<int32_t>::min();
  return static_cast<int32_t>(scaled);
}

}  // namespace quilta::layout
