#include "ops/sorting/sort_keys.hpp"

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <string>
#include <string_view>

#include "control/control.hpp"
#include "ops/sorting/integer_ranking.hpp"
#include "ops/sorting/radix_sort.hpp"
#include "ops/sorting/range_cells.hpp"
#include "ops/sorting/text_ranking.hpp"

namespace quilta::ops {
namespace {

using Order = std::vector<uint32_t>;

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
  RangeCells cells(c.store.Rows(), c.store.Cells(), plan.first, plan.Count());
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
