// The control facade: sorting.
#include <quilta/quilta.hpp>

#include "control/control.hpp"
#include "ops/sorting/cell_compare.hpp"
#include "ops/sorting/sorter.hpp"

namespace quilta {
namespace {

model::Column& Column(control::Control& c, const Variant& vCol) {
  return c.store.Cols().AtSlot(c.store.ResolveColSlot(vCol));
}

void CheckOrder(int32_t order) {
  if (order != quSortAsc && order != quSortDesc) throw Error::FromCode(quErrInvalidArgument);
}

}  // namespace

SortGroupObject& Quilta::SortObject() { return c_->sortObject; }
const SortGroupObject& Quilta::SortObject() const { return c_->sortObject; }
SortGroupObject& Quilta::GroupObject() { return c_->groupObject; }
const SortGroupObject& Quilta::GroupObject() const { return c_->groupObject; }

void Quilta::Sort(const Variant& vCols, const Variant& vRowStart, const Variant& vRowEnd) {
  ops::Sorter(*c_).Sort(vCols, vRowStart, vRowEnd);
}

void Quilta::DoDefaultSort(const Variant& vCol, int16_t iShift, ESortOrders eSortOrder,
                           const Variant& vRowStart, const Variant& vRowEnd) {
  ops::Sorter(*c_).DoDefaultSort(vCol, iShift, eSortOrder, vRowStart, vRowEnd);
}

void Quilta::SortRowChildNodes(const Variant& vRow) { ops::Sorter(*c_).SortRowChildNodes(vRow); }

ESortTypes Quilta::ColSortType(const Variant& vCol) const { return Column(*c_, vCol).sortType; }

void Quilta::SetColSortType(const Variant& vCol, ESortTypes eSortType) {
  model::Column& column = Column(*c_, vCol);
  if (!ops::ValidSortType(eSortType)) throw Error::FromCode(quErrInvalidArgument);
  column.sortType = eSortType;
}

ESortOrders Quilta::ColSortOrderDefault(const Variant& vCol) const {
  return Column(*c_, vCol).sortOrderDefault;
}

void Quilta::SetColSortOrderDefault(const Variant& vCol, ESortOrders eSortOrder) {
  model::Column& column = Column(*c_, vCol);
  CheckOrder(eSortOrder);
  column.sortOrderDefault = eSortOrder;
}

ESortOrders Quilta::ColSortOrder(const Variant& vCol) const { return Column(*c_, vCol).sortOrder; }

// ColSortOrder and ColSortKey only change what the column's header shows.
void Quilta::SetColSortOrder(const Variant& vCol, ESortOrders eSortOrder) {
  model::Column& column = Column(*c_, vCol);
  CheckOrder(eSortOrder);
  column.sortOrder = eSortOrder;
  c_->SortMarksChanged();
}

int32_t Quilta::ColSortKey(const Variant& vCol) const { return Column(*c_, vCol).sortKey; }

void Quilta::SetColSortKey(const Variant& vCol, int32_t lSortKey) {
  model::Column& column = Column(*c_, vCol);
  if (lSortKey < 0) throw Error::FromCode(quErrInvalidArgument);
  column.sortKey = lSortKey;
  c_->SortMarksChanged();
}

}  // namespace quilta
