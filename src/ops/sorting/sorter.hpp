// Sorting the grid: Sort, DoDefaultSort (what a header click does) and SortRowChildNodes, built
// on one range sort that keeps the current cell on its data row.
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>
#include <quilta/variant.hpp>

#include "ops/sorting/sort_group_access.hpp"

namespace quilta::control {
struct Control;
}

namespace quilta::ops {

enum class Arrangement : uint8_t {
  Rows,         // the row sort
  Tree,         // the tree sort, nested levels first
  TreeTopLevel  // the tree sort of the range's first level only
};

class Sorter {
 public:
  explicit Sorter(control::Control& c) : c_(c) {}

  void Sort(const Variant& vCols, const Variant& vRowStart, const Variant& vRowEnd);
  void DoDefaultSort(const Variant& vCol, int16_t iShift, int32_t eSortOrder,
                     const Variant& vRowStart, const Variant& vRowEnd);
  void SortRowChildNodes(const Variant& vRow);
  // The range sort over every row by SortObject, with its events, leaving ColSortKey and
  // ColSortOrder as they are (reading a sort layout has set them already).
  void SortAll();
  // A click on a column header: ColHeaderClick, then the default sort unless the host declines.
  void HeaderClicked(int32_t colIndex, int16_t shift);

  // Reorders rows first..last by the criteria, raising no BeforeContentsSorted/After. With
  // `fenced`, group rows stay in place and each run of rows between them is sorted on its own.
  // Grouping sorts through here too, with `groupingSort`.
  void SortRange(int32_t first, int32_t last, const Criteria& criteria, Arrangement how,
                 bool fenced = false, bool groupingSort = false);
  // ColSortKey and ColSortOrder of every column follow SortObject.
  void SyncColumnMarks();

 private:
  int32_t Bound(const Variant& v) const;
  // Sorts rows start..end (0: first, last) after BeforeContentsSorted; returns whether it sorted
  // (an empty grid raises nothing). AfterContentsSorted is the caller's, once the marks are set.
  bool RangeSort(int32_t start, int32_t end);
  void SortAndMark(int32_t start, int32_t end, Criteria previous, const Criteria& grouped);
  int32_t CurrentPhys() const;
  void RestoreCurrent(int32_t phys);

  control::Control& c_;
};

}  // namespace quilta::ops
