#include "model/format/number_text.hpp"

#include <charconv>
#include <cmath>

namespace quilta::fmt {
namespace {

void AppendDigits(const Decimal& d, int64_t from, int64_t to, std::string& out) {
  for (int64_t i = from; i < to; ++i) out.push_back(static_cast<char>('0' + d.DigitAt(i)));
}

void AppendExponent(int64_t exponent, std::string& out) {
  out.push_back('E');
  out.push_back(exponent < 0 ? '-' : '+');
  const uint64_t magnitude = Magnitude(exponent);
  if (magnitude < 10) out.push_back('0');
  char buf[24];
  auto r = std::to_chars(buf, buf + sizeof buf, magnitude);
  out.append(buf, r.ptr);
}

}  // namespace

double RoundHalfEven(double value) {
  const double below = std::floor(value);
  const double fraction = value - below;
  if (fraction != 0.5) return fraction < 0.5 ? below : below + 1;
  return std::fmod(below, 2.0) == 0 ? below : below + 1;
}

void AppendInteger(int64_t value, std::string& out) {
  char buf[24];
  auto r = std::to_chars(buf, buf + sizeof buf, value);
  out.append(buf, r.ptr);
}

void AppendDecimal(const Decimal& d, bool negative, int significantDigits, std::string& out) {
  if (d.IsZero()) {
    out.push_back('0');  // negative zero too
    return;
  }
  if (negative) out.push_back('-');
  const int64_t exponent = d.pointPos - 1;
  const int64_t decimals = d.count - d.pointPos;
  if (exponent >= significantDigits || decimals > significantDigits) {
    AppendDigits(d, 0, 1, out);
    if (d.count > 1) {
      out.push_back('.');
      AppendDigits(d, 1, d.count, out);
    }
    AppendExponent(exponent, out);
  } else if (d.pointPos <= 0) {
    out += "0.";
    out.append(static_cast<size_t>(-d.pointPos), '0');
    AppendDigits(d, 0, d.count, out);
  } else {
    AppendDigits(d, 0, d.pointPos, out);
    if (d.count > d.pointPos) {
      out.push_back('.');
      AppendDigits(d, d.pointPos, d.count, out);
    }
  }
}

void AppendNonFinite(double value, std::string& out) {
  if (std::isnan(value))
    out += std::signbit(value) ? "-1.#IND" : "1.#QNAN";
  else
    out += value < 0 ? "-1.#INF" : "1.#INF";
}

void AppendDouble(double value, std::string& out) {
  if (!std::isfinite(value)) return AppendNonFinite(value, out);
  AppendDecimal(Decimal::FromDouble(std::fabs(value), kDoubleDigits), value < 0, kDoubleDigits,
                out);
}

void AppendSingle(float value, std::string& out) {
  if (!std::isfinite(value)) return AppendNonFinite(value, out);
  AppendDecimal(Decimal::FromFloat(std::fabs(value), kSingleDigits), value < 0, kSingleDigits, out);
}

void AppendCurrency(int64_t scaled, std::string& out) {
  if (scaled < 0) out.push_back('-');
  const uint64_t magnitude = Magnitude(scaled);
  char buf[24];
  auto r = std::to_chars(buf, buf + sizeof buf, magnitude / 10000);
  out.append(buf, r.ptr);
  uint64_t fraction = magnitude % 10000;
  if (fraction == 0) return;
  out.push_back('.');
  for (uint64_t unit = 1000; fraction != 0; unit /= 10) {
    out.push_back(static_cast<char>('0' + fraction / unit));
    fraction %= unit;
  }
}

}  // namespace quilta::fmt
