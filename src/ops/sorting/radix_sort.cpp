#include "ops/sorting/radix_sort.hpp"

#include <algorithm>
#include <array>
#include <bit>
#include <utility>

namespace quilta::ops {

void RadixSort(KeyedEntry* entries, size_t n, std::vector<KeyedEntry>& buffer) {
  std::array<std::array<uint32_t, 256>, 8> counts{};
  for (size_t i = 0; i < n; ++i)
    for (unsigned d = 0; d < 8; ++d) ++counts[d][(entries[i].key >> (8 * d)) & 0xFF];
  if (buffer.size() < n) buffer.resize(n);
  KeyedEntry* from = entries;
  KeyedEntry* to = buffer.data();
  for (unsigned d = 0; d < 8 && n > 0; ++d) {
    std::array<uint32_t, 256>& count = counts[d];
    if (count[(entries[0].key >> (8 * d)) & 0xFF] == n) continue;
    uint32_t sum = 0;
    for (uint32_t& c : count) sum += std::exchange(c, sum);
    for (size_t i = 0; i < n; ++i) to[count[(from[i].key >> (8 * d)) & 0xFF]++] = from[i];
    std::swap(from, to);
  }
  if (from != entries) std::copy(from, from + n, entries);
}

uint64_t OrderedBits(double d) {
  if (d == 0) d = 0;  // -0 equals 0
  auto bits = std::bit_cast<uint64_t>(d);
  return bits >> 63 ? ~bits : bits | (uint64_t{1} << 63);
}

}  // namespace quilta::ops
