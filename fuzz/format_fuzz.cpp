// Fuzzes format parsing and rendering, the conversions that read text, and text folding.
// Input: one byte choosing the value's type, eight bytes of value payload, then the text. For a
// String value the text splits at the first NUL into the value and the format.
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <quilta/error.hpp>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>
#include <utility>

#include "model/format/compiled_format.hpp"
#include "model/text/text.hpp"

namespace {

using quilta::Variant;

Variant MakeValue(uint8_t type, const uint8_t* payload, std::string_view& text) {
  int64_t bits = 0;
  double real = 0;
  std::memcpy(&bits, payload, sizeof bits);
  std::memcpy(&real, payload, sizeof real);
  switch (type % 9) {
    case 0:
      return Variant(real);
    case 1:
      return Variant(static_cast<int32_t>(bits));
    case 2:
      return Variant::CurrencyFromScaled(bits);
    case 3:
      return Variant::Date(real);
    case 4: {
      const size_t nul = text.find('\0');
      const std::string_view value = text.substr(0, nul);
      text = nul == std::string_view::npos ? std::string_view() : text.substr(nul + 1);
      return Variant(value);
    }
    case 5:
      return Variant((bits & 1) != 0);
    case 6:
      return Variant::Null();
    case 7:
      return Variant(static_cast<float>(real));
    default:
      return Variant();
  }
}

// Significant digits and decimal exponent of a plain number text ("-0.00123", "1.5E-07").
std::pair<std::string, int> DigitsOfText(std::string_view text) {
  std::string digits;
  int exponent = -1;  // of the first digit written, before any "E"
  bool pointSeen = false;
  size_t i = 0;
  for (; i < text.size() && text[i] != 'E'; ++i) {
    if (text[i] == '.') pointSeen = true;
    if (text[i] < '0' || text[i] > '9') continue;
    if (digits.empty() && text[i] == '0') {
      if (pointSeen) --exponent;
      continue;
    }
    if (!pointSeen) ++exponent;
    digits.push_back(text[i]);
  }
  if (i < text.size()) exponent += std::atoi(std::string(text.substr(i + 1)).c_str());
  while (!digits.empty() && digits.back() == '0') digits.pop_back();
  return {digits, exponent};
}

// The value's exact decimal expansion rounded to `count` digits, an exact half away from zero.
std::pair<std::string, int> RoundedExactDigits(double value, int count) {
  static char buf[1200];
  auto r = std::to_chars(buf, buf + sizeof buf, std::fabs(value), std::chars_format::scientific,
                         1100);  // enough for every double: the expansion is exact
  const std::string_view s(buf, static_cast<size_t>(r.ptr - buf));
  const size_t e = s.find('e');
  int exponent = std::atoi(std::string(s.substr(e + 1)).c_str());
  std::string digits;
  for (char c : s.substr(0, e))
    if (c != '.') digits.push_back(c);
  const bool up = digits[static_cast<size_t>(count)] >= '5';
  digits.resize(static_cast<size_t>(count));
  if (up) {
    int k = count - 1;
    while (k >= 0 && digits[static_cast<size_t>(k)] == '9') digits[static_cast<size_t>(k--)] = '0';
    if (k < 0) {
      digits.insert(digits.begin(), '1');
      ++exponent;
    } else {
      ++digits[static_cast<size_t>(k)];
    }
  }
  while (!digits.empty() && digits.back() == '0') digits.pop_back();
  return {digits, exponent};
}

// Plain text of a finite non-zero number must carry exactly its correctly rounded digits.
void CheckPlainDigits(const Variant& value) {
  double number = 0;
  int count = 15;
  if (value.Type() == quilta::vbDouble) number = value.DoubleValue();
  if (value.Type() == quilta::vbSingle) {
    number = value.SingleValue();
    count = 7;
  }
  if (number == 0 || !std::isfinite(number)) return;
  if (DigitsOfText(quilta::CStr(value)) != RoundedExactDigits(number, count)) __builtin_trap();
}

template <class F>
void IgnoringRuntimeErrors(F&& f) {
  try {
    f();
  } catch (const quilta::Error&) {
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 9) return 0;
  std::string_view text(reinterpret_cast<const char*>(data + 9), size - 9);
  const Variant value = MakeValue(data[0], data + 1, text);

  const quilta::fmt::CompiledFormat format(text);
  std::string out = format.Apply(value);
  format.AppendTo(Variant(-1.5), out);
  format.AppendTo(Variant::Date(36526.75), out);
  format.AppendTo(Variant("abc"), out);
  (void)quilta::Format(value, text.substr(0, text.size() / 2));

  IgnoringRuntimeErrors([&] { (void)quilta::CStr(value); });
  CheckPlainDigits(value);
  IgnoringRuntimeErrors([&] { (void)quilta::CLng(value); });
  IgnoringRuntimeErrors([&] { (void)quilta::CCur(value); });
  IgnoringRuntimeErrors([&] { (void)quilta::CDate(value); });
  IgnoringRuntimeErrors([&] { (void)quilta::CBool(value); });
  IgnoringRuntimeErrors([&] { (void)quilta::CSng(value); });
  const Variant asText(text);
  IgnoringRuntimeErrors([&] { (void)quilta::CDate(asText); });
  IgnoringRuntimeErrors([&] { (void)quilta::CCur(asText); });
  (void)quilta::Compare(value, asText, quilta::vbTextCompare);
  (void)quilta::Compare(value, Variant(0.1f));
  (void)quilta::text::CompareNoCase(text, out);
  (void)quilta::text::ToUpper(text);
  (void)quilta::text::ToLower(out);
  return 0;
}
