// In-cell editing driven end to end through the headless text box and drop-down list.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "control/internals_access.hpp"
#include "model/test_support.hpp"

namespace quilta::testing {
namespace {

struct EditLog : QuiltaEvents {
  std::vector<std::string> order;
  bool cancelRequest = false;
  std::string replaceText;
  EEditResults result = quEditResCommit;
  int32_t lastConvErr = -1;
  bool cancelCheck = false;
  void RequestEdit(int32_t, int32_t, int32_t code, bool& bCancel, std::string& sText,
                   int32_t& lMaxLength, ETextEditFlags&) override {
    order.push_back("RequestEdit " + std::to_string(code) + " " + sText);
    bCancel = cancelRequest;
    if (!replaceText.empty()) sText = replaceText;
    lMaxLength = 6;
  }
  void TextEditStarted() override { order.push_back("Started"); }
  void BeforeCommitEdit(int32_t, int32_t, EEditResults& eResult, const std::string& sNewText,
                        Variant& vNewValue, int32_t lConvErr, bool bCanProceed, int32_t&) override {
    order.push_back("BeforeCommit " + sNewText + (bCanProceed ? " user" : " api"));
    lastConvErr = lConvErr;
    eResult = result;
    (void)vNewValue;
  }
  void AfterCommitEdit(int32_t, int32_t, const Variant& vOld) override {
    order.push_back("AfterCommit " + CStr(vOld));
  }
  void CancelEdit(int32_t, int32_t) override { order.push_back("Cancel"); }
  void InputValidationError(int32_t lConvErr, std::string& sErrDescr) override {
    order.push_back("Invalid " + std::to_string(lConvErr) + " " + sErrDescr);
  }
  void QuitCustomEdit() override { order.push_back("Quit"); }
  void BeforeCellCheckChange(int32_t, int32_t, ECellCheckState& s, bool& bCancel) override {
    order.push_back("BeforeCheck " + std::to_string(s));
    bCancel = cancelCheck;
  }
  void AfterCellCheckChange(int32_t, int32_t, ECellCheckState old) override {
    order.push_back("AfterCheck " + std::to_string(old));
  }
};

struct EditFixture {
  HeadlessPlatform platform;
  Quilta grid{platform};
  EditLog log;
  EditFixture() {
    grid.AddCol({.sKey = "qty"});
    grid.AddCol({.sKey = "name"});
    grid.AddRow({.lCount = 3});
    grid.SetCellValue(1, "qty", 5);
    grid.SetCellValue(1, "name", "pen");
    grid.SetEventSink(&log);
    Focus(1, 1);
  }
  void Focus(int32_t row, int32_t col) { control::Internals(grid).SetCurrentCell(row, col); }
  HeadlessTextBox& Box() { return *platform.ActiveTextBox(); }
};

TEST(Editing, TypedTextIsConvertedToTheCellsTypeAndCommittedWithItsEvents) {
  EditFixture f;
  f.grid.RequestEditCurCell('7');  // the default behaviour replaces the text
  ASSERT_TRUE(f.grid.IsEditing());
  EXPECT_EQ(f.Box().Text(), "7");
  EXPECT_EQ(f.Box().Options().maxLength, 6);
  f.Box().Type("2xyz123");  // the host's maximum length of 6 stops the typing
  EXPECT_EQ(f.grid.TextEditText(), "72xyz1");
  f.grid.SetTextEditText("42");
  f.grid.CommitEditCurCell();
  EXPECT_FALSE(f.grid.IsEditing());
  EXPECT_EQ(f.grid.CellValue(1, "qty"), Variant(42));  // stays a Long
  EXPECT_EQ(f.log.order, (std::vector<std::string>{"RequestEdit 55 7", "Started",
                                                   "BeforeCommit 42 api", "AfterCommit 5"}));
  EXPECT_EQ(f.platform.ActiveTextBox(), nullptr);
}

TEST(Editing, AFailedConversionShowsTheMessageAndKeepsTheEditOpen) {
  EditFixture f;
  f.grid.RequestEditCurCell(13);
  EXPECT_EQ(f.Box().Text(), "5");
  f.grid.SetTextEditText("many");
  f.grid.CommitEditCurCell();
  ASSERT_TRUE(f.grid.IsEditing());
  ASSERT_EQ(f.platform.Messages().size(), 1u);
  EXPECT_EQ(f.platform.Messages()[0].title, "Input Validation");
  EXPECT_EQ(f.platform.Messages()[0].text, "Invalid value:\r\nType mismatch.");
  EXPECT_EQ(f.platform.Messages()[0].icon, MessageBoxIcon::Stop);
  EXPECT_EQ(f.log.order.back(), "Invalid 13 Type mismatch.");
  EXPECT_EQ(f.grid.CellValue(1, "qty"), Variant(5));

  f.grid.SetSilentValidation(true);  // no message: the host sees the error in BeforeCommitEdit
  f.log.result = quEditResCancel;
  f.grid.CommitEditCurCell();
  EXPECT_EQ(f.log.lastConvErr, 13);
  EXPECT_EQ(f.platform.Messages().size(), 1u);
  EXPECT_FALSE(f.grid.IsEditing());
  EXPECT_EQ(f.log.order.back(), "Cancel");
}

TEST(Editing, ProceedKeepsAUserEditOpenButClosesAnApiCommitWithoutStoring) {
  EditFixture f;
  f.log.result = quEditResProceed;
  f.grid.RequestEditCurCell();
  f.grid.SetTextEditText("9");
  EXPECT_FALSE(control::Internals(f.grid).editor.Commit(true));  // Enter by the user
  EXPECT_TRUE(f.grid.IsEditing());
  f.grid.CommitEditCurCell();  // by the host: editing cannot go on
  EXPECT_FALSE(f.grid.IsEditing());
  EXPECT_EQ(f.grid.CellValue(1, "qty"), Variant(5));
}

TEST(Editing, RefusedEditsRaiseNothing) {
  EditFixture f;
  f.grid.SetEditable(false);
  f.grid.RequestEditCurCell();
  f.grid.SetEditable(true);
  f.grid.RequestEditCurCell(' ');  // space and control characters never start an edit
  f.grid.RequestEditCurCell(9);
  f.Focus(0, 0);
  f.grid.RequestEditCurCell();
  EXPECT_TRUE(f.log.order.empty());
  f.Focus(1, 1);
  f.log.cancelRequest = true;
  f.grid.RequestEditCurCell();
  EXPECT_FALSE(f.grid.IsEditing());
  ExpectError(522, [&] { f.grid.SetTextEditText("x"); });
  EXPECT_EQ(f.grid.TextEditText(), "");
}

TEST(Editing, BackspaceAndAppendBehaviourShapeTheStartingText) {
  EditFixture f;
  f.Focus(1, 2);
  f.grid.SetKeyPressBehaviour(quKeyPressEditAppend);
  f.grid.RequestEditCurCell('s');
  EXPECT_EQ(f.grid.TextEditText(), "pens");
  f.grid.CancelEditCurCell();
  EXPECT_EQ(f.log.order.back(), "Cancel");
  f.grid.RequestEditCurCell(8);
  EXPECT_EQ(f.grid.TextEditText(), "");
  f.grid.CommitEditCurCell();
  EXPECT_EQ(f.grid.CellValue(1, 2), Variant(""));  // a text cell keeps the empty text
}

TEST(Editing, GeometryChangesEndTheEditWithoutStoring) {
  EditFixture f;
  f.grid.RequestEditCurCell();
  f.grid.SetTextEditText("8");
  f.grid.SetColWidth(1, 90);
  EXPECT_FALSE(f.grid.IsEditing());
  EXPECT_EQ(f.grid.CellValue(1, 1), Variant(5));
  EXPECT_EQ(f.log.order.back(), "Cancel");
}

TEST(Editing, CheckBoxesCycleThroughTheirStatesUnlessTheHostCancels) {
  EditFixture f;
  f.grid.SetCellCheckVisible(1, 1, true);
  auto& editor = control::Internals(f.grid).editor;
  editor.ToggleCheck(1, 1);
  editor.ToggleCheck(1, 1);
  EXPECT_EQ(f.grid.CellCheckState(1, 1), quCheckStateUnchecked);  // two states
  f.grid.SetCellTypeFlags(1, 1, quCheckBox3State);
  for (ECellCheckState want : {quCheckStateChecked, quCheckStateGrayed, quCheckStateUnchecked}) {
    editor.ToggleCheck(1, 1);
    EXPECT_EQ(f.grid.CellCheckState(1, 1), want);
  }
  f.log.cancelCheck = true;
  f.log.order.clear();
  editor.ToggleCheck(1, 1);
  EXPECT_EQ(f.grid.CellCheckState(1, 1), quCheckStateUnchecked);
  EXPECT_EQ(f.log.order, (std::vector<std::string>{"BeforeCheck 1"}));
}

TEST(Editing, AComboListWithoutTextBoxStoresTheChosenItemsValue) {
  EditFixture f;
  ComboObject& sizes = f.grid.Combos().Add("sizes");
  sizes.AddItem("Small", 1);
  sizes.AddItem("Large", 2);
  f.grid.SetCellCtrlKey(2, 1, "sizes");
  f.grid.SetCellType(2, 1, quCellCombo);
  f.grid.SetCellValue(2, 1, 2);
  f.Focus(2, 1);
  f.grid.SetKeyPressBehaviour(quKeyPressEditReplace);
  f.grid.RequestEditCurCell('s');  // the character starts a list search
  HeadlessDropDown* list = f.platform.ActiveDropDown();
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->Options().selected, 1);  // positioned on the cell's value
  EXPECT_EQ(list->HighlightedIndex(), 0);
  list->Choose(0);
  EXPECT_FALSE(f.grid.IsEditing());
  EXPECT_EQ(f.grid.CellValue(2, 1), Variant(1));
  EXPECT_EQ(f.grid.CellText(2, 1), "Small");
  EXPECT_EQ(f.grid.CellComboListIndex(2, 1), 0);
}

}  // namespace
}  // namespace quilta::testing

