// What the interaction subsystem asks of the control around it: events, ending an edit, drawing,
// scrolling, and the commands that belong to other subsystems (editing, clipboard, the row
// hierarchy, the context menu). The control implements each; the interaction classes never
// reach above themselves otherwise.
#pragma once

#include <cstdint>
#include <quilta/events.hpp>

namespace quilta::interaction {

class SelectionSite {
 public:
  virtual ~SelectionSite() = default;
  // The host's event sink, or nullptr.
  virtual QuiltaEvents* Events() = 0;
  // Finishes an edit in progress; the host's custom editor is told to quit first.
  virtual void EndEditing() = 0;
  virtual void Redraw() = 0;
  // The current cell moved (before its events are raised): the focus must be repainted.
  virtual void CurrentCellMoved(int32_t /*oldRow*/, int32_t /*oldCol*/, int32_t /*newRow*/,
                                int32_t /*newCol*/) {}
};

// Scrolling and the view's extent, as hit testing and visibility provide them.
class ViewSite {
 public:
  virtual ~ViewSite() = default;
  // Both return whether the view scrolled.
  virtual bool EnsureCellVisible(int32_t row, int32_t col) = 0;
  virtual bool EnsureRowVisible(int32_t row, int32_t gap) = 0;
  // Height of the cells area in pixels.
  virtual int32_t ViewHeight() = 0;
  // The first and last rows that lie entirely inside the view (0 when none).
  virtual int32_t FirstFullyVisibleRow() = 0;
  virtual int32_t LastFullyVisibleRow() = 0;
  // The scroll bars' line and page steps (a disabled grid only scrolls).
  virtual void ScrollLines(int32_t columns, int32_t rows) = 0;
  virtual void ScrollPages(int32_t pages) = 0;
};

// Edit kinds of a cell: what its editor shows.
enum EditKind : int32_t { kEditTextBox = 0, kEditComboOnly = 1, kEditTextBoxCombo = 2 };

// Commands the keyboard starts in other subsystems.
class CommandSite {
 public:
  virtual ~CommandSite() = default;
  virtual bool IsEditing() = 0;
  virtual EditKind EditKindOf(int32_t row, int32_t col) = 0;
  virtual void RequestEditCurCell(int32_t charCode, bool showCombo) = 0;
  // Commits the edit in progress; returns whether the cell is still being edited afterwards.
  virtual bool CommitEdit() = 0;
  virtual void CancelEdit() = 0;
  // Toggles the check box of a cell that shows one; returns whether it has one.
  virtual bool ToggleCheckBox(int32_t row, int32_t col) = 0;
  virtual void Copy(bool withHeaders) = 0;
  virtual void Cut() = 0;
  virtual void Paste() = 0;
  virtual void ClearSelectedCells() = 0;
  virtual void ShowContextMenu(int32_t row, int32_t col) = 0;
  // A right click at a client point released over the cell it pressed.
  virtual void ShowContextMenuAt(int32_t row, int32_t col, int32_t x, int32_t y) = 0;
  // Sets a row's expanded state as RowExpanded does (no events).
  virtual void SetRowExpanded(int32_t row, bool expanded) = 0;
  virtual void ExpandSubtree(int32_t row) = 0;
  // Virtual mode: asks the host for rows up to `row`; returns whether that row exists now.
  virtual bool EnsureVirtualRows(int32_t row) = 0;
};

}  // namespace quilta::interaction
