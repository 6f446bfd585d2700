#include "layout/geometry_test_support.hpp"

using namespace quilta;
using quilta::testing::ExpectError;
using quilta::testing::GeometryFixture;
using quilta::testing::GeometrySnapshot;

namespace {

TEST(ColumnPositions, HiddenColumnsTakeNoRoomAndStartWhereTheNextOneDoes) {
  GeometryFixture f;
  for (int32_t w : {10, 20, 40, 80}) f.grid.AddCol({.lWidth = w});
  f.ClearLayoutMark();
  f.grid.SetColVisible(1, true);  // unchanged, yet recorded
  EXPECT_EQ(f.LayoutMark(), 4);
  EXPECT_EQ(f.events.quits, 0);
  f.grid.SetColVisible(2, false);
  EXPECT_FALSE(f.Internals().store.Cols().AtSlot(2).headerItem);
  EXPECT_EQ(f.grid.ColStartX(2), 10);
  EXPECT_EQ(f.grid.ColStartX(3), 10);
  EXPECT_EQ(f.grid.ColStartX(4), 50);
  EXPECT_EQ(f.grid.ColVisibleIndex(2), 0);
  EXPECT_EQ(f.grid.ColVisibleIndex(4), 3);
  EXPECT_EQ(f.events.quits, 1);
  f.grid.SetColVisible(2, true);
  EXPECT_TRUE(f.Internals().store.Cols().AtSlot(2).headerItem);
  EXPECT_EQ(f.grid.ColStartX(3), 30);
  EXPECT_EQ(f.grid.ColVisibleIndex(4), 4);
}

TEST(ColumnPositions, FrozenPartCountsHeaderItemsScrollablePartCountsShownColumns) {
  GeometryFixture f;
  for (int32_t w : {0, 30, 50}) f.grid.AddCol({.lWidth = w});
  f.platform.SetClientSize({40, 300});
  f.Internals().EnsureLayout();
  f.Internals().ScrollTo(quScrollBarH, 120);
  EXPECT_EQ(f.Internals().view.ViewLeft(), 40);  // clamped to the scrollable range
  f.grid.SetFrozenCols(2);
  EXPECT_EQ(f.Internals().view.ViewLeft(), 0);
  EXPECT_EQ(f.grid.ColVisibleIndex(1), 0);  // width 0: not shown, still frozen
  EXPECT_EQ(f.Totals().frozenCount, 2);
  EXPECT_EQ(f.Totals().frozenWidth, 30);
  EXPECT_EQ(f.Totals().scrollableCount, 1);
  EXPECT_EQ(f.Totals().firstScrollableSlot, 3);

  f.grid.SetFrozenCols(10);  // more than there are: everything is frozen
  EXPECT_EQ(f.Totals().frozenWidth, 80);
  EXPECT_EQ(f.Totals().scrollableWidth, 0);
  ExpectError(514, [&] { f.grid.SetFrozenCols(-1); });
  f.grid.SetFrozenCols(0);
  EXPECT_EQ(f.Totals().scrollableWidth, 80);
}

TEST(ColumnPositions, MovingAColumnReordersSlotsAndPositions) {
  GeometryFixture f;
  for (int32_t w : {10, 20, 40}) f.grid.AddCol({.lWidth = w});
  f.grid.SetColPos(1, 3);
  EXPECT_EQ(f.grid.ColFromPos(1), 2);
  EXPECT_EQ(f.grid.ColFromPos(3), 1);
  EXPECT_EQ(f.grid.ColFromPos(4), 4);  // the row text column stays last
  EXPECT_EQ(f.grid.ColStartX(1), 60);
  EXPECT_EQ(f.events.quits, 1);
  f.grid.SetColPos(1, 3);  // already there: nothing happens
  EXPECT_EQ(f.events.quits, 1);

  GeometrySnapshot before = GeometrySnapshot::Of(f.grid);
  ExpectError(514, [&] { f.grid.SetColPos(1, 0); });
  ExpectError(514, [&] { f.grid.SetColPos(1, 4); });
  ExpectError(513, [&] { f.grid.ColFromPos(5); });
  EXPECT_EQ(GeometrySnapshot::Of(f.grid), before);
}

TEST(ColumnPositions, MoveNeverEmptiesTheFrozenOrTheScrollablePart) {
  GeometryFixture f;
  f.grid.AddCol({.lCount = 3});
  f.grid.SetFrozenCols(1);
  GeometrySnapshot before = GeometrySnapshot::Of(f.grid);
  ExpectError(522, [&] { f.grid.SetColPos(1, 2); });
  EXPECT_EQ(GeometrySnapshot::Of(f.grid), before);
  EXPECT_EQ(f.events.quits, 0);

  f.grid.SetFrozenCols(2);
  f.grid.SetColPos(1, 2);  // two frozen columns: either may move
  EXPECT_EQ(f.grid.ColFromPos(1), 2);
  ExpectError(522, [&] { f.grid.SetColPos(3, 1); });  // the only scrollable column
}

}  // namespace
