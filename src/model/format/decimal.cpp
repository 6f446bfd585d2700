#include "model/format/decimal.hpp"

#include <charconv>

namespace quilta::fmt {
namespace {

// Reads the output of to_chars in scientific form, "d.ddde+XX", into a Decimal.
Decimal FromScientificText(const char* first, const char* last) {
  Decimal d;
  const char* p = first;
  for (; p != last && *p != 'e'; ++p) {
    if (*p >= '0' && *p <= '9' && d.count < Decimal::kCapacity)
      d.digits[d.count++] = static_cast<uint8_t>(*p - '0');
  }
  int exponent = 0;
  if (p != last) {
    ++p;
    if (p != last && *p == '+') ++p;
    std::from_chars(p, last, exponent);
  }
  int lead = 0;
  while (lead < d.count && d.digits[lead] == 0) ++lead;
  if (lead == d.count) return Decimal();
  d.pointPos = exponent + 1;
  if (lead > 0) {  // only for a zero mantissa, which the callers exclude; kept for safety
    for (int i = lead; i < d.count; ++i) d.digits[i - lead] = d.digits[i];
    d.count -= lead;
    d.pointPos -= lead;
  }
  while (d.count > 0 && d.digits[d.count - 1] == 0) --d.count;
  return d;
}

}  // namespace

void Decimal::TrimTrailingZeros() {
  while (count > 0 && digits[count - 1] == 0) --count;
}

void Decimal::SetToOne(int64_t newPointPos) {
  digits[0] = 1;
  count = 1;
  pointPos = newPointPos;
}

void Decimal::RoundToDecimals(int64_t decimals) {
  if (count == 0) return;
  const int64_t keep = pointPos + decimals;  // significant digits that stay
  if (keep >= count) return;
  if (keep < 0) {
    count = 0;
    return;
  }
  const bool up = digits[keep] >= 5;
  count = static_cast<int>(keep);
  if (up) {
    int i = count - 1;
    while (i >= 0 && digits[i] == 9) digits[i--] = 0;
    if (i < 0) {
      SetToOne(pointPos + 1);
      return;
    }
    ++digits[i];
  }
  TrimTrailingZeros();
}

Decimal Decimal::FromUnsigned(uint64_t value) { return FromScaled(value, 0); }

Decimal Decimal::FromScaled(uint64_t value, int decimals) {
  Decimal d;
  uint8_t reversed[kCapacity];
  int n = 0;
  for (; value != 0; value /= 10) reversed[n++] = static_cast<uint8_t>(value % 10);
  for (int i = 0; i < n; ++i) d.digits[i] = reversed[n - 1 - i];
  d.count = n;
  d.pointPos = n - decimals;
  d.TrimTrailingZeros();
  return d;
}

Decimal Decimal::FromDouble(double value, int significantDigits) {
  if (!(value > 0)) return Decimal();
  // Whole numbers that fit the digits need no rounding: the common case in a grid.
  if (significantDigits >= 15 && value < 1e15 &&
      value == static_cast<double>(static_cast<uint64_t>(value)))
    return FromUnsigned(static_cast<uint64_t>(value));
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific,
                         significantDigits - 1);
  return FromScientificText(buf, r.ptr);
}

Decimal Decimal::FromFloat(float value, int significantDigits) {
  if (!(value > 0)) return Decimal();
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific,
                         significantDigits - 1);
  return FromScientificText(buf, r.ptr);
}

}  // namespace quilta::fmt
