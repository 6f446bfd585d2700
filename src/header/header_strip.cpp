#include "header/header_strip.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>

#include "header/group_by_band.hpp"
#include "layout/column_sizing.hpp"
#include "layout/scale.hpp"

namespace quilta::header {
namespace {

// Item spacing at 96 dpi: the margin inside an item, the gap between its parts, the sort mark,
// the divider's grab zone on each side of an item's right edge and the distance a press must
// travel before it becomes a column drag.
constexpr int32_t kMargin = 4;
constexpr int32_t kPadY = 2;
constexpr int32_t kGap = 3;
constexpr int32_t kMarkWidth = 9;
constexpr int32_t kMarkHeight = 5;
constexpr int32_t kNumberGap = 1;
constexpr int32_t kDividerZone = 4;
constexpr int32_t kDragStart = 5;
constexpr int32_t kDropMark = 2;
constexpr int32_t kAutoScrollZone = 16;
constexpr int32_t kAutoScrollStep = 20;

constexpr int32_t kAlignBits = quTextCenter | quTextRight | quTextVCenter | quTextBottom;

int32_t TextFlagsOf(const model::Column& c) {
  int32_t flags = c.headerTextFlags & ~kAlignBits;
  if (c.headerAlignH == quAlignHCenter) flags |= quTextCenter;
  if (c.headerAlignH == quAlignHRight) flags |= quTextRight;
  if (c.headerAlignV == quAlignVCenter) flags |= quTextVCenter;
  if (c.headerAlignV == quAlignVBottom) flags |= quTextBottom;
  return flags;
}

int32_t AlignedTop(const Rect& box, int32_t height, EVAlignment align) {
  if (align == quAlignVCenter) return box.top + (box.Height() - height) / 2;
  if (align == quAlignVBottom) return box.bottom - height;
  return box.top;
}

}  // namespace

struct HeaderStrip::ItemContent {
  const model::Column* col = nullptr;
  Size icon;
  Size text;
  int32_t textFlags = 0;
  bool mark = false;
  std::string number;  // the sort priority, shown when several columns are sorted
  Size numberSize;
};

int32_t HeaderStrip::Px(int32_t length) const {
  return layout::Scale(length, site_.GetPlatform().Dpi());
}

bool HeaderStrip::ItemShown(int32_t slot) const {
  const model::ColumnStore& cols = site_.Columns();
  if (slot < 1 || slot > cols.ColCount()) return false;
  const model::Column& c = cols.AtSlot(slot);
  return c.headerItem && layout::Geometry::ColumnShown(c);
}

int32_t HeaderStrip::SlotOfIndex(int32_t colIndex) const {
  const model::ColumnStore& cols = site_.Columns();
  for (int32_t slot = 1; slot <= cols.ColCount(); ++slot)
    if (cols.AtSlot(slot).index == colIndex) return slot;
  return 0;
}

int32_t HeaderStrip::SortedColumnCount() const {
  const model::ColumnStore& cols = site_.Columns();
  int32_t n = 0;
  for (int32_t slot = 1; slot <= cols.ColCount(); ++slot)
    if (cols.AtSlot(slot).sortKey > 0) ++n;
  return n;
}

HeaderStrip::ItemContent HeaderStrip::ContentOf(const model::Column& c, const HeaderLook& look,
                                                int32_t sortedColumns) const {
  ItemContent content;
  content.col = &c;
  content.textFlags = TextFlagsOf(c);
  Platform& platform = site_.GetPlatform();
  content.text = platform.MeasureText(c.headerText, *look.font, content.textFlags, 0);
  if (look.images && c.headerIcon > 0 && c.headerIcon <= look.images->ImageCount())
    content.icon = look.images->ImageSize();
  content.mark = options_.sortMarks && c.sortKey > 0;
  if (content.mark && sortedColumns > 1) {
    content.number = std::to_string(c.sortKey);
    content.numberSize = platform.MeasureText(content.number, *look.font, quTextSingleLine, 0);
  }
  return content;
}

ItemParts HeaderStrip::Place(const Rect& item, const ItemContent& content,
                             const HeaderLook& look) const {
  const int32_t dpi = look.dpi;
  auto px = [dpi](int32_t length) { return layout::Scale(length, dpi); };
  const Rect inner{item.left + px(kMargin), item.top + px(kPadY), item.right - px(kMargin),
                   item.bottom - px(kPadY)};
  ItemParts parts;
  int32_t left = inner.left;
  int32_t right = inner.right;
  if (content.mark) {
    // The mark and the priority sit on the caption's line, wherever the caption is aligned.
    const int32_t lineHeight =
        std::min(inner.Height(), std::max(content.text.cy, content.numberSize.cy));
    const int32_t lineTop = AlignedTop(inner, lineHeight, content.col->headerAlignV);
    if (!content.number.empty()) {
      parts.number = {right - content.numberSize.cx, lineTop, right, lineTop + lineHeight};
      right = parts.number.left - px(kNumberGap);
    }
    const int32_t markTop = lineTop + (lineHeight - px(kMarkHeight)) / 2;
    parts.mark = {right - px(kMarkWidth), markTop, right, markTop + px(kMarkHeight)};
    right = parts.mark.left - px(kGap);
  }
  if (content.icon.cx > 0) {
    const int32_t top = AlignedTop(inner, content.icon.cy, content.col->headerAlignV);
    parts.icon = {left, top, left + content.icon.cx, top + content.icon.cy};
    left = parts.icon.right + px(kGap);
  }
  parts.text = {left, inner.top, std::max(left, right), inner.bottom};
  return parts;
}

int32_t HeaderStrip::WidthNeeded(int32_t slot) const {
  const model::ColumnStore& cols = site_.Columns();
  if (slot < 1 || slot > cols.ColCount()) return 0;
  const HeaderLook look = site_.Look();
  const ItemContent content = ContentOf(cols.AtSlot(slot), look, SortedColumnCount());
  // Placed in a wide item, everything but the text keeps its size: the rest is the text's.
  const Rect wide{0, 0, 1 << 20, site_.GetView().HeaderHeight()};
  const ItemParts parts = Place(wide, content, look);
  return wide.Width() - parts.text.Width() + content.text.cx;
}

// ---- Painting ---------------------------------------------------------------------------------

Rect HeaderStrip::ItemRect(int32_t slot) const {
  if (!ItemShown(slot)) return {};
  const layout::View& view = site_.GetView();
  const model::Column& c = site_.Columns().AtSlot(slot);
  const Rect& strip = view.HeaderArea();
  const int32_t x = view.ClientX(c, slot, site_.FrozenCols());
  return {x, strip.top, x + c.width, strip.bottom};
}

void HeaderStrip::PaintBackground(Painter& painter, const Rect& r, const HeaderItemState& state,
                                  const HeaderLook& look) {
  if (state.look == ControlLook::Themed) {
    painter.DrawHeaderItem(r, state);
    return;
  }
  painter.FillRect(r, look.backColor);
  if (state.pressed) {
    painter.FillRectAlpha(r, look.shadowColor, 96);
  } else if (state.hot) {
    painter.FillRectAlpha(r, look.highlightColor, 40);
  }
  painter.Line({r.right - 1, r.top}, {r.right - 1, r.bottom - 1}, look.shadowColor, 1);
  painter.Line({r.left, r.bottom - 1}, {r.right - 1, r.bottom - 1}, look.shadowColor, 1);
}

void HeaderStrip::PaintItem(Painter& painter, int32_t slot, const HeaderLook& look,
                            int32_t sortedColumns) {
  const model::Column& c = site_.Columns().AtSlot(slot);
  const Rect r = ItemRect(slot);
  HeaderItemState state;
  state.look = look.look;
  const bool dragged =
      dragIndex_ == c.index && (drag_ == Drag::Move || (drag_ == Drag::Press && pressedShown_));
  state.pressed = dragged;
  state.hot = options_.hotTracking && drag_ == Drag::None && hotIndex_ == c.index && look.enabled;
  PaintBackground(painter, r, state, look);

  const ItemContent content = ContentOf(c, look, sortedColumns);
  const ItemParts parts = Place(r, content, look);
  const Color text = look.enabled ? look.foreColor : look.disabledColor;
  painter.PushClip(r);
  if (content.icon.cx > 0)
    painter.DrawImage(*look.images, c.headerIcon, {parts.icon.left, parts.icon.top}, -1,
                      !look.enabled);
  if (!c.headerText.empty())
    painter.DrawText(parts.text, c.headerText, *look.font, text, content.textFlags);
  if (content.mark) {
    painter.DrawSortMark(parts.mark, c.sortOrder == quSortAsc, look.shadowColor);
    if (!content.number.empty())
      painter.DrawText(parts.number, content.number, *look.font, text,
                       quTextSingleLine | quTextVCenter);
  }
  painter.PopClip();
}

int32_t HeaderStrip::DropX(int32_t dropSlot) const {
  const int32_t from = SlotOfIndex(dragIndex_);
  if (dropSlot < from) {
    for (int32_t s = dropSlot; s < from; ++s)
      if (ItemShown(s)) return ItemRect(s).left;
  } else {
    for (int32_t s = dropSlot; s > from; --s)
      if (ItemShown(s)) return ItemRect(s).right;
  }
  return ItemRect(from).left;
}

void HeaderStrip::PaintDropMark(Painter& painter, const HeaderLook& look) {
  if (drag_ != Drag::Move || !options_.allowColMoving || dropSlot_ == 0 ||
      dropSlot_ == SlotOfIndex(dragIndex_))
    return;
  const Rect& strip = site_.GetView().HeaderArea();
  const int32_t width = Px(kDropMark);
  const int32_t x = DropX(dropSlot_) - width / 2;
  painter.FillRect({x, strip.top, x + width, strip.bottom}, look.highlightColor);
}

void HeaderStrip::Paint(Painter& painter, const Rect& clip) {
  const layout::View& view = site_.GetView();
  const Rect& strip = view.HeaderArea();
  const Rect area = strip.Intersection(clip);
  if (area.IsEmpty()) return;
  const HeaderLook look = site_.Look();
  const model::ColumnStore& cols = site_.Columns();
  const int32_t frozen = std::min(site_.FrozenCols(), cols.ColCount());
  const int32_t frozenWidth = view.FrozenWidth();
  const int32_t sorted = SortedColumnCount();
  painter.PushClip(area);
  int32_t end = frozenWidth;  // right edge of the last item painted
  // Scrolled items first, kept out of the frozen part they slide under.
  painter.PushClip({frozenWidth, strip.top, strip.right, strip.bottom});
  for (int32_t slot = frozen + 1; slot <= cols.ColCount(); ++slot) {
    const Rect r = ItemRect(slot);
    if (r.IsEmpty()) continue;
    end = std::max(end, r.right);
    if (r.Intersects(area)) PaintItem(painter, slot, look, sorted);
  }
  painter.PopClip();
  for (int32_t slot = 1; slot <= frozen; ++slot) {
    const Rect r = ItemRect(slot);
    if (!r.IsEmpty() && r.Intersects(area)) PaintItem(painter, slot, look, sorted);
  }
  if (end < strip.right) {
    HeaderItemState blank;
    blank.look = look.look;
    PaintBackground(painter, {end, strip.top, strip.right, strip.bottom}, blank, look);
  }
  PaintDropMark(painter, look);
  painter.PopClip();
}

// ---- Hit testing ------------------------------------------------------------------------------

int32_t HeaderStrip::SlotAt(Point at) const {
  const layout::View& view = site_.GetView();
  if (!view.HeaderArea().Contains(at)) return 0;
  const model::ColumnStore& cols = site_.Columns();
  const int32_t frozen = std::min(site_.FrozenCols(), cols.ColCount());
  for (int32_t slot = 1; slot <= frozen; ++slot)
    if (ItemRect(slot).Contains(at)) return slot;
  if (at.x < view.FrozenWidth()) return 0;
  for (int32_t slot = frozen + 1; slot <= cols.ColCount(); ++slot)
    if (ItemRect(slot).Contains(at)) return slot;
  return 0;
}

int32_t HeaderStrip::DividerAt(Point at) const {
  const layout::View& view = site_.GetView();
  if (!options_.allowColSizing || !view.HeaderArea().Contains(at)) return 0;
  const model::ColumnStore& cols = site_.Columns();
  const int32_t frozen = std::min(site_.FrozenCols(), cols.ColCount());
  const int32_t zone = Px(kDividerZone);
  int32_t best = 0;
  int32_t bestDistance = zone + 1;
  for (int32_t slot = 1; slot <= cols.ColCount(); ++slot) {
    if (!cols.AtSlot(slot).allowSizing) continue;
    const Rect r = ItemRect(slot);
    if (r.IsEmpty() || (slot > frozen && r.right <= view.FrozenWidth())) continue;
    if (at.x < r.right - zone || at.x >= r.right + zone) continue;
    const int32_t distance = std::abs(at.x - r.right);
    if (distance < bestDistance) {
      best = slot;
      bestDistance = distance;
    }
  }
  return best;
}

// ---- Mouse ------------------------------------------------------------------------------------

bool HeaderStrip::Mouse(HeaderMouse action, int16_t button, int16_t shift, Point at) {
  switch (action) {
    case HeaderMouse::Down:
      return Down(button, shift, at);
    case HeaderMouse::Move:
      return Move(at);
    case HeaderMouse::Up:
      return Up(button, shift, at);
    case HeaderMouse::DblClick:
      return DblClick(button, shift, at);
    case HeaderMouse::Leave:
      return Leave();
  }
  return false;
}

int32_t HeaderStrip::ColumnAt(Point at) const {
  const int32_t slot = SlotAt(at);
  return slot ? site_.Columns().AtSlot(slot).index : 0;
}

bool HeaderStrip::Down(int16_t button, int16_t shift, Point at) {
  if (drag_ != Drag::None) return true;
  if (!site_.GetView().HeaderArea().Contains(at)) return false;
  if (!site_.Look().enabled) return true;
  bool doDefault = true;
  if (QuiltaEvents* events = site_.Events())
    events->ColHeaderMouseDown(ColumnAt(at), button, shift, at.x, at.y, doDefault);
  if (button != 1 || !doDefault) return true;
  if (const int32_t divider = DividerAt(at)) {
    const model::Column& c = site_.Columns().AtSlot(divider);
    bool cancel = false;
    if (QuiltaEvents* events = site_.Events()) events->ColWidthStartChange(c.index, cancel);
    if (cancel || SlotOfIndex(c.index) == 0) return true;
    drag_ = Drag::Size;
    dragIndex_ = c.index;
    dragStart_ = at;
    startWidth_ = c.width;
    site_.GetPlatform().SetCursor(CursorShape::SizeColumn);
    return true;
  }
  if (const int32_t slot = SlotAt(at)) {
    drag_ = Drag::Press;
    dragIndex_ = site_.Columns().AtSlot(slot).index;
    dragShift_ = shift;
    dragStart_ = at;
    pressedShown_ = true;
    moveRefused_ = false;
    InvalidateSlot(slot);
  }
  return true;
}

void HeaderStrip::SizeTo(Point at) {
  const int32_t slot = SlotOfIndex(dragIndex_);
  if (slot == 0) return;
  const model::Column& c = site_.Columns().AtSlot(slot);
  int32_t width = layout::ClampWidth(c, std::max(0, startWidth_ + at.x - dragStart_.x));
  if (width == c.width) return;
  if (QuiltaEvents* events = site_.Events()) events->ColWidthChanging(dragIndex_, width);
  width = layout::ClampWidth(c, std::max(0, width));
  if (width != c.width) site_.ResizeColumn(slot, width);
}

int32_t HeaderStrip::DropSlot(Point at) const {
  const layout::View& view = site_.GetView();
  const model::ColumnStore& cols = site_.Columns();
  const int32_t from = SlotOfIndex(dragIndex_);
  const int32_t frozen = std::min(site_.FrozenCols(), cols.ColCount());
  // A column stays in its own part: frozen columns move among the frozen ones, the others
  // among the scrollable ones.
  const bool frozenPart = from <= frozen;
  const int32_t first = frozenPart ? 1 : frozen + 1;
  const int32_t last = frozenPart ? frozen : cols.ColCount();
  int32_t x = at.x;
  if (!frozenPart) x = std::max(x, view.FrozenWidth());
  int32_t before = last + 1;  // the slot the column is dropped in front of
  for (int32_t slot = first; slot <= last; ++slot) {
    const Rect r = ItemRect(slot);
    if (r.IsEmpty()) continue;
    if (x < r.left + r.Width() / 2) {
      before = slot;
      break;
    }
  }
  return std::clamp(before > from ? before - 1 : before, first, last);
}

// A scrollable column dragged near either end of the scrollable part scrolls the columns
// along, a step per mouse move, so it can reach columns out of view.
void HeaderStrip::AutoScroll(Point at) {
  const layout::View& view = site_.GetView();
  const int32_t from = SlotOfIndex(dragIndex_);
  if (from <= std::min(site_.FrozenCols(), site_.Columns().ColCount())) return;
  const int32_t zone = Px(kAutoScrollZone);
  const int32_t step = Px(kAutoScrollStep);
  if (at.x >= view.HeaderArea().right - zone) {
    site_.ScrollColumnsBy(step);
  } else if (at.x < view.FrozenWidth() + zone) {
    site_.ScrollColumnsBy(-step);
  }
}

bool HeaderStrip::Move(Point at) {
  switch (drag_) {
    case Drag::Size:
      SizeTo(at);
      return true;
    case Drag::Move: {
      band_.HeaderDragOver(dragIndex_, at);
      // Over the group-by band the item would group, not move: no drop mark in the strip.
      const bool overBand = site_.GetView().GroupByArea().Contains(at);
      if (!overBand) AutoScroll(at);
      const int32_t drop = overBand ? SlotOfIndex(dragIndex_) : DropSlot(at);
      if (drop != dropSlot_) {
        dropSlot_ = drop;
        InvalidateStrip();
      }
      return true;
    }
    case Drag::Press: {
      const int32_t slot = SlotOfIndex(dragIndex_);
      if (slot == 0) {
        drag_ = Drag::None;
        return true;
      }
      // With the group-by band shown an item may also be dragged up to it.
      const bool band = band_.AcceptsDrops();
      const bool far = std::abs(at.x - dragStart_.x) >= Px(kDragStart) ||
                       (band && std::abs(at.y - dragStart_.y) >= Px(kDragStart));
      if (far && CanDrag() && !moveRefused_) {
        bool cancel = false;
        if (QuiltaEvents* events = site_.Events()) events->ColHeaderStartDrag(dragIndex_, cancel);
        if (!cancel && SlotOfIndex(dragIndex_) != 0) {
          drag_ = Drag::Move;
          dropSlot_ = DropSlot(at);
          site_.GetPlatform().SetCursor(CursorShape::MoveColumn);
          InvalidateStrip();
          return true;
        }
        moveRefused_ = true;
      }
      const bool over = SlotAt(at) == slot;
      if (over != pressedShown_) {
        pressedShown_ = over;
        InvalidateSlot(slot);
      }
      return true;
    }
    case Drag::None:
      break;
  }
  const bool inStrip = site_.GetView().HeaderArea().Contains(at);
  Hover(inStrip ? SlotAt(at) : 0);
  if (inStrip) {
    site_.GetPlatform().SetCursor(DividerAt(at) ? CursorShape::SizeColumn : CursorShape::Arrow);
  }
  return false;
}

bool HeaderStrip::CanDrag() const { return options_.allowColMoving || band_.AcceptsDrops(); }

void HeaderStrip::EndMove(Point at) {
  const int32_t from = SlotOfIndex(dragIndex_);
  const int32_t to = dropSlot_;
  const int32_t colIndex = dragIndex_;
  drag_ = Drag::None;
  dropSlot_ = 0;
  site_.GetPlatform().SetCursor(CursorShape::Arrow);
  InvalidateStrip();
  if (from != 0 && band_.HeaderDrop(colIndex, at)) return;
  if (!options_.allowColMoving || from == 0 || to == 0 || to == from) return;
  bool cancel = false;
  QuiltaEvents* events = site_.Events();
  if (events) events->BeforeColMove(colIndex, to, cancel);
  if (cancel || SlotOfIndex(colIndex) != from) return;
  if (site_.MoveColumn(from, to) && events) events->AfterColMove(colIndex, to, from);
}

bool HeaderStrip::Up(int16_t button, int16_t shift, Point at) {
  const bool taken = drag_ != Drag::None;
  if (taken || site_.GetView().HeaderArea().Contains(at)) {
    if (QuiltaEvents* events = site_.Events())
      events->ColHeaderMouseUp(ColumnAt(at), button, shift, at.x, at.y);
  }
  return EndGesture(at) || taken;
}

bool HeaderStrip::EndGesture(Point at) {
  switch (drag_) {
    case Drag::None:
      return false;
    case Drag::Size: {
      drag_ = Drag::None;
      const int32_t slot = SlotOfIndex(dragIndex_);
      site_.GetPlatform().SetCursor(DividerAt(at) ? CursorShape::SizeColumn : CursorShape::Arrow);
      if (slot == 0) return true;
      if (QuiltaEvents* events = site_.Events())
        events->ColWidthEndChange(dragIndex_, site_.Columns().AtSlot(slot).width);
      return true;
    }
    case Drag::Move:
      EndMove(at);
      return true;
    case Drag::Press: {
      drag_ = Drag::None;
      const int32_t slot = SlotOfIndex(dragIndex_);
      if (slot == 0) return true;
      InvalidateSlot(slot);
      if (SlotAt(at) == slot) site_.HeaderClicked(dragIndex_, dragShift_);
      return true;
    }
  }
  return false;
}

bool HeaderStrip::DblClick(int16_t button, int16_t shift, Point at) {
  if (drag_ != Drag::None) return true;
  if (!site_.GetView().HeaderArea().Contains(at)) return false;
  if (button != 1 || !site_.Look().enabled) return true;
  if (const int32_t divider = DividerAt(at)) {
    const int32_t colIndex = site_.Columns().AtSlot(divider).index;
    bool doDefault = true;
    if (QuiltaEvents* events = site_.Events()) events->ColDividerDblClick(colIndex, doDefault);
    const int32_t slot = SlotOfIndex(colIndex);
    if (doDefault && slot != 0) site_.AutoSizeColumn(slot);
    return true;
  }
  if (const int32_t slot = SlotAt(at)) {
    const int32_t colIndex = site_.Columns().AtSlot(slot).index;
    if (QuiltaEvents* events = site_.Events()) events->ColHeaderDblClick(colIndex, shift);
    // The second press of a double click is a press like the first: its release clicks again,
    // so two quick clicks flip the sort twice, as two slow ones do.
    return Down(button, shift, at);
  }
  return true;
}

bool HeaderStrip::Leave() {
  Hover(0);
  return drag_ != Drag::None;
}

void HeaderStrip::Hover(int32_t slot) {
  const int32_t index = slot ? site_.Columns().AtSlot(slot).index : 0;
  if (index == hotIndex_) return;
  const int32_t old = hotIndex_;
  hotIndex_ = index;
  if (options_.hotTracking) {
    if (old) InvalidateSlot(SlotOfIndex(old));
    if (slot) InvalidateSlot(slot);
  }
  QuiltaEvents* events = site_.Events();
  if (!events) return;
  if (old) events->ColHeaderMouseLeave(old);
  if (index) events->ColHeaderMouseEnter(index);
}

void HeaderStrip::Reset() {
  hotIndex_ = 0;
  drag_ = Drag::None;
  dragIndex_ = 0;
  dropSlot_ = 0;
  pressedShown_ = false;
}

void HeaderStrip::InvalidateSlot(int32_t slot) {
  const Rect r = ItemRect(slot);
  if (!r.IsEmpty()) site_.InvalidateHeader(r);
}

void HeaderStrip::InvalidateStrip() { site_.InvalidateHeader(site_.GetView().HeaderArea()); }

}  // namespace quilta::header
