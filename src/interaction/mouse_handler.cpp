#include "interaction/mouse_handler.hpp"

#include <algorithm>

namespace quilta::interaction {

void MouseHandler::Down(int16_t button, int16_t shift, Point at) {
  StopDrag();
  bool doDefault = true;
  if (QuiltaEvents* ev = Events()) ev->MouseDown(button, shift, at.x, at.y, doDefault);
  pressed_ = true;
  clickOnUp_ = true;
  deferred_ = false;
  menuOnUp_ = false;
  pressShift_ = shift;
  lastPoint_ = at;
  if (!doDefault || (button != kLeft && button != kRight)) return;
  const MouseSite::Hit hit = site_.HitAt(at);
  pressHit_ = hit;
  menuOnUp_ = button == kRight && hit.row >= 1;
  if (hit.row >= 1) Press(button, shift, hit);
}

void MouseHandler::Press(int16_t button, int16_t shift, const MouseSite::Hit& hit) {
  if (!store_.CellAt(hit.row, hit.col).Selectable()) return;
  if (button == kLeft && hit.part == quCellPartTreeButton) {
    ToggleNode(hit.row);
    return;
  }
  // An open edit is committed before the press moves anything; a refused value keeps it open.
  if (commands_.IsEditing() && commands_.CommitEdit()) return;
  site_.ClearSearchString();
  if (selection_.MultiSelect()) {
    const bool keepSelection = !OnButton(hit) && store_.CellAt(hit.row, hit.col).Selected();
    if (keepSelection) {
      deferred_ = true;
    } else {
      selection_.SelectByClick(hit.row, hit.col, shift, false);
      dragging_ = button == kLeft && props_.Bool(model::Prop::DragSelect);
      dragRow_ = hit.row;
      dragCol_ = hit.col;
    }
  } else {
    selection_.MoveSingleSelection(hit.row, hit.col);
  }
  selection_.SetCurCellPos(hit.row, hit.col);
  FinishMove();
  if (button == kLeft) PressPart(hit);
}

void MouseHandler::FinishMove() {
  selection_.ScrollCurrentIntoView();
  selection_.RaisePendingSelEvents();
}

void MouseHandler::PressPart(const MouseSite::Hit& hit) {
  if (hit.part == quCellPartComboButton) {
    const EditKind kind = commands_.EditKindOf(hit.row, hit.col);
    if (kind != kEditTextBox) commands_.RequestEditCurCell(0, kind == kEditTextBoxCombo);
  } else if (hit.part == quCellPartCheckBox) {
    commands_.ToggleCheckBox(hit.row, hit.col);
  }
}

// As the keyboard's + and - do: the host may refuse the change in BeforeRowCollapseExpand.
void MouseHandler::ToggleNode(int32_t row) {
  const bool expand = !store_.Rows().At(row).Expanded();
  bool doDefault = true;
  if (QuiltaEvents* ev = Events()) ev->BeforeRowCollapseExpand(row, expand, doDefault);
  if (!doDefault) return;
  commands_.SetRowExpanded(row, expand);
  if (QuiltaEvents* ev = Events()) ev->AfterRowCollapseExpand(row, expand);
}

void MouseHandler::Move(int16_t button, int16_t shift, Point at) {
  if (QuiltaEvents* ev = Events()) ev->MouseMove(button, shift, at.x, at.y);
  lastPoint_ = at;
  if (deferred_) {
    // Leaving the pressed cell makes the press a drag of the selected cells, not a click.
    const MouseSite::Hit hit = site_.HitAt(at);
    if (hit.row != pressHit_.row || hit.col != pressHit_.col) deferred_ = false;
  }
  if (!dragging_ || !(button & kLeft)) return;
  DragTo(at);
  const bool outside = !site_.CellsArea().Contains(at);
  if (outside && !timerOn_) {
    timerOn_ = site_.StartTimer(kAutoScrollTimer, kAutoScrollIntervalMs, *this);
  } else if (!outside && timerOn_) {
    site_.StopTimer(kAutoScrollTimer);
    timerOn_ = false;
  }
}

MouseSite::Hit MouseHandler::DragTarget(Point at) {
  const Rect area = site_.CellsArea();
  if (area.IsEmpty()) return {};
  const Point inside{std::clamp(at.x, area.left, area.right - 1),
                     std::clamp(at.y, area.top, area.bottom - 1)};
  return site_.HitAt(inside);
}

void MouseHandler::DragTo(Point at) {
  const MouseSite::Hit hit = DragTarget(at);
  if (hit.row < 1 || (hit.row == dragRow_ && hit.col == dragCol_)) return;
  if (!store_.CellAt(hit.row, hit.col).Selectable()) return;
  dragRow_ = hit.row;
  dragCol_ = hit.col;
  selection_.ExtendSelection(hit.row, hit.col, kShift | (pressShift_ & kCtrl), false);
  selection_.SetCurCellPos(hit.row, hit.col);
  FinishMove();
}

// Scrolls one line toward each edge the pointer is past, then extends to the cell now under it.
void MouseHandler::TimerFired(int32_t id) {
  if (id != kAutoScrollTimer) return;
  if (!dragging_) {
    StopDrag();
    return;
  }
  const Rect area = site_.CellsArea();
  const int32_t dx = lastPoint_.x < area.left ? -1 : lastPoint_.x >= area.right ? 1 : 0;
  const int32_t dy = lastPoint_.y < area.top ? -1 : lastPoint_.y >= area.bottom ? 1 : 0;
  if (dx == 0 && dy == 0) {
    site_.StopTimer(kAutoScrollTimer);
    timerOn_ = false;
    return;
  }
  view_.ScrollLines(dx, dy);
  dragRow_ = 0;  // the cell under the pointer may be the same index after a scroll; re-extend
  DragTo(lastPoint_);
}

void MouseHandler::Up(int16_t button, int16_t shift, Point at) {
  const bool wasPressed = pressed_;
  const bool click = clickOnUp_;
  const bool deferred = deferred_;
  const bool menu = menuOnUp_ && button == kRight;
  pressed_ = clickOnUp_ = deferred_ = menuOnUp_ = false;
  StopDrag();
  // A release after a press the header strip took belongs to the header's own events.
  if (!wasPressed) return;
  if (QuiltaEvents* ev = Events()) ev->MouseUp(button, shift, at.x, at.y);
  if (deferred && button == kLeft) {
    // The left press on a selected cell was not a drag after all: it selects as a click does.
    // A right press keeps the selection for the host's context menu.
    const MouseSite::Hit hit = pressHit_;
    if (hit.row >= 1 && hit.row <= store_.RowCount() && hit.col <= store_.Cols().RowTextCol()) {
      selection_.SelectByClick(hit.row, hit.col, pressShift_, false);
      selection_.SetCurCellPos(hit.row, hit.col);
      FinishMove();
    }
  }
  if (click)
    if (QuiltaEvents* ev = Events()) ev->Click();
  const MouseSite::Hit& hit = pressHit_;
  if (menu && hit.row <= store_.RowCount() && hit.col <= store_.Cols().RowTextCol())
    commands_.ShowContextMenuAt(hit.row, hit.col, at.x, at.y);
}

void MouseHandler::ForgetPress() {
  deferred_ = menuOnUp_ = false;
  StopDrag();
}

void MouseHandler::DblClick(int16_t button, int16_t shift, Point at) {
  StopDrag();
  pressed_ = true;
  clickOnUp_ = false;
  deferred_ = false;
  if (QuiltaEvents* ev = Events()) ev->DblClick();
  if (button != kLeft) return;
  const MouseSite::Hit hit = site_.HitAt(at);
  if (hit.row < 1) return;
  pressHit_ = hit;
  pressShift_ = shift;
  if (OnButton(hit)) {
    Press(button, shift, hit);
    StopDrag();
    return;
  }
  if (hit.row == selection_.CurRow() && hit.col == selection_.CurCol() && !commands_.IsEditing()) {
    commands_.RequestEditCurCell(0, false);
  }
}

void MouseHandler::StopDrag() {
  dragging_ = false;
  if (timerOn_) site_.StopTimer(kAutoScrollTimer);
  timerOn_ = false;
}

}  // namespace quilta::interaction
