#include "model/grid_store.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

#include "model/cell_object_access.hpp"
#include "model/memory_budget.hpp"
#include "model/text/text.hpp"

namespace quilta::model {
namespace {

[[noreturn]] void Raise(int32_t code) { throw Error::FromCode(code); }

// A numeric reference rounded to the nearest integer, ties to even; false when out of range.
bool NumberToIndex(const Variant& v, int32_t& out) {
  if (v.Type() == vbLong) {  // the common case: a plain int from host code
    out = v.LongValue();
    return true;
  }
  if (!v.IsNumber()) return false;
  double d = std::nearbyint(CDbl(v));  // the default rounding mode rounds half to even
  if (!(d >= std::numeric_limits<int32_t>::min() && d <= std::numeric_limits<int32_t>::max()))
    return false;
  out = static_cast<int32_t>(d);
  return true;
}

bool IsGiven(const Variant& v) { return !v.IsMissing() && !v.IsEmpty(); }

Variant TagValue(const Variant& v) { return v.IsMissing() ? Variant() : v; }

void CheckCount(int64_t current, int32_t added) {
  if (added < 1) Raise(quErrInvalidArgument);
  if (current + added > std::numeric_limits<int32_t>::max() - 1) Raise(quErrOutOfMemory);
}

// What one more column costs, with its header text: the record, its default cell object, its
// column in the cell store and the template pointer.
uint64_t ColumnBytes(size_t headerBytes) { return sizeof(Column) + 256 + headerBytes; }

void CheckRange(int32_t value, int32_t low, int32_t high) {
  if (value < low || value > high) Raise(quErrInvalidArgument);
}

}  // namespace

GridStore::GridStore(StoreListener& listener, std::shared_ptr<CellResources> resources,
                     CellObjectOwner* cellObjectOwner)
    : listener_(listener), resources_(std::move(resources)), cellObjectOwner_(cellObjectOwner) {
  cols_.AtSlot(1).defaultCell = CellObjectAccess::Create(resources_, cellObjectOwner_);
  cols_.InvalidateTemplates();
  cells_.InsertColumns(1, cols_.Templates());
}

GridStore::~GridStore() { DetachDefaultCells(cols_.Slots()); }

// ---- Resolution ----------------------------------------------------------------------------

int32_t GridStore::ResolveColSlot(const Variant& vCol) const {
  int32_t slot = 0;
  int32_t index = 0;
  if (NumberToIndex(vCol, index)) {
    slot = cols_.SlotOfIndex(index);
  } else if (vCol.IsString()) {
    slot = cols_.SlotOfKeyAnyCase(vCol.StringView());
  } else if (vCol.Type() == vbDate) {
    slot = cols_.SlotOfKeyAnyCase(CStr(vCol));
  }
  if (slot < 1 || slot > cols_.RowTextCol()) Raise(quErrSubscriptOutOfRange);
  return slot;
}

int32_t GridStore::ResolveRow(const Variant& vRow) const {
  int32_t row = 0;
  if (!NumberToIndex(vRow, row) && vRow.IsString()) row = RowOfKey(vRow.StringView());
  if (row < 1 || row > RowCount()) Raise(quErrSubscriptOutOfRange);
  return row;
}

int32_t GridStore::RowOfKey(std::string_view key) const {
  int32_t phys = rows_.FindKey(key);
  return phys ? const_cast<RowStore&>(rows_).RowOfPhys(phys) : 0;
}

// ---- Columns -------------------------------------------------------------------------------

Column GridStore::NewColumn(int32_t width, int32_t index) const {
  Column c;
  c.width = width;
  c.index = index;
  c.defaultCell = CellObjectAccess::Create(resources_, cellObjectOwner_);
  return c;
}

std::shared_ptr<CellObject> GridStore::AddCols(const AddColArgs& a) {
  std::string keyLower = text::ToLower(a.sKey);
  if (cols_.KeyTaken(keyLower, 0)) Raise(quErrDuplicateKey);
  if (a.lWidth < -1) Raise(quErrInvalidArgument);
  int32_t width = a.lWidth == -1 ? 64 : a.lWidth;
  if (a.lMinWidth >= 0 && width < a.lMinWidth) width = a.lMinWidth;
  if (a.lMaxWidth >= 0 && width > a.lMaxWidth) width = a.lMaxWidth;
  if (a.lMinWidth >= 0 && a.lMaxWidth >= 0 && a.lMaxWidth < a.lMinWidth)
    Raise(quErrMaxWidthBelowMin);
  CheckCount(ColCount(), a.lCount);
  CheckAllocation(static_cast<uint64_t>(a.lCount), ColumnBytes(a.sHeader.size()));
  CheckRange(a.eHeaderAlignH, quAlignHLeft, quAlignHRight);
  CheckRange(a.eHeaderAlignV, quAlignVTop, quAlignVBottom);
  CheckRange(a.eSortOrderDefault, quSortAsc, quSortDesc);
  if (a.eSortType < quSortByValueGeneral ||
      (a.eSortType > quSortByExtraData && a.eSortType < quSortByValueCustomGroups) ||
      a.eSortType > quSortNone)
    Raise(quErrInvalidArgument);
  int32_t slot = IsGiven(a.vColBefore) ? ResolveColSlot(a.vColBefore) : cols_.RowTextCol();
  int32_t first = cols_.AtSlot(slot).index;

  listener_.MarkLayoutDirty(kLayoutRows);
  std::vector<Column> added;
  added.reserve(a.lCount);
  for (int32_t k = 0; k < a.lCount; ++k) {
    Column c = NewColumn(width, first + k);
    c.headerText = a.sHeader;
    c.headerIcon = a.iHeaderIcon;
    c.visible = c.visible2 = c.headerItem = a.bVisible;
    c.headerAlignH = a.eHeaderAlignH;
    c.headerAlignV = a.eHeaderAlignV;
    c.headerTextFlags = a.eHeaderTextFlags;
    c.sortType = a.eSortType;
    c.sortOrderDefault = c.sortOrder = a.eSortOrderDefault;
    c.minWidth = a.lMinWidth;
    c.maxWidth = a.lMaxWidth;
    c.allowSizing = a.bAllowSizing;
    c.tag = TagValue(a.vTag);
    if (k == 0) c.key = a.sKey, c.keyLower = keyLower;
    added.push_back(std::move(c));
  }
  InsertCellColumns(first, added);
  cols_.Insert(slot, first, std::move(added));
  listener_.ColumnsInserted(first, a.lCount);
  listener_.RecalcColumns();
  listener_.RequestRedraw();
  return cols_.AtSlot(slot).defaultCell;
}

void GridStore::InsertCellColumns(int32_t index, const std::vector<Column>& added) {
  std::vector<const Cell*> templates;
  for (const Column& c : added) templates.push_back(&CellObjectAccess::Record(*c.defaultCell));
  cells_.InsertColumns(index, templates);
}

void GridStore::DetachDefaultCells(const std::vector<Column>& removed) {
  for (const Column& c : removed)
    if (c.defaultCell) CellObjectAccess::Detach(*c.defaultCell);
}

void GridStore::RemoveCols(const Variant& vCol, int32_t count) {
  int32_t slot = ResolveColSlot(vCol);
  if (count < 1) Raise(quErrInvalidArgument);
  int32_t first = cols_.AtSlot(slot).index;
  if (static_cast<int64_t>(first) + count - 1 > ColCount()) Raise(quErrInvalidArgument);

  listener_.MarkLayoutDirty(kLayoutRows);
  listener_.ColumnsRemoved(first, count);
  DetachDefaultCells(cols_.RemoveIndexes(first, count));
  cells_.RemoveColumns(first, count);
  listener_.RecalcColumns();
  listener_.RequestRedraw();
}

void GridStore::SetColCount(int32_t count, std::string_view headerTemplate) {
  if (count < 0) Raise(quErrInvalidArgument);
  int32_t old = ColCount();
  if (count == old) return;
  if (count < old) {
    listener_.MarkLayoutDirty(kLayoutRows);
    listener_.ColumnsRemoved(count + 1, old - count);
    DetachDefaultCells(cols_.RemoveIndexes(count + 1, old - count));
    cells_.RemoveColumns(count + 1, old - count);
  } else {
    CheckCount(old, count - old);
    CheckAllocation(static_cast<uint64_t>(count - old), ColumnBytes(headerTemplate.size()));
    listener_.MarkLayoutDirty(kLayoutRows);
    std::vector<Column> added;
    for (int32_t index = old + 1; index <= count; ++index) {
      Column c = NewColumn(64, index);
      c.headerText = std::string(headerTemplate);
      for (size_t at = c.headerText.find('#'); at != std::string::npos;
           at = c.headerText.find('#', at)) {
        std::string number = std::to_string(index);
        c.headerText.replace(at, 1, number);
        at += number.size();
      }
      added.push_back(std::move(c));
    }
    InsertCellColumns(old + 1, added);
    cols_.Insert(old + 1, old + 1, std::move(added));
    listener_.ColumnsInserted(old + 1, count - old);
  }
  listener_.RecalcColumns();
  listener_.RequestRedraw();
}

void GridStore::SetColKey(int32_t colIndex, std::string_view key) {
  int32_t slot = ResolveColSlot(colIndex);
  std::string lower = text::ToLower(key);
  if (cols_.KeyTaken(lower, slot)) Raise(quErrDuplicateKey);
  Column& c = cols_.AtSlot(slot);
  c.key = std::string(key);
  c.keyLower = std::move(lower);
}

// ---- Rows ----------------------------------------------------------------------------------

void GridStore::EnsureCapacity(int32_t rows) {
  if (rows <= allocatedRows_) return;
  int64_t wanted = static_cast<int64_t>(rows) + wantFreeRows_;
  int32_t allocated =
      static_cast<int32_t>(std::min<int64_t>(wanted, std::numeric_limits<int32_t>::max()));
  // Every row takes a record and a cell in each column that holds cells of its own, and one more
  // column may start to at any write.
  CheckAllocation(static_cast<uint64_t>(allocated),
                  sizeof(RowRecord) + sizeof(Cell) * (cells_.BufferedColumns() + 1));
  try {
    // The buffers grow geometrically so that adding rows one at a time stays cheap; the
    // allocated-rows figure follows the spare-row rule on top of them.
    std::vector<RowRecord>& records = rows_.Records();
    if (records.capacity() < static_cast<size_t>(allocated))
      records.reserve(std::max<size_t>(allocated, records.capacity() * 3 / 2));
    cells_.Reserve(allocated);
  } catch (const std::bad_alloc&) {
    Raise(quErrOutOfMemory);
  } catch (const std::length_error&) {
    Raise(quErrOutOfMemory);
  }
  allocatedRows_ = allocated;
}

int32_t GridStore::AddRows(const AddRowArgs& a) {
  int32_t before = IsGiven(a.vRowBefore) ? ResolveRow(a.vRowBefore) : 0;
  int32_t parent = IsGiven(a.vRowParent) ? ResolveRow(a.vRowParent) : 0;
  if (!a.sKey.empty() && rows_.FindKey(a.sKey)) Raise(quErrDuplicateKey);
  CheckCount(RowCount(), a.lCount);
  CheckRange(a.eTreeButton, quRowTreeButtonAbsent, quRowTreeButtonVisible);
  if (parent && rows_.At(parent).level == 255) Raise(quErrInvalidHierarchy);
  int32_t height = a.lHeight < 0 ? defaults_.height : a.lHeight;
  int32_t cellHeight = a.lNormalCellHeight < 0 ? defaults_.normalCellHeight : a.lNormalCellHeight;
  EnsureCapacity(RowCount() + a.lCount);

  listener_.MarkLayoutDirty(kLayoutRows);
  uint8_t level = a.btLevel;
  bool visibleAsChild = a.bVisibleAsChild;
  int32_t at = before ? before : RowCount() + 1;
  if (parent) {
    RowRecord& p = rows_.At(parent);
    level = static_cast<uint8_t>(p.level + 1);
    visibleAsChild = visibleAsChild && p.Expanded() && p.VisibleAsChild();
    at = LastNested(parent) + 1;
    if (autoTreeButton_) p.SetTreeButton(quRowTreeButtonVisible);
  }
  int treeButton = autoTreeButton_ && !a.bGroupRow ? quRowTreeButtonHidden : a.eTreeButton;
  RowRecord fill{};
  fill.height = height;
  fill.normalCellHeight = cellHeight;
  fill.level = level;
  fill.flags = static_cast<uint8_t>(treeButton | (a.bVisible ? RowRecord::kVisible : 0) |
                                    (a.bGroupRow ? RowRecord::kGroupRow : 0) |
                                    (a.bExpanded ? RowRecord::kExpanded : 0) |
                                    (visibleAsChild ? RowRecord::kVisibleAsChild : 0));
  rows_.InsertRecords(at, a.lCount, fill);
  AssignPhysRows(at, a.lCount);
  Variant tag = TagValue(a.vTag);
  if (!tag.IsEmpty())
    for (int32_t r = at; r < at + a.lCount; ++r) rows_.SetTag(rows_.At(r).phys, tag);
  if (!a.sKey.empty()) rows_.SetKey(rows_.At(at).phys, a.sKey);
  ApplyInitRowNumbers(at, a.lCount, !a.sKey.empty());
  CountRows(at, a.lCount, +1);

  listener_.RowsInserted(at, a.lCount);
  listener_.RecalcRowsFrom(at);
  listener_.RequestRedraw();
  return at;
}

// Gives rows first..first+count-1 physical rows, freed ones first, and fills their cells with
// copies of the column templates in one pass per column.
void GridStore::AssignPhysRows(int32_t first, int32_t count) {
  const std::vector<const Cell*>& templates = cols_.Templates();
  int32_t r = first;
  for (; r < first + count && rows_.FreeCount() > 0; ++r) {
    int32_t phys = rows_.TakeFree();
    rows_.At(r).phys = phys;
    cells_.ReuseRow(phys, templates);
  }
  int32_t fresh = first + count - r;
  if (fresh == 0) return;
  int32_t phys = rows_.TakeNewPhys(fresh);
  for (int32_t k = 0; k < fresh; ++k) rows_.At(r + k).phys = phys + k;
  cells_.AppendRows(fresh, templates);
}

void GridStore::ApplyInitRowNumbers(int32_t first, int32_t count, bool firstHasKey) {
  switch (initRowNumbers_) {
    case quStoreInitRowNoInRowKey:
      for (int32_t r = first; r < first + count; ++r) {
        if (r == first && firstHasKey) continue;
        std::string key = std::to_string(r);
        if (!rows_.FindKey(key)) rows_.SetKey(rows_.At(r).phys, key);
      }
      break;
    case quStoreInitRowNoInRowTag:
      for (int32_t r = first; r < first + count; ++r) rows_.SetTag(rows_.At(r).phys, Variant(r));
      break;
    case quStoreInitRowNoIn1stCol:
      if (ColCount() >= 1)
        for (int32_t r = first; r < first + count; ++r) {
          Cell& cell = cells_.Mutable(1, rows_.At(r).phys);
          cell.value = Variant(r);
        }
      break;
    default:
      break;
  }
}

void GridStore::CountRows(int32_t first, int32_t count, int sign) {
  for (int32_t r = first; r < first + count; ++r) {
    const RowRecord& rec = rows_.At(r);
    if (rec.GroupRow()) groupRowCount_ += sign;
    if (rec.Shown()) shownRows_ += sign, shownHeight_ += sign * static_cast<int64_t>(rec.height);
  }
}

void GridStore::RemoveRows(const Variant& vRow, int32_t count) {
  int32_t row = ResolveRow(vRow);
  int32_t last = LastNested(row);
  if (last > row) {
    count = last - row + 1;
  } else if (count < 1 || static_cast<int64_t>(row) + count - 1 > RowCount()) {
    Raise(quErrInvalidArgument);
  }
  listener_.MarkLayoutDirty(kLayoutRows);
  if (count == RowCount()) {
    Clear(false);
    return;
  }
  int32_t parent = rows_.At(row).level > 0 ? ParentOf(row) : 0;
  int32_t shownBefore = shownRows_;
  listener_.RowsRemoved(row, count);
  DropRows(row, count);
  if (parent) HideButtonIfChildless(parent);
  if (shownRows_ != shownBefore) listener_.RecalcRowsFrom(row);
  listener_.RequestRedraw();
}

// Takes rows first..first+count-1 out: keys leave the index, physical rows become free.
void GridStore::DropRows(int32_t first, int32_t count) {
  CountRows(first, count, -1);
  for (int32_t r = first; r < first + count; ++r) {
    int32_t phys = rows_.At(r).phys;
    rows_.DropKey(phys);
    rows_.DropTag(phys);
    cells_.ReleaseRow(phys);
    rows_.AddFree(phys);
  }
  rows_.EraseRecords(first, count);
}

std::vector<int32_t> GridStore::InsertRowsAt(const std::vector<NewRow>& added) {
  if (added.empty()) return {};
  auto n = static_cast<int32_t>(added.size());
  CheckCount(RowCount(), n);
  EnsureCapacity(RowCount() + n);
  std::vector<RowRecord>& records = rows_.Records();
  std::vector<RowRecord> merged;
  merged.reserve(std::max(records.capacity(), records.size() + added.size()));
  std::vector<int32_t> at;  // positions of the new rows
  at.reserve(added.size());
  size_t k = 0;
  for (int32_t r = 1; r <= RowCount() + 1; ++r) {
    for (; k < added.size() && added[k].before == r; ++k) {
      merged.push_back(added[k].record);
      at.push_back(static_cast<int32_t>(merged.size()));
    }
    if (r <= RowCount()) merged.push_back(records[static_cast<size_t>(r - 1)]);
  }
  records.swap(merged);
  rows_.NotePositionsChanged(at.front());
  const std::vector<const Cell*>& templates = cols_.Templates();
  std::vector<int32_t> phys(added.size());
  size_t reused = 0;
  for (; reused < at.size() && rows_.FreeCount() > 0; ++reused) {
    phys[reused] = rows_.TakeFree();
    cells_.ReuseRow(phys[reused], templates);
  }
  auto fresh = static_cast<int32_t>(at.size() - reused);
  if (fresh > 0) {
    int32_t first = rows_.TakeNewPhys(fresh);
    for (size_t i = reused; i < at.size(); ++i) phys[i] = first + static_cast<int32_t>(i - reused);
    cells_.AppendRows(fresh, templates);
  }
  for (size_t i = 0; i < at.size(); ++i) {
    rows_.At(at[i]).phys = phys[i];
    CountRows(at[i], 1, +1);
  }
  return phys;
}

void GridStore::DropRowsOfPhys(const std::vector<uint8_t>& marked) {
  std::vector<RowRecord>& records = rows_.Records();
  int32_t first = 0;
  for (int32_t r = 1; r <= RowCount(); ++r) {
    int32_t phys = records[static_cast<size_t>(r - 1)].phys;
    if (static_cast<size_t>(phys) >= marked.size() || !marked[static_cast<size_t>(phys)]) continue;
    if (!first) first = r;
    CountRows(r, 1, -1);
    rows_.DropKey(phys);
    rows_.DropTag(phys);
    cells_.ReleaseRow(phys);
    rows_.AddFree(phys);
  }
  if (!first) return;
  std::erase_if(records, [&](const RowRecord& rec) {
    return static_cast<size_t>(rec.phys) < marked.size() && marked[static_cast<size_t>(rec.phys)];
  });
  rows_.NotePositionsChanged(first);
}

void GridStore::RecountShownRows() {
  shownRows_ = 0;
  shownHeight_ = 0;
  for (const RowRecord& rec : rows_.Records())
    if (rec.Shown()) ++shownRows_, shownHeight_ += rec.height;
}

void GridStore::SetRowCount(int32_t count) {
  if (count < 0) Raise(quErrInvalidArgument);
  int32_t old = RowCount();
  if (count == old) return;
  if (count > old) {
    CheckCount(old, count - old);
    EnsureCapacity(count);
  }
  listener_.MarkLayoutDirty(kLayoutRows);
  if (count < old) {
    listener_.RowsTruncated(count + 1, old - count);
    DropRows(count + 1, old - count);
    listener_.RecalcRowsFrom(std::max(count, 1));
  } else {
    RowRecord fill{};
    fill.height = defaults_.height;
    fill.normalCellHeight = defaults_.normalCellHeight;
    fill.flags = RowRecord::kVisible | RowRecord::kExpanded | RowRecord::kVisibleAsChild;
    rows_.InsertRecords(old + 1, count - old, fill);
    AssignPhysRows(old + 1, count - old);
    ApplyInitRowNumbers(old + 1, count - old, false);
    CountRows(old + 1, count - old, +1);
    listener_.RowsInserted(old + 1, count - old);
    listener_.RecalcRowsFrom(old + 1);
  }
  listener_.RequestRedraw();
}

void GridStore::SetRowKey(int32_t row, std::string_view key) {
  row = ResolveRow(row);
  int32_t phys = rows_.At(row).phys;
  int32_t holder = rows_.FindKey(key);
  if (holder && holder != phys) Raise(quErrDuplicateKey);
  if (holder == phys) return;
  rows_.SetKey(phys, key);
}

void GridStore::ClearRowsKeepingColumns() {
  cells_.ClearRows(cols_.Templates());
  rows_.ClearRecords();
  rows_.ClearKeysAndTags();
  allocatedRows_ = 0;
  groupRowCount_ = 0;
  shownRows_ = 0;
  shownHeight_ = 0;
}

void GridStore::Clear(bool removeCols) {
  listener_.MarkLayoutDirty(kLayoutRows);
  ClearRowsKeepingColumns();
  if (removeCols && ColCount() > 0) {
    int32_t count = ColCount();
    DetachDefaultCells(cols_.RemoveIndexes(1, count));
    cells_.RemoveColumns(1, count);
  }
  moreRows_ = virtual_;
  listener_.RowsCleared(removeCols);
  listener_.RecalcColumns();
  listener_.RequestRedraw();
}

// ---- Hierarchy queries used by the store ---------------------------------------------------

int32_t GridStore::LastNested(int32_t row) const {
  uint8_t level = rows_.At(row).level;
  int32_t last = row;
  while (last < RowCount() && rows_.At(last + 1).level > level) ++last;
  return last;
}

int32_t GridStore::ParentOf(int32_t row) const {
  int level = rows_.At(row).level;
  if (level == 0) return 0;
  for (int32_t r = row - 1; r >= 1; --r)
    if (rows_.At(r).level == level - 1) return r;
  return 0;
}

void GridStore::HideButtonIfChildless(int32_t parent) {
  RowRecord& rec = rows_.At(parent);
  if (rec.TreeButton() == quRowTreeButtonVisible && !HasChildren(parent))
    rec.SetTreeButton(quRowTreeButtonHidden);
}

bool GridStore::HasChildren(int32_t row) const {
  return row < RowCount() && rows_.At(row + 1).level == rows_.At(row).level + 1;
}

// ---- Virtual mode, settings, totals --------------------------------------------------------

bool GridStore::EnsureVirtualRows(int32_t row) {
  while (virtual_ && moreRows_ && RowCount() < row) {
    if (!listener_.RequestRow(RowCount() + 1)) {
      moreRows_ = false;
      break;
    }
    int32_t added = AddRows(AddRowArgs{});
    listener_.RequestRowData(added);
  }
  return row <= RowCount();
}

void GridStore::SetMemMngWantFreeRows(int32_t n) {
  if (n < 0) Raise(quErrInvalidArgument);
  wantFreeRows_ = n;
}

void GridStore::SetStoreInitRowNumbers(EStoreInitRowNumbersPlace place) {
  CheckRange(place, quStoreInitRowNoNowhere, quStoreInitRowNoIn1stCol);
  initRowNumbers_ = place;
}

void GridStore::BeforeRowShapeChange(int32_t row) {
  const RowRecord& rec = rows_.At(row);
  shapeWasShown_ = rec.Shown();
  shapeOldHeight_ = rec.height;
}

void GridStore::AfterRowShapeChange(int32_t row) {
  const RowRecord& rec = rows_.At(row);
  if (shapeWasShown_) --shownRows_, shownHeight_ -= shapeOldHeight_;
  if (rec.Shown()) ++shownRows_, shownHeight_ += rec.height;
}

size_t GridStore::BytesAllocated() const {
  return rows_.BytesAllocated() + cells_.BytesAllocated();
}

}  // namespace quilta::model
