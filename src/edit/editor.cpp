#include "edit/editor.hpp"

#include <algorithm>
#include <cmath>
#include <quilta/error.hpp>

#include "model/text/text.hpp"

namespace quilta::edit {
namespace {

using model::Prop;

constexpr char kValidationTitle[] = "Input Validation";
constexpr char kInvalidValue[] = "Invalid value:";

bool IsRefusedControlCharacter(int32_t c) {
  return (c >= 1 && c <= 7) || (c >= 9 && c <= 12) || (c >= 14 && c <= 32);
}

Variant ConvertTo(const std::string& text, VarType type) {
  const Variant t(text);
  switch (type) {
    case vbInteger:
      return Variant(CInt(t));
    case vbLong:
      return Variant(CLng(t));
    case vbByte:
      return Variant(CByte(t));
    case vbSingle:
      return Variant(CSng(t));
    case vbCurrency:
      return CCur(t);
    case vbDate:
      return CDate(t);
    case vbBoolean:
      return Variant(CBool(t));
    case vbDouble:
    case vbDecimal:  // kept as the nearest Double
      return Variant(CDbl(t));
    case vbLongLong: {
      const double d = CDbl(t);
      if (!(d > -9.3e18 && d < 9.3e18)) throw Error::Runtime(6);
      return Variant(static_cast<int64_t>(std::nearbyint(d)));
    }
    default:
      return t;
  }
}

}  // namespace

EditKind EditKindOf(ECellTypes type) {
  switch (type) {
    case quCellText:
      return EditKind::TextBox;
    case quCellCombo:
      return EditKind::ComboList;
    case quCellTextCombo:
      return EditKind::TextBoxWithCombo;
    default:
      return EditKind::None;
  }
}

Conversion ConvertEditText(const std::string& text, VarType type) {
  Conversion c;
  if (type == vbString || type == vbEmpty || type == vbNull) {
    c.value = Variant(text);
    return c;
  }
  if (text.empty()) return c;  // an emptied cell holds no value
  try {
    c.value = ConvertTo(text, type);
  } catch (const Error& e) {
    c.error = e.Number();
    c.description = e.Description();
  }
  return c;
}

// ---- Starting --------------------------------------------------------------------------

bool Editor::Refused(int32_t charCode) const {
  const int32_t row = site_.CurRow(), col = site_.CurCol();
  if (!props_.Bool(Prop::Editable) || row < 1 || col < 1) return true;
  if (store_.Rows().At(row).GroupRow() && !props_.Bool(Prop::AllowGroupRowEditing)) return true;
  return IsRefusedControlCharacter(charCode);
}

std::string Editor::InitialText(int32_t charCode) const {
  if (charCode == 8) return {};
  std::string text = site_.CellText(row_, col_);
  if (charCode == 0 || charCode == 13) return text;
  const char32_t ch = static_cast<char32_t>(charCode);
  const std::string typed = text::EncodeUtf8(std::u32string_view(&ch, 1));
  const auto behaviour = static_cast<EKeyPressBehaviour>(props_.Long(Prop::KeyPressBehaviour));
  return behaviour == quKeyPressEditAppend ? text + typed : typed;
}

void Editor::RequestEdit(int32_t charCode, bool showCombo) {
  if (!props_.Bool(Prop::Enabled) || IsEditing()) return;
  const bool character = charCode != 0 && charCode != 13;
  const auto behaviour = static_cast<EKeyPressBehaviour>(props_.Long(Prop::KeyPressBehaviour));
  if (character && (behaviour == quKeyPressSearchCurCol || behaviour == quKeyPressSearchDefCol)) {
    site_.KeySearchCharacter(charCode);
    return;
  }
  if (character && behaviour == quKeyPressNone) return;
  if (Refused(charCode)) return;
  row_ = site_.CurRow();
  col_ = site_.CurCol();
  const EditKind kind = EditKindOf(store_.CellAt(row_, col_).Type());
  if (kind == EditKind::None) return;
  std::string text = InitialText(charCode);
  site_.EnsureCellVisible(row_, col_);
  bool cancel = false;
  int32_t maxLength = 0;
  auto options = static_cast<ETextEditFlags>(0);
  if (QuiltaEvents* ev = site_.Events()) {
    ev->RequestEdit(row_, col_, charCode, cancel, text, maxLength, options);
  }
  if (cancel) return;
  site_.ClearSearchString();
  kind_ = kind;
  if (kind == EditKind::ComboList) {
    const ComboObject* list = site_.ComboListOf(row_, col_);
    if (!list) return;
    OpenList(*list, site_.EditRect(row_, col_),
             list->FindItemByValue(store_.CellAt(row_, col_).value));
    if (character && list_) ListSearchCharacter(charCode);
    return;
  }
  OpenTextBox(text, maxLength, options, showCombo && kind == EditKind::TextBoxWithCombo);
}

void Editor::OpenList(const ComboObject& list, const Rect& anchor, int32_t selected) {
  DropDownOptions o;
  o.anchor = anchor;
  o.selected = selected;
  for (int32_t i = 0; i < list.ItemCount(); ++i) {
    o.items.push_back({list.ItemText(i), list.ItemIcon(i)});
  }
  listTyped_.clear();
  retiredList_.reset();
  list_ = site_.GetPlatform().OpenDropDown(o, *this);
}

void Editor::OpenTextBox(const std::string& text, int32_t maxLength, int32_t options,
                         bool showCombo) {
  Rect r = site_.EditRect(row_, col_);
  const Rect area = site_.CellsArea();
  r.right = std::min(r.right, area.right);
  r.bottom = std::min(r.bottom, area.bottom);
  if (r.Width() < 1 || r.Height() < 1) return;
  const model::Cell& cell = store_.CellAt(row_, col_);
  TextBoxOptions o;
  o.rect = r;
  o.text = text;
  o.maxLength = maxLength;
  o.flags = options;
  o.alignH = cell.AlignH();
  o.multiLine = (cell.textFlags & quTextWordBreak) && !(cell.textFlags & quTextSingleLine);
  o.vScrollBar = cell.TypeFlags() & quTextBoxVScrollBar;
  o.hScrollBar = cell.TypeFlags() & quTextBoxHScrollBar;
  box_ = site_.GetPlatform().CreateTextBox(o, *this);
  if (!box_) return;
  if (QuiltaEvents* ev = site_.Events()) ev->TextEditStarted();
  if (!showCombo || !box_) return;
  if (const ComboObject* list = site_.ComboListOf(row_, col_)) {
    OpenList(*list, r, list->FindItemByText(box_->Text(), true));
  }
}

// ---- Committing and cancelling -----------------------------------------------------------

VarType EditTargetType(const model::GridStore& store, int32_t row, int32_t colIndex) {
  const VarType own = store.CellAt(row, colIndex).value.Type();
  if (own != vbEmpty && own != vbNull) return own;
  const auto& column = store.Cols().AtIndex(colIndex);
  return column.defaultCell ? column.defaultCell->vValue().Type() : vbString;
}

VarType Editor::TargetType() const { return EditTargetType(store_, row_, col_); }

void Editor::ReportInvalid(const Conversion& c) {
  std::string description = c.description + ".";
  if (QuiltaEvents* ev = site_.Events()) ev->InputValidationError(c.error, description);
  site_.GetPlatform().ShowMessageBox(std::string(kInvalidValue) + "\r\n" + description,
                                     kValidationTitle, MessageBoxIcon::Stop, MessageBoxButtons::Ok);
  if (box_) box_->SetFocus();
}

bool Editor::Commit(bool byUser) {
  if (!IsEditing()) return true;
  if (!box_) {  // a combo list without a text box: Enter chooses the highlighted item
    ItemChosen(list_->HighlightedIndex());
    return !IsEditing();
  }
  const std::string text = box_->Text();
  const Conversion c = ConvertEditText(text, TargetType());
  const bool silent = props_.Bool(Prop::SilentValidation);
  if (c.error && !silent) {
    ReportInvalid(c);
    return false;
  }
  const model::Cell& cell = store_.CellAt(row_, col_);
  int32_t comboIndex = cell.comboListIndex;
  if (kind_ == EditKind::TextBoxWithCombo) {
    const ComboObject* list = site_.ComboListOf(row_, col_);
    comboIndex = list ? list->FindItemByText(text, true) : -1;
  }
  EEditResults result = quEditResCommit;
  Variant value = c.value;
  if (QuiltaEvents* ev = site_.Events()) {
    ev->BeforeCommitEdit(row_, col_, result, text, value, c.error, byUser, comboIndex);
  }
  return Finish(result, value, comboIndex, byUser, byUser);
}

bool Editor::Finish(EEditResults result, const Variant& value, int32_t comboIndex, bool byUser,
                    bool canProceed) {
  const int32_t row = row_, col = col_;
  QuiltaEvents* ev = site_.Events();
  if (result == quEditResProceed) {
    if (canProceed && byUser) {
      if (box_) box_->SetFocus();
      return false;
    }
    Close();
    return true;
  }
  if (result == quEditResCancel) {
    Close();
    if (ev) ev->CancelEdit(row, col);
    return true;
  }
  const Variant old = store_.CellAt(row, col).value;
  site_.StoreValue(row, col, value);
  if (kind_ != EditKind::TextBox) site_.StoreComboListIndex(row, col, comboIndex);
  Close();
  if (ev) ev->AfterCommitEdit(row, col, old);
  return true;
}

void Editor::Cancel() {
  QuiltaEvents* ev = site_.Events();
  if (ev) ev->QuitCustomEdit();
  if (!IsEditing()) return;
  const int32_t row = row_, col = col_;
  Close();
  if (ev) ev->CancelEdit(row, col);
}

void Editor::RetireList() {
  if (list_) list_->Close();
  retiredList_ = std::move(list_);
}

void Editor::Close() {
  RetireList();
  box_.reset();
  kind_ = EditKind::None;
  site_.RedrawCell(row_, col_);
}

// ---- Following the edited cell ---------------------------------------------------------------

void Editor::RowsInserted(int32_t row, int32_t count) {
  if (IsEditing() && row_ >= row) row_ += count;
}

void Editor::RowsRemoved(int32_t row, int32_t count) {
  if (!IsEditing() || row_ < row) return;
  if (row_ < row + count) return Drop();
  row_ -= count;
}

void Editor::ColumnsInserted(int32_t index, int32_t count) {
  if (IsEditing() && col_ >= index) col_ += count;
}

void Editor::ColumnsRemoved(int32_t index, int32_t count) {
  if (!IsEditing() || col_ < index) return;
  if (col_ < index + count) return Drop();
  col_ -= count;
}

void Editor::BeforeReorder() { reorderPhys_ = IsEditing() ? store_.Rows().At(row_).phys : 0; }

void Editor::AfterReorder() {
  if (reorderPhys_) row_ = store_.Rows().RowOfPhys(reorderPhys_);
  reorderPhys_ = 0;
}

void Editor::Drop() {
  RetireList();
  box_.reset();
  kind_ = EditKind::None;
}

// ---- Check boxes ------------------------------------------------------------------------

void Editor::ToggleCheck(int32_t row, int32_t colIndex) {
  if (!props_.Bool(Prop::Editable)) return;
  const model::Cell& cell = store_.CellAt(row, colIndex);
  const ECellCheckState old = cell.CheckState();
  ECellCheckState next;
  if (cell.TypeFlags() & quCheckBox3State) {
    next = old == quCheckStateUnchecked ? quCheckStateChecked
           : old == quCheckStateChecked ? quCheckStateGrayed
                                        : quCheckStateUnchecked;
  } else {
    next = old == quCheckStateUnchecked ? quCheckStateChecked : quCheckStateUnchecked;
  }
  bool cancel = false;
  QuiltaEvents* ev = site_.Events();
  if (ev) ev->BeforeCellCheckChange(row, colIndex, next, cancel);
  if (cancel) return;
  site_.StoreCheckState(row, colIndex, next);
  site_.RedrawCell(row, colIndex);
  if (ev) ev->AfterCellCheckChange(row, colIndex, old);
}

// ---- The text box and the list report back -------------------------------------------------

void Editor::TextChanged() {
  if (QuiltaEvents* ev = site_.Events()) ev->TextEditChange(row_, col_);
}

void Editor::KeyDown(int16_t& keyCode, int16_t shift) {
  if (QuiltaEvents* ev = site_.Events()) ev->TextEditKeyDown(row_, col_, keyCode, shift);
}

void Editor::KeyPress(int16_t& keyAscii) {
  if (QuiltaEvents* ev = site_.Events()) ev->TextEditKeyPress(row_, col_, keyAscii);
}

void Editor::KeyUp(int16_t& keyCode, int16_t shift) {
  if (QuiltaEvents* ev = site_.Events()) ev->TextEditKeyUp(row_, col_, keyCode, shift);
}

void Editor::MouseDown(int16_t button, int16_t shift, int32_t x, int32_t y) {
  if (QuiltaEvents* ev = site_.Events()) ev->TextEditMouseDown(row_, col_, button, shift, x, y);
}

void Editor::MouseMove(int16_t button, int16_t shift, int32_t x, int32_t y) {
  if (QuiltaEvents* ev = site_.Events()) ev->TextEditMouseMove(row_, col_, button, shift, x, y);
}

void Editor::MouseUp(int16_t button, int16_t shift, int32_t x, int32_t y) {
  if (QuiltaEvents* ev = site_.Events()) ev->TextEditMouseUp(row_, col_, button, shift, x, y);
}

void Editor::DblClick() {
  if (QuiltaEvents* ev = site_.Events()) ev->TextEditDblClick(row_, col_);
}

void Editor::ListSearchCharacter(int32_t charCode) {
  if (!list_ || charCode <= 0 || charCode >= 0x80) return;
  listTyped_.push_back(static_cast<char>(charCode));
  list_->Search(listTyped_);
}

void Editor::ItemChosen(int32_t index) {
  const ComboObject* list = site_.ComboListOf(row_, col_);
  if (!list || index < 0 || index >= list->ItemCount()) {
    Dismissed();
    return;
  }
  if (box_) {  // a text box with a list: the item's text goes into the box
    RetireList();
    box_->SetText(list->ItemText(index));
    box_->SetFocus();
    return;
  }
  const std::string text = list->ItemText(index);
  EEditResults result = quEditResCommit;
  Variant value = list->ItemValue(index);
  int32_t comboIndex = index;
  if (QuiltaEvents* ev = site_.Events()) {
    ev->BeforeCommitEdit(row_, col_, result, text, value, 0, false, comboIndex);
  }
  Finish(result, value, comboIndex, false, false);
}

void Editor::Dismissed() {
  if (box_) {  // closing the list of a text box leaves the box open
    RetireList();
    return;
  }
  const int32_t row = row_, col = col_;
  Close();
  if (QuiltaEvents* ev = site_.Events()) ev->CancelEdit(row, col);
}

}  // namespace quilta::edit
