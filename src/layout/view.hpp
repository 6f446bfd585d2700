// The view: which part of the grid's pixel plane the control shows, and where. It keeps the
// scroll positions, the heights of the group-by band and the header strip above the cells, the view
// rectangles that the layout pass derives from the client size, and maps between grid coordinates
// (the positions of the geometry passes) and client pixels.
//
// Frozen columns never scroll horizontally: they stand at their start X from the left edge,
// and the scrollable columns start after them, shifted left by the horizontal scroll position.
// Scroll positions are in pixels.
#pragma once

#include <cstdint>
#include <quilta/platform/platform.hpp>

#include "layout/geometry.hpp"
#include "model/column_store.hpp"
#include "model/row_store.hpp"

namespace quilta::layout {

struct ScrollState {
  int32_t pos = 0;
  int32_t maxPos = 0;  // the largest position: content size less the page
  int32_t page = 0;    // the visible extent
  bool visible = false;
};

class View {
 public:
  // ---- The header strip above the cells (its height is set by the header).
  bool HeaderVisible() const { return headerVisible_; }
  void SetHeaderVisible(bool visible) { headerVisible_ = visible; }
  int32_t HeaderHeight() const { return headerHeight_; }
  void SetHeaderHeight(int32_t height) { headerHeight_ = height; }
  // The group-by band above the header (0: not shown).
  int32_t GroupByHeight() const { return groupByHeight_; }
  void SetGroupByHeight(int32_t height) { groupByHeight_ = height; }
  // hdr: how far the cells start below the client top: the group-by band's height plus the
  // header's when it is shown.
  int32_t HeaderOffset() const { return groupByHeight_ + (headerVisible_ ? headerHeight_ : 0); }

  // ---- Layout pass: the view rectangles and scroll ranges from the client size, the column
  // totals and the height of all shown rows. Scroll bars show only where the content is larger
  // than the view; positions are clamped into their new ranges.
  void Layout(Size client, Size scrollBars, const ColumnTotals& cols, int32_t contentHeight);
  bool LaidOut() const { return laidOut_; }
  // When each bar is shown (EScrollBarVisibility: automatic, always, never).
  int32_t BarVisibility(EScrollBar bar) const { return visibility_[bar == quScrollBarV]; }
  void SetBarVisibility(EScrollBar bar, int32_t visibility) {
    visibility_[bar == quScrollBarV] = visibility;
  }
  // Forces the next EnsureLayout to run the pass (client size or resolution changed).
  void Invalidate() { laidOut_ = false; }

  // The cells area (below the header, without the scroll bars), in client pixels.
  const Rect& CellsArea() const { return cells_; }
  const Rect& HeaderArea() const { return header_; }
  const Rect& GroupByArea() const { return groupBy_; }
  // The part of the cells area the scrollable columns are shown in.
  Rect ScrollableArea() const;
  int32_t FrozenWidth() const { return frozenWidth_; }

  // ---- View left / top / width / height: the grid X shown at the left edge of the scrollable
  // area, the grid Y at the top of the cells area, and the sizes of those areas.
  int32_t ViewLeft() const { return h_.pos; }
  int32_t ViewTop() const { return v_.pos; }
  int32_t ViewWidth() const { return ScrollableArea().Width(); }
  int32_t ViewHeight() const { return cells_.Height(); }

  const ScrollState& Scroll(EScrollBar bar) const { return bar == quScrollBarV ? v_ : h_; }
  // Writes a scroll position, clamped into the bar's range; returns whether it changed.
  bool SetScrollPos(EScrollBar bar, int32_t pos);

  // ---- Mapping (client pixels)
  // Client X of a column's left edge at a slot (frozen slots do not scroll).
  int32_t ClientX(const model::Column& col, int32_t slot, int32_t frozenCols) const {
    return slot <= frozenCols ? col.startX : col.startX - h_.pos;
  }
  int32_t ClientY(const model::RowRecord& row) const {
    return row.startY - v_.pos + HeaderOffset();
  }
  // The shown row under a client Y, or 0.
  int32_t RowAtY(const model::RowStore& rows, int32_t clientY) const;
  // The shown slot under a client X, or 0 (frozen columns are found before the ones they cover).
  int32_t SlotAtX(const model::ColumnStore& cols, int32_t clientX, int32_t frozenCols) const;

 private:
  bool headerVisible_ = true;
  int32_t headerHeight_ = 0;
  int32_t groupByHeight_ = 0;
  bool laidOut_ = false;
  Rect groupBy_;
  Rect header_;
  Rect cells_;
  int32_t frozenWidth_ = 0;
  ScrollState h_;
  ScrollState v_;
  int32_t visibility_[2] = {0, 0};
};

// The shown rows (first..last, display order) that meet client Y range [top, bottom); both 0
// when none. Found by binary search on the row positions, so the cost does not grow with the
// number of rows.
struct RowRange {
  int32_t first = 0;
  int32_t last = 0;
};
RowRange RowsMeeting(const View& view, const model::RowStore& rows, int32_t top, int32_t bottom);

// The next shown row after a shown row, or 0; rows that take no room between them (a collapsed
// node's subtree, hidden rows) are skipped by binary search, not walked.
int32_t NextShownRow(const model::RowStore& rows, int32_t row);

// A cell's rectangle in client pixels: a row with the group-row flag spans every shown column;
// the row text cell (slot 0 here) lies below the row's normal cell height from the row text's
// start slot to the last shown column; any other cell is its column's width wide and reaches to
// the row's bottom, except beside the row text, where it stops at the normal cell height.
struct CellRectQuery {
  int32_t slot = 0;  // 0: the row text cell
  int32_t frozenCols = 0;
  int32_t rowTextSlot = 1;
  bool drawRowText = false;
};
Rect CellRect(const View& view, const model::ColumnStore& cols, const ColumnTotals& totals,
              const model::RowRecord& row, const CellRectQuery& q);

// Bottom of the last shown row: the height of all shown rows together.
int32_t ContentHeight(const model::RowStore& rows);

}  // namespace quilta::layout
