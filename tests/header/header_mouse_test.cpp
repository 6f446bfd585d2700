// What the user does with the mouse on the header: clicks sort, dividers resize, items move.
#include "header_fixture.hpp"

namespace quilta::testing {
namespace {

using HeaderMouse = HeaderFixture;
using Log = std::vector<std::string>;

TEST_F(HeaderMouse, ClickSortsShiftAddsALevelAndTheHostMayDecline) {
  Click(50);
  EXPECT_EQ(FirstColumnValues(), (std::vector<int32_t>{1, 1, 2, 3}));
  EXPECT_EQ(grid.ColSortKey("a"), 1);
  Click(50);
  EXPECT_EQ(FirstColumnValues(), (std::vector<int32_t>{3, 2, 1, 1}));
  EXPECT_EQ(grid.ColSortOrder("a"), quSortDesc);
  Click(150, 1);
  EXPECT_EQ(grid.ColSortKey("a"), 1);
  EXPECT_EQ(grid.ColSortKey("b"), 2);
  EXPECT_EQ(events.Only({"click"}), (Log{"click 1 0", "click 1 0", "click 2 1"}));

  events.declineSort = true;
  Click(250);
  EXPECT_EQ(grid.ColSortKey("c"), 0);
  EXPECT_EQ(events.log.back(), "click 3 0");
  events.declineSort = false;
  grid.SetAllowSorting(false);
  Click(250);
  EXPECT_EQ(grid.ColSortKey("c"), 0);
  EXPECT_EQ(events.log.back(), "click 3 0");  // the event still comes

  // Released over another item: no click at all; other buttons never click.
  grid.HostMouseDown(1, 0, 50, kY);
  grid.HostMouseUp(1, 0, 52, 100);
  grid.HostMouseDown(2, 0, 50, kY);
  grid.HostMouseUp(2, 0, 50, kY);
  EXPECT_EQ(events.Only({"click"}).size(), 5u);
}

TEST_F(HeaderMouse, PressesAreReportedAndAHostMayTakeThemOver) {
  grid.HostMouseDown(2, 0, 150, kY);
  grid.HostMouseUp(2, 0, 150, kY);
  grid.HostMouseDown(1, 0, 350, kY);  // the blank rest of the strip
  grid.HostMouseUp(1, 0, 350, kY);
  EXPECT_EQ(events.Only({"down", "up", "click"}),
            (Log{"down 2 2 at 150", "up 2 2", "down 0 1 at 350", "up 0 1"}));

  events.log.clear();
  events.declinePress = true;
  Click(50);
  Drag(99, 150);
  EXPECT_EQ(grid.ColSortKey("a"), 0);
  EXPECT_EQ(grid.ColWidth("a"), 100);
  EXPECT_EQ(events.Only({"click", "width"}), Log{});
}

TEST_F(HeaderMouse, DoubleClicksClickTwiceAndDividerDoubleClicksAskToAutoSize) {
  grid.HostMouseDown(1, 0, 50, kY);
  grid.HostMouseUp(1, 0, 50, kY);
  grid.HostDblClick(1, 0, 50, kY);
  grid.HostMouseUp(1, 0, 50, kY);
  EXPECT_EQ(events.Only({"click", "dblclick"}), (Log{"click 1 0", "dblclick 1", "click 1 0"}));
  EXPECT_EQ(grid.ColSortOrder("a"), quSortDesc);

  events.log.clear();
  grid.HostDblClick(1, 0, 99, kY);
  grid.HostMouseUp(1, 0, 99, kY);
  EXPECT_EQ(events.Only({"click", "divider", "width"}), (Log{"divider 1"}));
}

TEST_F(HeaderMouse, DividerDragsResizeWithinTheLimitsWithWidthEvents) {
  grid.HostMouseMove(0, 0, 101, kY);
  EXPECT_EQ(platform.Cursor(), CursorShape::SizeColumn);
  grid.HostMouseMove(0, 0, 50, kY);
  EXPECT_EQ(platform.Cursor(), CursorShape::Arrow);

  Drag(99, 139);
  EXPECT_EQ(grid.ColWidth("a"), 140);
  EXPECT_EQ(grid.ColStartX("b"), 140);
  Log widths = events.Only({"width", "click"});
  ASSERT_GE(widths.size(), 3u);
  EXPECT_EQ(widths.front(), "width start 1");
  EXPECT_EQ(widths[widths.size() - 2], "width 1 140");
  EXPECT_EQ(widths.back(), "width end 1 140");

  grid.SetColMaxWidth("a", 150);
  grid.SetColMinWidth("a", 30);
  Drag(139, 300);
  EXPECT_EQ(grid.ColWidth("a"), 150);
  Drag(149, -100);
  EXPECT_EQ(grid.ColWidth("a"), 30);

  events.widthOverride = 500;  // a host's width is kept within the limits too
  Drag(29, 60);
  EXPECT_EQ(grid.ColWidth("a"), 150);
  events.widthOverride = -1;

  events.log.clear();
  events.refuseSizing = true;
  Drag(149, 100);
  EXPECT_EQ(grid.ColWidth("a"), 150);
  EXPECT_EQ(events.Only({"width", "click", "drag"}), (Log{"width start 1"}));
}

TEST_F(HeaderMouse, ColumnsThatMayNotBeSizedHaveNoDivider) {
  grid.SetColAllowSizing("a", false);
  Drag(99, 139);
  EXPECT_EQ(grid.ColWidth("a"), 100);
  grid.SetColAllowSizing("a", true);
  grid.Header().SetAllowColSizing(false);
  Click(99);
  EXPECT_EQ(grid.ColWidth("a"), 100);
  EXPECT_EQ(events.Only({"width"}), Log{});
  EXPECT_EQ(events.Only({"click"}), (Log{"click 1 0"}));
}

TEST_F(HeaderMouse, DraggingAnItemMovesItsColumnWithItsEvents) {
  Drag(50, 250);
  EXPECT_EQ(ColumnOrder(), (std::vector<int32_t>{2, 3, 1}));
  EXPECT_EQ(events.Only({"drag", "before", "after", "click"}),
            (Log{"drag 1", "before move 1 to 3", "after move 1 1->3"}));
  EXPECT_EQ(platform.Cursor(), CursorShape::Arrow);

  Drag(250, 10);  // Alpha, now last, back to the front
  EXPECT_EQ(ColumnOrder(), (std::vector<int32_t>{1, 2, 3}));

  events.log.clear();
  events.refuseMove = true;
  Drag(50, 250);
  EXPECT_EQ(ColumnOrder(), (std::vector<int32_t>{1, 2, 3}));
  EXPECT_EQ(events.Only({"after"}), Log{});
  events.refuseMove = false;

  events.log.clear();
  events.refuseDrag = true;
  Drag(50, 250);
  EXPECT_EQ(ColumnOrder(), (std::vector<int32_t>{1, 2, 3}));
  EXPECT_EQ(events.Only({"before", "click"}), Log{});
  events.refuseDrag = false;

  grid.Header().SetAllowColMoving(false);
  events.log.clear();
  Drag(50, 250);
  EXPECT_EQ(ColumnOrder(), (std::vector<int32_t>{1, 2, 3}));
  EXPECT_EQ(events.Only({"drag"}), Log{});
}

TEST_F(HeaderMouse, FrozenColumnsMoveOnlyAmongFrozenColumns) {
  grid.SetFrozenCols(1);
  Drag(150, 10);  // a scrollable column cannot enter the frozen part
  Drag(50, 250);  // nor can the only frozen column leave it
  EXPECT_EQ(ColumnOrder(), (std::vector<int32_t>{1, 2, 3}));
  EXPECT_EQ(events.Only({"before"}), Log{});

  grid.SetFrozenCols(2);
  Drag(50, 290);  // dropped past the frozen part: the last frozen slot
  EXPECT_EQ(ColumnOrder(), (std::vector<int32_t>{2, 1, 3}));
  EXPECT_EQ(grid.FrozenCols(), 2);
}

TEST_F(HeaderMouse, DraggingPastTheEdgeScrollsTheColumnsAlong) {
  platform.SetClientSize({200, 300});
  grid.SetFrozenCols(1);
  grid.HostResize();
  grid.HostMouseDown(1, 0, 150, kY);  // Beta, the first scrollable column
  for (int i = 0; i < 10; ++i) grid.HostMouseMove(1, 0, 195, kY);
  // 200 px of scrollable columns in a 100 px part: scrolled to the end.
  EXPECT_EQ(platform.ScrollBar(quScrollBarH).pos, 100);
  grid.HostMouseUp(1, 0, 195, kY);
  EXPECT_EQ(ColumnOrder(), (std::vector<int32_t>{1, 3, 2}));

  grid.HostMouseDown(1, 0, 20, kY);  // a frozen column never scrolls the others
  for (int i = 0; i < 10; ++i) grid.HostMouseMove(1, 0, 195, kY);
  grid.HostMouseUp(1, 0, 195, kY);
  EXPECT_EQ(platform.ScrollBar(quScrollBarH).pos, 100);
}

TEST_F(HeaderMouse, HoverRaisesEnterAndLeaveAndDragsKeepTheMouse) {
  grid.HostMouseMove(0, 0, 50, kY);
  grid.HostMouseMove(0, 0, 150, kY);
  grid.HostMouseMove(0, 0, 150, 100);  // into the cells
  grid.HostMouseMove(0, 0, 250, kY);
  grid.HostMouseLeave();
  EXPECT_EQ(events.log, (Log{"enter 1", "leave 1", "enter 2", "leave 2", "enter 3", "leave 3"}));

  grid.HostMouseDown(1, 0, 99, kY);
  grid.HostMouseMove(1, 0, 120, 300);  // far below the strip, still sizing
  grid.HostMouseUp(1, 0, 120, 300);
  EXPECT_EQ(grid.ColWidth("a"), 121);
}

TEST_F(HeaderMouse, RemovingColumnsDuringAPressForgetsIt) {
  grid.HostMouseDown(1, 0, 50, kY);
  grid.RemoveCol("a");
  grid.HostMouseUp(1, 0, 50, kY);
  EXPECT_EQ(events.Only({"click"}), Log{});
  Click(50);
  EXPECT_EQ(events.Only({"click"}), (Log{"click 1 0"}));  // the former Beta, now index 1
}

}  // namespace
}  // namespace quilta::testing
