// The clipboard through the keys and the context menu: copy, copy with headers, cut, Delete and
// paste, with their events and the edit events of every changed cell.
#include <gtest/gtest.h>

#include <functional>
#include <quilta/quilta.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "consistency_checker.hpp"

namespace quilta {
namespace {

constexpr int16_t kC = 67, kV = 86, kX = 88, kDelete = 46, kApps = 93, kF10 = 121;
constexpr int16_t kShift = 1, kCtrl = 2;

struct Recorder : QuiltaEvents {
  std::vector<std::string> log;
  bool copyDefault = true, cutDefault = true, pasteDefault = true;
  bool addCols = false, addRows = false, showWarning = true;
  int32_t colsToAdd = -1, rowsToAdd = -1, colsAdded = -1, rowsAdded = -1;
  std::function<void(int32_t, int32_t, bool&, std::string&)> onRequest;
  std::function<void(int32_t, int32_t, EEditResults&, Variant&, int32_t)> onCommit;

  void BeforeCopy(bool bWithHeaders, bool& bDoDefault) override {
    log.push_back(bWithHeaders ? "BeforeCopy(headers)" : "BeforeCopy");
    bDoDefault = copyDefault;
  }
  void AfterCopy(bool bWithHeaders) override {
    log.push_back(bWithHeaders ? "AfterCopy(headers)" : "AfterCopy");
  }
  void BeforeCut(bool& bDoDefault) override {
    log.push_back("BeforeCut");
    bDoDefault = cutDefault;
  }
  void AfterCut() override { log.push_back("AfterCut"); }
  void BeforePaste(bool& bDoDefault, int32_t lColsToAdd, int32_t lRowsToAdd, bool& bAddCols,
                   bool& bAddRows, bool& bShowWarning) override {
    log.push_back("BeforePaste");
    colsToAdd = lColsToAdd;
    rowsToAdd = lRowsToAdd;
    bDoDefault = pasteDefault;
    bAddCols = addCols;
    bAddRows = addRows;
    bShowWarning = showWarning;
  }
  void AfterPaste(int32_t lColsAdded, int32_t lRowsAdded) override {
    log.push_back("AfterPaste");
    colsAdded = lColsAdded;
    rowsAdded = lRowsAdded;
  }
  void RequestEdit(int32_t lRow, int32_t lCol, int32_t, bool& bCancel, std::string& sText, int32_t&,
                   ETextEditFlags&) override {
    log.push_back("RequestEdit " + Cell(lRow, lCol) + " '" + sText + "'");
    if (onRequest) onRequest(lRow, lCol, bCancel, sText);
  }
  void BeforeCommitEdit(int32_t lRow, int32_t lCol, EEditResults& eResult, const std::string&,
                        Variant& vNewValue, int32_t lConvErr, bool, int32_t&) override {
    log.push_back("BeforeCommitEdit " + Cell(lRow, lCol) + (lConvErr ? " error" : ""));
    if (onCommit) onCommit(lRow, lCol, eResult, vNewValue, lConvErr);
  }
  void AfterCommitEdit(int32_t lRow, int32_t lCol, const Variant&) override {
    log.push_back("AfterCommitEdit " + Cell(lRow, lCol));
  }
  void CancelEdit(int32_t lRow, int32_t lCol) override {
    log.push_back("CancelEdit " + Cell(lRow, lCol));
  }
  static std::string Cell(int32_t r, int32_t c) {
    return std::to_string(r) + "," + std::to_string(c);
  }
  size_t Count(const std::string& prefix) const {
    size_t n = 0;
    for (const auto& s : log) n += s.rfind(prefix, 0) == 0;
    return n;
  }
};

class Clipboard : public ::testing::Test {
 protected:
  void SetUp() override {
    grid.SetMultiSelect(true);
    grid.AddCol({.lCount = 4});
    grid.AddRow({.lCount = 5});
    for (int32_t c = 1; c <= 4; ++c) grid.SetColHeaderText(c, "H" + std::to_string(c));
  }
  void Select(std::initializer_list<std::pair<int32_t, int32_t>> cells) {
    grid.ClearSelection();
    for (auto [r, c] : cells) grid.SetCellSelected(r, c, true);
  }
  void Fill() {
    for (int32_t r = 1; r <= grid.RowCount(); ++r)
      for (int32_t c = 1; c <= grid.ColCount(); ++c)
        grid.SetCellValue(r, c, std::to_string(r) + std::to_string(c));
  }
  std::string Text(int32_t r, int32_t c) { return grid.CellText(r, c); }
  void ExpectConsistent() {
    EXPECT_EQ(grid.BeginUpdateCount(), 0);
    const auto problems = testkit::ConsistencyChecker::ForGrid().Run(grid);
    EXPECT_TRUE(problems.empty()) << testkit::Describe(problems);
  }
  HeadlessPlatform platform;
  Quilta grid{platform};
  Recorder events;
};

// ---- Copy ------------------------------------------------------------------------------------

TEST_F(Clipboard, CopyLeavesOutRowsAndColumnsWithoutSelectedCells) {
  grid.SetCellValue(1, 1, "a");
  grid.SetCellValue(3, 2, "b");
  grid.SetCellValue(2, 1, "not copied");
  Select({{1, 1}, {3, 2}});
  grid.DoKeyboardCommand(kC, kCtrl);
  EXPECT_EQ(platform.GetClipboardText(), "a\t\r\n\tb");
  // Headers name the copied columns only, on a line of their own.
  grid.DoKeyboardCommand(kC, kCtrl | kShift);
  EXPECT_EQ(platform.GetClipboardText(), "H1\tH2\r\na\t\r\n\tb");
}

TEST_F(Clipboard, CopyQuotesOnlyTextsWithLineBreaks) {
  grid.SetCellValue(1, 1, "x\r\ny");
  grid.SetCellValue(1, 2, "say \"hi\"");
  grid.SetCellValue(1, 3, "two\r\nbreaks\r\n");
  Select({{1, 1}, {1, 2}, {1, 3}});
  grid.DoKeyboardCommand(kC, kCtrl);
  EXPECT_EQ(platform.GetClipboardText(), "\"x\ny\"\tsay \"hi\"\t\"two\nbreaks\n\"");
}

TEST_F(Clipboard, CopyOrdersColumnsByDisplayPositionAndIncludesTheRowTextColumn) {
  Fill();
  grid.SetColPos(3, 1);  // column 3 now shows first
  grid.SetCellValue(2, grid.RowTextCol(), "rt");
  grid.SetDrawRowText(true);
  Select({{2, 1}, {2, 3}, {2, grid.RowTextCol()}});
  grid.DoKeyboardCommand(kC, kCtrl);
  EXPECT_EQ(platform.GetClipboardText(), "23\t21\trt");
}

TEST_F(Clipboard, RowModeCopiesTheShownColumnsOfTheSelectedRows) {
  Fill();
  grid.SetRowMode(true);
  grid.SetColVisible(2, false);
  grid.SetCurCell(2, 1);
  grid.DoKeyboardCommand(40, kShift);  // Shift+Down: rows 2 and 3
  grid.DoKeyboardCommand(kC, kCtrl);
  EXPECT_EQ(platform.GetClipboardText(), "21\t23\t24\r\n31\t33\t34");
}

TEST_F(Clipboard, CopyEventsAndTheirVeto) {
  grid.SetEventSink(&events);
  grid.SetCellValue(1, 1, "a");
  Select({{1, 1}});
  platform.SetClipboardTextFromOtherProgram("untouched");
  events.copyDefault = false;
  grid.DoKeyboardCommand(kC, kCtrl);
  EXPECT_EQ(platform.GetClipboardText(), "untouched");
  EXPECT_EQ(events.log, std::vector<std::string>{"BeforeCopy"});

  events.log.clear();
  events.copyDefault = true;
  grid.DoKeyboardCommand(kC, kCtrl | kShift);
  EXPECT_EQ(events.log, (std::vector<std::string>{"BeforeCopy(headers)", "AfterCopy(headers)"}));
  EXPECT_EQ(platform.GetClipboardText(), "H1\r\na");

  // Nothing selected: no events, nothing placed.
  events.log.clear();
  grid.ClearSelection();
  grid.DoKeyboardCommand(kC, kCtrl);
  grid.DoKeyboardCommand(kDelete);
  grid.DoKeyboardCommand(kX, kCtrl);
  EXPECT_TRUE(events.log.empty());
  EXPECT_EQ(platform.GetClipboardText(), "H1\r\na");
}

// ---- Cut and Delete ----------------------------------------------------------------------------

TEST_F(Clipboard, CutCopiesThenClearsEachCellThroughTheEditEvents) {
  Fill();
  grid.SetEventSink(&events);
  Select({{1, 1}, {1, 2}});
  grid.DoKeyboardCommand(kX, kCtrl);
  EXPECT_EQ(events.log,
            (std::vector<std::string>{"BeforeCut", "RequestEdit 1,1 ''", "BeforeCommitEdit 1,1",
                                      "AfterCommitEdit 1,1", "RequestEdit 1,2 ''",
                                      "BeforeCommitEdit 1,2", "AfterCommitEdit 1,2", "AfterCut"}));
  EXPECT_EQ(platform.GetClipboardText(), "11\t12");
  EXPECT_EQ(Text(1, 1), "");
  EXPECT_EQ(Text(1, 2), "");
  EXPECT_EQ(Text(1, 3), "13");
  ExpectConsistent();
}

TEST_F(Clipboard, RefusedAndNonEditableCellsKeepTheirValues) {
  Fill();
  grid.SetEventSink(&events);
  events.onRequest = [](int32_t r, int32_t c, bool& cancel, std::string&) {
    cancel = r == 1 && c == 1;
  };
  events.onCommit = [](int32_t r, int32_t c, EEditResults& result, Variant&, int32_t) {
    if (r == 1 && c == 2) result = quEditResCancel;
  };
  grid.SetCellType(1, 4, quCellCustomDraw);  // no editor: not cleared
  Select({{1, 1}, {1, 2}, {1, 3}, {1, 4}});
  grid.DoKeyboardCommand(kDelete);
  EXPECT_EQ(Text(1, 1), "11");
  EXPECT_EQ(Text(1, 2), "12");
  EXPECT_EQ(Text(1, 3), "");
  EXPECT_EQ(grid.CellValue(1, 4), Variant("14"));
  EXPECT_EQ(events.Count("CancelEdit 1,2"), 1u);
  EXPECT_EQ(events.Count("RequestEdit 1,4"), 0u);
  // Delete never touches the clipboard.
  EXPECT_EQ(events.Count("BeforeCut"), 0u);
  EXPECT_EQ(platform.GetClipboardText(), "");
}

TEST_F(Clipboard, ACancelledCutChangesNothing) {
  Fill();
  Select({{2, 2}});
  grid.SetEventSink(&events);
  events.cutDefault = false;  // the host takes the cut over
  grid.DoKeyboardCommand(kX, kCtrl);
  EXPECT_EQ(Text(2, 2), "22");
  EXPECT_EQ(platform.GetClipboardText(), "");
  EXPECT_EQ(events.log, std::vector<std::string>{"BeforeCut"});
}

TEST_F(Clipboard, GroupRowsAreClearedOnlyWithGroupRowEditing) {
  grid.AddRow({.bGroupRow = true});
  const int32_t g = grid.RowCount();
  const int32_t rt = grid.RowTextCol();
  grid.SetCellValue(g, rt, "group");
  grid.SetCellSelected(g, rt, true);
  grid.DoKeyboardCommand(kDelete);
  EXPECT_EQ(Text(g, rt), "group");
  grid.SetAllowGroupRowEditing(true);
  grid.DoKeyboardCommand(kDelete);
  EXPECT_EQ(Text(g, rt), "");
}

// ---- Paste -------------------------------------------------------------------------------------

TEST_F(Clipboard, PasteReadsSpreadsheetTextFromTheCurrentCell) {
  grid.SetCurCell(2, 2);
  platform.SetClipboardTextFromOtherProgram(
      "a\t\"b\tc\"\r\n\"multi\nline\"\t\"say \"\"hi\"\"\"\nlast\t\r\n");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(2, 2), "a");
  EXPECT_EQ(Text(2, 3), "b\tc");
  EXPECT_EQ(Text(3, 2), "multi\nline");
  EXPECT_EQ(Text(3, 3), "say \"hi\"");
  EXPECT_EQ(Text(4, 2), "last");
  EXPECT_EQ(Text(5, 2), "");  // the trailing line break is no row
  // The pasted block is the selection, its top-left cell current.
  EXPECT_EQ(grid.SelItems().Count(), 6);
  EXPECT_TRUE(grid.CellSelected(4, 3));
  EXPECT_EQ(grid.CurRow(), 2);
  EXPECT_EQ(grid.CurCol(), 2);
  ExpectConsistent();
}

TEST_F(Clipboard, PasteStartsAtTheSelectedRectangleAndOneValueFillsIt) {
  grid.SetCurCell(5, 4);
  Select({{2, 2}, {2, 3}, {3, 2}, {3, 3}});
  platform.SetClipboardTextFromOtherProgram("7");
  grid.DoKeyboardCommand(kV, kCtrl);
  for (int32_t r = 2; r <= 3; ++r)
    for (int32_t c = 2; c <= 3; ++c) EXPECT_EQ(Text(r, c), "7") << r << "," << c;
  EXPECT_EQ(Text(5, 4), "");
  // A larger block starts at the rectangle's top-left cell.
  platform.SetClipboardTextFromOtherProgram("p\tq");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(2, 2), "p");
  EXPECT_EQ(Text(2, 3), "q");
  EXPECT_EQ(Text(3, 2), "7");
  // A selection that is not one rectangle: the block goes to the current cell.
  grid.SetCurCell(4, 3);  // selects (4, 3) as a click does
  grid.SetCellSelected(1, 1, true);
  platform.SetClipboardTextFromOtherProgram("z");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(4, 3), "z");
  EXPECT_EQ(Text(1, 1), "");
}

