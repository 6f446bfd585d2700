// The row sort on packed entries (key << shift | offset), comparing keys only: it makes exactly
// the moves that ShellSortRows makes on rows with those keys, ties included.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quilta::ops {

// Passes with larger gaps step eight entries at a time where the processor allows; with
// `eightLanes` false every pass goes one entry at a time (the same moves, for comparison).
void ShellSortPacked(uint64_t* entries, size_t n, unsigned shift, bool eightLanes = true);

}  // namespace quilta::ops
