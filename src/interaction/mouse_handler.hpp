// Mouse presses, drags and double clicks in the cells area (the header strip takes its own).
//
// A left or right press raises MouseDown; unless the host clears bDoDefault it selects the cell
// under the pointer and makes it current, toggles a tree node, opens a combo list or flips a check
// box. In multiselection mode a press on a cell that is already selected leaves the selection as
// it is, so that the selected cells can be dragged; releasing on the same cell without having
// dragged with the left button then selects it as an ordinary click would. With DragSelect a drag
// with the left button extends the selection from the pressed cell to the cell under the pointer
// and moves the current cell along; past an edge of the cells area a timer keeps scrolling one line
// at a time. MouseUp and then Click follow the release of a press made in the cells area; a double
// click raises DblClick and then edits the current cell (a double click on a check box, tree button
// or combo button acts as another press on it instead).
#pragma once

#include <cstdint>
#include <quilta/platform/platform.hpp>

#include "interaction/selection.hpp"
#include "interaction/sites.hpp"
#include "model/grid_store.hpp"

namespace quilta::interaction {

// What the mouse asks of the control: where the pointer is, the cells area, the timer.
class MouseSite {
 public:
  virtual ~MouseSite() = default;
  struct Hit {
    int32_t row = 0;
    int32_t col = 0;  // column index, RowTextCol for a group row's band
    ECellParts part = quCellPartNone;
  };
  // The cell and the part of it under a client point (row 0 when none).
  virtual Hit HitAt(Point at) = 0;
  virtual Rect CellsArea() = 0;
  virtual void ClearSearchString() = 0;
  virtual bool StartTimer(int32_t id, int32_t intervalMs, TimerSink& sink) = 0;
  virtual void StopTimer(int32_t id) = 0;
};

class MouseHandler final : public TimerSink {
 public:
  static constexpr int32_t kAutoScrollTimer = 0x5143;
  static constexpr int32_t kAutoScrollIntervalMs = 50;

  MouseHandler(model::GridStore& store, const model::ControlProperties& props, Selection& selection,
               SelectionSite& events, ViewSite& view, CommandSite& commands, MouseSite& site)
      : store_(store),
        props_(props),
        selection_(selection),
        events_(events),
        view_(view),
        commands_(commands),
        site_(site) {}
  ~MouseHandler() override { StopDrag(); }
  MouseHandler(const MouseHandler&) = delete;
  MouseHandler& operator=(const MouseHandler&) = delete;

  void Down(int16_t button, int16_t shift, Point at);
  void Move(int16_t button, int16_t shift, Point at);
  void Up(int16_t button, int16_t shift, Point at);
  void DblClick(int16_t button, int16_t shift, Point at);
  void Leave() {}
  void TimerFired(int32_t id) override;

  bool Dragging() const { return dragging_; }
  // Rows or columns came, went or moved, or the selection mode changed, between a press and its
  // release: what the press left for the release names a cell that may no longer be the one
  // pressed, so the release only raises its events.
  void ForgetPress();

 private:
  static constexpr int16_t kLeft = 1;
  static constexpr int16_t kRight = 2;

  QuiltaEvents* Events() { return events_.Events(); }
  // The press rules after MouseDown let them run.
  void Press(int16_t button, int16_t shift, const MouseSite::Hit& hit);
  void ToggleNode(int32_t row);
  void FinishMove();
  // The part of a press that comes after the selection: combo list or check box.
  void PressPart(const MouseSite::Hit& hit);
  // The cell a drag reaches for a pointer anywhere, the point kept inside the cells area.
  MouseSite::Hit DragTarget(Point at);
  void DragTo(Point at);
  void StopDrag();
  bool OnButton(const MouseSite::Hit& hit) const {
    return hit.part == quCellPartComboButton || hit.part == quCellPartCheckBox ||
           hit.part == quCellPartTreeButton;
  }

  model::GridStore& store_;
  const model::ControlProperties& props_;
  Selection& selection_;
  SelectionSite& events_;
  ViewSite& view_;
  CommandSite& commands_;
  MouseSite& site_;

  bool pressed_ = false;    // a press in the cells area awaits its release
  bool clickOnUp_ = false;  // the release raises Click
  bool deferred_ = false;   // the press left an existing selection as it was
  bool dragging_ = false;   // drag selection from the pressed cell
  bool timerOn_ = false;
  bool menuOnUp_ = false;  // a right press on a cell: its release opens the context menu
  int16_t pressShift_ = 0;
  MouseSite::Hit pressHit_;
  int32_t dragRow_ = 0;
  int32_t dragCol_ = 0;
  Point lastPoint_{0, 0};
};

}  // namespace quilta::interaction
