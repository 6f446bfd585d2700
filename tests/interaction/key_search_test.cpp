// Key search: FindSearchMatchRow's match modes and filters, and typing into SearchString.
#include <gtest/gtest.h>

#include "interaction_support.hpp"

namespace quilta::testing {
namespace {

constexpr int16_t kUp = 38, kDown = 40, kLeft = 37, kAlt = 4;

struct KeySearch : ::testing::Test {
  KeySearch() {
    g.AddCol({.lCount = 2});
    for (const char* text : {"apple", "Banana", "cherry", "apricot", "banana split", "ABC"}) {
      int32_t r = g.AddRow();
      g.SetCellValue(r, 1, text);
      g.SetCellValue(r, 2, r * 10);
    }
    g.SetEventSink(&rec);
  }
  void Type(std::string_view text) {
    for (char ch : text) g.HostKeyPress(static_cast<int16_t>(ch));
  }
  Quilta g;
  Recorder rec;
};

TEST_F(KeySearch, FindSearchMatchRowModesCaseAndLooping) {
  EXPECT_EQ(g.FindSearchMatchRow(1, "ap"), 1);
  EXPECT_EQ(g.FindSearchMatchRow(1, "AP"), 1);
  EXPECT_EQ(g.FindSearchMatchRow(1, "AP", Variant::Missing(), false, quSearchMatchStartsWith, true),
            0);
  EXPECT_EQ(g.FindSearchMatchRow(1, "an", Variant::Missing(), false, quSearchMatchContains), 2);
  EXPECT_EQ(g.FindSearchMatchRow(1, "abc", Variant::Missing(), false, quSearchMatchEquals), 6);
  EXPECT_EQ(g.FindSearchMatchRow(1, "abc", Variant::Missing(), false, quSearchMatchEquals, true),
            0);
  EXPECT_EQ(g.FindSearchMatchRow(1, "banana", Variant::Missing(), false, quSearchMatchEquals), 2);
  EXPECT_EQ(g.FindSearchMatchRow(1, "ap", 2), 4);
  EXPECT_EQ(g.FindSearchMatchRow(1, "ap", 5), 0);  // no loop: rows above the start are not seen
  EXPECT_EQ(g.FindSearchMatchRow(1, "ap", 5, true), 1);
  EXPECT_EQ(g.FindSearchMatchRow(2, "3"), 3);  // numbers are searched by their text
  EXPECT_THROW(g.FindSearchMatchRow("", "x"), Error);
  EXPECT_THROW(g.FindSearchMatchRow(9, "x"), Error);
  EXPECT_THROW(g.FindSearchMatchRow(1, "x", 7), Error);
}

TEST_F(KeySearch, VisibilityFiltersAndTheEmptyText) {
  g.SetRowVisible(1, false);
  EXPECT_EQ(g.FindSearchMatchRow(1, "ap"), 4);
  EXPECT_EQ(
      g.FindSearchMatchRow(1, "ap", 1, false, quSearchMatchStartsWith, false, quCellVisAllCells),
      1);
  EXPECT_EQ(g.FindSearchMatchRow(1, ""), 2);  // the first row that passes the filter
  g.SetRowVisible(1, true);
  g.SetRowHeight(1, 0);  // not shown now, yet its visibility property is on
  EXPECT_EQ(g.FindSearchMatchRow(1, "ap"), 4);
  EXPECT_EQ(g.FindSearchMatchRow(1, "ap", 1, false, quSearchMatchStartsWith, false,
                                 quCellVisVisibleProperty),
            1);
}

TEST_F(KeySearch, TypingMovesTheCurrentCellAndDropsCharactersThatFindNothing) {
  g.SetKeyPressBehaviour(quKeyPressSearchDefCol);
  g.SetKeySearchCol(1);
  g.SetCurCell(1, 2);
  rec.Take();
  Type("b");
  EXPECT_EQ(g.SearchString(), "b");
  EXPECT_EQ(g.CurRow(), 2);
  EXPECT_EQ(g.CurCol(), 1);  // the search column
  EXPECT_EQ(rec.Take(),
            (Log{"KeyPress 98", "Before", "Cell 1,2 off", "Cell 2,1 on", "CurCell 2,1 from 1,2",
                 "CurRow 2 from 1", "CurCol 1 from 2", "After true"}));
  Type("ax");  // "bax" finds nothing: the x is dropped
  EXPECT_EQ(g.SearchString(), "ba");
  Type("nana ");
  EXPECT_EQ(g.SearchString(), "banana ");
  EXPECT_EQ(g.CurRow(), 5);
  g.HostKeyPress(8);  // Backspace
  EXPECT_EQ(g.SearchString(), "banana");
  EXPECT_EQ(g.CurRow(), 2);
  g.HostKeyPress(27);  // Esc
  EXPECT_EQ(g.SearchString(), "");
  EXPECT_EQ(g.CurRow(), 2);
  Type("c");
  g.HostKeyPress(8);  // one character: emptied, no move
  EXPECT_EQ(g.SearchString(), "");
  EXPECT_EQ(g.CurRow(), 3);
}

TEST_F(KeySearch, CharactersBeyondAsciiAreSearchedAsText) {
  int32_t r = g.AddRow();
  g.SetCellValue(r, 1,
                 "\xC3\xA9"
                 "clair");  // "éclair"
  g.SetKeyPressBehaviour(quKeyPressSearchCurCol);
  g.SetCurCell(1, 1);
  g.HostKeyPress(0xE9);
  EXPECT_EQ(g.CurRow(), r);
  EXPECT_EQ(g.SearchString(), "\xC3\xA9");
  Type("c");
  g.HostKeyPress(8);
  EXPECT_EQ(g.SearchString(), "\xC3\xA9");
}

TEST_F(KeySearch, InMultiselectionModeTheSelectionEventsEndBeforeTheMove) {
  g.SetMultiSelect(true);
  g.SetKeyPressBehaviour(quKeyPressSearchCurCol);
  g.SetCurCell(1, 1);
  rec.Take();
  Type("c");
  EXPECT_EQ(rec.Take(), (Log{"KeyPress 99", "Before", "Cell 1,1 off", "Cell 3,1 on", "After true",
                             "CurCell 3,1 from 1,1", "CurRow 3 from 1"}));
}

TEST_F(KeySearch, FromTheCurrentRowWithAndWithoutLooping) {
  g.SetKeyPressBehaviour(quKeyPressSearchCurCol);
  g.SetKeySearchFromCurRow(true);
  g.SetCurCell(4, 1);
  Type("ap");  // the current row matches itself
  EXPECT_EQ(g.CurRow(), 4);
  g.SetSearchString("");
  g.SetCurCell(5, 1);
  Type("c");  // nothing from row 5 on without looping
  EXPECT_EQ(g.CurRow(), 5);
  EXPECT_EQ(g.SearchString(), "");
  g.SetKeySearchLoop(true);
  Type("c");
  EXPECT_EQ(g.CurRow(), 3);
  Type("h");
  EXPECT_EQ(g.CurRow(), 3);
  EXPECT_EQ(g.SearchString(), "ch");
}

TEST_F(KeySearch, AltArrowsSearchAgainAndNavigationClearsTheText) {
  g.SetKeyPressBehaviour(quKeyPressSearchCurCol);
  g.SetCurCell(1, 1);
  Type("b");
  EXPECT_EQ(g.CurRow(), 2);
  g.DoKeyboardCommand(kDown, kAlt);
  EXPECT_EQ(g.CurRow(), 5);
  g.DoKeyboardCommand(kDown, kAlt);  // nothing further down
  EXPECT_EQ(g.CurRow(), 5);
  g.DoKeyboardCommand(kUp, kAlt);
  EXPECT_EQ(g.CurRow(), 2);
  EXPECT_EQ(g.SearchString(), "b");
  g.DoKeyboardCommand(kLeft);
  EXPECT_EQ(g.SearchString(), "");
  g.DoKeyboardCommand(kDown, kAlt);  // an empty text: a plain step down
  EXPECT_EQ(g.CurRow(), 3);
}

TEST_F(KeySearch, OtherBehavioursAndHostsThatSwallowCharacters) {
  g.SetCurCell(1, 1);
  g.SetKeySearchCol(1);
  g.SetKeyPressBehaviour(quKeyPressNone);
  Type("b");
  EXPECT_EQ(g.CurRow(), 1);
  g.SetKeyPressBehaviour(quKeyPressSearchDefCol);
  rec.keyPressReplacement = 0;
  Type("b");
  EXPECT_EQ(g.SearchString(), "");
  rec.keyPressReplacement = 'c';
  Type("b");
  EXPECT_EQ(g.CurRow(), 3);
  g.SetKeySearchCol(0);  // no search column: typing does nothing
  rec.keyPressReplacement = -1;
  Type("a");
  EXPECT_EQ(g.CurRow(), 3);
  EXPECT_THROW(g.SetKeySearchCol(4), Error);
}

}  // namespace
}  // namespace quilta::testing
