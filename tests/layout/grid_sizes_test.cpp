#include "layout/geometry_test_support.hpp"
#include "layout/scale.hpp"

using namespace quilta;
using quilta::testing::ExpectError;
using quilta::testing::GeometryFixture;

namespace {

TEST(GridSizes, ScalingRoundsHalfToEven) {
  EXPECT_EQ(layout::Scale(1, 144), 2);  // 1.5
  EXPECT_EQ(layout::Scale(3, 144), 4);  // 4.5
  EXPECT_EQ(layout::Scale(2, 120), 2);  // 2.5
  EXPECT_EQ(layout::Scale(6, 120), 8);  // 7.5
  EXPECT_EQ(layout::Scale(7, 120), 9);  // 8.75
}

TEST(GridSizes, LevelIndentKeepsAScaledValueForTheCurrentResolution) {
  GeometryFixture f;
  f.platform.SetDpi(144);
  EXPECT_EQ(f.Internals().LevelIndentPixels(), 24);
  f.grid.SetLevelIndent(3);
  EXPECT_EQ(f.Internals().LevelIndentPixels(), 4);
  f.platform.SetDpi(120);
  EXPECT_EQ(f.Internals().LevelIndentPixels(), 4);  // 3.75
  f.grid.SetLevelIndent(0);
  ExpectError(514, [&] { f.grid.SetLevelIndent(-1); });
  EXPECT_EQ(f.Internals().LevelIndentPixels(), 0);
}

TEST(GridSizes, LineAndEdgeSizesRefuseZero) {
  GeometryFixture f;
  ExpectError(514, [&] { f.grid.SetGridLineThicknessH(0); });
  ExpectError(514, [&] { f.grid.SetGridLineThicknessV(0); });
  ExpectError(514, [&] { f.grid.SetFrozenColsEdgeWidth(0); });
  EXPECT_EQ(f.LayoutMark(), 0);
  f.grid.SetGridLineThicknessH(2);
  EXPECT_EQ(f.LayoutMark(), 1);
}

TEST(GridSizes, DefaultHeightsApplyToRowsCreatedLater) {
  GeometryFixture f;
  f.grid.AddRow();
  ExpectError(514, [&] { f.grid.SetDefaultRowHeight(0); });
  ExpectError(514, [&] { f.grid.SetDefaultRowNormalCellHeight(0); });
  int64_t redraws = f.platform.Invalidations();
  f.grid.SetDefaultRowNormalCellHeight(14);
  EXPECT_EQ(f.platform.Invalidations(), redraws);  // stored only
  f.grid.SetDefaultRowHeight(30);
  f.grid.SetRowCount(3);
  EXPECT_EQ(f.grid.RowHeight(1), 18);
  EXPECT_EQ(f.grid.RowHeight(2), 30);
  EXPECT_EQ(f.grid.RowNormalCellHeight(2), 14);
  EXPECT_EQ(f.grid.RowStartY(3), 48);
}

TEST(GridSizes, RowTextStartColumnIsAColumnIndex) {
  GeometryFixture f;
  f.grid.AddCol({.lCount = 3});
  f.grid.SetRowTextStartCol(4);  // the row text column itself
  ExpectError(513, [&] { f.grid.SetRowTextStartCol(5); });
  EXPECT_EQ(f.grid.RowTextStartCol(), 4);
}

}  // namespace
