// What the selection, the keyboard and key search ask of the rest of the control.
#include "control/control.hpp"
#include "ops/hierarchy.hpp"

namespace quilta::control {

// ---- View placeholder ----------------------------------------------------------------------

int32_t Control::ViewPlaceholder::TopRow() {
  int32_t rows = c.store.RowCount();
  if (topRow > rows) topRow = std::max(rows, 1);
  return topRow;
}

int32_t Control::ViewPlaceholder::ViewHeight() { return c.platform->CellsArea().Height(); }

int32_t Control::ViewPlaceholder::FirstFullyVisibleRow() {
  for (int32_t r = TopRow(); r <= c.store.RowCount(); ++r)
    if (c.store.Rows().At(r).Shown()) return r <= LastFullyVisibleRow() ? r : 0;
  return 0;
}

int32_t Control::ViewPlaceholder::LastFullyVisibleRow() {
  int64_t height = ViewHeight();
  int64_t sum = 0;
  int32_t last = 0;
  for (int32_t r = TopRow(); r <= c.store.RowCount(); ++r) {
    const model::RowRecord& rec = c.store.Rows().At(r);
    if (!rec.Shown()) continue;
    sum += rec.height;
    if (sum > height) break;
    last = r;
  }
  return last;
}

bool Control::ViewPlaceholder::EnsureRowVisible(int32_t row, int32_t gap) {
  if (row < 1 || row > c.store.RowCount() || !c.store.Rows().At(row).Shown()) return false;
  if (row < TopRow()) {
    topRow = row;
    return true;
  }
  int32_t last = LastFullyVisibleRow();
  if (last != 0 && row <= last) return false;
  // Bring the row up to the bottom edge, with the gap below it when the row fits with it.
  int64_t room = ViewHeight() - gap;
  int64_t sum = c.store.Rows().At(row).height;
  int32_t top = row;
  for (int32_t r = row - 1; r >= 1; --r) {
    const model::RowRecord& rec = c.store.Rows().At(r);
    if (!rec.Shown()) continue;
    if (sum + rec.height > room) break;
    sum += rec.height;
    top = r;
  }
  bool scrolled = top != topRow;
  topRow = top;
  return scrolled;
}

bool Control::ViewPlaceholder::EnsureCellVisible(int32_t row, int32_t) {
  return EnsureRowVisible(row, 0);
}

void Control::ViewPlaceholder::ScrollLines(int32_t, int32_t rows) {
  int32_t top = TopRow();
  int step = rows > 0 ? 1 : -1;
  for (int32_t n = rows > 0 ? rows : -rows; n > 0; --n) {
    int32_t r = top + step;
    while (r >= 1 && r <= c.store.RowCount() && !c.store.Rows().At(r).Shown()) r += step;
    if (r < 1 || r > c.store.RowCount()) break;
    top = r;
  }
  if (top != topRow) topRow = top, c.RequestRedraw();
}

void Control::ViewPlaceholder::ScrollPages(int32_t pages) {
  int32_t last = LastFullyVisibleRow();
  int32_t first = FirstFullyVisibleRow();
  int32_t perPage = last >= first && first ? std::max(1, last - first) : 1;
  ScrollLines(0, pages * perPage);
}

// ---- Commands of other subsystems ----------------------------------------------------------

interaction::EditKind Control::CommandPlaceholder::EditKindOf(int32_t row, int32_t col) {
  switch (c.store.CellAt(row, col).Type()) {
    case quCellCombo:
      return interaction::kEditComboOnly;
    case quCellTextCombo:
      return interaction::kEditTextBoxCombo;
    default:
      return interaction::kEditTextBox;
  }
}

void Control::CommandPlaceholder::SetRowExpanded(int32_t row, bool expanded) {
  ops::Hierarchy(c).SetExpanded(row, expanded);
}

void Control::CommandPlaceholder::ExpandSubtree(int32_t row) {
  ops::Hierarchy(c).CollapseExpand(row, true, false);
}

// ---- Characters ----------------------------------------------------------------------------

// The front of starting an edit from a character: while KeyPressBehaviour searches, characters
// other than 0 and Enter go to key search; quKeyPressNone drops them; the rest go to the editor.
void Control::CharacterTyped(int32_t charCode) {
  if (!props.Bool(model::Prop::Enabled) || commandSite.IsEditing()) return;
  bool editKey = charCode == 0 || charCode == 13;
  if (keySearch.Active() && !editKey) {
    if (CurRow() >= 1 && CurCol() >= 1) keySearch.Type(charCode);
    return;
  }
  if (props.Long(model::Prop::KeyPressBehaviour) == quKeyPressNone && !editKey) return;
  commandSite.RequestEditCurCell(charCode, false);
}

}  // namespace quilta::control
