// Ranks of one sort criterion, and the ranking of integer values without comparing them one by
// one: the commonest sorts (whole numbers, colours, icons, flags) need no comparison sort at all.
#pragma once

#include <cstdint>
#include <limits>
#include <vector>

namespace quilta::ops {

// Ranks of one criterion. They need not be dense, only ordered as the comparison orders the rows:
// equal rows share a rank, a smaller row has a smaller rank.
struct Ranks {
  std::vector<uint32_t> rank;  // by offset
  uint64_t bound = 0;          // every rank is below it
  bool unique = false;         // no two rows share a rank

  void SetDense(uint32_t distinct) {
    bound = distinct;
    unique = distinct == rank.size();
  }
};

// Integer values of up to 32 bits ranked without comparing them one by one (Nulls first, at rank
// 0). Within a narrow spread a value's rank is its distance from the lowest, and a bitmap as wide
// as the spread tells whether all differ; a wider spread is radix-sorted into dense ranks.
class IntegerRanks {
 public:
  explicit IntegerRanks(Ranks& out) : out_(out) {}
  void Put(uint32_t off, int64_t v) {
    out_.rank[off] = static_cast<uint32_t>(v);
    low_ = v < low_ ? v : low_;
    high_ = v > high_ ? v : high_;
  }
  void PutNull(uint32_t off) { nulls_.push_back(off); }
  int64_t Low() const { return low_; }
  int64_t High() const { return high_; }
  // Fails, leaving the ranks unfinished, when the values spread beyond 32 bits.
  bool Finish();

 private:
  void Done(uint64_t bound, bool unique);
  void RankByDistance(uint32_t nullRanks);
  bool AllDiffer(uint32_t firstValueRank) const;
  void RankBySorting(uint32_t nullRanks);

  Ranks& out_;
  std::vector<uint32_t> nulls_;
  int64_t low_ = std::numeric_limits<int64_t>::max();
  int64_t high_ = std::numeric_limits<int64_t>::min();
};

}  // namespace quilta::ops
