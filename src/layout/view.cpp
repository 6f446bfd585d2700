#include "layout/view.hpp"

#include <algorithm>
#include <quilta/scroll_bar_object.hpp>

namespace quilta::layout {
namespace {

void SetRange(ScrollState& s, int32_t content, int32_t page, bool visible) {
  s.page = std::max(0, page);
  s.maxPos = std::max(0, content - s.page);
  s.visible = visible;
  s.pos = std::clamp(s.pos, 0, s.maxPos);
}

}  // namespace

void View::Layout(Size client, Size scrollBars, const ColumnTotals& cols, int32_t contentHeight) {
  const int32_t hdr = HeaderOffset();
  const int32_t contentWidth = cols.frozenWidth + cols.scrollableWidth;
  // Each bar takes room from the other's extent, so decide twice.
  bool needV = false, needH = false;
  auto shown = [this](EScrollBar bar, bool overflow) {
    const int32_t visibility = BarVisibility(bar);
    return visibility == quScrollBarAlways || (visibility != quScrollBarNever && overflow);
  };
  for (int pass = 0; pass < 2; ++pass) {
    needV = shown(quScrollBarV, contentHeight > client.cy - hdr - (needH ? scrollBars.cy : 0));
    needH = shown(quScrollBarH, contentWidth > client.cx - (needV ? scrollBars.cx : 0));
  }
  const int32_t width = std::max(0, client.cx - (needV ? scrollBars.cx : 0));
  const int32_t height = std::max(0, client.cy - (needH ? scrollBars.cy : 0));
  groupBy_ = {0, 0, width, std::min(groupByHeight_, height)};
  header_ = {0, groupBy_.bottom, width, std::min(hdr, height)};
  cells_ = {0, header_.bottom, width, height};
  frozenWidth_ = std::min(cols.frozenWidth, width);
  SetRange(h_, cols.scrollableWidth, width - frozenWidth_, needH);
  SetRange(v_, contentHeight, cells_.Height(), needV);
  laidOut_ = true;
}

Rect View::ScrollableArea() const {
  return {cells_.left + frozenWidth_, cells_.top, cells_.right, cells_.bottom};
}

bool View::SetScrollPos(EScrollBar bar, int32_t pos) {
  ScrollState& s = bar == quScrollBarV ? v_ : h_;
  const int32_t old = s.pos;
  s.pos = std::clamp(pos, 0, s.maxPos);
  return s.pos != old;
}

int32_t View::RowAtY(const model::RowStore& rows, int32_t clientY) const {
  const int32_t y = clientY - HeaderOffset() + v_.pos;
  const auto& recs = rows.Records();
  // A row's bottom (its start Y plus its height when shown) is the next row's start Y, so
  // bottoms never decrease: the first row whose bottom lies below y is the one under it.
  auto it = std::partition_point(recs.begin(), recs.end(), [y](const model::RowRecord& r) {
    return r.startY + (r.Shown() ? r.height : 0) <= y;
  });
  if (it == recs.end() || !it->Shown() || it->startY > y) return 0;
  return static_cast<int32_t>(it - recs.begin()) + 1;
}

int32_t View::SlotAtX(const model::ColumnStore& cols, int32_t clientX, int32_t frozenCols) const {
  const int32_t count = cols.ColCount();
  for (int32_t slot = 1; slot <= std::min(frozenCols, count); ++slot) {
    const model::Column& c = cols.AtSlot(slot);
    if (Geometry::ColumnShown(c) && clientX >= c.startX && clientX < c.startX + c.width) {
      return slot;
    }
  }
  if (clientX < frozenWidth_) return 0;  // the frozen area covers the scrolled columns
  const int32_t x = clientX + h_.pos;
  for (int32_t slot = frozenCols + 1; slot <= count; ++slot) {
    const model::Column& c = cols.AtSlot(slot);
    if (Geometry::ColumnShown(c) && x >= c.startX && x < c.startX + c.width) return slot;
    if (c.startX > x) break;
  }
  return 0;
}

namespace {

int32_t BottomOf(const model::RowRecord& r) { return r.startY + (r.Shown() ? r.height : 0); }

// The shown row whose pixels hold grid Y y, for 0 <= y < the content height.
int32_t RowHolding(const model::RowStore& rows, int32_t first, int32_t y) {
  const auto& recs = rows.Records();
  auto it = std::partition_point(recs.begin() + (first - 1), recs.end(),
                                 [y](const model::RowRecord& r) { return BottomOf(r) <= y; });
  return static_cast<int32_t>(it - recs.begin()) + 1;
}

}  // namespace

RowRange RowsMeeting(const View& view, const model::RowStore& rows, int32_t top, int32_t bottom) {
  const int32_t y0 = std::max(0, top - view.HeaderOffset() + view.ViewTop());
  const int32_t yLast =
      std::min(bottom - view.HeaderOffset() + view.ViewTop(), ContentHeight(rows)) - 1;
  if (yLast < y0) return {};
  const int32_t first = RowHolding(rows, 1, y0);
  return {first, RowHolding(rows, first, yLast)};
}

int32_t NextShownRow(const model::RowStore& rows, int32_t row) {
  if (row >= rows.Count()) return 0;
  if (rows.At(row + 1).Shown()) return row + 1;
  const int32_t bottom = BottomOf(rows.At(row));
  if (bottom >= ContentHeight(rows)) return 0;
  return RowHolding(rows, row + 1, bottom);
}

Rect CellRect(const View& view, const model::ColumnStore& cols, const ColumnTotals& totals,
              const model::RowRecord& row, const CellRectQuery& q) {
  auto leftOf = [&](int32_t slot) { return view.ClientX(cols.AtSlot(slot), slot, q.frozenCols); };
  auto rightOfLastShown = [&] {
    const int32_t last = totals.lastShownSlot;
    return last == 0 ? 0 : leftOf(last) + cols.AtSlot(last).width;
  };
  const int32_t top = view.ClientY(row);
  if (row.GroupRow()) {
    const int32_t left = totals.firstShownSlot == 0 ? 0 : leftOf(totals.firstShownSlot);
    return {left, top, std::max(left, rightOfLastShown()), top + row.height};
  }
  if (q.slot == 0) {
    const int32_t left = leftOf(q.rowTextSlot);
    return {left, top + row.normalCellHeight, std::max(left, rightOfLastShown()),
            std::max(top + row.normalCellHeight, top + row.height)};
  }
  const int32_t left = leftOf(q.slot);
  const bool besideRowText = q.drawRowText && q.slot >= q.rowTextSlot;
  return {left, top, left + cols.AtSlot(q.slot).width,
          top + (besideRowText ? row.normalCellHeight : row.height)};
}

int32_t ContentHeight(const model::RowStore& rows) {
  if (rows.Count() == 0) return 0;
  const model::RowRecord& last = rows.At(rows.Count());
  return last.startY + (last.Shown() ? last.height : 0);
}

}  // namespace quilta::layout
