#include "model/row_store.hpp"

#include <algorithm>

namespace quilta::model {

void RowStore::InsertRecords(int32_t before, int32_t count, const RowRecord& fill) {
  rows_.insert(rows_.begin() + (before - 1), static_cast<size_t>(count), fill);
  NotePositionsChanged(before);
}

void RowStore::EraseRecords(int32_t first, int32_t count) {
  rows_.erase(rows_.begin() + (first - 1), rows_.begin() + (first - 1 + count));
  NotePositionsChanged(first);
}

void RowStore::ClearRecords() {
  std::vector<RowRecord>().swap(rows_);
  std::vector<int32_t>().swap(free_);
  freeHead_ = 0;
  physHighWater_ = 0;
  std::vector<int32_t>().swap(rowOfPhys_);
  inverseValidBelow_ = 1;
}

int32_t RowStore::TakeFree() {
  int32_t phys = free_[freeHead_++];
  if (freeHead_ == free_.size()) {
    free_.clear();
    freeHead_ = 0;
  } else if (freeHead_ > 1024 && freeHead_ * 2 > free_.size()) {
    free_.erase(free_.begin(), free_.begin() + static_cast<std::ptrdiff_t>(freeHead_));
    freeHead_ = 0;
  }
  return phys;
}

void RowStore::AddFree(int32_t phys) { free_.push_back(phys); }

void RowStore::SetKey(int32_t phys, std::string_view key) {
  DropKey(phys);
  if (key.empty()) return;
  if (keyOfPhys_.size() < static_cast<size_t>(phys)) keyOfPhys_.resize(phys);
  keyOfPhys_[phys - 1] = Variant(key);
  keyIndex_.Insert(key, phys);
}

void RowStore::DropKey(int32_t phys) {
  if (phys > static_cast<int32_t>(keyOfPhys_.size())) return;
  Variant& stored = keyOfPhys_[phys - 1];
  if (stored.IsEmpty()) return;
  keyIndex_.Erase(stored.StringView());
  stored = Variant();
}

const Variant& RowStore::TagOfPhys(int32_t phys) const {
  static const Variant kEmpty;
  return phys <= static_cast<int32_t>(tagOfPhys_.size()) ? tagOfPhys_[phys - 1] : kEmpty;
}

void RowStore::SetTag(int32_t phys, const Variant& tag) {
  if (tagOfPhys_.size() < static_cast<size_t>(phys)) {
    if (tag.IsEmpty()) return;
    tagOfPhys_.resize(phys);
  }
  tagOfPhys_[phys - 1] = tag;
}

void RowStore::DropTag(int32_t phys) {
  if (phys <= static_cast<int32_t>(tagOfPhys_.size())) tagOfPhys_[phys - 1] = Variant();
}

void RowStore::ClearKeysAndTags() {
  keyIndex_.Clear();
  std::vector<Variant>().swap(keyOfPhys_);
  std::vector<Variant>().swap(tagOfPhys_);
}

int32_t RowStore::RowOfPhys(int32_t phys) {
  if (phys <= static_cast<int32_t>(rowOfPhys_.size())) {
    int32_t row = rowOfPhys_[phys - 1];
    if (row >= 1 && row <= Count() && rows_[row - 1].phys == phys) return row;
  }
  // Rebuild the stale part: rows before the first changed position kept their places.
  if (rowOfPhys_.size() < static_cast<size_t>(physHighWater_)) {
    if (rowOfPhys_.empty()) inverseValidBelow_ = 1;
    rowOfPhys_.resize(physHighWater_, 0);
  }
  for (int32_t row = inverseValidBelow_; row <= Count(); ++row)
    rowOfPhys_[rows_[row - 1].phys - 1] = row;
  inverseValidBelow_ = Count() + 1;
  int32_t row = phys <= static_cast<int32_t>(rowOfPhys_.size()) ? rowOfPhys_[phys - 1] : 0;
  return row >= 1 && row <= Count() && rows_[row - 1].phys == phys ? row : 0;
}

size_t RowStore::BytesAllocated() const {
  return rows_.capacity() * sizeof(RowRecord) + free_.capacity() * sizeof(int32_t) +
         keyOfPhys_.capacity() * sizeof(Variant) + tagOfPhys_.capacity() * sizeof(Variant) +
         keyIndex_.BytesAllocated() + rowOfPhys_.capacity() * sizeof(int32_t);
}

}  // namespace quilta::model
