// A small, slow and obviously right model of the grid's rows, columns and cell values: plain
// vectors walked from the start for every question. The random tester runs each call on the grid
// and on the model and compares the two.
#pragma once

#include <cstdint>
#include <quilta/quilta.hpp>
#include <string>
#include <vector>

#include "grid_snapshot.hpp"

namespace quilta::testkit {

// Thrown by the model for the object model's error a call must raise; the model is unchanged.
struct ExpectedError {
  int32_t code;
};

// Optional references (vRowBefore, vRowParent, vColBefore) count as given unless Missing or Empty.
bool IsGiven(const Variant& ref);

class ReferenceModel {
 public:
  std::vector<RowState> rows;
  std::vector<std::string> colKeys;
  std::vector<Variant> colDefaults;  // the default cells' values, columns 1..RowTextCol
  int32_t treeCol = 0;
  bool autoTreeButton = false;
  int32_t updateCount = 0;
  int32_t nextId = 1;  // the first id of the next rows made
  // The current cell and an edit in progress follow their rows: kept by row id (0 for none).
  int32_t curId = 0;
  int32_t curCol = 0;
  bool editing = false;
  int32_t editId = 0;
  int32_t editCol = 0;
  bool multiSelect = false;
  bool allowSorting = true;
  bool rowMode = false;

  GridSnapshot Expected() const;
  int32_t RowOfId(int32_t id) const;
  int32_t RowCount() const { return static_cast<int32_t>(rows.size()); }
  int32_t ColCount() const { return static_cast<int32_t>(colKeys.size()); }
  RowState& Row(int32_t r) { return rows[static_cast<size_t>(r) - 1]; }
  const RowState& Row(int32_t r) const { return rows[static_cast<size_t>(r) - 1]; }

  // References resolved as the grid does (513 when they do not resolve).
  int32_t ResolveRow(const Variant& ref) const;
  int32_t ResolveCol(const Variant& ref) const;
  int32_t RowOfKey(const std::string& key) const;

  // The tree, derived from the levels.
  int32_t LastNested(int32_t r) const;
  int32_t ParentOf(int32_t r) const;
  bool HasChildren(int32_t r) const;

  RowState NewRow(int32_t id) const;
  // Inserts count columns at index (1-based), every cell Empty.
  void InsertColumns(int32_t index, int32_t count);
  void EraseColumns(int32_t index, int32_t count);
  void ClearRows() { rows.clear(); }
};

}  // namespace quilta::testkit
