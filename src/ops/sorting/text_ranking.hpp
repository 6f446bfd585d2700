// Ranking rows by text, fast: the rows are ordered by their first eight bytes taken as one integer
// (folded to lower case when case is ignored), rows sharing those by the next eight, and so on;
// equal neighbours then share a rank.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "ops/sorting/radix_sort.hpp"

namespace quilta::ops {

// Ranks rows met in ascending order: a row equal to the one before shares its rank.
class RankWriter {
 public:
  explicit RankWriter(std::vector<uint32_t>& rank) : rank_(rank) {}
  // The rows that follow are all greater than those so far.
  void NextGroup() { fresh_ = true; }
  // The next row; `c` is how it compares with the row before in its group. Fails when that row
  // is greater, i.e. the order was not ascending.
  bool Put(uint32_t off, int c) {
    if (c > 0 && !fresh_) return false;
    if (started_ && (fresh_ || c < 0)) ++next_;
    rank_[off] = next_;
    started_ = true;
    fresh_ = false;
    return true;
  }
  uint32_t Distinct() const { return started_ ? next_ + 1 : 0; }

 private:
  std::vector<uint32_t>& rank_;
  uint32_t next_ = 0;
  bool started_ = false;
  bool fresh_ = true;
};

class TextRanking {
 public:
  TextRanking(bool noCase, size_t expected);
  // The text of the row at offset `off`; it must stay valid until Rank.
  void Add(std::string_view text, uint32_t off);
  size_t Size() const { return entries_.size(); }
  bool Rank(RankWriter& ranks);

 private:
  // key: the first eight bytes; a: the item, bit 31 set when the text goes beyond ASCII; b: the
  // row's offset.
  using Entry = KeyedEntry;
  static constexpr uint32_t kBeyondAscii = 0x80000000u;
  int Neighbours(size_t i) const;
  static constexpr size_t kFewEntries = 32;
  void OrderByLength(size_t begin, size_t end);
  void SortByKey(size_t begin, size_t end);
  std::string_view Raw(const Entry& e) const;
  void SortRun(size_t begin, size_t end, size_t depth);
  uint64_t ChunkAt(const Entry& e, size_t depth) const;
  std::string_view Key(const Entry& e) const { return key_[e.a & ~kBeyondAscii]; }

  bool noCase_;
  std::vector<Entry> entries_;
  std::vector<std::string_view> key_;  // by item: what is ordered (a folded copy beyond ASCII)
  std::vector<std::pair<uint32_t, std::string_view>> rawBeyondAscii_;  // by item, as given
  std::deque<std::string> folded_;
  std::vector<Entry> buffer_;     // scratch for the radix sort
  std::vector<uint8_t> greater_;  // by sorted position: above the entry before
};

}  // namespace quilta::ops
