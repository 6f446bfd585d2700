// Display scaling. Fixed pixel sizes (indents, button sizes, gaps) are designed for 96 dots per
// inch and scaled to the screen's resolution before they are used.
#pragma once

#include <cstdint>

namespace quilta::layout {

inline constexpr int32_t kDesignDpi = 96;

// The integer nearest to length * dpi / 96, a tie going to the even neighbour. The product is
// formed exactly as an integer before the division, so no rounding error creeps in before the
// one rounding step; a result beyond the 32-bit range saturates.
int32_t Scale(int32_t length, int32_t dpi);

}  // namespace quilta::layout
