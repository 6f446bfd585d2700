#include "ops/sorting/row_sorts.hpp"

#include <algorithm>

namespace quilta::ops {

size_t FirstGap(size_t n) {
  size_t h = 1;
  while (3 * h + 1 < n) h = 3 * h + 1;
  return h;
}

void ShellSortRows(model::RowStore& rows, int32_t first, int32_t last, DirectComparer& compare) {
  if (last - first < 1) return;
  if (last - first == 1) {
    model::RowRecord a = rows.At(first);
    model::RowRecord b = rows.At(last);
    if (compare.Rows(a, first, b, last) > 0) std::swap(rows.At(first), rows.At(last));
    return;
  }
  for (auto h = static_cast<int32_t>(FirstGap(static_cast<size_t>(last - first + 1))); h > 0;
       h = (h - 1) / 3) {
    for (int32_t i = first + h; i <= last; ++i) {
      model::RowRecord taken = rows.At(i);
      int32_t j = i - h;
      for (; j >= first; j -= h) {
        model::RowRecord other = rows.At(j);  // a handler may call back into the grid
        if (compare.Rows(taken, i, other, j) >= 0) break;
        rows.At(j + h) = other;
      }
      rows.At(j + h) = taken;
    }
  }
}

namespace {

struct Entry {
  uint32_t begin;  // index into the arrangement
  uint32_t end;
};

void SortLevel(const model::RowRecord* recs, uint32_t* order, uint32_t n, bool recursive,
               const OffsetCompare& compare) {
  if (n < 2) return;
  uint8_t level = recs[order[0]].level;
  std::vector<Entry> entries;
  for (uint32_t i = 0; i < n;) {
    uint32_t j = i + 1;
    while (j < n && recs[order[j]].level > level) ++j;
    entries.push_back(Entry{i, j});
    i = j;
  }
  if (recursive)
    for (const Entry& e : entries)
      SortLevel(recs, order + e.begin + 1, e.end - e.begin - 1, true, compare);
  if (entries.size() < 2) return;
  auto less = [&](const Entry& a, const Entry& b) {
    int c = compare(order[a.begin], order[b.begin]);
    return c < 0 || (c == 0 && a.begin < b.begin);
  };
  std::make_heap(entries.begin(), entries.end(), less);
  std::sort_heap(entries.begin(), entries.end(), less);
  std::vector<uint32_t> arranged;
  arranged.reserve(n);
  for (const Entry& e : entries) arranged.insert(arranged.end(), order + e.begin, order + e.end);
  std::copy(arranged.begin(), arranged.end(), order);
}

}  // namespace

std::vector<uint32_t> TreeSortOrder(const model::RowRecord* recs, uint32_t n, bool recursive,
                                    const OffsetCompare& compare) {
  std::vector<uint32_t> order(n);
  for (uint32_t i = 0; i < n; ++i) order[i] = i;
  SortLevel(recs, order.data(), n, recursive, compare);
  return order;
}

}  // namespace quilta::ops
