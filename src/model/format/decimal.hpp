// Decimal digits of a number, the common ground of plain conversion and numeric formats.
#pragma once

#include <cstdint>

namespace quilta::fmt {

// An unsigned number as significant digits: value = 0.d1 d2 d3 ... x 10^pointPos. Neither
// leading nor trailing zeros are stored; zero has no digits.
struct Decimal {
  static constexpr int kCapacity = 24;
  uint8_t digits[kCapacity] = {};
  int count = 0;
  int64_t pointPos = 0;

  bool IsZero() const { return count == 0; }
  // The digit at index i counted from the first significant digit; 0 outside the stored ones.
  int DigitAt(int64_t i) const { return i >= 0 && i < count ? digits[i] : 0; }
  // Number of digits before the decimal point (none for values below 1).
  int64_t IntegerDigits() const { return count == 0 || pointPos < 0 ? 0 : pointPos; }
  // Index (0 = tenths) of the last non-zero decimal, -1 when there is none.
  int64_t LastNonZeroDecimal() const { return count == 0 ? -1 : count - pointPos - 1; }
  // Multiplies by 10^power.
  void Shift(int64_t power) {
    if (count != 0) pointPos += power;
  }
  // Rounds to the given number of decimals, half away from zero.
  void RoundToDecimals(int64_t decimals);

  static Decimal FromUnsigned(uint64_t value);
  // value / 10^decimals, exactly.
  static Decimal FromScaled(uint64_t value, int decimals);
  // A finite, non-negative double rounded from its exact binary value to the given number of
  // significant digits, an exact half away from zero.
  static Decimal FromDouble(double value, int significantDigits);
  static Decimal FromFloat(float value, int significantDigits);

 private:
  void TrimTrailingZeros();
  void SetToOne(int64_t newPointPos);
};

}  // namespace quilta::fmt