// Hidden columns and rows between selected ones do not break the rectangle: a row selected in row
// mode pastes from its first shown column, and the pasted rows become the selection.
TEST_F(Clipboard, HiddenColumnsInsideASelectedRowKeepItOneRectangle) {
  grid.SetColVisible(2, false);
  grid.SetRowMode(true);
  grid.SetColPos(4, 1);  // shown order: 4, 1, (2 hidden), 3
  grid.SetCurCell(2, 3);
  platform.SetClipboardTextFromOtherProgram("a\tb\r\nc\td");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(2, 4), "a");
  EXPECT_EQ(Text(2, 1), "b");
  EXPECT_EQ(Text(3, 4), "c");
  EXPECT_EQ(Text(3, 1), "d");
  EXPECT_EQ(Text(2, 3), "");
  EXPECT_TRUE(grid.CellSelected(2, 3));
  EXPECT_TRUE(grid.CellSelected(3, 3));
  EXPECT_EQ(grid.SelItems().Count(), 2);
  // One value fills the selected cells of the rectangle, not the hidden column inside it.
  grid.SetRowMode(false);
  Select({{4, 1}, {4, 3}, {5, 1}, {5, 3}});
  platform.SetClipboardTextFromOtherProgram("f");
  grid.DoKeyboardCommand(kV, kCtrl);
  for (int32_t r = 4; r <= 5; ++r) {
    EXPECT_EQ(Text(r, 1), "f");
    EXPECT_EQ(Text(r, 2), "");
    EXPECT_EQ(Text(r, 3), "f");
  }
  EXPECT_EQ(Text(4, 4), "");
  ExpectConsistent();
}

