#include "model/format/decimal.hpp"

#include <array>
#include <bit>
#include <charconv>
#include <cstddef>
#include <utility>

namespace quilta::fmt {
namespace {

template <uint64_t Base, std::size_t Count>
constexpr std::array<uint64_t, Count> Powers() {
  std::array<uint64_t, Count> powers{};
  uint64_t p = 1;
  for (uint64_t& power : powers) power = std::exchange(p, p * Base);
  return powers;
}

constexpr auto kPowersOf5 = Powers<5, 28>();    // 5^27 is the last below 2^64
constexpr auto kPowersOf10 = Powers<10, 20>();  // likewise 10^19

// A positive finite double as odd x 2^exponent, exactly.
struct BinaryValue {
  uint64_t odd;
  int exponent;
};

BinaryValue Decompose(double value) {
  const auto bits = std::bit_cast<uint64_t>(value);
  const int biased = static_cast<int>(bits >> 52);
  uint64_t mantissa = bits & ((uint64_t{1} << 52) - 1);
  int exponent = -1074;  // subnormal
  if (biased != 0) {
    mantissa |= uint64_t{1} << 52;
    exponent = biased - 1075;
  }
  const int zeros = std::countr_zero(mantissa);
  return {mantissa >> zeros, exponent + zeros};
}

// Whether `value` lies exactly halfway between two numbers of `digits` significant digits,
// that is value = halfway x 10^power with `halfway` having digits + 1 digits, the last a 5.
// Such a halfway number is odd, so value = odd x 2^e can only equal it with power = e; that
// leaves one multiplication or division to check.
bool IsExactHalf(double value, int digits, uint64_t& halfway, int& power) {
  if (digits < 1 || digits + 1 >= static_cast<int>(kPowersOf10.size())) return false;
  const BinaryValue b = Decompose(value);
  unsigned __int128 candidate = 0;
  if (b.exponent < 0) {
    if (-b.exponent >= static_cast<int>(kPowersOf5.size())) return false;
    candidate = static_cast<unsigned __int128>(b.odd) * kPowersOf5[-b.exponent];
  } else {
    if (b.exponent + 1 >= static_cast<int>(kPowersOf5.size()) ||
        b.odd % kPowersOf5[b.exponent + 1] != 0)
      return false;
    candidate = b.odd / kPowersOf5[b.exponent];
  }
  if (candidate < kPowersOf10[digits] || candidate >= kPowersOf10[digits + 1]) return false;
  halfway = static_cast<uint64_t>(candidate);
  power = b.exponent;
  return true;
}

// Reads the output of to_chars in scientific form, "d.ddde+XX", into a Decimal. The first digit
// of a positive value is never 0.
Decimal FromScientificText(const char* first, const char* last) {
  Decimal d;
  const char* p = first;
  for (; p != last && *p != 'e'; ++p) {
    const unsigned digit = static_cast<unsigned char>(*p) - '0';
    if (digit < 10 && d.count < Decimal::kCapacity)
      d.digits[d.count++] = static_cast<uint8_t>(digit);
  }
  if (d.count == 0 || d.digits[0] == 0) return Decimal();
  int exponent = 0;
  const bool negative = last - p > 1 && p[1] == '-';
  if (last - p > 2)  // "e", the sign, then the digits
    for (p += 2; p != last; ++p) exponent = exponent * 10 + (*p - '0');
  d.pointPos = (negative ? -exponent : exponent) + 1;
  while (d.digits[d.count - 1] == 0) --d.count;
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
  const bool digitsInRange =
      significantDigits >= 1 && significantDigits < static_cast<int>(kPowersOf10.size());
  if (digitsInRange && value < static_cast<double>(kPowersOf10[significantDigits]) &&
      value == static_cast<double>(static_cast<uint64_t>(value)))
    return FromUnsigned(static_cast<uint64_t>(value));
  // to_chars rounds an exact half to even; the grid's numbers round it away from zero.
  uint64_t halfway = 0;
  int power = 0;
  if (IsExactHalf(value, significantDigits, halfway, power)) {
    Decimal d = FromUnsigned(halfway / 10 + 1);
    d.Shift(power + 1);
    return d;
  }
  char buf[64];
  auto r = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific,
                         significantDigits - 1);
  return FromScientificText(buf, r.ptr);
}

// Every float is exactly a double, and both are rounded from their exact binary value.
Decimal Decimal::FromFloat(float value, int significantDigits) {
  return FromDouble(static_cast<double>(value), significantDigits);
}

}  // namespace quilta::fmt
