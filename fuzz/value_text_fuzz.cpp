// Fuzzes the reading of values from text: what an edit commit or a paste stores when it turns the
// user's text into a number, a currency amount, a date or a boolean. Each reader must either
// refuse the text with the runtime's error or produce a value the formatter can show again.
#include <cmath>
#include <cstdint>
#include <quilta/error.hpp>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>

#include "model/format/value_parse.hpp"

namespace {

using quilta::Variant;

template <class F>
void IgnoringRuntimeErrors(F&& f) {
  try {
    f();
  } catch (const quilta::Error&) {
  }
}

void ReadNumber(std::string_view text) {
  quilta::fmt::ParsedNumber number;
  if (!quilta::fmt::ParseNumber(text, number)) return;
  double value = 0;
  if (number.ToDouble(value) && !std::isfinite(value)) __builtin_trap();
  int64_t scaled = 0;
  (void)number.ToCurrency(scaled);
}

void ReadDate(std::string_view text) {
  double serial = 0;
  if (quilta::fmt::ParseDateTime(text, serial) && !std::isfinite(serial)) __builtin_trap();
}

// Every conversion a committed text goes through; a value read back is formatted again.
void ConvertAll(const Variant& text) {
  IgnoringRuntimeErrors([&] { (void)quilta::Format(quilta::CDate(text), "yyyy-mm-dd hh:nn:ss"); });
  IgnoringRuntimeErrors([&] { (void)quilta::Format(quilta::CCur(text), "#,##0.0000"); });
  IgnoringRuntimeErrors([&] { (void)quilta::Format(quilta::CDbl(text), "0.###############E+0"); });
  IgnoringRuntimeErrors([&] { (void)quilta::CLng(text); });
  IgnoringRuntimeErrors([&] { (void)quilta::CInt(text); });
  IgnoringRuntimeErrors([&] { (void)quilta::CByte(text); });
  IgnoringRuntimeErrors([&] { (void)quilta::CSng(text); });
  IgnoringRuntimeErrors([&] { (void)quilta::CBool(text); });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  ReadNumber(text);
  ReadDate(text);
  ConvertAll(Variant(text));
  return 0;
}
