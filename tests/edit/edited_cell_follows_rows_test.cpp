// An edit in progress belongs to its cell, whatever happens to the rows and columns around it.
#include <gtest/gtest.h>

#include <quilta/quilta.hpp>

namespace quilta::testing {
namespace {

struct Grid {
  HeadlessPlatform platform;
  Quilta grid{platform};
  Grid() {
    grid.AddCol({.sKey = "a", .lCount = 1});
    grid.AddCol({.sKey = "b", .lCount = 1});
    grid.AddRow({.lCount = 4});
    for (int32_t r = 1; r <= 4; ++r) grid.SetCellValue(r, 1, 10 * r);
  }
  void EditRow3ColB() {
    grid.SetCurCell(3, 2);
    grid.RequestEditCurCell();
    ASSERT_TRUE(grid.IsEditing());
    grid.SetTextEditText("edited");
  }
};

TEST(EditedCellFollowsRows, ACommitAfterRowsMovedStoresIntoTheEditedRow) {
  Grid g;
  g.EditRow3ColB();
  g.grid.AddRow({.vRowBefore = 1});  // the edited row is now row 4
  g.grid.CommitEditCurCell();
  EXPECT_EQ(g.grid.CellValue(4, 2), Variant("edited"));
  EXPECT_TRUE(g.grid.CellValue(3, 2).IsEmpty());

  g.grid.SetCellValue(4, 2, Variant());
  g.grid.SetCurCell(2, 2);  // rows 1..5 hold Empty, 10, 20, 30, 40 in column a
  g.grid.RequestEditCurCell();
  g.grid.SetTextEditText("sorted");
  g.grid.SetColSortOrderDefault(1, quSortDesc);
  g.grid.Sort(1);  // 40, 30, 20, 10, Empty: the edited row (10) is now row 4
  g.grid.CommitEditCurCell();
  EXPECT_EQ(g.grid.CellValue(4, 1), Variant(10));
  EXPECT_EQ(g.grid.CellValue(4, 2), Variant("sorted"));
  EXPECT_TRUE(g.grid.CellValue(2, 2).IsEmpty());
}

TEST(EditedCellFollowsRows, RemovingTheEditedRowOrColumnEndsTheEditWithoutStoring) {
  Grid g;
  g.EditRow3ColB();
  g.grid.RemoveRow(3);
  EXPECT_FALSE(g.grid.IsEditing());
  for (int32_t r = 1; r <= g.grid.RowCount(); ++r) EXPECT_TRUE(g.grid.CellValue(r, 2).IsEmpty());

  g.EditRow3ColB();
  g.grid.RemoveCol(1);  // the edited column is now column 1
  g.grid.CommitEditCurCell();
  EXPECT_EQ(g.grid.CellValue(3, 1), Variant("edited"));

  g.grid.SetCurCell(2, 1);
  g.grid.RequestEditCurCell();
  g.grid.RemoveCol(1);
  EXPECT_FALSE(g.grid.IsEditing());
  g.grid.AddCol();
  g.grid.SetCurCell(1, 1);
  g.grid.RequestEditCurCell();
  g.grid.Clear();
  EXPECT_FALSE(g.grid.IsEditing());
}

}  // namespace
}  // namespace quilta::testing
