#include "data/date_text.hpp"

#include <charconv>
#include <cstdint>

namespace quilta::data {
namespace {

// Days from 1 January 1970 of a proleptic Gregorian date.
int64_t DaysFromCivil(int64_t y, int64_t m, int64_t d) {
  y -= m <= 2;
  int64_t era = (y >= 0 ? y : y - 399) / 400;
  int64_t yoe = y - era * 400;
  int64_t doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
  int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

constexpr int64_t kSerialOf1970 = 25569;

bool Number(std::string_view& s, size_t digits, int& out) {
  if (s.size() < digits) return false;
  auto [ptr, ec] = std::from_chars(s.data(), s.data() + digits, out);
  if (ec != std::errc() || ptr != s.data() + digits) return false;
  s.remove_prefix(digits);
  return true;
}

bool Expect(std::string_view& s, char c) {
  if (s.empty() || s.front() != c) return false;
  s.remove_prefix(1);
  return true;
}

std::optional<double> TimeOfDay(std::string_view& s) {
  int h = 0, m = 0, sec = 0;
  if (!Number(s, 2, h) || !Expect(s, ':') || !Number(s, 2, m)) return std::nullopt;
  double fraction = 0;
  if (Expect(s, ':')) {
    if (!Number(s, 2, sec)) return std::nullopt;
    if (Expect(s, '.')) {
      double scale = 0.1;
      while (!s.empty() && s.front() >= '0' && s.front() <= '9') {
        fraction += (s.front() - '0') * scale;
        scale /= 10;
        s.remove_prefix(1);
      }
    }
  }
  if (h > 24 || m > 59 || sec > 60) return std::nullopt;
  return (h * 3600.0 + m * 60.0 + sec + fraction) / 86400.0;
}

}  // namespace

std::optional<double> DateSerialFromText(std::string_view s) {
  if (s.size() >= 5 && s[2] == ':') return TimeOfDay(s);
  int y = 0, m = 0, d = 0;
  if (!Number(s, 4, y) || !Expect(s, '-') || !Number(s, 2, m) || !Expect(s, '-') ||
      !Number(s, 2, d) || m < 1 || m > 12 || d < 1 || d > 31)
    return std::nullopt;
  double serial = static_cast<double>(DaysFromCivil(y, m, d) + kSerialOf1970);
  if (s.empty()) return serial;
  if (!Expect(s, ' ') && !Expect(s, 'T')) return std::nullopt;
  std::optional<double> time = TimeOfDay(s);
  if (!time) return std::nullopt;
  // Serials before 1899-12-30 keep the time as a positive fraction after the negative day.
  return serial < 0 ? serial - *time : serial + *time;
}

}  // namespace quilta::data
