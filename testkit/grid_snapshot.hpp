// Everything a host can read back about rows, columns and cells through the object model, in one
// comparable value: taken before a call that fails (which must change nothing) and compared with
// the reference model after every call.
#pragma once

#include <cstdint>
#include <quilta/quilta.hpp>
#include <string>
#include <vector>

namespace quilta::testkit {

struct RowState {
  int32_t id = 0;  // the row's tag: the random tester tags every row it creates with a number
  std::string key;
  uint8_t level = 0;
  bool expanded = true;
  bool visibleAsChild = true;
  bool visible = true;
  int32_t treeButton = 0;
  int32_t height = 0;
  std::vector<Variant> values;  // columns 1..RowTextCol
  std::vector<bool> selected;   // the cells' selected bits, columns 1..RowTextCol
  bool operator==(const RowState&) const = default;
};

struct GridSnapshot {
  std::vector<std::string> colKeys;  // columns 1..ColCount
  std::vector<RowState> rows;
  int32_t curRow = 0;
  int32_t beginUpdateCount = 0;
  bool editing = false;
  bool multiSelect = false;
  bool rowMode = false;
  // Read for the checks of calls whose effect is the grid's own choice; never compared.
  int32_t curCol = 0;
  std::vector<int32_t> colPos;         // ColPos of columns 1..ColCount
  int32_t editRow = 0, editCol = 0;    // the cell being edited, while editing
  std::vector<TSelItemInfo> selItems;  // SelItems.GetArray, in its sorted order
  int32_t selCount = 0;
  bool operator==(const GridSnapshot&) const = default;
};

GridSnapshot TakeSnapshot(const Quilta& grid);
// The first difference between an expected and an actual snapshot, or "" when they are equal.
std::string FirstDifference(const GridSnapshot& expected, const GridSnapshot& actual);
std::string Show(const Variant& v);

}  // namespace quilta::testkit
