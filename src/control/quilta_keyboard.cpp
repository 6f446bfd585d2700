// The control facade: keys and key search.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {

void Quilta::DoKeyboardCommand(int16_t KeyCode, int16_t Shift) {
  c_->keyboard.DoKeyboardCommand(KeyCode, Shift);
}

void Quilta::HostKeyDown(int16_t KeyCode, int16_t Shift) {
  c_->toolTips.Hide();
  c_->keyboard.ResetActionDone();
  if (c_->commandSite.IsEditing()) {
    c_->keyboard.DoKeyboardCommand(KeyCode, Shift);
    return;
  }
  bool doDefault = true;
  if (c_->events) c_->events->KeyDown(KeyCode, Shift, doDefault);
  if (doDefault) c_->keyboard.DoKeyboardCommand(KeyCode, Shift);
}

// The host hears every character; the grid skips the one produced by a key that already acted
// (Space toggling a check box, Ctrl+Space, + and - on a row, ...).
void Quilta::HostKeyPress(int16_t KeyAscii) {
  if (c_->commandSite.IsEditing()) return;
  if (c_->events) c_->events->KeyPress(KeyAscii);
  bool acted = c_->keyboard.ActionDone();
  c_->keyboard.ResetActionDone();
  if (!acted && KeyAscii != 0) c_->CharacterTyped(static_cast<uint16_t>(KeyAscii));
}

std::string Quilta::SearchString() const { return c_->keySearch.Text(); }
void Quilta::SetSearchString(std::string_view sText) { c_->keySearch.SetText(std::string(sText)); }

int32_t Quilta::KeySearchCol() const { return c_->keySearchCol; }

void Quilta::SetKeySearchCol(int32_t lCol) {
  if (lCol < 0 || lCol > c_->store.Cols().RowTextCol())
    throw Error::FromCode(quErrSubscriptOutOfRange);
  c_->keySearchCol = lCol;
}

int32_t Quilta::FindSearchMatchRow(const Variant& vSearchCol, std::string_view sSearchString,
                                   const Variant& vStartRow, bool bLoop,
                                   ESearchMatchMode eMatchMode, bool bMatchCase,
                                   ECellVisibilityFilter eCellVisibility) {
  int32_t col = c_->store.ResolveColIndex(vSearchCol);
  bool given = !vStartRow.IsMissing() && !vStartRow.IsEmpty();
  int32_t start = given ? c_->store.ResolveRow(vStartRow) : 1;
  if (eMatchMode < quSearchMatchStartsWith || eMatchMode > quSearchMatchEquals ||
      eCellVisibility < quCellVisAllCells || eCellVisibility > quCellVisVisibleProperty)
    throw Error::FromCode(quErrInvalidArgument);
  return c_->keySearch.FindRow({.col = col,
                                .text = std::string(sSearchString),
                                .start = start,
                                .visibility = eCellVisibility,
                                .loop = bLoop,
                                .mode = eMatchMode,
                                .matchCase = bMatchCase});
}

}  // namespace quilta
