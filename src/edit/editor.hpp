// In-cell editing of the current cell: the host's veto, the text box or drop-down list over the
// cell, conversion of the typed text to the cell's value type, validation, commit and cancel;
// and check-box toggling. The editor owns the platform's text box and list while an edit is in
// progress and talks to the rest of the grid only through EditSite.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/combos.hpp>
#include <quilta/events.hpp>
#include <quilta/platform/platform.hpp>
#include <string>

#include "model/control_properties.hpp"
#include "model/grid_store.hpp"

namespace quilta::edit {

// The kind of editor a cell gets, from its type.
enum class EditKind { TextBox = 0, ComboList = 1, TextBoxWithCombo = 2, None = 3 };
EditKind EditKindOf(ECellTypes type);

// Converts edited text to a value of the given type. Empty text gives Empty for every type but
// String; a failure gives the runtime's error number (13 Type mismatch, 6 Overflow) and its
// description, and leaves value alone.
struct Conversion {
  Variant value;
  int32_t error = 0;
  std::string description;
};
Conversion ConvertEditText(const std::string& text, VarType type);
// The type an edited text converts to: the cell's value type, else its column's default value
// type, else String.
VarType EditTargetType(const model::GridStore& store, int32_t row, int32_t colIndex);

// What the editor needs from the grid around it.
class EditSite {
 public:
  virtual ~EditSite() = default;
  virtual QuiltaEvents* Events() = 0;
  virtual Platform& GetPlatform() = 0;
  virtual int32_t CurRow() const = 0;
  virtual int32_t CurCol() const = 0;
  // The text the cell shows (formatting and CellDynamicText included).
  virtual std::string CellText(int32_t row, int32_t colIndex) = 0;
  virtual void EnsureCellVisible(int32_t row, int32_t colIndex) = 0;
  // The cell's text rectangle from the cell part layout, in client pixels.
  virtual Rect EditRect(int32_t row, int32_t colIndex) = 0;
  // The cells area, which an editor never reaches past.
  virtual Rect CellsArea() = 0;
  virtual const ComboObject* ComboListOf(int32_t row, int32_t colIndex) = 0;
  virtual void ClearSearchString() = 0;
  // A printable character that goes to key search instead of editing.
  virtual void KeySearchCharacter(int32_t charCode) = 0;
  // Stores a committed value (and redraws and re-lays out what it affects).
  virtual void StoreValue(int32_t row, int32_t colIndex, const Variant& value) = 0;
  virtual void StoreComboListIndex(int32_t row, int32_t colIndex, int32_t index) = 0;
  virtual void StoreCheckState(int32_t row, int32_t colIndex, ECellCheckState state) = 0;
  virtual void RedrawCell(int32_t row, int32_t colIndex) = 0;
};

class Editor final : TextBoxEvents, DropDownEvents {
 public:
  Editor(model::GridStore& store, const model::ControlProperties& props, EditSite& site)
      : store_(store), props_(props), site_(site) {}
  Editor(const Editor&) = delete;
  Editor& operator=(const Editor&) = delete;

  bool IsEditing() const { return box_ != nullptr || list_ != nullptr; }
  int32_t Row() const { return row_; }
  int32_t Col() const { return col_; }

  void RequestEdit(int32_t charCode, bool showCombo);
  // Commits as Enter does. byUser: editing can go on after a failed or refused commit.
  // Returns false when the edit stays open.
  bool Commit(bool byUser);
  // Raises QuitCustomEdit, then closes the editor without storing and raises CancelEdit.
  void Cancel();
  // Toggles the check box of a cell (while Editable is on).
  void ToggleCheck(int32_t row, int32_t colIndex);
  // A character typed while a combo list without a text box is open goes to its list search.
  void ListSearchCharacter(int32_t charCode);

  // The edited cell follows its row and column when rows or columns are inserted, removed or
  // reordered; an edit whose row or column goes is dropped without storing and without events
  // (there is no cell left to report).
  void RowsInserted(int32_t row, int32_t count);
  void RowsRemoved(int32_t row, int32_t count);
  void ColumnsInserted(int32_t index, int32_t count);
  void ColumnsRemoved(int32_t index, int32_t count);
  void BeforeReorder();
  void AfterReorder();
  void Drop();

  // The text box while editing (empty / 0 when there is none).
  TextBox* Box() const { return box_.get(); }

 private:
  // TextBoxEvents
  void TextChanged() override;
  void KeyDown(int16_t& keyCode, int16_t shift) override;
  void KeyPress(int16_t& keyAscii) override;
  void KeyUp(int16_t& keyCode, int16_t shift) override;
  void MouseDown(int16_t button, int16_t shift, int32_t x, int32_t y) override;
  void MouseMove(int16_t button, int16_t shift, int32_t x, int32_t y) override;
  void MouseUp(int16_t button, int16_t shift, int32_t x, int32_t y) override;
  void DblClick() override;
  // DropDownEvents
  void ItemChosen(int32_t index) override;
  void Dismissed() override;

  bool Refused(int32_t charCode) const;
  std::string InitialText(int32_t charCode) const;
  void OpenList(const ComboObject& list, const Rect& anchor, int32_t selected);
  void OpenTextBox(const std::string& text, int32_t maxLength, int32_t options, bool showCombo);
  VarType TargetType() const;
  // Validation failed: tell the host and the user; the edit stays open.
  void ReportInvalid(const Conversion& c);
  bool Finish(EEditResults result, const Variant& value, int32_t comboIndex, bool byUser,
              bool canProceed);
  void Close();
  // A list closes from inside its own notification, so it is destroyed later, not at once.
  void RetireList();

  model::GridStore& store_;
  const model::ControlProperties& props_;
  EditSite& site_;
  std::unique_ptr<TextBox> box_;
  std::unique_ptr<DropDownList> list_;
  std::unique_ptr<DropDownList> retiredList_;
  EditKind kind_ = EditKind::None;
  int32_t row_ = 0;
  int32_t col_ = 0;
  int32_t reorderPhys_ = 0;  // the edited row's physical row while rows are reordered
  std::string listTyped_;
};

}  // namespace quilta::edit
