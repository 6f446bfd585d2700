// The row sort on packed entries (key << shift | offset), comparing keys only: it makes exactly
// the moves that ShellSortRows makes on rows with those keys, ties included.
#pragma once

#include <cstddef>
#include <cstdint>

namespace quilta::ops {

void ShellSortPacked(uint64_t* entries, size_t n, unsigned shift);

}  // namespace quilta::ops
