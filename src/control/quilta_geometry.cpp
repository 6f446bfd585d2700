// The control facade: column widths and order, row heights and visibility, cached positions.
// Members resolve their arguments here and leave every rule to the layout subsystem.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {
namespace {

[[noreturn]] void Raise(int32_t code) { throw Error::FromCode(code); }

const model::Column& Col(const control::Control& c, const Variant& vCol) {
  return c.store.Cols().AtSlot(c.store.ResolveColSlot(vCol));
}

const model::RowRecord& Row(const control::Control& c, const Variant& vRow) {
  return c.store.Rows().At(c.store.ResolveRow(vRow));
}

}  // namespace

// ---- Columns -------------------------------------------------------------------------------

int32_t Quilta::ColWidth(const Variant& vCol) const { return Col(*c_, vCol).width; }
void Quilta::SetColWidth(const Variant& vCol, int32_t lWidth) {
  c_->ColumnSizer().SetColWidth(c_->store.ResolveColSlot(vCol), lWidth);
}

int32_t Quilta::ColMinWidth(const Variant& vCol) const { return Col(*c_, vCol).minWidth; }
void Quilta::SetColMinWidth(const Variant& vCol, int32_t lMinWidth) {
  c_->ColumnSizer().SetMinWidth(c_->store.ResolveColSlot(vCol), lMinWidth);
}

int32_t Quilta::ColMaxWidth(const Variant& vCol) const { return Col(*c_, vCol).maxWidth; }
void Quilta::SetColMaxWidth(const Variant& vCol, int32_t lMaxWidth) {
  c_->ColumnSizer().SetMaxWidth(c_->store.ResolveColSlot(vCol), lMaxWidth);
}

void Quilta::SetColWidths(int16_t lWidth, const Variant& vStartCol, const Variant& vEndCol) {
  if (c_->store.ColCount() == 0) return;
  int32_t first = vStartCol.IsMissing() ? 1 : c_->store.ResolveColIndex(vStartCol);
  int32_t last = vEndCol.IsMissing() ? c_->store.ColCount() : c_->store.ResolveColIndex(vEndCol);
  c_->ColumnSizer().SetColWidths(lWidth, first, last);
}

void Quilta::ResizeColToFillSpace(const Variant& vCol) {
  int32_t slot = c_->store.ResolveColSlot(vCol);
  c_->EnsureLayout();
  c_->ColumnSizer().ResizeToFillSpace(slot, c_->view.CellsArea().Width());
}

void Quilta::SetColPos(const Variant& vCol, int32_t lColPos) {
  c_->ColumnSizer().Move(c_->store.ResolveColSlot(vCol), lColPos);
}

int32_t Quilta::ColFromPos(int32_t lColPos) const {
  if (lColPos < 1 || lColPos > c_->store.Cols().RowTextCol()) Raise(quErrSubscriptOutOfRange);
  return c_->store.Cols().AtSlot(lColPos).index;
}

int32_t Quilta::ColStartX(const Variant& vCol) const { return Col(*c_, vCol).startX; }
int32_t Quilta::ColVisibleIndex(const Variant& vCol) const { return Col(*c_, vCol).visibleIndex; }

bool Quilta::ColVisible(const Variant& vCol) const { return Col(*c_, vCol).visible; }
void Quilta::SetColVisible(const Variant& vCol, bool bVisible) {
  c_->ColumnSizer().SetVisible(c_->store.ResolveColSlot(vCol), bVisible);
}

// ---- Rows ----------------------------------------------------------------------------------

int32_t Quilta::RowHeight(const Variant& vRow) const { return Row(*c_, vRow).height; }
void Quilta::SetRowHeight(const Variant& vRow, int32_t lHeight) {
  c_->RowSizer().SetHeight(c_->store.ResolveRow(vRow), lHeight);
}

void Quilta::SetRowHeights(int32_t lHeight, const Variant& vStartRow, const Variant& vEndRow) {
  if (c_->store.RowCount() == 0) return;
  int32_t first = vStartRow.IsMissing() ? 1 : c_->store.ResolveRow(vStartRow);
  int32_t last = vEndRow.IsMissing() ? c_->store.RowCount() : c_->store.ResolveRow(vEndRow);
  c_->RowSizer().SetHeights(lHeight, first, last);
}

int32_t Quilta::RowNormalCellHeight(const Variant& vRow) const {
  return Row(*c_, vRow).normalCellHeight;
}
void Quilta::SetRowNormalCellHeight(const Variant& vRow, int32_t lHeight) {
  c_->RowSizer().SetNormalCellHeight(c_->store.ResolveRow(vRow), lHeight);
}

int32_t Quilta::RowStartY(const Variant& vRow) const { return Row(*c_, vRow).startY; }
int32_t Quilta::RowVisibleIndex(const Variant& vRow) const { return Row(*c_, vRow).visibleIndex; }

bool Quilta::RowVisible(const Variant& vRow) const { return Row(*c_, vRow).Visible(); }
void Quilta::SetRowVisible(const Variant& vRow, bool bVisible) {
  c_->RowSizer().SetVisible(c_->store.ResolveRow(vRow), bVisible);
}

int32_t Quilta::RowTextStartCol() const { return c_->geometry.RowTextStartCol(); }
void Quilta::SetRowTextStartCol(int32_t lCol) {
  int32_t index = c_->store.ResolveColIndex(lCol);
  c_->geometry.SetRowTextStartCol(index);
  c_->RequestRedraw();
}

// ---- Defaults for rows created later -------------------------------------------------------

int32_t Quilta::DefaultRowHeight() const { return c_->store.Defaults().height; }
void Quilta::SetDefaultRowHeight(int32_t lHeight) {
  if (lHeight < 1) Raise(quErrInvalidArgument);
  if (lHeight == c_->store.Defaults().height) return;
  c_->store.Defaults().height = lHeight;
  // The scroll bar settings take the default height too.
  c_->geometrySite.ScrollRangesChanged();
  c_->RequestRedraw();
}

int32_t Quilta::DefaultRowNormalCellHeight() const { return c_->store.Defaults().normalCellHeight; }
void Quilta::SetDefaultRowNormalCellHeight(int32_t lHeight) {
  if (lHeight < 1) Raise(quErrInvalidArgument);
  c_->store.Defaults().normalCellHeight = lHeight;
}

}  // namespace quilta
