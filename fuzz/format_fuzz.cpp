// Fuzzes format parsing and rendering, the conversions that read text, and text folding.
// Input: one byte choosing the value's type, eight bytes of value payload, then the text. For a
// String value the text splits at the first NUL into the value and the format.
#include <cstdint>
#include <cstring>
#include <quilta/error.hpp>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>

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
