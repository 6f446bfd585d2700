// The column header strip: one item per shown column in display order, each with its caption,
// icon and sort mark, over the columns' pixel positions (frozen items stand still, the others
// scroll with the cells). It paints the strip, says how wide an item must be to show all of it,
// and turns mouse messages into clicks (sorting), divider drags (column widths), divider
// double-clicks (auto-size) and header drags (column order, or grouping when an item is dropped
// on the group-by band).
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/platform/painter.hpp>

#include "header/header_site.hpp"

namespace quilta::header {

// What the host sets on the strip through HeaderObject.
struct HeaderOptions {
  bool flat = false;
  bool hotTracking = true;
  bool allowColMoving = true;
  bool allowColSizing = true;
  bool sortMarks = true;
  std::shared_ptr<Font> font;  // nullptr: the grid's font
  Color foreColor = static_cast<Color>(0x80000012u);
  Color backColor = static_cast<Color>(0x8000000Fu);
  uint8_t imageList = 1;  // 0: header icons are not shown
};

enum class HeaderMouse { Down, Move, Up, DblClick, Leave };

class GroupByBand;

// Where the parts of one header item go inside its rectangle. Painting and the width an item
// needs both come from this one placement.
struct ItemParts {
  Rect icon;
  Rect text;
  Rect mark;
  Rect number;
};

class HeaderStrip {
 public:
  HeaderStrip(HeaderSite& site, GroupByBand& band) : site_(site), band_(band) {}

  HeaderOptions& Options() { return options_; }
  const HeaderOptions& Options() const { return options_; }

  void Paint(Painter& painter, const Rect& clip);
  // The width that shows the caption, icon and sort mark of the column at a slot unclipped.
  int32_t WidthNeeded(int32_t slot) const;
  // Returns whether the strip took the message: presses in it and everything while a drag it
  // started is under way.
  bool Mouse(HeaderMouse action, int16_t button, int16_t shift, Point at);

  // The item rectangle of a slot in client pixels (empty when the column has no shown item).
  Rect ItemRect(int32_t slot) const;
  // The shown slot whose item is under a client point, or 0.
  int32_t SlotAt(Point at) const;
  // The slot whose right divider is under a client point (only resizable columns), or 0.
  int32_t DividerAt(Point at) const;
  // Forgets hot, pressed and drag state (columns went away or the header was hidden).
  void Reset();

 private:
  enum class Drag { None, Press, Size, Move };
  struct ItemContent;

  ItemContent ContentOf(const model::Column& c, const HeaderLook& look,
                        int32_t sortedColumns) const;
  ItemParts Place(const Rect& item, const ItemContent& content, const HeaderLook& look) const;
  int32_t SortedColumnCount() const;
  void PaintItem(Painter& painter, int32_t slot, const HeaderLook& look, int32_t sortedColumns);
  void PaintBackground(Painter& painter, const Rect& r, const HeaderItemState& state,
                       const HeaderLook& look);
  void PaintDropMark(Painter& painter, const HeaderLook& look);
  bool ItemShown(int32_t slot) const;

  bool Down(int16_t button, int16_t shift, Point at);
  bool Move(Point at);
  bool Up(int16_t button, int16_t shift, Point at);
  bool EndGesture(Point at);
  int32_t ColumnAt(Point at) const;
  bool DblClick(int16_t button, int16_t shift, Point at);
  bool Leave();
  void Hover(int32_t slot);
  void SizeTo(Point at);
  void AutoScroll(Point at);
  int32_t DropSlot(Point at) const;
  int32_t DropX(int32_t dropSlot) const;
  void EndMove(Point at);
  // Whether a drag may start: to move columns, or to drop an item on the group-by band.
  bool CanDrag() const;
  void InvalidateSlot(int32_t slot);
  void InvalidateStrip();
  int32_t SlotOfIndex(int32_t colIndex) const;
  int32_t Px(int32_t length) const;

  HeaderSite& site_;
  GroupByBand& band_;
  HeaderOptions options_;
  int32_t hotIndex_ = 0;  // column index under the mouse, 0 none
  Drag drag_ = Drag::None;
  int32_t dragIndex_ = 0;  // column index being pressed, sized or moved
  int16_t dragShift_ = 0;
  Point dragStart_;
  int32_t startWidth_ = 0;
  bool pressedShown_ = false;  // the pointer is still over the pressed item
  bool moveRefused_ = false;   // the host refused to let this press become a drag
  int32_t dropSlot_ = 0;       // where a moved column would land, 0 none
};

}  // namespace quilta::header
