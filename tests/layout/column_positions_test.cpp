#include "layout/geometry_test_support.hpp"

using namespace quilta;
using quilta::testing::ExpectError;
using quilta::testing::GeometryFixture;
using quilta::testing::GeometrySnapshot;

namespace {

TEST(ColumnPositions, StartXSumsHeaderItemColumnsAndHiddenOnesTakeNoRoom) {
  GeometryFixture f;
  f.grid.AddCol({.lWidth = 10});
  f.grid.AddCol({.lWidth = 20});
  f.grid.AddCol({.lWidth = 40});
  f.grid.AddCol({.lWidth = 80});
  f.grid.SetColVisible(2, false);
  EXPECT_EQ(f.grid.ColStartX(1), 0);
  EXPECT_EQ(f.grid.ColStartX(2), 10);
  EXPECT_EQ(f.grid.ColStartX(3), 10);  // a hidden column starts where the next one does
  EXPECT_EQ(f.grid.ColStartX(4), 50);
  EXPECT_EQ(f.grid.ColVisibleIndex(2), 0);
  EXPECT_EQ(f.grid.ColVisibleIndex(3), 2);
  EXPECT_EQ(f.grid.ColVisibleIndex(4), 3);

  f.grid.SetColVisible(2, true);
  EXPECT_EQ(f.grid.ColStartX(3), 30);
  EXPECT_EQ(f.grid.ColVisibleIndex(4), 4);
}

TEST(ColumnPositions, ZeroWidthColumnKeepsItsHeaderItemAndCountsAsFrozen) {
  GeometryFixture f;
  f.grid.AddCol({.lWidth = 0});
  f.grid.AddCol({.lWidth = 30});
  f.grid.AddCol({.lWidth = 50});
  f.grid.SetFrozenCols(2);
  EXPECT_EQ(f.grid.ColVisibleIndex(1), 0);
  EXPECT_EQ(f.grid.ColVisibleIndex(2), 1);
  EXPECT_EQ(f.Totals().frozenCount, 2);  // measured by header items
  EXPECT_EQ(f.Totals().frozenWidth, 30);
  EXPECT_EQ(f.Totals().lastFrozenSlot, 2);
  EXPECT_EQ(f.Totals().scrollableCount, 1);  // measured by the shown test
  EXPECT_EQ(f.Totals().firstScrollableSlot, 3);
  EXPECT_EQ(f.Totals().firstShownSlot, 2);

  f.grid.SetColVisible(1, false);  // hidden: no header item, no longer frozen room
  EXPECT_EQ(f.Totals().frozenCount, 1);
}

TEST(ColumnPositions, FrozenColumnsBeyondTheCountFreezeEverything) {
  GeometryFixture f;
  f.grid.AddCol({.lWidth = 30, .lCount = 3});
  f.grid.Internals().geometry.SetHScrollPos(120);
  f.grid.SetFrozenCols(10);
  EXPECT_EQ(f.grid.FrozenCols(), 10);
  EXPECT_EQ(f.Totals().frozenWidth, 90);
  EXPECT_EQ(f.Totals().scrollableWidth, 0);
  EXPECT_EQ(f.Totals().scrollableCount, 0);
  EXPECT_EQ(f.grid.Internals().geometry.HScrollPos(), 0);

  f.grid.SetFrozenCols(0);  // zero is accepted
  EXPECT_EQ(f.Totals().scrollableWidth, 90);
  ExpectError(514, [&] { f.grid.SetFrozenCols(-1); });
  EXPECT_EQ(f.grid.FrozenCols(), 0);
}

TEST(ColumnPositions, MovingAColumnReordersSlotsAndPositions) {
  GeometryFixture f;
  f.grid.AddCol({.lWidth = 10});
  f.grid.AddCol({.lWidth = 20});
  f.grid.AddCol({.lWidth = 40});
  f.grid.SetColPos(1, 3);
  EXPECT_EQ(f.grid.ColFromPos(1), 2);
  EXPECT_EQ(f.grid.ColFromPos(2), 3);
  EXPECT_EQ(f.grid.ColFromPos(3), 1);
  EXPECT_EQ(f.grid.ColFromPos(4), 4);  // the row text column stays last
  EXPECT_EQ(f.grid.ColPos(1), 3);
  EXPECT_EQ(f.grid.ColStartX(1), 60);
  EXPECT_EQ(f.events.quits, 1);

  f.grid.SetColPos(1, 1);
  EXPECT_EQ(f.grid.ColStartX(2), 10);
  f.events.quits = 0;
  f.grid.SetColPos(1, 1);  // already there: nothing happens
  EXPECT_EQ(f.events.quits, 0);

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

  f.grid.SetFrozenCols(0);
  f.grid.SetColVisible(2, false);
  f.grid.SetColVisible(1, false);
  ExpectError(522, [&] { f.grid.SetColPos(3, 1); });  // the only shown column
}

TEST(ColumnPositions, VisibilityFollowsTheHeaderItemAndMarksColumnWidths) {
  GeometryFixture f;
  f.grid.AddCol({.lCount = 2});
  f.grid.AddCol({.bVisible = false});
  EXPECT_FALSE(f.grid.ColVisible(3));
  EXPECT_EQ(f.grid.ColStartX(3), 128);
  f.ClearLayoutMark();
  f.grid.SetColVisible(1, true);  // unchanged, yet recorded
  EXPECT_EQ(f.LayoutMark(), 4);
  EXPECT_EQ(f.events.quits, 0);

  f.grid.SetColVisible(3, true);
  EXPECT_TRUE(f.grid.Internals().store.Cols().AtSlot(3).headerItem);
  EXPECT_EQ(f.grid.ColVisibleIndex(3), 3);
  EXPECT_EQ(f.events.quits, 1);
  f.grid.SetColVisible(1, false);
  EXPECT_FALSE(f.grid.Internals().store.Cols().AtSlot(1).headerItem);
  EXPECT_EQ(f.grid.ColStartX(2), 0);
}

}  // namespace