namespace quilta::testing {
namespace {

TEST(EditingByKeys, F2TypingEnterAndTabCommitThroughTheKeyboard) {
  EditFixture f;
  f.grid.SetCurCell(1, 1);
  f.grid.DoKeyboardCommand(113);  // F2
  ASSERT_TRUE(f.grid.IsEditing());
  f.grid.SetTextEditText("");
  f.Box().Type("17");
  f.grid.DoKeyboardCommand(13);  // Enter commits and does nothing more
  EXPECT_FALSE(f.grid.IsEditing());
  EXPECT_EQ(f.grid.CellValue(1, 1), Variant(17));
  EXPECT_EQ(f.grid.CurCol(), 1);

  f.grid.DoKeyboardCommand(113);
  f.grid.SetTextEditText("x1");
  f.grid.DoKeyboardCommand(9);  // Tab: the bad value keeps the edit open, the cell stays current
  EXPECT_TRUE(f.grid.IsEditing());
  EXPECT_EQ(f.grid.CurCol(), 1);
  f.grid.SetTextEditText("18");
  f.grid.DoKeyboardCommand(9);  // now it commits and moves right
  EXPECT_FALSE(f.grid.IsEditing());
  EXPECT_EQ(f.grid.CellValue(1, 1), Variant(18));
  EXPECT_EQ(f.grid.CurCol(), 2);

  f.grid.DoKeyboardCommand(113);
  f.grid.DoKeyboardCommand(27);  // Esc cancels
  EXPECT_FALSE(f.grid.IsEditing());
  EXPECT_EQ(f.log.order.back(), "Cancel");
}

TEST(EditingByKeys, SpaceTogglesTheCheckBoxOfTheCurrentCell) {
  EditFixture f;
  f.grid.SetCellCheckVisible(2, 2, true);
  f.grid.SetCurCell(2, 2);
  f.grid.DoKeyboardCommand(32);
  EXPECT_EQ(f.grid.CellCheckState(2, 2), quCheckStateChecked);
  f.grid.SetEditable(false);
  f.grid.DoKeyboardCommand(32);
  EXPECT_EQ(f.grid.CellCheckState(2, 2), quCheckStateChecked);
}

TEST(EditingByKeys, AHandlerThatThrowsLeavesTheEditorConsistent) {
  struct Throwing : EditLog {
    void BeforeCommitEdit(int32_t, int32_t, EEditResults&, const std::string&, Variant&, int32_t,
                          bool, int32_t&) override {
      throw std::runtime_error("host failure");
    }
  } host;
  EditFixture f;
  f.grid.SetEventSink(&host);
  f.grid.RequestEditCurCell();
  f.grid.SetTextEditText("9");
  EXPECT_THROW(f.grid.CommitEditCurCell(), std::runtime_error);
  EXPECT_EQ(f.grid.CellValue(1, 1), Variant(5));  // nothing stored
  EXPECT_TRUE(f.grid.IsEditing());                // the edit is still there to finish or cancel
  f.grid.CancelEditCurCell();
  EXPECT_FALSE(f.grid.IsEditing());
}

}  // namespace
}  // namespace quilta::testing
