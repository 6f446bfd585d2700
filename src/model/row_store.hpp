// The row array (records in display order), physical-row bookkeeping, and the per-row keys and
// tags. Row records are small and move on insertion, removal and sorting; everything bulky
// (keys, tags) is kept by physical row and never moves.
#pragma once

#include <cstdint>
#include <quilta/variant.hpp>
#include <string_view>
#include <vector>

#include "model/row_key_index.hpp"

namespace quilta::model {

struct RowRecord {
  int32_t phys;
  int32_t height;
  int32_t normalCellHeight;
  uint8_t flags;
  uint8_t level;
  uint16_t reserved;
  // Geometry, derived by the row position pass.
  int32_t startY;
  int32_t visibleIndex;

  static constexpr uint8_t kTreeButtonMask = 0x03;
  static constexpr uint8_t kVisible = 0x04;
  static constexpr uint8_t kGroupRow = 0x08;
  static constexpr uint8_t kExpanded = 0x10;
  static constexpr uint8_t kVisibleAsChild = 0x20;

  bool Visible() const { return flags & kVisible; }
  bool VisibleAsChild() const { return flags & kVisibleAsChild; }
  bool GroupRow() const { return flags & kGroupRow; }
  bool Expanded() const { return flags & kExpanded; }
  int TreeButton() const { return flags & kTreeButtonMask; }
  void SetTreeButton(int button) {
    flags = static_cast<uint8_t>((flags & ~kTreeButtonMask) | (button & kTreeButtonMask));
  }
  // Shown rows take room: positive height, visible, and not inside a collapsed node.
  bool Shown() const {
    return height > 0 && (flags & (kVisible | kVisibleAsChild)) == (kVisible | kVisibleAsChild);
  }
};
static_assert(sizeof(RowRecord) == 24, "row records stay small: sorting moves them");

class RowStore {
 public:
  RowStore() : keyIndex_(keyOfPhys_) {}
  RowStore(const RowStore&) = delete;
  RowStore& operator=(const RowStore&) = delete;

  int32_t Count() const { return static_cast<int32_t>(rows_.size()); }
  RowRecord& At(int32_t row) { return rows_[row - 1]; }
  const RowRecord& At(int32_t row) const { return rows_[row - 1]; }
  std::vector<RowRecord>& Records() { return rows_; }
  const std::vector<RowRecord>& Records() const { return rows_; }

  // Records from row onward changed position (insertion, removal, sorting, moving).
  void NotePositionsChanged(int32_t row) { inverseValidBelow_ = std::min(inverseValidBelow_, row); }
  void InsertRecords(int32_t before, int32_t count, const RowRecord& fill);
  void EraseRecords(int32_t first, int32_t count);
  void ClearRecords();

  // Free physical rows, reused first, in the order they were freed; then new numbers after the
  // highest one handed out so far.
  int32_t FreeCount() const { return static_cast<int32_t>(free_.size() - freeHead_); }
  // The free physical rows in the order they will be reused (for consistency checks).
  std::vector<int32_t> FreePhysRows() const {
    return {free_.begin() + static_cast<std::ptrdiff_t>(freeHead_), free_.end()};
  }
  int32_t TakeFree();
  void AddFree(int32_t phys);
  int32_t PhysHighWater() const { return physHighWater_; }
  int32_t TakeNewPhys(int32_t count) { return (physHighWater_ += count) - count + 1; }

  // Keys and tags by physical row.
  std::string_view KeyOfPhys(int32_t phys) const {
    return phys <= static_cast<int32_t>(keyOfPhys_.size()) ? keyOfPhys_[phys - 1].StringView()
                                                           : std::string_view();
  }
  // The physical row holding a non-empty key, or 0.
  int32_t FindKey(std::string_view key) const { return key.empty() ? 0 : keyIndex_.Find(key); }
  void SetKey(int32_t phys, std::string_view key);  // caller checked uniqueness
  void DropKey(int32_t phys);
  int32_t KeyCount() const { return keyIndex_.Count(); }
  const Variant& TagOfPhys(int32_t phys) const;
  void SetTag(int32_t phys, const Variant& tag);
  void DropTag(int32_t phys);
  void ClearKeysAndTags();

  // The row that currently holds a physical row.
  int32_t RowOfPhys(int32_t phys);
  size_t BytesAllocated() const;

 private:
  std::vector<RowRecord> rows_;
  std::vector<int32_t> free_;
  size_t freeHead_ = 0;
  int32_t physHighWater_ = 0;
  std::vector<Variant> keyOfPhys_;  // sized on the first key
  std::vector<Variant> tagOfPhys_;  // sized on the first tag
  RowKeyIndex keyIndex_;
  // Inverse of the row array, built on demand and trusted only where it checks out.
  std::vector<int32_t> rowOfPhys_;
  int32_t inverseValidBelow_ = 1;
};

}  // namespace quilta::model
