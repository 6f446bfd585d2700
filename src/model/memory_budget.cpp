#include "model/memory_budget.hpp"

#include <quilta/error.hpp>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace quilta::model {

uint64_t PhysicalMemoryBytes() {
  static const uint64_t bytes = [] {
#if defined(_SC_PHYS_PAGES) && defined(_SC_PAGESIZE)
    const long pages = sysconf(_SC_PHYS_PAGES);
    const long pageSize = sysconf(_SC_PAGESIZE);
    if (pages > 0 && pageSize > 0)
      return static_cast<uint64_t>(pages) * static_cast<uint64_t>(pageSize);
#endif
    return uint64_t{1} << 50;
  }();
  return bytes;
}

void CheckAllocation(uint64_t count, uint64_t itemBytes) {
  if (itemBytes != 0 && count > PhysicalMemoryBytes() / itemBytes)
    throw Error::FromCode(quErrOutOfMemory);
}

}  // namespace quilta::model
