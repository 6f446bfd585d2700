// Grouping the rows: group rows, levels, texts, custom group values, regrouping, ungrouping, and
// how sorting, header clicks and expanding behave in a grouped grid.
#include <gtest/gtest.h>

#include "grouping_support.hpp"

namespace quilta::testing {
namespace {

using Lines = std::vector<std::string>;

class Grouped : public ::testing::Test {
 protected:
  void SetUp() override {
    SalesGrid(g);
    g.SortObject().AddItem("day");  // a defined order inside each group
  }
  Quilta g;
};

TEST_F(Grouped, OneColumnAscendingAndDescending) {
  g.Group("region");
  EXPECT_EQ(Outline(g), (Lines{"0:Region: East (1)", "1 s4", "0:Region: North (3)", "1 s1", "1 s3",
                               "1 s6", "0:Region: south (2)", "1 s2", "1 s5"}));
  for (int32_t r : GroupRows(g)) {
    EXPECT_EQ(g.RowTreeButton(r), quRowTreeButtonVisible);
    EXPECT_TRUE(g.RowExpanded(r));
    EXPECT_EQ(g.GroupRowCol(r), 1);
    EXPECT_EQ(g.CellValue(r, g.RowTextCol()).StringView(), g.GroupRowText(r));
  }
  EXPECT_EQ(g.GroupRowValue(3).StringView(), "North");
  EXPECT_EQ(g.GroupRowDataCount(3), 3);
  EXPECT_EQ(g.RowParent(5), 3);
  EXPECT_EQ(g.GroupedBy().ColCount(), 1);
  EXPECT_EQ(g.SortObject().ColCount(), 2);  // the group criterion, then the sort criterion
  EXPECT_EQ(g.ColSortKey("region"), 1);
  EXPECT_EQ(g.ColSortKey("day"), 2);

  g.GroupObject().SetSortOrder(1, quSortDesc);
  g.Group();
  EXPECT_EQ(Outline(g), (Lines{"0:Region: south (2)", "1 s2", "1 s5", "0:Region: North (3)", "1 s1",
                               "1 s3", "1 s6", "0:Region: East (1)", "1 s4"}));
  EXPECT_EQ(g.SortObject().ColCount(), 2);  // the old group prefix was replaced, not stacked
}

TEST_F(Grouped, ThreeLevelsNestGroupsAndPutDataRowsBelowTheInnermost) {
  g.SetCellValue("s3", "units", 5);
  g.SetCellValue("s6", "units", 5);
  g.SetPrefixGroupValues(false);
  g.GroupObject().AddItem("region");
  g.GroupObject().AddItem("units", quSortDesc);
  g.GroupObject().AddItem("price");
  g.Group();
  EXPECT_EQ(Outline(g),
            (Lines{"0:East (1)", "1:7 (1)", "2: (1)", "3 s4", "0:North (3)", "1:5 (3)", "2:0.1 (1)",
                   "3 s3", "2:0.3 (1)", "3 s6", "2:1.5 (1)", "3 s1", "0:south (2)", "1:3 (1)",
                   "2:2.25 (1)", "3 s2", "1:1 (1)", "2:0.2 (1)", "3 s5"}));
  EXPECT_EQ(g.RowParent(8), 7);
  EXPECT_EQ(g.RowParent(7), 6);
  EXPECT_EQ(g.RowParent(6), 5);
}

TEST_F(Grouped, UngroupingLeavesTheSortedDataRowsAtTheirLevels) {
  g.Group("region");
  g.Group("units");  // regrouping removes the old group rows first
  EXPECT_EQ(GroupRows(g).size(), 6u);
  g.Ungroup();
  EXPECT_EQ(g.RowCount(), 6);
  Lines expected{"0 s3", "0 s5", "0 s6", "0 s2", "0 s1", "0 s4"};  // units: Null 1 2 3 5 7
  EXPECT_EQ(Outline(g), expected);
  EXPECT_EQ(g.GroupedBy().ColCount(), 0);
  g.Ungroup();  // nothing to do
  EXPECT_EQ(Outline(g), expected);
  g.Group("region");
  g.GroupObject().Clear();
  g.Group();  // an empty GroupObject ungroups
  EXPECT_EQ(g.RowCount(), 6);
}

TEST_F(Grouped, CollapsedGroupRowsHideTheirRowsAndExpandAsTreeNodes) {
  g.SetDefaultAutoGroupRowExpanded(false);
  g.Group(Variant("region"));
  for (int32_t r : GroupRows(g)) EXPECT_FALSE(g.RowExpanded(r));
  EXPECT_FALSE(g.RowVisibleAsChild(2));
  g.SetRowExpanded(1, true);
  EXPECT_TRUE(g.RowVisibleAsChild(2));
  EXPECT_FALSE(g.RowVisibleAsChild(4));
  g.ExpandAllRows();
  for (int32_t r = 1; r <= g.RowCount(); ++r) EXPECT_TRUE(g.RowVisibleAsChild(r));
  g.CollapseAllChildRows(3);
  EXPECT_FALSE(g.RowVisibleAsChild(4));
  EXPECT_TRUE(g.RowVisibleAsChild(8));
  g.Ungroup();
  for (int32_t r = 1; r <= g.RowCount(); ++r) EXPECT_TRUE(g.RowVisibleAsChild(r));
}

TEST_F(Grouped, GroupTextsUseThePrefixAndTheColumnFormat) {
  g.ColDefaultCell("price")->SetsFmtString("0.00");
  g.Group("price");
  EXPECT_EQ(g.GroupRowText(3), "Price: 0.10 (1)");
  g.SetPrefixGroupValues(false);
  EXPECT_EQ(g.GroupRowText(3), "0.10 (1)");
  EXPECT_EQ(g.CellText(3, g.RowTextCol()), "0.10 (1)");
}

TEST_F(Grouped, BadRequestsChangeNothing) {
  g.Group("region");
  Lines before = Outline(g);
  ExpectError(quErrSubscriptOutOfRange, [&] { g.Group("nope"); });
  g.GroupObject().SetSortCol(1, 42);
  ExpectError(quErrSubscriptOutOfRange, [&] { g.Group(); });
  ExpectError(quErrSubscriptOutOfRange, [&] { g.Group(g.RowTextCol()); });
  EXPECT_EQ(g.GroupObject().SortCol(1), 42);
  EXPECT_EQ(Outline(g), before);
  g.SetAllowGrouping(false);
  ExpectError(quErrIllegalOperation, [&] { g.Group("units"); });
  EXPECT_EQ(Outline(g), before);
  ExpectError(quErrInvalidArgument, [&] { g.GroupRowText(2); });  // a data row
  ExpectError(quErrSubscriptOutOfRange, [&] { g.GroupRowText(99); });
}

TEST_F(Grouped, WithoutAllowSortingRunsAsTheyStandAreGrouped) {
  g.SetAllowSorting(false);
  g.Group("region");
  EXPECT_EQ(Outline(g), (Lines{"0:Region: North (1)", "1 s1", "0:Region: south (1)", "1 s2",
                               "0:Region: North (1)", "1 s3", "0:Region: East (1)", "1 s4",
                               "0:Region: South (1)", "1 s5", "0:Region: north (1)", "1 s6"}));
}

// A month for each day: rows group by month, the text comes from the handler.
struct MonthGroups : QuiltaEvents {
  int calls = 0;
  void CustomGroupValue(int32_t, int32_t, Variant& value, std::string& text) override {
    ++calls;
    int32_t month = static_cast<int32_t>((value.DateValue() - 45000) / 30);
    value = month;
    text = "Month " + std::to_string(month);
  }
};

TEST_F(Grouped, CustomGroupValuesDecideGroupsAndTexts) {
  MonthGroups months;
  g.SetEventSink(&months);
  g.SetColSortType("day", quSortByValueCustomGroups);
  g.Sort("day");
  EXPECT_EQ(months.calls, 0) << "an ordinary sort compares plain values";
  g.Group("day");
  EXPECT_EQ(Outline(g), (Lines{"0:Day: Month 0 (3)", "1 s1", "1 s3", "1 s6", "0:Day: Month 1 (2)",
                               "1 s2", "1 s4", "0:Day: Month 2 (1)", "1 s5"}));
  EXPECT_EQ(g.GroupRowValue(5).LongValue(), 1);
  EXPECT_EQ(g.GroupObject().SortType(1), quSortByValueCustomGroups);
}

struct FailingGroups : QuiltaEvents {
  void CustomGroupValue(int32_t lRow, int32_t, Variant&, std::string&) override {
    if (lRow > 3) throw std::runtime_error("host failure");
  }
};

TEST_F(Grouped, AHandlerThatFailsLeavesTheGridUngrouped) {
  g.Group("region");
  FailingGroups failing;
  g.SetEventSink(&failing);
  g.SetColSortType("day", quSortByValueCustomGroups);
  EXPECT_THROW(g.Group("day"), std::runtime_error);
  EXPECT_EQ(g.RowCount(), 6);
  EXPECT_EQ(g.GroupedBy().ColCount(), 0);
  for (int32_t r = 1; r <= g.RowCount(); ++r) EXPECT_EQ(g.RowLevel(r), 0);
}

TEST_F(Grouped, SortingAGroupedGridSortsInsideEachGroup) {
  g.Group("region");
  g.Sort("units");
  EXPECT_EQ(Outline(g), (Lines{"0:Region: East (1)", "1 s4", "0:Region: North (3)", "1 s3", "1 s6",
                               "1 s1", "0:Region: south (2)", "1 s5", "1 s2"}));
  g.DoDefaultSort("units");  // a header click on a column that is not grouped flips its order
  EXPECT_EQ(Outline(g)[3], "1 s1");
  EXPECT_EQ(g.SortObject().SortCol(1), 1);  // the group criterion leads SortObject again
  g.Group();  // regrouping after a sort keeps the sort criteria after the group criteria
  EXPECT_EQ(Outline(g), (Lines{"0:Region: East (1)", "1 s4", "0:Region: North (3)", "1 s1", "1 s6",
                               "1 s3", "0:Region: south (2)", "1 s2", "1 s5"}));
}

TEST_F(Grouped, HeaderClickOnAGroupedColumnReversesTheGroups) {
  g.Group("region");
  Lines before = Outline(g);
  g.DoDefaultSort("region");
  EXPECT_EQ(g.GroupObject().SortOrder(1), quSortDesc);
  EXPECT_EQ(g.GroupedBy().SortOrder(1), quSortDesc);
  EXPECT_EQ(Outline(g)[0], "0:Region: south (2)");
  EXPECT_EQ(g.ColSortOrder("region"), quSortDesc);
  g.DoDefaultSort("region");
  EXPECT_EQ(Outline(g), before);
}

TEST_F(Grouped, RowsAddedAndRemovedJoinAndLeaveGroups) {
  g.Group("region");
  int32_t north = 3;
  g.AddRow({.sKey = "n7", .vRowParent = north});
  EXPECT_EQ(g.GroupRowDataCount(north), 4);
  EXPECT_EQ(g.RowLevel("n7"), 1);
  g.AddRow({.sKey = "n8", .vRowBefore = "s3"});  // among North's rows: it joins North
  EXPECT_EQ(g.RowLevel("n8"), 1);
  EXPECT_EQ(g.GroupRowDataCount(north), 5);
  g.RemoveRow("n8");
  g.RemoveRow("s1");
  g.RemoveRow("s3");
  EXPECT_EQ(g.GroupRowText(north), "Region: North (2)");
  g.RemoveRow("s4");  // the last row of East: its group row goes with it
  EXPECT_EQ(Outline(g),
            (Lines{"0:Region: North (2)", "1 s6", "1 n7", "0:Region: south (2)", "1 s2", "1 s5"}));
  g.RemoveRow(1);  // a whole group
  EXPECT_EQ(g.RowCount(), 3);
  g.Clear();
  EXPECT_EQ(g.GroupedBy().ColCount(), 0);
}

}  // namespace
}  // namespace quilta::testing
