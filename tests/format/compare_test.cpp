// Variant comparison as sorting uses it.
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <quilta/variant.hpp>

namespace {

using namespace quilta;

TEST(Compare, NumbersAcrossTypes) {
  EXPECT_EQ(Compare(Variant(2), Variant(2.0)), VarCmpEq);
  EXPECT_EQ(Compare(Variant(int16_t{-1}), Variant(true)), VarCmpEq);
  EXPECT_EQ(Compare(Variant(false), Variant(uint8_t{0})), VarCmpEq);
  EXPECT_EQ(Compare(Variant(1.5), Variant(2)), VarCmpLt);
  EXPECT_EQ(Compare(Variant::Date(36526.5), Variant(36526)), VarCmpGt);
  EXPECT_EQ(Compare(Variant::Date(1), Variant::Date(2)), VarCmpLt);
  EXPECT_EQ(Compare(Variant::CurrencyFromScaled(15000), Variant(1.5)), VarCmpEq);
  EXPECT_EQ(Compare(Variant::CurrencyFromScaled(15000), Variant(int64_t{2})), VarCmpLt);
  EXPECT_EQ(Compare(Variant(int64_t{INT64_MAX}), Variant(int64_t{INT64_MAX - 1})), VarCmpGt);
  EXPECT_EQ(Compare(Variant(int64_t{(1LL << 53) + 1}), Variant(9007199254740992.0)), VarCmpGt);
}

TEST(Compare, PrecisionBetweenTypes) {
  // The Double is rounded to Single first, so 0.1f equals 0.1.
  EXPECT_EQ(Compare(Variant(0.1f), Variant(0.1)), VarCmpEq);
  EXPECT_EQ(Compare(Variant(0.1), Variant(0.1f)), VarCmpEq);
  EXPECT_EQ(Compare(Variant(0.1f), Variant(0.2)), VarCmpLt);
  // The Double becomes Currency (four decimals) first.
  EXPECT_EQ(Compare(Variant::CurrencyFromScaled(1), Variant(0.00012)), VarCmpEq);
  EXPECT_EQ(Compare(Variant(0.00016), Variant::CurrencyFromScaled(1)), VarCmpGt);
  EXPECT_EQ(Compare(Variant::CurrencyFromScaled(INT64_MAX), Variant(1e300)), VarCmpLt);
  EXPECT_EQ(Compare(Variant(1e39), Variant(1.0f)), VarCmpGt);
}

TEST(Compare, StringsEmptyAndNull) {
  EXPECT_EQ(Compare(Variant("abc"), Variant("ABC")), VarCmpGt);
  EXPECT_EQ(Compare(Variant("abc"), Variant("ABC"), vbTextCompare), VarCmpEq);
  EXPECT_EQ(Compare(Variant("Ärger"), Variant("ärger"), vbTextCompare), VarCmpEq);
  EXPECT_EQ(Compare(Variant("B"), Variant("a"), vbBinaryCompare), VarCmpLt);
  EXPECT_EQ(Compare(Variant("B"), Variant("a"), vbTextCompare), VarCmpGt);
  EXPECT_EQ(Compare(Variant(99), Variant("1")), VarCmpLt);  // a number is below a string
  EXPECT_EQ(Compare(Variant("1"), Variant(99)), VarCmpGt);
  EXPECT_EQ(Compare(Variant(), Variant(0)), VarCmpEq);
  EXPECT_EQ(Compare(Variant(), Variant(-0.5)), VarCmpGt);
  EXPECT_EQ(Compare(Variant(), Variant("")), VarCmpEq);
  EXPECT_EQ(Compare(Variant(), Variant("a")), VarCmpLt);
  EXPECT_EQ(Compare(Variant("a"), Variant()), VarCmpGt);
  EXPECT_EQ(Compare(Variant(), Variant()), VarCmpEq);
  EXPECT_EQ(Compare(Variant::Null(), Variant(1)), VarCmpNull);
  EXPECT_EQ(Compare(Variant(), Variant::Null()), VarCmpNull);
  EXPECT_EQ(Compare(Variant::Null(), Variant::Null()), VarCmpNull);
}

TEST(Compare, TotalOrderForSorting) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(Compare(Variant(nan), Variant(nan)), VarCmpEq);
  EXPECT_EQ(Compare(Variant(nan), Variant(-1e308)), VarCmpLt);
  EXPECT_EQ(Compare(Variant::Missing(), Variant("zzz")), VarCmpGt);  // values without order last
  EXPECT_EQ(Compare(Variant(1), Variant::Array1D(0, 1)), VarCmpLt);
  EXPECT_EQ(Compare(Variant::Missing(), Variant::Missing()), VarCmpEq);
}

}  // namespace
