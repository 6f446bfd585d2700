#include "model/row_key_index.hpp"

#include <functional>

namespace quilta::model {

uint32_t RowKeyIndex::Hash(std::string_view key) {
  uint64_t h = std::hash<std::string_view>{}(key);
  return static_cast<uint32_t>(h ^ (h >> 32));
}

size_t RowKeyIndex::Locate(std::string_view key, uint32_t hash) const {
  size_t mask = slots_.size() - 1;
  for (size_t i = hash & mask;; i = (i + 1) & mask) {
    const Slot& s = slots_[i];
    if (s.phys == 0 || (s.hash == hash && KeyOf(s.phys) == key)) return i;
  }
}

int32_t RowKeyIndex::Find(std::string_view key) const {
  if (count_ == 0) return 0;
  return slots_[Locate(key, Hash(key))].phys;
}

void RowKeyIndex::Insert(std::string_view key, int32_t phys) {
  if (static_cast<size_t>(count_ + 1) * 2 > slots_.size()) Grow();
  uint32_t hash = Hash(key);
  slots_[Locate(key, hash)] = {hash, phys};
  ++count_;
}

void RowKeyIndex::Erase(std::string_view key) {
  if (count_ == 0) return;
  size_t mask = slots_.size() - 1;
  size_t hole = Locate(key, Hash(key));
  if (slots_[hole].phys == 0) return;
  // Backward-shift deletion keeps every probe chain unbroken without tombstones.
  for (size_t i = (hole + 1) & mask; slots_[i].phys != 0; i = (i + 1) & mask) {
    size_t home = slots_[i].hash & mask;
    bool movable = hole <= i ? (home <= hole || home > i) : (home <= hole && home > i);
    if (movable) {
      slots_[hole] = slots_[i];
      hole = i;
    }
  }
  slots_[hole] = {0, 0};
  --count_;
}

void RowKeyIndex::Clear() {
  slots_.clear();
  slots_.shrink_to_fit();
  count_ = 0;
}

void RowKeyIndex::Grow() {
  std::vector<Slot> old = std::move(slots_);
  slots_.assign(old.empty() ? 16 : old.size() * 2, Slot{0, 0});
  size_t mask = slots_.size() - 1;
  for (const Slot& s : old) {
    if (s.phys == 0) continue;
    size_t i = s.hash & mask;
    while (slots_[i].phys != 0) i = (i + 1) & mask;
    slots_[i] = s;
  }
}

}  // namespace quilta::model
