// Reading numbers and dates from text in the fixed US-English locale, as the runtime's
// conversions do.
#pragma once

#include <cstdint>
#include <string_view>

namespace quilta::fmt {

// A number read from text: sign and significant digits, value = 0.d1 d2 ... x 10^pointPos.
struct ParsedNumber {
  static constexpr int kMaxDigits = 40;  // far beyond what a double or a Currency can hold
  bool negative = false;
  char digits[kMaxDigits] = {};
  int count = 0;
  int64_t pointPos = 0;

  bool IsZero() const { return count == 0; }
  // The nearest double; false when the magnitude is too large for one.
  bool ToDouble(double& value) const;
  // Rounded half to even to 1/10000, scaled by 10000; false when out of the Currency range.
  bool ToCurrency(int64_t& scaled) const;
};

// Surrounding spaces, a leading or trailing sign or parentheses for a negative value, a "$",
// thousands separators in the integer part, a decimal point, an exponent (E or D), and the
// &H / &O prefixes for hexadecimal and octal integers (up to 16 bits as an Integer, up to 32
// bits as a Long, so "&HFFFF" is -1).
bool ParseNumber(std::string_view text, ParsedNumber& number);

// Dates (m/d/yyyy, m/d/yy, yyyy-mm-dd, "January 6, 1998", "6-Jan-98") and times ("5:08 PM",
// "17:08:06", "5 PM"), alone or combined; two-digit years 30-99 are 19xx, 00-29 20xx.
bool ParseDateTime(std::string_view text, double& serial);

}  // namespace quilta::fmt
