// The current cell and the selection. The selected bit of each cell record (which drawing reads)
// and the SelItems list (which answers counts and enumerations) are changed together, and every
// change is reported to the host in one order: BeforeSelectionChange, CellSelectionChange for
// each cell, AfterSelectionChange, then CurCellChange, CurRowChange, CurColChange. An operation
// raises at most one Before/After pair; the before-raised flag carries that across its steps.
//
// Modifier masks are the host's: 1 Shift, 2 Ctrl, 4 Alt.
#pragma once

#include <cstdint>
#include <vector>

#include "interaction/sel_items.hpp"
#include "interaction/sites.hpp"
#include "model/control_properties.hpp"
#include "model/grid_store.hpp"

namespace quilta::interaction {

constexpr int kShift = 1;
constexpr int kCtrl = 2;
constexpr int kAlt = 4;

class Selection {
 public:
  Selection(model::GridStore& store, const model::ControlProperties& props, SelectionSite& site,
            ViewSite& view)
      : store_(store), props_(props), site_(site), view_(view) {}

  int32_t CurRow() const { return curRow_; }
  int32_t CurCol() const { return curCol_; }
  SelItems& Items() { return items_; }
  const SelItems& Items() const { return items_; }

  // ---- The building blocks, used by the keyboard, key search, the mouse and editing.
  void SetCellSelState(int32_t row, int32_t col, bool select, bool updateList, bool raiseBefore);
  void SetRowSelState(int32_t row, bool select, bool updateList, bool raiseBefore);
  void ToggleRowCells(int32_t row, bool updateList, bool raiseBefore);
  void SelectOnly(int32_t row, int32_t col, bool raiseAfterNow);
  void MoveSingleSelection(int32_t row, int32_t col);
  void ExtendSelection(int32_t row, int32_t col, int shift, bool raiseAfterNow);
  void SelectByClick(int32_t row, int32_t col, int shift, bool raiseAfterNow);
  void SetCurCellPos(int32_t row, int32_t col);
  void RaisePendingSelEvents();
  // The complete programmatic move: ends editing, selects, moves, scrolls, raises.
  void MoveCurCell(int32_t row, int32_t col);
  // After SetCurCellPos: scroll the current cell into view and redraw if nothing scrolled.
  // rowGap >= 0 scrolls the row only, with that gap (row mode keyboard moves).
  void ScrollCurrentIntoView(int32_t rowGap = -1);
  void SetAnchor(int32_t row, int32_t col, bool state);
  // Inverts the current cell (row mode: its row) between one Before/After pair (Ctrl+Space).
  void ToggleCurrent();

  // ---- Public members.
  void SetCurRow(int32_t row);
  void SetCurCol(int32_t col);
  void SetCurCell(int32_t row, int32_t col);
  void SetCellSelected(int32_t row, int32_t col, bool select);
  void ClearSelection();
  // The cells of one column over a row range (SetColCellsProp), between one Before/After pair.
  void SetRangeSelected(int32_t col, int32_t firstRow, int32_t lastRow, bool select);
  void SelectAll();
  void InvertSelection();
  // MultiSelect is being switched off: only the current cell (row) stays selected.
  void LeaveMultiSelect();

  // ---- The stores changed underneath (columns and rows added, removed, cleared, reordered).
  void ColumnsInserted(int32_t index, int32_t count);
  void ColumnsRemoved(int32_t index, int32_t count);
  void RowsInserted(int32_t row, int32_t count);
  // truncating: RowCount shrank, so a current row among the removed ones is cleared.
  void RowsRemoved(int32_t row, int32_t count, bool truncating);
  void RowsCleared();
  // Rows are about to be reordered (sorting, MoveRow): the selected items and the anchor are
  // remembered by data row and found again afterwards.
  void BeforeReorder();
  void AfterReorder();
  // Moves the current cell without selection changes (a reorder keeps it on its data row),
  // raising the current-cell events when it changed.
  void PlaceCurrent(int32_t row, int32_t col);
  // The current row's data row moved to another index; nothing changed for the host.
  void RenumberCurrentRow(int32_t row) { curRow_ = row; }

  bool RowMode() const { return props_.Bool(model::Prop::RowMode); }
  bool MultiSelect() const { return props_.Bool(model::Prop::MultiSelect); }
  // RowMode was switched: the list is rewritten in the new mode's items.
  void RowModeChanged();
  // Whether a column's cells, and a row, can be selected at all (hidden ones cannot).
  bool TakesPart(const model::Column& column) const;
  bool RowShownForSelection(int32_t row) const;

 private:
  bool IsGroupRow(int32_t row) const { return store_.Rows().At(row).GroupRow(); }
  // A whole row, or its row-text cell for a group row.
  void SetLineSelState(int32_t row, bool select, bool updateList, bool raiseBefore);
  bool InGrid(int32_t row, int32_t col) const {
    return row >= 1 && row <= store_.RowCount() && col >= 1 && col <= store_.Cols().RowTextCol();
  }
  void MarkRedraw(int32_t row, int32_t col);
  void RaiseBefore();
  // The stores report a change of selected items with a BeforeSelectionChange of its own.
  void RaiseStoreBefore();
  void RaiseAfterIfOwed(bool contentsChanged);
  void FinishRange(bool raiseAfterNow);
  void ExtendCells(int32_t first, int32_t last, int32_t col, int shift);
  void ExtendRows(int32_t first, int32_t last, int32_t row, int shift);
  // Rows an extension without Ctrl must visit: first..last when one item is selected, the
  // union with the previous range from the same anchor, else every row.
  std::pair<int32_t, int32_t> RowsToVisit(int32_t first, int32_t last) const;
  // Rebuilds the list with every item passed through f (returning false drops the item).
  template <class F>
  bool RebuildItems(F&& f);
  QuiltaEvents* Events() { return site_.Events(); }

  model::GridStore& store_;
  const model::ControlProperties& props_;
  SelectionSite& site_;
  ViewSite& view_;
  SelItems items_;

  int32_t curRow_ = 0;
  int32_t curCol_ = 0;
  int32_t prevRow_ = 0;
  int32_t prevCol_ = 0;
  bool cellChanged_ = false;
  bool rowChanged_ = false;
  bool colChanged_ = false;
  bool beforeRaised_ = false;
  bool contentsChanged_ = false;

  int32_t anchorRow_ = 0;
  int32_t anchorCol_ = 0;
  bool anchorState_ = true;
  struct Range {
    int32_t anchorRow = 0, anchorCol = 0, first = 0, last = 0;
  } lastRange_;

  // A selected item tied to its data row rather than its row index, across a reorder.
  struct PhysItem {
    int32_t phys;
    int32_t col;
  };
  std::vector<PhysItem> reorderItems_;
  int32_t reorderAnchorPhys_ = 0;
};

}  // namespace quilta::interaction
