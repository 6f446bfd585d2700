// The row-key index: finds the row that holds a key (binary, case-sensitive) in constant time.
// It maps keys to physical rows, which never change while a row exists, so inserting, removing
// and sorting rows never renumber it.
#pragma once

#include <cstdint>
#include <quilta/variant.hpp>
#include <string_view>
#include <vector>

namespace quilta::model {

class RowKeyIndex {
 public:
  // keyOfPhys[phys - 1] holds the key of each physical row (a String variant, or Empty).
  explicit RowKeyIndex(const std::vector<Variant>& keyOfPhys) : keys_(keyOfPhys) {}

  int32_t Count() const { return count_; }
  // The physical row holding the key, or 0.
  int32_t Find(std::string_view key) const;
  // Adds a key that is not in the index yet (its text must already be stored for phys).
  void Insert(std::string_view key, int32_t phys);
  void Erase(std::string_view key);
  void Clear();
  size_t BytesAllocated() const { return slots_.capacity() * sizeof(Slot); }

 private:
  struct Slot {
    uint32_t hash;
    int32_t phys;  // 0 = empty
  };
  static uint32_t Hash(std::string_view key);
  std::string_view KeyOf(int32_t phys) const { return keys_[phys - 1].StringView(); }
  size_t Locate(std::string_view key, uint32_t hash) const;  // slot holding it, or the empty one
  void Grow();

  const std::vector<Variant>& keys_;
  std::vector<Slot> slots_;  // open addressing, linear probing, power-of-two size
  int32_t count_ = 0;
};

}  // namespace quilta::model
