// Tooltips over clipped cells through the host's mouse messages and the platform's timers: when
// they appear, with what text and where, and everything that takes them away.
#include <gtest/gtest.h>

#include <functional>
#include <quilta/platform/headless.hpp>

#include "interaction/tool_tips.hpp"
#include "interaction_support.hpp"

namespace quilta::testing {
namespace {

using interaction::ToolTips;
const std::string kLong = "a text far too long for its narrow column";

struct ToolTip : ::testing::Test {
  ToolTip() {
    Fill(g, 40, 3);
    g.SetColWidth(1, 40);
    g.SetCellValue(2, 1, kLong);
    g.SetCellValue(3, 1, kLong);
  }
  Point Center(int32_t row, int32_t col) const {
    int32_t l, t, w, h;
    g.CellBoundary(row, col, l, t, w, h);
    return {l + w / 2, t + h / 2};
  }
  void MoveTo(int32_t row, int32_t col, int16_t button = 0) {
    const Point p = Center(row, col);
    g.HostMouseMove(button, 0, p.x, p.y);
  }
  // Rests on a clipped cell until the tip shows.
  void ShowOn(int32_t row) {
    MoveTo(row, 1);
    p.FireTimer(ToolTips::kDelayTimer);
    ASSERT_EQ(p.ToolTip(), kLong);
  }
  bool Waiting() const { return p.TimerRunning(ToolTips::kDelayTimer); }
  HeadlessPlatform p;
  Quilta g{p};
};

TEST_F(ToolTip, AClippedCellShowsItsFullTextNearItAfterTheDelayThenHides) {
  MoveTo(2, 1);
  ASSERT_TRUE(Waiting());
  EXPECT_EQ(p.TimerInterval(ToolTips::kDelayTimer), ToolTips::kDefaultDelayMs);  // -1: default
  EXPECT_EQ(p.ToolTip(), "");
  p.FireTimer(ToolTips::kDelayTimer);
  EXPECT_EQ(p.ToolTip(), kLong);
  EXPECT_FALSE(Waiting());
  int32_t l, t, w, h;
  g.CellBoundary(2, 1, l, t, w, h);
  EXPECT_EQ(p.ToolTipNear().left, l);
  EXPECT_EQ(p.ToolTipNear().top, t);
  EXPECT_EQ(p.ToolTipNear().Width(), w);
  ASSERT_EQ(p.TimerInterval(ToolTips::kVisibleTimer), 20000);
  p.FireTimer(ToolTips::kVisibleTimer);
  EXPECT_EQ(p.ToolTip(), "");
  EXPECT_FALSE(p.TimerRunning(ToolTips::kVisibleTimer));
  // Resting on in the same cell does not bring it back.
  MoveTo(2, 1);
  EXPECT_FALSE(Waiting());
}

TEST_F(ToolTip, TextThatFitsShowsNothingAndClippingIsJudgedWhenTheDelayEnds) {
  MoveTo(4, 2);
  p.FireTimer(ToolTips::kDelayTimer);
  EXPECT_EQ(p.ToolTip(), "");
  MoveTo(2, 1);
  g.SetColWidth(1, 600);  // widened while the pointer rests: nothing is clipped any more
  p.FireTimer(ToolTips::kDelayTimer);
  EXPECT_EQ(p.ToolTip(), "");
}

TEST_F(ToolTip, DelayAndVisibleTimesComeFromTheProperties) {
  g.SetToolTipDelayTime(1200);
  g.SetToolTipVisibleTime(-1);
  MoveTo(3, 1);
  EXPECT_EQ(p.TimerInterval(ToolTips::kDelayTimer), 1200);
  p.FireTimer(ToolTips::kDelayTimer);
  EXPECT_EQ(p.ToolTip(), kLong);
  EXPECT_FALSE(p.TimerRunning(ToolTips::kVisibleTimer));  // stays until something hides it
  g.SetToolTipVisibleTime(800);
  MoveTo(2, 1);
  EXPECT_EQ(p.ToolTip(), "");
  p.FireTimer(ToolTips::kDelayTimer);
  EXPECT_EQ(p.TimerInterval(ToolTips::kVisibleTimer), 800);
}

TEST_F(ToolTip, MovingWithinTheCellKeepsTheDelayAndAnotherCellRestartsIt) {
  MoveTo(2, 1);
  int32_t l, t, w, h;
  g.CellBoundary(2, 1, l, t, w, h);
  g.HostMouseMove(0, 0, l + 1, t + 1);
  EXPECT_TRUE(Waiting());
  p.FireTimer(ToolTips::kDelayTimer);
  g.HostMouseMove(0, 0, l + 2, t + 2);  // still on the cell: the tip stays
  EXPECT_EQ(p.ToolTip(), kLong);
  MoveTo(3, 1);  // the next clipped cell waits for its own delay
  EXPECT_EQ(p.ToolTip(), "");
  EXPECT_TRUE(Waiting());
  MoveTo(3, 1, 1);  // moving with a button down (dragging) shows none
  EXPECT_FALSE(Waiting());
}

TEST_F(ToolTip, PressKeyScrollEditLeaveHeaderAndLosingFocusHideIt) {
  const auto pressOn = [&] {
    const Point c = Center(2, 1);
    g.HostMouseDown(1, 0, c.x, c.y);
    g.HostMouseUp(1, 0, c.x, c.y);
  };
  const auto key = [&] { g.HostKeyDown(40, 0); };
  const auto scroll = [&] { g.HostScroll(quScrollBarV, 20); };
  const auto edit = [&] { g.RequestEditCurCell(0, false); };
  const auto leave = [&] { g.HostMouseLeave(); };
  const auto header = [&] { g.HostMouseMove(0, 0, 5, 2); };
  const auto blur = [&] { g.HostFocusChanged(false); };
  int i = 0;
  for (const auto& hide :
       std::vector<std::function<void()>>{pressOn, key, scroll, edit, leave, header, blur}) {
    SCOPED_TRACE(i++);
    g.CancelEditCurCell();
    g.HostScroll(quScrollBarV, 0);
    g.SetCurCell(3, 1);
    ShowOn(2);
    hide();
    EXPECT_EQ(p.ToolTip(), "");
    EXPECT_FALSE(p.TimerRunning(ToolTips::kVisibleTimer));
  }
  MoveTo(2, 1);  // a press during the delay cancels it too
  pressOn();
  EXPECT_FALSE(Waiting());
}

TEST_F(ToolTip, ADisabledGridShowsNone) {
  g.SetEnabled(false);
  MoveTo(2, 1);
  EXPECT_FALSE(Waiting());
}

}  // namespace
}  // namespace quilta::testing
