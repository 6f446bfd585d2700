#include "consistency_checker.hpp"

#include <algorithm>
#include <string>

#include "control/control.hpp"
#include "control/internals_access.hpp"
#include "model/text/text.hpp"

namespace quilta::testkit {
namespace {

using control::Control;
using model::RowRecord;
using std::to_string;

// Each physical row is held by exactly one row or sits once in the free collection, and the cell
// store has cells for every physical row handed out.
void CheckPhysicalRows(const Control& c, Problems& p) {
  const model::RowStore& rows = c.store.Rows();
  const int32_t high = rows.PhysHighWater();
  std::vector<int8_t> uses(static_cast<size_t>(high) + 1, 0);
  auto use = [&](int32_t phys, const std::string& by) {
    if (phys < 1 || phys > high)
      return p.Report(by + " holds physical row " + to_string(phys) + " outside 1.." +
                      to_string(high));
    if (++uses[phys] > 1) p.Report("physical row " + to_string(phys) + " used twice (" + by + ")");
  };
  for (int32_t r = 1; r <= rows.Count() && !p.Full(); ++r)
    use(rows.At(r).phys, "row " + to_string(r));
  for (int32_t phys : rows.FreePhysRows()) use(phys, "the free collection");
  for (int32_t phys = 1; phys <= high && !p.Full(); ++phys)
    if (uses[phys] == 0) p.Report("physical row " + to_string(phys) + " is lost");
  if (c.store.Cells().LiveRows() != high)
    p.Report("cell store has " + to_string(c.store.Cells().LiveRows()) +
             " physical rows, rows use " + to_string(high));
  if (c.store.AllocatedRows() < rows.Count())
    p.Report("allocated rows " + to_string(c.store.AllocatedRows()) + " below the row count");
}

// The key index finds every row's key at that row, holds nothing else, and freed rows keep none.
void CheckRowKeys(const Control& c, Problems& p) {
  const model::RowStore& rows = c.store.Rows();
  int32_t keyed = 0;
  for (int32_t r = 1; r <= rows.Count() && !p.Full(); ++r) {
    const int32_t phys = rows.At(r).phys;
    const std::string_view key = rows.KeyOfPhys(phys);
    if (key.empty()) continue;
    ++keyed;
    if (rows.FindKey(key) != phys)
      p.Report("key of row " + to_string(r) + " is found at physical row " +
               to_string(rows.FindKey(key)) + ", not " + to_string(phys));
  }
  if (rows.KeyCount() != keyed)
    p.Report("key index holds " + to_string(rows.KeyCount()) + " keys, rows have " +
             to_string(keyed));
  for (int32_t phys : rows.FreePhysRows())
    if (!rows.KeyOfPhys(phys).empty())
      p.Report("free physical row " + to_string(phys) + " kept its key");
}

// Running totals kept incrementally: group rows, shown rows and their height.
void CheckRowTotals(const Control& c, Problems& p) {
  const model::RowStore& rows = c.store.Rows();
  int32_t groups = 0, shown = 0;
  int64_t height = 0;
  for (const RowRecord& rec : rows.Records()) {
    groups += rec.GroupRow();
    if (rec.Shown()) ++shown, height += rec.height;
  }
  if (c.store.GroupRowCount() != groups)
    p.Report("group-row count " + to_string(c.store.GroupRowCount()) + ", rows say " +
             to_string(groups));
  if (c.store.ShownRowCount() != shown)
    p.Report("shown-row count " + to_string(c.store.ShownRowCount()) + ", rows say " +
             to_string(shown));
  if (c.store.ShownRowsHeight() != height)
    p.Report("total height " + to_string(c.store.ShownRowsHeight()) + ", rows say " +
             to_string(height));
}

// Cached row positions follow from the heights and flags, unless BeginUpdate holds them back.
void CheckRowPositions(const Control& c, Problems& p) {
  if (c.updates.count > 0) return;
  int32_t y = 0, index = 0;
  const model::RowStore& rows = c.store.Rows();
  for (int32_t r = 1; r <= rows.Count() && !p.Full(); ++r) {
    const RowRecord& rec = rows.At(r);
    const int32_t wantIndex = rec.Shown() ? ++index : 0;
    if (rec.startY != y || rec.visibleIndex != wantIndex)
      p.Report("row " + to_string(r) + " cached at y " + to_string(rec.startY) + " index " +
               to_string(rec.visibleIndex) + ", expected " + to_string(y) + " and " +
               to_string(wantIndex));
    if (rec.Shown()) y += rec.height;
  }
}

// Slots hold every column index once, the row-text column last; keys are unique ignoring case.
void CheckColumns(const Control& c, Problems& p) {
  const model::ColumnStore& cols = c.store.Cols();
  const int32_t n = cols.RowTextCol();
  std::vector<bool> seen(static_cast<size_t>(n) + 1, false);
  for (int32_t slot = 1; slot <= n && !p.Full(); ++slot) {
    const model::Column& col = cols.AtSlot(slot);
    if (col.index < 1 || col.index > n || seen[col.index]) {
      p.Report("slot " + to_string(slot) + " holds index " + to_string(col.index));
      continue;
    }
    seen[col.index] = true;
    if (cols.SlotOfIndex(col.index) != slot)
      p.Report("index " + to_string(col.index) + " looked up at slot " +
               to_string(cols.SlotOfIndex(col.index)) + ", held at " + to_string(slot));
    if (col.keyLower != text::ToLower(col.key))
      p.Report("column " + to_string(col.index) + " key copy stale");
    if (!col.key.empty() && cols.KeyTaken(col.keyLower, slot))
      p.Report("column key \"" + col.key + "\" held twice");
  }
  if (cols.AtSlot(n).index != n) p.Report("the row-text column is not in the last slot");
  if (c.store.Cells().ColumnCount() != n)
    p.Report("cell store has " + to_string(c.store.Cells().ColumnCount()) + " columns, grid has " +
             to_string(n));
}

// Cached column positions follow from the widths and flags of the slots before them.
void CheckColumnPositions(const Control& c, Problems& p) {
  if (c.updates.count > 0) return;
  const model::ColumnStore& cols = c.store.Cols();
  int32_t x = 0, index = 0;
  for (int32_t slot = 1; slot <= cols.ColCount() && !p.Full(); ++slot) {
    const model::Column& col = cols.AtSlot(slot);
    const int32_t wantIndex = col.visible && col.width >= 1 ? ++index : 0;
    if (col.startX != x || col.visibleIndex != wantIndex)
      p.Report("slot " + to_string(slot) + " cached at x " + to_string(col.startX) + " index " +
               to_string(col.visibleIndex) + ", expected " + to_string(x) + " and " +
               to_string(wantIndex));
    if (col.headerItem) x += col.width;
  }
}

void CheckCurrentCell(const Control& c, Problems& p) {
  if (c.CurRow() < 0 || c.CurRow() > c.store.RowCount())
    p.Report("current row " + to_string(c.CurRow()) + " outside 0.." +
             to_string(c.store.RowCount()));
  if (c.CurCol() < 0 || c.CurCol() > c.store.Cols().RowTextCol())
    p.Report("current column " + to_string(c.CurCol()) + " out of range");
}

// Every listed item is selected in the cells and, in cell mode, every selected cell is listed (a
// row-mode item stands for a row with selected cells). Cells of never-written rows are the
// column's template and hold no selection.
void CheckSelection(const Control& c, Problems& p) {
  const interaction::SelItems& items = c.selection.Items();
  const int32_t rows = c.store.RowCount(), lastCol = c.store.Cols().RowTextCol();
  const bool rowMode = c.selection.RowMode();
  items.ForEach([&](int32_t row, int32_t col) {
    if (row < 1 || row > rows || col < 1 || col > lastCol) {
      p.Report("item (" + to_string(row) + ", " + to_string(col) + ") outside the grid");
      return;
    }
    bool selected = false;
    for (int32_t k = rowMode ? 1 : col; k <= (rowMode ? lastCol : col) && !selected; ++k)
      selected = c.store.CellAt(row, k).Selected();
    if (!selected)
      p.Report("item (" + to_string(row) + ", " + to_string(col) + ") has no selected cell");
  });
  if (rowMode) return;
  int64_t selectedCells = 0;
  for (int32_t row = 1; row <= rows; ++row)
    for (int32_t col = 1; col <= lastCol; ++col)
      selectedCells += c.store.CellAt(row, col).Selected();
  if (selectedCells != items.Count())
    p.Report(to_string(selectedCells) + " selected cells, " + to_string(items.Count()) + " listed");
}

// An edit in progress belongs to a cell of the grid.
void CheckEditing(const Control& c, Problems& p) {
  if (!c.editor.IsEditing()) return;
  if (c.editor.Row() < 1 || c.editor.Row() > c.store.RowCount() || c.editor.Col() < 1 ||
      c.editor.Col() > c.store.Cols().RowTextCol())
    p.Report("editing cell (" + to_string(c.editor.Row()) + ", " + to_string(c.editor.Col()) +
             ") outside the grid");
}

// A press or drag on the group-by band belongs to a shown band and to a column of the grid.
void CheckGroupByBand(const Control& c, Problems& p) {
  if (!c.groupByBand.Dragging()) return;
  if (!c.props.Bool(model::Prop::GroupByBoxVisible)) p.Report("a drag on a hidden band");
  const int32_t col = c.groupByBand.PressedCol();
  if (col < 1 || col > c.store.ColCount())
    p.Report("a drag of column " + to_string(col) + ", not a column of the grid");
}

// The kept copy block has one text and one mark per position, its texts laid end to end.
void CheckKeptBlock(const Control& c, Problems& p) {
  const exchange::KeptBlock& k = c.clipboard.Kept();
  if (!k.valid) return;
  const size_t positions = static_cast<size_t>(k.cols) * static_cast<size_t>(k.rows);
  if (k.cols < 1 || k.rows < 1 || k.ends.size() != positions || k.marks.size() != positions) {
    p.Report("kept block of " + to_string(k.cols) + " x " + to_string(k.rows) + " with " +
             to_string(k.ends.size()) + " texts and " + to_string(k.marks.size()) + " marks");
    return;
  }
  uint32_t last = 0;
  for (uint32_t end : k.ends) {
    if (end < last) p.Report("kept texts out of order");
    last = end;
  }
  if (last != k.chars.size()) p.Report("kept texts do not end at the buffer's end");
  if (std::find(k.marks.begin(), k.marks.end(), 1) == k.marks.end())
    p.Report("kept block marks no selected cell");
}

}  // namespace

void Problems::Report(const std::string& what) {
  if (!Full()) found_.push_back(check_ + ": " + what);
}

const ConsistencyChecker& ConsistencyChecker::ForGrid() {
  static const ConsistencyChecker checker = [] {
    ConsistencyChecker k;
    k.Add("physical rows", CheckPhysicalRows);
    k.Add("row keys", CheckRowKeys);
    k.Add("row totals", CheckRowTotals);
    k.Add("row positions", CheckRowPositions);
    k.Add("columns", CheckColumns);
    k.Add("column positions", CheckColumnPositions);
    k.Add("current cell", CheckCurrentCell);
    k.Add("selection", CheckSelection);
    k.Add("editing", CheckEditing);
    k.Add("group-by band", CheckGroupByBand);
    k.Add("kept copy block", CheckKeptBlock);
    return k;
  }();
  return checker;
}

void ConsistencyChecker::Add(std::string name, Check check) {
  checks_.push_back({std::move(name), std::move(check)});
}

std::vector<std::string> ConsistencyChecker::Run(Quilta& grid) const {
  const Control& c = control::Internals(grid);
  std::vector<std::string> all;
  for (const Named& n : checks_) {
    Problems found(n.name);
    n.check(c, found);
    for (std::string& s : found.Take()) all.push_back(std::move(s));
  }
  return all;
}

std::string Describe(const std::vector<std::string>& problems) {
  std::string out;
  for (const std::string& s : problems) out += s + "\n";
  return out;
}

}  // namespace quilta::testkit
