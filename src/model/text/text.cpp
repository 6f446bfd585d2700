#include "model/text/text.hpp"

#include <algorithm>

namespace quilta::text {
namespace {
char AsciiLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
char AsciiUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }
}  // namespace

std::string ToLower(std::string_view s) {
  std::string out(s);
  std::transform(out.begin(), out.end(), out.begin(), AsciiLower);
  return out;
}

std::string ToUpper(std::string_view s) {
  std::string out(s);
  std::transform(out.begin(), out.end(), out.begin(), AsciiUpper);
  return out;
}

int CompareBinary(std::string_view a, std::string_view b) noexcept {
  int c = a.compare(b);
  return (c > 0) - (c < 0);
}

int CompareNoCase(std::string_view a, std::string_view b) noexcept {
  size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    unsigned char x = static_cast<unsigned char>(AsciiLower(a[i]));
    unsigned char y = static_cast<unsigned char>(AsciiLower(b[i]));
    if (x != y) return x < y ? -1 : 1;
  }
  return (a.size() > n) - (b.size() > n);
}

}  // namespace quilta::text
