// Layout strings: the column layout and the sort state written, read back and read damaged.
#include <gtest/gtest.h>

#include <quilta/quilta.hpp>

namespace quilta {
namespace {

struct SortEvents : QuiltaEvents {
  int before = 0, after = 0;
  void BeforeContentsSorted() override { ++before; }
  void AfterContentsSorted() override { ++after; }
};

class LayoutStrings : public ::testing::Test {
 protected:
  void SetUp() override {
    grid.AddCol({.sKey = "a", .lWidth = 120});
    grid.AddCol({.sKey = "b", .lWidth = 64});
    grid.AddCol({.sKey = "c", .lWidth = 50});
    for (int v : {3, 1, 2}) {
      int32_t r = grid.AddRow();
      grid.SetCellValue(r, "a", v);
      grid.SetCellValue(r, "b", 10 - v);
    }
  }
  std::vector<int32_t> Widths() { return {grid.ColWidth(1), grid.ColWidth(2), grid.ColWidth(3)}; }
  std::vector<int32_t> Positions() { return {grid.ColPos(1), grid.ColPos(2), grid.ColPos(3)}; }
  std::vector<int32_t> ColumnA() {
    std::vector<int32_t> out;
    for (int32_t r = 1; r <= grid.RowCount(); ++r) out.push_back(CLng(grid.CellValue(r, "a")));
    return out;
  }
  Quilta grid;
};

TEST_F(LayoutStrings, ColumnLayoutIsWrittenInIndexOrderWithTheResolution) {
  grid.RemoveCol(3);
  grid.SetColVisible(2, false);
  EXPECT_EQ(grid.LayoutCol(),
            "{dpi=96}1|Width|120|1|Order|1|1|Visible|1|2|Width|64|2|Order|2|2|Visible|0|");
  grid.SetColPos(2, 1);
  EXPECT_EQ(grid.LayoutCol(),
            "{dpi=96}1|Width|120|1|Order|2|1|Visible|1|2|Width|64|2|Order|1|2|Visible|0|");
}

TEST_F(LayoutStrings, ColumnLayoutRoundTripsWidthsPositionsAndVisibility) {
  grid.SetColPos(3, 1);
  grid.SetColWidth(1, 77);
  grid.SetColVisible(2, false);
  std::string saved = grid.LayoutCol();
  grid.SetColPos(1, 1);
  grid.SetColWidth(1, 10);
  grid.SetColVisible(2, true);
  grid.SetLayoutCol(saved);
  EXPECT_EQ(Widths(), (std::vector<int32_t>{77, 64, 50}));
  EXPECT_EQ(Positions(), (std::vector<int32_t>{2, 3, 1}));
  EXPECT_FALSE(grid.ColVisible(2));
  EXPECT_EQ(grid.LayoutCol(), saved);
  EXPECT_EQ(grid.ColFromPos(1), 3);
  EXPECT_EQ(grid.ColPos(grid.RowTextCol()), 4);  // the row text column stays last
}

TEST_F(LayoutStrings, WidthsScaleFromTheSavedResolution) {
  auto& platform = static_cast<HeadlessPlatform&>(grid.GetPlatform());
  platform.SetDpi(144);
  grid.SetLayoutCol("{dpi=96}1|Width|120|1|Order|1|1|Visible|1|");
  EXPECT_EQ(grid.ColWidth(1), 180);
  // No header means 96 dpi; halves round to even.
  grid.SetLayoutCol("1|Width|3|1|Order|1|1|Visible|1|2|Width|5|2|Order|2|2|Visible|1|");
  EXPECT_EQ(grid.ColWidth(1), 4);
  EXPECT_EQ(grid.ColWidth(2), 8);  // 7.5
  platform.SetDpi(96);
  grid.SetLayoutCol("{Foo=1;DPI=192abc}1|Width|120|1|Order|1|1|Visible|1|");
  EXPECT_EQ(grid.ColWidth(1), 60);
  grid.SetLayoutCol("{dpi=0}1|Width|120|1|Order|1|1|Visible|1|");
  EXPECT_EQ(grid.ColWidth(1), 120);
}

TEST_F(LayoutStrings, ColumnsTheGridLacksAreSkippedAndLaterOnesMoveUp) {
  grid.RemoveCol(3);
  // Column 5 does not exist: column 2, saved at position 3, lands at position 2.
  grid.SetLayoutCol(
      "{dpi=96}5|Width|30|5|Order|1|5|Visible|1|1|Width|90|1|Order|2|1|Visible|1|"
      "2|Width|40|2|Order|3|2|Visible|1|");
  EXPECT_EQ(grid.ColPos(1), 1);
  EXPECT_EQ(grid.ColPos(2), 2);
  EXPECT_EQ(grid.ColWidth(1), 90);
  EXPECT_EQ(grid.ColWidth(2), 40);
}

TEST_F(LayoutStrings, ColumnsBeyondTheStringKeepTheirIndexAsPosition) {
  grid.SetColPos(3, 1);
  grid.SetLayoutCol("1|Width|11|1|Order|2|1|Visible|1|2|Width|22|2|Order|1|2|Visible|1|");
  EXPECT_EQ(Positions(), (std::vector<int32_t>{2, 1, 3}));
  EXPECT_EQ(Widths(), (std::vector<int32_t>{11, 22, 50}));
}

TEST_F(LayoutStrings, DamagedColumnLayoutLeavesEveryColumnAsItWas) {
  grid.SetColPos(2, 3);
  std::string before = grid.LayoutCol();
  for (const char* damaged :
       {"1|Width|10|1|Order|1|1|Visible|1|2|Width|x|2|Order|2|2|Visible|1|",
        "1|Width|10|1|Order|1|1|Visible|1|2|Width|20",  // missing bar
        "1|Width|10|1|Order|9|1|Visible|1|",            // position outside the table
        "a|Width|10|1|Order|1|1|Visible|1|", "{dpi=96}1|Width|1|1|Order|0|1|Visible|1|",
        "2147483647||5|",
        "9|Width|1|9|Order|1|9|Visible|1|1|Width|1|1|Order|-2147483648|1|Visible|1|"}) {
    grid.SetLayoutCol(damaged);
    EXPECT_EQ(grid.LayoutCol(), before) << damaged;
  }
  grid.SetLayoutCol("");
  EXPECT_EQ(grid.LayoutCol(), before);
}

TEST_F(LayoutStrings, OrdersThatAreNoPermutationStillKeepEveryColumnOnce) {
  grid.SetLayoutCol(
      "1|Width|10|1|Order|2|1|Visible|1|2|Width|20|2|Order|2|2|Visible|1|3|Width|30|3|Order|2|3|"
      "Visible|1|");
  std::vector<int32_t> pos = Positions();
  std::sort(pos.begin(), pos.end());
  EXPECT_EQ(pos, (std::vector<int32_t>{1, 2, 3}));
  EXPECT_EQ(grid.ColPos(3), 2);  // the last to ask for a position gets it
}

TEST_F(LayoutStrings, SortLayoutOfAnUnsortedGridIsEmptyAndReadingEmptyKeepsTheSort) {
  EXPECT_EQ(grid.LayoutSort(), "");
  grid.DoDefaultSort("a");
  std::string sorted = grid.LayoutSort();
  EXPECT_EQ(sorted, "1|SortKey|1|1|SortOrder|0|");
  grid.SetLayoutSort("");
  EXPECT_EQ(grid.LayoutSort(), sorted);
  EXPECT_EQ(ColumnA(), (std::vector<int32_t>{1, 2, 3}));
}

TEST_F(LayoutStrings, ReadingSortLayoutSortsAtOnceWithOneEventPair) {
  SortEvents events;
  grid.SetEventSink(&events);
  grid.SetLayoutSort("2|SortKey|2|2|SortOrder|0|1|SortKey|1|1|SortOrder|1|");
  EXPECT_EQ(events.before, 1);
  EXPECT_EQ(events.after, 1);
  EXPECT_EQ(ColumnA(), (std::vector<int32_t>{3, 2, 1}));
  EXPECT_EQ(grid.SortObject().ColCount(), 2);
  EXPECT_EQ(grid.SortObject().SortCol(1), 1);
  EXPECT_EQ(grid.SortObject().SortOrder(1), quSortDesc);
  EXPECT_EQ(grid.SortObject().SortCol(2), 2);
  // Written back in display order.
  EXPECT_EQ(grid.LayoutSort(), "1|SortKey|1|1|SortOrder|1|2|SortKey|2|2|SortOrder|0|");
}

TEST_F(LayoutStrings, DamagedSortLayoutKeepsWhatWasReadAndDoesNotSort) {
  SortEvents events;
  grid.SetEventSink(&events);
  grid.SetColSortKey(3, 1);
  grid.SetColSortType(2, quSortNone);
  grid.SetLayoutSort("1|SortKey|1|1|SortOrder|1|2|SortKey|2|");
  EXPECT_EQ(events.before, 0);
  EXPECT_EQ(grid.ColSortKey(1), 1);
  EXPECT_EQ(grid.ColSortOrder(1), quSortDesc);
  EXPECT_EQ(grid.ColSortKey(2), 0);
  EXPECT_EQ(grid.ColSortKey(3), 0);  // every key was cleared first
  EXPECT_EQ(ColumnA(), (std::vector<int32_t>{3, 1, 2}));
  grid.SetLayoutSort("1|SortKey|1|1|SortOrder|7|");
  grid.SetLayoutSort("1|SortKey|1|1|Sort");
  EXPECT_EQ(events.before, 0);
}

}  // namespace
}  // namespace quilta
