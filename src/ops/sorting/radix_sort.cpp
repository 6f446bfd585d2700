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

void RadixSortByHigh32(std::vector<uint64_t>& entries) {
  constexpr unsigned kBits = 11;
  constexpr size_t kBuckets = size_t{1} << kBits;
  const size_t n = entries.size();
  std::array<std::array<uint32_t, kBuckets>, 3> counts{};
  auto digit = [](uint64_t e, unsigned d) { return (e >> (32 + kBits * d)) & (kBuckets - 1); };
  for (uint64_t e : entries)
    for (unsigned d = 0; d < 3; ++d) ++counts[d][digit(e, d)];
  std::vector<uint64_t> buffer(n);
  for (unsigned d = 0; d < 3 && n > 0; ++d) {
    std::array<uint32_t, kBuckets>& count = counts[d];
    if (count[digit(entries[0], d)] == n) continue;
    uint32_t sum = 0;
    for (uint32_t& c : count) sum += std::exchange(c, sum);
    for (uint64_t e : entries) buffer[count[digit(e, d)]++] = e;
    entries.swap(buffer);
  }
}

uint64_t OrderedBits(double d) {
  if (d == 0) d = 0;  // -0 equals 0
  auto bits = std::bit_cast<uint64_t>(d);
  return bits >> 63 ? ~bits : bits | (uint64_t{1} << 63);
}

}  // namespace quilta::ops
