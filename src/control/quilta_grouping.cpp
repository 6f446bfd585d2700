// The control facade: grouping and aggregates.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {

void Quilta::Group(const Variant& vCols) {
  if (!c_->props.Bool(model::Prop::AllowGrouping)) throw Error::FromCode(quErrIllegalOperation);
  if (!vCols.IsMissing()) {
    std::vector<int32_t> cols;
    if (vCols.IsArray()) {
      if (vCols.Dims() != 1) throw Error::FromCode(quErrInvalidArgument);
      for (int32_t i = vCols.LBound(); i <= vCols.UBound(); ++i)
        cols.push_back(c_->store.ResolveColIndex(vCols.At(i)));
    } else {
      cols.push_back(c_->store.ResolveColIndex(vCols));
    }
    ops::Criteria criteria;
    for (int32_t col : cols) {
      if (col > c_->store.ColCount()) throw Error::FromCode(quErrSubscriptOutOfRange);
      const model::Column& column = c_->store.Cols().AtIndex(col);
      ESortTypes type = column.sortType == quSortNone ? quSortByValueGeneral : column.sortType;
      criteria.push_back(ops::Criterion{col, column.sortOrderDefault, type});
    }
    c_->grouping.CheckCriteria(criteria);
    ops::SortGroupAccess::Items(c_->groupObject) = std::move(criteria);
  }
  c_->grouping.Group();
}

void Quilta::Ungroup() { c_->grouping.Ungroup(); }

const SortGroupObject& Quilta::GroupedBy() const { return c_->grouping.GroupedByObject(); }

AggrFuncsObject& Quilta::AggrFuncs() { return c_->grouping.AggrFuncs(); }
const AggrFuncsObject& Quilta::AggrFuncs() const { return c_->grouping.AggrFuncs(); }

bool Quilta::RowIsGroupRow(const Variant& vRow) const {
  return c_->grouping.IsGroupingRow(c_->store.ResolveRow(vRow));
}

int32_t Quilta::GroupRowCol(const Variant& vRow) const {
  return c_->grouping.GroupCol(c_->store.ResolveRow(vRow));
}

Variant Quilta::GroupRowValue(const Variant& vRow) const {
  return c_->grouping.GroupValue(c_->store.ResolveRow(vRow));
}

int32_t Quilta::GroupRowDataCount(const Variant& vRow) const {
  return c_->grouping.GroupDataRowCount(c_->store.ResolveRow(vRow));
}

std::string Quilta::GroupRowText(const Variant& vRow) const {
  return c_->grouping.GroupText(c_->store.ResolveRow(vRow));
}

Variant Quilta::GroupRowAggrValue(const Variant& vRow, int32_t lAggrIndex) const {
  return c_->grouping.AggrValue(c_->store.ResolveRow(vRow), lAggrIndex);
}

std::string Quilta::GroupRowAggrText(const Variant& vRow, int32_t lAggrIndex) const {
  return c_->grouping.AggrText(c_->store.ResolveRow(vRow), lAggrIndex);
}

}  // namespace quilta
