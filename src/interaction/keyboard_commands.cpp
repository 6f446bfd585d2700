#include "interaction/keyboard_commands.hpp"

namespace quilta::interaction {

using model::Prop;

// ---- Where the focus can go ----------------------------------------------------------------

bool KeyboardCommands::HasCurrent() const {
  return sel_.CurRow() >= 1 && sel_.CurRow() <= store_.RowCount() && sel_.CurCol() >= 1 &&
         sel_.CurCol() <= store_.Cols().RowTextCol();
}

bool KeyboardCommands::RowTakesPart(int32_t row) const {
  const model::RowRecord& rec = store_.Rows().At(row);
  return rec.Visible() && rec.VisibleAsChild();
}

bool KeyboardCommands::CanFocus(int32_t row, int32_t col) const {
  const model::ColumnStore& cols = store_.Cols();
  bool rowText = col == cols.RowTextCol();
  if (store_.Rows().At(row).GroupRow() != rowText) return false;
  if (!rowText) {
    const model::Column& column = cols.AtIndex(col);
    if (!column.visible || column.width < 1) return false;
  }
  return !Prop(Prop::SkipNonSelectableCells) || store_.CellAt(row, col).Selectable();
}

int32_t KeyboardCommands::FocusableColFrom(int32_t row, int32_t slot, int step,
                                           bool inclusive) const {
  const model::ColumnStore& cols = store_.Cols();
  for (int32_t s = inclusive ? slot : slot + step; s >= 1 && s <= cols.RowTextCol(); s += step)
    if (CanFocus(row, cols.AtSlot(s).index)) return cols.AtSlot(s).index;
  return 0;
}

int32_t KeyboardCommands::NextRow(int32_t from, int step) const {
  for (int32_t r = from + step; r >= 1 && r <= store_.RowCount(); r += step)
    if (RowTakesPart(r)) return r;
  return 0;
}

int32_t KeyboardCommands::ColumnOnArrival(int32_t row, int32_t col) const {
  if (store_.Rows().At(row).GroupRow()) return store_.Cols().RowTextCol();
  if (col == store_.Cols().RowTextCol() || col < 1) col = dataCol_;
  if (col >= 1 && col <= store_.ColCount()) return col;
  int32_t first = FocusableColFrom(row, 1, +1, true);
  return first ? first : 1;
}

bool KeyboardCommands::FirstCell(int32_t& row, int32_t& col) const {
  row = RowTakesPart(1) ? 1 : NextRow(1, +1);
  if (row == 0) return false;
  col = FocusableColFrom(row, 1, +1, true);
  return col != 0;
}

// ---- Commands ------------------------------------------------------------------------------

bool KeyboardCommands::Horizontal(int step, int32_t& row, int32_t& col) {
  search_.Clear();
  if (!HasCurrent()) return FirstCell(row, col);
  row = sel_.CurRow();
  col = FocusableColFrom(row, store_.Cols().SlotOfIndex(sel_.CurCol()), step, false);
  return col != 0;
}

bool KeyboardCommands::Vertical(int step, int32_t& row, int32_t& col) {
  search_.Clear();
  if (!HasCurrent() && sel_.CurRow() < 1) return FirstCell(row, col);
  row = sel_.CurRow();
  for (row = NextRow(row, step); row; row = NextRow(row, step)) {
    col = ColumnOnArrival(row, sel_.CurCol());
    if (!Prop(Prop::SkipNonSelectableCells) || store_.CellAt(row, col).Selectable()) return true;
  }
  return false;
}

bool KeyboardCommands::HomeEnd(bool home, int32_t shift, int32_t& row, int32_t& col) {
  search_.Clear();
  int step = home ? +1 : -1;
  int32_t rows = store_.RowCount();
  auto edgeRow = [&](bool first) {
    int32_t r = first ? 1 : rows;
    return RowTakesPart(r) ? r : NextRow(r, first ? +1 : -1);
  };
  if (!HasCurrent()) {
    row = edgeRow(home || !(shift & kCtrl));
  } else if (sel_.RowMode()) {
    row = edgeRow(home);
    if (row == 0) return false;
    col = ColumnOnArrival(row, sel_.CurCol());
    return true;
  } else {
    row = (shift & kCtrl) ? edgeRow(home) : sel_.CurRow();
  }
  if (row == 0) return false;
  int32_t slot = home ? 1 : store_.Cols().RowTextCol();
  col = FocusableColFrom(row, slot, step, true);
  return col != 0;
}

bool KeyboardCommands::Page(int step, int32_t& row, int32_t& col) {
  search_.Clear();
  if (!HasCurrent()) return false;
  int32_t cur = sel_.CurRow();
  int32_t edge = step > 0 ? view_.LastFullyVisibleRow() : view_.FirstFullyVisibleRow();
  if (edge >= 1 && edge != cur) {
    row = edge;
  } else {
    int64_t height = view_.ViewHeight();
    int64_t sum = 0;
    row = cur;
    for (int32_t r = cur;;) {
      int32_t next = NextRow(r, step);
      if (next == 0 && step > 0 && store_.Virtual() && commands_.EnsureVirtualRows(r + 1))
        next = NextRow(r, step);
      if (next == 0) break;
      sum += store_.Rows().At(next).height;
      if (sum > height) break;
      row = r = next;
    }
    if (row == cur) {
      row = NextRow(cur, step);  // a row taller than the view still moves one row
      if (row == 0) return false;
    }
  }
  col = ColumnOnArrival(row, sel_.CurCol());
  return true;
}

void KeyboardCommands::CollapseExpand(bool expand) {
  int32_t row = sel_.CurRow();
  if (row < 1 || row > store_.RowCount()) return;
  if (!store_.Rows().At(row).GroupRow() && props_.Long(Prop::TreeCol) == 0) return;
  if (store_.Rows().At(row).Expanded() != expand) {
    bool doDefault = true;
    if (QuiltaEvents* ev = site_.Events()) ev->BeforeRowCollapseExpand(row, expand, doDefault);
    if (doDefault && row <= store_.RowCount()) {
      commands_.SetRowExpanded(row, expand);
      if (QuiltaEvents* ev = site_.Events()) ev->AfterRowCollapseExpand(row, expand);
    }
  }
  actionDone_ = true;
}

void KeyboardCommands::ExpandAll() {
  int32_t row = sel_.CurRow();
  if (row < 1 || row > store_.RowCount()) return;
  if (!store_.Rows().At(row).GroupRow() && props_.Long(Prop::TreeCol) == 0) return;
  commands_.ExpandSubtree(row);
  actionDone_ = true;
}

void KeyboardCommands::ScrollDisabled(int32_t key) {
  switch (key) {
    case kKeyUp:
      return view_.ScrollLines(0, -1);
    case kKeyDown:
      return view_.ScrollLines(0, +1);
    case kKeyLeft:
      return view_.ScrollLines(-1, 0);
    case kKeyRight:
      return view_.ScrollLines(+1, 0);
    case kKeyPageUp:
      return view_.ScrollPages(-1);
    case kKeyPageDown:
      return view_.ScrollPages(+1);
    default:
      return;
  }
}

void KeyboardCommands::Move(int32_t row, int32_t col, int32_t shift) {
  // Remember the column being left for a group row, to come back to it afterwards.
  if (HasCurrent() && !store_.Rows().At(sel_.CurRow()).GroupRow() &&
      sel_.CurCol() <= store_.ColCount())
    dataCol_ = sel_.CurCol();
  if (!Prop(Prop::MultiSelect)) {
    sel_.MoveSingleSelection(row, col);
  } else if (shift & kShift) {
    sel_.ExtendSelection(row, col, shift, false);
  } else if (shift & kCtrl) {
    sel_.SetAnchor(row, col, true);
  } else {
    sel_.SelectOnly(row, col, false);
  }
  sel_.SetCurCellPos(row, col);
  sel_.ScrollCurrentIntoView(sel_.RowMode() ? 8 : -1);
  sel_.RaisePendingSelEvents();
}

void KeyboardCommands::DoKeyboardCommand(int32_t key, int32_t shift) {
  if (commands_.IsEditing()) {
    bool tab = key == kKeyTab && Prop(Prop::UseTabKey);
    if (key == kKeyEsc) {
      commands_.CancelEdit();
    } else if (key == kKeyEnter || tab) {
      if (commands_.CommitEdit()) return;
    } else {
      return;
    }
  }
  if (key == kKeyTab && Prop(Prop::UseTabKey)) {
    bool back = shift & kShift;
    key = sel_.RowMode() ? (back ? kKeyUp : kKeyDown) : (back ? kKeyLeft : kKeyRight);
    shift &= ~kShift;
  }
  if (!Prop(Prop::Enabled)) return ScrollDisabled(key);
  if (store_.RowCount() == 0 || store_.ColCount() == 0) return;
  int32_t row = 0;
  int32_t col = 0;
  bool move = false;
  switch (key) {
    case kKeyLeft:
    case kKeyRight:
      move = Horizontal(key == kKeyRight ? +1 : -1, row, col);
      break;
    case kKeyUp:
    case kKeyDown:
      if ((shift & kAlt) && !search_.Text().empty()) {
        search_.SearchAgain(key == kKeyDown ? +1 : -1);
        return;
      }
      move = Vertical(key == kKeyDown ? +1 : -1, row, col);
      break;
    case kKeyHome:
    case kKeyEnd:
      move = HomeEnd(key == kKeyHome, shift, row, col);
      break;
    case kKeyPageUp:
    case kKeyPageDown:
      move = Page(key == kKeyPageDown ? +1 : -1, row, col);
      break;
    default:
      Dispatch(key, shift);
      return;
  }
  if (move) Move(row, col, shift);
}

bool KeyboardCommands::Dispatch(int32_t key, int32_t shift) {
  bool plain = shift == 0;
  bool ctrl = (shift & (kCtrl | kAlt)) == kCtrl;
  bool editable = Prop(Prop::Editable);
  bool copyPaste = Prop(Prop::CopyPasteEnabled);
  switch (key) {
    case kKeyEsc:
      search_.Clear();
      return true;
    case kKeyEnter:
      if (plain && !search_.Text().empty()) {
        search_.Clear();
        site_.Redraw();
      }
      return true;
    case kKeyF2:
      if (plain && HasCurrent() &&
          commands_.EditKindOf(sel_.CurRow(), sel_.CurCol()) != kEditComboOnly)
        commands_.RequestEditCurCell(0, false);
      return true;
    case kKeyF4:
      if (plain && HasCurrent()) {
        EditKind kind = commands_.EditKindOf(sel_.CurRow(), sel_.CurCol());
        if (kind != kEditTextBox) commands_.RequestEditCurCell(0, kind == kEditTextBoxCombo);
      }
      return true;
    case kKeySpace:
      if (plain && HasCurrent() && store_.CellAt(sel_.CurRow(), sel_.CurCol()).CheckVisible()) {
        commands_.ToggleCheckBox(sel_.CurRow(), sel_.CurCol());
        actionDone_ = true;
      } else if (ctrl && !(shift & kShift) && Prop(Prop::MultiSelect) && HasCurrent()) {
        sel_.ToggleCurrent();
        actionDone_ = true;
      }
      return true;
    case kKeyAdd:
    case kKeySubtract:
      CollapseExpand(key == kKeyAdd);
      return true;
    case kKeyMultiply:
      ExpandAll();
      return true;
    case kKeyC:
      if (ctrl && copyPaste) commands_.Copy(shift & kShift);
      return true;
    case kKeyX:
      if (ctrl && !(shift & kShift) && editable && copyPaste) commands_.Cut();
      return true;
    case kKeyV:
      if (ctrl && !(shift & kShift) && editable && copyPaste) commands_.Paste();
      return true;
    case kKeyA:
      if (ctrl && !(shift & kShift) && Prop(Prop::MultiSelect)) sel_.SelectAll();
      return true;
    case kKeyDelete:
      if (Prop(Prop::Enabled) && editable) commands_.ClearSelectedCells();
      return true;
    case kKeyApps:
      commands_.ShowContextMenu(sel_.CurRow(), sel_.CurCol());
      return true;
    case kKeyF10:
      if ((shift & (kShift | kCtrl | kAlt)) == kShift)
        commands_.ShowContextMenu(sel_.CurRow(), sel_.CurCol());
      return true;
    default:
      return false;
  }
}

}  // namespace quilta::interaction
