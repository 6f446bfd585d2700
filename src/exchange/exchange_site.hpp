// What data exchange needs from the rest of the control: the screen resolution, the
// consequences of a replaced column table or of bulk cell writes, update suspension and the
// grid-wide sort.
#pragma once

#include <cstdint>

namespace quilta::exchange {

class ExchangeSite {
 public:
  virtual ~ExchangeSite() = default;

  virtual int32_t Dpi() const = 0;
  // An open editor is closed before the column table changes under it.
  virtual void EndEditing() = 0;
  // The column table was replaced: positions, header items and drawing follow.
  virtual void ColumnTableReplaced() = 0;
  // ColSortKey or ColSortOrder changed on some columns.
  virtual void SortMarksChanged() = 0;
  // Sorts the whole grid by SortObject with BeforeContentsSorted and AfterContentsSorted.
  virtual void SortGrid() = 0;
  // Cell values from this row down were written directly: rows are marked for recalculation
  // and the grid redraws once.
  virtual void CellValuesWritten(int32_t firstRow) = 0;
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate() = 0;
};

}  // namespace quilta::exchange
