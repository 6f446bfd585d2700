// Plain conversion of numbers to text, as the runtime's string conversion writes them.
#pragma once

#include <cstdint>
#include <string>

#include "model/format/decimal.hpp"

namespace quilta::fmt {

inline constexpr int kDoubleDigits = 15;
inline constexpr int kSingleDigits = 7;

void AppendInteger(int64_t value, std::string& out);
// Rounded to 15 significant digits, an exact half away from zero; scientific from exponent 15
// up, and for small numbers whose digits would need more than 15 places after the point.
void AppendDouble(double value, std::string& out);
// As AppendDouble with 7 significant digits and 7 places.
void AppendSingle(float value, std::string& out);
// Up to four decimals, trailing zeros dropped.
void AppendCurrency(int64_t scaled, std::string& out);
// Digits already rounded to `significantDigits`, written plain or in scientific form; the
// same count bounds the places after the point in plain form.
void AppendDecimal(const Decimal& d, bool negative, int significantDigits, std::string& out);
// The classic spelling of infinities and NaN.
void AppendNonFinite(double value, std::string& out);

// Rounds to a whole number, halves to the even neighbour, whatever the FPU rounding mode.
double RoundHalfEven(double value);

// |value| of a signed 64-bit integer without overflow.
inline uint64_t Magnitude(int64_t value) {
  return value < 0 ? uint64_t{0} - static_cast<uint64_t>(value) : static_cast<uint64_t>(value);
}

}  // namespace quilta::fmt
