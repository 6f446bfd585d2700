#include <quilta/error.hpp>
#include <quilta/sort_group_object.hpp>
#include <utility>

#include "model/grid_store.hpp"

namespace quilta {

int32_t SortGroupObject::ColCount() const { return static_cast<int32_t>(items_.size()); }

void SortGroupObject::SetColCount(int32_t lCount) {
  if (lCount < 0) throw Error::FromCode(quErrInvalidArgument);
  if (lCount == 0) {
    std::vector<Item>().swap(items_);
    return;
  }
  size_t old = items_.size();
  items_.resize(static_cast<size_t>(lCount));
  for (size_t i = old; i < items_.size(); ++i)
    items_[i] = Item{static_cast<int32_t>(i + 1), quSortAsc, quSortByValueGeneral};
}

const SortGroupObject::Item& SortGroupObject::At(int32_t lSortIndex) const {
  if (lSortIndex < 1 || lSortIndex > ColCount()) throw Error::FromCode(quErrInvalidArgument);
  return items_[static_cast<size_t>(lSortIndex - 1)];
}

SortGroupObject::Item& SortGroupObject::At(int32_t lSortIndex) {
  return const_cast<Item&>(std::as_const(*this).At(lSortIndex));
}

int32_t SortGroupObject::SortCol(int32_t lSortIndex) const { return At(lSortIndex).col; }
void SortGroupObject::SetSortCol(int32_t lSortIndex, int32_t lCol) { At(lSortIndex).col = lCol; }

ESortOrders SortGroupObject::SortOrder(int32_t lSortIndex) const { return At(lSortIndex).order; }
void SortGroupObject::SetSortOrder(int32_t lSortIndex, ESortOrders eSortOrder) {
  At(lSortIndex).order = eSortOrder;
}

ESortTypes SortGroupObject::SortType(int32_t lSortIndex) const { return At(lSortIndex).type; }
void SortGroupObject::SetSortType(int32_t lSortIndex, ESortTypes eSortType) {
  Item& item = At(lSortIndex);
  if (eSortType == quSortNone) throw Error::FromCode(quErrInvalidArgument);
  item.type = eSortType;
}

void SortGroupObject::Clear() { items_.clear(); }

void SortGroupObject::AddItem(const Variant& vCol, ESortOrders eSortOrder, ESortTypes eSortType) {
  int32_t col = grid_->ResolveColIndex(vCol);
  if (eSortType == quSortNone) throw Error::FromCode(quErrInvalidArgument);
  items_.push_back(Item{col, eSortOrder, eSortType});
}

int32_t SortGroupObject::FindCol(const Variant& vCol) const {
  int32_t col = grid_->ResolveColIndex(vCol);
  for (size_t i = 0; i < items_.size(); ++i)
    if (items_[i].col == col) return static_cast<int32_t>(i + 1);
  return 0;
}

void SortGroupObject::RemoveItem(int32_t lSortIndex) {
  At(lSortIndex);
  items_.erase(items_.begin() + (lSortIndex - 1));
}

}  // namespace quilta
