// What grid painting asks of the control above it: the dynamic content and custom-draw events,
// cell text and the cell part layout's input, and the key-search highlight.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/font.hpp>
#include <quilta/platform/painter.hpp>
#include <string>

#include "layout/cell_parts.hpp"

namespace quilta::render {

// Colours a dynamic formatting event gave (-1: none) and the font it left.
struct DynamicLook {
  Color fore = -1;
  Color back = -1;
  std::shared_ptr<Font> font;  // nullptr: the event left the font alone
};

class RenderSite {
 public:
  virtual ~RenderSite() = default;
  // CellDynamicFormatting for one cell (only called when the host asked for it).
  virtual DynamicLook CellFormatting(int32_t row, int32_t colIndex, const Font& preset) = 0;
  // RowDynamicFormatting for one row (only called when the host asked for it).
  virtual DynamicLook RowFormatting(int32_t row, const Font& preset) = 0;
  // The cell's text as shown, CellDynamicText applied.
  virtual std::string CellText(int32_t row, int32_t colIndex) = 0;
  // The cell part layout's input for a cell, CellDynamicIcons applied; icons receives the icon
  // and extra icon to draw.
  virtual layout::CellPartsInput CellParts(int32_t row, int32_t colIndex, const Rect& cell,
                                           int16_t icons[2]) = 0;
  // The custom-draw events of a custom-draw cell; each returns whether the grid still draws
  // that layer itself (bDoDefault).
  virtual bool CustomDrawBackground(int32_t row, int32_t colIndex, Painter& painter,
                                    const Rect& cell, bool selected) = 0;
  virtual bool CustomDrawForeground(int32_t row, int32_t colIndex, Painter& painter,
                                    const Rect& cell, bool selected) = 0;
  // Characters of the cell's text matched by the key search in progress (0: none).
  virtual int32_t KeySearchHighlight(int32_t row, int32_t colIndex) = 0;
};

}  // namespace quilta::render
