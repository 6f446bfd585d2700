// The column array in display order. Slot p (1-based) holds the column shown at position p; the
// last slot always holds the row-text column, whose index is ColCount + 1.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/enums.hpp>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "model/cell.hpp"

namespace quilta {
class CellObject;
}

namespace quilta::model {

struct Column {
  int32_t width = 64;
  int32_t index = 0;
  std::string key;
  std::string keyLower;  // every key comparison uses this copy
  Variant tag;
  std::string headerText;
  int16_t headerIcon = 0;
  bool allowSizing = true;
  EHAlignment headerAlignH = quAlignHLeft;
  EVAlignment headerAlignV = quAlignVTop;
  ETextFormatFlags headerTextFlags = quTextEndEllipsis;
  ESortTypes sortType = quSortByValueGeneral;
  std::shared_ptr<CellObject> defaultCell;  // owns the template copied into new cells
  int32_t minWidth = -1;
  int32_t maxWidth = -1;
  ESortOrders sortOrderDefault = quSortAsc;
  int32_t cached1 = -1;
  int32_t cached2 = -1;
  bool visible = true;
  bool visible2 = true;
  // Sorting state shown in the header.
  ESortOrders sortOrder = quSortAsc;
  int32_t sortKey = 0;
  // Geometry, derived by the column position pass.
  bool headerItem = true;
  int32_t startX = 0;
  int32_t visibleIndex = 0;
  // Where a column filled from a record set takes its values: the base column and table names
  // the record set reported, so a host can write edits back.
  std::string dataField;
  std::string dataTable;
};

class ColumnStore {
 public:
  ColumnStore();

  int32_t ColCount() const { return static_cast<int32_t>(slots_.size()) - 1; }
  int32_t RowTextCol() const { return ColCount() + 1; }
  Column& AtSlot(int32_t slot) { return slots_[slot - 1]; }
  const Column& AtSlot(int32_t slot) const { return slots_[slot - 1]; }
  std::vector<Column>& Slots() { return slots_; }
  const std::vector<Column>& Slots() const { return slots_; }

  // The slot of a column index (1..ColCount+1), or 0.
  int32_t SlotOfIndex(int32_t index) const;
  // The first slot (1..ColCount+1) whose lower-case key equals keyLower, or 0.
  int32_t SlotOfKey(std::string_view keyLower) const;
  // The same for a key in any case. Hosts name columns by key on every cell access, so this
  // makes no lower-case copy of a plain ASCII key.
  int32_t SlotOfKeyAnyCase(std::string_view key) const;
  Column& AtIndex(int32_t index) { return AtSlot(SlotOfIndex(index)); }
  const Column& AtIndex(int32_t index) const { return AtSlot(SlotOfIndex(index)); }
  // Whether another column (other than the one at exceptSlot) has this non-empty key.
  bool KeyTaken(std::string_view keyLower, int32_t exceptSlot) const;
  // Template cells by column index, for filling new rows.
  const std::vector<const Cell*>& Templates();
  void InvalidateTemplates() { templatesValid_ = false; }

  // Inserts records at slot p, renumbering indexes >= firstIndex; returns nothing.
  void Insert(int32_t slot, int32_t firstIndex, std::vector<Column> columns);
  // Removes the columns with indexes first..first+count-1 and renumbers the rest.
  std::vector<Column> RemoveIndexes(int32_t first, int32_t count);

 private:
  std::vector<Column> slots_;
  std::vector<const Cell*> templates_;
  bool templatesValid_ = false;
};

}  // namespace quilta::model
