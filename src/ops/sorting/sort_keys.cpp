#include "ops/sorting/sort_keys.hpp"

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <string_view>

#include "control/control.hpp"
#include "model/text/text.hpp"

namespace quilta::ops {
namespace {

using Order = std::vector<uint32_t>;

struct Ranks {
  std::vector<uint32_t> rank;  // by offset
  uint32_t distinct = 0;
};

// Walks the rows in a candidate order and ranks them: a neighbour that compares equal shares the
// rank, a greater one gets the next. Fails when a neighbour compares smaller, i.e. the candidate
// order is not the exact one. For a consistent total order, checking neighbours is enough.
template <class Exact>
bool RankInOrder(const Order& order, Exact exact, Ranks& out) {
  uint32_t next = 0;
  for (size_t i = 0; i < order.size(); ++i) {
    if (i > 0) {
      int c = exact(order[i - 1], order[i]);
      if (c > 0) return false;
      if (c < 0) ++next;
    }
    out.rank[order[i]] = next;
  }
  out.distinct = order.empty() ? 0 : next + 1;
  return true;
}

// ---- Texts -----------------------------------------------------------------------------------

char Fold(char ch, bool fold) { return fold && ch >= 'A' && ch <= 'Z' ? char(ch + 32) : ch; }

uint64_t Prefix(std::string_view s, bool fold) {
  uint64_t p = 0;
  for (size_t i = 0; i < 8; ++i)
    p = (p << 8) | (i < s.size() ? static_cast<unsigned char>(Fold(s[i], fold)) : 0u);
  return p;
}

// Orders texts that share their first eight bytes by the rest.
bool TailLess(std::string_view a, std::string_view b, bool fold) {
  size_t n = std::min(a.size(), b.size());
  for (size_t i = 8; i < n; ++i) {
    auto x = static_cast<unsigned char>(Fold(a[i], fold));
    auto y = static_cast<unsigned char>(Fold(b[i], fold));
    if (x != y) return x < y;
  }
  return a.size() < b.size();
}

// Appends the rows of `offsets` to `order`, sorted by text (by character code, or ignoring case
// with the texts folded to lower case). Sorting by the first eight bytes as one integer settles
// most pairs; only rows sharing those are compared further.
void AppendByText(const std::vector<std::string_view>& texts, const Order& offsets, bool fold,
                  Order& order) {
  std::deque<std::string> folded;  // lower-case copies of texts beyond ASCII
  std::vector<std::string_view> views(offsets.size());
  struct Entry {
    uint64_t prefix;
    uint32_t item;
  };
  std::vector<Entry> entries(offsets.size());
  for (size_t i = 0; i < offsets.size(); ++i) {
    std::string_view s = texts[i];
    if (fold && std::any_of(s.begin(), s.end(), [](char ch) { return ch & 0x80; }))
      s = folded.emplace_back(text::ToLower(s));
    views[i] = s;
    entries[i] = Entry{Prefix(s, fold), static_cast<uint32_t>(i)};
  }
  std::sort(entries.begin(), entries.end(),
            [](const Entry& a, const Entry& b) { return a.prefix < b.prefix; });
  for (size_t i = 0; i < entries.size();) {
    size_t j = i + 1;
    while (j < entries.size() && entries[j].prefix == entries[i].prefix) ++j;
    if (j - i > 1)
      std::sort(entries.begin() + i, entries.begin() + j, [&](const Entry& a, const Entry& b) {
        return TailLess(views[a.item], views[b.item], fold);
      });
    i = j;
  }
  for (const Entry& e : entries) order.push_back(offsets[e.item]);
}

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

bool RankGeneral(control::Control& c, const PlannedCriterion& k, int32_t first, Ranks& out) {
  uint32_t n = static_cast<uint32_t>(out.rank.size());
  std::vector<const Variant*> values(n);
  Order nulls, empties, strings;
  std::vector<std::pair<double, uint32_t>> numbers;
  std::vector<std::string_view> texts;
  int lossy = 0;
  for (uint32_t off = 0; off < n; ++off) {
    const Variant& v = c.store.CellAt(first + static_cast<int32_t>(off), k.col).value;
    values[off] = &v;
    double d = 0;
    if (v.IsNull()) {
      nulls.push_back(off);
    } else if (v.IsEmpty()) {
      empties.push_back(off);
    } else if (v.IsString()) {
      strings.push_back(off);
      texts.push_back(v.StringView());
    } else if (AsNumber(v, d)) {
      lossy |= LossyKind(v.Type());
      numbers.emplace_back(d, off);
    } else {
      return false;  // objects, arrays, errors
    }
  }
  if ((lossy & (lossy - 1)) != 0) return false;
  // Empty compares as 0 with numbers and as "" with strings: fine with either, not with both.
  if (!empties.empty() && !strings.empty() && !numbers.empty()) return false;
  for (uint32_t off : empties) {
    if (strings.empty()) {
      numbers.emplace_back(0.0, off);
    } else {
      strings.push_back(off);
      texts.push_back(std::string_view());
    }
  }
  std::sort(numbers.begin(), numbers.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
  Order order = std::move(nulls);
  order.reserve(n);
  for (const auto& number : numbers) order.push_back(number.second);
  AppendByText(texts, strings, true, order);
  return RankInOrder(
      order, [&](uint32_t a, uint32_t b) { return CompareGeneral(*values[a], *values[b]); }, out);
}

// ---- Texts and fields ------------------------------------------------------------------------

bool RankTexts(const PlannedCriterion& k, Ranks& out) {
  uint32_t n = static_cast<uint32_t>(out.rank.size());
  bool noCase = NoCase(k.type);
  Order order, others;
  std::vector<std::string_view> texts;
  for (uint32_t off = 0; off < n; ++off) {
    if (!k.nulls.empty() && k.nulls[off]) {
      order.push_back(off);
    } else {
      others.push_back(off);
      texts.push_back(k.texts[off]);
    }
  }
  AppendByText(texts, others, noCase, order);
  return RankInOrder(
      order,
      [&](uint32_t a, uint32_t b) {
        if (!k.nulls.empty()) {
          int nulls = CompareNulls(k.nulls[a], k.nulls[b]);
          if (nulls != 2) return nulls;
        }
        return CompareText(k.texts[a], k.texts[b], noCase);
      },
      out);
}

bool RankFields(control::Control& c, const PlannedCriterion& k, int32_t first, Ranks& out) {
  uint32_t n = static_cast<uint32_t>(out.rank.size());
  std::vector<int64_t> fields(n);
  for (uint32_t off = 0; off < n; ++off)
    fields[off] = FieldValue(k.type, c.store.CellAt(first + static_cast<int32_t>(off), k.col));
  auto [low, high] = std::minmax_element(fields.begin(), fields.end());
  if (!FieldsOrderNaturally(k.type, *low, *high)) return false;
  Order order(n);
  for (uint32_t i = 0; i < n; ++i) order[i] = i;
  std::sort(order.begin(), order.end(),
            [&](uint32_t a, uint32_t b) { return fields[a] < fields[b]; });
  return RankInOrder(
      order,
      [&](uint32_t a, uint32_t b) {
        int64_t d = CompareFields(k.type, fields[a], fields[b]);
        return (d > 0) - (d < 0);
      },
      out);
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
  std::vector<std::pair<uint64_t, uint32_t>> sorted(key.size());
  for (size_t i = 0; i < key.size(); ++i) sorted[i] = {key[i], static_cast<uint32_t>(i)};
  std::sort(sorted.begin(), sorted.end());
  uint64_t next = 0;
  for (size_t i = 0; i < sorted.size(); ++i) {
    if (i > 0 && sorted[i].first != sorted[i - 1].first) ++next;
    key[sorted[i].second] = next;
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
