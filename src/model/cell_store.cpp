#include "model/cell_store.hpp"

#include <algorithm>
#include <cstdlib>
#include <new>
#include <utility>

namespace quilta::model {
namespace {

// Cells hold a Variant, which is trivially relocatable (its shared storage is a plain pointer),
// so buffers are moved with realloc; on Linux large blocks are remapped, not copied.
Cell* Reallocate(Cell* data, int32_t capacity) {
  void* mem = std::realloc(static_cast<void*>(data), static_cast<size_t>(capacity) * sizeof(Cell));
  if (!mem) throw std::bad_alloc();
  return static_cast<Cell*>(mem);
}

}  // namespace

CellColumn::CellColumn(CellColumn&& other) noexcept
    : data_(std::exchange(other.data_, nullptr)),
      constructed_(std::exchange(other.constructed_, 0)),
      uniform_(std::move(other.uniform_)),
      mayHoldRefs_(other.mayHoldRefs_) {}

CellColumn& CellColumn::operator=(CellColumn&& other) noexcept {
  if (this != &other) {
    ReleaseBuffer();
    data_ = std::exchange(other.data_, nullptr);
    constructed_ = std::exchange(other.constructed_, 0);
    uniform_ = std::move(other.uniform_);
    mayHoldRefs_ = other.mayHoldRefs_;
  }
  return *this;
}

void CellColumn::ReleaseBuffer() {
  if (!data_) return;
  if (mayHoldRefs_) {
    for (int32_t i = 0; i < constructed_; ++i) data_[i].~Cell();
  }
  std::free(static_cast<void*>(data_));
  data_ = nullptr;
  constructed_ = 0;
}

void CellColumn::ConstructThrough(int32_t phys, int32_t liveRows, int32_t capacity) {
  if (!data_) data_ = Reallocate(nullptr, std::max(capacity, 1));
  ConstructUniformUpTo(std::min(liveRows, std::max(phys, constructed_ + kConstructAhead)));
}

void CellColumn::ConstructUniformUpTo(int32_t count) {
  for (int32_t i = constructed_; i < count; ++i) new (&data_[i]) Cell(uniform_);
  constructed_ = std::max(constructed_, count);
}

void CellColumn::Grow(int32_t newCapacity) {
  if (data_) data_ = Reallocate(data_, newCapacity);
}

void CellColumn::ConstructRows(int32_t first, int32_t count, const Cell& tmpl, int32_t liveRows,
                               int32_t capacity) {
  if (liveRows == 0 && !data_) {  // nothing constructed yet: adopt the template
    uniform_ = tmpl;
    NoteRefs(tmpl);  // copies of a text template hold references the buffer must release
  }
  // Appended rows equal to the template need no record of their own: they lie past the prefix.
  if (tmpl == uniform_) return;
  if (!data_) data_ = Reallocate(nullptr, std::max(capacity, 1));
  ConstructUniformUpTo(first - 1);
  NoteRefs(tmpl);
  for (int32_t i = first - 1; i < first - 1 + count; ++i) new (&data_[i]) Cell(tmpl);
  constructed_ = first - 1 + count;
}

void CellColumn::ResetRow(int32_t phys, const Cell& tmpl, int32_t liveRows, int32_t capacity) {
  if (IsTemplate(phys) && tmpl == uniform_) return;
  NoteRefs(tmpl);
  Mutable(phys, liveRows, capacity) = tmpl;
}

void CellColumn::ReleaseRow(int32_t phys) {
  if (mayHoldRefs_ && !IsTemplate(phys)) data_[phys - 1].value = Variant();
}

void CellColumn::Reset(const Cell& uniform) {
  ReleaseBuffer();
  uniform_ = uniform;
  mayHoldRefs_ = false;
  NoteRefs(uniform);
}

int32_t CellStore::BufferedColumns() const {
  return static_cast<int32_t>(std::count_if(cols_.begin(), cols_.end(),
                                            [](const CellColumn& c) { return !c.IsUniform(); }));
}

void CellStore::Reserve(int32_t n) {
  if (n <= capacity_) return;
  int64_t grown = std::max<int64_t>({n, static_cast<int64_t>(capacity_) * 3 / 2, 64});
  int32_t newCapacity = static_cast<int32_t>(std::min<int64_t>(grown, INT32_MAX));
  for (CellColumn& c : cols_) c.Grow(newCapacity);
  capacity_ = newCapacity;
}

void CellStore::AppendRows(int32_t count, const std::vector<const Cell*>& templates) {
  Reserve(liveRows_ + count);
  for (size_t c = 0; c < cols_.size(); ++c)
    cols_[c].ConstructRows(liveRows_ + 1, count, *templates[c], liveRows_, capacity_);
  liveRows_ += count;
}

void CellStore::ReuseRow(int32_t phys, const std::vector<const Cell*>& templates) {
  for (size_t c = 0; c < cols_.size(); ++c)
    cols_[c].ResetRow(phys, *templates[c], liveRows_, capacity_);
}

void CellStore::ReleaseRow(int32_t phys) {
  for (CellColumn& c : cols_) c.ReleaseRow(phys);
}

void CellStore::InsertColumns(int32_t index, const std::vector<const Cell*>& templates) {
  std::vector<CellColumn> added;
  added.reserve(templates.size());
  for (const Cell* t : templates) added.emplace_back(*t);
  cols_.insert(cols_.begin() + (index - 1), std::make_move_iterator(added.begin()),
               std::make_move_iterator(added.end()));
}

void CellStore::RemoveColumns(int32_t index, int32_t count) {
  cols_.erase(cols_.begin() + (index - 1), cols_.begin() + (index - 1 + count));
}

void CellStore::ClearRows(const std::vector<const Cell*>& templates) {
  for (size_t c = 0; c < cols_.size(); ++c) cols_[c].Reset(*templates[c]);
  liveRows_ = 0;
  capacity_ = 0;
}

size_t CellStore::BytesAllocated() const {
  size_t total = 0;
  for (const CellColumn& c : cols_) total += c.BytesAllocated(capacity_);
  return total;
}

}  // namespace quilta::model
