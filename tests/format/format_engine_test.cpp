// The formatting engine beyond the reference table: compiled-format reuse, sections, number
// layout, dates, strings, and what happens with malformed patterns.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <quilta/variant.hpp>
#include <string>

#include "model/format/compiled_format.hpp"

namespace {

using quilta::Format;
using quilta::Variant;
using quilta::fmt::CompiledFormat;

Variant Date(int y, int m, int d, int hh = 0, int mm = 0, int ss = 0) {
  return Variant::Date(quilta::DateSerial(y, m, d).DateValue() +
                       quilta::TimeSerial(hh, mm, ss).DateValue());
}

TEST(CompiledFormat, ParsesOnceAndAppends) {
  const CompiledFormat money("#,##0.00");
  EXPECT_EQ(money.Pattern(), "#,##0.00");
  EXPECT_FALSE(money.IsEmpty());
  std::string out = "Total: ";
  money.AppendTo(Variant(1234.5), out);
  money.AppendTo(Variant(" / "), out);  // not a number: its text
  money.AppendTo(Variant(-7), out);
  EXPECT_EQ(out, "Total: 1,234.50 / -7.00");
  const CompiledFormat copy = money;
  EXPECT_EQ(copy.Apply(Variant(0.005)), "0.01");
}

TEST(CompiledFormat, EmptyPatternIsPlainConversion) {
  const CompiledFormat plain;
  EXPECT_TRUE(plain.IsEmpty());
  EXPECT_EQ(plain.Apply(Variant::Null()), "");
  EXPECT_EQ(plain.Apply(Variant()), "");
  EXPECT_EQ(plain.Apply(Variant(0.1 + 0.2)), "0.3");
  EXPECT_EQ(plain.Apply(Variant::Missing()), "");
  EXPECT_EQ(plain.Apply(Variant::Array1D(0, 2)), "");
  EXPECT_EQ(CompiledFormat("").Apply(Variant(true)), "True");
}

TEST(FormatSections, PickedBySignZeroAndNull) {
  const char* fmt = "0.0;(0.0);\\z\\e\\r\\o;\\n\\u\\l\\l";
  EXPECT_EQ(Format(Variant(2.25), fmt), "2.3");
  EXPECT_EQ(Format(Variant(-2.25), fmt), "(2.3)");
  EXPECT_EQ(Format(Variant(0), fmt), "zero");
  EXPECT_EQ(Format(Variant::Null(), fmt), "null");
  EXPECT_EQ(Format(Variant(-0.01), fmt), "(0.0)");  // only an exact zero takes section 3
  EXPECT_EQ(Format(Variant(-3), "0;"), "-3");       // empty negative section: first, signed
  EXPECT_EQ(Format(Variant(0), "0;-0;"), "0");      // empty zero section: first
  EXPECT_EQ(Format(Variant::Null(), "0;-0;0"), "");
  EXPECT_EQ(Format(Variant(), "0.00"), "0.00");   // Empty is zero for a number format
  EXPECT_EQ(Format(Variant(1), "\";\";0"), ";");  // a quoted ';' does not split
  EXPECT_EQ(Format(Variant(-1), "\";\";0"), "1");
}

TEST(FormatSections, DocumentedExamples) {
  struct Row {
    const char* format;
    const char* five;
    const char* minusFive;
    const char* half;
    const char* zero;
  };
  const Row rows[] = {
      {"#,##0", "5", "-5", "1", "0"},
      {"$#,##0.00;($#,##0.00)", "$5.00", "($5.00)", "$0.50", "$0.00"},
      {"0%", "500%", "-500%", "50%", "0%"},
      {"0.00E-00", "5.00E00", "-5.00E00", "5.00E-01", "0.00E00"},
      {"#,##0.00;;;Nil", "5.00", "-5.00", "0.50", "0.00"},
  };
  for (const Row& r : rows) {
    const CompiledFormat f(r.format);
    EXPECT_EQ(f.Apply(Variant(5)), r.five) << r.format;
    EXPECT_EQ(f.Apply(Variant(-5)), r.minusFive) << r.format;
    EXPECT_EQ(f.Apply(Variant(0.5)), r.half) << r.format;
    EXPECT_EQ(f.Apply(Variant(0)), r.zero) << r.format;
  }
}

TEST(FormatNumbers, RoundingAndDigitSources) {
  EXPECT_EQ(Format(Variant(0.125), "0.00"), "0.13");  // half away from zero
  EXPECT_EQ(Format(Variant(-0.125), "0.00"), "-0.13");
  EXPECT_EQ(Format(Variant(1.005), "0.00"), "1.01");  // 15-digit form, not the binary value
  EXPECT_EQ(Format(Variant(-0.4), "0"), "-0");
  EXPECT_EQ(Format(Variant(-0.4), "#"), "-");
  EXPECT_EQ(Format(Variant::CurrencyFromScaled(INT64_MAX), "#,##0.0000"),
            "922,337,203,685,477.5807");
  EXPECT_EQ(Format(Variant(INT64_MIN), "0"), "-9223372036854775808");
  EXPECT_EQ(Format(Variant(1e20), "0"), "100000000000000000000");
  EXPECT_EQ(Format(Variant(1.0f / 3.0f), "0.0000000000"), "0.3333333000");  // 7 digits
  EXPECT_EQ(Format(Variant(uint8_t{200}), "0.0"), "200.0");
  EXPECT_EQ(Format(Variant(" $1,234.5 "), "0.00"), "1234.50");
}

TEST(FormatNumbers, FieldsGroupingAndScaling) {
  EXPECT_EQ(Format(Variant(1234567.891), "#,##0.00"), "1,234,567.89");
  EXPECT_EQ(Format(Variant(-1234567), "#,##0"), "-1,234,567");
  EXPECT_EQ(Format(Variant(12), "#,##0"), "12");
  EXPECT_EQ(Format(Variant(1234567), "0,"), "1235");
  EXPECT_EQ(Format(Variant(1234567), "0.0,,"), "1234567.0,,");  // after the point: text
  EXPECT_EQ(Format(Variant(1234567), "0,,.0"), "1.2");
  EXPECT_EQ(Format(Variant(7), ",0"), ",7");  // no placeholder before: a literal
  EXPECT_EQ(Format(Variant(0.5), "0%"), "50%");
  EXPECT_EQ(Format(Variant(5), "0\"%\""), "5%");
  EXPECT_EQ(Format(Variant(42), "(000) 000"), "(000) 042");
  EXPECT_EQ(Format(Variant(-12.5), ".00"), "-12.50");  // no integer placeholder: digits stay
  EXPECT_EQ(Format(Variant(-42), "$ #,##0.00 \"pcs\""), "$ -42.00 pcs");
}

TEST(FormatNumbers, Scientific) {
  EXPECT_EQ(Format(Variant(9.99), "0.0E+0"), "1.0E+1");  // rounding carry renormalises
  EXPECT_EQ(Format(Variant(0.000123), "0.00E+00"), "1.23E-04");
  EXPECT_EQ(Format(Variant(-123456), "0.00e-0"), "-1.23e5");
  EXPECT_EQ(Format(Variant(1e100), "0E+0"), "1E+100");
  EXPECT_EQ(Format(Variant(0.996), ".00E+0"), ".10E+1");
  EXPECT_EQ(Format(Variant(12345), "##0.0E+0"), "123.5E+2");
}

TEST(FormatNumbers, ValuesThatAreNotPlainNumbers) {
  EXPECT_EQ(Format(Variant(true), "0.0"), "-1.0");
  EXPECT_EQ(Format(Variant(false), "Yes/No"), "No");
  EXPECT_EQ(Format(Variant(-0.5), "On/Off"), "On");
  EXPECT_EQ(Format(Variant::Date(36526.25), "0.00"), "36526.25");  // a date's serial
  EXPECT_EQ(Format(Variant("n/a"), "Standard"), "n/a");
  EXPECT_EQ(Format(Variant(std::numeric_limits<double>::infinity()), "0.00"), "1.#INF");
  EXPECT_EQ(Format(Variant::Null(), "Standard"), "");
  EXPECT_EQ(Format(Variant(int16_t{-12}), "General Number"), "-12");
  EXPECT_EQ(Format(Variant(1e20), "general number"), "1E+20");
  EXPECT_EQ(Format(Variant::CurrencyFromScaled(-50000), "Currency"), "($5.00)");
}

TEST(FormatDates, TokensAndClock) {
  const Variant t = Date(2024, 3, 9, 0, 5, 7);
  EXPECT_EQ(Format(t, "dddd d mmmm yyyy, q y"), "Saturday 9 March 2024, 1 69");
  EXPECT_EQ(Format(t, "h:nn:ss AM/PM"), "12:05:07 AM");
  EXPECT_EQ(Format(t, "hh:mm a/P"), "12:05 a");
  EXPECT_EQ(Format(Date(2024, 3, 9, 13), "h Am/pM"), "1 pm");  // case of the letter written
  EXPECT_EQ(Format(t, "H:MM"), "0:05");
  EXPECT_EQ(Format(t, "ttttt"), "12:05:07 AM");
  EXPECT_EQ(Format(t, "dddddd"), "Saturday, March 09, 2024");
  EXPECT_EQ(Format(t, "ddddd \\a\\t t"), "3/9/2024 at t");
  EXPECT_EQ(Format(t, "mmmmm"), "March3");
  EXPECT_EQ(Format(Date(2024, 3, 9, 23, 59, 59), "General Date"), "3/9/2024 11:59:59 PM");
}

TEST(FormatDates, MinutesFollowAnHour) {
  const Variant t = Date(2001, 2, 3, 4, 5, 6);
  EXPECT_EQ(Format(t, "h \"h\" m"), "4 h 5");
  EXPECT_EQ(Format(t, "hh:ss:mm"), "04:06:05");
  EXPECT_EQ(Format(t, "m/d h:m m"), "2/3 4:5 2");
  EXPECT_EQ(Format(t, "hh d mm"), "04 3 02");
  EXPECT_EQ(Format(t, "h mmm m"), "4 Feb 5");  // mmm is always the month
}

TEST(FormatDates, CalendarEdges) {
  EXPECT_EQ(Format(Date(2005, 1, 1), "ww w"), "1 7");  // a Saturday: week 1 has one day
  EXPECT_EQ(Format(Date(2005, 1, 2), "ww"), "2");
  EXPECT_EQ(Format(Date(2000, 2, 29), "y"), "60");
  EXPECT_EQ(Format(Date(9999, 12, 31, 23, 59, 59), "yyyy-mm-dd hh:nn:ss"), "9999-12-31 23:59:59");
  EXPECT_EQ(Format(Date(100, 1, 1), "yyyy yy"), "100 00");
  EXPECT_EQ(Format(Variant::Date(-1.25), "m/d/yyyy h:nn"), "12/29/1899 6:00");
  EXPECT_EQ(Format(Variant::Date(0.999999999), "c"), "12/31/1899");  // rounds to midnight
  EXPECT_EQ(Format(Variant::Date(1e9), "yyyy"), "1000000000");       // out of range: the number
  EXPECT_EQ(Format(Variant::Date(0.5), "General Date"), "12:00:00 PM");
}

TEST(FormatDates, ValuesReadAsDates) {
  EXPECT_EQ(Format(Variant("2008-09-06 14:30"), "d mmm yy h:nn"), "6 Sep 08 14:30");
  EXPECT_EQ(Format(Variant("6-Jan-98"), "Short Date"), "1/6/1998");
  EXPECT_EQ(Format(Variant("not a date"), "Long Date"), "not a date");
  EXPECT_EQ(Format(Variant(1), "yyyy-mm-dd"), "1899-12-31");
  EXPECT_EQ(Format(Variant::Null(), "yyyy;;;\\-"), "-");
  EXPECT_EQ(Format(Variant::Null(), "General Date"), "");
}

TEST(FormatStrings, PlaceholdersCaseAndPadding) {
  EXPECT_EQ(Format(Variant("5551234"), "(@@@) @@@-@@@@"), "(   ) 555-1234");
  EXPECT_EQ(Format(Variant("abc"), "!@@@@@"), "abc  ");
  EXPECT_EQ(Format(Variant("abc"), "!&&&&&"), "abc");
  EXPECT_EQ(Format(Variant("Straße"), ">@"), "STRAßE");
  EXPECT_EQ(Format(Variant("ΣΟΦΙΑ"), "<"), "σοφια");
  EXPECT_EQ(Format(Variant("éa"), "@@@"), " éa");  // characters, not bytes
  EXPECT_EQ(Format(Variant(""), "@"), "");
  EXPECT_EQ(Format(Variant(""), "@;\\-"), "-");
  EXPECT_EQ(Format(Variant(), "@;empty"), "empty");
  EXPECT_EQ(Format(Variant(2.5), "\\[@\\]"), "[2].5");  // leftovers go at the very end
}

TEST(FormatPatterns, KindFromTheFirstDecisiveToken) {
  EXPECT_EQ(Format(Variant(5), "\"pos\""), "pos");
  EXPECT_EQ(Format(Variant(-5), "\"pos\""), "-pos");
  EXPECT_EQ(Format(Variant("txt"), "\"pos\""), "postxt");
  EXPECT_EQ(Format(Variant(3), "0 @ hh"), "3 @ hh");  // numeric: @ and hh are text
  EXPECT_EQ(Format(Variant(3), "Total 0"), "Total 3");
  // 'C' is a date token and comes first, so this is a date format (c, n are tokens)
  EXPECT_EQ(Format(Variant(3), "Count 0"), "1/2/1900ou0t 0");
  EXPECT_EQ(Format(Variant(1), "0;;;None"), "1");
}

TEST(FormatPatterns, MalformedInputGivesLiterals) {
  EXPECT_EQ(Format(Variant(5), "0\"unterminated"), "5unterminated");
  EXPECT_EQ(Format(Variant(5), "0\\"), "5");
  EXPECT_EQ(Format(Variant(5), ";;;;;"), "");  // an empty first section shows nothing
  EXPECT_EQ(Format(Variant(5), "E+"), "E+");
  EXPECT_EQ(Format(Variant(5), "\xff\xfe"), "\xff\xfe");
  EXPECT_EQ(Format(Variant("x"), "@\\\xc3"), "x\xc3");
  EXPECT_EQ(Format(Variant(12), "0.0.0"), "12.0.0");
}

}  // namespace
