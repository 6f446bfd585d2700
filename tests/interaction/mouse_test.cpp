// The mouse in the cells area through the host's mouse messages: what a press selects, the
// events and their order, drag selection with auto-scrolling, tree buttons, check boxes, combo
// buttons and double clicks.
#include <gtest/gtest.h>

#include <quilta/platform/headless.hpp>
#include <stdexcept>

#include "interaction/mouse_handler.hpp"
#include "interaction_support.hpp"

namespace quilta::testing {
namespace {

constexpr int16_t kLeft = 1, kRight = 2;
constexpr int16_t kShift = 1, kCtrl = 2;

struct MouseLog : Recorder {
  bool mouseDownDefault = true;
  void MouseDown(int16_t b, int16_t s, int32_t, int32_t, bool& doDefault) override {
    log.push_back("MouseDown " + std::to_string(b) + " " + std::to_string(s));
    doDefault = mouseDownDefault;
  }
  void MouseUp(int16_t b, int16_t, int32_t, int32_t) override {
    log.push_back("MouseUp " + std::to_string(b));
  }
  void Click() override { log.push_back("Click"); }
  void DblClick() override { log.push_back("DblClick"); }
  void RequestEdit(int32_t r, int32_t c, int32_t, bool&, std::string&, int32_t&,
                   ETextEditFlags&) override {
    log.push_back("RequestEdit " + std::to_string(r) + "," + std::to_string(c));
  }
  void BeforeCellCheckChange(int32_t r, int32_t c, ECellCheckState&, bool&) override {
    log.push_back("BeforeCheck " + std::to_string(r) + "," + std::to_string(c));
  }
};

struct Mouse : ::testing::Test {
  Mouse() {
    Fill(g, 6, 3);
    g.SetEventSink(&rec);
  }
  Point Center(int32_t row, int32_t col) const {
    int32_t l, t, w, h;
    g.CellBoundary(row, col, l, t, w, h);
    return {l + w / 2, t + h / 2};
  }
  // A point of the cell on the given part, found by hit testing across the cell's middle.
  Point On(int32_t row, int32_t col, ECellParts part) const {
    int32_t l, t, w, h;
    g.CellBoundary(row, col, l, t, w, h);
    for (int32_t x = l; x < l + w; ++x)
      if (g.HitTest(x, t + h / 2) == part) return {x, t + h / 2};
    ADD_FAILURE() << "no such part in " << row << "," << col;
    return {l, t};
  }
  void Press(Point p, int16_t shift = 0, int16_t button = kLeft) {
    g.HostMouseDown(button, shift, p.x, p.y);
  }
  void Click(Point p, int16_t shift = 0, int16_t button = kLeft) {
    Press(p, shift, button);
    g.HostMouseUp(button, shift, p.x, p.y);
  }
  std::pair<int32_t, int32_t> Cur() const { return {g.CurRow(), g.CurCol()}; }
  HeadlessPlatform platform;
  Quilta g{platform};
  MouseLog rec;
};

using Cell = std::pair<int32_t, int32_t>;

TEST_F(Mouse, AClickSelectsTheCellBetweenMouseDownAndMouseUpThenRaisesClick) {
  rec.cellEvents = false;
  Click(Center(2, 3));
  EXPECT_EQ(Cur(), Cell(2, 3));
  EXPECT_EQ(rec.Take(), (Log{"MouseDown 1 0", "Before", "CurCell 2,3 from 0,0", "CurRow 2 from 0",
                             "CurCol 3 from 0", "After true", "MouseUp 1", "Click"}));
  Click(Center(4, 1), 0, kRight);  // the right button selects too
  EXPECT_EQ(Cur(), Cell(4, 1));
  EXPECT_EQ(Items(g), "(4,1)");
}

TEST_F(Mouse, TheHostOrANonSelectableCellStopsThePress) {
  rec.mouseDownDefault = false;
  Click(Center(2, 2));
  EXPECT_EQ(Cur(), Cell(0, 0));
  EXPECT_EQ(rec.Take(), (Log{"MouseDown 1 0", "MouseUp 1", "Click"}));
  rec.mouseDownDefault = true;
  g.SetEnabled(false);  // a disabled grid hears nothing
  Click(Center(2, 2));
  EXPECT_TRUE(rec.log.empty());
  g.SetEnabled(true);
  g.HostMouseDown(kLeft, 0, Center(1, 1).x, 2);  // the header strip's press and release
  g.HostMouseUp(kLeft, 0, Center(1, 1).x, Center(1, 1).y);
  EXPECT_TRUE(rec.log.empty());
  g.SetCellSelectable(3, 2, false);
  Click(Center(3, 2));
  EXPECT_EQ(Cur(), Cell(0, 0));
  EXPECT_EQ(Items(g), "");
  // Below the last row there is no cell: the events come, nothing is selected.
  Click({Center(1, 1).x, 590});
  EXPECT_EQ(Cur(), Cell(0, 0));
  EXPECT_EQ(rec.Take(),
            (Log{"MouseDown 1 0", "MouseUp 1", "Click", "MouseDown 1 0", "MouseUp 1", "Click"}));
}

TEST_F(Mouse, AThrowingHandlerLeavesThePressUndoneAndTheNextOneWorks) {
  struct Throwing : MouseLog {
    void MouseDown(int16_t, int16_t, int32_t, int32_t, bool&) override {
      throw std::runtime_error("host");
    }
  } thrower;
  g.SetEventSink(&thrower);
  const Point p = Center(2, 2);
  EXPECT_THROW(g.HostMouseDown(kLeft, 0, p.x, p.y), std::runtime_error);
  EXPECT_EQ(Cur(), Cell(0, 0));
  g.SetEventSink(&rec);
  Click(p);
  EXPECT_EQ(Cur(), Cell(2, 2));
}

TEST_F(Mouse, ModifiersExtendAndToggleInMultiselection) {
  g.SetMultiSelect(true);
  Click(Center(1, 1));
  Click(Center(3, 2), kShift);
  EXPECT_EQ(g.SelItems().Count(), 6);
  EXPECT_EQ(Cur(), Cell(3, 2));
  Click(Center(5, 3), kCtrl);
  EXPECT_EQ(g.SelItems().Count(), 7);
  EXPECT_TRUE(g.CellSelected(5, 3));
  // Without multiselection Shift and Ctrl only move the single selection.
  g.SetMultiSelect(false);
  Click(Center(6, 1), kShift | kCtrl);
  EXPECT_EQ(Items(g), "(6,1)");
}

TEST_F(Mouse, APressOnASelectedCellKeepsTheSelectionUntilReleasedWithoutDragging) {
  g.SetMultiSelect(true);
  Click(Center(1, 1));
  Click(Center(2, 2), kShift);
  ASSERT_EQ(g.SelItems().Count(), 4);
  rec.Take();
  Press(Center(1, 2));
  EXPECT_EQ(g.SelItems().Count(), 4);  // ready to drag the selected cells
  EXPECT_EQ(Cur(), Cell(1, 2));
  g.HostMouseUp(kLeft, 0, Center(1, 2).x, Center(1, 2).y);
  EXPECT_EQ(Items(g), "(1,2)");  // a plain click after all
  Click(Center(2, 1), kShift);
  Click(Center(1, 1), 0, kRight);  // kept for a context menu
  EXPECT_EQ(g.SelItems().Count(), 4);
  Click(Center(2, 1), kShift);
  Press(Center(1, 1));
  g.HostMouseMove(kLeft, 0, Center(4, 3).x, Center(4, 3).y);  // moved off: a drag, no click
  g.HostMouseUp(kLeft, 0, Center(4, 3).x, Center(4, 3).y);
  EXPECT_EQ(g.SelItems().Count(), 4);
}

// Between a press on a selected cell and its release the host may add columns, sort or leave
// multiselection; the release must not then select whatever cell now has the pressed indexes.
TEST_F(Mouse, AReleaseAfterTheGridChangedUnderThePressSelectsNothing) {
  g.SetMultiSelect(true);
  g.SelectAll();
  Press(Center(2, 3), kCtrl);
  g.SetMultiSelect(false);
  g.AddCol({.vColBefore = 3});
  ASSERT_EQ(Items(g), "(2,4)");
  g.HostMouseUp(kLeft, 0, 500, 2);  // released over the header
  EXPECT_EQ(Items(g), "(2,4)");
  EXPECT_EQ(Cur(), Cell(2, 4));
  g.SetMultiSelect(true);
  g.SelectAll();
  Press(Center(1, 1));
  g.Sort(1);
  g.HostMouseUp(kLeft, 0, Center(1, 1).x, Center(1, 1).y);
  EXPECT_EQ(g.SelItems().Count(), 6 * 4);
}

TEST_F(Mouse, DraggingExtendsTheSelectionOnlyWithDragSelect) {
  g.SetMultiSelect(true);
  Press(Center(2, 1));
  g.HostMouseMove(kLeft, 0, Center(4, 2).x, Center(4, 2).y);
  EXPECT_EQ(g.SelItems().Count(), 6);
  EXPECT_EQ(Cur(), Cell(4, 2));
  g.HostMouseMove(kLeft, 0, Center(3, 1).x, Center(3, 1).y);  // back inside: the range shrinks
  EXPECT_EQ(Items(g), "(2,1);(3,1)");
  g.HostMouseUp(kLeft, 0, Center(3, 1).x, Center(3, 1).y);
  g.HostMouseMove(0, 0, Center(6, 3).x, Center(6, 3).y);  // released: moves change nothing
  EXPECT_EQ(g.SelItems().Count(), 2);

  g.SetDragSelect(false);
  Press(Center(1, 1));
  g.HostMouseMove(kLeft, 0, Center(4, 3).x, Center(4, 3).y);
  g.HostMouseUp(kLeft, 0, Center(4, 3).x, Center(4, 3).y);
  EXPECT_EQ(Items(g), "(1,1)");
  g.SetMultiSelect(false);
  g.SetDragSelect(true);
  Press(Center(1, 1));
  g.HostMouseMove(kLeft, 0, Center(4, 3).x, Center(4, 3).y);
  EXPECT_EQ(Items(g), "(1,1)");
}

TEST_F(Mouse, DraggingPastTheBottomScrollsOnATimerUntilReleased) {
  g.AddRow({.lCount = 200});
  g.SetMultiSelect(true);
  constexpr int32_t kTimer = interaction::MouseHandler::kAutoScrollTimer;
  Press(Center(1, 1));
  g.HostMouseMove(kLeft, 0, Center(1, 1).x, 700);  // below the window
  ASSERT_TRUE(platform.TimerRunning(kTimer));
  const int32_t before = g.ScrollBar(quScrollBarV).Value();
  const int32_t lastBefore = g.CurRow();
  platform.FireTimer(kTimer);
  platform.FireTimer(kTimer);
  EXPECT_GT(g.ScrollBar(quScrollBarV).Value(), before);
  EXPECT_GT(g.CurRow(), lastBefore);
  EXPECT_EQ(g.SelItems().Count(), g.CurRow());     // column 1 from row 1 down to the current row
  g.HostMouseMove(kLeft, 0, Center(1, 1).x, 300);  // back inside: scrolling stops
  EXPECT_FALSE(platform.TimerRunning(kTimer));
  g.HostMouseMove(kLeft, 0, Center(1, 1).x, -5);
  EXPECT_TRUE(platform.TimerRunning(kTimer));
  g.HostMouseUp(kLeft, 0, Center(1, 1).x, -5);
  EXPECT_FALSE(platform.TimerRunning(kTimer));
}

TEST_F(Mouse, ATreeButtonTogglesItsNodeWithTheCollapseExpandEvents) {
  Quilta& t = g;
  t.AddRow({.eTreeButton = quRowTreeButtonVisible});  // row 7, parent of 8
  t.AddRow({.vRowParent = 7, .btLevel = 1});
  t.SetTreeCol(1);
  t.SetTreeRootLines(true);
  const Point button = On(7, 1, quCellPartTreeButton);
  rec.Take();
  Click(button);
  EXPECT_FALSE(t.RowExpanded(7));
  EXPECT_EQ(Cur(), Cell(0, 0));  // the button does not select
  EXPECT_EQ(rec.Take(), (Log{"MouseDown 1 0", "BeforeExpand 7 -", "QuitCustomEdit",
                             "AfterExpand 7 -", "MouseUp 1", "Click"}));
  rec.rowExpandDefault = false;
  Click(button);
  EXPECT_FALSE(t.RowExpanded(7));
  rec.rowExpandDefault = true;
  Click(button, 0, kRight);  // the right button selects instead
  EXPECT_FALSE(t.RowExpanded(7));
  EXPECT_EQ(Cur(), Cell(7, 1));
}

TEST_F(Mouse, ACheckBoxTogglesOnALeftPressWhileEditable) {
  g.SetCellCheckVisible(2, 2, true);
  g.SetEditable(false);
  const Point box = On(2, 2, quCellPartCheckBox);
  Click(box);
  EXPECT_EQ(Cur(), Cell(2, 2));
  EXPECT_EQ(g.CellCheckState(2, 2), quCheckStateUnchecked);  // not editable
  g.SetEditable(true);
  Click(box, 0, kRight);
  EXPECT_EQ(g.CellCheckState(2, 2), quCheckStateUnchecked);
  rec.Take();
  Click(box);
  EXPECT_EQ(g.CellCheckState(2, 2), quCheckStateChecked);
  EXPECT_EQ(rec.Take(), (Log{"MouseDown 1 0", "BeforeCheck 2,2", "MouseUp 1", "Click"}));
  // A fast second press is a double click: it toggles again and edits nothing.
  g.HostDblClick(kLeft, 0, box.x, box.y);
  EXPECT_EQ(g.CellCheckState(2, 2), quCheckStateUnchecked);
  EXPECT_FALSE(g.IsEditing());
}

TEST_F(Mouse, AComboButtonOpensTheList) {
  ComboObject& sizes = g.Combos().Add("sizes");
  sizes.AddItem("Small", 1);
  sizes.AddItem("Large", 2);
  for (int32_t row : {1, 2}) {
    g.SetCellCtrlKey(row, 2, "sizes");
    g.SetCellType(row, 2, row == 1 ? quCellCombo : quCellTextCombo);
  }
  g.SetShowControlsInAllCells(true);
  g.SetEditable(true);
  Click(On(1, 2, quCellPartComboButton));
  EXPECT_TRUE(g.IsEditing());
  EXPECT_NE(platform.ActiveDropDown(), nullptr);
  g.CancelEditCurCell();
  Click(On(2, 2, quCellPartComboButton));
  EXPECT_TRUE(g.IsEditing());
  EXPECT_NE(platform.ActiveTextBox(), nullptr);
  EXPECT_NE(platform.ActiveDropDown(), nullptr);
}

TEST_F(Mouse, ADoubleClickEditsTheCellAfterDblClick) {
  const Point p = Center(3, 2);
  Click(p);
  g.SetEditable(false);
  g.HostDblClick(kLeft, 0, p.x, p.y);
  EXPECT_FALSE(g.IsEditing());
  g.SetEditable(true);
  rec.Take();
  g.HostDblClick(kLeft, 0, p.x, p.y);
  g.HostMouseUp(kLeft, 0, p.x, p.y);
  EXPECT_TRUE(g.IsEditing());
  EXPECT_EQ(rec.Take(), (Log{"DblClick", "RequestEdit 3,2", "MouseUp 1"}));
  // A press elsewhere commits the edit and moves on.
  Click(Center(5, 1));
  EXPECT_FALSE(g.IsEditing());
  EXPECT_EQ(Cur(), Cell(5, 1));
}

}  // namespace
}  // namespace quilta::testing
