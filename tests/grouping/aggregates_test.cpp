// Aggregates of group rows: every function over each kind of value, the runtime's arithmetic, and
// results kept right as cells change and rows come and go, checked against a fresh grouping.
#include <gtest/gtest.h>

#include <random>

#include "grouping_support.hpp"

namespace quilta::testing {
namespace {

// One group holding every sale: the aggregates see all six rows.
class Aggregates : public ::testing::Test {
 protected:
  void SetUp() override {
    SalesGrid(g);
    g.AddCol({.sKey = "all", .sHeader = "All"});
    for (int32_t r = 1; r <= g.RowCount(); ++r) g.SetCellValue(r, "all", 1);
  }
  Variant Result(const Variant& col, EAggrFuncs func) {
    g.AggrFuncs().Clear();
    g.AggrFuncs().AddItem(col, func);
    g.Group("all");
    return g.GroupRowAggrValue(1, 1);
  }
  Quilta g;
};

TEST_F(Aggregates, LongValuesSkipNullAndSumAsLong) {
  EXPECT_EQ(Result("units", quAggrCount), Variant(5));
  EXPECT_EQ(Result("units", quAggrSum), Variant(18));
  EXPECT_EQ(Result("units", quAggrAvg), Variant(3.6));
  EXPECT_EQ(Result("units", quAggrMin), Variant(1));
  EXPECT_EQ(Result("units", quAggrMax), Variant(7));
  EXPECT_EQ(Result("units", quAggrCountDistinct), Variant(5));
}

TEST_F(Aggregates, DoubleValuesSkipEmpty) {
  EXPECT_EQ(Result("price", quAggrCount), Variant(5));
  EXPECT_EQ(Result("price", quAggrSum), Variant(1.5 + 2.25 + 0.1 + 0.2 + 0.3));
  EXPECT_EQ(Result("price", quAggrMin), Variant(0.1));
  EXPECT_EQ(Result("price", quAggrMax), Variant(2.25));
}

TEST_F(Aggregates, CurrencyStaysExact) {
  EXPECT_EQ(Result("amount", quAggrSum), Variant::CurrencyFromScaled(346900));
  EXPECT_EQ(Result("amount", quAggrAvg), Variant::CurrencyFromScaled(69380));
  EXPECT_EQ(Result("amount", quAggrMin), Variant::Currency(0.05));
  g.SetCellValue("s6", "amount", Variant::Currency(0.01));
  EXPECT_EQ(g.GroupRowAggrValue(1, 1), Variant::Currency(0.01));
  g.AggrFuncs().SetAggrFunc(1, quAggrAvg);
  EXPECT_EQ(g.GroupRowAggrValue(1, 1), Variant::CurrencyFromScaled(57833));  // 34.70 / 6, to even
}

TEST_F(Aggregates, DatesAverageToADate) {
  Variant avg = Result("day", quAggrAvg);
  EXPECT_EQ(avg.Type(), vbDate);
  EXPECT_DOUBLE_EQ(avg.DateValue(), (45000 + 45031 + 45001 + 45032 + 45060 + 45002) / 6.0);
  EXPECT_EQ(Result("day", quAggrMax), Variant::Date(45060));
  EXPECT_EQ(Result("day", quAggrFirst).Type(), vbDate);
}

TEST_F(Aggregates, TextsCompareIgnoringCaseAndSumOnlyWhenTheyConvert) {
  EXPECT_EQ(Result("region", quAggrCountDistinct), Variant(3));  // North, South, East
  EXPECT_EQ(Result("region", quAggrMin), Variant("East"));
  EXPECT_EQ(Result("region", quAggrCount), Variant(6));
  try {
    Result("region", quAggrSum);
    ADD_FAILURE() << "a sum of names is a type mismatch";
  } catch (const Error& e) {
    EXPECT_EQ(e.Code(), vbErrTypeMismatch);
  }
  EXPECT_EQ(g.GroupRowAggrText(1, 1), "#Error");
  for (int32_t r = 2; r <= g.RowCount(); ++r) g.SetCellValue(r, "region", std::to_string(r));
  EXPECT_EQ(g.GroupRowAggrValue(1, 1), Variant(2.0 + 3 + 4 + 5 + 6 + 7));
  g.SetColCellsProp("region", quPropCellValue, "2", 2);  // every data row, in one call
  EXPECT_EQ(g.GroupRowAggrValue(1, 1), Variant(12.0));
  EXPECT_EQ(g.CellText(1, g.RowTextCol()), "All: 1 (6), Sum of Region: 12");
}

TEST_F(Aggregates, NullsOnlyGiveNullAndACountOfZero) {
  for (int32_t r = 1; r <= g.RowCount(); ++r) g.SetCellValue(r, "units", Variant::Null());
  EXPECT_TRUE(Result("units", quAggrSum).IsNull());
  EXPECT_TRUE(Result("units", quAggrMin).IsNull());
  EXPECT_TRUE(Result("units", quAggrFirst).IsNull());
  EXPECT_EQ(Result("units", quAggrCount), Variant(0));
  EXPECT_EQ(Result("units", quAggrCountDistinct), Variant(0));
  EXPECT_EQ(g.GroupRowAggrText(1, 1), "0");
}

TEST_F(Aggregates, IntegerSumsWidenAsTheyOverflow) {
  g.SetCellValue(1, "units", int16_t{30000});
  g.SetCellValue(2, "units", int16_t{30000});
  for (int32_t r = 3; r <= 6; ++r) g.SetCellValue(r, "units", Variant::Null());
  EXPECT_EQ(Result("units", quAggrSum), Variant(60000));
  g.SetCellValue("s1", "units", 2000000000);
  g.SetCellValue("s2", "units", 2000000000);
  EXPECT_EQ(g.GroupRowAggrValue(1, 1), Variant(4e9));
}

TEST_F(Aggregates, FirstAndLastFollowTheRowOrderInsideTheGroup) {
  g.AggrFuncs().AddItem("units", quAggrFirst);
  g.AggrFuncs().AddItem("units", quAggrLast);
  g.Group("all");
  g.Sort("day");  // s1 s3 s6 s2 s4 s5: s3 holds Null
  EXPECT_EQ(g.GroupRowAggrValue(1, 1), Variant(5));
  EXPECT_EQ(g.GroupRowAggrValue(1, 2), Variant(1));
  g.DoDefaultSort("day");
  EXPECT_EQ(g.GroupRowAggrValue(1, 1), Variant(1));
  EXPECT_EQ(g.GroupRowAggrValue(1, 2), Variant(5));
}

TEST_F(Aggregates, ResultsAreShownAfterTheGroupText) {
  g.AggrFuncs().AddItem("amount", quAggrSum, "#,##0.00");
  g.AggrFuncs().AddItem("units", quAggrMax);
  g.Group("region");
  EXPECT_EQ(g.CellText(1, g.RowTextCol()),
            "Region: East (1), Sum of Amount: 1.01, Max of Units: 7");
  EXPECT_EQ(g.GroupRowAggrText(1, 1), "1.01");
  ExpectError(quErrInvalidArgument, [&] { g.GroupRowAggrValue(1, 3); });
  ExpectError(quErrSubscriptOutOfRange, [&] { g.AggrFuncs().AddItem("nope"); });
  ExpectError(quErrInvalidArgument, [&] { g.AggrFuncs().SetAggrFunc(1, EAggrFuncs(8)); });
  EXPECT_EQ(g.AggrFuncs().Count(), 2);
}

TEST_F(Aggregates, AggregatesAndGroupsFollowTheirColumns) {
  g.AggrFuncs().AddItem("units", quAggrSum);
  g.AggrFuncs().AddItem("amount", quAggrMax);
  g.Group("region");
  g.AddCol({.sKey = "first", .vColBefore = 1});
  EXPECT_EQ(g.AggrFuncs().AggrCol(1), 3);
  EXPECT_EQ(g.GroupedBy().SortCol(1), 2);
  g.SetCellValue("s4", "units", 10);
  EXPECT_EQ(g.GroupRowAggrValue(1, 1), Variant(10));
  g.RemoveCol("units");
  EXPECT_EQ(g.AggrFuncs().Count(), 1);
  EXPECT_EQ(g.GroupRowAggrValue(1, 1), Variant::Currency(1.01));
  EXPECT_EQ(g.CellText(1, g.RowTextCol()), "Region: East (1), Max of Amount: 1.01");
  g.RemoveCol("region");  // the grouping ends with its column
  EXPECT_EQ(g.GroupedBy().ColCount(), 0);
  EXPECT_EQ(g.RowCount(), 6);
}

// Every aggregate of every group, read through the object model.
std::vector<std::string> AllResults(const Quilta& g) {
  std::vector<std::string> out;
  for (int32_t r = 1; r <= g.RowCount(); ++r) {
    if (!g.RowIsGroupRow(r)) continue;
    out.push_back(g.GroupRowText(r));
    for (int32_t i = 1; i <= g.AggrFuncs().Count(); ++i) {
      try {
        out.push_back(CStr(g.GroupRowAggrValue(r, i)) + "/" +
                      std::to_string(g.GroupRowAggrValue(r, i).Type()));
      } catch (const Error& e) {
        out.push_back("error " + std::to_string(e.Code()));
      }
    }
  }
  return out;
}

// Random edits of a two-level grouping: after each, the kept results equal those of grouping
// afresh (the rows stay where they are, so regrouping with sorting off rebuilds the same groups).
TEST(AggregatesKeptRight, RandomEditsMatchAFreshGrouping) {
  std::mt19937 rng(7);
  Quilta g;
  g.AddCol({.sKey = "a", .sHeader = "A"});
  g.AddCol({.sKey = "b", .sHeader = "B"});
  g.AddCol({.sKey = "v", .sHeader = "V"});
  auto value = [&]() -> Variant {
    switch (rng() % 6) {
      case 0:
        return Variant::Null();
      case 1:
        return Variant(static_cast<int32_t>(rng() % 50));
      case 2:
        return Variant(static_cast<double>(rng() % 1000) / 8);
      case 3:
        return Variant::CurrencyFromScaled(static_cast<int64_t>(rng() % 100000));
      case 4:
        return Variant(std::to_string(rng() % 9));
      default:
        return Variant();
    }
  };
  for (int32_t i = 0; i < 200; ++i) {
    int32_t r = g.AddRow();
    g.SetCellValue(r, "a", static_cast<int32_t>(rng() % 4));
    g.SetCellValue(r, "b", static_cast<int32_t>(rng() % 3));
    g.SetCellValue(r, "v", value());
  }
  for (EAggrFuncs f : {quAggrCount, quAggrSum, quAggrAvg, quAggrMin, quAggrMax, quAggrFirst,
                       quAggrLast, quAggrCountDistinct})
    g.AggrFuncs().AddItem("v", f);
  g.GroupObject().AddItem("a");
  g.GroupObject().AddItem("b");
  g.Group();
  g.SetAllowSorting(false);
  uint32_t op = 0;
  for (int step = 0; step < 300; ++step) {
    int32_t r = 1 + static_cast<int32_t>(rng() % static_cast<uint32_t>(g.RowCount()));
    op = rng() % 4;
    switch (op) {
      case 0:
      case 1:
        if (!g.RowIsGroupRow(r)) g.SetCellValue(r, "v", value());
        break;
      case 2:
        if (g.RowIsGroupRow(r) && g.RowLevel(r) == 1) {
          int32_t added = g.AddRow({.vRowParent = r});
          g.SetCellValue(added, "a", g.CellValue(r + 1, "a"));  // the values of its group
          g.SetCellValue(added, "b", g.CellValue(r + 1, "b"));
          g.SetCellValue(added, "v", value());
        }
        break;
      default:
        if (!g.RowIsGroupRow(r)) g.RemoveRow(r);
        break;
    }
    std::vector<std::string> kept = AllResults(g);
    g.Group();
    ASSERT_EQ(kept, AllResults(g)) << "after step " << step << " op " << op << " row " << r;
  }
}

}  // namespace
}  // namespace quilta::testing
