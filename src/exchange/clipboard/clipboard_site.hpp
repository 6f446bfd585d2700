// What the clipboard commands and the built-in context menu ask of the control around them.
#pragma once

#include <cstdint>
#include <quilta/combos.hpp>
#include <quilta/enums.hpp>
#include <quilta/events.hpp>
#include <quilta/platform/platform.hpp>
#include <quilta/variant.hpp>
#include <string>

namespace quilta::exchange {

class ClipboardSite {
 public:
  virtual ~ClipboardSite() = default;
  virtual QuiltaEvents* Events() = 0;
  virtual Platform& GetPlatform() = 0;
  // The text the cell shows (formatting and CellDynamicText included).
  virtual std::string CellText(int32_t row, int32_t colIndex) = 0;
  // Closes an in-cell editor before cells change under it.
  virtual void EndEditing() = 0;
  // Suspension of recalculation and drawing; the last EndUpdate recalculates and redraws once.
  virtual void BeginUpdate() = 0;
  virtual void EndUpdate() = 0;
  // Stores a converted value (no redraw of its own while updates are suspended).
  virtual void StoreValue(int32_t row, int32_t colIndex, const Variant& value) = 0;
  // The combo list a cell shows (nullptr when none) and its chosen item.
  virtual const ComboObject* ComboListOf(int32_t row, int32_t colIndex) = 0;
  virtual void StoreComboListIndex(int32_t row, int32_t colIndex, int32_t index) = 0;
  // Growth for a paste: columns as ColCount adds them, rows with AddRow's defaults.
  virtual void AddColumns(int32_t count) = 0;
  virtual void AddRows(int32_t count) = 0;
  // The context menu's sort commands: DoDefaultSort(col, 1, order).
  virtual void SortByColumn(int32_t colIndex, ESortOrders order) = 0;
  // A cell's rectangle in client pixels (where the keyboard's context menu opens).
  virtual Rect CellRect(int32_t row, int32_t colIndex) = 0;
};

}  // namespace quilta::exchange
