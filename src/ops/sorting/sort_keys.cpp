#include "ops/sorting/sort_keys.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string_view>

#include "control/control.hpp"
#include "ops/sorting/radix_sort.hpp"
#include "ops/sorting/text_ranking.hpp"

namespace quilta::ops {
namespace {

using Order = std::vector<uint32_t>;

struct Ranks {
  std::vector<uint32_t> rank;  // by offset
  uint32_t distinct = 0;
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

// Nulls first, then numbers, then strings; Empty joins the numbers as 0, or the strings as "".
bool RankGeneral(control::Control& c, const PlannedCriterion& k, int32_t first, Ranks& out) {
  auto n = static_cast<uint32_t>(out.rank.size());
  auto value = [&](uint32_t off) -> const Variant& {
    return c.store.CellAt(first + static_cast<int32_t>(off), k.col).value;
  };
  Order nulls, empties;
  std::vector<KeyedEntry> numbers;
  TextRanking texts(true, n);
  int lossy = 0;
  for (uint32_t off = 0; off < n; ++off) {
    const Variant& v = value(off);
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
  }
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
  out.distinct = ranks.Distinct();
  return true;
}

// ---- Texts and fields ------------------------------------------------------------------------

bool RankTexts(const PlannedCriterion& k, Ranks& out) {
  auto n = static_cast<uint32_t>(out.rank.size());
  RankWriter ranks(out.rank);
  TextRanking texts(NoCase(k.type), n);
  for (uint32_t off = 0; off < n; ++off) {
    if (!k.nulls.empty() && k.nulls[off]) {
      ranks.Put(off, 0);
    } else {
      texts.Add(k.texts[off], off);
    }
  }
  ranks.NextGroup();
  if (!texts.Rank(ranks)) return false;
  out.distinct = ranks.Distinct();
  return true;
}

bool RankFields(control::Control& c, const PlannedCriterion& k, int32_t first, Ranks& out) {
  auto n = static_cast<uint32_t>(out.rank.size());
  std::vector<KeyedEntry> fields(n);
  int64_t low = std::numeric_limits<int64_t>::max(), high = std::numeric_limits<int64_t>::min();
  for (uint32_t off = 0; off < n; ++off) {
    int64_t v = FieldValue(k.type, c.store.CellAt(first + static_cast<int32_t>(off), k.col));
    low = std::min(low, v), high = std::max(high, v);
    fields[off] = KeyedEntry{OrderedBits(v), off, 0};
  }
  if (!FieldsOrderNaturally(k.type, low, high)) return false;
  RadixSort(fields);
  RankWriter ranks(out.rank);
  for (uint32_t i = 0; i < n; ++i)
    ranks.Put(fields[i].a, i == 0 || fields[i - 1].key != fields[i].key ? -1 : 0);
  out.distinct = ranks.Distinct();
  return true;
}

bool RankCriterion(control::Control& c, const SortPlan& plan, const PlannedCriterion& k,
                   Ranks& out) {
  out.rank.assign(plan.Count(), 0);
  switch (k.kind) {
    case SortKind::None:
      out.distinct = 1;
      return true;
    case SortKind::General:
      return RankGeneral(c, k, plan.first, out);
    case SortKind::ValueText:
    case SortKind::CellText:
      return RankTexts(k, out);
    case SortKind::Icon:
    case SortKind::Field:
      return RankFields(c, k, plan.first, out);
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
  Ranks ranks;
  for (const PlannedCriterion& k : plan.criteria) {
    if (!RankCriterion(c, plan, k, ranks)) return false;
    uint64_t d = ranks.distinct;
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
