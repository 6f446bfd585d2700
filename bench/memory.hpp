// Resident memory of this process, for bytes-per-cell figures.
#pragma once

#include <cstdio>
#include <cstring>

namespace quilta::bench {

// Resident set size in bytes (Linux), 0 when unknown.
inline long ResidentBytes() {
  FILE* f = std::fopen("/proc/self/statm", "r");
  if (!f) return 0;
  long pages = 0, resident = 0;
  int n = std::fscanf(f, "%ld %ld", &pages, &resident);
  std::fclose(f);
  return n == 2 ? resident * 4096 : 0;
}

}  // namespace quilta::bench
