#include "ops/grouping/grouper.hpp"

#include <algorithm>
#include <quilta/error.hpp>

#include "model/control_properties.hpp"
#include "model/grid_store.hpp"
#include "ops/sorting/cell_compare.hpp"

namespace quilta::ops {
namespace {

using model::RowRecord;

constexpr uint8_t kLevelLimit = 255;

}  // namespace

Grouper::Grouper(model::GridStore& store, const model::ControlProperties& props,
                 const model::CellResources& resources, SortGroupObject& groupObject,
                 SortGroupObject& sortObject, GroupingSite& site)
    : store_(store),
      props_(props),
      resources_(resources),
      groupObject_(groupObject),
      sortObject_(sortObject),
      site_(site),
      groupedBy_(SortGroupAccess::Make(store)),
      aggrFuncs_(AggrFuncsAccess::Make(store, *this)) {}

// ---- Grouping and ungrouping --------------------------------------------------------------

void Grouper::CheckCriteria(const Criteria& criteria) const {
  for (const Criterion& k : criteria)
    if (k.col < 1 || k.col > store_.ColCount()) throw Error::FromCode(quErrSubscriptOutOfRange);
  // Data rows keep their own nesting one level below the innermost groups.
  int depth = static_cast<int>(GroupedBy().size());
  int deepest = 0;
  for (int32_t r = 1; r <= store_.RowCount(); ++r)
    if (GroupIdOfRow(r) < 0) deepest = std::max(deepest, store_.Rows().At(r).level - depth);
  if (deepest + static_cast<int>(criteria.size()) > kLevelLimit)
    throw Error::FromCode(quErrInvalidHierarchy);
}

void Grouper::Group() {
  Criteria wanted = SortGroupAccess::Items(groupObject_);
  CheckCriteria(wanted);
  site_.EndEditing();
  int32_t current = site_.CurrentRowPhys();
  Criteria rest = SortCriteriaAfterGroups();
  building_ = true;
  // The selection is kept by physical row across the removal, the sort and the new group rows.
  site_.RememberSelection();
  try {
    RemoveGroupRows();
    SortGroupAccess::Items(groupedBy_) = wanted;
    if (!wanted.empty()) {
      if (props_.Bool(model::Prop::AllowSorting)) {
        Criteria all = wanted;
        all.insert(all.end(), rest.begin(), rest.end());
        site_.SortForGrouping(all);
        SortGroupAccess::Items(sortObject_) = std::move(all);
        site_.SortCriteriaChanged();
      }
      BuildGroupRows();
    }
  } catch (...) {
    site_.RestoreSelection();
    // A host handler failed (CustomGroupValue, CustomSort): the grid is left ungrouped, its data
    // rows in whatever order the sort reached.
    building_ = false;
    groups_.clear();
    groupOfPhys_.clear();
    watched_.clear();
    SortGroupAccess::Items(groupedBy_).clear();
    ShowRowsUnderExpandedParents();
    site_.RowsRelaidOut();
    throw;
  }
  site_.RestoreSelection();
  building_ = false;
  ShowRowsUnderExpandedParents();
  Recount();
  site_.SetCurrentRowPhys(current);
  site_.RowsRelaidOut();
}

void Grouper::Ungroup() {
  if (!Grouped() && groups_.empty()) return;
  site_.EndEditing();
  int32_t current = site_.CurrentRowPhys();
  RemoveGroupRowsKeepingSelection();
  ShowRowsUnderExpandedParents();
  site_.SetCurrentRowPhys(current);
  site_.RowsRelaidOut();
}

// SortObject of a grouped grid starts with the group criteria; the sort criteria follow them.
Criteria Grouper::SortCriteriaAfterGroups() const {
  const Criteria& sort = SortGroupAccess::Items(sortObject_);
  size_t prefix = 0;
  while (prefix < sort.size() && prefix < GroupedBy().size() &&
         sort[prefix].col == GroupedBy()[prefix].col)
    ++prefix;
  return Criteria(sort.begin() + static_cast<std::ptrdiff_t>(prefix), sort.end());
}

void Grouper::RemoveGroupRowsKeepingSelection() {
  site_.RememberSelection();
  RemoveGroupRows();
  site_.RestoreSelection();
}

void Grouper::RemoveGroupRows() {
  auto depth = static_cast<uint8_t>(GroupedBy().size());
  std::vector<uint8_t> marked(static_cast<size_t>(store_.Rows().PhysHighWater()) + 1, 0);
  bool any = false;
  for (const GroupState& g : groups_)
    if (g.alive) marked[static_cast<size_t>(g.phys)] = 1, any = true;
  if (any) store_.DropRowsOfPhys(marked);
  for (RowRecord& rec : store_.Rows().Records())
    rec.level = rec.level >= depth ? static_cast<uint8_t>(rec.level - depth) : 0;
  groups_.clear();
  groupOfPhys_.clear();
  watched_.clear();
  SortGroupAccess::Items(groupedBy_).clear();
}

// Top-level data rows are compared with the one before them, level by level: where the first
// group value differs, a group row is opened for that level and every level below it.
void Grouper::BuildGroupRows() {
  const Criteria& criteria = GroupedBy();
  size_t depth = criteria.size();
  model::RowStore& rows = store_.Rows();
  std::vector<model::GridStore::NewRow> added;
  std::vector<Variant> values(depth), previous(depth);
  std::vector<std::string> texts(depth);
  std::vector<int32_t> openAt(depth, -1);  // the newest group of each level
  bool expanded = props_.Bool(model::Prop::DefaultAutoGroupRowExpanded);
  bool first = true;
  constexpr int32_t kAhead = 16;  // rows read ahead: their cells lie scattered after the sort
  for (int32_t r = 1; r <= rows.Count(); ++r) {
    if (r + kAhead <= rows.Count())
      for (const Criterion& k : criteria)
        __builtin_prefetch(&store_.Cells().Get(k.col, rows.At(r + kAhead).phys));
    if (rows.At(r).level != 0) continue;  // nested data rows stay with their parent
    for (size_t k = 0; k < depth; ++k) {
      texts[k].clear();
      values[k] = GroupValueOf(r, criteria[k], texts[k]);
    }
    size_t opened = depth;
    for (size_t k = 0; k < depth && opened == depth; ++k)
      if (first || !SameGroup(criteria[k], values[k], previous[k])) opened = k;
    first = false;
    for (size_t k = opened; k < depth; ++k) {
      RowRecord rec{};
      rec.height = store_.Defaults().height;
      rec.normalCellHeight = store_.Defaults().normalCellHeight;
      rec.level = static_cast<uint8_t>(k);
      rec.flags =
          static_cast<uint8_t>(quRowTreeButtonVisible | RowRecord::kVisible | RowRecord::kGroupRow |
                               RowRecord::kVisibleAsChild | (expanded ? RowRecord::kExpanded : 0));
      added.push_back({r, rec});
      GroupState g;
      g.parent = k == 0 ? -1 : openAt[k - 1];
      g.level = static_cast<uint8_t>(k);
      g.value = values[k];
      g.valueText = texts[k].empty() ? FormatForColumn(criteria[k].col, values[k]) : texts[k];
      openAt[k] = static_cast<int32_t>(groups_.size());
      groups_.push_back(std::move(g));
    }
    std::swap(previous, values);
  }
  std::vector<int32_t> phys = store_.InsertRowsAt(added);
  EnsurePhysCapacity();
  for (size_t id = 0; id < groups_.size(); ++id) {
    groups_[id].phys = phys[id];
    groupOfPhys_[static_cast<size_t>(phys[id])] = static_cast<int32_t>(id) + 1;
  }
  for (RowRecord& rec : rows.Records())
    if (groupOfPhys_[static_cast<size_t>(rec.phys)] == 0)
      rec.level = static_cast<uint8_t>(rec.level + depth);
}

Variant Grouper::GroupValueOf(int32_t row, const Criterion& k, std::string& text) {
  switch (KindOf(k.type)) {
    case SortKind::CustomGroups: {
      Variant value = store_.CellAt(row, k.col).value;
      site_.CustomGroupValue(row, k.col, value, text);
      return value;
    }
    case SortKind::CellText:
      return Variant(site_.CellText(row, k.col));
    default:
      return store_.CellAt(row, k.col).value;
  }
}

// Group values are equal as the criterion's sort type compares them; the types that compare
// cell properties other than the value group by the value.
bool Grouper::SameGroup(const Criterion& k, const Variant& a, const Variant& b) const {
  switch (KindOf(k.type)) {
    case SortKind::ValueText: {
      int nulls = CompareNulls(a.IsNull(), b.IsNull());
      if (nulls != 2) return nulls == 0;
      return CompareText(CStr(a), CStr(b), NoCase(k.type)) == 0;
    }
    case SortKind::CellText:
      return CompareText(a.StringView(), b.StringView(), NoCase(k.type)) == 0;
    default:
      return CompareGeneral(a, b) == 0;
  }
}

// Children show exactly when every row above them in the tree is expanded.
void Grouper::ShowRowsUnderExpandedParents() {
  struct Open {
    uint8_t level;
    bool childrenShown;
  };
  std::vector<Open> stack;
  for (RowRecord& rec : store_.Rows().Records()) {
    while (!stack.empty() && stack.back().level >= rec.level) stack.pop_back();
    bool shown = stack.empty() || stack.back().childrenShown;
    rec.flags = static_cast<uint8_t>(shown ? rec.flags | RowRecord::kVisibleAsChild
                                           : rec.flags & ~RowRecord::kVisibleAsChild);
    stack.push_back({rec.level, shown && rec.Expanded()});
  }
  store_.RecountShownRows();
}

// ---- Membership and aggregates -------------------------------------------------------------

int32_t Grouper::GroupIdOfRow(int32_t row) const {
  if (row < 1 || row > store_.RowCount()) return -1;
  const RowRecord& rec = store_.Rows().At(row);
  if (!rec.GroupRow() || static_cast<size_t>(rec.phys) >= groupOfPhys_.size()) return -1;
  int32_t id = groupOfPhys_[static_cast<size_t>(rec.phys)] - 1;
  return id >= 0 && groups_[static_cast<size_t>(id)].phys == rec.phys ? id : -1;
}

int32_t Grouper::CheckedGroupId(int32_t row) const {
  int32_t id = GroupIdOfRow(row);
  if (id < 0) throw Error::FromCode(quErrInvalidArgument);
  return id;
}

void Grouper::EnsurePhysCapacity() {
  auto needed = static_cast<size_t>(store_.Rows().PhysHighWater()) + 1;
  if (groupOfPhys_.size() < needed) groupOfPhys_.resize(needed, 0);
}

void Grouper::ResetAggregates(GroupState& g) const {
  g.dataRows = 0;
  g.aggr.clear();
  for (const AggrItem& item : Items()) g.aggr.emplace_back(item.func);
}

// Reads every group's membership from the rows: a data row belongs to the innermost group row
// above it in the tree. The values are then added in physical-row order, the order the cells lie
// in memory, which after a sort is far faster than reading them row by row.
void Grouper::Recount() {
  groupOfPhys_.assign(static_cast<size_t>(store_.Rows().PhysHighWater()) + 1, 0);
  for (size_t id = 0; id < groups_.size(); ++id) {
    GroupState& g = groups_[id];
    ResetAggregates(g);
    if (g.alive) groupOfPhys_[static_cast<size_t>(g.phys)] = static_cast<int32_t>(id) + 1;
  }
  RebuildWatched();
  struct Open {
    uint8_t level;
    int32_t group;
  };
  std::vector<Open> stack;
  for (const RowRecord& rec : store_.Rows().Records()) {
    while (!stack.empty() && stack.back().level >= rec.level) stack.pop_back();
    int32_t& slot = groupOfPhys_[static_cast<size_t>(rec.phys)];
    if (rec.GroupRow() && slot > 0) {
      stack.push_back({rec.level, slot - 1});
      continue;
    }
    slot = stack.empty() ? 0 : stack.back().group + 1;
    for (int32_t g = slot - 1; g >= 0; g = groups_[static_cast<size_t>(g)].parent)
      ++groups_[static_cast<size_t>(g)].dataRows;
  }
  AddValuesInPhysicalOrder();
  for (size_t id = 0; id < groups_.size(); ++id)
    if (groups_[id].alive) RefreshText(static_cast<int32_t>(id));
}

void Grouper::AddValuesInPhysicalOrder() {
  const std::vector<AggrItem>& items = Items();
  for (size_t i = 0; i < items.size(); ++i) {
    if (!Accumulator::Keeps(items[i].func)) continue;
    const model::CellColumn& column = store_.Cells().Column(items[i].col);
    for (size_t phys = 1; phys < groupOfPhys_.size(); ++phys) {
      int32_t group = groupOfPhys_[phys] - 1;
      if (group < 0 || groups_[static_cast<size_t>(group)].phys == static_cast<int32_t>(phys))
        continue;
      const Variant& v = column.Get(static_cast<int32_t>(phys)).value;
      for (int32_t g = group; g >= 0; g = groups_[static_cast<size_t>(g)].parent)
        groups_[static_cast<size_t>(g)].aggr[i].Add(v);
    }
  }
}

void Grouper::CountRowIn(int32_t phys, int32_t group, int sign) {
  const std::vector<AggrItem>& items = Items();
  for (int32_t g = group; g >= 0; g = groups_[static_cast<size_t>(g)].parent) {
    GroupState& state = groups_[static_cast<size_t>(g)];
    state.dataRows += sign;
    for (size_t i = 0; i < items.size(); ++i) {
      if (!Accumulator::Keeps(items[i].func)) continue;
      const Variant& v = store_.Cells().Get(items[i].col, phys).value;
      if (sign > 0) {
        state.aggr[i].Add(v);
      } else {
        state.aggr[i].Remove(v);
      }
    }
  }
}

void Grouper::RebuildWatched() {
  watched_.assign(static_cast<size_t>(store_.Cols().RowTextCol()) + 1, 0);
  if (!Grouped()) return;
  for (const AggrItem& item : Items())
    if (static_cast<size_t>(item.col) < watched_.size())
      watched_[static_cast<size_t>(item.col)] = 1;
}

void Grouper::CellValueChanged(int32_t phys, int32_t col, const Variant& before, const Variant& now,
                               bool refresh) {
  if (static_cast<size_t>(phys) >= groupOfPhys_.size()) return;
  int32_t group = groupOfPhys_[static_cast<size_t>(phys)] - 1;
  if (group < 0 || groups_[static_cast<size_t>(group)].phys == phys) return;
  const std::vector<AggrItem>& items = Items();
  for (int32_t g = group; g >= 0; g = groups_[static_cast<size_t>(g)].parent) {
    GroupState& state = groups_[static_cast<size_t>(g)];
    for (size_t i = 0; i < items.size(); ++i) {
      if (items[i].col != col || !Accumulator::Keeps(items[i].func)) continue;
      state.aggr[i].Remove(before);
      state.aggr[i].Add(now);
    }
  }
  if (refresh) RefreshChain(group);
}

// The innermost group above a new row, found through the tree above it.
int32_t Grouper::InnermostGroupAbove(int32_t row) const {
  uint8_t below = store_.Rows().At(row).level;
  for (int32_t r = row - 1; r >= 1 && below > 0; --r) {
    const RowRecord& rec = store_.Rows().At(r);
    if (rec.level >= below) continue;
    int32_t id = GroupIdOfRow(r);
    if (id >= 0) return id;
    below = rec.level;
  }
  return -1;
}

void Grouper::RowsInserted(int32_t row, int32_t count) {
  if (!Grouped() || building_) return;
  EnsurePhysCapacity();
  JoinGroupOfNextRow(row, count);
  int32_t group = InnermostGroupAbove(row);
  for (int32_t r = row; r < row + count; ++r) {
    int32_t phys = store_.Rows().At(r).phys;
    groupOfPhys_[static_cast<size_t>(phys)] = group + 1;
    if (group >= 0) CountRowIn(phys, group, +1);
  }
  if (group >= 0) RefreshChain(group);
}

// Rows inserted among a group's data rows at a level above them (AddRow with vRowBefore and no
// parent) join that group, at the level of the row they were inserted before.
void Grouper::JoinGroupOfNextRow(int32_t row, int32_t count) {
  model::RowStore& rows = store_.Rows();
  int32_t next = row + count;
  if (next > rows.Count() || rows.At(row).level >= GroupedBy().size()) return;
  const RowRecord& after = rows.At(next);
  int32_t group = groupOfPhys_[static_cast<size_t>(after.phys)] - 1;
  if (group < 0 || groups_[static_cast<size_t>(group)].phys == after.phys) return;
  for (int32_t r = row; r < next; ++r) rows.At(r).level = after.level;
}

void Grouper::RowsRemoving(int32_t row, int32_t count) {
  if (!Grouped() || building_) return;
  for (int32_t r = row; r < row + count; ++r) {
    int32_t phys = store_.Rows().At(r).phys;
    if (static_cast<size_t>(phys) >= groupOfPhys_.size()) continue;
    int32_t group = groupOfPhys_[static_cast<size_t>(phys)] - 1;
    groupOfPhys_[static_cast<size_t>(phys)] = 0;
    if (group < 0) continue;
    GroupState& g = groups_[static_cast<size_t>(group)];
    if (g.phys == phys) {
      g.alive = false;
      continue;
    }
    CountRowIn(phys, group, -1);
    touched_.push_back(group);
  }
}

// The texts wait until the rows are gone: a minimum or maximum looked for again must not find
// them.
void Grouper::RowsRemoved() {
  std::vector<int32_t> touched;
  touched.swap(touched_);
  if (!Grouped()) return;
  std::sort(touched.begin(), touched.end());
  touched.erase(std::unique(touched.begin(), touched.end()), touched.end());
  for (int32_t group : touched) RefreshChain(group);
  for (;;) {
    int32_t empty = -1;
    for (size_t id = 0; id < groups_.size() && empty < 0; ++id) {
      const GroupState& g = groups_[id];
      bool parentKept = g.parent < 0 || groups_[static_cast<size_t>(g.parent)].dataRows > 0;
      if (g.alive && g.dataRows == 0 && parentKept) empty = static_cast<int32_t>(id);
    }
    if (empty < 0) return;
    int32_t row = GroupRowOf(groups_[static_cast<size_t>(empty)]);
    if (row == 0) return;
    store_.RemoveRows(Variant(row), 1);
    if (!Grouped()) return;  // that was the last row: the grid was cleared
  }
}

void Grouper::RowsCleared() {
  touched_.clear();
  groups_.clear();
  groupOfPhys_.clear();
  watched_.clear();
  if (!building_) SortGroupAccess::Items(groupedBy_).clear();
}

void Grouper::ColumnsCleared() {
  AggrFuncsAccess::Items(aggrFuncs_).clear();
  SortGroupAccess::Items(groupedBy_).clear();
  watched_.clear();
}

void Grouper::RowsRearranged() {
  if (Grouped() && !building_) Recount();
}

void Grouper::AggrFuncsChanged() {
  if (Grouped()) Recount();
}

void Grouper::RefreshTexts() {
  for (size_t id = 0; id < groups_.size(); ++id)
    if (groups_[id].alive) RefreshText(static_cast<int32_t>(id));
  site_.RequestRedraw();
}

void Grouper::ColumnsInserted(int32_t index, int32_t count) {
  SortGroupAccess::ColumnsInserted(groupedBy_, index, count);
  for (AggrItem& item : AggrFuncsAccess::Items(aggrFuncs_))
    if (item.col >= index) item.col += count;
  RebuildWatched();
}

void Grouper::ColumnsRemoving(int32_t index, int32_t count) {
  auto gone = [&](int32_t col) { return col >= index && col < index + count; };
  std::vector<AggrItem>& items = AggrFuncsAccess::Items(aggrFuncs_);
  bool aggregatesGone = std::erase_if(items, [&](const AggrItem& item) { return gone(item.col); });
  for (AggrItem& item : items)
    if (item.col >= index + count) item.col -= count;
  Criteria& criteria = SortGroupAccess::Items(groupedBy_);
  if (std::any_of(criteria.begin(), criteria.end(),
                  [&](const Criterion& k) { return gone(k.col); })) {
    Ungroup();
    return;
  }
  SortGroupAccess::ColumnsRemoved(groupedBy_, index, count);  // none of them on the columns
  // The results are counted again once the cells of the columns are gone.
  recountPending_ = aggregatesGone && Grouped();
  RebuildWatched();
}

void Grouper::ColumnsSettled() {
  if (!recountPending_) return;
  recountPending_ = false;
  if (Grouped()) Recount();
}

}  // namespace quilta::ops
