#include "reference_model.hpp"

#include <algorithm>
#include <cmath>
#include <quilta/error.hpp>

#include "model/text/text.hpp"

namespace quilta::testkit {

int32_t ReferenceModel::RowOfKey(const std::string& key) const {
  if (key.empty()) return 0;
  for (int32_t r = 1; r <= RowCount(); ++r)
    if (Row(r).key == key) return r;
  return 0;
}

GridSnapshot ReferenceModel::Expected() const {
  GridSnapshot s;
  s.colKeys = colKeys;
  s.rows = rows;
  s.curRow = RowOfId(curId);
  s.beginUpdateCount = updateCount;
  s.editing = editing;
  s.multiSelect = multiSelect;
  s.rowMode = rowMode;
  return s;
}

int32_t ReferenceModel::RowOfId(int32_t id) const {
  if (id == 0) return 0;
  for (int32_t r = 1; r <= RowCount(); ++r)
    if (Row(r).id == id) return r;
  return 0;
}

bool IsGiven(const Variant& ref) { return !ref.IsMissing() && !ref.IsEmpty(); }

int32_t ReferenceModel::ResolveRow(const Variant& ref) const {
  int32_t r = 0;
  if (ref.Type() == vbLong) r = ref.LongValue();
  if (ref.Type() == vbString) r = RowOfKey(CStr(ref));
  if (r < 1 || r > RowCount()) throw ExpectedError{513};
  return r;
}

int32_t ReferenceModel::ResolveCol(const Variant& ref) const {
  int32_t c = 0;
  if (ref.Type() == vbLong) c = ref.LongValue();
  if (ref.Type() == vbString) {
    const std::string key = text::ToLower(CStr(ref));
    for (int32_t i = 1; i <= ColCount() && !c; ++i)
      if (text::ToLower(colKeys[i - 1]) == key) c = i;
  }
  if (c < 1 || c > ColCount() + 1) throw ExpectedError{513};
  return c;
}

int32_t ReferenceModel::LastNested(int32_t r) const {
  int32_t last = r;
  while (last < RowCount() && Row(last + 1).level > Row(r).level) ++last;
  return last;
}

int32_t ReferenceModel::ParentOf(int32_t r) const {
  if (Row(r).level == 0) return 0;
  for (int32_t i = r - 1; i >= 1; --i)
    if (Row(i).level == Row(r).level - 1) return i;
  return 0;
}

bool ReferenceModel::HasChildren(int32_t r) const {
  return r < RowCount() && Row(r + 1).level == Row(r).level + 1;
}

RowState ReferenceModel::NewRow(int32_t id) const {
  RowState row;
  row.id = id;
  row.height = 18;
  row.values = colDefaults;
  row.selected.assign(static_cast<size_t>(ColCount()) + 1, false);
  return row;
}

void ReferenceModel::InsertColumns(int32_t index, int32_t count) {
  // The current and the edited cell follow their columns.
  if (curCol >= index) curCol += count;
  if (editCol >= index) editCol += count;
  colKeys.insert(colKeys.begin() + (index - 1), static_cast<size_t>(count), std::string());
  colDefaults.insert(colDefaults.begin() + (index - 1), static_cast<size_t>(count), Variant());
  for (RowState& row : rows) {
    // In row mode the new cells of a selected row are selected too.
    const bool selectedRow =
        rowMode && std::find(row.selected.begin(), row.selected.end(), true) != row.selected.end();
    row.values.insert(row.values.begin() + (index - 1), static_cast<size_t>(count), Variant());
    row.selected.insert(row.selected.begin() + (index - 1), static_cast<size_t>(count),
                        selectedRow);
  }
}

void ReferenceModel::EraseColumns(int32_t index, int32_t count) {
  curCol = curCol >= index + count ? curCol - count : curCol >= index ? 0 : curCol;
  editCol = editCol >= index + count ? editCol - count : editCol >= index ? 0 : editCol;
  colKeys.erase(colKeys.begin() + (index - 1), colKeys.begin() + (index - 1 + count));
  colDefaults.erase(colDefaults.begin() + (index - 1), colDefaults.begin() + (index - 1 + count));
  for (RowState& row : rows) {
    row.values.erase(row.values.begin() + (index - 1), row.values.begin() + (index - 1 + count));
    row.selected.erase(row.selected.begin() + (index - 1),
                       row.selected.begin() + (index - 1 + count));
  }
}

}  // namespace quilta::testkit
