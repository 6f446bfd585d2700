// Date serial arithmetic: whole days since 1899-12-30 plus the time as a fraction of a day.
#pragma once

#include <cstdint>

namespace quilta::fmt {

// The runtime's date range: 1 January 100 to 31 December 9999.
inline constexpr int64_t kFirstDateDay = -657434;
inline constexpr int64_t kLastDateDay = 2958465;

// A date serial split for display, with the time rounded to whole seconds.
struct DateParts {
  int64_t dayNumber = 0;  // days since 1899-12-30, after a rounding carry
  int year = 1899, month = 12, day = 30;
  int hour = 0, minute = 0, second = 0;
  int weekday = 7;  // 1 = Sunday
  int dayOfYear = 364;
};

bool IsLeapYear(int64_t year);
int DaysInMonth(int64_t year, int month);
// Days since 1899-12-30 of a proleptic Gregorian date (month 1-12, any day count).
int64_t DayNumberOf(int64_t year, int month, int day);
// True when the serial lies in the runtime's date range.
bool IsValidDateSerial(double serial);
// Splits a serial; false (parts untouched) for NaN or a serial outside the date range. For
// negative serials the day is the integer part toward zero and the time the absolute fraction.
bool SplitDateSerial(double serial, DateParts& parts);
// A serial from a day number and a time of day in [0, 1): negative days subtract the time.
double JoinDateSerial(int64_t dayNumber, double timeOfDay);
// 1 = the week holding 1 January; weeks start on Sunday.
int WeekOfYear(const DateParts& parts);

}  // namespace quilta::fmt
