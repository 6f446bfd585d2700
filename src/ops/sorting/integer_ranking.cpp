#include "ops/sorting/integer_ranking.hpp"

#include "ops/sorting/radix_sort.hpp"

namespace quilta::ops {
namespace {

// Spreads up to this many values per row are ranked by distance; the bitmap that tells whether
// all differ then stays at a byte per row.
constexpr uint32_t kSpreadPerRow = 8;

}  // namespace

bool IntegerRanks::Finish() {
  auto n = static_cast<uint32_t>(out_.rank.size());
  if (nulls_.size() == n) {
    Done(1, n == 1);
    return true;
  }
  auto spread = static_cast<uint64_t>(high_ - low_);
  if (spread > UINT32_MAX) return false;
  uint32_t nullRanks = nulls_.empty() ? 0 : 1;
  if (spread < uint64_t{kSpreadPerRow} * n && spread < UINT32_MAX - 1) {
    RankByDistance(nullRanks);
  } else {
    RankBySorting(nullRanks);
  }
  return true;
}

void IntegerRanks::Done(uint64_t bound, bool unique) {
  out_.bound = bound;
  out_.unique = unique;
}

void IntegerRanks::RankByDistance(uint32_t nullRanks) {
  auto base = static_cast<uint32_t>(low_);
  for (uint32_t& r : out_.rank) r = r - base + nullRanks;
  for (uint32_t off : nulls_) out_.rank[off] = 0;
  uint64_t bound = static_cast<uint64_t>(high_ - low_) + 1 + nullRanks;
  Done(bound, nulls_.size() <= 1 && bound >= out_.rank.size() && AllDiffer(nullRanks));
}

bool IntegerRanks::AllDiffer(uint32_t firstValueRank) const {
  std::vector<uint64_t> seen(static_cast<size_t>(high_ - low_) / 64 + 2);
  for (uint32_t r : out_.rank) {
    if (r < firstValueRank) continue;
    uint64_t bit = uint64_t{1} << (r % 64);
    if (seen[r / 64] & bit) return false;
    seen[r / 64] |= bit;
  }
  return true;
}

// Entries hold the distance from the lowest value in the high half and the offset in the low half.
void IntegerRanks::RankBySorting(uint32_t nullRanks) {
  std::vector<uint8_t> isNull(nulls_.empty() ? 0 : out_.rank.size());
  for (uint32_t off : nulls_) isNull[off] = 1, out_.rank[off] = 0;
  auto base = static_cast<uint32_t>(low_);
  std::vector<uint64_t> sorted;
  sorted.reserve(out_.rank.size() - nulls_.size());
  for (uint32_t off = 0; off < out_.rank.size(); ++off)
    if (isNull.empty() || !isNull[off])
      sorted.push_back(uint64_t{out_.rank[off] - base} << 32 | off);
  RadixSortByHigh32(sorted);
  uint32_t next = nullRanks;
  bool repeats = nulls_.size() > 1;
  for (size_t i = 0; i < sorted.size(); ++i) {
    if (i > 0) {
      bool same = sorted[i] >> 32 == sorted[i - 1] >> 32;
      repeats |= same;
      next += same ? 0 : 1;
    }
    out_.rank[static_cast<uint32_t>(sorted[i])] = next;
  }
  Done(uint64_t{next} + 1, !repeats);
}

}  // namespace quilta::ops
