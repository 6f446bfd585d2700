#include "ops/sorting/sorter.hpp"

#include <algorithm>
#include <bit>
#include <cmath>

#include "control/control.hpp"
#include "ops/sorting/packed_shell_sort.hpp"
#include "ops/sorting/radix_sort.hpp"
#include "ops/sorting/row_sorts.hpp"
#include "ops/sorting/sort_keys.hpp"

namespace quilta::ops {
namespace {

using model::RowRecord;
using model::RowStore;

struct Run {
  int32_t first;
  int32_t last;
};

// Group rows stay where they are and fence off the runs of rows between them.
std::vector<Run> Runs(const RowStore& rows, int32_t first, int32_t last, bool fenced) {
  if (!fenced) return {Run{first, last}};
  std::vector<Run> runs;
  int32_t begin = first;
  for (int32_t r = first; r <= last; ++r) {
    if (!rows.At(r).GroupRow()) continue;
    if (r > begin) runs.push_back(Run{begin, r - 1});
    begin = r + 1;
  }
  if (begin <= last) runs.push_back(Run{begin, last});
  return runs;
}

// Distinct keys have one sorted order, which a linear radix sort finds directly.
void SortUniqueKeysOfRun(RowStore& rows, int32_t first, const RowKeys& keys, uint32_t base,
                         uint32_t n) {
  std::vector<KeyedEntry> entries(n);
  for (uint32_t k = 0; k < n; ++k) entries[k] = KeyedEntry{keys.key[base + k], k, 0};
  RadixSort(entries);
  ApplyArrangement(rows, first, n, [&](size_t k) { return entries[k].a; });
}

// The keys of the run are packed in place with their offsets and Shell-sorted.
void SortKeysOfRun(RowStore& rows, int32_t first, RowKeys& keys, uint32_t base, uint32_t n) {
  if (keys.unique) return SortUniqueKeysOfRun(rows, first, keys, base, n);
  auto shift = std::max(1u, static_cast<unsigned>(std::bit_width(n - 1)));
  if (keys.bound > (uint64_t{1} << (64 - shift))) keys.bound = DenseRank(keys.key);
  uint64_t* packed = keys.key.data() + base;
  for (uint32_t k = 0; k < n; ++k) packed[k] = packed[k] << shift | k;
  ShellSortPacked(packed, n, shift);
  uint64_t low = (uint64_t{1} << shift) - 1;
  ApplyArrangement(rows, first, n, [&](size_t k) { return packed[k] & low; });
}

void SortByKeys(RowStore& rows, const SortPlan& plan, RowKeys& keys, const std::vector<Run>& runs,
                Arrangement how) {
  for (const Run& run : runs) {
    auto n = static_cast<uint32_t>(run.last - run.first + 1);
    auto base = static_cast<uint32_t>(run.first - plan.first);
    if (how == Arrangement::Rows) {
      SortKeysOfRun(rows, run.first, keys, base, n);
      continue;
    }
    std::vector<uint32_t> order = TreeSortOrder(&rows.At(run.first), n, how == Arrangement::Tree,
                                                [&](uint32_t a, uint32_t b) {
                                                  uint64_t x = keys.key[base + a];
                                                  uint64_t y = keys.key[base + b];
                                                  return (x > y) - (x < y);
                                                });
    ApplyArrangement(rows, run.first, order);
  }
}

void SortRun(RowStore& rows, const Run& run, Arrangement how, DirectComparer& compare) {
  if (how == Arrangement::Rows) {
    ShellSortRows(rows, run.first, run.last, compare);
    return;
  }
  // Rows stay put while the tree sort compares, so a handler sees them where they are.
  std::vector<RowRecord> recs(&rows.At(run.first), &rows.At(run.last) + 1);
  std::vector<uint32_t> order =
      TreeSortOrder(recs.data(), static_cast<uint32_t>(recs.size()), how == Arrangement::Tree,
                    [&](uint32_t a, uint32_t b) {
                      return compare.Rows(recs[a], run.first + static_cast<int32_t>(a), recs[b],
                                          run.first + static_cast<int32_t>(b));
                    });
  ApplyArrangement(rows, run.first, order);
}

// Comparing through the host's events: a handler that throws leaves the rows as they were.
void SortDirect(control::Control& c, const SortPlan& plan, const std::vector<Run>& runs,
                Arrangement how) {
  RowStore& rows = c.store.Rows();
  int32_t count = rows.Count();
  std::vector<RowRecord> saved(&rows.At(plan.first), &rows.At(plan.last) + 1);
  DirectComparer compare(c, plan);
  try {
    for (const Run& run : runs) SortRun(rows, run, how, compare);
  } catch (...) {
    if (rows.Count() == count) std::copy(saved.begin(), saved.end(), &rows.At(plan.first));
    rows.NotePositionsChanged(plan.first);
    throw;
  }
}

ESortOrders Opposite(ESortOrders order) { return order == quSortDesc ? quSortAsc : quSortDesc; }

// SortRowChildNodes(0) stands for the whole grid.
bool IsZeroIndex(const Variant& v) {
  switch (v.Type()) {
    case vbInteger:
      return v.IntegerValue() == 0;
    case vbLong:
      return v.LongValue() == 0;
    case vbByte:
      return v.ByteValue() == 0;
    case vbLongLong:
      return v.LongLongValue() == 0;
    case vbSingle:
      return std::fabs(v.SingleValue()) <= 0.5f;
    case vbDouble:
      return std::fabs(v.DoubleValue()) <= 0.5;
    case vbCurrency:
      return v.CurrencyScaled() >= -5000 && v.CurrencyScaled() <= 5000;
    default:
      return false;
  }
}

Criteria::iterator FindCriterion(Criteria& criteria, int32_t col) {
  return std::find_if(criteria.begin(), criteria.end(),
                      [col](const Criterion& k) { return k.col == col; });
}

}  // namespace

void Sorter::SortRange(int32_t first, int32_t last, const Criteria& criteria, Arrangement how,
                       bool fenced, bool groupingSort) {
  if (last - first < 1 || criteria.empty()) return;
  RowStore& rows = c_.store.Rows();
  SortPlan plan = MakePlan(c_, criteria, first, last, groupingSort);
  std::vector<Run> runs = Runs(rows, first, last, fenced);
  RowKeys keys;
  if (BuildRowKeys(c_, plan, keys)) {
    SortByKeys(rows, plan, keys, runs, how);
  } else {
    SortDirect(c_, plan, runs, how);
  }
  rows.NotePositionsChanged(first);
  c_.RowsRearranged();
}

// ---- Public operations ------------------------------------------------------------------------

int32_t Sorter::Bound(const Variant& v) const { return v.IsMissing() ? 0 : c_.store.ResolveRow(v); }

void Sorter::Sort(const Variant& vCols, const Variant& vRowStart, const Variant& vRowEnd) {
  int32_t start = Bound(vRowStart);
  int32_t end = Bound(vRowEnd);
  Criteria& criteria = SortGroupAccess::Items(c_.sortObject);
  Criteria previous = criteria;
  if (!vCols.IsMissing()) {
    std::vector<int32_t> cols;
    if (vCols.IsArray()) {
      if (vCols.Dims() != 1) throw Error::FromCode(quErrInvalidArgument);
      for (int32_t i = vCols.LBound(); i <= vCols.UBound(); ++i)
        cols.push_back(c_.store.ResolveColIndex(vCols.At(i)));
    } else {
      cols.push_back(c_.store.ResolveColIndex(vCols));
    }
    criteria.clear();
    for (int32_t col : cols) {
      const model::Column& column = c_.store.Cols().AtIndex(col);
      if (column.sortType != quSortNone)
        criteria.push_back(Criterion{col, column.sortOrderDefault, column.sortType});
    }
  }
  if (criteria.empty()) return;
  SortAndMark(start, end, std::move(previous), {});
}

void Sorter::DoDefaultSort(const Variant& vCol, int16_t iShift, int32_t eSortOrder,
                           const Variant& vRowStart, const Variant& vRowEnd) {
  int32_t col = c_.store.ResolveColIndex(vCol);
  int32_t start = Bound(vRowStart);
  int32_t end = Bound(vRowEnd);
  if (eSortOrder < -1 || eSortOrder > quSortDesc) throw Error::FromCode(quErrInvalidArgument);
  const model::Column& column = c_.store.Cols().AtIndex(col);
  if (column.sortType == quSortNone) return;
  auto given = static_cast<ESortOrders>(eSortOrder);
  Criteria regroup = c_.grouping.GroupedBy();
  if (auto grouped = FindCriterion(regroup, col); grouped != regroup.end()) {
    // A grouped column's header reverses that group's order and regroups.
    Criterion& item = *grouped;
    item.order = eSortOrder == -1 ? Opposite(item.order) : given;
    SortGroupAccess::Items(c_.groupObject) = std::move(regroup);
    c_.Regroup();
    return;
  }
  Criteria& criteria = SortGroupAccess::Items(c_.sortObject);
  Criteria previous = criteria;
  if (iShift != 0) {
    criteria.erase(criteria.begin(),
                   criteria.begin() + static_cast<std::ptrdiff_t>(std::min(
                                          c_.grouping.GroupedBy().size(), criteria.size())));
    if (auto it = FindCriterion(criteria, col); it != criteria.end()) {
      it->order = eSortOrder == -1 ? Opposite(it->order) : given;
    } else {
      criteria.push_back(
          Criterion{col, eSortOrder == -1 ? column.sortOrderDefault : given, column.sortType});
    }
  } else {
    auto it = FindCriterion(criteria, col);
    ESortOrders order = eSortOrder != -1       ? given
                        : it != criteria.end() ? Opposite(it->order)
                                               : column.sortOrderDefault;
    criteria.assign(1, Criterion{col, order, column.sortType});
  }
  SortAndMark(start, end, std::move(previous), c_.grouping.GroupedBy());
}

// A handler that throws before the rows are in order (BeforeContentsSorted, CustomSort, ...)
// leaves the criteria as they were; AfterContentsSorted comes once the sort marks are set too.
void Sorter::SortAndMark(int32_t start, int32_t end, Criteria previous, const Criteria& grouped) {
  Criteria& criteria = SortGroupAccess::Items(c_.sortObject);
  bool sorted = false;
  try {
    sorted = RangeSort(start, end);
  } catch (...) {
    criteria = std::move(previous);
    throw;
  }
  criteria.insert(criteria.begin(), grouped.begin(), grouped.end());
  SyncColumnMarks();
  if (sorted && c_.events) c_.events->AfterContentsSorted();
}

void Sorter::SortAll() {
  if (RangeSort(0, 0) && c_.events) c_.events->AfterContentsSorted();
}

void Sorter::SortRowChildNodes(const Variant& vRow) {
  int32_t row = IsZeroIndex(vRow) ? 0 : c_.store.ResolveRow(vRow);
  int32_t first = row + 1;
  int32_t last = row ? c_.store.LastNested(row) : c_.store.RowCount();
  if (last - first < 1) return;
  int32_t phys = CurrentPhys();
  SortRange(first, last, SortGroupAccess::Items(c_.sortObject), Arrangement::TreeTopLevel);
  c_.geometry.RecordChange(model::kLayoutRows);
  c_.RecalcRowsFrom(first);
  c_.RequestRedraw();
  RestoreCurrent(phys);
}

void Sorter::HeaderClicked(int32_t colIndex, int16_t shift) {
  bool doDefault = true;
  if (c_.events) c_.events->ColHeaderClick(colIndex, shift, doDefault);
  if (doDefault && c_.props.Bool(model::Prop::AllowSorting))
    DoDefaultSort(colIndex, shift, -1, Variant::Missing(), Variant::Missing());
}

// ---- The range sort ---------------------------------------------------------------------------

bool Sorter::RangeSort(int32_t start, int32_t end) {
  model::GridStore& store = c_.store;
  if (store.RowCount() == 0 || store.ColCount() == 0) return false;
  if (c_.events) c_.events->BeforeContentsSorted();
  int32_t phys = CurrentPhys();
  int32_t first = start ? start : 1;
  int32_t last = end ? end : store.RowCount();
  Arrangement how =
      c_.props.Long(model::Prop::TreeCol) != 0 ? Arrangement::Tree : Arrangement::Rows;
  const Criteria& criteria = SortGroupAccess::Items(c_.sortObject);
  if (first == 1 && last == store.RowCount() && !c_.grouping.GroupedBy().empty()) {
    // Deliberately, a grouped grid of two rows or fewer is left as it is.
    if (store.RowCount() > 2) SortRange(first, last, criteria, how, true);
  } else {
    SortRange(first, last, criteria, how);
  }
  c_.geometry.RecordChange(model::kLayoutRows);
  c_.RecalcRowsFrom(first);
  c_.RequestRedraw();
  RestoreCurrent(phys);
  if (c_.props.Bool(model::Prop::SortScrollToCurRow)) c_.ScrollCurRowIntoView();
  return true;
}

void Sorter::SyncColumnMarks() {
  const Criteria& criteria = SortGroupAccess::Items(c_.sortObject);
  model::ColumnStore& cols = c_.store.Cols();
  for (int32_t slot = 1; slot <= cols.RowTextCol(); ++slot) {
    model::Column& column = cols.AtSlot(slot);
    auto it = std::find_if(criteria.begin(), criteria.end(),
                           [&](const Criterion& k) { return k.col == column.index; });
    column.sortKey = it == criteria.end() ? 0 : static_cast<int32_t>(it - criteria.begin()) + 1;
    if (column.sortKey > 0) column.sortOrder = it->order;
  }
  c_.SortMarksChanged();
}

int32_t Sorter::CurrentPhys() const {
  c_.RememberSelection();
  int32_t row = c_.CurRow();
  return row >= 1 && row <= c_.store.RowCount() ? c_.store.Rows().At(row).phys : 0;
}

void Sorter::RestoreCurrent(int32_t phys) {
  c_.RestoreSelection();
  if (phys) c_.SetCurrentCell(c_.store.Rows().RowOfPhys(phys), c_.CurCol());
}

}  // namespace quilta::ops
