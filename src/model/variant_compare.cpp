// The runtime's comparison of two variants, as sorting uses it once per pair of cells: no
// allocation, no exception.
#include <cmath>
#include <quilta/variant.hpp>

#include "model/format/number_text.hpp"
#include "model/text/text.hpp"

namespace quilta {
namespace {

enum class Group { Empty, Number, String, Other };

struct Number {
  enum Kind { Integer, Currency, Single, Double } kind = Integer;
  int64_t integer = 0;  // Integer; Currency scaled by 10000
  double floating = 0;  // Single and Double (dates by serial)
};

Group Classify(const Variant& v, Number& n) {
  switch (v.Type()) {
    case vbEmpty:
      return Group::Empty;
    case vbBoolean:
      n = {Number::Integer, v.BoolValue() ? -1 : 0};
      break;
    case vbInteger:
      n = {Number::Integer, v.IntegerValue()};
      break;
    case vbLong:
      n = {Number::Integer, v.LongValue()};
      break;
    case vbLongLong:
      n = {Number::Integer, v.LongLongValue()};
      break;
    case vbByte:
      n = {Number::Integer, v.ByteValue()};
      break;
    case vbCurrency:
      n = {Number::Currency, v.CurrencyScaled()};
      break;
    case vbSingle:
      n = {Number::Single, 0, v.SingleValue()};
      break;
    case vbDouble:
      n = {Number::Double, 0, v.DoubleValue()};
      break;
    case vbDate:
      n = {Number::Double, 0, v.DateValue()};
      break;
    case vbString:
      return Group::String;
    default:
      return Group::Other;
  }
  return Group::Number;
}

template <class T>
int Order(T a, T b) {
  return (a > b) - (a < b);
}

// NaN sorts before every number and equals itself, so that sorting stays consistent.
int OrderFloating(long double a, long double b) {
  const bool nanA = std::isnan(a), nanB = std::isnan(b);
  if (nanA || nanB) return nanB - nanA;
  return Order(a, b);
}

float ToSingle(double d) {
  constexpr double kSingleLimit = 3.4028235677973366e38;  // first double rounding to infinity
  if (d >= kSingleLimit) return HUGE_VALF;
  if (d <= -kSingleLimit) return -HUGE_VALF;
  return static_cast<float>(d);
}

// The Currency nearest a double, when there is one.
bool ToCurrency(double d, int64_t& scaled) {
  const double r = fmt::RoundHalfEven(d * 10000.0);
  if (!(r >= -9.2233720368547758e18 && r < 9.2233720368547758e18)) return false;
  scaled = static_cast<int64_t>(r);
  return true;
}

int CompareCurrencyWith(int64_t scaled, const Number& other) {
  if (other.kind == Number::Integer)
    return Order<__int128>(scaled, static_cast<__int128>(other.integer) * 10000);
  if (other.kind == Number::Currency) return Order(scaled, other.integer);
  int64_t converted = 0;
  if (ToCurrency(other.floating, converted)) return Order(scaled, converted);
  return OrderFloating(static_cast<long double>(scaled) / 10000, other.floating);
}

long double AsLongDouble(const Number& n) {
  return n.kind == Number::Integer ? static_cast<long double>(n.integer) : n.floating;
}

int CompareNumbers(const Number& a, const Number& b) {
  if (a.kind == Number::Currency) return CompareCurrencyWith(a.integer, b);
  if (b.kind == Number::Currency) return -CompareCurrencyWith(b.integer, a);
  if (a.kind == Number::Integer && b.kind == Number::Integer) return Order(a.integer, b.integer);
  if (a.kind == Number::Single && b.kind == Number::Double)
    return OrderFloating(a.floating, ToSingle(b.floating));
  if (a.kind == Number::Double && b.kind == Number::Single)
    return OrderFloating(ToSingle(a.floating), b.floating);
  return OrderFloating(AsLongDouble(a), AsLongDouble(b));
}

int CompareStrings(std::string_view a, std::string_view b, CompareMethod method) {
  return method == vbTextCompare ? text::CompareNoCase(a, b) : text::CompareBinary(a, b);
}

// Ranks for values of different groups: numbers below strings; objects, arrays and error values
// (which the runtime refuses to compare) after both, so that a sort still has an order.
int Rank(Group g) { return g == Group::Number ? 0 : g == Group::String ? 1 : 2; }

int CompareMixed(const Variant& a, Group ga, const Number& na, const Variant& b, Group gb,
                 const Number& nb, CompareMethod method) {
  if (ga == Group::Empty && gb == Group::Empty) return 0;
  if (ga == Group::Empty) return -CompareMixed(b, gb, nb, a, ga, na, method);
  if (gb == Group::Empty) {  // Empty reads as 0 beside a number and as "" beside a string
    if (ga == Group::Number) return CompareNumbers(na, Number{});
    if (ga == Group::String) return a.StringView().empty() ? 0 : 1;
    return 1;
  }
  if (ga != gb) return Order(Rank(ga), Rank(gb));
  switch (ga) {
    case Group::Number:
      return CompareNumbers(na, nb);
    case Group::String:
      return CompareStrings(a.StringView(), b.StringView(), method);
    default:
      return Order<int>(a.Type(), b.Type());
  }
}

}  // namespace

VarCmpResult Compare(const Variant& a, const Variant& b, CompareMethod method) {
  if (a.IsNull() || b.IsNull()) return VarCmpNull;
  Number na, nb;
  const Group ga = Classify(a, na);
  const Group gb = Classify(b, nb);
  return static_cast<VarCmpResult>(CompareMixed(a, ga, na, b, gb, nb, method));
}

}  // namespace quilta
