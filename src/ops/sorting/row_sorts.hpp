// The two ways the grid reorders a range of rows: the row sort (a Shell sort) and the tree sort
// (subtrees kept whole, ordered by a heap sort).
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "model/row_store.hpp"
#include "ops/sorting/sort_plan.hpp"

namespace quilta::ops {

// Gaps 1, 4, 13, 40, ... (each 3h + 1); the first is the largest below the row count.
size_t FirstGap(size_t n);

// Row sort of rows first..last in place: for each gap, every row from first + gap on is taken out
// and moved up past the rows, gap apart, that it compares strictly smaller than. Rows that compare
// equal are never moved past each other within a pass, but the sort is not stable. Two rows are
// compared once and swapped when the result is above 0. CustomSort sees, for the row being placed,
// the position it held when its placement began.
void ShellSortRows(model::RowStore& rows, int32_t first, int32_t last, DirectComparer& compare);

// Compares the rows at two offsets of the range being arranged: below 0, 0 or above 0.
using OffsetCompare = std::function<int(uint32_t, uint32_t)>;

// Tree sort of the n rows at recs: each row of the first row's level (or less) starts an entry
// that carries the rows nested below it; entries are ordered by a heap sort on their first rows
// (ties keep their order), and with `recursive` the rows nested in each entry are sorted the same
// way first. Returns the new arrangement as offsets; nothing moves meanwhile.
std::vector<uint32_t> TreeSortOrder(const model::RowRecord* recs, uint32_t n, bool recursive,
                                    const OffsetCompare& compare);

// Puts n rows from first on into a new arrangement: row first + k becomes the row that was at
// first + offsetAt(k).
template <class OffsetAt>
void ApplyArrangement(model::RowStore& rows, int32_t first, size_t n, OffsetAt&& offsetAt) {
  auto begin = rows.Records().begin() + (first - 1);
  std::vector<model::RowRecord> before(begin, begin + static_cast<std::ptrdiff_t>(n));
  for (size_t k = 0; k < n; ++k) begin[static_cast<std::ptrdiff_t>(k)] = before[offsetAt(k)];
}
inline void ApplyArrangement(model::RowStore& rows, int32_t first,
                             const std::vector<uint32_t>& order) {
  ApplyArrangement(rows, first, order.size(), [&](size_t k) { return order[k]; });
}

}  // namespace quilta::ops
