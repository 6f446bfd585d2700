#include "layout/geometry_test_support.hpp"

using namespace quilta;
using quilta::testing::ExpectError;
using quilta::testing::GeometryFixture;
using quilta::testing::GeometrySnapshot;

namespace {

TEST(ColumnWidths, WidthIsClampedIntoTheLimitsAndEndsEditing) {
  GeometryFixture f;
  f.grid.AddCol({.lWidth = 50, .lMinWidth = 20, .lMaxWidth = 100});
  f.grid.AddCol();
  f.ClearLayoutMark();
  f.grid.SetColWidth(1, 10);
  EXPECT_EQ(f.grid.ColWidth(1), 20);
  EXPECT_EQ(f.grid.ColStartX(2), 20);
  EXPECT_EQ(f.LayoutMark(), 4);
  EXPECT_EQ(f.events.quits, 1);
  f.grid.SetColWidth(1, 500);
  EXPECT_EQ(f.grid.ColWidth(1), 100);
  EXPECT_EQ(f.LayoutMark(), 1);  // a second change before the layout pass asks for everything
  ExpectError(514, [&] { f.grid.SetColWidth(1, -1); });
  EXPECT_EQ(f.grid.ColWidth(1), 100);
}

TEST(ColumnWidths, MinimumAndMaximumGuardEachOther) {
  GeometryFixture f;
  f.grid.AddCol({.lWidth = 30, .lMaxWidth = 40});
  f.grid.AddCol({.lWidth = 30});
  GeometrySnapshot before = GeometrySnapshot::Of(f.grid);
  ExpectError(519, [&] { f.grid.SetColMinWidth(1, 50); });
  EXPECT_EQ(GeometrySnapshot::Of(f.grid), before);  // the old limit stays in force

  f.ClearLayoutMark();
  f.grid.SetColMinWidth(2, 10);  // does not bite: no width change, no layout change
  EXPECT_EQ(f.LayoutMark(), 0);
  EXPECT_EQ(f.events.quits, 0);
  f.grid.SetColMinWidth(2, 50);  // no maximum: accepted, and the column widens
  EXPECT_EQ(f.grid.ColWidth(2), 50);
  f.grid.SetColMinWidth(1, 40);  // equal limits are legal
  EXPECT_EQ(f.grid.ColWidth(1), 40);
  EXPECT_EQ(f.grid.ColStartX(2), 40);
  ExpectError(519, [&] { f.grid.SetColMaxWidth(1, 39); });
  EXPECT_EQ(f.grid.ColMaxWidth(1), 40);
  f.grid.SetColMinWidth(2, -1);
  f.grid.SetColMaxWidth(2, 45);  // narrows it
  EXPECT_EQ(f.grid.ColWidth(2), 45);
}

TEST(ColumnWidths, RowTextColumnHasNoLimitsAndNoSlot) {
  GeometryFixture f;
  f.grid.AddCol({.lCount = 5});
  ASSERT_EQ(f.grid.RowTextCol(), 6);
  GeometrySnapshot before = GeometrySnapshot::Of(f.grid);
  ExpectError(514, [&] { f.grid.SetColMinWidth(6, 10); });
  ExpectError(514, [&] { f.grid.SetColMaxWidth(6, 10); });
  ExpectError(514, [&] { f.grid.ResizeColToFillSpace(6); });
  ExpectError(514, [&] { f.grid.SetColVisible(6, false); });
  ExpectError(514, [&] { f.grid.SetColPos(6, 1); });
  ExpectError(513, [&] { f.grid.SetColWidth(7, 10); });
  EXPECT_EQ(GeometrySnapshot::Of(f.grid), before);
}

TEST(ColumnWidths, BulkWidthsFollowIndexesNotPositions) {
  GeometryFixture f;
  f.grid.SetColWidths(-1);  // an empty grid has nothing to size
  f.grid.AddCol({.lCount = 4});
  f.grid.SetColMaxWidth(3, 25);
  f.grid.SetColPos(4, 1);  // display order now 4 1 2 3
  GeometrySnapshot before = GeometrySnapshot::Of(f.grid);
  ExpectError(514, [&] { f.grid.SetColWidths(-1); });
  ExpectError(513, [&] { f.grid.SetColWidths(10, 1, "nope"); });
  EXPECT_EQ(GeometrySnapshot::Of(f.grid), before);

  int64_t redraws = f.platform.Invalidations();
  f.events.quits = 0;
  f.grid.SetColWidths(30, 2, 3);
  EXPECT_EQ(f.grid.ColWidth(1), 64);
  EXPECT_EQ(f.grid.ColWidth(2), 30);
  EXPECT_EQ(f.grid.ColWidth(3), 25);  // clamped, not refused
  EXPECT_EQ(f.grid.ColStartX(3), 64 + 64 + 30);
  EXPECT_EQ(f.Totals().scrollableWidth, 64 + 64 + 30 + 25);
  EXPECT_EQ(f.platform.Invalidations(), redraws + 1);
  EXPECT_EQ(f.events.quits, 1);
  f.grid.SetColWidths(10);
  EXPECT_EQ(f.grid.ColWidth(4), 10);
  EXPECT_EQ(f.grid.ColWidth(f.grid.RowTextCol()), 64);
}

TEST(ColumnWidths, FillSpaceTakesWhatTheOtherHeaderColumnsLeave) {
  GeometryFixture f;
  f.platform.SetClientSize({400, 300});
  f.grid.AddCol({.lWidth = 100, .lMaxWidth = 200});
  f.grid.AddCol({.lWidth = 50});
  f.grid.AddCol({.lWidth = 70, .bVisible = false});  // no header item: takes no room
  f.grid.ResizeColToFillSpace(2);
  EXPECT_EQ(f.grid.ColWidth(2), 300);
  f.grid.SetColWidth(2, 500);  // the others fill the area: nothing changes
  f.ClearLayoutMark();
  f.grid.ResizeColToFillSpace(1);
  EXPECT_EQ(f.grid.ColWidth(1), 100);
  EXPECT_EQ(f.LayoutMark(), 0);
  f.grid.SetColWidth(2, 10);
  f.grid.ResizeColToFillSpace(1);  // 390 is there, the maximum allows 200
  EXPECT_EQ(f.grid.ColWidth(1), 200);
}

}  // namespace
