// The grid model's structure: columns, rows and cells together, with the resolution of row and
// column references and every operation that adds, removes or counts them. Each operation checks
// all of its arguments before it changes anything.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/quilta.hpp>
#include <string>
#include <string_view>

#include "model/cell_store.hpp"
#include "model/column_store.hpp"
#include "model/row_store.hpp"
#include "model/store_listener.hpp"

namespace quilta::model {

class CellResources;
class CellObjectOwner;

struct RowDefaults {
  int32_t height = 18;
  int32_t normalCellHeight = 18;
};

class GridStore {
 public:
  GridStore(StoreListener& listener, std::shared_ptr<CellResources> resources,
            CellObjectOwner* cellObjectOwner);
  ~GridStore();

  ColumnStore& Cols() { return cols_; }
  const ColumnStore& Cols() const { return cols_; }
  RowStore& Rows() { return rows_; }
  const RowStore& Rows() const { return rows_; }
  CellStore& Cells() { return cells_; }
  const CellStore& Cells() const { return cells_; }
  int32_t ColCount() const { return cols_.ColCount(); }
  int32_t RowCount() const { return rows_.Count(); }

  // Reference resolution; both raise 513 when the reference does not resolve.
  int32_t ResolveColSlot(const Variant& vCol) const;
  int32_t ResolveColIndex(const Variant& vCol) const {
    // Column indexes are 1..RowTextCol without gaps: a plain index needs no slot lookup.
    if (vCol.Type() == vbLong && vCol.LongValue() >= 1 && vCol.LongValue() <= cols_.RowTextCol())
      return vCol.LongValue();
    return cols_.AtSlot(ResolveColSlot(vCol)).index;
  }
  int32_t ResolveRow(const Variant& vRow) const;
  // Row of a key (binary comparison), or 0.
  int32_t RowOfKey(std::string_view key) const;
  // The cell of (row, column index).
  const Cell& CellAt(int32_t row, int32_t colIndex) const {
    return cells_.Get(colIndex, rows_.At(row).phys);
  }
  Cell& MutableCell(int32_t row, int32_t colIndex) {
    return cells_.Mutable(colIndex, rows_.At(row).phys);
  }

  std::shared_ptr<CellObject> AddCols(const AddColArgs& args);
  void RemoveCols(const Variant& vCol, int32_t count);
  void SetColCount(int32_t count, std::string_view headerTemplate);
  void SetColKey(int32_t colIndex, std::string_view key);

  int32_t AddRows(const AddRowArgs& args);
  void RemoveRows(const Variant& vRow, int32_t count);
  void SetRowCount(int32_t count);
  void SetRowKey(int32_t row, std::string_view key);
  void Clear(bool removeCols);

  // The last row of a row's subtree (the row itself when nothing is nested in it).
  int32_t LastNested(int32_t row) const;
  int32_t ParentOf(int32_t row) const;
  bool HasChildren(int32_t row) const;
  // A parent whose last child went keeps no visible tree button.
  void HideButtonIfChildless(int32_t parent);

  // Rows inserted at many places in one pass (grouping adds its group rows so). Each new record
  // goes before the row that stood at `before` (RowCount + 1: at the end), `before` ascending;
  // its physical row is assigned and its cells are the column templates. Returns the new rows'
  // physical rows in order. No row notices are sent: the caller restores the current row and
  // lays the rows out again.
  struct NewRow {
    int32_t before;
    RowRecord record;
  };
  std::vector<int32_t> InsertRowsAt(const std::vector<NewRow>& added);
  // Takes out every row whose physical row is marked, in one pass, with no row notices.
  void DropRowsOfPhys(const std::vector<uint8_t>& marked);
  // Counts the shown rows and their height again after flags changed in bulk.
  void RecountShownRows();

  // Virtual mode: asks the host for rows up to `row`; returns whether that row exists now.
  bool EnsureVirtualRows(int32_t row);

  int32_t AllocatedRows() const { return allocatedRows_; }
  int32_t GroupRowCount() const { return groupRowCount_; }
  int32_t MemMngWantFreeRows() const { return wantFreeRows_; }
  void SetMemMngWantFreeRows(int32_t n);
  EStoreInitRowNumbersPlace StoreInitRowNumbers() const { return initRowNumbers_; }
  void SetStoreInitRowNumbers(EStoreInitRowNumbersPlace place);
  bool Virtual() const { return virtual_; }
  void SetVirtual(bool on) { virtual_ = on, moreRows_ = on; }
  bool AutoTreeButton() const { return autoTreeButton_; }
  void SetAutoTreeButton(bool on) { autoTreeButton_ = on; }
  RowDefaults& Defaults() { return defaults_; }
  const RowDefaults& Defaults() const { return defaults_; }

  // Totals over shown rows, kept incrementally for the vertical scroll range.
  int32_t ShownRowCount() const { return shownRows_; }
  int64_t ShownRowsHeight() const { return shownHeight_; }
  // Keeps the totals right around a change of a row's height or visibility flags.
  void BeforeRowShapeChange(int32_t row);
  void AfterRowShapeChange(int32_t row);

  size_t BytesAllocated() const;

 private:
  Column NewColumn(int32_t width, int32_t index) const;
  void EnsureCapacity(int32_t rows);
  void InsertCellColumns(int32_t index, const std::vector<Column>& added);
  void DetachDefaultCells(const std::vector<Column>& removed);
  void AssignPhysRows(int32_t first, int32_t count);
  void ApplyInitRowNumbers(int32_t first, int32_t count, bool firstHasKey);
  void DropRows(int32_t first, int32_t count);
  void CountRows(int32_t first, int32_t count, int sign);
  void ClearRowsKeepingColumns();

  StoreListener& listener_;
  std::shared_ptr<CellResources> resources_;
  CellObjectOwner* cellObjectOwner_;
  ColumnStore cols_;
  RowStore rows_;
  CellStore cells_;
  RowDefaults defaults_;
  int32_t allocatedRows_ = 0;
  int32_t groupRowCount_ = 0;
  int32_t wantFreeRows_ = 100;
  EStoreInitRowNumbersPlace initRowNumbers_ = quStoreInitRowNoNowhere;
  bool virtual_ = false;
  bool moreRows_ = false;
  bool autoTreeButton_ = false;
  int32_t shownRows_ = 0;
  int64_t shownHeight_ = 0;
  bool shapeWasShown_ = false;
  int32_t shapeOldHeight_ = 0;
};

}  // namespace quilta::model
