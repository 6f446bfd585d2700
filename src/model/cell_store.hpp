// The two-dimensional cell store, addressed by (column index, physical row). Cells never move:
// rows are reordered by their row records only.
#pragma once

#include <cstdint>
#include <vector>

#include "model/cell.hpp"

namespace quilta::model {

// One column of cells. A column stays "uniform" (every constructed cell equal to one template,
// no memory per row) until a cell of it differs; then it gets a buffer. Even then only a prefix
// of its rows is constructed: rows past it are still equal to the template, and the prefix grows
// a block at a time as cells are written. This keeps the rarely used row-text column free, and a
// column written only in its first rows costs no resident memory for the rest: the pages of its
// buffer past the prefix are never touched.
class CellColumn {
 public:
  explicit CellColumn(const Cell& uniform) : uniform_(uniform) { NoteRefs(uniform); }
  CellColumn(CellColumn&& other) noexcept;
  CellColumn& operator=(CellColumn&& other) noexcept;
  CellColumn(const CellColumn&) = delete;
  CellColumn& operator=(const CellColumn&) = delete;
  ~CellColumn() { ReleaseBuffer(); }

  bool IsUniform() const { return data_ == nullptr; }
  // Whether the cell of this physical row is still the template, with no record of its own.
  bool IsTemplate(int32_t phys) const { return phys > constructed_; }
  const Cell& Get(int32_t phys) const { return phys <= constructed_ ? data_[phys - 1] : uniform_; }
  Cell& Mutable(int32_t phys, int32_t liveRows, int32_t capacity) {
    if (phys > constructed_) ConstructThrough(phys, liveRows, capacity);
    return data_[phys - 1];
  }
  // Notes that a value with shared storage may have been written, so release passes are needed.
  void NoteRefs(const Cell& cell) { mayHoldRefs_ |= cell.value.Type() >= vbString; }
  void Grow(int32_t newCapacity);
  // Constructs the cells of physical rows first..first+count-1 (not yet constructed) as copies.
  void ConstructRows(int32_t first, int32_t count, const Cell& tmpl, int32_t liveRows,
                     int32_t capacity);
  // Overwrites constructed cells (reused physical rows) with a copy of tmpl.
  void ResetRow(int32_t phys, const Cell& tmpl, int32_t liveRows, int32_t capacity);
  // Drops the values of cells whose physical rows were freed, so their text is released.
  void ReleaseRow(int32_t phys);
  // Destroys every cell; the column becomes uniform with the given template.
  void Reset(const Cell& uniform);
  size_t BytesAllocated(int32_t capacity) const {
    return data_ ? static_cast<size_t>(capacity) * sizeof(Cell) : 0;
  }

 private:
  // Rows constructed ahead of the one being written, so that filling a column row by row does
  // not stop to construct at every row.
  static constexpr int32_t kConstructAhead = 256;

  // Constructs the template's copies up to physical row phys, and a block beyond within the live
  // rows; allocates the buffer first if there is none.
  void ConstructThrough(int32_t phys, int32_t liveRows, int32_t capacity);
  void ConstructUniformUpTo(int32_t count);
  void ReleaseBuffer();

  Cell* data_ = nullptr;
  int32_t constructed_ = 0;  // cells data_[0..constructed_) are constructed; the rest are uniform_
  Cell uniform_;
  bool mayHoldRefs_ = false;
};

class CellStore {
 public:
  int32_t ColumnCount() const { return static_cast<int32_t>(cols_.size()); }
  int32_t LiveRows() const { return liveRows_; }
  // Columns whose cells have records of their own (a buffer as long as the capacity).
  int32_t BufferedColumns() const;

  const Cell& Get(int32_t colIndex, int32_t phys) const { return cols_[colIndex - 1].Get(phys); }
  Cell& Mutable(int32_t colIndex, int32_t phys) {
    return cols_[colIndex - 1].Mutable(phys, liveRows_, capacity_);
  }
  CellColumn& Column(int32_t colIndex) { return cols_[colIndex - 1]; }

  // Makes room for physical rows up to n; the buffer grows geometrically so adding rows one at a
  // time costs amortised constant time.
  void Reserve(int32_t n);
  // Physical rows liveRows+1..liveRows+count come into use, each cell a copy of its column's
  // template (templates[c-1] for column index c).
  void AppendRows(int32_t count, const std::vector<const Cell*>& templates);
  // A freed physical row comes back into use.
  void ReuseRow(int32_t phys, const std::vector<const Cell*>& templates);
  void ReleaseRow(int32_t phys);
  // Columns with indexes index..index+templates.size()-1 are inserted, every cell a template copy.
  void InsertColumns(int32_t index, const std::vector<const Cell*>& templates);
  void RemoveColumns(int32_t index, int32_t count);
  // Discards every cell; columns stay (uniform, with the given templates).
  void ClearRows(const std::vector<const Cell*>& templates);
  size_t BytesAllocated() const;

 private:
  std::vector<CellColumn> cols_;
  int32_t liveRows_ = 0;
  int32_t capacity_ = 0;
};

}  // namespace quilta::model