TEST_F(Clipboard, OwnBlockIsPastedWithItsHoles) {
  Fill();
  Select({{1, 1}, {2, 2}});
  grid.DoKeyboardCommand(kC, kCtrl);
  grid.SetCurCell(4, 1);
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(4, 1), "11");
  EXPECT_EQ(Text(4, 2), "42");  // a hole: left alone
  EXPECT_EQ(Text(5, 1), "51");  // a hole
  EXPECT_EQ(Text(5, 2), "22");
  // Once another program changes the clipboard, its text is pasted as it stands.
  platform.SetClipboardTextFromOtherProgram("a\t\r\n\tb");
  grid.SetCurCell(1, 3);
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(1, 3), "a");
  EXPECT_EQ(Text(1, 4), "");
  EXPECT_EQ(Text(2, 3), "");
  EXPECT_EQ(Text(2, 4), "b");
}

TEST_F(Clipboard, StrayQuotesAndLoneCarriageReturnsArePlainText) {
  grid.SetCurCell(1, 1);
  // A quote that is never closed quotes nothing.
  platform.SetClipboardTextFromOtherProgram("\"open\tx\r\nfive\ta\rb");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(1, 1), "\"open");
  EXPECT_EQ(Text(1, 2), "x");
  EXPECT_EQ(Text(2, 1), "five");
  EXPECT_EQ(Text(2, 2), "a\rb");
  // A quote inside a cell is a character; text after a closing quote stays with its cell.
  platform.SetClipboardTextFromOtherProgram("5\" inch\t\"q\"tail");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(1, 1), "5\" inch");
  EXPECT_EQ(Text(1, 2), "qtail");
}

