#include "layout/geometry.hpp"

#include "layout/scale.hpp"

namespace quilta::layout {

void Geometry::RunColumnPass(model::ColumnStore& cols, int32_t frozenCols) {
  columns_ = ColumnTotals{};
  int32_t visibleIndex = 0;
  int32_t x = 0;  // the sum of the widths of the header-item columns so far
  for (int32_t p = 1; p <= cols.ColCount(); ++p) {
    model::Column& c = cols.AtSlot(p);
    bool shown = ColumnShown(c);
    c.visibleIndex = shown ? ++visibleIndex : 0;
    if (shown) {
      if (!columns_.firstShownSlot) columns_.firstShownSlot = p;
      columns_.lastShownSlot = p;
    }
    c.startX = x;
    if (c.headerItem) {
      x += c.width;
      if (p <= frozenCols) {
        columns_.frozenWidth += c.width;
        ++columns_.frozenCount;
        columns_.lastFrozenSlot = p;
      }
    }
    if (p > frozenCols && shown) {
      columns_.scrollableWidth += c.width;
      ++columns_.scrollableCount;
      if (!columns_.firstScrollableSlot) columns_.firstScrollableSlot = p;
    }
  }
}

void Geometry::RunRowPass(model::RowStore& rows, int32_t from, int32_t to) {
  int32_t count = rows.Count();
  if (to == 0 || to > count) to = count;
  if (from < 1) from = 1;
  if (from > to) return;
  int32_t y = 0;
  int32_t index = 1;
  if (from > 1) {
    const model::RowRecord& prev = rows.At(from - 1);
    y = prev.startY + (prev.Shown() ? prev.height : 0);
    for (int32_t r = from - 1; r >= 1; --r) {
      if (rows.At(r).Shown()) {
        index = rows.At(r).visibleIndex + 1;
        break;
      }
    }
  }
  for (int32_t r = from; r <= to; ++r) {
    model::RowRecord& rec = rows.At(r);
    rec.startY = y;
    if (rec.Shown()) {
      rec.visibleIndex = index++;
      y += rec.height;
    } else {
      rec.visibleIndex = 0;
    }
  }
}

int32_t Geometry::ScaledLevelIndent(int32_t levelIndent, int32_t dpi) {
  if (levelIndent != levelIndent_ || dpi != levelIndentDpi_) {
    levelIndent_ = levelIndent;
    levelIndentDpi_ = dpi;
    levelIndentPixels_ = Scale(levelIndent, dpi);
  }
  return levelIndentPixels_;
}

}  // namespace quilta::layout
