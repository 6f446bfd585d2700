#include "interaction/selection.hpp"

#include <algorithm>
#include <quilta/error.hpp>

namespace quilta::interaction {

using model::Cell;
using model::Prop;

// ---- Helpers -------------------------------------------------------------------------------

bool Selection::TakesPart(const model::Column& column) const {
  if (column.index == store_.Cols().RowTextCol()) return props_.Bool(Prop::DrawRowText);
  return column.visible;
}

bool Selection::RowShownForSelection(int32_t row) const {
  const model::RowRecord& rec = store_.Rows().At(row);
  return rec.Visible() && rec.VisibleAsChild();
}

// A cell still equal to its column's template has no record to mark; giving it one would build
// every record of the column up to that row just to move the focus.
void Selection::MarkRedraw(int32_t row, int32_t col) {
  int32_t phys = store_.Rows().At(row).phys;
  if (store_.Cells().Column(col).IsTemplate(phys)) return;
  store_.MutableCell(row, col).checkPos |= Cell::kNeedsRedraw;
}

void Selection::RaiseBefore() {
  beforeRaised_ = true;
  if (QuiltaEvents* ev = Events()) ev->BeforeSelectionChange();
}

void Selection::RaiseStoreBefore() {
  if (QuiltaEvents* ev = Events()) ev->BeforeSelectionChange();
}

void Selection::RaiseAfterIfOwed(bool contentsChanged) {
  if (!beforeRaised_) return;
  beforeRaised_ = false;
  if (QuiltaEvents* ev = Events()) ev->AfterSelectionChange(contentsChanged);
}

void Selection::FinishRange(bool raiseAfterNow) {
  if (!raiseAfterNow) {
    contentsChanged_ = true;
    return;
  }
  RaiseAfterIfOwed(true);
}

void Selection::SetAnchor(int32_t row, int32_t col, bool state) {
  anchorRow_ = row;
  anchorCol_ = col;
  anchorState_ = state;
}

// ---- Cell and row states -------------------------------------------------------------------

void Selection::SetCellSelState(int32_t row, int32_t col, bool select, bool updateList,
                                bool raiseBefore) {
  const Cell& cell = store_.CellAt(row, col);
  if (cell.Selected() == select) return;
  if (select && !cell.Selectable()) return;
  if (raiseBefore && !beforeRaised_) RaiseBefore();
  Cell& now = store_.MutableCell(row, col);  // after the event: a handler may grow the store
  now.SetSelected(select);
  now.checkPos |= Cell::kNeedsRedraw;
  if (updateList) {
    int32_t itemCol = RowMode() ? 1 : col;
    if (select) {
      items_.Add(row, itemCol);
    } else {
      items_.Remove(row, itemCol);
    }
  }
  if (QuiltaEvents* ev = Events()) ev->CellSelectionChange(row, col, select);
}

void Selection::SetRowSelState(int32_t row, bool select, bool updateList, bool raiseBefore) {
  const model::ColumnStore& cols = store_.Cols();
  for (int32_t slot = 1; slot <= cols.RowTextCol(); ++slot) {
    const model::Column& column = cols.AtSlot(slot);
    if (select && !TakesPart(column)) continue;
    SetCellSelState(row, column.index, select, updateList, raiseBefore);
  }
}

void Selection::ToggleRowCells(int32_t row, bool updateList, bool raiseBefore) {
  const model::ColumnStore& cols = store_.Cols();
  for (int32_t slot = 1; slot <= cols.RowTextCol(); ++slot) {
    const model::Column& column = cols.AtSlot(slot);
    if (!TakesPart(column)) continue;
    bool selected = store_.CellAt(row, column.index).Selected();
    SetCellSelState(row, column.index, !selected, updateList, raiseBefore);
  }
}

void Selection::SetLineSelState(int32_t row, bool select, bool updateList, bool raiseBefore) {
  if (IsGroupRow(row)) {
    SetCellSelState(row, store_.Cols().RowTextCol(), select, updateList, raiseBefore);
  } else {
    SetRowSelState(row, select, updateList, raiseBefore);
  }
}

// ---- Selecting by moves --------------------------------------------------------------------

void Selection::SelectOnly(int32_t row, int32_t col, bool raiseAfterNow) {
  if (row < 1 || col < 1) return;
  SetAnchor(row, col, true);
  beforeRaised_ = false;
  bool rowMode = RowMode();
  bool wasListed = false;
  // The list follows each cell as it changes (and is rebuilt at the end), so that a handler that
  // throws half-way leaves the cells and the list agreeing.
  for (const SelItem& item : items_.Items()) {
    if (item.row > store_.RowCount()) continue;  // a handler removed rows meanwhile
    if (rowMode) {
      if (item.row == row) {
        wasListed = true;
        continue;
      }
      SetLineSelState(item.row, false, true, true);
    } else {
      if (item.row == row && item.col == col) {
        wasListed = true;
        continue;
      }
      if (item.col <= store_.Cols().RowTextCol())
        SetCellSelState(item.row, item.col, false, true, true);
    }
  }
  if (!wasListed) {
    if (rowMode) {
      SetLineSelState(row, true, true, true);
    } else {
      SetCellSelState(row, col, true, true, true);
    }
  }
  // A cell that cannot be selected is not listed either: the list stays in step with the cells.
  bool listed = rowMode ? items_.Contains(row, 1) : store_.CellAt(row, col).Selected();
  items_.Clear();
  if (listed) items_.Add(row, rowMode ? 1 : col);
  FinishRange(raiseAfterNow);
}

void Selection::MoveSingleSelection(int32_t row, int32_t col) {
  if (store_.RowCount() == 0 || store_.ColCount() == 0 || row < 0 || col < 0) return;
  SetAnchor(row, col, true);
  beforeRaised_ = false;
  if (RowMode()) {
    if (row == curRow_) return;
    RaiseBefore();
    // What is listed goes, not only the current row: a grid without columns moves the current
    // cell without moving the selection, so the two can part.
    for (const SelItem& item : items_.Items())
      if (item.row >= 1 && item.row <= store_.RowCount())
        SetLineSelState(item.row, false, true, false);
    if (row != 0) SetLineSelState(row, true, true, false);
  } else {
    if (row == curRow_ && col == curCol_) return;
    RaiseBefore();
    for (const SelItem& item : items_.Items())
      if (InGrid(item.row, item.col)) SetCellSelState(item.row, item.col, false, true, false);
    if (row != 0 && col != 0) SetCellSelState(row, col, true, true, false);
  }
  beforeRaised_ = true;
  contentsChanged_ = true;
}

std::pair<int32_t, int32_t> Selection::RowsToVisit(int32_t first, int32_t last) const {
  if (items_.Count() == 1) return {first, last};
  if (lastRange_.anchorRow == anchorRow_ && lastRange_.anchorCol == anchorCol_ &&
      lastRange_.first >= 1)
    return {std::min(first, lastRange_.first), std::max(last, lastRange_.last)};
  return {1, store_.RowCount()};
}

void Selection::ExtendSelection(int32_t row, int32_t col, int shift, bool raiseAfterNow) {
  if (row < 1 || row > store_.RowCount()) return;
  int32_t first = std::max(1, std::min(row, anchorRow_));
  int32_t last = std::min(std::max(row, anchorRow_), store_.RowCount());
  if (IsGroupRow(row)) col = 1;
  beforeRaised_ = false;
  if (RowMode()) {
    ExtendRows(first, last, row, shift);
  } else {
    ExtendCells(first, last, col, shift);
  }
  FinishRange(raiseAfterNow);
  lastRange_ = {anchorRow_, anchorCol_, first, last};
}

void Selection::ExtendCells(int32_t first, int32_t last, int32_t col, int shift) {
  const model::ColumnStore& cols = store_.Cols();
  int32_t slotCount = cols.RowTextCol();
  int32_t targetSlot = std::max(1, cols.SlotOfIndex(col));
  int32_t anchorSlot = std::max(1, cols.SlotOfIndex(anchorCol_));
  int32_t lowSlot = std::min(targetSlot, anchorSlot);
  int32_t highSlot = std::max(targetSlot, anchorSlot);
  // Indexes first: a handler may add or remove columns while the cells change.
  std::vector<int32_t> index(slotCount + 1);
  std::vector<char> marked(slotCount + 1, 0);
  for (int32_t slot = 1; slot <= slotCount; ++slot) {
    index[slot] = cols.AtSlot(slot).index;
    marked[slot] = slot >= lowSlot && slot <= highSlot && TakesPart(cols.AtSlot(slot));
  }
  int32_t rowText = cols.RowTextCol();
  auto setRow = [&](int32_t r, bool inside, bool value) {
    if (IsGroupRow(r)) {
      SetCellSelState(r, rowText, inside && value, true, true);
      return;
    }
    for (int32_t slot = 1; slot <= slotCount; ++slot)
      if (!(shift & kCtrl) || marked[slot])
        SetCellSelState(r, index[slot], inside && marked[slot] && value, true, true);
  };
  if (shift & kCtrl) {
    for (int32_t r = first; r <= last && r <= store_.RowCount(); ++r)
      if (RowShownForSelection(r)) setRow(r, true, anchorState_);
    return;
  }
  auto [from, to] = RowsToVisit(first, last);
  for (int32_t r = from; r <= to && r <= store_.RowCount(); ++r)
    if (RowShownForSelection(r)) setRow(r, r >= first && r <= last, true);
}

void Selection::ExtendRows(int32_t first, int32_t last, int32_t row, int shift) {
  if (shift & kCtrl) {
    for (int32_t r = first; r <= last && r <= store_.RowCount(); ++r)
      if (RowShownForSelection(r)) SetLineSelState(r, r == row || anchorState_, true, true);
    return;
  }
  auto [from, to] = RowsToVisit(first, last);
  for (int32_t r = from; r <= to && r <= store_.RowCount(); ++r)
    if (RowShownForSelection(r)) SetLineSelState(r, r >= first && r <= last, true, true);
}

void Selection::SelectByClick(int32_t row, int32_t col, int shift, bool raiseAfterNow) {
  if (shift & kShift) {
    ExtendSelection(row, col, shift, raiseAfterNow);
  } else if (shift & kCtrl) {
    beforeRaised_ = false;
    RaiseBefore();
    bool rowMode = RowMode();
    bool now = !store_.CellAt(row, col).Selected();
    if (rowMode && !IsGroupRow(row)) {
      // The row as a whole: a row going off loses every selected cell, the row text's too.
      now = !items_.Contains(row, 1);
      SetRowSelState(row, now, true, true);
    } else {
      SetCellSelState(row, IsGroupRow(row) ? store_.Cols().RowTextCol() : col, now, true, true);
    }
    // A following Shift range extends from here with the state the cell just took.
    SetAnchor(row, col, now);
    FinishRange(raiseAfterNow);
  } else {
    SelectOnly(row, col, raiseAfterNow);
  }
}

// ---- The current cell ----------------------------------------------------------------------

void Selection::SetCurCellPos(int32_t row, int32_t col) {
  cellChanged_ = rowChanged_ = colChanged_ = false;
  if (InGrid(curRow_, curCol_)) MarkRedraw(curRow_, curCol_);
  prevCol_ = curCol_;
  if (col != curCol_) curCol_ = col, cellChanged_ = colChanged_ = true;
  prevRow_ = curRow_;
  if (row != curRow_) curRow_ = row, cellChanged_ = rowChanged_ = true;
  if (cellChanged_ && InGrid(row, col)) MarkRedraw(row, col);
  if (cellChanged_) site_.CurrentCellMoved(prevRow_, prevCol_, row, col);
}

void Selection::RaisePendingSelEvents() {
  QuiltaEvents* ev = Events();
  if (cellChanged_) {
    cellChanged_ = false;
    if (ev) ev->CurCellChange(curRow_, curCol_, prevRow_, prevCol_);
  }
  if (rowChanged_) {
    rowChanged_ = false;
    if (ev) ev->CurRowChange(curRow_, prevRow_);
  }
  if (colChanged_) {
    colChanged_ = false;
    if (ev) ev->CurColChange(curCol_, prevCol_);
  }
  RaiseAfterIfOwed(contentsChanged_);
  contentsChanged_ = false;
}

void Selection::ScrollCurrentIntoView(int32_t rowGap) {
  bool scrolled = false;
  if (curRow_ >= 1 && curRow_ <= store_.RowCount()) {
    scrolled = rowGap >= 0 ? view_.EnsureRowVisible(curRow_, rowGap)
                           : view_.EnsureCellVisible(curRow_, curCol_);
  }
  if (!scrolled) site_.Redraw();
}

void Selection::MoveCurCell(int32_t row, int32_t col) {
  site_.EndEditing();
  if (MultiSelect()) {
    SelectOnly(row, col, false);
  } else {
    MoveSingleSelection(row, col);
  }
  SetCurCellPos(row, col);
  ScrollCurrentIntoView();
  RaisePendingSelEvents();
}

void Selection::PlaceCurrent(int32_t row, int32_t col) {
  SetCurCellPos(row, col);
  RaisePendingSelEvents();
}

void Selection::ToggleCurrent() {
  if (!InGrid(curRow_, curCol_)) return;
  beforeRaised_ = false;
  RaiseBefore();
  if (RowMode() && !IsGroupRow(curRow_)) {
    SetRowSelState(curRow_, !items_.Contains(curRow_, 1), true, true);
  } else {
    int32_t col = IsGroupRow(curRow_) ? store_.Cols().RowTextCol() : curCol_;
    SetCellSelState(curRow_, col, !store_.CellAt(curRow_, col).Selected(), true, true);
  }
  site_.Redraw();
  RaiseAfterIfOwed(true);
}

// ---- Public members ------------------------------------------------------------------------

void Selection::SetCurRow(int32_t row) {
  if (row != 0 && (row < 1 || row > store_.RowCount()))
    throw Error::FromCode(quErrSubscriptOutOfRange);
  if (row == curRow_) return;
  MoveCurCell(row, curCol_ == 0 && RowMode() ? 1 : curCol_);
}

void Selection::SetCurCol(int32_t col) {
  if (col < 0 || col > store_.ColCount()) throw Error::FromCode(quErrSubscriptOutOfRange);
  if (col != curCol_) MoveCurCell(curRow_, col);
}

void Selection::SetCurCell(int32_t row, int32_t col) {
  if (row == curRow_ && col == curCol_) {
    view_.EnsureCellVisible(row, col);
    return;
  }
  MoveCurCell(row, col);
}

void Selection::SetCellSelected(int32_t row, int32_t col, bool select) {
  if (store_.CellAt(row, col).Selected() == select) return;
  if (MultiSelect()) {
    beforeRaised_ = false;
    if (RowMode()) {
      SetLineSelState(row, select, true, true);
    } else {
      SetCellSelState(row, col, select, true, true);
    }
    site_.Redraw();
    RaiseAfterIfOwed(true);
    return;
  }
  if (!select || (row == curRow_ && col == curCol_)) return;
  MoveSingleSelection(row, col);
  SetCurCellPos(row, col);
  ScrollCurrentIntoView();
  RaisePendingSelEvents();
}

void Selection::SetRangeSelected(int32_t col, int32_t firstRow, int32_t lastRow, bool select) {
  if (!MultiSelect()) {
    // One cell at most can be selected here: as CellSelected does, it becomes the current one.
    for (int32_t r = firstRow; r <= lastRow && r <= store_.RowCount(); ++r)
      SetCellSelected(r, col, select);
    return;
  }
  beforeRaised_ = false;
  bool rowMode = RowMode();
  for (int32_t r = firstRow; r <= lastRow && r <= store_.RowCount(); ++r) {
    if (rowMode) {
      SetLineSelState(r, select, true, true);
    } else {
      SetCellSelState(r, col, select, true, true);
    }
  }
  site_.Redraw();
  RaiseAfterIfOwed(true);
}

void Selection::ClearSelection() {
  beforeRaised_ = false;
  RaiseBefore();
  if (items_.Count() == 0) {
    RaiseAfterIfOwed(false);
    return;
  }
  site_.EndEditing();
  // Every listed item, in single selection too: its one item need not be the current cell (a
  // move refused on a grid without columns leaves the selection where it was).
  bool rowMode = RowMode();
  for (const SelItem& item : items_.Items()) {
    if (item.row > store_.RowCount()) continue;
    if (rowMode) {
      SetRowSelState(item.row, false, true, true);
    } else if (item.col <= store_.Cols().RowTextCol()) {
      SetCellSelState(item.row, item.col, false, true, true);
    }
  }
  items_.Clear();
  SetCurCellPos(0, 0);
  site_.Redraw();
  beforeRaised_ = true;
  contentsChanged_ = true;
  RaisePendingSelEvents();
}

void Selection::SelectAll() {
  if (!MultiSelect()) throw Error::FromCode(quErrIllegalOperation);
  int64_t rows = store_.RowCount();
  int64_t all = RowMode() ? rows : rows * store_.ColCount();
  if (items_.Count() == all) return;
  beforeRaised_ = false;
  RaiseBefore();
  int64_t perRow = 0;
  for (const model::Column& column : store_.Cols().Slots()) perRow += TakesPart(column);
  items_.Reserve((RowMode() ? rows : rows * perRow) - items_.Count());
  for (int32_t r = 1; r <= store_.RowCount(); ++r)
    if (RowShownForSelection(r)) SetLineSelState(r, true, true, false);
  site_.Redraw();
  RaiseAfterIfOwed(true);
}

void Selection::InvertSelection() {
  if (!MultiSelect()) throw Error::FromCode(quErrIllegalOperation);
  beforeRaised_ = false;
  bool rowMode = RowMode();
  int32_t rowText = store_.Cols().RowTextCol();
  for (int32_t r = 1; r <= store_.RowCount(); ++r) {
    if (!RowShownForSelection(r)) continue;
    if (IsGroupRow(r)) {
      SetCellSelState(r, rowText, !store_.CellAt(r, rowText).Selected(), true, true);
    } else if (rowMode) {
      bool first = store_.ColCount() >= 1 && store_.CellAt(r, 1).Selected();
      SetRowSelState(r, !first, true, true);
    } else {
      ToggleRowCells(r, true, true);
    }
  }
  site_.Redraw();
  contentsChanged_ = true;
  RaisePendingSelEvents();
}

void Selection::LeaveMultiSelect() {
  if (items_.Count() == 0) return;
  beforeRaised_ = false;
  bool rowMode = RowMode();
  for (const SelItem& item : items_.Items()) {
    if (item.row > store_.RowCount()) continue;
    if (rowMode) {
      if (item.row != curRow_) SetLineSelState(item.row, false, true, true);
    } else if (!(item.row == curRow_ && item.col == curCol_) &&
               item.col <= store_.Cols().RowTextCol()) {
      SetCellSelState(item.row, item.col, false, true, true);
    }
  }
  items_.Clear();
  bool keep = rowMode ? curRow_ >= 1 && curRow_ <= store_.RowCount() : InGrid(curRow_, curCol_);
  if (keep) {
    if (rowMode) {
      SetLineSelState(curRow_, true, true, true);
    } else {
      SetCellSelState(curRow_, curCol_, true, true, true);
    }
    // A row with no cell that takes part (a grid without columns) selects nothing: no item.
    bool selected = false;
    for (int32_t col = rowMode ? 1 : curCol_;
         col <= (rowMode ? store_.Cols().RowTextCol() : curCol_); ++col)
      selected = selected || store_.CellAt(curRow_, col).Selected();
    if (selected) items_.Add(curRow_, rowMode ? 1 : curCol_);
  }
  RaiseAfterIfOwed(true);
}

void Selection::RowModeChanged() {
  std::vector<SelItem> old = items_.Items();
  items_.Clear();
  const model::ColumnStore& cols = store_.Cols();
  for (const SelItem& item : old) {
    if (item.row < 1 || item.row > store_.RowCount()) continue;
    if (RowMode()) {
      items_.Add(item.row, 1);
      continue;
    }
    // Each selected cell of a listed row becomes an item of its own.
    for (int32_t slot = 1; slot <= cols.RowTextCol(); ++slot) {
      int32_t col = cols.AtSlot(slot).index;
      if (store_.CellAt(item.row, col).Selected()) items_.Add(item.row, col);
    }
  }
  // A selected row of single selection leaves one selected cell: the current one.
  if (RowMode() || MultiSelect() || items_.Count() == 0) return;
  beforeRaised_ = false;
  for (const SelItem& item : items_.Items())
    if (item.row != curRow_ || item.col != curCol_)
      SetCellSelState(item.row, item.col, false, true, true);
  if (InGrid(curRow_, curCol_)) SetCellSelState(curRow_, curCol_, true, true, true);
  RaiseAfterIfOwed(true);
}

// ---- Following the stores ------------------------------------------------------------------

template <class F>
bool Selection::RebuildItems(F&& f) {
  std::vector<SelItem> items = items_.Items();
  bool changed = false;
  items_.Clear();
  items_.Reserve(static_cast<int64_t>(items.size()));
  for (SelItem item : items) {
    SelItem before = item;
    bool keep = f(item);
    changed |= !keep || !(item == before);
    if (keep) items_.Add(item.row, item.col);
  }
  return changed;
}

void Selection::ColumnsInserted(int32_t index, int32_t count) {
  if (RowMode()) {
    // The new cells of selected rows are selected too (a group row's selection is its row-text
    // cell alone).
    for (const SelItem& item : items_.Items()) {
      if (item.row > store_.RowCount() || IsGroupRow(item.row)) continue;
      for (int32_t c = index; c < index + count; ++c)
        store_.MutableCell(item.row, c).SetSelected(true);
    }
  } else {
    bool affected = false;
    items_.ForEach([&](int32_t, int32_t col) { affected |= col >= index; });
    if (affected) {
      RaiseStoreBefore();
      RebuildItems([&](SelItem& item) {
        if (item.col >= index) item.col += count;
        return true;
      });
    }
  }
  if (anchorCol_ >= index) anchorCol_ += count;
  if (curCol_ >= index) curCol_ += count;
}

void Selection::ColumnsRemoved(int32_t index, int32_t count) {
  if (RowMode()) {
    // A row stays listed only while one of its cells outside the removed columns is selected.
    auto keeps = [&](int32_t row) {
      for (int32_t col = 1; col <= store_.Cols().RowTextCol(); ++col)
        if ((col < index || col >= index + count) && store_.CellAt(row, col).Selected())
          return true;
      return false;
    };
    bool affected = false;
    items_.ForEach([&](int32_t row, int32_t) { affected |= !keeps(row); });
    if (affected) {
      RaiseStoreBefore();
      RebuildItems([&](SelItem& item) { return keeps(item.row); });
    }
  } else {
    bool affected = false;
    items_.ForEach([&](int32_t, int32_t col) { affected |= col >= index; });
    if (affected) {
      RaiseStoreBefore();
      RebuildItems([&](SelItem& item) {
        if (item.col >= index && item.col < index + count) return false;
        if (item.col >= index + count) item.col -= count;
        return true;
      });
    }
  }
  if (anchorCol_ >= index + count) {
    anchorCol_ -= count;
  } else if (anchorCol_ >= index) {
    anchorCol_ = 0;
  }
  if (curCol_ >= index + count) {
    curCol_ -= count;
  } else if (curCol_ >= index) {
    PlaceCurrent(curRow_, 0);
  }
}

void Selection::RowsInserted(int32_t row, int32_t count) {
  if (items_.MaxRow() >= row) {
    RaiseStoreBefore();
    RebuildItems([&](SelItem& item) {
      if (item.row >= row) item.row += count;
      return true;
    });
  }
  if (anchorRow_ >= row) anchorRow_ += count;
  lastRange_ = {};
  if (curRow_ >= row) curRow_ += count;
}

void Selection::RowsRemoved(int32_t row, int32_t count, bool truncating) {
  int32_t last = row + count - 1;
  if (items_.MaxRow() >= row) {
    RaiseStoreBefore();
    RebuildItems([&](SelItem& item) {
      if (item.row >= row && item.row <= last) return false;
      if (item.row > last) item.row -= count;
      return true;
    });
  }
  anchorRow_ = anchorRow_ > last ? anchorRow_ - count : anchorRow_ >= row ? 0 : anchorRow_;
  lastRange_ = {};
  // A current row strictly inside the removed block moves to current row - count, before the
  // block: the grid has always done so and hosts rely on it. Shrinking RowCount clears it.
  if (truncating) {
    if (curRow_ >= row) PlaceCurrent(0, curCol_);
  } else if (curRow_ > row) {
    curRow_ -= count;
    if (curRow_ < 1) PlaceCurrent(0, curCol_);
  } else if (curRow_ == row) {
    PlaceCurrent(0, curCol_);
  }
}

void Selection::RowsCleared() {
  if (items_.Count() > 0) RaiseStoreBefore();
  items_.Clear();
  SetAnchor(0, 0, true);
  lastRange_ = {};
  PlaceCurrent(0, 0);
}

void Selection::BeforeReorder() {
  reorderItems_.clear();
  reorderItems_.reserve(items_.Count());
  items_.ForEach([&](int32_t row, int32_t col) {
    if (row >= 1 && row <= store_.RowCount())
      reorderItems_.push_back({store_.Rows().At(row).phys, col});
  });
  bool anchored = anchorRow_ >= 1 && anchorRow_ <= store_.RowCount();
  reorderAnchorPhys_ = anchored ? store_.Rows().At(anchorRow_).phys : 0;
}

void Selection::AfterReorder() {
  model::RowStore& rows = store_.Rows();
  items_.Clear();
  items_.Reserve(static_cast<int64_t>(reorderItems_.size()));
  // A row that went (a group row removed by regrouping) takes its item with it.
  for (const PhysItem& item : reorderItems_)
    if (const int32_t row = rows.RowOfPhys(item.phys)) items_.Add(row, item.col);
  if (reorderAnchorPhys_) anchorRow_ = rows.RowOfPhys(reorderAnchorPhys_);
  lastRange_ = {};
  std::vector<PhysItem>().swap(reorderItems_);
}

}  // namespace quilta::interaction
