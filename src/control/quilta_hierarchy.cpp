// The control facade: the row hierarchy.
#include <quilta/quilta.hpp>

#include "control/control.hpp"
#include "ops/hierarchy.hpp"

namespace quilta {
namespace {

const model::RowRecord& Record(const control::Control& c, const Variant& vRow) {
  return c.store.Rows().At(c.store.ResolveRow(vRow));
}

}  // namespace

uint8_t Quilta::RowLevel(const Variant& vRow) const { return Record(*c_, vRow).level; }

void Quilta::SetRowLevel(const Variant& vRow, uint8_t btLevel) {
  ops::Hierarchy(*c_).SetLevel(c_->store.ResolveRow(vRow), btLevel);
  c_->RowsRearranged();
}

int32_t Quilta::RowParent(const Variant& vRow) const {
  return c_->store.ParentOf(c_->store.ResolveRow(vRow));
}

int32_t Quilta::RowLastNested(const Variant& vRow) const {
  return c_->store.LastNested(c_->store.ResolveRow(vRow));
}

int32_t Quilta::RowChildCount(const Variant& vRow) const {
  return ops::ChildCount(c_->store.Rows(), c_->store.ResolveRow(vRow));
}

bool Quilta::RowHasChildren(const Variant& vRow) const {
  return c_->store.HasChildren(c_->store.ResolveRow(vRow));
}

bool Quilta::RowExpanded(const Variant& vRow) const { return Record(*c_, vRow).Expanded(); }

void Quilta::SetRowExpanded(const Variant& vRow, bool bExpanded) {
  ops::Hierarchy(*c_).SetExpanded(c_->store.ResolveRow(vRow), bExpanded);
}

bool Quilta::RowVisibleAsChild(const Variant& vRow) const {
  return Record(*c_, vRow).VisibleAsChild();
}

void Quilta::SetRowVisibleAsChild(const Variant& vRow, bool bVisibleAsChild) {
  ops::Hierarchy(*c_).SetVisibleAsChild(c_->store.ResolveRow(vRow), bVisibleAsChild);
}

ERowTreeButton Quilta::RowTreeButton(const Variant& vRow) const {
  return static_cast<ERowTreeButton>(Record(*c_, vRow).TreeButton());
}

void Quilta::SetRowTreeButton(const Variant& vRow, ERowTreeButton eTreeButton) {
  int32_t row = c_->store.ResolveRow(vRow);
  if (eTreeButton < quRowTreeButtonAbsent || eTreeButton > quRowTreeButtonVisible)
    throw Error::FromCode(quErrInvalidArgument);
  ops::Hierarchy(*c_).SetTreeButton(row, eTreeButton);
}

bool Quilta::AddRowAutoTreeButton() const { return c_->store.AutoTreeButton(); }
void Quilta::SetAddRowAutoTreeButton(bool bAuto) { c_->store.SetAutoTreeButton(bAuto); }

void Quilta::CollapseAllChildRows(const Variant& vRow) {
  ops::Hierarchy(*c_).CollapseExpand(c_->store.ResolveRow(vRow), false, false);
}

void Quilta::ExpandAllChildRows(const Variant& vRow) {
  ops::Hierarchy(*c_).CollapseExpand(c_->store.ResolveRow(vRow), true, false);
}

void Quilta::CollapseAllRows() { ops::Hierarchy(*c_).CollapseExpand(1, false, true); }
void Quilta::ExpandAllRows() { ops::Hierarchy(*c_).CollapseExpand(1, true, true); }

// MoveRow moves a block: the row vRow and the lCount - 1 siblings that follow it, each with its
// whole subtree (fewer siblings than lCount: 514). Cells never move, only row records; keys stay
// with their rows and the current cell stays on its data row.
// - quMoveRowBefore puts the block right before vRowNewPos, quMoveRowAfter right after the whole
//   subtree of vRowNewPos; either way the block becomes the target's siblings: its levels shift
//   so that its top rows get the target's level, and the rows inside keep their relative depth.
// - quMoveRowAsChild makes the block the last children of vRowNewPos (top rows at its level + 1);
//   with AddRowAutoTreeButton the target's tree button becomes visible, as AddRow does.
// A parent left without children loses its visible tree button, as RemoveRow does. The moved rows
// are shown as children only where their new parent is expanded and shown; expansion states are
// kept. A target inside the block (the rows moved or their subtrees) raises 524, and so does a
// level that would exceed 255.
void Quilta::MoveRow(const Variant& vRow, const Variant& vRowNewPos, int32_t lCount,
                     EMoveRowMode eMode) {
  int32_t row = c_->store.ResolveRow(vRow);
  int32_t target = c_->store.ResolveRow(vRowNewPos);
  ops::Hierarchy(*c_).MoveRows(row, target, lCount, eMode);
  c_->RowsRearranged();
}

}  // namespace quilta
