// Sort keys: one integer per row that orders the rows of a range exactly as the row comparison
// does. Each criterion gives every row the rank of its value among the range's distinct values
// (values that compare equal share a rank; descending criteria reverse the ranks), and the ranks
// of several criteria combine into one key, first criterion most significant. Comparing keys then
// decides every pair as the comparison would, so a sort by keys makes exactly the same moves.
#pragma once

#include <cstdint>
#include <vector>

#include "ops/sorting/sort_plan.hpp"

namespace quilta::ops {

struct RowKeys {
  std::vector<uint64_t> key;  // by offset in the plan's range
  uint64_t bound = 1;         // every key is below it
};

// Fails (returns false) when the host takes part in the comparison, or when the values of a
// criterion do not fall into one consistent order (for example Empty among both numbers and
// strings, objects, or icon indexes far enough apart for their 16-bit difference to wrap).
bool BuildRowKeys(control::Control& c, const SortPlan& plan, RowKeys& out);

// Replaces keys by their ranks among the distinct keys; returns the number of distinct keys.
uint64_t DenseRank(std::vector<uint64_t>& key);

}  // namespace quilta::ops
