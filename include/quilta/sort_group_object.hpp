// SortGroupObject: an ordered, 1-based list of criteria (column index, order, sort type). The grid
// owns two of them for its whole life: SortObject() for sorting and GroupObject() for grouping.
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>
#include <quilta/variant.hpp>
#include <vector>

namespace quilta {

namespace model {
class GridStore;
}
namespace ops {
struct SortGroupAccess;
}

class SortGroupObject {
 public:
  SortGroupObject(const SortGroupObject&) = delete;
  SortGroupObject& operator=(const SortGroupObject&) = delete;

  int32_t ColCount() const;
  // Resizes the list; new entries i get column i, ascending, the general value rule.
  void SetColCount(int32_t lCount);
  int32_t SortCol(int32_t lSortIndex) const;
  void SetSortCol(int32_t lSortIndex, int32_t lCol);
  ESortOrders SortOrder(int32_t lSortIndex) const;
  void SetSortOrder(int32_t lSortIndex, ESortOrders eSortOrder);
  ESortTypes SortType(int32_t lSortIndex) const;
  void SetSortType(int32_t lSortIndex, ESortTypes eSortType);
  void Clear();
  void AddItem(const Variant& vCol, ESortOrders eSortOrder = quSortAsc,
               ESortTypes eSortType = quSortByValueGeneral);
  // Position of the first criterion on the column, or 0.
  int32_t FindCol(const Variant& vCol) const;
  void RemoveItem(int32_t lSortIndex);

 private:
  friend struct ops::SortGroupAccess;
  struct Item {
    int32_t col;
    ESortOrders order;
    ESortTypes type;
  };
  explicit SortGroupObject(const model::GridStore& grid) : grid_(&grid) {}
  const Item& At(int32_t lSortIndex) const;
  Item& At(int32_t lSortIndex);

  const model::GridStore* grid_;  // the owning grid resolves column references
  std::vector<Item> items_;
};

}  // namespace quilta
