// The editor's view of the grid, and ending an edit when geometry or order changes.
#include "control/control.hpp"

namespace quilta::control {

void Control::EndEditing() { editor.Cancel(); }

// Every edit starts here, so the tooltip over the grid goes away as the editor opens.
void Control::EnsureCellVisible(int32_t row, int32_t colIndex) {
  toolTips.Hide();
  viewSite.EnsureCellVisible(row, colIndex);
}

std::string Control::EditSiteImpl::CellText(int32_t row, int32_t colIndex) {
  return c.CellText(row, colIndex);
}

void Control::EditSiteImpl::EnsureCellVisible(int32_t row, int32_t colIndex) {
  c.EnsureCellVisible(row, colIndex);
}

Rect Control::EditSiteImpl::EditRect(int32_t row, int32_t colIndex) {
  c.EnsureLayout();
  const Rect cell = c.CellRect(row, colIndex);
  return layout::LayoutCellParts(c.CellPartsFor(row, colIndex, cell, true)).text;
}

Rect Control::EditSiteImpl::CellsArea() {
  c.EnsureLayout();
  return c.view.CellsArea();
}

const ComboObject* Control::EditSiteImpl::ComboListOf(int32_t row, int32_t colIndex) {
  const model::Cell& cell = c.store.CellAt(row, colIndex);
  return c.combos.Find(c.resources->controlKeys.Text(cell.ctrlKey));
}

void Control::EditSiteImpl::ClearSearchString() { c.keySearch.Clear(); }

void Control::EditSiteImpl::KeySearchCharacter(int32_t charCode) {
  if (c.CurRow() >= 1 && c.CurCol() >= 1) c.keySearch.Type(charCode);
}

void Control::EditSiteImpl::RedrawCell(int32_t row, int32_t colIndex) {
  // The edited row may have gone while its editor closed.
  if (row >= 1 && row <= c.store.Rows().Count() && colIndex >= 1 &&
      colIndex <= c.store.Cols().RowTextCol()) {
    c.InvalidateCell(row, colIndex);
  }
}

void Control::EditSiteImpl::StoreValue(int32_t row, int32_t colIndex, const Variant& value) {
  c.SetCellProperty(row, colIndex, quPropCellValue, value);
}

void Control::EditSiteImpl::StoreComboListIndex(int32_t row, int32_t colIndex, int32_t index) {
  c.SetCellProperty(row, colIndex, quPropCellComboListIndex, index);
}

void Control::EditSiteImpl::StoreCheckState(int32_t row, int32_t colIndex, ECellCheckState state) {
  c.SetCellProperty(row, colIndex, quPropCellCheckState, static_cast<int32_t>(state));
}

}  // namespace quilta::control
