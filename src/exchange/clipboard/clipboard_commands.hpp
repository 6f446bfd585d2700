// Copy, copy with headers, cut, clearing (Delete) and paste of the selected cells.
//
// Copy, cut and clearing share one routine with three switches (clear the cells, place text on
// the clipboard, include the headers). A copy or cut keeps the copied block (texts and the marks
// of the positions that held a selected cell) with the clipboard's sequence number, so that a
// paste of the grid's own data is recognised and keeps the block's holes.
//
// Every cell that a cut, a Delete or a paste changes goes through the edit events (RequestEdit,
// BeforeCommitEdit, then AfterCommitEdit or CancelEdit), so the host can veto or correct each
// one. A cell takes part only when it could be edited: its row is not a group row (unless
// AllowGroupRowEditing is on) and its type has an editor (custom-drawn cells have none).
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "exchange/clipboard/clipboard_site.hpp"
#include "interaction/selection.hpp"
#include "model/control_properties.hpp"
#include "model/grid_store.hpp"

namespace quilta::exchange {

class ClipboardTable;

// The last copied block, row by row: texts in one buffer, a mark per position.
struct KeptBlock {
  int32_t cols = 0;
  int32_t rows = 0;
  std::string chars;
  std::vector<uint32_t> ends;  // end of each position's text in chars
  std::vector<uint8_t> marks;  // 1: the position held a selected cell
  uint32_t sequence = 0;       // the clipboard's sequence number after the copy was placed
  bool valid = false;
  bool withHeaders = false;  // a copy with headers is pasted as the text it placed

  std::string_view Text(int32_t row, int32_t col) const;
  bool Marked(int32_t row, int32_t col) const {
    return marks[static_cast<size_t>(row) * static_cast<size_t>(cols) + static_cast<size_t>(col)];
  }
};

class ClipboardCommands {
 public:
  ClipboardCommands(model::GridStore& store, const model::ControlProperties& props,
                    interaction::Selection& selection, ClipboardSite& site)
      : store_(store), props_(props), selection_(selection), site_(site) {}

  void Copy(bool withHeaders) { CopyCutClear(false, true, withHeaders); }
  void Cut() { CopyCutClear(true, true, false); }
  void ClearSelected() { CopyCutClear(true, false, false); }
  void Paste();

  // Whether each command would do something now (the context menu greys the others out).
  bool CanCopy() const;
  bool CanCut() const;
  bool CanPaste();

  const KeptBlock& Kept() const { return kept_; }

 private:
  // The rows and column slots holding a selected cell, in grid order.
  struct SelectedBlock {
    std::vector<int32_t> rows;
    std::vector<int32_t> slots;
  };
  // A block of cells to paste, read from the clipboard text or from the kept block.
  struct PasteSource;
  struct Target {
    int32_t row = 0;
    int32_t slot = 0;
    int32_t col = 0;   // the index of the start column, which growth does not change
    int32_t rows = 0;  // the size of the area written
    int32_t slots = 0;
    bool fill = false;  // one value fills the selected rectangle
  };

  void CopyCutClear(bool clear, bool toClipboard, bool withHeaders);
  SelectedBlock FindSelectedBlock() const;
  void KeepBlock(const SelectedBlock& block, bool withHeaders);
  std::string BlockText(const SelectedBlock& block, bool withHeaders) const;
  void ClearBlock(const SelectedBlock& block);

  bool PlanTarget(const PasteSource& source, Target& target) const;
  bool IsOneRectangle(const SelectedBlock& block) const;
  // Columns and rows the host lets the grid add, and what was added.
  struct Growth {
    bool cols = false;
    bool rows = false;
    int32_t colsAdded = 0;
    int32_t rowsAdded = 0;
  };
  bool AskToGrow(Target& target, Growth& growth);
  void Grow(Target& target, Growth& growth);
  void WriteBlock(const PasteSource& source, const Target& target);
  void SelectPasted(const Target& target);

  bool InGrid(int32_t row, int32_t col) const {
    return row >= 1 && row <= store_.RowCount() && col >= 1 && col <= store_.Cols().RowTextCol();
  }
  bool CellEditable(int32_t row, int32_t col) const;
  // Stores a text into a cell through the edit events; returns whether it was stored.
  bool EditCell(int32_t row, int32_t col, std::string_view text);
  int32_t ComboIndexFor(int32_t row, int32_t col, std::string_view text);
  void Store(int32_t row, int32_t col, const Variant& value, int32_t comboIndex);

  model::GridStore& store_;
  const model::ControlProperties& props_;
  interaction::Selection& selection_;
  ClipboardSite& site_;
  KeptBlock kept_;
  std::string scratch_;
};

}  // namespace quilta::exchange
