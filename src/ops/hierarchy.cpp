#include "ops/hierarchy.hpp"

#include <algorithm>

#include "control/control.hpp"

namespace quilta::ops {
namespace {

using model::RowRecord;

[[noreturn]] void Raise(int32_t code) { throw Error::FromCode(code); }

void PutBit(RowRecord& rec, uint8_t bit, bool on) {
  rec.flags = static_cast<uint8_t>(on ? rec.flags | bit : rec.flags & ~bit);
}

}  // namespace

int32_t ChildCount(const model::RowStore& rows, int32_t row) {
  int childLevel = rows.At(row).level + 1;
  int32_t count = 0;
  for (int32_t r = row + 1; r <= rows.Count() && rows.At(r).level >= childLevel; ++r)
    count += rows.At(r).level == childLevel;
  return count;
}

void Hierarchy::PutVisibleAsChild(int32_t row, bool visible) {
  if (c_.store.Rows().At(row).VisibleAsChild() == visible) return;
  c_.store.BeforeRowShapeChange(row);
  PutBit(c_.store.Rows().At(row), RowRecord::kVisibleAsChild, visible);
  c_.store.AfterRowShapeChange(row);
}

int32_t Hierarchy::ShowDescendants(int32_t row, bool visible) {
  const model::RowStore& rows = c_.store.Rows();
  uint8_t level = rows.At(row).level;
  int32_t touched = 0;
  for (int32_t r = row + 1; r <= rows.Count() && rows.At(r).level > level;) {
    PutVisibleAsChild(r, visible);
    ++touched;
    r = rows.At(r).Expanded() ? r + 1 : c_.store.LastNested(r) + 1;
  }
  return touched;
}

void Hierarchy::SetLevel(int32_t row, uint8_t level) {
  c_.store.Rows().At(row).level = level;
  c_.RelayoutAll();
}

void Hierarchy::SetExpanded(int32_t row, bool expanded) {
  if (c_.store.Rows().At(row).Expanded() == expanded) return;
  c_.EndEditing();
  PutBit(c_.store.Rows().At(row), RowRecord::kExpanded, expanded);
  if (ShowDescendants(row, expanded) == 0) return;
  c_.geometry.RecordChange(model::kLayoutRows);
  c_.RecalcRowsFrom(row + 1);
  c_.RequestRedraw();
}

void Hierarchy::SetVisibleAsChild(int32_t row, bool visible) {
  if (c_.store.Rows().At(row).VisibleAsChild() == visible) return;
  PutVisibleAsChild(row, visible);
  c_.geometry.RecordChange(model::kLayoutRows);
  c_.RecalcRowsFrom(row);
  c_.RequestRedraw();
}

void Hierarchy::SetTreeButton(int32_t row, int32_t button) {
  RowRecord& rec = c_.store.Rows().At(row);
  if (rec.TreeButton() == button) return;
  rec.SetTreeButton(button);
  c_.RequestRedraw();
}

// Every row of the range gets the same expanded state, so rows inside collapsed subtrees need no
// special walk: afterwards the whole range is uniformly expanded (all shown) or collapsed (all
// hidden below the start row). In the whole grid, top-level rows stay visible as children.
void Hierarchy::CollapseExpand(int32_t start, bool expand, bool wholeGrid) {
  int32_t reported = wholeGrid ? 0 : start;
  bool doDefault = true;
  if (c_.events) c_.events->BeforeRowCollapseExpand(reported, expand, doDefault);
  if (!doDefault) return;
  c_.geometry.RecordChange(model::kLayoutRows);
  c_.EndEditing();
  model::RowStore& rows = c_.store.Rows();
  if (start <= rows.Count()) {
    int32_t last = wholeGrid ? rows.Count() : c_.store.LastNested(start);
    PutBit(rows.At(start), RowRecord::kExpanded, expand);
    for (int32_t r = start + 1; r <= last; ++r) {
      PutBit(rows.At(r), RowRecord::kExpanded, expand);
      if (!wholeGrid || rows.At(r).level > 0) PutVisibleAsChild(r, expand);
    }
  }
  c_.RecalcRowsFrom(start + 1);
  c_.RequestRedraw();
  if (c_.events) c_.events->AfterRowCollapseExpand(reported, expand);
}

// ---- Moving rows --------------------------------------------------------------------------------

int32_t Hierarchy::BlockEnd(int32_t row, int32_t count) const {
  const model::RowStore& rows = c_.store.Rows();
  uint8_t level = rows.At(row).level;
  int32_t last = row - 1;
  for (int32_t k = 0; k < count; ++k) {
    int32_t next = last + 1;
    if (next > rows.Count() || rows.At(next).level != level) Raise(quErrInvalidArgument);
    last = c_.store.LastNested(next);
  }
  return last;
}

// The moved rows take the visibility their new parent gives its children: each top row of the
// block is shown as a child when the parent is expanded and itself shown as a child, and its
// expanded descendants follow it as they would on expanding or collapsing it.
void Hierarchy::FitBlockToParent(int32_t first, int32_t last) {
  model::RowStore& rows = c_.store.Rows();
  int32_t parent = c_.store.ParentOf(first);
  bool visible = parent == 0 || (rows.At(parent).Expanded() && rows.At(parent).VisibleAsChild());
  for (int32_t r = first; r <= last; r = c_.store.LastNested(r) + 1) {
    if (rows.At(r).VisibleAsChild() == visible) continue;
    PutVisibleAsChild(r, visible);
    if (rows.At(r).Expanded()) ShowDescendants(r, visible);
  }
}

void Hierarchy::MoveRows(int32_t row, int32_t target, int32_t count, int32_t mode) {
  if (count < 1 || mode < quMoveRowBefore || mode > quMoveRowAsChild) Raise(quErrInvalidArgument);
  model::RowStore& rows = c_.store.Rows();
  int32_t last = BlockEnd(row, count);
  if (target >= row && target <= last) Raise(quErrInvalidHierarchy);
  int newLevel = rows.At(target).level + (mode == quMoveRowAsChild ? 1 : 0);
  int delta = newLevel - rows.At(row).level;
  int deepest = 0;
  for (int32_t r = row; r <= last; ++r) deepest = std::max<int>(deepest, rows.At(r).level);
  if (deepest + delta > 255) Raise(quErrInvalidHierarchy);

  c_.EndEditing();
  c_.RememberSelection();
  c_.geometry.RecordChange(model::kLayoutRows);
  int32_t dest = mode == quMoveRowBefore ? target : c_.store.LastNested(target) + 1;
  int32_t size = last - row + 1;
  int32_t newFirst = dest <= row ? dest : dest - size;  // dest == row: already in place
  // Where a row that stays out of the block ends up.
  auto moved = [&](int32_t r) {
    if (r >= row && r <= last) return newFirst + (r - row);
    if (dest < row && r >= dest && r < row) return r + size;
    if (dest > last && r > last && r < dest) return r - size;
    return r;
  };
  int32_t oldParent = c_.store.ParentOf(row);
  auto begin = rows.Records().begin();
  if (dest < row) {
    std::rotate(begin + (dest - 1), begin + (row - 1), begin + last);
  } else if (dest > last + 1) {
    std::rotate(begin + (row - 1), begin + last, begin + (dest - 1));
  }
  for (int32_t r = newFirst; r < newFirst + size; ++r)
    rows.At(r).level = static_cast<uint8_t>(rows.At(r).level + delta);
  int32_t firstChanged = std::min(dest, row);
  rows.NotePositionsChanged(firstChanged);
  c_.RestoreSelection();
  if (c_.CurRow() >= 1 && c_.CurRow() <= rows.Count())
    c_.selection.RenumberCurrentRow(moved(c_.CurRow()));

  FitBlockToParent(newFirst, newFirst + size - 1);
  if (oldParent) c_.store.HideButtonIfChildless(moved(oldParent));
  if (mode == quMoveRowAsChild && c_.store.AutoTreeButton()) {
    RowRecord& parent = rows.At(moved(target));
    parent.SetTreeButton(quRowTreeButtonVisible);
  }
  c_.RecalcRowsFrom(firstChanged);
  c_.RequestRedraw();
}

}  // namespace quilta::ops
