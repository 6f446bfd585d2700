// The grid's side of its AggrFuncsObject: creating it and reading its items.
#pragma once

#include <quilta/aggr_funcs_object.hpp>
#include <vector>

namespace quilta::ops {

// Told after every change of the list, so that the results shown follow it.
class AggrFuncsListener {
 public:
  virtual ~AggrFuncsListener() = default;
  virtual void AggrFuncsChanged() = 0;
};

struct AggrFuncsAccess {
  using Item = AggrFuncsObject::Item;
  static AggrFuncsObject Make(const model::GridStore& grid, AggrFuncsListener& listener) {
    return AggrFuncsObject(grid, listener);
  }
  static const std::vector<Item>& Items(const AggrFuncsObject& obj) { return obj.items_; }
  static std::vector<Item>& Items(AggrFuncsObject& obj) { return obj.items_; }
};

using AggrItem = AggrFuncsAccess::Item;

}  // namespace quilta::ops
