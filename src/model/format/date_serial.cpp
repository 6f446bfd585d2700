#include "model/format/date_serial.hpp"

#include <cmath>

namespace quilta::fmt {
namespace {

// Days between 1970-01-01 and 1899-12-30.
constexpr int64_t kUnixEpochDay = 25569;

int64_t FloorDiv(int64_t a, int64_t b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }

// Civil calendar from days since 1970-01-01 (H. Hinnant's algorithm).
void CivilFromUnixDays(int64_t z, int64_t& y, int& m, int& d) {
  z += 719468;
  const int64_t era = FloorDiv(z, 146097);
  const int64_t doe = z - era * 146097;
  const int64_t yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
  const int64_t doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
  const int64_t mp = (5 * doy + 2) / 153;
  d = static_cast<int>(doy - (153 * mp + 2) / 5 + 1);
  m = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
  y = yoe + era * 400 + (m <= 2);
}

int64_t UnixDaysFromCivil(int64_t y, int m, int d) {
  y -= m <= 2;
  const int64_t era = FloorDiv(y, 400);
  const int64_t yoe = y - era * 400;
  const int64_t doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
  const int64_t doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
  return era * 146097 + doe - 719468;
}

}  // namespace

bool IsLeapYear(int64_t year) { return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0); }

int DaysInMonth(int64_t year, int month) {
  static constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12) return 0;
  if (month == 2 && IsLeapYear(year)) return 29;
  return kDays[month - 1];
}

int64_t DayNumberOf(int64_t year, int month, int day) {
  return UnixDaysFromCivil(year, month, 1) + (day - 1) + kUnixEpochDay;
}

bool IsValidDateSerial(double serial) {
  return serial > static_cast<double>(kFirstDateDay - 1) &&
         serial < static_cast<double>(kLastDateDay + 1);
}

bool SplitDateSerial(double serial, DateParts& parts) {
  if (!IsValidDateSerial(serial)) return false;
  const double whole = std::trunc(serial);
  int64_t dayNumber = static_cast<int64_t>(whole);
  int64_t seconds = std::llround(std::fabs(serial - whole) * 86400.0);
  if (seconds >= 86400) {  // rounds up to the next midnight, unless that leaves the range
    if (dayNumber < kLastDateDay)
      ++dayNumber, seconds = 0;
    else
      seconds = 86399;
  }
  int64_t year = 0;
  CivilFromUnixDays(dayNumber - kUnixEpochDay, year, parts.month, parts.day);
  parts.dayNumber = dayNumber;
  parts.year = static_cast<int>(year);
  parts.hour = static_cast<int>(seconds / 3600);
  parts.minute = static_cast<int>(seconds / 60 % 60);
  parts.second = static_cast<int>(seconds % 60);
  parts.weekday = static_cast<int>(((dayNumber + 6) % 7 + 7) % 7) + 1;  // day 0 was a Saturday
  parts.dayOfYear = static_cast<int>(dayNumber - DayNumberOf(year, 1, 1)) + 1;
  return true;
}

double JoinDateSerial(int64_t dayNumber, double timeOfDay) {
  const double day = static_cast<double>(dayNumber);
  return dayNumber < 0 ? day - timeOfDay : day + timeOfDay;
}

int WeekOfYear(const DateParts& parts) {
  const int jan1Weekday =
      static_cast<int>(((parts.dayNumber - parts.dayOfYear + 1 + 6) % 7 + 7) % 7);
  return (parts.dayOfYear - 1 + jan1Weekday) / 7 + 1;
}

}  // namespace quilta::fmt