TEST_F(Clipboard, ACopyWithHeadersPastesAsItsText) {
  Fill();
  Select({{1, 1}});
  grid.DoKeyboardCommand(kC, kCtrl | kShift);
  grid.SetCurCell(3, 3);
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(3, 3), "H1");
  EXPECT_EQ(Text(4, 3), "11");
}

TEST_F(Clipboard, CutThenPasteMovesTheCells) {
  Fill();
  Select({{1, 1}, {1, 2}});
  grid.DoKeyboardCommand(kX, kCtrl);
  grid.SetCurCell(5, 3);
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(1, 1), "");
  EXPECT_EQ(Text(5, 3), "11");
  EXPECT_EQ(Text(5, 4), "12");
}

TEST_F(Clipboard, PastedTextsConvertToTheCellsTypes) {
  grid.SetEventSink(&events);
  grid.SetCellValue(1, 1, 5);
  grid.SetCellValue(1, 2, 2.5);
  grid.SetCellValue(1, 3, 7);
  grid.SetCurCell(1, 1);
  platform.SetClipboardTextFromOtherProgram("12\t3.25\tnot a number");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(grid.CellValue(1, 1), Variant(12));
  EXPECT_EQ(grid.CellValue(1, 2), Variant(3.25));
  EXPECT_EQ(grid.CellValue(1, 3), Variant(7));  // does not convert: left alone
  EXPECT_EQ(events.Count("BeforeCommitEdit 1,3 error"), 1u);
  EXPECT_EQ(events.Count("CancelEdit 1,3"), 1u);
  // The host may supply a value for a text that does not convert, and correct the others.
  events.onCommit = [](int32_t, int32_t c, EEditResults&, Variant& v, int32_t err) {
    if (err) v = Variant(-1);
    if (c == 1) v = Variant(100);
  };
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(grid.CellValue(1, 1), Variant(100));
  EXPECT_EQ(grid.CellValue(1, 3), Variant(-1));
}

