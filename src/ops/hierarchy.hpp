// The row hierarchy: levels, expansion and visibility as children, expanding and collapsing in
// bulk, and moving rows with their subtrees. The tree lives in the row order and one level per
// row; a row's subtree is the run of rows after it with greater levels.
#pragma once

#include <cstdint>

namespace quilta::control {
struct Control;
}
namespace quilta::model {
class RowStore;
}

namespace quilta::ops {

// Rows of exactly the next level in the row's subtree.
int32_t ChildCount(const model::RowStore& rows, int32_t row);

class Hierarchy {
 public:
  explicit Hierarchy(control::Control& c) : c_(c) {}

  void SetLevel(int32_t row, uint8_t level);
  void SetExpanded(int32_t row, bool expanded);
  void SetVisibleAsChild(int32_t row, bool visible);
  void SetTreeButton(int32_t row, int32_t button);
  // The routine behind CollapseAllChildRows, ExpandAllChildRows, CollapseAllRows, ExpandAllRows.
  void CollapseExpand(int32_t start, bool expand, bool wholeGrid);
  // MoveRow with the references resolved; see the facade for the rules.
  void MoveRows(int32_t row, int32_t target, int32_t count, int32_t mode);

 private:
  // Sets the bit keeping the shown-row totals right.
  void PutVisibleAsChild(int32_t row, bool visible);
  // Shows or hides the row's descendants as expanding or collapsing it does: descendants inside
  // a collapsed child keep their state. Returns the number of rows set.
  int32_t ShowDescendants(int32_t row, bool visible);
  // The last row of the block of `count` siblings starting at row, each with its subtree.
  int32_t BlockEnd(int32_t row, int32_t count) const;
  void FitBlockToParent(int32_t first, int32_t last);

  control::Control& c_;
};

}  // namespace quilta::ops
