#include "grid_snapshot.hpp"

#include <string>

#include "control/internals_access.hpp"

namespace quilta::testkit {

using std::to_string;

std::string Show(const Variant& v) {
  if (v.IsEmpty()) return "Empty";
  if (v.IsNull()) return "Null";
  try {
    return std::string(v.Type() == vbString ? "\"" : "") + CStr(v) +
           (v.Type() == vbString ? "\"" : "") + " (type " + to_string(v.Type()) + ")";
  } catch (const Error&) {
    return "(type " + to_string(v.Type()) + ")";
  }
}

GridSnapshot TakeSnapshot(const Quilta& grid) {
  GridSnapshot s;
  for (int32_t c = 1; c <= grid.ColCount(); ++c) s.colKeys.push_back(grid.ColKey(c));
  s.rows.resize(static_cast<size_t>(grid.RowCount()));
  for (int32_t r = 1; r <= grid.RowCount(); ++r) {
    RowState& row = s.rows[r - 1];
    const Variant tag = grid.RowTag(r);
    row.id = tag.Type() == vbLong ? tag.LongValue() : -1;
    row.key = grid.RowKey(r);
    row.level = grid.RowLevel(r);
    row.expanded = grid.RowExpanded(r);
    row.visibleAsChild = grid.RowVisibleAsChild(r);
    row.visible = grid.RowVisible(r);
    row.treeButton = grid.RowTreeButton(r);
    row.height = grid.RowHeight(r);
    for (int32_t c = 1; c <= grid.RowTextCol(); ++c) {
      row.values.push_back(grid.CellValue(r, c));
      row.selected.push_back(grid.CellSelected(r, c));
    }
  }
  s.curRow = grid.CurRow();
  s.beginUpdateCount = grid.BeginUpdateCount();
  s.editing = grid.IsEditing();
  s.multiSelect = grid.MultiSelect();
  s.rowMode = grid.RowMode();
  s.curCol = grid.CurCol();
  for (int32_t col = 1; col <= grid.ColCount(); ++col) s.colPos.push_back(grid.ColPos(col));
  if (s.editing) {
    const control::Control& c = control::Internals(const_cast<Quilta&>(grid));
    s.editRow = c.editor.Row();
    s.editCol = c.editor.Col();
  }
  s.selItems = grid.SelItems().GetArray();
  s.selCount = grid.SelItems().Count();
  return s;
}

namespace {

std::string RowDifference(const RowState& e, const RowState& a) {
  if (e.id != a.id) return "id " + to_string(e.id) + " vs " + to_string(a.id);
  if (e.key != a.key) return "key \"" + e.key + "\" vs \"" + a.key + "\"";
  if (e.level != a.level) return "level " + to_string(e.level) + " vs " + to_string(a.level);
  if (e.expanded != a.expanded)
    return "expanded " + to_string(e.expanded) + " vs " + to_string(a.expanded);
  if (e.visibleAsChild != a.visibleAsChild)
    return "visible as child " + to_string(e.visibleAsChild) + " vs " + to_string(a.visibleAsChild);
  if (e.visible != a.visible)
    return "visible " + to_string(e.visible) + " vs " + to_string(a.visible);
  if (e.treeButton != a.treeButton)
    return "tree button " + to_string(e.treeButton) + " vs " + to_string(a.treeButton);
  if (e.height != a.height) return "height " + to_string(e.height) + " vs " + to_string(a.height);
  if (e.values.size() != a.values.size())
    return to_string(e.values.size()) + " cells vs " + to_string(a.values.size());
  for (size_t c = 0; c < e.values.size(); ++c)
    if (!(e.values[c] == a.values[c]))
      return "column " + to_string(c + 1) + " value " + Show(e.values[c]) + " vs " +
             Show(a.values[c]);
  for (size_t c = 0; c < e.selected.size() && c < a.selected.size(); ++c)
    if (e.selected[c] != a.selected[c])
      return "column " + to_string(c + 1) + " selected " + to_string(e.selected[c]) + " vs " +
             to_string(a.selected[c]);
  return "";
}

}  // namespace

std::string FirstDifference(const GridSnapshot& e, const GridSnapshot& a) {
  if (e.colKeys != a.colKeys) {
    if (e.colKeys.size() != a.colKeys.size())
      return "ColCount " + to_string(e.colKeys.size()) + " expected, " +
             to_string(a.colKeys.size()) + " found";
    for (size_t c = 0; c < e.colKeys.size(); ++c)
      if (e.colKeys[c] != a.colKeys[c])
        return "column " + to_string(c + 1) + " key \"" + e.colKeys[c] + "\" expected, \"" +
               a.colKeys[c] + "\" found";
  }
  if (e.rows.size() != a.rows.size())
    return "RowCount " + to_string(e.rows.size()) + " expected, " + to_string(a.rows.size()) +
           " found";
  for (size_t r = 0; r < e.rows.size(); ++r) {
    std::string d = RowDifference(e.rows[r], a.rows[r]);
    if (!d.empty()) return "row " + to_string(r + 1) + ": " + d + " (expected vs found)";
  }
  if (e.curRow != a.curRow) return "CurRow " + to_string(e.curRow) + " vs " + to_string(a.curRow);
  if (e.editing != a.editing)
    return "IsEditing " + to_string(e.editing) + " vs " + to_string(a.editing);
  if (e.multiSelect != a.multiSelect)
    return "MultiSelect " + to_string(e.multiSelect) + " vs " + to_string(a.multiSelect);
  if (e.rowMode != a.rowMode)
    return "RowMode " + to_string(e.rowMode) + " vs " + to_string(a.rowMode);
  if (e.beginUpdateCount != a.beginUpdateCount)
    return "BeginUpdateCount " + to_string(e.beginUpdateCount) + " vs " +
           to_string(a.beginUpdateCount);
  return "";
}

}  // namespace quilta::testkit
