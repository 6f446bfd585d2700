#include "ops/sorting/sort_keys.hpp"

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <string>
#include <string_view>

#include "control/control.hpp"
#include "ops/sorting/radix_sort.hpp"
#include "ops/sorting/text_ranking.hpp"

namespace quilta::ops {
namespace {

using Order = std::vector<uint32_t>;

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
    low_ = std::min(low_, v);
    high_ = std::max(high_, v);
  }
  void PutNull(uint32_t off) { nulls_.push_back(off); }
  int64_t Low() const { return low_; }
  int64_t High() const { return high_; }
  // Fails, leaving the ranks unfinished, when the values spread beyond 32 bits.
  bool Finish() {
    auto n = static_cast<uint32_t>(out_.rank.size());
    if (nulls_.size() == n) return Done(1, n == 1);
    auto spread = static_cast<uint64_t>(high_ - low_);
    if (spread > UINT32_MAX) return false;
    uint32_t nullRanks = nulls_.empty() ? 0 : 1;
    if (spread < uint64_t{kSpreadPerRow} * n && spread < UINT32_MAX - 1) {
      RankByDistance(nullRanks);
    } else {
      RankBySorting(nullRanks);
    }
    for (uint32_t off : nulls_) out_.rank[off] = 0;
    return true;
  }

 private:
  static constexpr uint32_t kSpreadPerRow = 8;

  bool Done(uint64_t bound, bool unique) {
    out_.bound = bound;
    out_.unique = unique;
    return true;
  }
  void RankByDistance(uint32_t nullRanks) {
    auto base = static_cast<uint32_t>(low_);
    for (uint32_t& r : out_.rank) r = r - base + nullRanks;
    for (uint32_t off : nulls_) out_.rank[off] = 0;
    uint64_t bound = static_cast<uint64_t>(high_ - low_) + 1 + nullRanks;
    Done(bound, nulls_.size() <= 1 && bound >= out_.rank.size() && AllDiffer(nullRanks));
  }
  bool AllDiffer(uint32_t firstValueRank) const {
    std::vector<uint64_t> seen(static_cast<size_t>(high_ - low_) / 64 + 2);
    for (uint32_t r : out_.rank) {
      if (r < firstValueRank) continue;
      uint64_t bit = uint64_t{1} << (r % 64);
      if (seen[r / 64] & bit) return false;
      seen[r / 64] |= bit;
    }
    return true;
  }
  // Distances from the lowest value in the high half, offsets in the low half.
  void RankBySorting(uint32_t nullRanks) {
    std::vector<uint8_t> isNull(nulls_.empty() ? 0 : out_.rank.size());
    for (uint32_t off : nulls_) isNull[off] = 1;
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

  Ranks& out_;
  std::vector<uint32_t> nulls_;
  int64_t low_ = std::numeric_limits<int64_t>::max();
  int64_t high_ = std::numeric_limits<int64_t>::min();
};

// The cells of a range's rows, column by column. When the range is a good part of the grid, the
// cells are visited in physical-row order: after an earlier sort the rows lie scattered over the
// cell store, and reading a column front to back keeps the reads sequential.
class RangeCells {
 public:
  RangeCells(control::Control& c, int32_t first, uint32_t n)
      : rows_(c.store.Rows()), cells_(c.store.Cells()), first_(first), n_(n) {
    const int32_t high = rows_.PhysHighWater();
    if (static_cast<int64_t>(n) * 4 < high) return;
    offsetOfPhys_.assign(static_cast<size_t>(high) + 1, kNone);
    for (uint32_t off = 0; off < n; ++off) offsetOfPhys_[Phys(off)] = off;
  }

  // Calls fn(offset, cell) for each cell of the column; stops early when fn returns false.
  template <class Fn>
  bool ForEach(int32_t col, Fn&& fn) const {
    if (offsetOfPhys_.empty()) {
      for (uint32_t off = 0; off < n_; ++off)
        if (!fn(off, cells_.Get(col, Phys(off)))) return false;
      return true;
    }
    for (size_t phys = 1; phys < offsetOfPhys_.size(); ++phys) {
      uint32_t off = offsetOfPhys_[phys];
      if (off != kNone && !fn(off, cells_.Get(col, static_cast<int32_t>(phys)))) return false;
    }
    return true;
  }

 private:
  static constexpr uint32_t kNone = UINT32_MAX;
  int32_t Phys(uint32_t off) const { return rows_.At(first_ + static_cast<int32_t>(off)).phys; }

