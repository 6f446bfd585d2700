// The control facade: the current cell and the selection.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {

int32_t Quilta::CurRow() const { return c_->CurRow(); }
void Quilta::SetCurRow(int32_t lRow) { c_->selection.SetCurRow(lRow); }
int32_t Quilta::CurCol() const { return c_->CurCol(); }
void Quilta::SetCurCol(int32_t lCol) { c_->selection.SetCurCol(lCol); }

void Quilta::SetCurCell(const Variant& vRow, const Variant& vCol) {
  int32_t row = c_->store.ResolveRow(vRow);
  int32_t col = c_->store.ResolveColIndex(vCol);
  c_->selection.SetCurCell(row, col);
}

bool Quilta::CellSelected(const Variant& vRow, const Variant& vCol) const {
  int32_t row = c_->store.ResolveRow(vRow);
  return c_->store.CellAt(row, c_->store.ResolveColIndex(vCol)).Selected();
}

void Quilta::SetCellSelected(const Variant& vRow, const Variant& vCol, bool bSelected) {
  int32_t row = c_->store.ResolveRow(vRow);
  int32_t col = c_->store.ResolveColIndex(vCol);
  c_->selection.SetCellSelected(row, col, bSelected);
}

bool Quilta::MultiSelect() const { return c_->props.Bool(model::Prop::MultiSelect); }

void Quilta::SetMultiSelect(bool b) {
  if (b != MultiSelect()) c_->mouse.ForgetPress();
  if (!b && MultiSelect()) c_->selection.LeaveMultiSelect();
  c_->SetProperty(model::Prop::MultiSelect, b);
}

bool Quilta::RowMode() const { return c_->props.Bool(model::Prop::RowMode); }

void Quilta::SetRowMode(bool b) {
  bool changed = b != RowMode();
  c_->SetProperty(model::Prop::RowMode, b);
  if (!changed) return;
  c_->selection.RowModeChanged();
  c_->mouse.ForgetPress();
}

void Quilta::ClearSelection() { c_->selection.ClearSelection(); }
void Quilta::SelectAll() { c_->selection.SelectAll(); }
void Quilta::InvertSelection() { c_->selection.InvertSelection(); }

SelItemsObject& Quilta::SelItems() { return c_->selItemsObject; }
const SelItemsObject& Quilta::SelItems() const { return c_->selItemsObject; }

}  // namespace quilta
