// Scrolling rows and columns into view through the object model, mode by mode.
#include <gtest/gtest.h>

#include "layout/geometry_test_support.hpp"

namespace quilta::testing {
namespace {

constexpr int32_t kRow = 18;
constexpr int32_t kView = 180;  // ten rows below the 21-pixel header

// 100 rows in a view of exactly 180 pixels; three columns that fit.
struct RowsFixture : GeometryFixture {
  RowsFixture() {
    platform.SetClientSize({400, 21 + kView});
    for (int i = 0; i < 3; ++i) grid.AddCol({.lWidth = 100});
    grid.AddRow({.lCount = 100});
  }
  int32_t Top() { return grid.ScrollBar(quScrollBarV).Value(); }
  void ScrollTo(int32_t y) { grid.ScrollBar(quScrollBarV).SetValue(y); }
};

int32_t StartY(int32_t row) { return (row - 1) * kRow; }

TEST(EnsureVisibleRow, AutoScrollsOnlyWhatIsNotInViewAndKeepsTheGap) {
  RowsFixture f;
  EXPECT_EQ(f.grid.ScrollBar(quScrollBarV).LargeChange(), kView);
  f.grid.EnsureVisibleRow(10);  // fully visible
  EXPECT_EQ(f.Top(), 0);
  f.grid.EnsureVisibleRow(11);  // just below: its bottom ends 8 pixels above the view's bottom
  EXPECT_EQ(f.Top(), StartY(11) + kRow - kView + 8);
  f.grid.EnsureVisibleRow(30, quEnsVisRowAuto, 0);
  EXPECT_EQ(f.Top(), StartY(30) + kRow - kView);
  f.grid.EnsureVisibleRow(2);  // above: its top 8 pixels below the view's top
  EXPECT_EQ(f.Top(), StartY(2) - 8);
  f.grid.EnsureVisibleRow(1, quEnsVisRowAuto, 20);  // the bar clamps at 0
  EXPECT_EQ(f.Top(), 0);
  f.grid.EnsureVisibleRow(100);  // the last row: the bar clamps at its end
  EXPECT_EQ(f.Top(), f.grid.ScrollBar(quScrollBarV).Max());
  EXPECT_EQ(f.Top(), 100 * kRow - kView);
}

TEST(EnsureVisibleRow, TopAndBottomModesWithAndWithoutForce) {
  RowsFixture f;
  f.grid.EnsureVisibleRow(3, quEnsVisRowTop);  // fully visible: nothing
  EXPECT_EQ(f.Top(), 0);
  f.grid.EnsureVisibleRow(3, quEnsVisRowTopForce);  // still scrolled to 8 below the top
  EXPECT_EQ(f.Top(), StartY(3) - 8);
  f.grid.EnsureVisibleRow(40, quEnsVisRowTop, 5);
  EXPECT_EQ(f.Top(), StartY(40) - 5);
  f.ScrollTo(StartY(40) + 4);  // row 40 partly above the view
  f.grid.EnsureVisibleRow(40, quEnsVisRowTop, 0);
  EXPECT_EQ(f.Top(), StartY(40));
  f.grid.EnsureVisibleRow(42, quEnsVisRowBottom);  // fully visible: nothing
  EXPECT_EQ(f.Top(), StartY(40));
  f.grid.EnsureVisibleRow(42, quEnsVisRowBottomForce);
  EXPECT_EQ(f.Top(), StartY(42) + kRow - kView + 8);
  f.grid.EnsureVisibleRow(60, quEnsVisRowBottom, 2);
  EXPECT_EQ(f.Top(), StartY(60) + kRow - kView + 2);
  // Bottom on a row above the view still puts it at the bottom.
  f.grid.EnsureVisibleRow(50, quEnsVisRowBottom, 0);
  EXPECT_EQ(f.Top(), StartY(50) + kRow - kView);
}

TEST(EnsureVisibleRow, ARowTallerThanTheViewGoesToTheTopWithoutGap) {
  RowsFixture f;
  f.grid.SetRowHeight(50, kView + 1);
  for (auto mode : {quEnsVisRowAuto, quEnsVisRowBottom, quEnsVisRowBottomForce}) {
    f.ScrollTo(0);
    f.grid.EnsureVisibleRow(50, mode);
    EXPECT_EQ(f.Top(), StartY(50)) << mode;
  }
  f.ScrollTo(0);
  f.grid.EnsureVisibleRow(50, quEnsVisRowTop);  // the top modes keep their gap
  EXPECT_EQ(f.Top(), StartY(50) - 8);
  f.grid.SetRowHeight(50, kView);  // exactly the view's height fits
  f.ScrollTo(0);
  f.grid.EnsureVisibleRow(50, quEnsVisRowAuto, 0);
  EXPECT_EQ(f.Top(), StartY(50));
}

TEST(EnsureVisibleRow, DoesNothingWhenOffOrHiddenAndEndsEditingOtherwise) {
  RowsFixture f;
  f.grid.SetEnsureVisibleAutoVScroll(false);
  f.grid.EnsureVisibleRow(50);
  EXPECT_EQ(f.Top(), 0);
  EXPECT_EQ(f.events.quits, 0);
  f.grid.SetEnsureVisibleAutoVScroll(true);
  f.grid.SetRowVisible(50, false);
  f.grid.EnsureVisibleRow(50, quEnsVisRowTopForce);
  EXPECT_EQ(f.Top(), 0);
  f.grid.SetRowLevel(71, 1);  // a collapsed child is not shown either
  f.grid.SetRowExpanded(70, false);
  const int32_t quits = f.events.quits;
  f.grid.EnsureVisibleRow(71, quEnsVisRowTopForce);
  EXPECT_EQ(f.Top(), 0);
  EXPECT_EQ(f.events.quits, quits);
  f.grid.EnsureVisibleRow(60);
  EXPECT_EQ(f.events.quits, quits + 1);
  // Positions left pending by BeginUpdate are brought up to date first.
  f.grid.BeginUpdate();
  f.grid.SetRowHeights(36, 1, 10);
  f.grid.EnsureVisibleRow(11, quEnsVisRowTopForce, 0);
  EXPECT_EQ(f.Top(), 360);
  f.grid.EndUpdate();
}

TEST(EnsureVisibleRow, BadArgumentsFailAndChangeNothing) {
  RowsFixture f;
  ExpectError(513, [&] { f.grid.EnsureVisibleRow(101); });
  ExpectError(513, [&] { f.grid.EnsureVisibleRow("nokey"); });
  ExpectError(514, [&] { f.grid.EnsureVisibleRow(50, static_cast<EEnsureVisibleRowMode>(5)); });
  ExpectError(514, [&] { f.grid.EnsureVisibleRow(50, static_cast<EEnsureVisibleRowMode>(-1)); });
  EXPECT_EQ(f.Top(), 0);
  EXPECT_EQ(f.events.quits, 0);
}

// Ten columns of 100 in a 400-pixel view; two rows.
struct ColsFixture : GeometryFixture {
  ColsFixture() {
    platform.SetClientSize({400, 300});
    for (int i = 0; i < 10; ++i) grid.AddCol({.lWidth = 100});
    grid.AddRow({.lCount = 2});
  }
  int32_t Left() { return grid.ScrollBar(quScrollBarH).Value(); }
  void ScrollTo(int32_t x) { grid.ScrollBar(quScrollBarH).SetValue(x); }
};

TEST(EnsureVisibleCol, ModesMirrorTheRowModes) {
  ColsFixture f;
  EXPECT_EQ(f.grid.ScrollBar(quScrollBarH).LargeChange(), 400);
  f.grid.EnsureVisibleCol(4);  // fully visible
  EXPECT_EQ(f.Left(), 0);
  f.grid.EnsureVisibleCol(6);  // right edge 600: 8 pixels left of the view's right
  EXPECT_EQ(f.Left(), 600 - 400 + 8);
  f.grid.EnsureVisibleCol(3);  // left of the view
  EXPECT_EQ(f.Left(), 200 - 8);
  f.grid.EnsureVisibleCol(3, quEnsVisColLeft);
  EXPECT_EQ(f.Left(), 192);
  f.grid.EnsureVisibleCol(4, quEnsVisColLeftForce, 0);
  EXPECT_EQ(f.Left(), 300);
  f.grid.EnsureVisibleCol(5, quEnsVisColRight);  // fully visible
  EXPECT_EQ(f.Left(), 300);
  f.grid.EnsureVisibleCol(5, quEnsVisColRightForce, 10);
  EXPECT_EQ(f.Left(), 500 - 400 + 10);
  f.grid.EnsureVisibleCol(9, quEnsVisColRight, 0);
  EXPECT_EQ(f.Left(), 900 - 400);
  f.grid.EnsureVisibleCol(1, quEnsVisColLeft, 3);
  EXPECT_EQ(f.Left(), 0);
  // A column wider than the view shows its left edge.
  f.grid.SetColWidth(7, 450);
  f.grid.EnsureVisibleCol(7, quEnsVisColRightForce);
  EXPECT_EQ(f.Left(), 600);
  // A column after a moved one is found where it is now.
  f.ScrollTo(0);
  f.grid.SetColPos(10, 1);
  f.grid.EnsureVisibleCol(10);
  EXPECT_EQ(f.Left(), 0);
}

TEST(EnsureVisibleCol, FrozenColumnsForbidItWhateverTheArguments) {
  ColsFixture f;
  f.grid.SetFrozenCols(1);
  ExpectError(522, [&] { f.grid.EnsureVisibleCol(1); });
  ExpectError(522, [&] { f.grid.EnsureVisibleCol(8, quEnsVisColLeftForce); });
  ExpectError(522, [&] { f.grid.EnsureVisibleCol("nokey"); });
  ExpectError(522, [&] { f.grid.EnsureVisibleCol(2, static_cast<EEnsureVisibleColMode>(9)); });
  EXPECT_EQ(f.Left(), 0);
  f.grid.SetFrozenCols(0);
  ExpectError(513, [&] { f.grid.EnsureVisibleCol("nokey"); });
  ExpectError(514, [&] { f.grid.EnsureVisibleCol(8, static_cast<EEnsureVisibleColMode>(5)); });
  EXPECT_EQ(f.Left(), 0);
}

TEST(EnsureVisibleCol, DoesNothingWhenOffOrForHiddenColumns) {
  ColsFixture f;
  f.grid.SetEnsureVisibleAutoHScroll(false);
  f.grid.EnsureVisibleCol(8);
  EXPECT_EQ(f.Left(), 0);
  f.grid.SetEnsureVisibleAutoHScroll(true);
  f.grid.SetColVisible(8, false);
  f.grid.EnsureVisibleCol(8, quEnsVisColLeftForce);
  f.grid.EnsureVisibleCol(f.grid.RowTextCol(), quEnsVisColLeftForce);
  EXPECT_EQ(f.Left(), 0);
  EXPECT_EQ(f.events.quits, 1);  // hiding column 8 ended editing; the calls did not
}

TEST(EnsureVisibleCell, ScrollsBothWaysAndBesideFrozenColumns) {
  ColsFixture f;
  f.grid.AddRow({.lCount = 98});
  const int32_t view = 300 - 21 - 17;  // below the header, above the horizontal bar
  f.grid.EnsureVisibleCell(50, 8);
  EXPECT_EQ(f.grid.ScrollBar(quScrollBarV).Value(), 50 * kRow - view + 8);
  const int32_t width = f.grid.ScrollBar(quScrollBarH).LargeChange();  // beside the V bar
  EXPECT_EQ(width, 400 - 17);
  EXPECT_EQ(f.Left(), 800 - width + 8);
  EXPECT_EQ(f.events.quits, 1);
  // With a frozen column the scrollable one comes out beside the frozen edge.
  f.grid.SetFrozenCols(1);
  f.ScrollTo(10'000);
  f.grid.EnsureVisibleCell(50, 4);
  int32_t left = 0, top = 0, w = 0, h = 0;
  f.grid.CellBoundary(50, 4, left, top, w, h);
  EXPECT_EQ(left, 100 + 8);
  f.grid.EnsureVisibleCell(50, 1);  // frozen: stays
  f.grid.CellBoundary(50, 4, left, top, w, h);
  EXPECT_EQ(left, 108);
  f.grid.EnsureVisibleCell(50, 9);
  f.grid.CellBoundary(50, 9, left, top, w, h);
  EXPECT_EQ(left + w, 400 - 17 - 8);
  ExpectError(513, [&] { f.grid.EnsureVisibleCell(101, 1); });
}

TEST(ScrollBarObject, ReportsTheLayoutAndScrollsWhenSet) {
  RowsFixture f;
  auto& v = f.grid.ScrollBar(quScrollBarV);
  auto& h = f.grid.ScrollBar(quScrollBarH);
  EXPECT_EQ(v.Bar(), quScrollBarV);
  EXPECT_TRUE(v.Visible());
  EXPECT_FALSE(h.Visible());
  EXPECT_EQ(v.Max(), 100 * kRow - kView);
  EXPECT_EQ(v.SmallChange(), kRow);
  f.grid.SetDefaultRowHeight(20);
  EXPECT_EQ(v.SmallChange(), 20);
  EXPECT_EQ(h.SmallChange(), 16);
  v.SetValue(1'000'000);
  EXPECT_EQ(v.Value(), v.Max());
  EXPECT_EQ(f.platform.ScrollBar(quScrollBarV).pos, v.Max());
  v.SetValue(-5);
  EXPECT_EQ(v.Value(), 0);
  // Visibility: forced on, the vertical bar takes its room; forced off, it leaves it.
  h.SetVisibility(quScrollBarAlways);
  EXPECT_TRUE(h.Visible());
  EXPECT_EQ(v.LargeChange(), kView - 17);
  v.SetVisibility(quScrollBarNever);
  EXPECT_FALSE(v.Visible());
  EXPECT_FALSE(f.platform.ScrollBar(quScrollBarV).visible);
  EXPECT_EQ(h.LargeChange(), 400);
  f.grid.EnsureVisibleRow(100);  // still scrolls by code
  EXPECT_EQ(v.Value(), v.Max());
  ExpectError(514, [&] { v.SetVisibility(static_cast<EScrollBarVisibility>(3)); });
  EXPECT_EQ(v.Visibility(), quScrollBarNever);
}

}  // namespace
}  // namespace quilta::testing
