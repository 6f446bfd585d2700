// The list of selected items: a hash set of (row, column) pairs in 1009 buckets hashed by
// Row * Col. Enumeration walks the buckets upward and each chain in insertion order, which is the
// order hosts see in an unsorted GetArray.
//
// The buckets alone would make membership a walk of a chain that grows with the selection (ten
// thousand entries per chain at 10M items), so every entry is also linked into a chain of its row,
// reached through a table indexed by row. Membership and removal walk only the items of one row
// (at most the column count) and chains are doubly linked with a tail per bucket, so add, remove
// and membership cost the same at any selection size. The row table costs 4 bytes per row up to
// the highest selected row.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace quilta::interaction {

struct SelItem {
  int32_t row;
  int32_t col;
  friend bool operator==(const SelItem&, const SelItem&) = default;
};

struct SelBounds {
  int32_t minRow = 2147483647;
  int32_t maxRow = 0;
  int32_t minCol = 2147483647;
  int32_t maxCol = 0;
};

class SelItems {
 public:
  static constexpr int32_t kBuckets = 1009;

  SelItems() { Clear(); }

  int32_t Count() const { return count_; }
  bool Contains(int32_t row, int32_t col) const { return Find(row, col) != 0; }
  // Both return whether the list changed.
  bool Add(int32_t row, int32_t col);
  bool Remove(int32_t row, int32_t col);
  // Back to the empty list; a large list also gives its memory back.
  void Clear();
  // Room for n more items without growing.
  void Reserve(int64_t n);

  // Items in enumeration order (bucket by bucket, each chain in order).
  template <class F>
  void ForEach(F&& f) const {
    for (int32_t b = 0; b < kBuckets; ++b)
      for (uint32_t e = head_[b]; e; e = entries_[e].next) f(entries_[e].row, entries_[e].col);
  }
  // The columns of one row's items (in row mode, 1 for a selected row), most recent first. Walking
  // rows in order this way visits a large selection far faster than the buckets do.
  template <class F>
  void ForEachInRow(int32_t row, F&& f) const {
    if (row < 0 || static_cast<size_t>(row) >= rowHead_.size()) return;
    for (uint32_t e = rowHead_[static_cast<size_t>(row)]; e; e = entries_[e].nextInRow)
      f(entries_[e].col);
  }
  std::vector<SelItem> Items() const;
  // Items in row-then-column order.
  std::vector<SelItem> SortedItems() const;
  SelBounds Bounds() const;

  // The highest and lowest rows holding an item (0 when empty), so that rows added or removed
  // below every item need not visit the list, and sorting walks only the rows in between.
  int32_t MaxRow() const;
  int32_t MinRow() const;

  bool Sorted() const { return sorted_; }
  void SetSorted(bool on) { sorted_ = on; }

 private:
  struct Entry {
    int32_t row;
    int32_t col;
    uint32_t next;  // bucket chain
    uint32_t prev;
    uint32_t nextInRow;
  };
  static constexpr int32_t kCheapClear = 4096;
  static int32_t Bucket(int32_t row, int32_t col) {
    return static_cast<int32_t>(static_cast<uint32_t>(row) * static_cast<uint32_t>(col) %
                                static_cast<uint32_t>(kBuckets));
  }
  uint32_t Find(int32_t row, int32_t col) const;
  uint32_t TakeFree();
  uint32_t& RowHead(int32_t row);

  std::array<uint32_t, kBuckets> head_{};
  std::array<uint32_t, kBuckets> tail_{};
  std::vector<Entry> entries_;     // entry 0 is never used
  uint32_t freeHead_ = 0;          // free entries chained through next
  std::vector<uint32_t> rowHead_;  // first entry of each row's chain, by row
  int32_t count_ = 0;
  // Bounds of the rows holding items: exact unless marked stale by a removal, then brought up
  // to date on the next question.
  mutable int32_t maxRow_ = 0;
  mutable int32_t minRow_ = 0;
  mutable bool maxRowStale_ = false;
  mutable bool minRowStale_ = false;
  bool sorted_ = true;
};

}  // namespace quilta::interaction
