// The control facade: in-cell editing of the current cell and the text box while it is open.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {
namespace {

TextBox& OpenBox(const control::Control& c) {
  TextBox* box = c.editor.Box();
  if (!box) throw Error::FromCode(quErrIllegalOperation);
  return *box;
}

}  // namespace

void Quilta::RequestEditCurCell(int32_t lCharCode, bool bShowCombo) {
  c_->editor.RequestEdit(lCharCode, bShowCombo);
}

void Quilta::CommitEditCurCell() { c_->editor.Commit(false); }

void Quilta::CancelEditCurCell() { c_->editor.Cancel(); }

bool Quilta::IsEditing() const { return c_->editor.IsEditing(); }

std::string Quilta::TextEditText() const {
  return c_->editor.Box() ? c_->editor.Box()->Text() : std::string();
}

void Quilta::SetTextEditText(std::string_view sText) { OpenBox(*c_).SetText(sText); }

int32_t Quilta::TextEditSelStart() const {
  return c_->editor.Box() ? c_->editor.Box()->SelStart() : 0;
}

void Quilta::SetTextEditSelStart(int32_t lStart) {
  TextBox& box = OpenBox(*c_);
  box.SetSelection(lStart, 0);
}

int32_t Quilta::TextEditSelLength() const {
  return c_->editor.Box() ? c_->editor.Box()->SelLength() : 0;
}

void Quilta::SetTextEditSelLength(int32_t lLength) {
  TextBox& box = OpenBox(*c_);
  box.SetSelection(box.SelStart(), lLength);
}

std::string Quilta::TextEditSelText() const {
  return c_->editor.Box() ? c_->editor.Box()->SelText() : std::string();
}

void Quilta::SetTextEditSelText(std::string_view sText) { OpenBox(*c_).ReplaceSelection(sText); }

intptr_t Quilta::TextEditHwnd() const { return c_->editor.Box() ? c_->editor.Box()->Handle() : 0; }

}  // namespace quilta
