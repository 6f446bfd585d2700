#include <array>
#include <quilta/platform/platform.hpp>

namespace quilta {
namespace {

// The fixed system palette of the headless platform (0x00BBGGRR), indexed like the desktop's
// system colours; it matches the classic default scheme.
constexpr std::array<Color, 31> kPalette = {
    0xC8D0D4,  // 0 scroll bar
    0xA56E3A,  // 1 desktop
    0x6A240A,  // 2 active caption
    0x808080,  // 3 inactive caption
    0xC8D0D4,  // 4 menu
    0xFFFFFF,  // 5 window background
    0x000000,  // 6 window frame
    0x000000,  // 7 menu text
    0x000000,  // 8 window text
    0xFFFFFF,  // 9 caption text
    0xC8D0D4,  // 10 active border
    0xC8D0D4,  // 11 inactive border
    0x808080,  // 12 application workspace
    0x6A240A,  // 13 highlight
    0xFFFFFF,  // 14 highlight text
    0xC8D0D4,  // 15 button face
    0x808080,  // 16 button shadow
    0x808080,  // 17 grey text
    0x000000,  // 18 button text
    0xC8D0D4,  // 19 inactive caption text
    0xFFFFFF,  // 20 button highlight
    0x404040,  // 21 3-D dark shadow
    0xC8D0D4,  // 22 3-D light
    0x000000,  // 23 tooltip text
    0xE1FFFF,  // 24 tooltip background
    0xB5B5B5,  // 25 (unused)
    0x800000,  // 26 hot-tracked item
    0xF0CAA6,  // 27 gradient active caption
    0xC0C0C0,  // 28 gradient inactive caption
    0x6A240A,  // 29 menu highlight
    0xC8D0D4,  // 30 menu bar
};

}  // namespace

Color HeadlessPlatform::SystemColor(int32_t index) const {
  return index >= 0 && index < static_cast<int32_t>(kPalette.size()) ? kPalette[index] : 0;
}

void HeadlessPlatform::SetClipboardText(std::string_view text) {
  clipboard_ = std::string(text);
  ++clipboardSequence_;
}

}  // namespace quilta
