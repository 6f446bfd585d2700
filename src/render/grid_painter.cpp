#include "render/grid_painter.hpp"

#include <algorithm>

namespace quilta::render {

GridPainter::GridPainter(const PaintSource& src, const PaintStyle& style, const GridLayout& layout,
                         RenderSite& site, Painter& painter)
    : src_(src), style_(style), layout_(layout), p_(painter), cells_(src, style, site, painter) {}

void GridPainter::Paint(const Rect& clip) {
  const Rect area = layout_.view.CellsArea().Intersection(clip);
  if (area.IsEmpty()) return;
  p_.PushClip(area);
  p_.FillRect(area, style_.disabledLook ? style_.disabledBack : style_.back);
  CollectColumns(area);
  const layout::RowRange rows =
      layout::RowsMeeting(layout_.view, src_.store.Rows(), area.top, area.bottom);
  // Scrolled columns first: the frozen ones are drawn over them.
  PaintRegion(scrolled_, rows);
  PaintRegion(frozen_, rows);
  PaintSpanningCells(area, rows);
  PaintFrozenEdge(area);
  PaintFocus(area);
  p_.PopClip();
}

void GridPainter::CollectColumns(const Rect& clip) {
  const model::ColumnStore& cols = src_.store.Cols();
  const layout::View& view = layout_.view;
  const Rect cellsArea = view.CellsArea();
  const int32_t count = cols.ColCount();
  const int32_t frozenCols = std::min(style_.frozenCols, count);
  frozen_ = {
      Rect{cellsArea.left, cellsArea.top, cellsArea.left + view.FrozenWidth(), cellsArea.bottom}
          .Intersection(clip),
      {}};
  scrolled_ = {view.ScrollableArea().Intersection(clip), {}};
  auto add = [&](Region& region, int32_t slot) {
    const model::Column& c = cols.AtSlot(slot);
    if (!layout::Geometry::ColumnShown(c)) return;
    const int32_t left = view.ClientX(c, slot, style_.frozenCols);
    if (left + c.width > region.area.left && left < region.area.right) {
      region.cols.push_back({slot, c.index, left, left + c.width});
    }
  };
  if (!frozen_.area.IsEmpty()) {
    for (int32_t slot = 1; slot <= frozenCols; ++slot) add(frozen_, slot);
  }
  if (scrolled_.area.IsEmpty()) return;
  // Start X never decreases along the slots: find the first scrolled column reaching the clip.
  const int32_t shift = view.ViewLeft();
  int32_t lo = frozenCols + 1, hi = count + 1;
  while (lo < hi) {
    const int32_t mid = lo + (hi - lo) / 2;
    if (cols.AtSlot(mid).startX - shift <= scrolled_.area.left) {
      lo = mid + 1;
    } else {
      hi = mid;
    }
  }
  int32_t slot = std::max(frozenCols + 1, lo - 1);
  while (slot > frozenCols + 1 && cols.AtSlot(slot - 1).startX == cols.AtSlot(slot).startX) --slot;
  for (; slot <= count && cols.AtSlot(slot).startX - shift < scrolled_.area.right; ++slot) {
    add(scrolled_, slot);
  }
}

void GridPainter::PaintRegion(const Region& region, layout::RowRange rows) {
  if (region.area.IsEmpty() || region.cols.empty()) return;
  p_.PushClip(region.area);
  const model::RowStore& store = src_.store.Rows();
  for (int32_t row = rows.first; row != 0 && row <= rows.last;
       row = layout::NextShownRow(store, row)) {
    if (!store.At(row).GroupRow()) PaintRow(region, row, RowTextShown(store.At(row)));
  }
  if (style_.extendV && style_.vLines) PaintExtendedLines(region);
  p_.PopClip();
}

bool GridPainter::RowTextShown(const model::RowRecord& rec) const {
  return style_.drawRowText && rec.height > rec.normalCellHeight;
}

void GridPainter::PaintRow(const Region& region, int32_t row, bool rowText) {
  const model::RowRecord& rec = src_.store.Rows().At(row);
  const int32_t top = layout_.view.ClientY(rec);
  const int32_t bottom = top + rec.height;
  const RowPaintState state = cells_.RowState(row);
  selectedCells_.clear();
  struct Placed {
    Rect rect;
    bool full;  // reaches the row's bottom
  };
  Placed placed[64];
  const size_t n = region.cols.size();
  std::vector<Placed> many(n > 64 ? n : 0);
  Placed* out = n > 64 ? many.data() : placed;
  for (size_t i = 0; i < n; ++i) {
    const Column& col = region.cols[i];
    const bool besideRowText = rowText && col.slot >= layout_.rowTextSlot;
    const Rect cell{col.left, top, col.right, besideRowText ? top + rec.normalCellHeight : bottom};
    out[i] = {cell, !besideRowText};
    if (cells_.Paint(state, col.index, cell)) selectedCells_.push_back(cell);
  }
  if (style_.vLines) {
    for (size_t i = 0; i < n; ++i) VLine(out[i].rect.right, top, out[i].rect.bottom);
  }
  if (style_.hLines) {
    int32_t right = region.cols.front().left;
    for (size_t i = 0; i < n && out[i].full; ++i) right = out[i].rect.right;
    if (style_.extendH && (n == 0 || out[n - 1].full)) right = region.area.right;
    if (right > region.cols.front().left) HLine(region.cols.front().left, right, bottom);
  }
  if (style_.alpha < 255) {
    for (const Rect& r : selectedCells_) cells_.PaintSelectionLayer(r);
  }
}

Rect GridPainter::RowTextRect(const model::RowRecord& rec) const {
  layout::CellRectQuery q;
  q.slot = 0;
  q.frozenCols = style_.frozenCols;
  q.rowTextSlot = layout_.rowTextSlot;
  q.drawRowText = true;
  return layout::CellRect(layout_.view, src_.store.Cols(), layout_.totals, rec, q);
}

void GridPainter::PaintSpanningCells(const Rect& clip, layout::RowRange rows) {
  const model::RowStore& store = src_.store.Rows();
  const int32_t rowTextCol = src_.store.Cols().RowTextCol();
  // Row text starting in a scrolled column scrolls with it, under the frozen columns.
  const bool rowTextScrolls = layout_.rowTextSlot > style_.frozenCols;
  for (int32_t row = rows.first; row != 0 && row <= rows.last;
       row = layout::NextShownRow(store, row)) {
    const model::RowRecord& rec = store.At(row);
    if (rec.GroupRow()) {
      layout::CellRectQuery q;
      q.frozenCols = style_.frozenCols;
      PaintSpanningCell(row, rowTextCol,
                        layout::CellRect(layout_.view, src_.store.Cols(), layout_.totals, rec, q));
    } else if (RowTextShown(rec)) {
      p_.PushClip(rowTextScrolls ? scrolled_.area : clip);
      PaintSpanningCell(row, rowTextCol, RowTextRect(rec));
      p_.PopClip();
    }
  }
}

void GridPainter::PaintSpanningCell(int32_t row, int32_t colIndex, const Rect& rect) {
  if (rect.IsEmpty()) return;
  const RowPaintState state = cells_.RowState(row);
  const bool selected = cells_.Paint(state, colIndex, rect);
  if (style_.vLines) VLine(rect.right, rect.top, rect.bottom);
  if (style_.hLines) {
    HLine(rect.left, style_.extendH ? layout_.view.CellsArea().right : rect.right, rect.bottom);
  }
  if (selected && style_.alpha < 255) cells_.PaintSelectionLayer(rect);
}

int32_t GridPainter::ContentBottom() const {
  return layout_.view.CellsArea().top + layout::ContentHeight(src_.store.Rows()) -
         layout_.view.ViewTop();
}

void GridPainter::PaintExtendedLines(const Region& region) {
  const int32_t top = ContentBottom();
  if (top >= region.area.bottom) return;
  for (const Column& col : region.cols) VLine(col.right, top, region.area.bottom);
}

void GridPainter::PaintFrozenEdge(const Rect& clip) {
  if (style_.frozenCols <= 0 || layout_.totals.frozenCount == 0) return;
  if (!style_.frozenEdgeAlways && layout_.view.ViewLeft() == 0) return;
  const int32_t x = layout_.view.CellsArea().left + layout_.view.FrozenWidth();
  const int32_t w = std::min(style_.frozenEdgeWidth, layout_.view.FrozenWidth());
  if (w <= 0) return;
  p_.Line({x - w, clip.top}, {x - w, clip.bottom - 1}, style_.frozenEdgeColor, w);
}

void GridPainter::PaintFocus(const Rect& clip) {
  const int32_t row = src_.curRow;
  const int32_t col = src_.curCol;
  const model::ColumnStore& cols = src_.store.Cols();
  if (!style_.focusRect || row < 1 || row > src_.store.RowCount() || col < 1 ||
      col > cols.RowTextCol())
    return;
  const model::RowRecord& rec = src_.store.Rows().At(row);
  if (!rec.Shown()) return;
  layout::CellRectQuery q;
  q.slot = col == cols.RowTextCol() ? 0 : cols.SlotOfIndex(col);
  q.frozenCols = style_.frozenCols;
  q.rowTextSlot = layout_.rowTextSlot;
  q.drawRowText = style_.drawRowText;
  if (q.slot == 0 && !RowTextShown(rec) && !rec.GroupRow()) return;
  if (q.slot > 0 && !rec.GroupRow() && !layout::Geometry::ColumnShown(cols.AtSlot(q.slot))) return;
  Rect r = layout::CellRect(layout_.view, cols, layout_.totals, rec, q);
  Rect region = clip;
  if (style_.fullRowSelect && !rec.GroupRow()) {
    layout::CellRectQuery whole;
    whole.frozenCols = style_.frozenCols;
    model::RowRecord spanning = rec;
    spanning.flags |= model::RowRecord::kGroupRow;  // spans every shown column
    const Rect all = layout::CellRect(layout_.view, cols, layout_.totals, spanning, whole);
    r.left = all.left;
    r.right = all.right;
    r.bottom = all.bottom;
  } else if (q.slot > 0 && q.slot <= style_.frozenCols) {
    region = frozen_.area;
  } else if (q.slot > 0 || layout_.rowTextSlot > style_.frozenCols) {
    region = scrolled_.area;
  }
  r = Inner(r, true);
  if (r.IsEmpty() || !r.Intersects(region)) return;
  p_.PushClip(region);
  p_.DrawFocusRect(r, style_.focusColor1, style_.focusColor2);
  p_.PopClip();
}

Rect GridPainter::Inner(const Rect& cell, bool bottomLine) const {
  Rect r = cell;
  if (style_.vLines) r.right -= style_.lineV;
  if (style_.hLines && bottomLine) r.bottom -= style_.lineH;
  return r;
}

void GridPainter::HLine(int32_t left, int32_t right, int32_t bottom) {
  const int32_t y = bottom - style_.lineH;
  p_.Line({left, y}, {right - 1, y}, style_.gridLineColor, style_.lineH);
}

void GridPainter::VLine(int32_t right, int32_t top, int32_t bottom) {
  const int32_t x = right - style_.lineV;
  p_.Line({x, top}, {x, bottom - 1}, style_.gridLineColor, style_.lineV);
}

}  // namespace quilta::render
