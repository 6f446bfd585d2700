// What grouping asks of the rest of the control.
#pragma once

#include <cstdint>
#include <quilta/variant.hpp>
#include <string>

#include "ops/sorting/sort_group_access.hpp"

namespace quilta::ops {

class GroupingSite {
 public:
  virtual ~GroupingSite() = default;
  // Ends any in-cell edit before rows come and go (raises QuitCustomEdit).
  virtual void EndEditing() = 0;
  // Sorts every row by the criteria, as the sort that grouping runs before it builds group rows.
  virtual void SortForGrouping(const Criteria& criteria) = 0;
  // SortObject changed: the columns' sort marks follow it.
  virtual void SortCriteriaChanged() = 0;
  // CustomGroupValue for quSortByValueCustomGroups criteria.
  virtual void CustomGroupValue(int32_t row, int32_t col, Variant& value, std::string& text) = 0;
  // The displayed text of a cell.
  virtual std::string CellText(int32_t row, int32_t col) = 0;
  // The current row, by physical row (0 for none), kept across a regrouping.
  virtual int32_t CurrentRowPhys() = 0;
  virtual void SetCurrentRowPhys(int32_t phys) = 0;
  // Group rows come or go without the store's row notices: the selection is kept by physical row
  // around it (items of removed group rows are dropped).
  virtual void RememberSelection() = 0;
  virtual void RestoreSelection() = 0;
  // Rows came and went or changed level: every row position is recomputed and the grid redrawn.
  virtual void RowsRelaidOut() = 0;
  virtual void RequestRedraw() = 0;
};

}  // namespace quilta::ops