  const model::RowStore& rows_;
  const model::CellStore& cells_;
  int32_t first_;
  uint32_t n_;
  std::vector<uint32_t> offsetOfPhys_;
};

// ---- Values by the general rule --------------------------------------------------------------

// Numeric kinds whose mutual comparison rounds one side (Single against Double, Currency against
// Double, 64-bit integers against floating point): two of them in one column give no single order.
int LossyKind(VarType t) {
  switch (t) {
    case vbSingle:
      return 1;
    case vbDouble:
    case vbDate:
      return 2;
    case vbCurrency:
      return 4;
    case vbLongLong:
      return 8;
    default:
      return 0;
  }
}

bool AsNumber(const Variant& v, double& out) {
  switch (v.Type()) {
    case vbEmpty:
      out = 0;
      return true;
    case vbBoolean:
      out = v.BoolValue() ? -1 : 0;
      return true;
    case vbByte:
      out = v.ByteValue();
      return true;
    case vbInteger:
      out = v.IntegerValue();
      return true;
    case vbLong:
      out = v.LongValue();
      return true;
    case vbLongLong:
      out = static_cast<double>(v.LongLongValue());
      return true;
    case vbSingle:
      out = v.SingleValue();
      return !std::isnan(out);
    case vbDouble:
    case vbDate:
      out = v.DoubleValue();
      return !std::isnan(out);
    case vbCurrency:
      out = static_cast<double>(v.CurrencyScaled()) / 10000.0;
      return true;
    default:
      return false;
  }
}

// What the rankers read from: the grid, and the cells of the range's rows.
struct RankSource {
  control::Control& c;
  int32_t first;
  const RangeCells& cells;
};

// Columns of whole numbers, the commonest sort, rank without comparisons. Fails at the first value
// of another kind.
bool RankWholeNumbers(const RankSource& src, int32_t col, Ranks& out) {
  IntegerRanks ranks(out);
  bool whole = src.cells.ForEach(col, [&](uint32_t off, const model::Cell& cell) {
    const Variant& v = cell.value;
    switch (v.Type()) {
      case vbLong:
        ranks.Put(off, v.LongValue());
        return true;
      case vbInteger:
        ranks.Put(off, v.IntegerValue());
        return true;
      case vbByte:
        ranks.Put(off, v.ByteValue());
        return true;
      case vbBoolean:
        ranks.Put(off, v.BoolValue() ? -1 : 0);
        return true;
      case vbEmpty:
        ranks.Put(off, 0);
        return true;
      case vbNull:
        ranks.PutNull(off);
        return true;
      default:
        return false;
    }
  });
  return whole && ranks.Finish();
}

// Nulls first, then numbers, then strings; Empty joins the numbers as 0, or the strings as "".
bool RankGeneral(const RankSource& src, const PlannedCriterion& k, Ranks& out) {
  if (RankWholeNumbers(src, k.col, out)) return true;
  auto n = static_cast<uint32_t>(out.rank.size());
  auto value = [&](uint32_t off) -> const Variant& {
    return src.c.store.CellAt(src.first + static_cast<int32_t>(off), k.col).value;
  };
  Order nulls, empties;
  std::vector<KeyedEntry> numbers;
  numbers.reserve(n);
  TextRanking texts(true, n);
  int lossy = 0;
  bool ordered = src.cells.ForEach(k.col, [&](uint32_t off, const model::Cell& cell) {
    const Variant& v = cell.value;
    double d = 0;
    if (v.IsString()) {
      texts.Add(v.StringView(), off);
    } else if (v.IsNull()) {
      nulls.push_back(off);
    } else if (v.IsEmpty()) {
      empties.push_back(off);
    } else if (AsNumber(v, d)) {
      lossy |= LossyKind(v.Type());
      numbers.push_back(KeyedEntry{OrderedBits(d), off, 0});
    } else {
      return false;  // objects, arrays, errors
    }
    return true;
  });
  if (!ordered) return false;
  if ((lossy & (lossy - 1)) != 0) return false;
  // Empty equals both 0 and "", which differ from each other.
  if (!empties.empty() && texts.Size() > 0 && !numbers.empty()) return false;
  for (uint32_t off : empties) {
    if (texts.Size() > 0) {
      texts.Add(std::string_view(), off);
    } else {
      numbers.push_back(KeyedEntry{OrderedBits(0.0), off, 0});
    }
  }
  RadixSort(numbers);
  RankWriter ranks(out.rank);
  for (uint32_t off : nulls) ranks.Put(off, 0);
  ranks.NextGroup();
  for (size_t i = 0; i < numbers.size(); ++i) {
    // Plain numeric types compare exactly as doubles; the lossy kinds through the rule itself.
    const KeyedEntry& prev = numbers[i == 0 ? 0 : i - 1];
    int cmp = i == 0  ? -1
              : lossy ? CompareGeneral(value(prev.a), value(numbers[i].a))
                      : (prev.key > numbers[i].key) - (prev.key < numbers[i].key);
    if (!ranks.Put(numbers[i].a, cmp)) return false;
  }
  ranks.NextGroup();
  if (!texts.Rank(ranks)) return false;
  out.SetDense(ranks.Distinct());
  return true;
}

// ---- Texts and fields ------------------------------------------------------------------------

// Values as text are read in place from the cells; only values of other kinds are converted, and
// displayed texts are made, into copies.
bool RankTexts(const RankSource& src, const PlannedCriterion& k, Ranks& out) {
  auto n = static_cast<uint32_t>(out.rank.size());
  RankWriter ranks(out.rank);
  TextRanking texts(NoCase(k.type), n);
  std::deque<std::string> made;
  if (k.kind == SortKind::CellText) {
    for (uint32_t off = 0; off < n; ++off)
      texts.Add(made.emplace_back(src.c.CellText(src.first + static_cast<int32_t>(off), k.col)),
                off);
  } else {
    src.cells.ForEach(k.col, [&](uint32_t off, const model::Cell& cell) {
      const Variant& v = cell.value;
      if (v.IsNull()) {
        ranks.Put(off, 0);
      } else if (v.IsString()) {
        texts.Add(v.StringView(), off);
      } else {
        texts.Add(made.emplace_back(CStr(v)), off);
      }
      return true;
    });
  }
  ranks.NextGroup();
  if (!texts.Rank(ranks)) return false;
  out.SetDense(ranks.Distinct());
  return true;
}

bool RankFields(const RankSource& src, const PlannedCriterion& k, Ranks& out) {
  IntegerRanks ranks(out);
  src.cells.ForEach(k.col, [&](uint32_t off, const model::Cell& cell) {
    ranks.Put(off, FieldValue(k.type, cell));
    return true;
  });
  return FieldsOrderNaturally(k.type, ranks.Low(), ranks.High()) && ranks.Finish();
}

bool RankCriterion(const RankSource& src, const PlannedCriterion& k, Ranks& out) {
  switch (k.kind) {
    case SortKind::None:
      out.rank.assign(out.rank.size(), 0);
      out.SetDense(1);
      return true;
    case SortKind::General:
      return RankGeneral(src, k, out);
    case SortKind::ValueText:
    case SortKind::CellText:
      return RankTexts(src, k, out);
    case SortKind::Icon:
    case SortKind::Field:
      return RankFields(src, k, out);
    default:
      return false;
  }
}

}  // namespace

