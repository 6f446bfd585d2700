#include <algorithm>
#include <string>

#include "random_calls_support.hpp"

namespace quilta::testkit {
namespace {

using std::to_string;

std::string Cell(int32_t r, int32_t c) { return "(" + to_string(r) + ", " + to_string(c) + ")"; }

// The selection list agrees with itself: its count, its sorted order, row mode's one item per
// row, and single selection's one item at most.
std::string CheckSelItems(const GridSnapshot& after) {
  if (after.selCount != static_cast<int32_t>(after.selItems.size()))
    return "SelItems.Count " + to_string(after.selCount) + " but GetArray has " +
           to_string(after.selItems.size()) + " items";
  for (size_t i = 1; i < after.selItems.size(); ++i) {
    const TSelItemInfo& a = after.selItems[i - 1];
    const TSelItemInfo& b = after.selItems[i];
    if (a.Row > b.Row || (a.Row == b.Row && a.Col >= b.Col))
      return "SelItems.GetArray lists " + Cell(a.Row, a.Col) + " before " + Cell(b.Row, b.Col);
  }
  if (after.rowMode)
    for (const TSelItemInfo& item : after.selItems)
      if (item.Col != 1) return "row-mode item " + Cell(item.Row, item.Col) + " is not in column 1";
  if (!after.multiSelect && after.selCount > 1)
    return "single selection lists " + to_string(after.selCount) + " items";
  if (after.curRow < 0 || after.curRow > static_cast<int32_t>(after.rows.size()))
    return "current row " + to_string(after.curRow) + " outside the grid";
  return "";
}

std::string CompareRow(const RowState& before, const RowState& after, bool tree) {
  if (before.key != after.key) return "key \"" + before.key + "\" became \"" + after.key + "\"";
  if (before.level != after.level) return "level changed";
  if (before.visible != after.visible) return "RowVisible changed";
  if (before.height != after.height) return "height changed";
  if (before.treeButton != after.treeButton) return "tree button changed";
  if (!tree && (before.expanded != after.expanded || before.visibleAsChild != after.visibleAsChild))
    return "expanded state changed";
  return "";
}

}  // namespace

std::string AdoptUserAction(ReferenceModel& m, const GridSnapshot& after, const Allowed& allowed) {
  if (std::string bad = CheckSelItems(after); !bad.empty()) return bad;
  const size_t cols = m.colKeys.size(), rows = m.rows.size();
  if (allowed.rowsAndColsAdded ? after.colKeys.size() < cols : after.colKeys.size() != cols)
    return "ColCount " + to_string(cols) + " became " + to_string(after.colKeys.size());
  if (!std::equal(m.colKeys.begin(), m.colKeys.end(), after.colKeys.begin()))
    return "a column key changed";
  if (allowed.rowsAndColsAdded ? after.rows.size() < rows : after.rows.size() != rows)
    return "RowCount " + to_string(rows) + " became " + to_string(after.rows.size());
  const int32_t editRow = m.editing ? m.RowOfId(m.editId) : 0;
  const int32_t curRow = m.RowOfId(m.curId);
  for (size_t i = 0; i < rows; ++i) {
    const RowState& b = m.rows[i];
    const RowState& a = after.rows[i];
    const int32_t r = static_cast<int32_t>(i) + 1;
    if (a.id != b.id)
      return "row " + to_string(r) + " is row id " + to_string(a.id) + ", not " + to_string(b.id) +
             ": the row order changed";
    if (std::string d = CompareRow(b, a, allowed.tree); !d.empty())
      return "row " + to_string(r) + ": " + d;
    for (size_t c = 0; c < b.values.size(); ++c) {
      const int32_t col = static_cast<int32_t>(c) + 1;
      // The row text column moves up when columns are added before it.
      const size_t ac = c + 1 == b.values.size() ? a.values.size() - 1 : c;
      if (b.values[c] == a.values[ac]) continue;
      const bool edited = allowed.editedCell &&
                          ((r == editRow && col == m.editCol) || (r == curRow && col == m.curCol));
      if (!edited && !(allowed.cell && allowed.cell(r, col)))
        return "cell " + Cell(r, col) + " changed from " + Show(b.values[c]) + " to " +
               Show(a.values[ac]);
    }
  }
  // The grid's choices become the model's.
  if (after.colKeys.size() > cols)
    m.InsertColumns(static_cast<int32_t>(cols) + 1,
                    static_cast<int32_t>(after.colKeys.size() - cols));
  for (size_t i = 0; i < rows; ++i) m.rows[i] = after.rows[i];
  for (size_t i = rows; i < after.rows.size(); ++i) m.rows.push_back(after.rows[i]);
  m.curId = after.curRow ? after.rows[static_cast<size_t>(after.curRow) - 1].id : 0;
  m.curCol = after.curCol;
  m.editing = after.editing;
  if (after.editing) {
    const bool inGrid =
        after.editRow >= 1 && after.editRow <= static_cast<int32_t>(after.rows.size());
    m.editId = inGrid ? after.rows[static_cast<size_t>(after.editRow) - 1].id : 0;
    m.editCol = after.editCol;
  }
  m.multiSelect = after.multiSelect;
  m.rowMode = after.rowMode;
  return "";
}

}  // namespace quilta::testkit
