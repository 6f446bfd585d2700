// The grid's side of a SortGroupObject: creating the grid's two objects and reading or replacing
// their criteria without going through the checks meant for hosts.
#pragma once

#include <cstdint>
#include <quilta/sort_group_object.hpp>
#include <vector>

namespace quilta::ops {

struct SortGroupAccess {
  using Criterion = SortGroupObject::Item;
  using Criteria = std::vector<Criterion>;

  static SortGroupObject Make(const model::GridStore& grid) { return SortGroupObject(grid); }
  static const Criteria& Items(const SortGroupObject& obj) { return obj.items_; }
  static Criteria& Items(SortGroupObject& obj) { return obj.items_; }

  // Criteria follow their columns when columns are inserted before them.
  static void ColumnsInserted(SortGroupObject& obj, int32_t index, int32_t count) {
    for (Criterion& k : obj.items_)
      if (k.col >= index) k.col += count;
  }
  // Criteria on removed columns go and later ones follow their columns; true if any went.
  static bool ColumnsRemoved(SortGroupObject& obj, int32_t index, int32_t count) {
    const size_t gone = std::erase_if(
        obj.items_, [&](const Criterion& k) { return k.col >= index && k.col < index + count; });
    for (Criterion& k : obj.items_)
      if (k.col >= index + count) k.col -= count;
    return gone > 0;
  }
};

using Criterion = SortGroupAccess::Criterion;
using Criteria = SortGroupAccess::Criteria;

}  // namespace quilta::ops
