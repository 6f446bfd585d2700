// Grouping: the data rows sorted by the group criteria (then the sort criteria), one group row
// inserted above each run of equal group values per grouping level, and the aggregates of
// AggrFuncsObject kept for every group.
//
// The structure lives in the rows, like any tree: a group row of level k is the parent of the
// groups of level k + 1 under it, and the data rows sit one level below the innermost groups
// (their own nesting kept under that). What the rows cannot hold (each group's value, text, row
// count and aggregate states) is kept here per group, found through the group row's physical row,
// which sorting and moving never change. Each data row's innermost group is kept by physical row
// too, so a cell change reaches its groups in O(levels) without walking the rows.
#pragma once

#include <cstdint>
#include <quilta/aggr_funcs_object.hpp>
#include <quilta/sort_group_object.hpp>
#include <string>
#include <vector>

#include "ops/grouping/accumulator.hpp"
#include "ops/grouping/aggr_funcs_access.hpp"
#include "ops/grouping/grouping_site.hpp"

namespace quilta::model {
class GridStore;
class ControlProperties;
class CellResources;
}  // namespace quilta::model

namespace quilta::ops {

class Grouper final : public AggrFuncsListener {
 public:
  Grouper(model::GridStore& store, const model::ControlProperties& props,
          const model::CellResources& resources, SortGroupObject& groupObject,
          SortGroupObject& sortObject, GroupingSite& site);

  AggrFuncsObject& AggrFuncs() { return aggrFuncs_; }
  const AggrFuncsObject& AggrFuncs() const { return aggrFuncs_; }
  // The criteria the grid is currently grouped by; empty when it is not grouped.
  const Criteria& GroupedBy() const { return SortGroupAccess::Items(groupedBy_); }
  const SortGroupObject& GroupedByObject() const { return groupedBy_; }
  bool Grouped() const { return !GroupedBy().empty(); }

  // Groups by GroupObject (an empty one ungroups). A criterion naming no column of the grid
  // fails with 513 before anything changes.
  void Group();
  // What Group checks: every column exists (513) and the levels fit in a byte (524).
  void CheckCriteria(const Criteria& criteria) const;
  void Ungroup();

  // ---- What the stores tell grouping (no-ops while the grid is not grouped)
  bool Watches(int32_t col) const {
    return static_cast<size_t>(col) < watched_.size() && watched_[static_cast<size_t>(col)];
  }
  // A data cell of a watched column changed from `before` to `now`. Changes in bulk pass
  // `refresh` false and call RefreshTexts once at the end.
  void CellValueChanged(int32_t phys, int32_t col, const Variant& before, const Variant& now,
                        bool refresh = true);
  void RowsInserted(int32_t row, int32_t count);
  // Rows row..row+count-1 are about to go; RowsRemoved follows once they are gone.
  void RowsRemoving(int32_t row, int32_t count);
  // Refreshes the groups that lost rows and removes group rows whose last data row went, with
  // their subtree.
  void RowsRemoved();
  void RowsCleared();
  // Every column went with the rows (Clear(True)): no aggregate has a column left.
  void ColumnsCleared();
  // Rows were reordered or changed level: membership is read again from the rows.
  void RowsRearranged();
  void AggrFuncsChanged() override;
  // PrefixGroupValues changed, or cells changed in bulk: every group row's text is made again.
  void RefreshTexts();
  // Column indexes >= index moved up by count: the criteria and aggregates follow their columns.
  void ColumnsInserted(int32_t index, int32_t count);
  // Columns index..index+count-1 are about to go: aggregates of them go too, and a grouping by
  // one of them ends.
  void ColumnsRemoving(int32_t index, int32_t count);
  // The column array and the cells agree again after a change of columns.
  void ColumnsSettled();

  // ---- What drawing, selection, editing and the facade ask about a row
  // Whether the row is one of the group rows grouping made.
  bool IsGroupingRow(int32_t row) const { return GroupIdOfRow(row) >= 0; }
  int32_t GroupCol(int32_t row) const;
  Variant GroupValue(int32_t row) const;
  int32_t GroupDataRowCount(int32_t row) const;
  // The group's own text: "<header>: " when PrefixGroupValues is on, the formatted group value,
  // and the number of data rows: "Country: France (12)".
  std::string GroupText(int32_t row) const;
  // One aggregate of the group (lIndex 1-based in AggrFuncsObject; 514 outside).
  Variant AggrValue(int32_t row, int32_t lIndex);
  std::string AggrText(int32_t row, int32_t lIndex);

 private:
  struct GroupState {
    int32_t phys = 0;     // the group row's physical row
    int32_t parent = -1;  // the enclosing group, -1 at the first level
    uint8_t level = 0;
    bool alive = true;
    Variant value;
    std::string valueText;
    int32_t dataRows = 0;
    std::vector<Accumulator> aggr;  // one per AggrFuncsObject item
  };

  // The group whose group row is `row`, or -1.
  int32_t GroupIdOfRow(int32_t row) const;
  int32_t CheckedGroupId(int32_t row) const;
  const std::vector<AggrItem>& Items() const { return AggrFuncsAccess::Items(aggrFuncs_); }
  Criteria SortCriteriaAfterGroups() const;
  void RemoveGroupRows();
  void RemoveGroupRowsKeepingSelection();
  void BuildGroupRows();
  Variant GroupValueOf(int32_t row, const Criterion& k, std::string& text);
  bool SameGroup(const Criterion& k, const Variant& a, const Variant& b) const;
  std::string FormatForColumn(int32_t col, const Variant& value) const;
  void ShowRowsUnderExpandedParents();
  void Recount();
  void AddValuesInPhysicalOrder();
  void ResetAggregates(GroupState& g) const;
  void CountRowIn(int32_t phys, int32_t group, int sign);
  int32_t InnermostGroupAbove(int32_t row) const;
  void JoinGroupOfNextRow(int32_t row, int32_t count);
  void EnsurePhysCapacity();
  void RebuildWatched();
  std::string TextOf(const GroupState& g) const;
  void RefreshText(int32_t group);
  void RefreshChain(int32_t group);
  // The first and last data rows of a group, in display order.
  int32_t GroupRowOf(const GroupState& g) const;
  Variant FirstOrLast(const GroupState& g, int32_t col, bool last) const;
  void Rescan(GroupState& g, size_t item);
  Variant Result(int32_t group, size_t item);
  std::string ResultText(int32_t group, size_t item);

  model::GridStore& store_;
  const model::ControlProperties& props_;
  const model::CellResources& resources_;
  SortGroupObject& groupObject_;
  SortGroupObject& sortObject_;
  GroupingSite& site_;
  SortGroupObject groupedBy_;
  AggrFuncsObject aggrFuncs_;
  std::vector<GroupState> groups_;
  // By physical row: group + 1 for a group row, its innermost group + 1 for a data row, else 0.
  std::vector<int32_t> groupOfPhys_;
  std::vector<uint8_t> watched_;  // by column index: an aggregate reads the column
  std::vector<int32_t> touched_;  // groups that lost rows, refreshed once the rows are gone
  bool building_ = false;
  bool recountPending_ = false;
};

}  // namespace quilta::ops