TEST_F(Clipboard, ComboCellsTakeTheIndexOfTheItemShowingThePastedText) {
  ComboObject& list = grid.Combos().Add("sizes");
  list.AddItem("small");
  list.AddItem("large");
  for (int32_t c = 1; c <= 2; ++c) {
    grid.SetCellType(1, c, quCellTextCombo);
    grid.SetCellCtrlKey(1, c, "sizes");
  }
  grid.SetCurCell(1, 1);
  platform.SetClipboardTextFromOtherProgram("large\tmedium");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(grid.CellComboListIndex(1, 1), 1);
  EXPECT_EQ(grid.CellComboListIndex(1, 2), -1);
  EXPECT_EQ(Text(1, 2), "medium");
}

TEST_F(Clipboard, VetoedCellsKeepTheirValuesAndTheRestIsPasted) {
  Fill();
  grid.SetEventSink(&events);
  events.onRequest = [](int32_t r, int32_t, bool& cancel, std::string& text) {
    cancel = r == 1;
    if (r == 2) text = "<" + text + ">";  // the host corrects the text
  };
  grid.SetCurCell(1, 1);
  platform.SetClipboardTextFromOtherProgram("a\r\nb");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(1, 1), "11");
  EXPECT_EQ(Text(2, 1), "<b>");
  EXPECT_EQ(events.log.front(), "BeforePaste");
  EXPECT_EQ(events.log.back(), "AfterPaste");
}

