// Paints one cell: its background (colours, hatching, custom draw), its contents (tree lines and
// button, check box, icons, combo button, text, key-search match) and, afterwards, the
// translucent selection layer. Parts are placed by the one cell part layout.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/platform/platform.hpp>

#include "layout/view.hpp"
#include "model/cell_resources.hpp"
#include "model/grid_store.hpp"
#include "render/paint_style.hpp"
#include "render/render_site.hpp"
#include "render/tree_line_scans.hpp"

namespace quilta::render {

// What one paint reads from the grid.
struct PaintSource {
  const model::GridStore& store;
  const model::CellResources& resources;
  const Font& defaultFont;
  const Platform& platform;
  const std::shared_ptr<ImageList>* imageLists;  // 16 entries, [0] unused
  TreeLineScans& treeLines;
  int32_t curRow = 0;
  int32_t curCol = 0;
};

// The per-row facts every cell of a row shares.
struct RowPaintState {
  int32_t row = 0;
  bool rowHighlighted = false;  // FullRowSelect: some cell of the row is selected
  bool hasDynamic = false;
  DynamicLook dynamic;  // RowDynamicFormatting's answer
};

class CellPainter {
 public:
  CellPainter(const PaintSource& src, const PaintStyle& style, RenderSite& site, Painter& painter)
      : src_(src), style_(style), site_(site), p_(painter) {}

  RowPaintState RowState(int32_t row);
  // Background and contents of a cell inside rect (grid lines excluded from the contents);
  // returns whether the cell is drawn selected.
  bool Paint(const RowPaintState& row, int32_t colIndex, const Rect& rect);
  // The translucent selection layer over a selected cell (SelectionAlphaBlend below 255).
  void PaintSelectionLayer(const Rect& rect);

 private:
  struct Look {
    Color back;
    Color fore;
    const Font* font;
  };
  Look LookOf(const RowPaintState& row, int32_t colIndex, const model::Cell& cell,
              std::shared_ptr<Font>& keep);
  Color AlternatingBack(const model::RowRecord& rec) const;
  void PaintContents(int32_t row, int32_t colIndex, const model::Cell& cell, const Rect& cell_rect,
                     const Look& look, bool selected);
  void PaintTreeLines(int32_t row, const layout::CellPartsInput& in, const Rect& rect);
  void PaintText(int32_t row, int32_t colIndex, const model::Cell& cell, const Rect& textRect,
                 const Look& look, bool opaque);
  Rect TextExtent(const Rect& r, std::string_view text, const Font& font, int32_t flags) const;

  const PaintSource& src_;
  const PaintStyle& style_;
  RenderSite& site_;
  Painter& p_;
};

// The text flags a cell draws with: its own flags with its alignment added.
int32_t CellDrawFlags(const model::Cell& cell);

}  // namespace quilta::render
