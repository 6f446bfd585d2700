// The renderers behind CompiledFormat, one per kind of format, and the plain conversions they
// share with CStr.
#pragma once

#include <quilta/variant.hpp>
#include <string>
#include <string_view>

#include "model/format/date_serial.hpp"
#include "model/format/decimal.hpp"
#include "model/format/format_program.hpp"

namespace quilta::fmt {

// Writes a number section for |value|; a '-' goes before the first digit or decimal point
// when `negative` (the first section formatting a negative value).
void RenderNumberSection(const FormatProgram& format, const Section& section, Decimal magnitude,
                         bool negative, std::string& out);
void RenderDateSection(const FormatProgram& format, const Section& section, const DateParts& date,
                       std::string& out);
void RenderStringSection(const FormatProgram& format, const Section& section, std::string_view text,
                         std::string& out);

// m/d/yyyy h:mm:ss AM/PM, without the time at midnight and without the date on day 0.
void AppendGeneralDate(const DateParts& date, std::string& out);
// General Date of a serial, or the serial as a number when it lies outside the date range.
void AppendDateText(double serial, std::string& out);

enum class PlainResult { Ok, Null, Mismatch };
// Plain conversion of a value (CStr without its errors); nothing is written for Null and for
// values without a text form (objects, arrays, error values).
PlainResult AppendPlainText(const Variant& value, std::string& out);

// End of the UTF-8 character starting at s[i]; a stray byte is a character of its own.
size_t NextCharacter(std::string_view s, size_t i);

}  // namespace quilta::fmt
