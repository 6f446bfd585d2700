// HeaderObject: the column header strip above the cells, reached with Quilta::Header(). It holds
// only a reference back to its control.
//
// Each shown column has one header item, in display order, with the column's caption
// (ColHeaderText), icon (ColHeaderIcon, an index into image list ImageList), alignments and text
// flags. A sorted column shows a sort mark pointing up for ascending order and, while several
// columns are sorted, its sort priority (ColSortKey) beside it. The user clicks an item to sort
// (ColHeaderClick), drags a divider to resize (AllowColSizing and the column's ColAllowSizing),
// double-clicks a divider to size a column to its contents, and drags an item to move its
// column (AllowColMoving; frozen columns move only among frozen columns, the others only among
// the others).
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/enums.hpp>
#include <quilta/font.hpp>

namespace quilta {

namespace control {
struct Control;
}

class HeaderObject {
 public:
  explicit HeaderObject(control::Control& c) : c_(&c) {}
  HeaderObject(const HeaderObject&) = delete;
  HeaderObject& operator=(const HeaderObject&) = delete;

  // Whether the strip is shown; hiding it gives its height to the cells.
  bool Visible() const;
  void SetVisible(bool bVisible);
  // The strip's height in pixels. SetHeight(-1) returns to the automatic height (one line of
  // the header font with a margin of 3 pixels above and below); below -1 fails with 514.
  int32_t Height() const;
  void SetHeight(int32_t lHeight);
  // True while the height follows the font (SetHeight(-1)).
  bool AutoHeight() const;
  // The flat look (plain items with a shadow line) instead of the platform's themed items; the
  // themed look is also used only while the grid's UseXPStyles is on.
  bool Flat() const;
  void SetFlat(bool bFlat);
  // Items light up under the mouse.
  bool HotTracking() const;
  void SetHotTracking(bool bHotTracking);
  // Whether the user may drag header items to reorder columns.
  bool AllowColMoving() const;
  void SetAllowColMoving(bool bAllow);
  // Whether the user may drag dividers (each column also has ColAllowSizing).
  bool AllowColSizing() const;
  void SetAllowColSizing(bool bAllow);
  // Whether sorted columns show their sort mark and priority.
  bool SortMarks() const;
  void SetSortMarks(bool bShow);
  // The caption font; nullptr (the default) uses the grid's Font.
  std::shared_ptr<quilta::Font> Font() const;
  void SetFont(const std::shared_ptr<quilta::Font>& oFont);
  // Caption and item colours (system colours allowed); -1 fails with 514.
  Color ForeColor() const;
  void SetForeColor(Color oColor);
  Color BackColor() const;
  void SetBackColor(Color oColor);
  // The image list (1-15) header icons index into; 0 shows no icons. Default 1.
  uint8_t ImageList() const;
  void SetImageList(uint8_t btList);
  // The column whose header item lies under a client point, 0 for none.
  int32_t ColFromPoint(int32_t x, int32_t y) const;

 private:
  control::Control* c_;
};

}  // namespace quilta
