#include "exchange/clipboard/clipboard_commands.hpp"

#include <algorithm>

#include "edit/editor.hpp"
#include "exchange/clipboard/clipboard_text.hpp"

namespace quilta::exchange {
namespace {

using model::Prop;

constexpr char kPasteTitle[] = "Paste Operation";
constexpr char kPasteWarning[] =
    "Not enough rows/columns to paste all data.\r\nProceed (some data won't be pasted)?";

// Keeps updates suspended for the length of a command, also when a handler throws.
class UpdateBlock {
 public:
  explicit UpdateBlock(ClipboardSite& site) : site_(site) { site_.BeginUpdate(); }
  ~UpdateBlock() { site_.EndUpdate(); }
  UpdateBlock(const UpdateBlock&) = delete;
  UpdateBlock& operator=(const UpdateBlock&) = delete;

 private:
  ClipboardSite& site_;
};

}  // namespace

std::string_view KeptBlock::Text(int32_t row, int32_t col) const {
  const size_t i = static_cast<size_t>(row) * static_cast<size_t>(cols) + static_cast<size_t>(col);
  const size_t begin = i == 0 ? 0 : ends[i - 1];
  return std::string_view(chars).substr(begin, ends[i] - begin);
}

// ---- Copy, cut and clearing ----------------------------------------------------------------

bool ClipboardCommands::CanCopy() const {
  return props_.Bool(Prop::CopyPasteEnabled) && selection_.Items().Count() > 0;
}

bool ClipboardCommands::CanCut() const {
  return CanCopy() && props_.Bool(Prop::Editable) && props_.Bool(Prop::Enabled);
}

bool ClipboardCommands::CanPaste() {
  if (!props_.Bool(Prop::CopyPasteEnabled) || !props_.Bool(Prop::Editable)) return false;
  if (selection_.Items().Count() == 0 && !InGrid(selection_.CurRow(), selection_.CurCol()))
    return false;
  return !site_.GetPlatform().GetClipboardText().empty();
}

void ClipboardCommands::CopyCutClear(bool clear, bool toClipboard, bool withHeaders) {
  if (selection_.Items().Count() == 0) return;
  QuiltaEvents* ev = site_.Events();
  if (toClipboard && ev) {
    bool doDefault = true;
    if (clear) {
      ev->BeforeCut(doDefault);
    } else {
      ev->BeforeCopy(withHeaders, doDefault);
    }
    if (!doDefault) return;
  }
  const SelectedBlock block = FindSelectedBlock();
  if (block.rows.empty() || block.slots.empty()) return;
  // Delete keeps the last copy's block: the clipboard still holds that copy.
  if (toClipboard) KeepBlock(block, withHeaders);
  if (clear) ClearBlock(block);
  if (toClipboard) {
    Platform& platform = site_.GetPlatform();
    platform.SetClipboardText(BlockText(block, withHeaders));
    kept_.sequence = platform.ClipboardSequenceNumber();
    kept_.valid = true;
  }
  if (!toClipboard || !(ev = site_.Events())) return;
  if (clear) {
    ev->AfterCut();
  } else {
    ev->AfterCopy(withHeaders);
  }
}

// Rows and columns come from the selection list, walked row by row; in row mode the list names
// rows only, and the columns come from the selected cells of those rows.
ClipboardCommands::SelectedBlock ClipboardCommands::FindSelectedBlock() const {
  const interaction::SelItems& items = selection_.Items();
  const int32_t lowRow = std::max(1, items.MinRow());
  const int32_t highRow = std::min(items.MaxRow(), store_.RowCount());
  SelectedBlock block;
  if (highRow < lowRow) return block;
  const model::ColumnStore& cols = store_.Cols();
  const int32_t slotCount = cols.RowTextCol();
  std::vector<uint8_t> slotHit(static_cast<size_t>(slotCount) + 1);
  std::vector<uint8_t> indexHit(static_cast<size_t>(slotCount) + 1);
  const bool rowMode = props_.Bool(Prop::RowMode);
  for (int32_t row = lowRow; row <= highRow; ++row) {
    bool hit = false;
    items.ForEachInRow(row, [&](int32_t col) {
      if (col < 1 || col > slotCount) return;
      hit = true;
      indexHit[static_cast<size_t>(col)] = 1;
    });
    if (!hit) continue;
    block.rows.push_back(row);
    if (!rowMode) continue;
    for (int32_t slot = 1; slot <= slotCount; ++slot) {
      if (!slotHit[static_cast<size_t>(slot)] &&
          store_.CellAt(row, cols.AtSlot(slot).index).Selected())
        slotHit[static_cast<size_t>(slot)] = 1;
    }
  }
  if (!rowMode)
    for (int32_t col = 1; col <= slotCount; ++col)
      if (indexHit[static_cast<size_t>(col)])
        slotHit[static_cast<size_t>(cols.SlotOfIndex(col))] = 1;
  for (int32_t slot = 1; slot <= slotCount; ++slot)
    if (slotHit[static_cast<size_t>(slot)]) block.slots.push_back(slot);
  return block;
}

void ClipboardCommands::KeepBlock(const SelectedBlock& block, bool withHeaders) {
  const model::ColumnStore& cols = store_.Cols();
  KeptBlock kept;
  kept.cols = static_cast<int32_t>(block.slots.size());
  kept.rows = static_cast<int32_t>(block.rows.size());
  const size_t positions = block.slots.size() * block.rows.size();
  kept.ends.reserve(positions);
  kept.marks.reserve(positions);
  kept.withHeaders = withHeaders;
  std::vector<int32_t> indexes;
  indexes.reserve(block.slots.size());
  for (int32_t slot : block.slots) indexes.push_back(cols.AtSlot(slot).index);
  for (int32_t row : block.rows) {
    for (int32_t col : indexes) {
      const bool selected = store_.CellAt(row, col).Selected();
      if (selected) kept.chars += site_.CellText(row, col);
      kept.ends.push_back(static_cast<uint32_t>(kept.chars.size()));
      kept.marks.push_back(selected ? 1 : 0);
    }
  }
  kept_ = std::move(kept);
}

std::string ClipboardCommands::BlockText(const SelectedBlock& block, bool withHeaders) const {
  std::string text;
  text.reserve(kept_.chars.size() + kept_.ends.size() * 2 + 16);
  if (withHeaders) {
    for (size_t i = 0; i < block.slots.size(); ++i) {
      if (i) text.push_back('\t');
      AppendClipboardCell(text, store_.Cols().AtSlot(block.slots[i]).headerText);
    }
    text += "\r\n";
  }
  for (int32_t row = 0; row < kept_.rows; ++row) {
    if (row) text += "\r\n";
    for (int32_t col = 0; col < kept_.cols; ++col) {
      if (col) text.push_back('\t');
      AppendClipboardCell(text, kept_.Text(row, col));
    }
  }
  return text;
}

void ClipboardCommands::ClearBlock(const SelectedBlock& block) {
  site_.EndEditing();
  // Indexes first: a handler may reorder columns while the cells change.
  std::vector<int32_t> indexes;
  for (int32_t slot : block.slots) indexes.push_back(store_.Cols().AtSlot(slot).index);
  UpdateBlock update(site_);
  for (int32_t row : block.rows) {
    for (int32_t col : indexes) {
      if (InGrid(row, col) && store_.CellAt(row, col).Selected() && CellEditable(row, col))
        EditCell(row, col, {});
    }
  }
}

// ---- One cell through the edit events --------------------------------------------------------

bool ClipboardCommands::CellEditable(int32_t row, int32_t col) const {
  if (store_.Rows().At(row).GroupRow() && !props_.Bool(Prop::AllowGroupRowEditing)) return false;
  return edit::EditKindOf(store_.CellAt(row, col).Type()) != edit::EditKind::None;
}

// A cell with a combo list takes the index of the item showing the text, as an edit does.
int32_t ClipboardCommands::ComboIndexFor(int32_t row, int32_t col, std::string_view text) {
  const model::Cell& cell = store_.CellAt(row, col);
  if (edit::EditKindOf(cell.Type()) == edit::EditKind::TextBox) return cell.comboListIndex;
  const ComboObject* list = site_.ComboListOf(row, col);
  return list ? list->FindItemByText(text, true) : -1;
}

void ClipboardCommands::Store(int32_t row, int32_t col, const Variant& value, int32_t comboIndex) {
  const bool combo = edit::EditKindOf(store_.CellAt(row, col).Type()) != edit::EditKind::TextBox;
  site_.StoreValue(row, col, value);
  if (combo) site_.StoreComboListIndex(row, col, comboIndex);
}

bool ClipboardCommands::EditCell(int32_t row, int32_t col, std::string_view text) {
  QuiltaEvents* ev = site_.Events();
  if (!ev) {
    scratch_.assign(text);
    edit::Conversion c = edit::ConvertEditText(scratch_, edit::EditTargetType(store_, row, col));
    if (c.error) return false;
    Store(row, col, c.value, ComboIndexFor(row, col, text));
    return true;
  }
  bool cancel = false;
  std::string sText(text);
  int32_t maxLength = 0;
  auto options = static_cast<ETextEditFlags>(0);
  ev->RequestEdit(row, col, 0, cancel, sText, maxLength, options);
  if (cancel || !InGrid(row, col)) return false;
  const edit::Conversion c = edit::ConvertEditText(sText, edit::EditTargetType(store_, row, col));
  EEditResults result = quEditResCommit;
  Variant value = c.value;
  int32_t comboIndex = ComboIndexFor(row, col, sText);
  ev->BeforeCommitEdit(row, col, result, sText, value, c.error, false, comboIndex);
  if (result == quEditResProceed || !InGrid(row, col)) return false;
  // A text that does not convert leaves the cell alone unless the host supplied a value.
  if (result == quEditResCancel || (c.error && value.IsEmpty())) {
    ev->CancelEdit(row, col);
    return false;
  }
  const Variant old = store_.CellAt(row, col).value;
  Store(row, col, value, comboIndex);
  ev->AfterCommitEdit(row, col, old);
  return true;
}

// ---- Paste -------------------------------------------------------------------------------------

struct ClipboardCommands::PasteSource {
  const ClipboardTable* table = nullptr;
  const KeptBlock* kept = nullptr;
  int32_t Rows() const { return kept ? kept->rows : table->Rows(); }
  int32_t Cols() const { return kept ? kept->cols : table->Width(); }
  bool Has(int32_t row, int32_t col) const { return !kept || kept->Marked(row, col); }
  std::string_view Text(int32_t row, int32_t col) const {
    return kept ? kept->Text(row, col) : table->Cell(row, col);
  }
};

void ClipboardCommands::Paste() {
  Platform& platform = site_.GetPlatform();
  ClipboardTable table;
  PasteSource source;
  if (kept_.valid && !kept_.withHeaders && platform.ClipboardSequenceNumber() == kept_.sequence) {
    source.kept = &kept_;
  } else {
    table.Parse(platform.GetClipboardText());
    source.table = &table;
  }
  if (source.Rows() == 0 || source.Cols() == 0) return;
  Target target;
  if (!PlanTarget(source, target)) return;
  Growth growth;
  if (!AskToGrow(target, growth)) return;
  site_.EndEditing();
  {
    UpdateBlock update(site_);
    Grow(target, growth);
    WriteBlock(source, target);
  }
  SelectPasted(target);
  if (QuiltaEvents* ev = site_.Events()) ev->AfterPaste(growth.colsAdded, growth.rowsAdded);
}

// The block starts at the top-left cell of a selection that is one rectangle, else at the
// current cell. A single value fills a selected rectangle.
bool ClipboardCommands::PlanTarget(const PasteSource& source, Target& target) const {
  const model::ColumnStore& cols = store_.Cols();
  if (selection_.Items().Count() > 0) {
    const SelectedBlock block = FindSelectedBlock();
    if (IsOneRectangle(block)) {
      target.row = block.rows.front();
      target.slot = block.slots.front();
      if (source.Rows() == 1 && source.Cols() == 1 && block.rows.size() * block.slots.size() > 1) {
        target.fill = true;
        target.rows = block.rows.back() - block.rows.front() + 1;
        target.slots = block.slots.back() - block.slots.front() + 1;
        return true;
      }
    }
  }
  if (target.row == 0) {
    if (!InGrid(selection_.CurRow(), selection_.CurCol())) return false;
    target.row = selection_.CurRow();
    target.slot = cols.SlotOfIndex(selection_.CurCol());
  }
  target.rows = source.Rows();
  // The row text column takes one column of the block; the block never spills into it.
  target.slots = target.slot == cols.RowTextCol() ? 1 : source.Cols();
  return true;
}

// The selected rows and columns form one rectangle when no row or column that could be selected
// lies between them unselected: hidden columns and rows in between do not break it, so a row
// selected in row mode is a rectangle from its first shown column.
bool ClipboardCommands::IsOneRectangle(const SelectedBlock& block) const {
  if (block.rows.empty() || block.slots.empty()) return false;
  const model::ColumnStore& cols = store_.Cols();
  size_t rows = 0, slots = 0;
  for (int32_t row = block.rows.front(); row <= block.rows.back(); ++row)
    rows += selection_.RowShownForSelection(row);
  for (int32_t slot = block.slots.front(); slot <= block.slots.back(); ++slot)
    slots += selection_.TakesPart(cols.AtSlot(slot));
  if (rows != block.rows.size() || slots != block.slots.size()) return false;
  size_t selectedCells = 0;
  for (int32_t row : block.rows)
    for (int32_t slot : block.slots)
      selectedCells += store_.CellAt(row, cols.AtSlot(slot).index).Selected();
  return selectedCells == rows * slots;
}

// BeforePaste reports what is missing; the host may allow growth, refuse the paste or silence
// the warning. A paste that still does not fit asks the user before it drops data.
bool ClipboardCommands::AskToGrow(Target& target, Growth& growth) {
  target.col = store_.Cols().AtSlot(target.slot).index;
  int32_t colsToAdd = 0, rowsToAdd = 0;
  if (!target.fill) {
    const int64_t lastSlot = int64_t{target.slot} + target.slots - 1;
    if (target.slot <= store_.ColCount())
      colsToAdd = static_cast<int32_t>(std::max<int64_t>(0, lastSlot - store_.ColCount()));
    const int64_t lastRow = int64_t{target.row} + target.rows - 1;
    rowsToAdd = static_cast<int32_t>(std::max<int64_t>(0, lastRow - store_.RowCount()));
  }
  bool doDefault = true, addCols = false, addRows = false, showWarning = true;
  if (QuiltaEvents* ev = site_.Events())
    ev->BeforePaste(doDefault, colsToAdd, rowsToAdd, addCols, addRows, showWarning);
  if (!doDefault) return false;
  growth.cols = addCols && colsToAdd > 0;
  growth.rows = addRows && rowsToAdd > 0;
  const bool dataDropped = (colsToAdd > 0 && !addCols) || (rowsToAdd > 0 && !addRows);
  if (dataDropped && showWarning &&
      site_.GetPlatform().ShowMessageBox(kPasteWarning, kPasteTitle, MessageBoxIcon::Warning,
                                         MessageBoxButtons::YesNo) != MessageBoxResult::Yes)
    return false;
  // A handler may have changed the grid: the start is found again.
  if (!InGrid(target.row, target.col)) return false;
  target.slot = store_.Cols().SlotOfIndex(target.col);
  return true;
}

// What is added is worked out again from the grid as it is now.
void ClipboardCommands::Grow(Target& target, Growth& growth) {
  if (growth.cols && target.slot <= store_.ColCount()) {
    growth.colsAdded = std::max(0, target.slot + target.slots - 1 - store_.ColCount());
    if (growth.colsAdded > 0) site_.AddColumns(growth.colsAdded);
  }
  if (growth.rows) {
    growth.rowsAdded = std::max(0, target.row + target.rows - 1 - store_.RowCount());
    if (growth.rowsAdded > 0) site_.AddRows(growth.rowsAdded);
  }
  target.slot = store_.Cols().SlotOfIndex(target.col);
}

void ClipboardCommands::WriteBlock(const PasteSource& source, const Target& target) {
  const model::ColumnStore& cols = store_.Cols();
  // Cells past the grid's edge are dropped; the row text column is reached only from itself.
  const int32_t lastSlot = target.slot == cols.RowTextCol() ? target.slot : cols.ColCount();
  const int32_t slots = std::min(target.slots, lastSlot - target.slot + 1);
  const int32_t rows = std::min(target.rows, store_.RowCount() - target.row + 1);
  std::vector<int32_t> indexes;
  for (int32_t i = 0; i < slots; ++i) indexes.push_back(cols.AtSlot(target.slot + i).index);
  for (int32_t r = 0; r < rows; ++r) {
    const int32_t row = target.row + r;
    for (int32_t c = 0; c < slots; ++c) {
      const int32_t col = indexes[static_cast<size_t>(c)];
      const int32_t sr = target.fill ? 0 : r, sc = target.fill ? 0 : c;
      if (!source.Has(sr, sc) || !InGrid(row, col) || !CellEditable(row, col)) continue;
      // A filled rectangle takes the value in its selected cells only, not in hidden ones.
      if (target.fill && !store_.CellAt(row, col).Selected()) continue;
      EditCell(row, col, source.Text(sr, sc));
    }
  }
}

void ClipboardCommands::SelectPasted(const Target& target) {
  const model::ColumnStore& cols = store_.Cols();
  const int32_t top = target.row;
  if (top < 1 || top > store_.RowCount() || target.slot > cols.RowTextCol()) return;
  const int32_t bottom = std::min(store_.RowCount(), top + target.rows - 1);
  const int32_t lastSlot = target.slot == cols.RowTextCol() ? target.slot : cols.ColCount();
  const int32_t right = std::min(lastSlot, target.slot + target.slots - 1);
  const int32_t left = cols.AtSlot(target.slot).index;
  if (selection_.MultiSelect()) {
    selection_.SetAnchor(top, left, true);
    selection_.ExtendSelection(bottom, cols.AtSlot(right).index, 1, false);
  } else {
    selection_.MoveSingleSelection(top, left);
  }
  selection_.SetCurCellPos(top, left);
  selection_.ScrollCurrentIntoView();
  selection_.RaisePendingSelEvents();
}

}  // namespace quilta::exchange
