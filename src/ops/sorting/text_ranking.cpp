#include "ops/sorting/text_ranking.hpp"

#include <algorithm>
#include <cstring>

#include "model/text/text.hpp"
#include "ops/sorting/cell_compare.hpp"
#include "ops/sorting/radix_sort.hpp"

namespace quilta::ops {
namespace {

constexpr uint64_t kBytes(uint8_t b) { return 0x0101010101010101ull * b; }

unsigned char Fold(char ch, bool fold) {
  auto byte = static_cast<unsigned char>(ch);
  return fold && byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte + 32) : byte;
}

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

// Compares what follows the first eight bytes, then the lengths.
int TextRanking::Tail(const Entry& a, const Entry& b) const {
  std::string_view x = Key(a), y = Key(b);
  size_t n = std::min(x.size(), y.size());
  for (size_t i = 8; i < n; ++i) {
    unsigned char p = Fold(x[i], noCase_), q = Fold(y[i], noCase_);
    if (p != q) return p < q ? -1 : 1;
  }
  return (x.size() > y.size()) - (x.size() < y.size());
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

// Sorts entries [begin, end) directly and notes which differ from the entry before.
void TextRanking::SortDirectly(size_t begin, size_t end) {
  auto less = [this](const Entry& a, const Entry& b) { return Tail(a, b) < 0; };
  std::sort(entries_.begin() + begin, entries_.begin() + end, less);
  for (size_t i = begin + 1; i < end; ++i) greater_[i] = Tail(entries_[i - 1], entries_[i]) < 0;
}

// Texts sharing their first 8 * depth bytes, at entries [begin, end): ordered by the next eight
// bytes, then each run sharing those as well by the bytes after, and so on; texts equal up to the
// zero padding differ in length only. Small runs are compared directly. Afterwards every entry
// holds its first eight bytes again, as Neighbours expects.
void TextRanking::SortRun(size_t begin, size_t end, size_t depth) {
  if (depth > 0 && end - begin <= 32) {
    SortDirectly(begin, end);
    return;
  }
  uint64_t shared = entries_[begin].key;
  for (size_t i = begin; depth > 0 && i < end; ++i) entries_[i].key = ChunkAt(entries_[i], depth);
  RadixSort(&entries_[begin], end - begin, buffer_);
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
      SortDirectly(i, j);
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
