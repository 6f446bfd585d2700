#include <quilta/aggr_funcs_object.hpp>
#include <quilta/error.hpp>

#include "model/grid_store.hpp"
#include "ops/grouping/aggr_funcs_access.hpp"

namespace quilta {
namespace {

void CheckFunc(int32_t func) {
  if (func < quAggrCount || func > quAggrCountDistinct) throw Error::FromCode(quErrInvalidArgument);
}

}  // namespace

int32_t AggrFuncsObject::Count() const { return static_cast<int32_t>(items_.size()); }

const AggrFuncsObject::Item& AggrFuncsObject::At(int32_t lIndex) const {
  if (lIndex < 1 || lIndex > Count()) throw Error::FromCode(quErrInvalidArgument);
  return items_[static_cast<size_t>(lIndex - 1)];
}

// Aggregates read data cells; the row text column holds the group rows' own texts.
int32_t AggrFuncsObject::ResolveCol(const Variant& vCol) const {
  int32_t col = grid_->ResolveColIndex(vCol);
  if (col > grid_->ColCount()) throw Error::FromCode(quErrSubscriptOutOfRange);
  return col;
}

void AggrFuncsObject::Changed() { listener_->AggrFuncsChanged(); }

int32_t AggrFuncsObject::AddItem(const Variant& vCol, EAggrFuncs eFunc,
                                 std::string_view sFmtString) {
  int32_t col = ResolveCol(vCol);
  CheckFunc(eFunc);
  items_.push_back(Item{col, eFunc, std::string(sFmtString)});
  Changed();
  return Count();
}

void AggrFuncsObject::RemoveItem(int32_t lIndex) {
  At(lIndex);
  items_.erase(items_.begin() + (lIndex - 1));
  Changed();
}

void AggrFuncsObject::Clear() {
  if (items_.empty()) return;
  items_.clear();
  Changed();
}

int32_t AggrFuncsObject::AggrCol(int32_t lIndex) const { return At(lIndex).col; }

void AggrFuncsObject::SetAggrCol(int32_t lIndex, const Variant& vCol) {
  At(lIndex);
  int32_t col = ResolveCol(vCol);
  items_[static_cast<size_t>(lIndex - 1)].col = col;
  Changed();
}

EAggrFuncs AggrFuncsObject::AggrFunc(int32_t lIndex) const { return At(lIndex).func; }

void AggrFuncsObject::SetAggrFunc(int32_t lIndex, EAggrFuncs eFunc) {
  At(lIndex);
  CheckFunc(eFunc);
  items_[static_cast<size_t>(lIndex - 1)].func = eFunc;
  Changed();
}

std::string AggrFuncsObject::AggrFmtString(int32_t lIndex) const { return At(lIndex).fmt; }

void AggrFuncsObject::SetAggrFmtString(int32_t lIndex, std::string_view sFmtString) {
  At(lIndex);
  items_[static_cast<size_t>(lIndex - 1)].fmt = std::string(sFmtString);
  Changed();
}

}  // namespace quilta
