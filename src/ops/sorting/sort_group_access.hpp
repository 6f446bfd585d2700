// The grid's side of a SortGroupObject: creating the grid's two objects and reading or replacing
// their criteria without going through the checks meant for hosts.
#pragma once

#include <quilta/sort_group_object.hpp>
#include <vector>

namespace quilta::ops {

struct SortGroupAccess {
  using Criterion = SortGroupObject::Item;
  using Criteria = std::vector<Criterion>;

  static SortGroupObject Make(const model::GridStore& grid) { return SortGroupObject(grid); }
  static const Criteria& Items(const SortGroupObject& obj) { return obj.items_; }
  static Criteria& Items(SortGroupObject& obj) { return obj.items_; }
};

using Criterion = SortGroupAccess::Criterion;
using Criteria = SortGroupAccess::Criteria;

}  // namespace quilta::ops
