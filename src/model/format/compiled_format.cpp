// Applying a compiled format: how a value is read for the format's kind and which section
// formats it.
#include "model/format/compiled_format.hpp"

#include <cmath>

#include "model/format/format_render.hpp"
#include "model/format/number_text.hpp"
#include "model/format/value_parse.hpp"

namespace quilta::fmt {
namespace {

struct NumberValue {
  Decimal magnitude;
  bool negative = false;
};

// How a value reads for a format: as a value, as its plain text (a string that is not a
// number, an infinity), or not at all (Null, objects, arrays, error values).
enum class Reading { Value, PlainText, Nothing };

void SetInteger(int64_t v, NumberValue& n) {
  n.magnitude = Decimal::FromUnsigned(Magnitude(v));
  n.negative = v < 0;
}

Reading ReadDouble(double d, NumberValue& n) {
  if (!std::isfinite(d)) return Reading::PlainText;
  n.magnitude = Decimal::FromDouble(std::fabs(d), kDoubleDigits);
  n.negative = d < 0;
  return Reading::Value;
}

bool ParseDouble(std::string_view text, double& d) {
  ParsedNumber parsed;
  return ParseNumber(text, parsed) && parsed.ToDouble(d);
}

// Numbers exactly as their type holds them; Doubles (and dates) by their 15-digit form.
Reading ReadNumber(const Variant& v, NumberValue& n) {
  switch (v.Type()) {
    case vbEmpty:
      return Reading::Value;
    case vbBoolean:
      SetInteger(v.BoolValue() ? -1 : 0, n);
      return Reading::Value;
    case vbInteger:
      SetInteger(v.IntegerValue(), n);
      return Reading::Value;
    case vbLong:
      SetInteger(v.LongValue(), n);
      return Reading::Value;
    case vbLongLong:
      SetInteger(v.LongLongValue(), n);
      return Reading::Value;
    case vbByte:
      SetInteger(v.ByteValue(), n);
      return Reading::Value;
    case vbCurrency:
      n.magnitude = Decimal::FromScaled(Magnitude(v.CurrencyScaled()), 4);
      n.negative = v.CurrencyScaled() < 0;
      return Reading::Value;
    case vbSingle: {
      const float f = v.SingleValue();
      if (!std::isfinite(f)) return Reading::PlainText;
      n.magnitude = Decimal::FromFloat(std::fabs(f), kSingleDigits);
      n.negative = f < 0;
      return Reading::Value;
    }
    case vbDouble:
      return ReadDouble(v.DoubleValue(), n);
    case vbDate:
      return ReadDouble(v.DateValue(), n);
    case vbString: {
      double d = 0;
      return ParseDouble(v.StringView(), d) ? ReadDouble(d, n) : Reading::PlainText;
    }
    default:
      return Reading::Nothing;
  }
}

// Numbers are date serials; strings are read as a number first, then as a date.
Reading ReadSerial(const Variant& v, double& serial) {
  switch (v.Type()) {
    case vbEmpty:
      serial = 0;
      break;
    case vbBoolean:
      serial = v.BoolValue() ? -1 : 0;
      break;
    case vbInteger:
      serial = v.IntegerValue();
      break;
    case vbLong:
      serial = v.LongValue();
      break;
    case vbLongLong:
      serial = static_cast<double>(v.LongLongValue());
      break;
    case vbByte:
      serial = v.ByteValue();
      break;
    case vbCurrency:
      serial = static_cast<double>(v.CurrencyScaled()) / 10000.0;
      break;
    case vbSingle:
      serial = v.SingleValue();
      break;
    case vbDouble:
      serial = v.DoubleValue();
      break;
    case vbDate:
      serial = v.DateValue();
      break;
    case vbString:
      if (ParseDouble(v.StringView(), serial) || ParseDateTime(v.StringView(), serial)) break;
      return Reading::PlainText;
    default:
      return Reading::Nothing;
  }
  return Reading::Value;
}

}  // namespace

CompiledFormat::CompiledFormat(std::string_view pattern)
    : pattern_(pattern), program_(CompileFormat(pattern)) {}

const std::string& CompiledFormat::Pattern() const { return pattern_; }

bool CompiledFormat::IsEmpty() const { return pattern_.empty(); }

std::string CompiledFormat::Apply(const Variant& value) const {
  std::string out;
  AppendTo(value, out);
  return out;
}

void CompiledFormat::AppendTo(const Variant& value, std::string& out) const {
  if (IsEmpty()) {
    AppendPlainText(value, out);
    return;
  }
  if (program_.named != NamedMode::None) return AppendNamed(value, out);
  FormatKind kind = program_.kind;
  if (kind == FormatKind::Unknown) {  // literals only: the value's own kind decides
    kind = value.Type() == vbDate     ? FormatKind::Date
           : value.Type() == vbString ? FormatKind::String
                                      : FormatKind::Number;
  }
  switch (kind) {
    case FormatKind::Date:
      return AppendDate(value, out);
    case FormatKind::String:
      return AppendString(value, out);
    default:
      return AppendNumber(value, out);
  }
}

// First section: positive (and zero, negative when the others are missing or empty);
// second: negative; third: zero.
size_t CompiledFormat::PickSection(bool negative, bool zero) const {
  if (negative && program_.sections.size() >= 2 && !program_.sections[1].empty) return 1;
  if (zero && program_.sections.size() >= 3 && !program_.sections[2].empty) return 2;
  return 0;
}

void CompiledFormat::AppendNumber(const Variant& value, std::string& out) const {
  if (value.IsNull()) {
    if (program_.sections.size() >= 4)
      RenderNumberSection(program_, program_.sections[3], Decimal(), false, out);
    return;
  }
  NumberValue n;
  const Reading reading = ReadNumber(value, n);
  if (reading == Reading::PlainText) AppendPlainText(value, out);
  if (reading != Reading::Value) return;
  const size_t index = PickSection(n.negative, n.magnitude.IsZero());
  RenderNumberSection(program_, program_.sections[index], n.magnitude, n.negative && index == 0,
                      out);
}

void CompiledFormat::AppendDate(const Variant& value, std::string& out) const {
  DateParts parts;
  if (value.IsNull()) {
    if (program_.sections.size() >= 4)
      RenderDateSection(program_, program_.sections[3], parts, out);
    return;
  }
  double serial = 0;
  const Reading reading = ReadSerial(value, serial);
  if (reading == Reading::PlainText) AppendPlainText(value, out);
  if (reading != Reading::Value) return;
  if (!SplitDateSerial(serial, parts)) return AppendDouble(serial, out);
  RenderDateSection(program_, program_.sections[PickSection(serial < 0, serial == 0)], parts, out);
}

void CompiledFormat::AppendString(const Variant& value, std::string& out) const {
  std::string converted;
  std::string_view text;
  if (value.IsString()) {
    text = value.StringView();
  } else if (!value.IsNull()) {
    if (AppendPlainText(value, converted) != PlainResult::Ok) return;
    text = converted;
  }
  // Null and the empty string take the second section, or give empty text without one.
  if (text.empty()) {
    if (program_.sections.size() >= 2)
      RenderStringSection(program_, program_.sections[1], text, out);
    return;
  }
  RenderStringSection(program_, program_.sections[0], text, out);
}

void CompiledFormat::AppendNamed(const Variant& value, std::string& out) const {
  if (program_.named == NamedMode::GeneralDate) {
    double serial = 0;
    const Reading reading = ReadSerial(value, serial);
    if (reading == Reading::Value) AppendDateText(serial, out);
    if (reading == Reading::PlainText) AppendPlainText(value, out);
    return;
  }
  NumberValue n;
  const Reading reading = ReadNumber(value, n);
  if (reading == Reading::PlainText) AppendPlainText(value, out);
  if (reading != Reading::Value) return;
  const bool zero = n.magnitude.IsZero();
  switch (program_.named) {
    case NamedMode::YesNo:
      out.append(zero ? "No" : "Yes");
      break;
    case NamedMode::TrueFalse:
      out.append(zero ? "False" : "True");
      break;
    case NamedMode::OnOff:
      out.append(zero ? "Off" : "On");
      break;
    default:  // General Number: plain digits of the number, no grouping
      if (value.Type() == vbSingle)
        AppendDecimal(n.magnitude, n.negative, kSingleDigits, out);
      else if (value.IsNumber() && value.Type() != vbDouble)
        AppendPlainText(value, out);
      else
        AppendDecimal(n.magnitude, n.negative, kDoubleDigits, out);
      break;
  }
}

}  // namespace quilta::fmt
