// Group rows keep their selection and the focus in their row-text cell; the row-text column
// takes part in whole-row selection only while DrawRowText is on; row-mode ranges; + - * fold
// and unfold the group rows grouping makes.
#include <gtest/gtest.h>

#include "interaction_support.hpp"

namespace quilta::testing {
namespace {

constexpr int16_t kUp = 38, kDown = 40, kRight = 39, kShift = 1, kCtrl = 2;

struct GroupRows : ::testing::Test {
  GroupRows() {
    g.AddCol({.lCount = 3});
    g.AddRow();
    g.AddRow({.bGroupRow = true});
    g.AddRow({.lCount = 2});
  }
  Quilta g;
};

TEST_F(GroupRows, TheFocusEntersAGroupRowAtItsRowTextCellAndLeavesToTheOldColumn) {
  g.SetCurCell(1, 2);
  g.DoKeyboardCommand(kDown);
  EXPECT_EQ(g.CurRow(), 2);
  EXPECT_EQ(g.CurCol(), g.RowTextCol());
  g.DoKeyboardCommand(kRight);  // nothing else in a group row takes the focus
  EXPECT_EQ(g.CurCol(), g.RowTextCol());
  g.DoKeyboardCommand(kDown);
  EXPECT_EQ(g.CurRow(), 3);
  EXPECT_EQ(g.CurCol(), 2);
}

TEST_F(GroupRows, WholeRowSelectionUsesTheRowTextCellOfGroupRows) {
  g.SetMultiSelect(true);
  g.SelectAll();
  EXPECT_EQ(g.SelItems().Count(), 3 * 3 + 1);
  EXPECT_TRUE(g.CellSelected(2, g.RowTextCol()));
  EXPECT_FALSE(g.CellSelected(2, 1));
  EXPECT_FALSE(g.CellSelected(1, g.RowTextCol()));  // DrawRowText is off
  g.ClearSelection();
  g.SetDrawRowText(true);
  g.SelectAll();
  EXPECT_EQ(g.SelItems().Count(), 3 * 4 + 1);
  EXPECT_TRUE(g.CellSelected(1, g.RowTextCol()));
  g.InvertSelection();
  EXPECT_EQ(g.SelItems().Count(), 0);
}

TEST_F(GroupRows, RowModeRangesGrowShrinkAndAddWithCtrl) {
  g.SetMultiSelect(true);
  g.SetRowMode(true);
  g.SetCurCell(1, 1);
  g.DoKeyboardCommand(kDown, kShift);
  g.DoKeyboardCommand(kDown, kShift);
  EXPECT_EQ(Items(g), "(1,1);(2,1);(3,1)");
  EXPECT_TRUE(g.CellSelected(2, g.RowTextCol()));
  EXPECT_TRUE(g.CellSelected(3, 3));
  g.DoKeyboardCommand(kUp, kShift);
  EXPECT_EQ(Items(g), "(1,1);(2,1)");
  EXPECT_FALSE(g.CellSelected(3, 1));
  g.DoKeyboardCommand(kDown, kCtrl);
  g.DoKeyboardCommand(kDown, kCtrl);
  g.DoKeyboardCommand(kDown, kCtrl);  // focus on row 4, anchor there, selection as it was
  EXPECT_EQ(Items(g), "(1,1);(2,1)");
  g.DoKeyboardCommand(kUp, kCtrl | kShift);  // rows 3..4 added with the anchor's state
  EXPECT_EQ(Items(g), "(1,1);(2,1);(3,1);(4,1)");
}

// Group rows made by grouping: [1] North { [2] a { 3 } [4] b { 5 } } [6] South { [7] a { 8 } ... }
struct GroupedKeys : ::testing::Test {
  static constexpr int16_t kAdd = 107, kSubtract = 109, kMultiply = 106;
  GroupedKeys() {
    g.AddCol({.sKey = "region"});
    g.AddCol({.sKey = "kind"});
    const char* rows[][2] = {{"South", "b"}, {"North", "a"}, {"South", "a"}, {"North", "b"}};
    for (const auto& r : rows) {
      const int32_t row = g.AddRow();
      g.SetCellValue(row, "region", r[0]);
      g.SetCellValue(row, "kind", r[1]);
    }
    g.Group("region");
    g.GroupObject().AddItem("kind");
    g.Group();
  }
  Quilta g;
};

TEST_F(GroupedKeys, PlusMinusFoldAGroupRowAndStarUnfoldsEverythingBelowIt) {
  ASSERT_EQ(g.RowCount(), 10);
  g.SetCurCell(1, 1);
  g.DoKeyboardCommand(kSubtract);
  EXPECT_FALSE(g.RowExpanded(1));
  g.DoKeyboardCommand(kDown);  // past the folded group
  EXPECT_EQ(g.CurRow(), 6);
  g.DoKeyboardCommand(kUp);
  g.HostKeyDown(kAdd, 0);
  EXPECT_TRUE(g.RowExpanded(1));
  g.DoKeyboardCommand(kDown);
  EXPECT_EQ(g.CurRow(), 2);

  // * unfolds the group and every group inside it, and nothing outside it.
  g.SetRowExpanded(4, false);
  g.SetRowExpanded(2, false);
  g.SetRowExpanded(7, false);
  g.SetRowExpanded(1, false);
  g.SetCurCell(1, 1);
  g.HostKeyDown(kMultiply, 0);
  EXPECT_TRUE(g.RowExpanded(1));
  EXPECT_TRUE(g.RowExpanded(2));
  EXPECT_TRUE(g.RowExpanded(4));
  EXPECT_FALSE(g.RowExpanded(7));
  g.DoKeyboardCommand(kDown);
  g.DoKeyboardCommand(kDown);
  EXPECT_EQ(g.CurRow(), 3);  // the data row under the unfolded inner group
}

}  // namespace
}  // namespace quilta::testing