TEST_F(Clipboard, GrowthAllowedAddsColumnsAndRows) {
  grid.SetEventSink(&events);
  events.addCols = events.addRows = true;
  grid.SetCurCell(5, 4);
  platform.SetClipboardTextFromOtherProgram("a\tb\tc\r\nd\te\tf");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(events.colsToAdd, 2);
  EXPECT_EQ(events.rowsToAdd, 1);
  EXPECT_EQ(events.colsAdded, 2);
  EXPECT_EQ(events.rowsAdded, 1);
  EXPECT_EQ(grid.ColCount(), 6);
  EXPECT_EQ(grid.RowCount(), 6);
  EXPECT_EQ(Text(6, 6), "f");
  EXPECT_TRUE(platform.Messages().empty());
  ExpectConsistent();
}

TEST_F(Clipboard, GrowthRefusedWarnsAndDropsWhatDoesNotFit) {
  grid.SetEventSink(&events);
  grid.SetCurCell(5, 4);
  platform.SetClipboardTextFromOtherProgram("a\tb\r\nc\td");
  // Declined: nothing is pasted, AfterPaste is not raised.
  platform.QueueMessageBoxResult(MessageBoxResult::No);
  grid.DoKeyboardCommand(kV, kCtrl);
  ASSERT_EQ(platform.Messages().size(), 1u);
  EXPECT_EQ(platform.Messages()[0].title, "Paste Operation");
  EXPECT_EQ(platform.Messages()[0].text,
            "Not enough rows/columns to paste all data.\r\nProceed (some data won't be pasted)?");
  EXPECT_EQ(Text(5, 4), "");
  EXPECT_EQ(events.Count("AfterPaste"), 0u);
  // Accepted: what fits is pasted, the rest dropped, nothing added.
  platform.QueueMessageBoxResult(MessageBoxResult::Yes);
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(5, 4), "a");
  EXPECT_EQ(grid.ColCount(), 4);
  EXPECT_EQ(grid.RowCount(), 5);
  EXPECT_EQ(events.colsAdded, 0);
  EXPECT_EQ(events.rowsAdded, 0);
  // The host may silence the warning, or cancel the paste altogether.
  events.showWarning = false;
  platform.SetClipboardTextFromOtherProgram("x\ty");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(5, 4), "x");
  events.pasteDefault = false;
  platform.SetClipboardTextFromOtherProgram("w");
  grid.DoKeyboardCommand(kV, kCtrl);
  EXPECT_EQ(Text(5, 4), "x");
  EXPECT_EQ(platform.Messages().size(), 2u);
}

