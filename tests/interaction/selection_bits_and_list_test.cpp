// The selected bits and the selection list stay in step through mode switches, column removals
// and grids without columns (cases the random tester found).
#include <gtest/gtest.h>

#include <quilta/quilta.hpp>

#include "consistency_checker.hpp"

namespace quilta::testing {
namespace {

using testkit::ConsistencyChecker;
using testkit::Describe;

int32_t SelectedBits(const Quilta& g) {
  int32_t n = 0;
  for (int32_t r = 1; r <= g.RowCount(); ++r)
    for (int32_t c = 1; c <= g.RowTextCol(); ++c) n += g.CellSelected(r, c);
  return n;
}

void ExpectConsistent(Quilta& g) {
  const auto problems = ConsistencyChecker::ForGrid().Run(g);
  EXPECT_TRUE(problems.empty()) << Describe(problems);
}

TEST(SelectionBitsAndList, RowModeDropsARowWhoseSelectedCellsAreRemoved) {
  Quilta g;
  g.AddCol({.lCount = 3});
  g.AddRow({.lCount = 6});
  g.SetCurCell(6, 2);  // single selection: (6, 2) alone
  g.SetRowMode(true);  // listed as row 6, one selected cell
  g.RemoveCol(1, 2);
  EXPECT_EQ(g.SelItems().Count(), 0);
  EXPECT_EQ(SelectedBits(g), 0);
  ExpectConsistent(g);
}

TEST(SelectionBitsAndList, LeavingRowModeInSingleSelectionKeepsTheCurrentCellOnly) {
  Quilta g;
  g.AddCol({.lCount = 3});
  g.AddRow({.lCount = 4});
  g.SetRowMode(true);
  g.SetCurCell(3, 2);  // the whole row 3
  g.SetRowMode(false);
  EXPECT_EQ(g.SelItems().GetString(), "(3,2)");
  EXPECT_EQ(SelectedBits(g), 1);
  g.SetCurCell(1, 1);
  EXPECT_EQ(g.SelItems().GetString(), "(1,1)");
  EXPECT_EQ(SelectedBits(g), 1);
  ExpectConsistent(g);
}

TEST(SelectionBitsAndList, AGridWithoutColumnsNeverLeavesAnUnlistedSelectedCell) {
  Quilta g;
  g.AddRow({.lCount = 7});  // no columns: only the row text column
  g.SetCurCell(3, 1);
  g.SetCellSelected(4, 1, true);  // the move may leave the selection behind
  g.ClearSelection();
  EXPECT_EQ(SelectedBits(g), 0);
  ExpectConsistent(g);

  g.AddCol();
  g.SetCellSelected(5, 2, true);
  g.SetColCount(0);  // no current cell, the selected row text cell stays listed
  g.AddCol();
  g.SetCurCell(2, 1);
  EXPECT_LE(g.SelItems().Count(), 1);
  EXPECT_EQ(SelectedBits(g), g.SelItems().Count());
  ExpectConsistent(g);
}

TEST(SelectionBitsAndList, TogglingARowOffInRowModeClearsItsRowTextCellToo) {
  Quilta g;
  g.AddCol({.lCount = 2});
  g.AddRow({.lCount = 3});
  g.SetMultiSelect(true);
  g.SetCurCell(2, 1);
  g.SetCellSelected(2, g.RowTextCol(), true);
  g.SetRowMode(true);
  g.DoKeyboardCommand(32, 2);  // Ctrl+Space: row 2 off
  g.DoKeyboardCommand(32, 2);  // and on again
  g.DoKeyboardCommand(32, 2);  // and off
  EXPECT_EQ(g.SelItems().Count(), 0);
  EXPECT_EQ(SelectedBits(g), 0);
  g.ClearSelection();
  EXPECT_EQ(SelectedBits(g), 0);
}

TEST(SelectionBitsAndList, LeavingMultiSelectListsNoRowThatSelectsNothing) {
  Quilta g;
  g.AddCol();
  g.AddRow({.lCount = 7});
  g.SetMultiSelect(true);
  g.SetCurCell(1, 1);
  g.RemoveCol(1);  // no columns left: in row mode no cell of the current row takes part
  g.SetColCellsProp(1, quPropCellSelected, true, 6);
  g.SetRowMode(true);
  g.SetMultiSelect(false);
  EXPECT_EQ(g.SelItems().Count(), 0);
  ExpectConsistent(g);
}

}  // namespace
}  // namespace quilta::testing
