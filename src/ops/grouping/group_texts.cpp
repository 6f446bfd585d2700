// Grouping: the group rows' texts and the aggregate results read through the object model.
#include <quilta/error.hpp>

#include "model/cell_object_access.hpp"
#include "model/cell_resources.hpp"
#include "model/control_properties.hpp"
#include "model/format/compiled_format.hpp"
#include "model/grid_store.hpp"
#include "ops/grouping/grouper.hpp"

namespace quilta::ops {
namespace {

const char* FuncName(EAggrFuncs func) {
  switch (func) {
    case quAggrCount:
      return "Count";
    case quAggrSum:
      return "Sum";
    case quAggrAvg:
      return "Average";
    case quAggrMin:
      return "Min";
    case quAggrMax:
      return "Max";
    case quAggrFirst:
      return "First";
    case quAggrLast:
      return "Last";
    case quAggrCountDistinct:
      return "Distinct count";
  }
  return "";
}

bool Skipped(const Variant& v) { return v.IsNull() || v.IsEmpty(); }

}  // namespace

std::string Grouper::FormatForColumn(int32_t col, const Variant& value) const {
  std::string text;
  if (value.IsObject() || value.IsArray() || value.IsMissing()) return text;
  const model::Column& column = store_.Cols().AtIndex(col);
  uint8_t fmt =
      column.defaultCell ? model::CellObjectAccess::Record(*column.defaultCell).fmtString : 0;
  if (fmt) {
    resources_.formats.Compiled(fmt).AppendTo(value, text);
  } else {
    static const fmt::CompiledFormat kPlain;
    kPlain.AppendTo(value, text);
  }
  return text;
}

std::string Grouper::TextOf(const GroupState& g) const {
  std::string text;
  if (props_.Bool(model::Prop::PrefixGroupValues))
    text = store_.Cols().AtIndex(GroupedBy()[g.level].col).headerText + ": ";
  return text + g.valueText + " (" + std::to_string(g.dataRows) + ")";
}

// ---- Texts and results ---------------------------------------------------------------------

void Grouper::RefreshChain(int32_t group) {
  for (int32_t g = group; g >= 0; g = groups_[static_cast<size_t>(g)].parent)
    if (groups_[static_cast<size_t>(g)].alive) RefreshText(g);
  site_.RequestRedraw();
}

// The group row shows its text and then each aggregate, in its row-text cell.
void Grouper::RefreshText(int32_t group) {
  GroupState& g = groups_[static_cast<size_t>(group)];
  std::string line = TextOf(g);
  const std::vector<AggrItem>& items = Items();
  for (size_t i = 0; i < items.size(); ++i) {
    line += ", ";
    line += FuncName(items[i].func);
    line += " of " + store_.Cols().AtIndex(items[i].col).headerText + ": ";
    line += ResultText(group, i);
  }
  int32_t textCol = store_.Cols().RowTextCol();
  model::Cell& cell = store_.Cells().Mutable(textCol, g.phys);
  cell.value = Variant(std::move(line));
  store_.Cells().Column(textCol).NoteRefs(cell);
}

int32_t Grouper::GroupRowOf(const GroupState& g) const {
  return g.alive ? store_.Rows().RowOfPhys(g.phys) : 0;
}

Variant Grouper::FirstOrLast(const GroupState& g, int32_t col, bool last) const {
  int32_t row = GroupRowOf(g);
  if (row == 0) return Variant::Null();
  int32_t end = store_.LastNested(row);
  for (int32_t i = 0; i < end - row; ++i) {
    int32_t r = last ? end - i : row + 1 + i;
    if (store_.Rows().At(r).GroupRow()) continue;
    const Variant& v = store_.CellAt(r, col).value;
    if (!Skipped(v)) return v;
  }
  return Variant::Null();
}

// A minimum or maximum that left its group is found again among the group's rows.
void Grouper::Rescan(GroupState& g, size_t item) {
  Accumulator& acc = g.aggr[item];
  acc.Reset();
  int32_t row = GroupRowOf(g);
  if (row == 0) return;
  int32_t end = store_.LastNested(row);
  int32_t col = Items()[item].col;
  for (int32_t r = row + 1; r <= end; ++r)
    if (GroupIdOfRow(r) < 0) acc.Add(store_.CellAt(r, col).value);
}

Variant Grouper::Result(int32_t group, size_t item) {
  GroupState& g = groups_[static_cast<size_t>(group)];
  const AggrItem& aggregate = Items()[item];
  if (!Accumulator::Keeps(aggregate.func))
    return FirstOrLast(g, aggregate.col, aggregate.func == quAggrLast);
  if (g.aggr[item].Stale()) Rescan(g, item);
  return g.aggr[item].Result();
}

std::string Grouper::ResultText(int32_t group, size_t item) {
  const AggrItem& aggregate = Items()[item];
  Variant value;
  try {
    value = Result(group, item);
  } catch (const Error&) {
    return "#Error";
  }
  if (value.IsNull()) return std::string();
  if (!aggregate.fmt.empty()) return Format(value, aggregate.fmt);
  if (aggregate.func == quAggrCount || aggregate.func == quAggrCountDistinct) return CStr(value);
  return FormatForColumn(aggregate.col, value);
}

// ---- Queries -------------------------------------------------------------------------------

int32_t Grouper::GroupCol(int32_t row) const {
  return GroupedBy()[groups_[static_cast<size_t>(CheckedGroupId(row))].level].col;
}

Variant Grouper::GroupValue(int32_t row) const {
  return groups_[static_cast<size_t>(CheckedGroupId(row))].value;
}

int32_t Grouper::GroupDataRowCount(int32_t row) const {
  return groups_[static_cast<size_t>(CheckedGroupId(row))].dataRows;
}

std::string Grouper::GroupText(int32_t row) const {
  return TextOf(groups_[static_cast<size_t>(CheckedGroupId(row))]);
}

Variant Grouper::AggrValue(int32_t row, int32_t lIndex) {
  int32_t id = CheckedGroupId(row);
  if (lIndex < 1 || lIndex > aggrFuncs_.Count()) throw Error::FromCode(quErrInvalidArgument);
  return Result(id, static_cast<size_t>(lIndex - 1));
}

std::string Grouper::AggrText(int32_t row, int32_t lIndex) {
  int32_t id = CheckedGroupId(row);
  if (lIndex < 1 || lIndex > aggrFuncs_.Count()) throw Error::FromCode(quErrInvalidArgument);
  return ResultText(id, static_cast<size_t>(lIndex - 1));
}

}  // namespace quilta::ops