struct Throwing : Recorder {
  void BeforeCommitEdit(int32_t lRow, int32_t, EEditResults&, const std::string&, Variant&, int32_t,
                        bool, int32_t&) override {
    if (lRow == 3) throw std::runtime_error("host failure");
  }
};

TEST_F(Clipboard, AThrowingHandlerLeavesTheGridConsistent) {
  Throwing thrower;
  thrower.addRows = true;
  grid.SetEventSink(&thrower);
  grid.SetCurCell(2, 1);
  platform.SetClipboardTextFromOtherProgram("a\r\nb\r\nc\r\nd\r\ne\r\nf");
  EXPECT_THROW(grid.DoKeyboardCommand(kV, kCtrl), std::runtime_error);
  EXPECT_EQ(Text(2, 1), "a");
  EXPECT_EQ(Text(4, 1), "");
  ExpectConsistent();
  Select({{2, 1}, {3, 1}});
  EXPECT_THROW(grid.DoKeyboardCommand(kX, kCtrl), std::runtime_error);
  ExpectConsistent();
  // The grid works on afterwards.
  grid.SetEventSink(nullptr);
  grid.DoKeyboardCommand(kDelete);
  EXPECT_EQ(Text(2, 1), "");
}

// ---- The built-in context menu -----------------------------------------------------------------

TEST_F(Clipboard, ContextMenuOffersTheCommandsThatWouldDoSomething) {
  Fill();
  grid.SetCurCell(2, 2);
  grid.DoKeyboardCommand(32, kCtrl);  // Ctrl+Space: the current cell is no longer selected
  ASSERT_EQ(grid.SelItems().Count(), 0);
  grid.DoKeyboardCommand(kApps);
  std::vector<std::string> captions;
  std::vector<bool> enabled;
  for (const MenuItem& m : platform.LastMenu()) {
    captions.push_back(m.caption);
    enabled.push_back(m.enabled);
  }
  EXPECT_EQ(captions, (std::vector<std::string>{"Cut", "Copy", "Copy with Headers", "Paste", "",
                                                "Sort Ascending", "Sort Descending"}));
  // Nothing selected, an empty clipboard: only sorting is possible.
  EXPECT_EQ(enabled, (std::vector<bool>{false, false, false, false, true, true, true}));

  Select({{2, 2}});
  platform.QueueMenuChoice(3);  // Copy with Headers
  grid.DoKeyboardCommand(kF10, kShift);
  EXPECT_EQ(platform.GetClipboardText(), "H2\r\n22");
  EXPECT_TRUE(platform.LastMenu()[0].enabled);

  grid.SetBuiltinContextMenus(false);
  platform.SetClipboardTextFromOtherProgram("");
  platform.QueueMenuChoice(2);
  grid.DoKeyboardCommand(kApps);
  EXPECT_EQ(platform.GetClipboardText(), "");
}

TEST_F(Clipboard, RightClickMenuSortsByTheClickedColumn) {
  for (int32_t r = 1; r <= 5; ++r) grid.SetCellValue(r, 2, 10 - r);
  int32_t x = 0, y = 0, right = 0, bottom = 0;
  grid.CellBoundary(3, 2, x, y, right, bottom);
  platform.QueueMenuChoice(5);  // Sort Ascending
  grid.HostMouseDown(2, 0, x + 2, y + 2);
  grid.HostMouseUp(2, 0, x + 2, y + 2);
  ASSERT_FALSE(platform.LastMenu().empty());
  EXPECT_EQ(grid.CellValue(1, 2), Variant(5));
  EXPECT_EQ(grid.CellValue(5, 2), Variant(9));
}

}  // namespace
}  // namespace quilta
