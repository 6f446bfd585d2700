// The runtime's conversion functions: rounding, range, errors and reading text.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <quilta/error.hpp>
#include <quilta/variant.hpp>
#include <string>

namespace {

using namespace quilta;

template <class F>
int32_t ErrorOf(F&& f) {
  try {
    f();
  } catch (const Error& e) {
    return e.Code();
  }
  return 0;
}

#define EXPECT_RAISES(code, expr) EXPECT_EQ(ErrorOf([&] { (void)(expr); }), code) << #expr

TEST(ConvertIntegers, RoundHalfToEven) {
  EXPECT_EQ(CLng(Variant(2.5)), 2);
  EXPECT_EQ(CLng(Variant(3.5)), 4);
  EXPECT_EQ(CLng(Variant(-2.5)), -2);
  EXPECT_EQ(CLng(Variant(2.5000001)), 3);
  EXPECT_EQ(CInt(Variant(-2.5)), -2);
  EXPECT_EQ(CInt(Variant(1.5f)), 2);
  EXPECT_EQ(CByte(Variant(254.5)), 254);
  EXPECT_EQ(CByte(Variant(-0.5)), 0);
  EXPECT_EQ(CLng(Variant::CurrencyFromScaled(25000)), 2);  // 2.5
  EXPECT_EQ(CLng(Variant::CurrencyFromScaled(-35000)), -4);
  EXPECT_EQ(CLng(Variant::CurrencyFromScaled(15001)), 2);
  EXPECT_EQ(CLng(Variant::Date(36526.75)), 36527);
  EXPECT_EQ(CLng(Variant(true)), -1);
  EXPECT_EQ(CInt(Variant()), 0);
}

TEST(ConvertIntegers, RangeAndErrors) {
  EXPECT_EQ(CLng(Variant(2147483647.4)), INT32_MAX);
  EXPECT_EQ(CLng(Variant(-2147483648.5)), INT32_MIN);
  EXPECT_RAISES(vbErrOverflow, CLng(Variant(2147483647.5)));
  EXPECT_RAISES(vbErrOverflow, CLng(Variant(int64_t{1} << 40)));
  EXPECT_RAISES(vbErrOverflow, CInt(Variant(32767.5)));
  EXPECT_EQ(CInt(Variant(-32768.5)), INT16_MIN);
  EXPECT_RAISES(vbErrOverflow, CByte(Variant(-1)));
  EXPECT_RAISES(vbErrOverflow, CByte(Variant(255.5)));
  EXPECT_RAISES(vbErrOverflow, CLng(Variant(std::numeric_limits<double>::quiet_NaN())));
  EXPECT_RAISES(vbErrOverflow, CLng(Variant(std::numeric_limits<double>::infinity())));
  EXPECT_RAISES(vbErrInvalidUseOfNull, CLng(Variant::Null()));
  EXPECT_RAISES(vbErrTypeMismatch, CLng(Variant("12abc")));
  EXPECT_RAISES(vbErrTypeMismatch, CLng(Variant("")));
  EXPECT_RAISES(vbErrTypeMismatch, CLng(Variant::Missing()));
  EXPECT_RAISES(vbErrTypeMismatch, CInt(Variant::Array1D(0, 1)));
  EXPECT_RAISES(vbErrTypeMismatch, CLng(Variant::Object(std::make_shared<int>(1))));
}

TEST(ConvertText, NumbersInTheUsLocale) {
  EXPECT_EQ(CLng(Variant("  -1,234  ")), -1234);
  EXPECT_EQ(CDbl(Variant("+1.5e3")), 1500.0);
  EXPECT_EQ(CDbl(Variant(".25")), 0.25);
  EXPECT_EQ(CDbl(Variant("$12.50")), 12.5);
  EXPECT_EQ(CDbl(Variant("-$3")), -3.0);
  EXPECT_EQ(CDbl(Variant("(42)")), -42.0);
  EXPECT_EQ(CDbl(Variant("7-")), -7.0);
  EXPECT_EQ(CDbl(Variant("1D2")), 100.0);
  EXPECT_EQ(CLng(Variant("&H1F")), 31);
  EXPECT_EQ(CLng(Variant("&hFFFF")), -1);  // 16-bit pattern: an Integer
  EXPECT_EQ(CLng(Variant("&H10000")), 65536);
  EXPECT_EQ(CLng(Variant("&HFFFFFFFF")), -1);
  EXPECT_EQ(CLng(Variant("&O17")), 15);
  EXPECT_EQ(CDbl(Variant("0.1")), 0.1);
  EXPECT_RAISES(vbErrTypeMismatch, CDbl(Variant("1.2.3")));
  EXPECT_RAISES(vbErrTypeMismatch, CDbl(Variant(",5")));
  EXPECT_RAISES(vbErrTypeMismatch, CDbl(Variant("1e")));
  EXPECT_RAISES(vbErrTypeMismatch, CDbl(Variant("&H")));
  EXPECT_RAISES(vbErrTypeMismatch, CDbl(Variant("&HG")));
  EXPECT_RAISES(vbErrTypeMismatch, CDbl(Variant("(-1)")));
  EXPECT_RAISES(vbErrOverflow, CDbl(Variant("1e999")));
  EXPECT_EQ(CDbl(Variant("1e-999")), 0.0);
}

TEST(ConvertText, PlainConversionOfNumbers) {
  EXPECT_EQ(CStr(Variant(-0.25)), "-0.25");
  EXPECT_EQ(CStr(Variant(-0.0)), "0");
  EXPECT_EQ(CStr(Variant(100.0)), "100");
  EXPECT_EQ(CStr(Variant(1.0 / 3.0)), "0.333333333333333");
  EXPECT_EQ(CStr(Variant(999999999999999.0)), "999999999999999");
  EXPECT_EQ(CStr(Variant(9999999999999999.0)), "1E+16");
  EXPECT_EQ(CStr(Variant(-1.234e16)), "-1.234E+16");
  EXPECT_EQ(CStr(Variant(1e-5)), "0.00001");
  EXPECT_EQ(CStr(Variant(1.5e-300)), "1.5E-300");
  EXPECT_EQ(CStr(Variant(0.0001)), "0.0001");
  EXPECT_EQ(CStr(Variant(3.14159274f)), "3.141593");
  EXPECT_EQ(CStr(Variant(1e7f)), "1E+07");
  EXPECT_EQ(CStr(Variant::CurrencyFromScaled(9)), "0.0009");
  EXPECT_EQ(CStr(Variant::CurrencyFromScaled(INT64_MIN)), "-922337203685477.5808");
  EXPECT_EQ(CStr(Variant(int16_t{-32768})), "-32768");
  EXPECT_EQ(CStr(Variant(uint8_t{255})), "255");
  EXPECT_EQ(CStr(Variant(false)), "False");
  EXPECT_EQ(CStr(Variant()), "");
  EXPECT_EQ(CStr(Variant(std::numeric_limits<double>::infinity())), "1.#INF");
  EXPECT_RAISES(vbErrInvalidUseOfNull, CStr(Variant::Null()));
  EXPECT_RAISES(vbErrTypeMismatch, CStr(Variant::Missing()));
}

TEST(ConvertFloating, DoubleSingleCurrency) {
  EXPECT_EQ(CDbl(Variant::CurrencyFromScaled(12345)), 1.2345);
  EXPECT_EQ(CDbl(Variant::Date(1.5)), 1.5);
  EXPECT_EQ(CDbl(Variant()), 0.0);
  EXPECT_EQ(CSng(Variant(0.1)), 0.1f);
  EXPECT_RAISES(vbErrOverflow, CSng(Variant(1e39)));
  EXPECT_EQ(CCur(Variant(1.23456)).CurrencyScaled(), 12346);
  EXPECT_EQ(CCur(Variant(0.03125)).CurrencyScaled(), 312);  // exact halves go to even
  EXPECT_EQ(CCur(Variant(0.09375)).CurrencyScaled(), 938);
  EXPECT_EQ(CCur(Variant("922337203685477.5807")).CurrencyScaled(), INT64_MAX);
  EXPECT_EQ(CCur(Variant("-922337203685477.5808")).CurrencyScaled(), INT64_MIN);
  EXPECT_EQ(CCur(Variant("0.12345")).CurrencyScaled(), 1234);
  EXPECT_EQ(CCur(Variant("0.12355")).CurrencyScaled(), 1236);
  EXPECT_EQ(CCur(Variant(-7)).Type(), vbCurrency);
  EXPECT_RAISES(vbErrOverflow, CCur(Variant("922337203685477.5808")));
  EXPECT_RAISES(vbErrOverflow, CCur(Variant(1e19)));
  EXPECT_RAISES(vbErrOverflow, CCur(Variant(int64_t{1} << 62)));
}

TEST(ConvertBoolean, WordsAndNumbers) {
  EXPECT_TRUE(CBool(Variant(" TRUE ")));
  EXPECT_FALSE(CBool(Variant("false")));
  EXPECT_TRUE(CBool(Variant("-0.5")));
  EXPECT_FALSE(CBool(Variant("0")));
  EXPECT_TRUE(CBool(Variant(0.001)));
  EXPECT_FALSE(CBool(Variant()));
  EXPECT_FALSE(CBool(Variant::CurrencyFromScaled(0)));
  EXPECT_RAISES(vbErrTypeMismatch, CBool(Variant("yes")));
  EXPECT_RAISES(vbErrInvalidUseOfNull, CBool(Variant::Null()));
}

double Serial(const char* text) { return CDate(Variant(text)).DateValue(); }
double Ymd(int y, int m, int d) { return DateSerial(y, m, d).DateValue(); }
double Hms(int h, int m, int s) { return TimeSerial(h, m, s).DateValue(); }

TEST(ConvertDates, ReadingDateAndTimeText) {
  EXPECT_EQ(Serial("1/6/1998"), Ymd(1998, 1, 6));
  EXPECT_EQ(Serial("1/6/98"), Ymd(1998, 1, 6));
  EXPECT_EQ(Serial("1/6/29"), Ymd(2029, 1, 6));
  EXPECT_EQ(Serial("1/6/30"), Ymd(1930, 1, 6));
  EXPECT_EQ(Serial("January 6, 1998"), Ymd(1998, 1, 6));
  EXPECT_EQ(Serial("6-Jan-98"), Ymd(1998, 1, 6));
  EXPECT_EQ(Serial("Tuesday, Jan 6 1998"), Ymd(1998, 1, 6));
  EXPECT_EQ(Serial("1998-01-06"), Ymd(1998, 1, 6));
  EXPECT_EQ(Serial("13/1/2000"), Ymd(2000, 1, 13));  // day written first
  EXPECT_EQ(Serial("5:08 PM"), Hms(17, 8, 0));
  EXPECT_EQ(Serial("12:30 am"), Hms(0, 30, 0));
  EXPECT_EQ(Serial("17:08:06"), Hms(17, 8, 6));
  EXPECT_EQ(Serial("5 PM"), Hms(17, 0, 0));
  EXPECT_EQ(Serial("1/6/1998 5:08:06 PM"), Ymd(1998, 1, 6) + Hms(17, 8, 6));
  EXPECT_EQ(Serial("2000-01-01T12:00:00"), 36526.5);
  EXPECT_EQ(Serial("1/1/1800 6:00"), Ymd(1800, 1, 1) - 0.25);  // time subtracts before 1900
  EXPECT_EQ(Serial("36526.5"), 36526.5);                       // a number is a serial
  EXPECT_EQ(CDate(Variant(2)).Type(), vbDate);
  EXPECT_EQ(CDate(Variant(true)).DateValue(), -1.0);
  for (const char* bad : {"2/30/2000", "13/13/2000", "25:00", "1:60", "13 PM", "Smarch 3, 2000",
                          "1/2/3/4", "5 5 5 5", "12:", "1/1/99999", "Monday"})
    EXPECT_RAISES(vbErrTypeMismatch, CDate(Variant(bad))) << bad;
  EXPECT_RAISES(vbErrOverflow, CDate(Variant(3e6)));
  EXPECT_RAISES(vbErrOverflow, CDate(Variant(-657435.0)));
  EXPECT_RAISES(vbErrInvalidUseOfNull, CDate(Variant::Null()));
}

TEST(ConvertDates, SerialArithmeticAndDisplay) {
  EXPECT_EQ(Ymd(1899, 12, 30), 0.0);
  EXPECT_EQ(Ymd(2000, 1, 1), 36526.0);
  EXPECT_EQ(Ymd(100, 1, 1), -657434.0);
  EXPECT_EQ(Ymd(9999, 12, 31), 2958465.0);
  EXPECT_EQ(Ymd(1998, 13, 1), Ymd(1999, 1, 1));
  EXPECT_EQ(Ymd(2000, 3, 0), Ymd(2000, 2, 29));
  EXPECT_EQ(Ymd(2000, 0, 1), Ymd(1999, 12, 1));
  EXPECT_EQ(Ymd(98, 1, 1), Ymd(1998, 1, 1));
  EXPECT_EQ(Hms(25, 0, 0), 1.0 + 1.0 / 24);
  EXPECT_RAISES(vbErrInvalidCall, DateSerial(10000, 1, 1));
  EXPECT_EQ(CStr(Variant::Date(-49192.24)), "4/24/1765 5:45:36 AM");
  EXPECT_EQ(CStr(Variant::Date(-0.5)), "12:00:00 PM");
  EXPECT_EQ(CStr(Variant::Date(1.0 / 86400 / 3)), "12:00:00 AM");  // below half a second
  EXPECT_EQ(CStr(Variant::Date(2958465.99999999)), "12/31/9999 11:59:59 PM");
}

}  // namespace
