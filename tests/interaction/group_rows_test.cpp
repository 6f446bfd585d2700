// Group rows keep their selection and the focus in their row-text cell; the row-text column
// takes part in whole-row selection only while DrawRowText is on; row-mode ranges.
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

}  // namespace
}  // namespace quilta::testing
