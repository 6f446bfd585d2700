// UTF-8 case mapping and comparison. Keys, sorting and key search call these in tight loops, so
// pure-ASCII text takes a byte loop and only non-ASCII text is decoded.
#include "model/text/text.hpp"

#include <algorithm>
#include <cstring>

namespace quilta::text {
namespace {

// A byte that does not start a well-formed sequence stands for itself as U+DC80..U+DCFF: no
// decoded code point lands there (encoded surrogates are rejected), so the byte survives a
// round trip unchanged and never folds onto a real character.
constexpr char32_t kStrayByteBase = 0xDC00;

bool IsStrayByte(char32_t c) { return c >= 0xDC80 && c <= 0xDCFF; }

char32_t Stray(unsigned char b) { return kStrayByteBase + b; }

// Decodes the code point at s[i] and advances i; never reads past the end.
char32_t Decode(std::string_view s, size_t& i) noexcept {
  const unsigned char lead = static_cast<unsigned char>(s[i]);
  if (lead < 0x80) {
    ++i;
    return lead;
  }
  size_t extra = 0;
  char32_t cp = 0;
  char32_t smallest = 0;
  if (lead >= 0xC2 && lead <= 0xDF) {
    extra = 1, cp = lead & 0x1F, smallest = 0x80;
  } else if (lead >= 0xE0 && lead <= 0xEF) {
    extra = 2, cp = lead & 0x0F, smallest = 0x800;
  } else if (lead >= 0xF0 && lead <= 0xF4) {
    extra = 3, cp = lead & 0x07, smallest = 0x10000;
  } else {
    ++i;
    return Stray(lead);
  }
  if (s.size() - i <= extra) {
    ++i;
    return Stray(lead);
  }
  for (size_t k = 1; k <= extra; ++k) {
    const unsigned char b = static_cast<unsigned char>(s[i + k]);
    if ((b & 0xC0) != 0x80) {
      ++i;
      return Stray(lead);
    }
    cp = (cp << 6) | (b & 0x3F);
  }
  if (cp < smallest || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) {
    ++i;
    return Stray(lead);
  }
  i += extra + 1;
  return cp;
}

void Encode(char32_t cp, std::string& out) {
  if (cp < 0x80) {
    out.push_back(static_cast<char>(cp));
  } else if (IsStrayByte(cp)) {
    out.push_back(static_cast<char>(cp - kStrayByteBase));
  } else if (cp < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (cp >> 6)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else if (cp < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (cp >> 12)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  } else {
    out.push_back(static_cast<char>(0xF0 | (cp >> 18)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 12) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
    out.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
  }
}

unsigned char AsciiLower(unsigned char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; }
unsigned char AsciiUpper(unsigned char c) { return c >= 'a' && c <= 'z' ? c - 32 : c; }

bool InRange(char32_t c, char32_t lo, char32_t hi) { return c >= lo && c <= hi; }
bool IsEven(char32_t c) { return (c & 1) == 0; }

// Blocks where upper and lower case alternate: the upper-case letter sits on the even (or odd)
// code point and its lower-case partner right after it.
char32_t PairLower(char32_t c, bool upperIsEven) { return IsEven(c) == upperIsEven ? c + 1 : c; }
char32_t PairUpper(char32_t c, bool upperIsEven) { return IsEven(c) != upperIsEven ? c - 1 : c; }

char32_t LatinLower(char32_t c) {
  if (c < 0x100) return InRange(c, 0xC0, 0xDE) && c != 0xD7 ? c + 0x20 : c;
  if (c == 0x130) return 'i';
  if (InRange(c, 0x100, 0x137) && c != 0x131) return PairLower(c, true);
  if (InRange(c, 0x139, 0x148)) return PairLower(c, false);
  if (InRange(c, 0x14A, 0x177)) return PairLower(c, true);
  if (c == 0x178) return 0xFF;
  if (InRange(c, 0x179, 0x17E)) return PairLower(c, false);
  return c;
}

char32_t LatinUpper(char32_t c) {
  if (c < 0x100) {
    if (InRange(c, 0xE0, 0xFE) && c != 0xF7) return c - 0x20;
    if (c == 0xFF) return 0x178;
    return c == 0xB5 ? 0x39C : c;  // micro sign
  }
  if (c == 0x131) return 'I';
  if (c == 0x17F) return 'S';  // long s
  if (InRange(c, 0x100, 0x137) && c != 0x130) return PairUpper(c, true);
  if (InRange(c, 0x139, 0x148)) return PairUpper(c, false);
  if (InRange(c, 0x14A, 0x177)) return PairUpper(c, true);
  if (InRange(c, 0x179, 0x17E)) return PairUpper(c, false);
  return c;
}

char32_t GreekLower(char32_t c) {
  if (InRange(c, 0x391, 0x3AB) && c != 0x3A2) return c + 32;
  if (InRange(c, 0x370, 0x373) || InRange(c, 0x376, 0x377) || InRange(c, 0x3D8, 0x3EF))
    return PairLower(c, true);
  if (InRange(c, 0x388, 0x38A)) return c + 37;
  if (InRange(c, 0x38E, 0x38F)) return c + 63;
  if (InRange(c, 0x3FD, 0x3FF)) return c - 0x182;
  switch (c) {
    case 0x37F:
      return 0x3F3;
    case 0x386:
      return 0x3AC;
    case 0x38C:
      return 0x3CC;
    case 0x3CF:
      return 0x3D7;
    case 0x3F4:
      return 0x3B8;
    case 0x3F7:
      return 0x3F8;
    case 0x3F9:
      return 0x3F2;
    case 0x3FA:
      return 0x3FB;
    default:
      return c;
  }
}

char32_t GreekUpper(char32_t c) {
  if (InRange(c, 0x3B1, 0x3CB) && c != 0x3C2) return c - 32;
  if (InRange(c, 0x370, 0x373) || InRange(c, 0x376, 0x377) || InRange(c, 0x3D8, 0x3EF))
    return PairUpper(c, true);
  if (InRange(c, 0x3AD, 0x3AF)) return c - 37;
  if (InRange(c, 0x3CD, 0x3CE)) return c - 63;
  if (InRange(c, 0x37B, 0x37D)) return c + 0x182;
  switch (c) {
    case 0x3C2:
      return 0x3A3;  // final sigma
    case 0x3AC:
      return 0x386;
    case 0x3CC:
      return 0x38C;
    case 0x3D0:
      return 0x392;
    case 0x3D1:
      return 0x398;
    case 0x3D5:
      return 0x3A6;
    case 0x3D6:
      return 0x3A0;
    case 0x3D7:
      return 0x3CF;
    case 0x3F0:
      return 0x39A;
    case 0x3F1:
      return 0x3A1;
    case 0x3F2:
      return 0x3F9;
    case 0x3F3:
      return 0x37F;
    case 0x3F5:
      return 0x395;
    case 0x3F8:
      return 0x3F7;
    case 0x3FB:
      return 0x3FA;
    default:
      return c;
  }
}

char32_t CyrillicLower(char32_t c) {
  if (InRange(c, 0x400, 0x40F)) return c + 0x50;
  if (InRange(c, 0x410, 0x42F)) return c + 0x20;
  if (c == 0x4C0) return 0x4CF;
  if (InRange(c, 0x460, 0x481) || InRange(c, 0x48A, 0x4BF) || InRange(c, 0x4D0, 0x52F))
    return PairLower(c, true);
  if (InRange(c, 0x4C1, 0x4CE)) return PairLower(c, false);
  return c;
}

char32_t CyrillicUpper(char32_t c) {
  if (InRange(c, 0x430, 0x44F)) return c - 0x20;
  if (InRange(c, 0x450, 0x45F)) return c - 0x50;
  if (c == 0x4CF) return 0x4C0;
  if (InRange(c, 0x460, 0x481) || InRange(c, 0x48A, 0x4BF) || InRange(c, 0x4D0, 0x52F))
    return PairUpper(c, true);
  if (InRange(c, 0x4C1, 0x4CE)) return PairUpper(c, false);
  return c;
}

char32_t LowerOf(char32_t c) {
  if (c < 0x80) return AsciiLower(static_cast<unsigned char>(c));
  if (c < 0x180) return LatinLower(c);
  if (InRange(c, 0x370, 0x3FF)) return GreekLower(c);
  if (InRange(c, 0x400, 0x52F)) return CyrillicLower(c);
  return c;
}

char32_t UpperOf(char32_t c) {
  if (c < 0x80) return AsciiUpper(static_cast<unsigned char>(c));
  if (c < 0x180) return LatinUpper(c);
  if (InRange(c, 0x370, 0x3FF)) return GreekUpper(c);
  if (InRange(c, 0x400, 0x52F)) return CyrillicUpper(c);
  return c;
}

// Lower case of the upper case, so that variant forms (final sigma, long s, micro sign) meet
// their ordinary letter. Dotless i stays apart from i, as in Unicode's default folding.
char32_t Fold(char32_t c) { return c == 0x131 ? c : LowerOf(UpperOf(c)); }

bool IsAscii(std::string_view s) {
  for (char c : s)
    if (static_cast<unsigned char>(c) >= 0x80) return false;
  return true;
}

template <class MapAscii, class MapCodePoint>
std::string MapText(std::string_view s, MapAscii ascii, MapCodePoint map) {
  std::string out;
  if (IsAscii(s)) {
    out.resize(s.size());
    for (size_t i = 0; i < s.size(); ++i)
      out[i] = static_cast<char>(ascii(static_cast<unsigned char>(s[i])));
    return out;
  }
  out.reserve(s.size());
  for (size_t i = 0; i < s.size();) Encode(map(Decode(s, i)), out);
  return out;
}

}  // namespace

std::u32string DecodeUtf8(std::string_view s) {
  std::u32string out;
  out.reserve(s.size());
  for (size_t i = 0; i < s.size();) out.push_back(Decode(s, i));
  return out;
}

std::string EncodeUtf8(std::u32string_view chars) {
  std::string out;
  out.reserve(chars.size());
  for (char32_t c : chars) Encode(c, out);
  return out;
}

std::string ToLower(std::string_view s) { return MapText(s, AsciiLower, LowerOf); }

bool EqualsLowered(std::string_view lowered, std::string_view s) {
  if (!IsAscii(s)) return lowered == ToLower(s);
  if (lowered.size() != s.size()) return false;
  for (size_t i = 0; i < s.size(); ++i)
    if (static_cast<unsigned char>(lowered[i]) != AsciiLower(static_cast<unsigned char>(s[i])))
      return false;
  return true;
}

std::string ToUpper(std::string_view s) { return MapText(s, AsciiUpper, UpperOf); }

int CompareBinary(std::string_view a, std::string_view b) noexcept {
  const size_t n = std::min(a.size(), b.size());
  const int c = n == 0 ? 0 : std::memcmp(a.data(), b.data(), n);
  if (c != 0) return c < 0 ? -1 : 1;
  return (a.size() > n) - (b.size() > n);
}

int CompareNoCase(std::string_view a, std::string_view b) noexcept {
  size_t i = 0;
  size_t j = 0;
  while (i < a.size() && j < b.size()) {
    const unsigned char x = static_cast<unsigned char>(a[i]);
    const unsigned char y = static_cast<unsigned char>(b[j]);
    if ((x | y) < 0x80) {
      const unsigned char lx = AsciiLower(x);
      const unsigned char ly = AsciiLower(y);
      if (lx != ly) return lx < ly ? -1 : 1;
      ++i, ++j;
      continue;
    }
    const char32_t fx = Fold(Decode(a, i));
    const char32_t fy = Fold(Decode(b, j));
    if (fx != fy) return fx < fy ? -1 : 1;
  }
  return (i < a.size()) - (j < b.size());
}

}  // namespace quilta::text
