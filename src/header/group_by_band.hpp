// The group-by band above the column header: one box per grouping level, left to right, each a
// half box lower than the one before it (so the nesting reads at a glance), or a prompt while
// nothing is grouped. A column header dropped on it groups by that column at the drop position;
// a box dragged within it moves its level, dragged out of it removes its level, and a click on it
// reverses that level's order. Every change is announced by BeforeGroupByChange, which may cancel
// it, and AfterGroupByChange.
#pragma once

#include <cstdint>
#include <quilta/platform/painter.hpp>
#include <string>
#include <vector>

#include "header/group_by_site.hpp"
#include "header/header_strip.hpp"

namespace quilta::header {

class GroupByBand {
 public:
  explicit GroupByBand(GroupBySite& site) : site_(site) {}

  // The band's height for the levels grouped now (the view places it when it is shown).
  int32_t Height() const;
  void Paint(Painter& painter, const Rect& clip);
  // Takes presses in the band and everything while a box drag it started is under way.
  bool Mouse(HeaderMouse action, int16_t button, int16_t shift, Point at);

  // Whether a header item dropped on the band would be taken (shown, AllowGrouping on).
  bool AcceptsDrops() const { return Shown() && site_.GroupingAllowed(); }
  // A header item dragged by the strip is over a point: the band shows where the column would
  // land while the point is in the band.
  void HeaderDragOver(int32_t colIndex, Point at);
  // The strip's drag ended at a point: over the band, the grid is grouped by the column at the
  // drop position and the band answers true; elsewhere it answers false and does nothing.
  bool HeaderDrop(int32_t colIndex, Point at);

  // The box of a level (1-based) in client pixels; empty when there is no such level.
  Rect BoxRect(int32_t level) const;
  // Whether a drag in progress belongs to the band (consistency checks).
  bool Dragging() const { return gesture_ != Gesture::None; }
  int32_t PressedCol() const { return pressedCol_; }
  // Forgets a press or drag in progress (the band was hidden, columns went away).
  void Reset();

 private:
  enum class Gesture { None, Press, Drag };
  struct Box {
    Rect rect;
    std::string text;
    bool ascending = true;
  };

  bool Shown() const;
  std::vector<Box> Boxes() const;
  int32_t BoxHeight() const;
  int32_t Px(int32_t length) const;
  int32_t LevelAt(Point at) const;
  // The level (1-based) a drop at a point lands on, the level `moving` (0 none) left out.
  int32_t DropLevel(Point at, int32_t moving) const;
  int32_t DropMarkX(int32_t dropLevel, int32_t moving) const;
  void PaintBox(Painter& painter, const Box& box, bool pressed, const HeaderLook& look);
  void SetDropLevel(int32_t level);

  bool Down(int16_t button, Point at);
  bool Move(Point at);
  bool Up(Point at);
  // Moves column col to newLevel (0 removes it; reverse flips its order instead), announced by
  // the Before and After events and dropped when the host cancels or changes the grouping.
  void Change(int32_t col, int32_t newLevel, bool reverse);

  GroupBySite& site_;
  Gesture gesture_ = Gesture::None;
  int32_t pressedCol_ = 0;    // the column of the box pressed or dragged
  int32_t pressedLevel_ = 0;  // its level when the press began
  Point start_;
  int32_t dropLevel_ = 0;  // where the dragged box or header would land, 0: nowhere
  bool outside_ = false;   // the dragged box is out of the band: a drop removes its level
};

}  // namespace quilta::header
