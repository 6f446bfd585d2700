// What the selection, the keyboard and key search ask of the rest of the control.
#include "control/control.hpp"
#include "layout/scale.hpp"
#include "ops/hierarchy.hpp"

namespace quilta::control {

// ---- The focus: repaint the bands of the rows the current cell leaves and enters --------------

void Control::SelectionSite::CurrentCellMoved(int32_t oldRow, int32_t oldCol, int32_t newRow,
                                              int32_t newCol) {
  const int32_t rows = c.store.RowCount();
  if (oldRow >= 1 && oldRow <= rows && (oldRow != newRow || oldCol != newCol)) {
    c.InvalidateRowBand(oldRow);
  }
  if (newRow >= 1 && newRow <= rows && newRow != oldRow) c.InvalidateRowBand(newRow);
}

// ---- The view ------------------------------------------------------------------------------

bool Control::ViewSiteImpl::EnsureCellVisible(int32_t row, int32_t col) {
  const bool rowScrolled = c.EnsureRowVisible(row, quEnsVisRowAuto, 8);
  const model::ColumnStore& cols = c.store.Cols();
  if (col < 1 || col >= cols.RowTextCol()) return rowScrolled;
  const bool colScrolled = c.EnsureColVisible(cols.SlotOfIndex(col), quEnsVisColAuto, 8);
  return rowScrolled || colScrolled;
}

bool Control::ViewSiteImpl::EnsureRowVisible(int32_t row, int32_t gap) {
  return c.EnsureRowVisible(row, quEnsVisRowAuto, gap);
}

int32_t Control::ViewSiteImpl::ViewHeight() {
  c.EnsureLayout();
  return c.view.ViewHeight();
}

int32_t Control::ViewSiteImpl::FirstFullyVisibleRow() {
  c.EnsureLayout();
  const Rect& area = c.view.CellsArea();
  const model::RowStore& rows = c.store.Rows();
  const layout::RowRange range = layout::RowsMeeting(c.view, rows, area.top, area.bottom);
  int32_t row = range.first;
  if (row && c.view.ClientY(rows.At(row)) < area.top) row = layout::NextShownRow(rows, row);
  if (!row || c.view.ClientY(rows.At(row)) + rows.At(row).height > area.bottom) return 0;
  return row;
}

int32_t Control::ViewSiteImpl::LastFullyVisibleRow() {
  c.EnsureLayout();
  const Rect& area = c.view.CellsArea();
  const model::RowStore& rows = c.store.Rows();
  const layout::RowRange range = layout::RowsMeeting(c.view, rows, area.top, area.bottom);
  int32_t row = range.last;
  if (row && c.view.ClientY(rows.At(row)) + rows.At(row).height > area.bottom) {
    // The row above the one cut by the bottom edge.
    const int32_t top = c.view.ClientY(rows.At(row));
    row = top - 1 >= area.top ? c.view.RowAtY(rows, top - 1) : 0;
  }
  return row;
}

void Control::ViewSiteImpl::ScrollLines(int32_t columns, int32_t rows) {
  c.EnsureLayout();
  const int32_t dx = columns * layout::Scale(16, c.platform->Dpi());
  const int32_t dy = rows * c.store.Defaults().height;
  if (dx) c.ScrollTo(quScrollBarH, c.view.Scroll(quScrollBarH).pos + dx);
  if (dy) c.ScrollTo(quScrollBarV, c.view.Scroll(quScrollBarV).pos + dy);
}

void Control::ViewSiteImpl::ScrollPages(int32_t pages) {
  c.EnsureLayout();
  const layout::ScrollState& v = c.view.Scroll(quScrollBarV);
  c.ScrollTo(quScrollBarV, v.pos + pages * v.page);
}

// ---- Commands of other subsystems ----------------------------------------------------------

interaction::EditKind Control::CommandSiteImpl::EditKindOf(int32_t row, int32_t col) {
  switch (c.store.CellAt(row, col).Type()) {
    case quCellCombo:
      return interaction::kEditComboOnly;
    case quCellTextCombo:
      return interaction::kEditTextBoxCombo;
    default:
      return interaction::kEditTextBox;
  }
}

bool Control::CommandSiteImpl::ToggleCheckBox(int32_t row, int32_t col) {
  if (!c.store.CellAt(row, col).CheckVisible()) return false;
  c.editor.ToggleCheck(row, col);
  return true;
}

void Control::CommandSiteImpl::SetRowExpanded(int32_t row, bool expanded) {
  ops::Hierarchy(c).SetExpanded(row, expanded);
}

void Control::CommandSiteImpl::ExpandSubtree(int32_t row) {
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
