#include "ops/sorting/text_ranking.hpp"

#include <algorithm>
#include <cstring>

#include "model/text/text.hpp"
#include "ops/sorting/cell_compare.hpp"
#include "ops/sorting/radix_sort.hpp"

namespace quilta::ops {
namespace {

constexpr uint64_t kBytes(uint8_t b) { return 0x0101010101010101ull * b; }

// Up to eight bytes from `at`, zero-padded, first byte most significant.
uint64_t Chunk(std::string_view s, size_t at) {
  unsigned char buf[8] = {};
  std::memcpy(buf, s.data() + at, std::min<size_t>(8, s.size() - at));
  uint64_t x = 0;
  for (unsigned char b : buf) x = x << 8 | b;
  return x;
}

// Folds the ASCII capitals among eight bytes (below 0x80) to lower case.
uint64_t FoldChunk(uint64_t x) {
  uint64_t low7 = x & kBytes(0x7F);
  uint64_t atLeastA = low7 + kBytes(0x80 - 'A');
  uint64_t aboveZ = low7 + kBytes(0x80 - 'Z' - 1);
  uint64_t capital = (atLeastA ^ aboveZ) & ~x & kBytes(0x80);
  return x | capital >> 2;
}

}  // namespace

TextRanking::TextRanking(bool noCase, size_t expected) : noCase_(noCase) {
  entries_.reserve(expected);
  key_.reserve(expected);
}

void TextRanking::Add(std::string_view text, uint32_t off) {
  uint64_t high = 0;
  for (size_t at = 0; at < text.size(); at += 8) high |= Chunk(text, at);
  bool beyond = high & kBytes(0x80);
  auto item = static_cast<uint32_t>(key_.size());
  std::string_view key = text;
  if (beyond && noCase_) {
    key = folded_.emplace_back(text::ToLower(text));
    rawBeyondAscii_.emplace_back(item, text);
  }
  key_.push_back(key);
  Entry e{0, item | (beyond ? kBeyondAscii : 0), off};
  e.key = ChunkAt(e, 0);
  entries_.push_back(e);
}

// Eight bytes of the text from 8 * depth on, zero-padded, folded when ignoring case.
uint64_t TextRanking::ChunkAt(const Entry& e, size_t depth) const {
  std::string_view key = Key(e);
  if (key.size() <= 8 * depth) return 0;
  uint64_t chunk = Chunk(key, 8 * depth);
  return noCase_ ? FoldChunk(chunk) : chunk;
}

// The text as given: only texts beyond ASCII were folded into a copy.
std::string_view TextRanking::Raw(const Entry& e) const {
  uint32_t item = e.a & ~kBeyondAscii;
  if (!(e.a & kBeyondAscii)) return key_[item];
  auto it = std::lower_bound(rawBeyondAscii_.begin(), rawBeyondAscii_.end(), item,
                             [](const auto& r, uint32_t i) { return r.first < i; });
  return it->second;
}

// Bytes (folded to lower case for ASCII letters when ignoring case) order ASCII texts as the text
// comparisons do, so the sort already knows how neighbours compare; texts beyond ASCII go through
// the comparison itself.
int TextRanking::Neighbours(size_t i) const {
  const Entry& a = entries_[i - 1];
  const Entry& b = entries_[i];
  if (noCase_ && ((a.a | b.a) & kBeyondAscii)) return CompareText(Raw(a), Raw(b), true);
  return greater_[i] ? -1 : 0;
}

// Texts that share all their bytes up to the zero padding, at entries [begin, end): the shorter
// comes first, and texts of equal length are equal.
void TextRanking::OrderByLength(size_t begin, size_t end) {
  auto shorter = [this](const Entry& a, const Entry& b) { return Key(a).size() < Key(b).size(); };
  std::sort(entries_.begin() + begin, entries_.begin() + end, shorter);
  for (size_t i = begin + 1; i < end; ++i)
    greater_[i] = Key(entries_[i - 1]).size() < Key(entries_[i]).size();
}

// Orders entries [begin, end) by their keys: a radix sort, or for a few entries an insertion sort.
void TextRanking::SortByKey(size_t begin, size_t end) {
  if (end - begin > kFewEntries) {
    RadixSort(&entries_[begin], end - begin, buffer_);
    return;
  }
  for (size_t i = begin + 1; i < end; ++i) {
    Entry taken = entries_[i];
    size_t j = i;
    for (; j > begin && entries_[j - 1].key > taken.key; --j) entries_[j] = entries_[j - 1];
    entries_[j] = taken;
  }
}

// Texts sharing their first 8 * depth bytes, at entries [begin, end): ordered by the next eight
// bytes, then each run sharing those as well by the bytes after, and so on; texts equal up to the
// zero padding differ in length only. Each text is read once per level it takes part in.
// Afterwards every entry holds its first eight bytes again, as Neighbours expects.
void TextRanking::SortRun(size_t begin, size_t end, size_t depth) {
  uint64_t shared = entries_[begin].key;
  for (size_t i = begin; depth > 0 && i < end; ++i) entries_[i].key = ChunkAt(entries_[i], depth);
  SortByKey(begin, end);
  for (size_t i = begin; i < end;) {
    size_t j = i + 1;
    while (j < end && entries_[j].key == entries_[i].key) ++j;
    if (i > begin) greater_[i] = 1;
    bool longer =
        j - i > 1 && std::any_of(entries_.begin() + i, entries_.begin() + j,
                                 [&](const Entry& e) { return Key(e).size() > 8 * (depth + 1); });
    if (longer) {
      SortRun(i, j, depth + 1);
    } else if (j - i > 1) {
      OrderByLength(i, j);
    }
    i = j;
  }
  for (size_t i = begin; depth > 0 && i < end; ++i) entries_[i].key = shared;
}

bool TextRanking::Rank(RankWriter& ranks) {
  greater_.assign(entries_.size(), 0);
  SortRun(0, entries_.size(), 0);
  for (size_t i = 0; i < entries_.size(); ++i) {
    int c = i == 0 ? -1 : Neighbours(i);
    if (!ranks.Put(entries_[i].b, c)) return false;
  }
  return true;
}

}  // namespace quilta::ops
