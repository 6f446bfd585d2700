// What the header strip needs from the rest of the control: the columns and the view to place
// its items, the look to paint them, and the operations a click or drag on the header starts.
// The control implements it; the strip never reaches above itself.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/events.hpp>
#include <quilta/platform/platform.hpp>

#include "layout/view.hpp"
#include "model/column_store.hpp"

namespace quilta::header {

// Everything a paint or a measurement reads, resolved by the control (colours translated).
struct HeaderLook {
  std::shared_ptr<const Font> font;
  const ImageList* images = nullptr;  // the list header icons index into, or nullptr
  Color foreColor = 0;
  Color backColor = 0xF0F0F0;
  Color shadowColor = 0xA0A0A0;
  Color highlightColor = 0xD77800;
  Color disabledColor = 0x6D6D6D;
  ControlLook look = ControlLook::Themed;
  bool enabled = true;
  int32_t dpi = 96;
};

class HeaderSite {
 public:
  virtual ~HeaderSite() = default;

  virtual const model::ColumnStore& Columns() const = 0;
  virtual const layout::View& GetView() const = 0;
  virtual int32_t FrozenCols() const = 0;
  virtual HeaderLook Look() const = 0;
  virtual Platform& GetPlatform() const = 0;
  virtual QuiltaEvents* Events() const = 0;

  // ColHeaderClick, then the default sort unless the host declines or sorting is off.
  virtual void HeaderClicked(int32_t colIndex, int16_t shift) = 0;
  // The set-width path (editing ends, the layout is marked, positions recomputed, redrawn).
  virtual void ResizeColumn(int32_t slot, int32_t width) = 0;
  // The ColPos path; false when it refused the move.
  virtual bool MoveColumn(int32_t slot, int32_t toSlot) = 0;
  // Sizes a column to its contents (a divider double-click).
  virtual void AutoSizeColumn(int32_t slot) = 0;
  // Scrolls the scrollable columns by a number of pixels (clamped), for drags past an edge.
  virtual void ScrollColumnsBy(int32_t dx) = 0;
  // Part of the header strip must be painted again (ignored while updates are suspended).
  virtual void InvalidateHeader(const Rect& r) = 0;
};

}  // namespace quilta::header
