// Paints the cells area inside a clip rectangle: the rows and columns meeting the clip only
// (rows found by binary search on their positions), scrolled columns under the frozen ones,
// row by row in the order background, contents, grid lines, then the selection layer; then the
// group rows and row text spanning the width, the frozen-columns edge and the focus rectangle.
#pragma once

#include <vector>

#include "layout/view.hpp"
#include "render/cell_painter.hpp"

namespace quilta::render {

struct GridLayout {
  const layout::View& view;
  const layout::ColumnTotals& totals;
  int32_t rowTextSlot = 1;  // the slot the row text starts at
};

class GridPainter {
 public:
  GridPainter(const PaintSource& src, const PaintStyle& style, const GridLayout& layout,
              RenderSite& site, Painter& painter);
  void Paint(const Rect& clip);

 private:
  struct Column {
    int32_t slot;
    int32_t index;
    int32_t left;
    int32_t right;
  };
  struct Region {
    Rect area;  // client pixels the region's cells are clipped to
    std::vector<Column> cols;
  };
  void CollectColumns(const Rect& clip);
  void PaintRegion(const Region& region, layout::RowRange rows);
  void PaintRow(const Region& region, int32_t row, bool rowText);
  // Group rows and row text cells: one cell spanning the row.
  void PaintSpanningCells(const Rect& clip, layout::RowRange rows);
  void PaintSpanningCell(int32_t row, int32_t colIndex, const Rect& rect);
  void PaintExtendedLines(const Region& region);
  void PaintFrozenEdge(const Rect& clip);
  void PaintFocus(const Rect& clip);
  Rect RowTextRect(const model::RowRecord& rec) const;
  bool RowTextShown(const model::RowRecord& rec) const;
  int32_t ContentBottom() const;
  // The cell's area left for contents once its grid lines take their pixels.
  Rect Inner(const Rect& cell, bool bottomLine) const;
  void HLine(int32_t left, int32_t right, int32_t bottom);
  void VLine(int32_t right, int32_t top, int32_t bottom);

  const PaintSource& src_;
  const PaintStyle& style_;
  GridLayout layout_;
  Painter& p_;
  CellPainter cells_;
  Region frozen_;
  Region scrolled_;
  std::vector<Rect> selectedCells_;  // of the row band in progress
};

}  // namespace quilta::render
