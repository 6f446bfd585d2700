// A stable radix sort of entries by an unsigned 64-bit key, for the candidate orders of sort keys.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quilta::ops {

struct KeyedEntry {
  uint64_t key;
  uint32_t a;  // whatever the caller carries along (an offset, an item)
  uint32_t b;
};

// Byte by byte from the lowest; bytes that all keys share cost no pass. `buffer` is scratch space.
void RadixSort(KeyedEntry* entries, size_t n, std::vector<KeyedEntry>& buffer);
inline void RadixSort(std::vector<KeyedEntry>& entries) {
  std::vector<KeyedEntry> buffer;
  RadixSort(entries.data(), entries.size(), buffer);
}

// Sorts 64-bit entries by their upper 32 bits (stable), eleven bits a pass; bits that all entries
// share cost no pass.
void RadixSortByHigh32(std::vector<uint64_t>& entries);

// An unsigned key ordered as the doubles are (0 and -0 alike; no NaN).
uint64_t OrderedBits(double d);
// An unsigned key ordered as the signed integers are.
inline uint64_t OrderedBits(int64_t v) { return static_cast<uint64_t>(v) ^ (uint64_t{1} << 63); }

}  // namespace quilta::ops
