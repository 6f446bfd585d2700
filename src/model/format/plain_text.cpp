// Plain conversion of a value to text: what CStr returns and what a cell without a format shows.
#include "model/format/format_render.hpp"
#include "model/format/number_text.hpp"

namespace quilta::fmt {

PlainResult AppendPlainText(const Variant& value, std::string& out) {
  switch (value.Type()) {
    case vbEmpty:
      break;
    case vbNull:
      return PlainResult::Null;
    case vbBoolean:
      out.append(value.BoolValue() ? "True" : "False");
      break;
    case vbInteger:
      AppendInteger(value.IntegerValue(), out);
      break;
    case vbLong:
      AppendInteger(value.LongValue(), out);
      break;
    case vbLongLong:
      AppendInteger(value.LongLongValue(), out);
      break;
    case vbByte:
      AppendInteger(value.ByteValue(), out);
      break;
    case vbSingle:
      AppendSingle(value.SingleValue(), out);
      break;
    case vbDouble:
      AppendDouble(value.DoubleValue(), out);
      break;
    case vbCurrency:
      AppendCurrency(value.CurrencyScaled(), out);
      break;
    case vbDate:
      AppendDateText(value.DateValue(), out);
      break;
    case vbString:
      out.append(value.StringView());
      break;
    default:
      return PlainResult::Mismatch;
  }
  return PlainResult::Ok;
}

}  // namespace quilta::fmt
