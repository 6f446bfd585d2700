// Sizes checked before the grid allocates: a request for more memory than the machine has is
// refused up front with error 523, before anything changes. Left to the allocator, such a request
// is either refused mid-operation or granted on paper and fails later; under the sanitizers the
// refusal itself ends the process.
#pragma once

#include <cstdint>

namespace quilta::model {

// The machine's physical memory in bytes (a very large figure where it cannot be read).
uint64_t PhysicalMemoryBytes();

// Raises 523 when `count` items of `itemBytes` bytes each would not fit in physical memory.
void CheckAllocation(uint64_t count, uint64_t itemBytes);

}  // namespace quilta::model
