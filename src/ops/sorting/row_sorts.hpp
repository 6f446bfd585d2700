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

// The same sort on packed entries (key << shift | offset), comparing keys only: it makes exactly
// the moves that ShellSortRows makes on rows with those keys.
void ShellSortPacked(uint64_t* entries, size_t n, unsigned shift);

// Compares the rows at two offsets of the range being arranged: below 0, 0 or above 0.
using OffsetCompare = std::function<int(uint32_t, uint32_t)>;

// Tree sort of the n rows at recs: each row of the first row's level (or less) starts an entry
// that carries the rows nested below it; entries are ordered by a heap sort on their first rows
// (ties keep their order), and with `recursive` the rows nested in each entry are sorted the same
// way first. Returns the new arrangement as offsets; nothing moves meanwhile.
std::vector<uint32_t> TreeSortOrder(const model::RowRecord* recs, uint32_t n, bool recursive,
                                    const OffsetCompare& compare);

// Puts rows first.. into the arrangement: row first + k becomes the row that was at first +
// order[k].
void ApplyArrangement(model::RowStore& rows, int32_t first, const std::vector<uint32_t>& order);

}  // namespace quilta::ops
