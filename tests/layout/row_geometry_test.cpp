#include "control/internals_access.hpp"
#include "layout/geometry_test_support.hpp"

using namespace quilta;
using quilta::testing::ExpectError;
using quilta::testing::GeometryFixture;
using quilta::testing::GeometrySnapshot;

namespace {

struct RowFixture : GeometryFixture {
  explicit RowFixture(int32_t rows = 10) {
    grid.AddCol({.lCount = 2});
    grid.AddRow({.lCount = rows});
  }
  int64_t Passes() { return control::Internals(grid).geometry.RowPasses(); }
  int32_t ShownRows() { return control::Internals(grid).store.ShownRowCount(); }
  int64_t ShownHeight() { return control::Internals(grid).store.ShownRowsHeight(); }
};

TEST(RowGeometry, HeightAndVisibilityMoveTheRowsBelowAndKeepTheTotals) {
  RowFixture f;
  f.grid.SetRowHeight(3, 40);
  EXPECT_EQ(f.grid.RowStartY(4), 76);
  EXPECT_EQ(f.ShownHeight(), 9 * 18 + 40);
  f.grid.SetRowHeight(3, 30);
  f.grid.SetRowVisible(3, false);
  EXPECT_EQ(f.grid.RowHeight(3), 30);  // hidden rows keep their height
  EXPECT_EQ(f.grid.RowStartY(4), 36);
  f.grid.SetRowHeight(3, 10);  // a hidden row's height leaves the totals alone
  EXPECT_EQ(f.ShownHeight(), 9 * 18);
  f.grid.SetRowVisible(3, true);
  EXPECT_EQ(f.grid.RowStartY(4), 46);
  EXPECT_EQ(f.ShownRows(), 10);
  EXPECT_EQ(f.ShownHeight(), 9 * 18 + 10);
}

TEST(RowGeometry, SameValueChangesNothingAndBadValuesAreRefused) {
  RowFixture f;
  f.ClearLayoutMark();
  int64_t passes = f.Passes();
  int64_t redraws = f.platform.Invalidations();
  f.grid.SetRowHeight(2, 18);
  f.grid.SetRowVisible(2, true);
  EXPECT_EQ(f.events.quits, 0);
  EXPECT_EQ(f.LayoutMark(), 0);
  EXPECT_EQ(f.Passes(), passes);
  EXPECT_EQ(f.platform.Invalidations(), redraws);

  GeometrySnapshot before = GeometrySnapshot::Of(f.grid);
  ExpectError(514, [&] { f.grid.SetRowHeight(1, -1); });
  ExpectError(514, [&] { f.grid.SetRowHeights(-5); });
  ExpectError(513, [&] { f.grid.SetRowHeights(10, 2, 11); });
  ExpectError(514, [&] { f.grid.SetRowNormalCellHeight(1, -1); });
  EXPECT_EQ(GeometrySnapshot::Of(f.grid), before);
  EXPECT_EQ(f.events.quits, 0);
}

TEST(RowGeometry, ZeroHeightsHideARangeInOnePass) {
  RowFixture f;
  int64_t passes = f.Passes();
  int64_t redraws = f.platform.Invalidations();
  f.grid.SetRowHeights(0, 3, 5);
  EXPECT_EQ(f.Passes(), passes + 1);
  EXPECT_EQ(f.platform.Invalidations(), redraws + 1);
  for (int32_t r = 3; r <= 6; ++r) EXPECT_EQ(f.grid.RowStartY(r), 36);
  EXPECT_EQ(f.grid.RowVisibleIndex(5), 0);
  EXPECT_EQ(f.grid.RowVisibleIndex(6), 3);
  EXPECT_EQ(f.ShownHeight(), 7 * 18);
  f.grid.SetRowHeights(25);
  EXPECT_EQ(f.grid.RowStartY(10), 9 * 25);
  EXPECT_EQ(f.ShownHeight(), 250);
}

TEST(RowGeometry, SuspendedUpdatesRecomputeOnceFromTheLowestRow) {
  RowFixture f(100);
  int64_t passes = f.Passes();
  f.grid.BeginUpdate();
  f.grid.SetRowHeight(50, 30);
  f.grid.SetRowHeight(10, 30);
  f.grid.SetRowVisible(70, false);
  EXPECT_EQ(f.Passes(), passes);
  EXPECT_EQ(f.grid.RowStartY(11), 180);  // not yet recomputed
  f.grid.EndUpdate();
  EXPECT_EQ(f.Passes(), passes + 1);
  EXPECT_EQ(f.grid.RowStartY(11), 192);
  EXPECT_EQ(f.grid.RowStartY(71), 69 * 18 + 24);
  EXPECT_EQ(f.grid.RowVisibleIndex(100), 99);
}

TEST(RowGeometry, ForcedLayoutStartsFromThePendingRow) {
  RowFixture f(20);
  f.grid.BeginUpdate();
  f.grid.SetRowHeight(5, 0);
  {
    layout::ForcedLayout forced(f.Internals().geometry);
    f.grid.SetRowHeight(12, 28);  // runs now, from row 5 where positions went stale
  }
  EXPECT_EQ(f.grid.RowStartY(6), 4 * 18);
  EXPECT_EQ(f.grid.RowStartY(13), 10 * 18 + 28);
  f.grid.SetRowHeight(2, 20);  // deferred again
  EXPECT_EQ(f.grid.RowStartY(3), 36);
  f.Internals().SyncRowPositions();
  EXPECT_EQ(f.grid.RowStartY(3), 38);
  f.grid.EndUpdate();
}

TEST(RowGeometry, NormalCellHeightFlagsTheRowForMeasuringWithoutMaterialising) {
  RowFixture f(1000);
  model::GridStore& store = f.Internals().store;
  layout::RemeasureMarks& marks = f.Internals().geometry.Remeasure();
  store.MutableCell(3, 2).value = Variant(5);  // column 2 holds cells of its own now
  f.grid.SetRowNormalCellHeight(3, 12);
  EXPECT_EQ(f.events.quits, 1);
  EXPECT_TRUE(store.Cells().Column(1).IsUniform());
  EXPECT_TRUE(store.CellAt(3, 2).state & model::Cell::kRemeasure);
  for (int32_t col = 1; col <= f.grid.RowTextCol(); ++col) {
    EXPECT_TRUE(marks.CellNeedsRemeasure(store, 3, col));
    EXPECT_FALSE(marks.CellNeedsRemeasure(store, 4, col));
  }
  f.grid.AddRow({.vRowBefore = 1});  // the flag follows the row, not its index
  EXPECT_TRUE(marks.CellNeedsRemeasure(store, 4, 3));
  marks.RowMeasured(store, 4);
  EXPECT_FALSE(marks.CellNeedsRemeasure(store, 4, 1));
  EXPECT_FALSE(marks.CellNeedsRemeasure(store, 4, 2));
}

}  // namespace
