// The runtime's conversion functions (CStr, CLng, ...), DateSerial / TimeSerial and Format.
#include <cmath>
#include <quilta/error.hpp>
#include <quilta/variant.hpp>

#include "model/format/compiled_format.hpp"
#include "model/format/date_serial.hpp"
#include "model/format/format_render.hpp"
#include "model/format/number_text.hpp"
#include "model/format/value_parse.hpp"

namespace quilta {
namespace {

[[noreturn]] void Raise(int32_t number) { throw Error::Runtime(number); }

// A value on its way to a number: exact integers and Currency stay exact.
struct Numeric {
  enum Kind { Integer, Currency, Floating } kind = Integer;
  int64_t integer = 0;  // Integer; Currency scaled by 10000
  double floating = 0;
};

Numeric FromText(std::string_view text) {
  fmt::ParsedNumber parsed;
  if (!fmt::ParseNumber(text, parsed)) Raise(vbErrTypeMismatch);
  Numeric n{Numeric::Floating};
  if (!parsed.ToDouble(n.floating)) Raise(vbErrOverflow);
  return n;
}

Numeric ToNumeric(const Variant& v) {
  switch (v.Type()) {
    case vbEmpty:
      return Numeric{};
    case vbNull:
      Raise(vbErrInvalidUseOfNull);
    case vbBoolean:
      return Numeric{Numeric::Integer, v.BoolValue() ? -1 : 0};
    case vbInteger:
      return Numeric{Numeric::Integer, v.IntegerValue()};
    case vbLong:
      return Numeric{Numeric::Integer, v.LongValue()};
    case vbLongLong:
      return Numeric{Numeric::Integer, v.LongLongValue()};
    case vbByte:
      return Numeric{Numeric::Integer, v.ByteValue()};
    case vbCurrency:
      return Numeric{Numeric::Currency, v.CurrencyScaled()};
    case vbSingle:
      return Numeric{Numeric::Floating, 0, v.SingleValue()};
    case vbDouble:
      return Numeric{Numeric::Floating, 0, v.DoubleValue()};
    case vbDate:
      return Numeric{Numeric::Floating, 0, v.DateValue()};
    case vbString:
      return FromText(v.StringView());
    default:
      Raise(vbErrTypeMismatch);
  }
}

// Currency to a whole number, half to even.
int64_t RoundCurrency(int64_t scaled) {
  int64_t whole = scaled / 10000;
  const int64_t rest = scaled % 10000;
  const bool odd = (whole & 1) != 0;
  if (rest > 5000 || (rest == 5000 && odd)) ++whole;
  if (rest < -5000 || (rest == -5000 && odd)) --whole;
  return whole;
}

int64_t ToInteger(const Variant& v, int64_t lowest, int64_t highest) {
  const Numeric n = ToNumeric(v);
  int64_t result = 0;
  if (n.kind == Numeric::Floating) {
    const double r = fmt::RoundHalfEven(n.floating);
    if (!(r >= static_cast<double>(lowest) && r <= static_cast<double>(highest)))
      Raise(vbErrOverflow);
    result = static_cast<int64_t>(r);
  } else {
    result = n.kind == Numeric::Currency ? RoundCurrency(n.integer) : n.integer;
  }
  if (result < lowest || result > highest) Raise(vbErrOverflow);
  return result;
}

double ToDouble(const Numeric& n) {
  switch (n.kind) {
    case Numeric::Integer:
      return static_cast<double>(n.integer);
    case Numeric::Currency:
      return static_cast<double>(n.integer) / 10000.0;
    default:
      return n.floating;
  }
}

bool EqualsNoCase(std::string_view text, std::string_view lowerWord) {
  if (text.size() != lowerWord.size()) return false;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i] >= 'A' && text[i] <= 'Z' ? static_cast<char>(text[i] + 32) : text[i];
    if (c != lowerWord[i]) return false;
  }
  return true;
}

std::string_view TrimSpaces(std::string_view s) {
  while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
  while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
  return s;
}

Variant CheckedDate(double serial) {
  if (!fmt::IsValidDateSerial(serial)) Raise(vbErrOverflow);
  return Variant::Date(serial);
}

constexpr double kCurrencyLimit = 9.2233720368547758e18;  // 2^63

}  // namespace

std::string CStr(const Variant& v) {
  std::string out;
  switch (fmt::AppendPlainText(v, out)) {
    case fmt::PlainResult::Null:
      Raise(vbErrInvalidUseOfNull);
    case fmt::PlainResult::Mismatch:
      Raise(vbErrTypeMismatch);
    default:
      return out;
  }
}

