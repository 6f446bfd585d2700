#include "layout/column_sizing.hpp"

#include <algorithm>
#include <quilta/error.hpp>

#include "model/store_listener.hpp"

namespace quilta::layout {
namespace {

[[noreturn]] void Raise(int32_t code) { throw Error::FromCode(code); }

}  // namespace

int32_t ClampWidth(const model::Column& c, int32_t width) {
  if (c.minWidth >= 0 && width < c.minWidth) width = c.minWidth;
  if (c.maxWidth >= 0 && width > c.maxWidth) width = c.maxWidth;
  return width;
}

int32_t ColumnSizing::HeaderItemOf(int32_t slot) const {
  int32_t item = 0;
  for (int32_t p = 1; p < slot && p <= cols_.ColCount(); ++p)
    if (cols_.AtSlot(p).headerItem) ++item;
  return item;
}

void ColumnSizing::RefuseRowText(int32_t slot) const {
  // The row text column has no place in the display order and no limits.
  if (IsRowText(slot)) Raise(quErrInvalidArgument);
}

void ColumnSizing::Relayout() {
  site_.RecalcColumns();
  site_.RequestRedraw();
}

void ColumnSizing::StoreWidth(int32_t slot, int32_t width) {
  model::Column& c = cols_.AtSlot(slot);
  c.width = width;
  if (c.headerItem && !IsRowText(slot)) site_.HeaderItemResized(HeaderItemOf(slot), width);
}

void ColumnSizing::SetWidth(int32_t slot, int32_t width) {
  geometry_.RecordChange(model::kLayoutColumnWidths);
  site_.EndEditing();
  StoreWidth(slot, width);
}

void ColumnSizing::SetColWidth(int32_t slot, int32_t width) {
  if (width < 0) Raise(quErrInvalidArgument);
  SetWidth(slot, ClampWidth(cols_.AtSlot(slot), width));
  Relayout();
}

void ColumnSizing::SetColWidths(int32_t width, int32_t firstIndex, int32_t lastIndex) {
  if (width < 0) Raise(quErrInvalidArgument);
  // The editor is closed once for the whole walk, not once per column.
  site_.EndEditing();
  // The range names column indexes, so a reordered grid still resizes the columns asked for.
  for (int32_t p = 1; p <= cols_.ColCount(); ++p) {
    const model::Column& c = cols_.AtSlot(p);
    if (c.index < firstIndex || c.index > lastIndex) continue;
    geometry_.RecordChange(model::kLayoutColumnWidths);
    StoreWidth(p, ClampWidth(c, width));
  }
  site_.RecalcColumns();
  geometry_.RecordChange(model::kLayoutColumnWidths);
  site_.RequestRedraw();
}

void ColumnSizing::SetMinWidth(int32_t slot, int32_t minWidth) {
  RefuseRowText(slot);
  model::Column& c = cols_.AtSlot(slot);
  if (minWidth >= 0 && c.maxWidth >= 0 && c.maxWidth < minWidth) Raise(quErrMaxWidthBelowMin);
  c.minWidth = minWidth;
  if (minWidth < 0 || c.width >= minWidth) return;
  SetWidth(slot, minWidth);
  Relayout();
}

void ColumnSizing::SetMaxWidth(int32_t slot, int32_t maxWidth) {
  RefuseRowText(slot);
  model::Column& c = cols_.AtSlot(slot);
  if (maxWidth >= 0 && c.minWidth >= 0 && c.minWidth > maxWidth) Raise(quErrMaxWidthBelowMin);
  c.maxWidth = maxWidth;
  if (maxWidth < 0 || c.width <= maxWidth) return;
  SetWidth(slot, maxWidth);
  Relayout();
}

void ColumnSizing::ResizeToFillSpace(int32_t slot, int32_t areaWidth) {
  RefuseRowText(slot);
  int64_t others = 0;
  for (int32_t p = 1; p <= cols_.ColCount(); ++p)
    if (p != slot && cols_.AtSlot(p).headerItem) others += cols_.AtSlot(p).width;
  int64_t room = areaWidth - others;
  if (room < 1) return;
  SetColWidth(slot, static_cast<int32_t>(room));
}

// A move must never leave the frozen part or the scrollable part without its only column.
bool ColumnSizing::MoveLeavesAPartEmpty(int32_t slot) const {
  const ColumnTotals& t = geometry_.Columns();
  return (slot == t.firstShownSlot && t.frozenCount == 1) ||
         (slot == t.lastShownSlot && t.scrollableCount == 1);
}

void ColumnSizing::Move(int32_t slot, int32_t to) {
  if (to < 1 || to > cols_.ColCount()) Raise(quErrInvalidArgument);
  RefuseRowText(slot);
  if (to == slot) return;
  if (MoveLeavesAPartEmpty(slot)) Raise(quErrIllegalOperation);
  site_.EndEditing();
  geometry_.RecordChange(model::kLayoutColumnWidths);
  bool hasItem = cols_.AtSlot(slot).headerItem;
  int32_t fromItem = HeaderItemOf(slot);
  auto& slots = cols_.Slots();
  if (to < slot) {
    std::rotate(slots.begin() + (to - 1), slots.begin() + (slot - 1), slots.begin() + slot);
  } else {
    std::rotate(slots.begin() + (slot - 1), slots.begin() + slot, slots.begin() + to);
  }
  if (hasItem) site_.HeaderItemMoved(fromItem, HeaderItemOf(to));
  Relayout();
}

void ColumnSizing::SetVisible(int32_t slot, bool visible) {
  RefuseRowText(slot);
  geometry_.RecordChange(model::kLayoutColumnWidths);
  model::Column& c = cols_.AtSlot(slot);
  if (c.visible == visible) return;
  site_.EndEditing();
  if (!visible && c.headerItem) {
    c.headerItem = false;
    site_.HeaderItemRemoved(HeaderItemOf(slot));
  } else if (visible && !c.headerItem) {
    c.headerItem = true;
    site_.HeaderItemInserted(HeaderItemOf(slot), slot);
  }
  c.visible = visible;
  Relayout();
}

}  // namespace quilta::layout
