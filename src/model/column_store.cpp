#include "model/column_store.hpp"

#include "model/cell_object_access.hpp"
#include "model/text/text.hpp"

namespace quilta::model {

ColumnStore::ColumnStore() {
  Column rowText;
  rowText.index = 1;
  slots_.push_back(std::move(rowText));
}

int32_t ColumnStore::SlotOfIndex(int32_t index) const {
  if (index == RowTextCol()) return RowTextCol();
  for (int32_t p = 1; p <= ColCount(); ++p)
    if (slots_[p - 1].index == index) return p;
  return 0;
}

int32_t ColumnStore::SlotOfKey(std::string_view keyLower) const {
  for (int32_t p = 1; p <= RowTextCol(); ++p)
    if (slots_[p - 1].keyLower == keyLower) return p;
  return 0;
}

int32_t ColumnStore::SlotOfKeyAnyCase(std::string_view key) const {
  if (key.empty()) return 0;
  for (int32_t p = 1; p <= RowTextCol(); ++p)
    if (text::EqualsLowered(slots_[p - 1].keyLower, key)) return p;
  return 0;
}

bool ColumnStore::KeyTaken(std::string_view keyLower, int32_t exceptSlot) const {
  if (keyLower.empty()) return false;
  for (int32_t p = 1; p <= RowTextCol(); ++p)
    if (p != exceptSlot && slots_[p - 1].keyLower == keyLower) return true;
  return false;
}

const std::vector<const Cell*>& ColumnStore::Templates() {
  if (!templatesValid_) {
    templates_.assign(slots_.size(), nullptr);
    for (const Column& c : slots_)
      templates_[c.index - 1] = c.defaultCell ? &CellObjectAccess::Record(*c.defaultCell) : nullptr;
    templatesValid_ = true;
  }
  return templates_;
}

void ColumnStore::Insert(int32_t slot, int32_t firstIndex, std::vector<Column> columns) {
  int32_t count = static_cast<int32_t>(columns.size());
  for (Column& c : slots_)
    if (c.index >= firstIndex) c.index += count;
  slots_.insert(slots_.begin() + (slot - 1), std::make_move_iterator(columns.begin()),
                std::make_move_iterator(columns.end()));
  templatesValid_ = false;
}

std::vector<Column> ColumnStore::RemoveIndexes(int32_t first, int32_t count) {
  std::vector<Column> removed;
  std::vector<Column> kept;
  kept.reserve(slots_.size() - count);
  for (Column& c : slots_) {
    if (c.index >= first && c.index < first + count) {
      removed.push_back(std::move(c));
    } else {
      if (c.index >= first + count) c.index -= count;
      kept.push_back(std::move(c));
    }
  }
  slots_ = std::move(kept);
  templatesValid_ = false;
  return removed;
}

}  // namespace quilta::model
