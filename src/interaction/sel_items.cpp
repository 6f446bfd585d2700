#include "interaction/sel_items.hpp"

#include <algorithm>

namespace quilta::interaction {
namespace {
constexpr uint32_t kInitialEntries = 2048;
constexpr uint32_t kGrowth = 1024;
}  // namespace

void SelItems::Clear() {
  if (count_ <= kCheapClear && entries_.size() > 1) {
    // A small list (the single item of a move) is emptied in place: its entries go back to the
    // free list and only its rows' heads are reset, so emptying costs nothing per grid row.
    for (int32_t b = 0; b < kBuckets; ++b) {
      for (uint32_t e = head_[b]; e;) {
        uint32_t next = entries_[e].next;
        rowHead_[entries_[e].row] = 0;
        entries_[e].next = freeHead_;
        freeHead_ = e;
        e = next;
      }
    }
    head_.fill(0);
    tail_.fill(0);
    count_ = 0;
    maxRow_ = minRow_ = 0;
    maxRowStale_ = minRowStale_ = false;
    return;
  }
  head_.fill(0);
  tail_.fill(0);
  std::vector<Entry>().swap(entries_);
  std::vector<uint32_t>().swap(rowHead_);
  entries_.resize(1);
  freeHead_ = 0;
  count_ = 0;
  maxRow_ = minRow_ = 0;
  maxRowStale_ = minRowStale_ = false;
  Reserve(kInitialEntries);
}

void SelItems::Reserve(int64_t n) {
  int64_t free = 0;
  for (uint32_t e = freeHead_; e && free < n; e = entries_[e].next) ++free;
  if (free >= n) return;
  // New entries go at the end and are chained ascending in front of the old free list.
  uint32_t first = static_cast<uint32_t>(entries_.size());
  uint32_t added = static_cast<uint32_t>(n - free);
  entries_.reserve(entries_.size() + added);
  entries_.resize(entries_.size() + added);
  for (uint32_t e = first; e < first + added - 1; ++e) entries_[e].next = e + 1;
  entries_[first + added - 1].next = freeHead_;
  freeHead_ = first;
}

uint32_t SelItems::TakeFree() {
  if (!freeHead_) {
    // Grow geometrically so that selecting millions of cells one by one stays linear.
    uint32_t size = static_cast<uint32_t>(entries_.size());
    Reserve(std::max(kGrowth, size / 2));
  }
  uint32_t e = freeHead_;
  freeHead_ = entries_[e].next;
  return e;
}

uint32_t& SelItems::RowHead(int32_t row) {
  size_t at = static_cast<size_t>(row);
  if (at >= rowHead_.size()) rowHead_.resize(std::max(at + 1, rowHead_.size() * 3 / 2), 0);
  return rowHead_[at];
}

uint32_t SelItems::Find(int32_t row, int32_t col) const {
  if (row < 0 || static_cast<size_t>(row) >= rowHead_.size()) return 0;
  for (uint32_t e = rowHead_[row]; e; e = entries_[e].nextInRow)
    if (entries_[e].col == col) return e;
  return 0;
}

bool SelItems::Add(int32_t row, int32_t col) {
  if (row < 0 || Find(row, col)) return false;
  uint32_t e = TakeFree();
  int32_t b = Bucket(row, col);
  uint32_t& rowHead = RowHead(row);
  entries_[e] = Entry{row, col, 0, tail_[b], rowHead};
  rowHead = e;
  if (tail_[b]) {
    entries_[tail_[b]].next = e;
  } else {
    head_[b] = e;
  }
  tail_[b] = e;
  if (count_++ == 0) {
    maxRow_ = minRow_ = row;
    maxRowStale_ = minRowStale_ = false;
  } else {
    maxRow_ = std::max(maxRow_, row);
    minRow_ = std::min(minRow_, row);
  }
  return true;
}

bool SelItems::Remove(int32_t row, int32_t col) {
  if (row < 0 || static_cast<size_t>(row) >= rowHead_.size()) return false;
  uint32_t before = 0;
  uint32_t e = rowHead_[row];
  while (e && entries_[e].col != col) before = e, e = entries_[e].nextInRow;
  if (!e) return false;
  Entry& entry = entries_[e];
  (before ? entries_[before].nextInRow : rowHead_[row]) = entry.nextInRow;
  int32_t b = Bucket(row, col);
  (entry.prev ? entries_[entry.prev].next : head_[b]) = entry.next;
  (entry.next ? entries_[entry.next].prev : tail_[b]) = entry.prev;
  entry.next = freeHead_;
  freeHead_ = e;
  --count_;
  if (row == maxRow_ && !rowHead_[row]) maxRowStale_ = true;
  if (row == minRow_ && !rowHead_[row]) minRowStale_ = true;
  return true;
}

// Both walk from the old bound toward the items: over a series of removals each row is passed
// once.
int32_t SelItems::MaxRow() const {
  if (count_ == 0) return 0;
  if (maxRowStale_) {
    while (maxRow_ > 0 && !rowHead_[maxRow_]) --maxRow_;
    maxRowStale_ = false;
  }
  return maxRow_;
}

int32_t SelItems::MinRow() const {
  if (count_ == 0) return 0;
  if (minRowStale_) {
    while (static_cast<size_t>(minRow_) + 1 < rowHead_.size() && !rowHead_[minRow_]) ++minRow_;
    minRowStale_ = false;
  }
  return minRow_;
}

std::vector<SelItem> SelItems::Items() const {
  std::vector<SelItem> items;
  items.reserve(count_);
  ForEach([&](int32_t row, int32_t col) { items.push_back({row, col}); });
  return items;
}

std::vector<SelItem> SelItems::SortedItems() const {
  int32_t minRow = MinRow();
  if (static_cast<int64_t>(MaxRow()) - minRow > 16 * static_cast<int64_t>(count_)) {
    // Few items spread over many rows: sorting them beats walking the rows between.
    std::vector<SelItem> items = Items();
    std::sort(items.begin(), items.end(), [](const SelItem& a, const SelItem& b) {
      return a.row != b.row ? a.row < b.row : a.col < b.col;
    });
    return items;
  }
  std::vector<SelItem> items;
  items.reserve(count_);
  for (size_t row = std::max(minRow, 0);
       row < rowHead_.size() && items.size() < static_cast<size_t>(count_); ++row) {
    size_t first = items.size();
    for (uint32_t e = rowHead_[row]; e; e = entries_[e].nextInRow)
      items.push_back({entries_[e].row, entries_[e].col});
    std::sort(items.begin() + first, items.end(),
              [](const SelItem& a, const SelItem& b) { return a.col < b.col; });
  }
  return items;
}

SelBounds SelItems::Bounds() const {
  SelBounds b;
  ForEach([&](int32_t row, int32_t col) {
    b.minRow = std::min(b.minRow, row);
    b.maxRow = std::max(b.maxRow, row);
    b.minCol = std::min(b.minCol, col);
    b.maxCol = std::max(b.maxCol, col);
  });
  return b;
}

}  // namespace quilta::interaction