uint64_t DenseRank(std::vector<uint64_t>& key) {
  std::vector<KeyedEntry> sorted(key.size());
  for (size_t i = 0; i < key.size(); ++i)
    sorted[i] = KeyedEntry{key[i], static_cast<uint32_t>(i), 0};
  RadixSort(sorted);
  uint64_t next = 0;
  for (size_t i = 0; i < sorted.size(); ++i) {
    if (i > 0 && sorted[i].key != sorted[i - 1].key) ++next;
    key[sorted[i].a] = next;
  }
  return sorted.empty() ? 0 : next + 1;
}

bool BuildRowKeys(control::Control& c, const SortPlan& plan, RowKeys& out) {
  if (plan.RaisesEvents()) return false;
  out.key.assign(plan.Count(), 0);
  out.bound = 1;
  out.unique = false;
  RangeCells cells(c, plan.first, plan.Count());
  RankSource src{c, plan.first, cells};
  Ranks ranks;
  ranks.rank.resize(plan.Count());
  for (const PlannedCriterion& k : plan.criteria) {
    if (!RankCriterion(src, k, ranks)) return false;
    if (ranks.unique) out.unique = true;
    uint64_t d = ranks.bound;
    if (d <= 1) continue;
    if (out.bound > std::numeric_limits<uint64_t>::max() / d) out.bound = DenseRank(out.key);
    for (size_t off = 0; off < out.key.size(); ++off) {
      uint64_t r = ranks.rank[off];
      out.key[off] = out.key[off] * d + (k.desc ? d - 1 - r : r);
    }
    out.bound *= d;
  }
  return true;
}

}  // namespace quilta::ops
