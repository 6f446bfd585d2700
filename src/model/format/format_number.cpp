// Rendering a number section: rounding, the integer field, grouping, decimals, exponent.
#include <charconv>

#include "model/format/format_render.hpp"
#include "model/format/number_text.hpp"

namespace quilta::fmt {
namespace {

// Brings the mantissa to `integerPlaces` integer digits (or to start at the point when there
// are none), rounds it, and returns the exponent; a rounding carry renormalises.
int64_t NormalizeScientific(Decimal& value, int64_t integerPlaces, int64_t decimals) {
  if (value.IsZero()) return 0;
  int64_t exponent = value.pointPos - integerPlaces;
  value.pointPos = integerPlaces;
  value.RoundToDecimals(decimals);
  if (value.pointPos > integerPlaces) {  // 9.99 became 10.0
    value.pointPos = integerPlaces;
    ++exponent;
  }
  return exponent;
}

class NumberRenderer {
 public:
  NumberRenderer(const NumberLayout& layout, const Decimal& value, int64_t exponent, bool negative,
                 std::string& out)
      : layout_(layout),
        value_(value),
        exponent_(exponent),
        out_(out),
        signPending_(negative),
        signPos_(out.size()),
        integerDigits_(value.IntegerDigits()),
        lastNonZeroDecimal_(value.LastNonZeroDecimal()) {
    const int64_t padding = layout.intPlaces - integerDigits_ - layout.firstIntZero;
    digitsLeft_ = integerDigits_ + (padding > 0 ? padding : 0);
  }

  void Render(const FormatProgram& format, const Section& section) {
    const Token* tokens = format.tokens.data();
    for (uint32_t k = section.begin; k < section.end; ++k) {
      const Token& t = tokens[k];
      switch (t.op) {
        case Op::Literal:
          out_.append(format.Literal(t));
          break;
        case Op::IntDigit:
          IntegerPlaceholder(t.a);
          break;
        case Op::FracDigit:
          DecimalPlaceholder(t.a);
          break;
        case Op::DecimalPoint:
          DecimalPoint();
          break;
        case Op::ExpMark:
          ExponentMark(static_cast<char>(t.a), t.flags & 1);
          break;
        case Op::ExpDigits:
          ExponentDigits(t.a);
          break;
        default:
          break;
      }
    }
    if (signPending_) out_.insert(signPos_, 1, '-');
  }

 private:
  // The sign of a value with no digit and no point shown goes where the number would start.
  void NumberStarts() {
    if (!started_) signPos_ = out_.size(), started_ = true;
  }

  void WriteSign() {
    if (signPending_) out_.push_back('-'), signPending_ = false;
  }

  void IntegerDigit(int digit) {
    WriteSign();
    out_.push_back(static_cast<char>('0' + digit));
    --digitsLeft_;
    if (layout_.grouping && digitsLeft_ > 0 && digitsLeft_ % 3 == 0) out_.push_back(',');
  }

  // Without integer placeholders the integer digits still show, right before the point.
  void DecimalPoint() {
    NumberStarts();
    if (layout_.intPlaces == 0)
      for (int64_t k = 0; k < integerDigits_; ++k) IntegerDigit(value_.DigitAt(k));
    WriteSign();
    out_.push_back('.');
  }

  // Digits fill the field from the right; surplus digits all go to the leftmost placeholder.
  void IntegerPlaceholder(int64_t index) {
    NumberStarts();
    const int64_t offset = layout_.intPlaces - integerDigits_;
    if (index == 0)
      for (int64_t k = 0; k < -offset; ++k) IntegerDigit(value_.DigitAt(k));
    const int64_t digit = index - offset;
    if (digit >= 0)
      IntegerDigit(value_.DigitAt(digit));
    else if (index >= layout_.firstIntZero)
      IntegerDigit(0);
  }

  // Decimals up to the rightmost '0' always show; '#' after it only up to the last non-zero.
  void DecimalPlaceholder(int64_t index) {
    NumberStarts();
    if (index > layout_.lastFracZero && index > lastNonZeroDecimal_) return;
    WriteSign();
    out_.push_back(static_cast<char>('0' + value_.DigitAt(value_.pointPos + index)));
  }

  void ExponentMark(char letter, bool alwaysSign) {
    out_.push_back(letter);
    if (exponent_ < 0)
      out_.push_back('-');
    else if (alwaysSign)
      out_.push_back('+');
  }

  void ExponentDigits(uint32_t minimum) {
    char buf[24];
    auto r = std::to_chars(buf, buf + sizeof buf, Magnitude(exponent_));
    const size_t written = static_cast<size_t>(r.ptr - buf);
    if (written < minimum) out_.append(minimum - written, '0');
    out_.append(buf, r.ptr);
  }

  const NumberLayout& layout_;
  const Decimal& value_;
  const int64_t exponent_;
  std::string& out_;
  bool signPending_;
  bool started_ = false;
  size_t signPos_;
  const int64_t integerDigits_;
  const int64_t lastNonZeroDecimal_;
  int64_t digitsLeft_ = 0;  // integer digits still to write, for grouping
};

}  // namespace

void RenderNumberSection(const FormatProgram& format, const Section& section, Decimal magnitude,
                         bool negative, std::string& out) {
  const NumberLayout& layout = section.number;
  magnitude.Shift(layout.shift);
  int64_t exponent = 0;
  if (layout.scientific)
    exponent = NormalizeScientific(magnitude, layout.intPlaces, layout.fracPlaces);
  else
    magnitude.RoundToDecimals(layout.fracPlaces);
  NumberRenderer(layout, magnitude, exponent, negative, out).Render(format, section);
}

}  // namespace quilta::fmt
