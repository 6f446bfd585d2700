// A sort's criteria as it runs them, and the comparison of two rows that follows the rules exactly,
// raising the host's events.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/row_store.hpp"
#include "ops/sorting/cell_compare.hpp"
#include "ops/sorting/sort_group_access.hpp"

namespace quilta::control {
struct Control;
}

namespace quilta::ops {

struct PlannedCriterion {
  int32_t col = 0;  // column index; 0 when the criterion names no column of the grid
  int32_t type = quSortNone;
  bool desc = false;
  SortKind kind = SortKind::None;
};

// Rows first..last (1-based, first <= last) sorted by a snapshot of the criteria. A CustomSort
// handler that shrinks the live list ends later comparisons early; other changes to the list
// made while the sort runs take effect with the next sort.
struct SortPlan {
  int32_t first = 0;
  int32_t last = 0;
  std::vector<PlannedCriterion> criteria;
  const Criteria* live = nullptr;
  bool dynamicIcons = false;  // icon sorts compare what CellDynamicIcons returns

  uint32_t Count() const { return static_cast<uint32_t>(last - first + 1); }
  // Whether comparing rows takes the host's part (events) under these criteria.
  bool RaisesEvents() const;
};

// groupingSort: the sort that grouping runs before it builds group rows, in which custom-group
// columns other than the last group column compare what CustomGroupValue returns.
SortPlan MakePlan(control::Control& c, const Criteria& criteria, int32_t first, int32_t last,
                  bool groupingSort = false);

// The row comparison, raising CustomSort, CustomGroupValue and CellDynamicIcons where the rules
// call for them. Positions are the row indexes at which the comparison is requested.
class DirectComparer {
 public:
  DirectComparer(control::Control& c, const SortPlan& plan);
  int Rows(const model::RowRecord& a, int32_t posA, const model::RowRecord& b, int32_t posB);

 private:
  int Cells(size_t index, const model::RowRecord& a, int32_t posA, const model::RowRecord& b,
            int32_t posB);
  int16_t DynamicIcon(const PlannedCriterion& k, const model::RowRecord& r, int32_t pos);
  Variant GroupValue(const PlannedCriterion& k, const model::RowRecord& r, int32_t pos);
  uint32_t Offset(const model::RowRecord& r) const { return offsetOfPhys_[r.phys]; }
  void CheckRowsKept() const;
  void PrepareTexts();

  // The texts of a text criterion, read once per row before the sort.
  struct Texts {
    std::vector<std::string> text;  // by offset in the range
    std::vector<uint8_t> isNull;    // value-text kinds: whether the row's value is Null
  };

  control::Control& c_;
  const SortPlan& plan_;
  int32_t rowCount_;
  int32_t colCount_;
  std::vector<Texts> texts_;            // by criterion
  std::vector<uint32_t> offsetOfPhys_;  // only when some criterion compares texts
};

}  // namespace quilta::ops