int32_t CLng(const Variant& v) { return static_cast<int32_t>(ToInteger(v, INT32_MIN, INT32_MAX)); }

int16_t CInt(const Variant& v) { return static_cast<int16_t>(ToInteger(v, INT16_MIN, INT16_MAX)); }

uint8_t CByte(const Variant& v) { return static_cast<uint8_t>(ToInteger(v, 0, UINT8_MAX)); }

double CDbl(const Variant& v) { return ToDouble(ToNumeric(v)); }

float CSng(const Variant& v) {
  const double d = CDbl(v);
  // Beyond this a double no longer rounds to the largest float.
  constexpr double kSingleLimit = 3.4028235677973366e38;
  if (std::isfinite(d) && std::fabs(d) >= kSingleLimit) Raise(vbErrOverflow);
  return static_cast<float>(d);
}

bool CBool(const Variant& v) {
  if (v.IsString()) {
    const std::string_view text = TrimSpaces(v.StringView());
    if (EqualsNoCase(text, "true")) return true;
    if (EqualsNoCase(text, "false")) return false;
  }
  const Numeric n = ToNumeric(v);
  return n.kind == Numeric::Floating ? n.floating != 0 : n.integer != 0;
}

Variant CDate(const Variant& v) {
  if (v.Type() == vbDate) return v;
  if (v.IsString()) {
    fmt::ParsedNumber parsed;
    double serial = 0;
    if (fmt::ParseNumber(v.StringView(), parsed)) {
      if (!parsed.ToDouble(serial)) Raise(vbErrOverflow);
      return CheckedDate(serial);
    }
    if (!fmt::ParseDateTime(v.StringView(), serial)) Raise(vbErrTypeMismatch);
    return Variant::Date(serial);
  }
  return CheckedDate(ToDouble(ToNumeric(v)));
}

Variant CCur(const Variant& v) {
  if (v.IsString()) {
    fmt::ParsedNumber parsed;
    int64_t scaled = 0;
    if (!fmt::ParseNumber(v.StringView(), parsed)) Raise(vbErrTypeMismatch);
    if (!parsed.ToCurrency(scaled)) Raise(vbErrOverflow);
    return Variant::CurrencyFromScaled(scaled);
  }
  const Numeric n = ToNumeric(v);
  switch (n.kind) {
    case Numeric::Currency:
      return Variant::CurrencyFromScaled(n.integer);
    case Numeric::Integer:
      if (n.integer > INT64_MAX / 10000 || n.integer < INT64_MIN / 10000) Raise(vbErrOverflow);
      return Variant::CurrencyFromScaled(n.integer * 10000);
    default: {
      const double scaled = fmt::RoundHalfEven(n.floating * 10000.0);
      if (!(scaled >= -kCurrencyLimit && scaled < kCurrencyLimit)) Raise(vbErrOverflow);
      return Variant::CurrencyFromScaled(static_cast<int64_t>(scaled));
    }
  }
}

Variant DateSerial(int32_t year, int32_t month, int32_t day) {
  int64_t y = year;
  if (y >= 0 && y < 30) y += 2000;
  if (y >= 30 && y < 100) y += 1900;
  const int64_t months = y * 12 + (static_cast<int64_t>(month) - 1);  // months out of 1-12 roll
  const int64_t wholeYears = months >= 0 ? months / 12 : -((-months + 11) / 12);
  const int monthOfYear = static_cast<int>(months - wholeYears * 12) + 1;
  if (wholeYears < 0 || wholeYears > 10000) Raise(vbErrInvalidCall);
  const int64_t dayNumber = fmt::DayNumberOf(wholeYears, monthOfYear, 1) + day - 1;
  if (dayNumber < fmt::kFirstDateDay || dayNumber > fmt::kLastDateDay) Raise(vbErrInvalidCall);
  return Variant::Date(static_cast<double>(dayNumber));
}

Variant TimeSerial(int32_t hour, int32_t minute, int32_t second) {
  const int64_t seconds =
      static_cast<int64_t>(hour) * 3600 + static_cast<int64_t>(minute) * 60 + second;
  const double serial = static_cast<double>(seconds) / 86400.0;
  if (!fmt::IsValidDateSerial(serial)) Raise(vbErrInvalidCall);
  return Variant::Date(serial);
}

std::string Format(const Variant& value, std::string_view format) {
  return fmt::CompiledFormat(format).Apply(value);
}

}  // namespace quilta
