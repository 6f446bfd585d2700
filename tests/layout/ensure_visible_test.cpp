// Scrolling rows and columns into view through the object model, mode by mode.
#include <gtest/gtest.h>

#include "layout/geometry_test_support.hpp"

namespace quilta::testing {
namespace {

constexpr int32_t kRow = 18;
constexpr int32_t kView = 180;   // rows: ten rows below the 21-pixel header
constexpr int32_t kWidth = 400;  // columns: four columns of 100

// 100 rows of 18 and ten columns of 100 in a client that shows kView x kWidth of them.
struct ScrollFixture : GeometryFixture {
  explicit ScrollFixture(int32_t rows = 100, int32_t cols = 3) {
    const int32_t bars = 17;
    platform.SetClientSize({kWidth + (rows > 10 ? bars : 0), 21 + kView + (cols > 4 ? bars : 0)});
    for (int i = 0; i < cols; ++i) grid.AddCol({.lWidth = 100});
    grid.AddRow({.lCount = rows});
  }
  ScrollBarObject& V() { return grid.ScrollBar(quScrollBarV); }
  ScrollBarObject& H() { return grid.ScrollBar(quScrollBarH); }
};

// From a scroll position, a mode and gap on an item of the given start and size: the position.
struct Case {
  int32_t from, item, mode, gap, expected;
};

TEST(EnsureVisibleRow, EveryModeAndGap) {
  const int32_t b11 = 11 * kRow, y40 = 39 * kRow;
  const Case cases[] = {
      {0, 10, quEnsVisRowAuto, 8, 0},                        // fully visible
      {0, 11, quEnsVisRowAuto, 8, b11 - kView + 8},          // just below: bottom 8 above the edge
      {0, 11, quEnsVisRowAuto, 0, b11 - kView},              //
      {200, 2, quEnsVisRowAuto, 8, kRow - 8},                // above: top 8 below the edge
      {10, 1, quEnsVisRowAuto, 20, 0},                       // clamped at 0
      {0, 100, quEnsVisRowAuto, 8, 100 * kRow - kView},      // clamped at the end
      {0, 3, quEnsVisRowTop, 8, 0},                          // fully visible
      {0, 40, quEnsVisRowTop, 5, y40 - 5},                   //
      {y40 + 4, 40, quEnsVisRowTop, 0, y40},                 // partly above
      {0, 3, quEnsVisRowTopForce, 8, 2 * kRow - 8},          // forced though fully visible
      {y40, 42, quEnsVisRowBottom, 8, y40},                  // fully visible
      {0, 60, quEnsVisRowBottom, 2, 60 * kRow - kView + 2},  //
      {1000, 50, quEnsVisRowBottom, 0, 50 * kRow - kView},   // above the view: to the bottom
      {y40, 42, quEnsVisRowBottomForce, 8, 42 * kRow - kView + 8},
  };
  for (const Case& c : cases) {
    ScrollFixture f;
    f.V().SetValue(c.from);
    f.grid.EnsureVisibleRow(c.item, static_cast<EEnsureVisibleRowMode>(c.mode), c.gap);
    EXPECT_EQ(f.V().Value(), c.expected) << c.from << " " << c.item << " " << c.mode;
  }
}

TEST(EnsureVisibleRow, ARowTallerThanTheViewGoesToTheTopWithoutGap) {
  ScrollFixture f;
  f.grid.SetRowHeight(50, kView + 1);
  const int32_t y50 = 49 * kRow;
  for (auto mode : {quEnsVisRowAuto, quEnsVisRowBottom, quEnsVisRowBottomForce}) {
    f.V().SetValue(0);
    f.grid.EnsureVisibleRow(50, mode);
    EXPECT_EQ(f.V().Value(), y50) << mode;
  }
  f.V().SetValue(0);
  f.grid.EnsureVisibleRow(50, quEnsVisRowTop);  // the top modes keep their gap
  EXPECT_EQ(f.V().Value(), y50 - 8);
  f.grid.SetRowHeight(50, kView);  // exactly the view's height still fits
  f.V().SetValue(0);
  f.grid.EnsureVisibleRow(50, quEnsVisRowAuto, 0);
  EXPECT_EQ(f.V().Value(), y50);
}

TEST(EnsureVisibleRow, NothingWhenOffOrNotShownAndBadArgumentsChangeNothing) {
  ScrollFixture f;
  f.grid.SetEnsureVisibleAutoVScroll(false);
  f.grid.EnsureVisibleRow(50);
  f.grid.SetEnsureVisibleAutoVScroll(true);
  f.grid.SetRowVisible(50, false);
  f.grid.SetRowLevel(71, 1);
  f.grid.SetRowExpanded(70, false);  // a collapsed child is not shown either
  const int32_t quits = f.events.quits;
  f.grid.EnsureVisibleRow(50, quEnsVisRowTopForce);
  f.grid.EnsureVisibleRow(71, quEnsVisRowTopForce);
  ExpectError(513, [&] { f.grid.EnsureVisibleRow(101); });
  ExpectError(513, [&] { f.grid.EnsureVisibleRow("nokey"); });
  ExpectError(514, [&] { f.grid.EnsureVisibleRow(60, static_cast<EEnsureVisibleRowMode>(5)); });
  ExpectError(514, [&] { f.grid.EnsureVisibleRow(60, static_cast<EEnsureVisibleRowMode>(-1)); });
  EXPECT_EQ(f.V().Value(), 0);
  EXPECT_EQ(f.events.quits, quits);
  f.grid.EnsureVisibleRow(60);  // an edit ends before the grid scrolls
  EXPECT_EQ(f.events.quits, quits + 1);
  // Positions left pending by BeginUpdate are brought up to date first.
  f.grid.BeginUpdate();
  f.grid.SetRowHeights(36, 1, 10);
  f.grid.EnsureVisibleRow(11, quEnsVisRowTopForce, 0);
  EXPECT_EQ(f.V().Value(), 360);
  f.grid.EndUpdate();
}

TEST(EnsureVisibleCol, ModesMirrorTheRowModes) {
  const Case cases[] = {
      {0, 4, quEnsVisColAuto, 8, 0},      {0, 6, quEnsVisColAuto, 8, 600 - kWidth + 8},
      {208, 3, quEnsVisColAuto, 8, 192},  {192, 3, quEnsVisColLeft, 8, 192},
      {0, 5, quEnsVisColLeft, 3, 397},    {0, 4, quEnsVisColLeftForce, 0, 300},
      {300, 5, quEnsVisColRight, 8, 300}, {110, 9, quEnsVisColRight, 0, 900 - kWidth},
      {500, 1, quEnsVisColLeft, 3, 0},    {300, 5, quEnsVisColRightForce, 10, 500 - kWidth + 10},
  };
  for (const Case& c : cases) {
    ScrollFixture f(2, 10);
    f.H().SetValue(c.from);
    f.grid.EnsureVisibleCol(c.item, static_cast<EEnsureVisibleColMode>(c.mode), c.gap);
    EXPECT_EQ(f.H().Value(), c.expected) << c.from << " " << c.item << " " << c.mode;
  }
  ScrollFixture f(2, 10);
  f.grid.SetColWidth(7, kWidth + 50);  // wider than the view: its left edge, no gap
  f.grid.EnsureVisibleCol(7, quEnsVisColRightForce);
  EXPECT_EQ(f.H().Value(), 600);
}

TEST(EnsureVisibleCol, FrozenColumnsForbidItAndHiddenColumnsAreIgnored) {
  ScrollFixture f(2, 10);
  f.grid.SetFrozenCols(1);
  ExpectError(522, [&] { f.grid.EnsureVisibleCol(1); });  // even in view and in auto mode
  ExpectError(522, [&] { f.grid.EnsureVisibleCol("nokey"); });
  ExpectError(522, [&] { f.grid.EnsureVisibleCol(2, static_cast<EEnsureVisibleColMode>(9)); });
  f.grid.SetFrozenCols(0);
  ExpectError(513, [&] { f.grid.EnsureVisibleCol("nokey"); });
  ExpectError(514, [&] { f.grid.EnsureVisibleCol(8, static_cast<EEnsureVisibleColMode>(5)); });
  f.grid.SetEnsureVisibleAutoHScroll(false);
  f.grid.EnsureVisibleCol(8);
  f.grid.SetEnsureVisibleAutoHScroll(true);
  f.grid.SetColVisible(8, false);
  f.grid.EnsureVisibleCol(8, quEnsVisColLeftForce);
  f.grid.EnsureVisibleCol(f.grid.RowTextCol(), quEnsVisColLeftForce);
  EXPECT_EQ(f.H().Value(), 0);
}

TEST(EnsureVisibleCell, ScrollsBothWaysAndBesideFrozenColumns) {
  ScrollFixture f(100, 10);
  f.grid.EnsureVisibleCell(50, 8);
  EXPECT_EQ(f.V().Value(), 50 * kRow - kView + 8);
  EXPECT_EQ(f.H().Value(), 800 - kWidth + 8);
  EXPECT_EQ(f.events.quits, 1);  // one edit ends once
  // With a frozen column a scrollable one comes out beside the frozen edge.
  f.grid.SetFrozenCols(1);
  f.H().SetValue(10'000);
  int32_t left = 0, top = 0, w = 0, h = 0;
  f.grid.EnsureVisibleCell(50, 4);
  f.grid.CellBoundary(50, 4, left, top, w, h);
  EXPECT_EQ(left, 100 + 8);
  f.grid.EnsureVisibleCell(50, 1);  // frozen: nothing moves
  f.grid.CellBoundary(50, 4, left, top, w, h);
  EXPECT_EQ(left, 108);
  f.grid.EnsureVisibleCell(50, 9);
  f.grid.CellBoundary(50, 9, left, top, w, h);
  EXPECT_EQ(left + w, kWidth - 8);
  ExpectError(513, [&] { f.grid.EnsureVisibleCell(101, 1); });
}

TEST(ScrollBarObject, ReportsTheLayoutAndScrollsWhenSet) {
  ScrollFixture f;
  EXPECT_EQ(f.V().Bar(), quScrollBarV);
  EXPECT_TRUE(f.V().Visible());
  EXPECT_FALSE(f.H().Visible());
  EXPECT_EQ(f.V().LargeChange(), kView);
  EXPECT_EQ(f.V().Max(), 100 * kRow - kView);
  EXPECT_EQ(f.V().SmallChange(), kRow);
  f.grid.SetDefaultRowHeight(20);
  EXPECT_EQ(f.V().SmallChange(), 20);
  EXPECT_EQ(f.H().SmallChange(), 16);
  f.V().SetValue(1'000'000);
  EXPECT_EQ(f.V().Value(), f.V().Max());
  EXPECT_EQ(f.platform.ScrollBar(quScrollBarV).pos, f.V().Max());
  // Forced on, the horizontal bar takes its room; forced off, the vertical one leaves its own.
  f.H().SetVisibility(quScrollBarAlways);
  EXPECT_TRUE(f.H().Visible());
  EXPECT_EQ(f.V().LargeChange(), kView - 17);
  f.V().SetVisibility(quScrollBarNever);
  EXPECT_FALSE(f.platform.ScrollBar(quScrollBarV).visible);
  EXPECT_EQ(f.H().LargeChange(), kWidth + 17);
  f.grid.EnsureVisibleRow(1);  // still scrolls by code
  EXPECT_EQ(f.V().Value(), 0);
  ExpectError(514, [&] { f.V().SetVisibility(static_cast<EScrollBarVisibility>(3)); });
  EXPECT_EQ(f.V().Visibility(), quScrollBarNever);
}

}  // namespace
}  // namespace quilta::testing
