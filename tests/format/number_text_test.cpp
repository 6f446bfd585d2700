// Numbers written without a format: where small numbers turn scientific, and how an exact half
// at the last significant digit rounds, in every path that turns a binary number into digits.
#include <gtest/gtest.h>

#include <cmath>
#include <quilta/quilta.hpp>
#include <quilta/variant.hpp>
#include <string>

namespace {

using quilta::CStr;
using quilta::Format;
using quilta::Variant;

struct Case {
  Variant value;
  const char* text;
};

void ExpectPlain(std::initializer_list<Case> cases) {
  for (const Case& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(CStr(c.value), c.text);
    EXPECT_EQ(Format(c.value, ""), c.text);
    EXPECT_EQ(Format(c.value, "General Number"), c.text);
    EXPECT_EQ(Format(c.value, "@"), c.text);
  }
}

TEST(PlainNumbers, SmallDoublesStayPlainUpToFifteenPlaces) {
  ExpectPlain({{1e-5, "0.00001"},
               {0.000056789, "0.000056789"},
               {0.000000000056789, "0.000000000056789"},
               {5.6789e-12, "5.6789E-12"},
               {1e-15, "0.000000000000001"},  // the smallest single digit written plainly
               {1e-16, "1E-16"},
               {-1e-15, "-0.000000000000001"},
               {-1e-16, "-1E-16"},
               {1.5e-14, "0.000000000000015"},
               {-1.5e-15, "-1.5E-15"},  // two digits: the sixteenth place is needed
               {0.123456789012345, "0.123456789012345"},
               {0.0123456789012345, "1.23456789012345E-02"},
               {1.5e-300, "1.5E-300"}});
}

TEST(PlainNumbers, RoundingUpCanCrossBackIntoPlainForm) {
  ExpectPlain({{9.99999999999999999e-6, "0.00001"},
               {std::nextafter(1e-15, 0.0), "0.000000000000001"},
               {-std::nextafter(1e-15, 0.0), "-0.000000000000001"},
               {9.99999999999996e-16, "9.99999999999996E-16"}});
}

TEST(PlainNumbers, SmallSinglesStayPlainUpToSevenPlaces) {
  ExpectPlain({{0.00005f, "0.00005"},
               {0.000005f, "0.000005"},
               {1e-7f, "0.0000001"},
               {1e-8f, "1E-08"},
               {-1e-7f, "-0.0000001"},
               {-1e-8f, "-1E-08"},
               {1.5e-6f, "0.0000015"},
               {1.5e-7f, "1.5E-07"},
               {9.9999999e-8f, "0.0000001"},
               {std::nextafter(1e-7f, 0.0f), "9.999999E-08"}});
}

TEST(PlainNumbers, ExactHalvesRoundAwayFromZero) {
  ExpectPlain({{654322.25f, "654322.3"},
               {-654322.25f, "-654322.3"},
               {1048576.5f, "1048577"},
               {std::ldexp(1.0f, -11), "4.882813E-04"},  // 0.00048828125
               {200000000000000.5, "200000000000001"},
               {-200000000000000.5, "-200000000000001"},
               {10000000000000.25, "10000000000000.3"},
               {std::ldexp(1.0, -22), "2.38418579101563E-07"},  // 2.384185791015625E-07
               {-std::ldexp(1.0, -22), "-2.38418579101563E-07"},
               {1000000000000005.0, "1.00000000000001E+15"},
               {10000000000000050.0, "1.00000000000001E+16"},
               {999999999999999.5, "1E+15"}});
  // Just off the half the nearest neighbour wins as before.
  ExpectPlain({{654322.2f, "654322.2"}, {200000000000000.45, "200000000000000"}});
}

TEST(PlainNumbers, OneRoundingRuleInFormatsAndConversions) {
  EXPECT_EQ(Format(Variant(200000000000000.5), "0"), "200000000000001");
  EXPECT_EQ(Format(Variant(-200000000000000.5), "#,##0"), "-200,000,000,000,001");
  EXPECT_EQ(Format(Variant(654322.25f), "0.0"), "654322.3");
  EXPECT_EQ(Format(Variant(654322.25f), "Currency"), "$654,322.30");
  EXPECT_EQ(Format(Variant(std::ldexp(1.0, -22)), "0.00000000000000E+00"), "2.38418579101563E-07");
  EXPECT_EQ(Format(Variant(std::ldexp(1.0f, -11)), "0.000000E+00"), "4.882813E-04");
  EXPECT_EQ(Format(Variant(10000000000000.25), "Standard"), "10,000,000,000,000.30");
  EXPECT_EQ(Format(Variant::CurrencyFromScaled(12345), "0.000"), "1.235");
  EXPECT_EQ(Format(Variant("200000000000000.5"), "0"), "200000000000001");
  EXPECT_EQ(CStr(quilta::CDbl(Variant("200000000000000.5"))), "200000000000001");
  EXPECT_EQ(CStr(quilta::CSng(Variant("654322.25"))), "654322.3");
  EXPECT_EQ(CStr(quilta::CSng(Variant("0.0000001"))), "0.0000001");
}

TEST(PlainNumbers, CellTextWithoutAFormat) {
  quilta::Quilta grid;
  grid.AddCol();
  grid.AddRow({.lCount = 3});
  grid.SetCellValue(1, 1, Variant(654322.25f));
  grid.SetCellValue(2, 1, Variant(-0.00001));
  grid.SetCellValue(3, 1, Variant(5.6789e-12));
  EXPECT_EQ(grid.CellText(1, 1), "654322.3");
  EXPECT_EQ(grid.CellText(2, 1), "-0.00001");
  EXPECT_EQ(grid.CellText(3, 1), "5.6789E-12");
}

}  // namespace
