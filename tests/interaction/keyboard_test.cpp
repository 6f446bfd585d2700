// Keys through DoKeyboardCommand and the host's key path: stepping, ranges, paging, rows of a
// tree, and what the host can stop.
#include <gtest/gtest.h>

#include "interaction_support.hpp"

namespace quilta::testing {
namespace {

constexpr int16_t kTab = 9, kEnter = 13, kSpace = 32, kPageUp = 33, kPageDown = 34, kEnd = 35,
                  kHome = 36, kLeft = 37, kUp = 38, kRight = 39, kDown = 40, kA = 65, kStar = 106,
                  kPlus = 107, kMinus = 109;
constexpr int16_t kShift = 1, kCtrl = 2, kAlt = 4;

struct Keyboard : ::testing::Test {
  Keyboard() {
    Fill(g, 6, 3);
    g.SetEventSink(&rec);
  }
  std::pair<int32_t, int32_t> Cur() const { return {g.CurRow(), g.CurCol()}; }
  void Keys(std::initializer_list<int16_t> keys, int16_t shift = 0) {
    for (int16_t k : keys) g.DoKeyboardCommand(k, shift);
  }
  Quilta g;
  Recorder rec;
};

using Cell = std::pair<int32_t, int32_t>;

TEST_F(Keyboard, ArrowsStepToFocusableCellsAndStopAtTheEdges) {
  Keys({kRight});  // no current cell: the first cell
  EXPECT_EQ(Cur(), Cell(1, 1));
  Keys({kRight, kRight, kDown});
  EXPECT_EQ(Cur(), Cell(2, 3));
  rec.Take();
  Keys({kRight});  // no wrap to the next row, no event at the edge
  EXPECT_EQ(Cur(), Cell(2, 3));
  EXPECT_TRUE(rec.Take().empty());
  g.SetColVisible(2, false);
  Keys({kLeft});
  EXPECT_EQ(Cur(), Cell(2, 1));
  g.SetColVisible(2, true);
  g.SetCellSelectable(2, 2, false);
  Keys({kRight});  // SkipNonSelectableCells passes over it
  EXPECT_EQ(Cur(), Cell(2, 3));
  g.SetSkipNonSelectableCells(false);
  Keys({kLeft});
  EXPECT_EQ(Cur(), Cell(2, 2));
  g.SetRowVisible(3, false);
  Keys({kDown});
  EXPECT_EQ(Cur(), Cell(4, 2));
  Keys({kUp, kUp, kUp});
  EXPECT_EQ(Cur(), Cell(1, 2));
  EXPECT_EQ(g.SelItems().GetString(), "(1,2)");
}

TEST_F(Keyboard, TabMovesOnlyWithUseTabKey) {
  g.SetCurCell(2, 2);
  g.SetUseTabKey(false);
  Keys({kTab});
  EXPECT_EQ(Cur(), Cell(2, 2));
  g.SetUseTabKey(true);
  Keys({kTab});
  EXPECT_EQ(Cur(), Cell(2, 3));
  g.DoKeyboardCommand(kTab, kShift);
  EXPECT_EQ(Cur(), Cell(2, 2));
  g.SetRowMode(true);
  g.DoKeyboardCommand(kTab, kShift);
  EXPECT_EQ(Cur(), Cell(1, 2));
}

TEST_F(Keyboard, HomeAndEnd) {
  g.SetCurCell(3, 2);
  Keys({kHome});
  EXPECT_EQ(Cur(), Cell(3, 1));
  Keys({kEnd});
  EXPECT_EQ(Cur(), Cell(3, 3));
  g.DoKeyboardCommand(kHome, kCtrl);
  EXPECT_EQ(Cur(), Cell(1, 1));
  g.DoKeyboardCommand(kEnd, kCtrl);
  EXPECT_EQ(Cur(), Cell(6, 3));
  g.SetCellSelectable(1, 1, false);
  g.DoKeyboardCommand(kHome, kCtrl);  // steps right to a cell that can take the focus
  EXPECT_EQ(Cur(), Cell(1, 2));
  g.SetRowMode(true);
  Keys({kEnd});
  EXPECT_EQ(Cur(), Cell(6, 2));
}

TEST_F(Keyboard, ShiftExtendsFromTheAnchorAndCtrlMovesTheFocusOnly) {
  g.SetMultiSelect(true);
  g.SetCurCell(1, 1);
  g.DoKeyboardCommand(kRight, kShift);
  g.DoKeyboardCommand(kDown, kShift);
  EXPECT_EQ(g.SelItems().GetString(), "(1,1);(1,2);(2,1);(2,2)");
  g.DoKeyboardCommand(kLeft, kShift);  // the rectangle shrinks: column 2 leaves it
  EXPECT_EQ(g.SelItems().GetString(), "(1,1);(2,1)");
  g.DoKeyboardCommand(kUp, kShift);
  EXPECT_EQ(g.SelItems().GetString(), "(1,1)");
  rec.Take();
  g.DoKeyboardCommand(kDown, kCtrl);
  g.DoKeyboardCommand(kDown, kCtrl);
  EXPECT_EQ(Cur(), Cell(3, 1));
  EXPECT_EQ(g.SelItems().GetString(), "(1,1)");
  EXPECT_EQ(rec.Take(), (Log{"CurCell 2,1 from 1,1", "CurRow 2 from 1", "CurCell 3,1 from 2,1",
                             "CurRow 3 from 2"}));
  g.DoKeyboardCommand(kDown, kShift);  // from the anchor the Ctrl moves left behind
  EXPECT_EQ(g.SelItems().GetString(), "(1,1);(3,1);(4,1)");
  g.DoKeyboardCommand(kHome, kCtrl);
  g.DoKeyboardCommand(kDown, kCtrl | kShift);  // with Ctrl a range only adds
  g.DoKeyboardCommand(kRight, kCtrl | kShift);
  EXPECT_EQ(g.SelItems().GetString(), "(1,1);(1,2);(2,1);(2,2);(3,1);(4,1)");
}

TEST_F(Keyboard, CtrlSpaceTogglesAndCtrlASelectsAll) {
  g.SetCurCell(2, 2);
  g.DoKeyboardCommand(kSpace, kCtrl);  // single selection: nothing
  EXPECT_TRUE(g.CellSelected(2, 2));
  g.SetMultiSelect(true);
  rec.Take();
  g.DoKeyboardCommand(kSpace, kCtrl);
  EXPECT_EQ(rec.Take(), (Log{"Before", "Cell 2,2 off", "After true"}));
  EXPECT_EQ(g.SelItems().Count(), 0);
  g.DoKeyboardCommand(kA, kCtrl);
  EXPECT_EQ(g.SelItems().Count(), 18);
}

TEST_F(Keyboard, PagingUsesTheViewHeight) {
  g.Header().SetVisible(false);  // the cells area is the whole 600 pixels
  g.AddRow({.lCount = 94});      // 100 rows of 18 pixels, 33 of them fit in 600
  g.SetCurCell(1, 1);
  Keys({kPageDown});
  EXPECT_EQ(g.CurRow(), 33);  // first the last row fully in view
  Keys({kPageDown});
  EXPECT_EQ(g.CurRow(), 66);  // then one view further
  Keys({kPageUp});  // row 66 sits 8 pixels above the bottom edge: row 34 is cut at the top
  EXPECT_EQ(g.CurRow(), 35);
  Keys({kPageDown, kPageDown, kPageDown});
  EXPECT_EQ(g.CurRow(), 100);
}

TEST(KeyboardVirtual, PageDownAsksTheHostForRows) {
  struct Host : Recorder {
    int asked = 0;
    void RequestRow(int32_t lRow, bool& noMore) override {
      ++asked;
      noMore = lRow > 50;
    }
  } host;
  Quilta g;
  g.Header().SetVisible(false);
  g.AddCol();
  g.SetVirtual(true);
  g.AddRow({.lCount = 10});
  g.SetEventSink(&host);
  g.SetCurCell(10, 1);
  g.DoKeyboardCommand(kPageDown);
  EXPECT_EQ(g.CurRow(), 43);
  EXPECT_GE(g.RowCount(), 43);
  g.DoKeyboardCommand(kPageDown);
  g.DoKeyboardCommand(kPageDown);
  EXPECT_EQ(g.RowCount(), 50);
  EXPECT_EQ(g.CurRow(), 50);
}

TEST_F(Keyboard, PlusAndMinusExpandAndCollapseTreeRows) {
  Quilta t;
  t.AddCol();
  t.AddRow({.sKey = "A"});
  t.AddRow({.sKey = "A1", .vRowParent = "A"});
  t.AddRow({.sKey = "A1a", .vRowParent = "A1"});
  t.SetEventSink(&rec);
  t.SetCurCell(1, 1);
  rec.Take();
  t.DoKeyboardCommand(kMinus);  // no tree yet
  EXPECT_TRUE(rec.Take().empty());
  t.SetTreeCol(1);
  t.DoKeyboardCommand(kMinus);
  EXPECT_EQ(rec.Take(), (Log{"BeforeExpand 1 -", "QuitCustomEdit", "AfterExpand 1 -"}));
  EXPECT_FALSE(t.RowExpanded(1));
  t.DoKeyboardCommand(kMinus);  // already collapsed: no event
  EXPECT_TRUE(rec.Take().empty());
  rec.rowExpandDefault = false;
  t.DoKeyboardCommand(kPlus);
  EXPECT_EQ(rec.Take(), (Log{"BeforeExpand 1 +"}));
  EXPECT_FALSE(t.RowExpanded(1));
  rec.rowExpandDefault = true;
  t.SetRowExpanded(2, false);
  t.DoKeyboardCommand(kStar);
  EXPECT_TRUE(t.RowExpanded(1));
  EXPECT_TRUE(t.RowExpanded(2));
}

TEST_F(Keyboard, ADisabledGridOnlyScrolls) {
  g.SetCurCell(2, 2);
  g.SetEnabled(false);
  rec.Take();
  Keys({kDown, kRight, kPageDown, kHome});
  EXPECT_EQ(Cur(), Cell(2, 2));
  EXPECT_TRUE(rec.Take().empty());
}

TEST_F(Keyboard, TheHostKeyPathRaisesKeyDownAndCanStopTheCommand) {
  g.SetCurCell(1, 1);
  rec.Take();
  g.HostKeyDown(kDown, 0);
  EXPECT_EQ(rec.Take().front(), "KeyDown 40");
  EXPECT_EQ(g.CurRow(), 2);
  rec.keyDownDefault = false;
  g.HostKeyDown(kDown, 0);
  EXPECT_EQ(rec.Take(), (Log{"KeyDown 40"}));
  EXPECT_EQ(g.CurRow(), 2);
}

TEST_F(Keyboard, TheCharacterOfAKeyThatActedIsNotTyped) {
  g.SetMultiSelect(true);
  g.SetKeyPressBehaviour(quKeyPressSearchCurCol);
  g.SetCurCell(1, 1);
  g.HostKeyDown(kSpace, kCtrl);
  rec.Take();
  g.HostKeyPress(kSpace);  // the host hears it, key search does not
  EXPECT_EQ(rec.Take(), (Log{"KeyPress 32"}));
  EXPECT_EQ(g.SearchString(), "");
  g.HostKeyPress('r');  // the next character is typed again
  EXPECT_EQ(rec.Take().front(), "KeyPress 114");
  EXPECT_EQ(g.SearchString(), "r");
  g.DoKeyboardCommand(kEnter);
  EXPECT_EQ(g.SearchString(), "");
}

TEST_F(Keyboard, NoKeyRaisesAnErrorOnAnEmptyGrid) {
  Quilta empty;
  for (int16_t k = 0; k < 256; ++k)
    for (int16_t s = 0; s < 8; ++s) EXPECT_NO_THROW(empty.DoKeyboardCommand(k, s));
  g.SetMultiSelect(true);
  g.SetRowMode(true);
  for (int16_t k = 0; k < 256; ++k)
    for (int s : {0, 1, 2, 4, 3}) EXPECT_NO_THROW(g.DoKeyboardCommand(k, static_cast<int16_t>(s)));
}

}  // namespace
}  // namespace quilta::testing
