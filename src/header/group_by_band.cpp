#include "header/group_by_band.hpp"

#include <algorithm>
#include <cstdlib>

#include "layout/scale.hpp"

namespace quilta::header {
namespace {

// Spacing at 96 dpi: the band's margin around its boxes, the padding inside a box, the gap
// between boxes, the sort mark, the drop mark and the distance a press must travel before it
// becomes a drag.
constexpr int32_t kMargin = 6;
constexpr int32_t kPadX = 6;
constexpr int32_t kPadY = 3;
constexpr int32_t kBoxGap = 10;
constexpr int32_t kMarkGap = 6;
constexpr int32_t kMarkWidth = 9;
constexpr int32_t kMarkHeight = 5;
constexpr int32_t kDropMark = 2;
constexpr int32_t kDragStart = 5;

}  // namespace

int32_t GroupByBand::Px(int32_t length) const {
  return layout::Scale(length, site_.GetPlatform().Dpi());
}

bool GroupByBand::Shown() const { return !site_.GetView().GroupByArea().IsEmpty(); }

int32_t GroupByBand::BoxHeight() const { return site_.LineHeight() + 2 * Px(kPadY); }

int32_t GroupByBand::Height() const {
  const int32_t levels = site_.LevelCount();
  const int32_t box = BoxHeight();
  // Each level sits half a box lower than the one before it.
  return 2 * Px(kMargin) + box + std::max(0, levels - 1) * (box / 2);
}

std::vector<GroupByBand::Box> GroupByBand::Boxes() const {
  std::vector<Box> boxes;
  const std::vector<GroupLevel> levels = site_.GroupedBy();
  if (levels.empty()) return boxes;
  const HeaderLook look = site_.Look();
  const model::ColumnStore& cols = site_.Columns();
  const Rect& band = site_.GetView().GroupByArea();
  const int32_t height = BoxHeight();
  int32_t left = band.left + Px(kMargin);
  int32_t top = band.top + Px(kMargin);
  for (const GroupLevel& level : levels) {
    Box box;
    if (level.col >= 1 && level.col <= cols.ColCount())
      box.text = cols.AtIndex(level.col).headerText;
    box.ascending = level.order == quSortAsc;
    const int32_t textWidth =
        site_.GetPlatform().MeasureText(box.text, *look.font, quTextSingleLine, 0).cx;
    const int32_t width = 2 * Px(kPadX) + textWidth + Px(kMarkGap) + Px(kMarkWidth);
    box.rect = {left, top, left + width, top + height};
    boxes.push_back(std::move(box));
    left += width + Px(kBoxGap);
    top += height / 2;
  }
  return boxes;
}

Rect GroupByBand::BoxRect(int32_t level) const {
  if (!Shown()) return {};
  const std::vector<Box> boxes = Boxes();
  if (level < 1 || level > static_cast<int32_t>(boxes.size())) return {};
  return boxes[static_cast<size_t>(level - 1)].rect;
}

// ---- Painting ---------------------------------------------------------------------------------

void GroupByBand::PaintBox(Painter& painter, const Box& box, bool pressed, const HeaderLook& look) {
  HeaderItemState state;
  state.look = look.look;
  state.pressed = pressed;
  if (look.look == ControlLook::Themed) {
    painter.DrawHeaderItem(box.rect, state);
  } else {
    painter.FillRect(box.rect, look.backColor);
    if (pressed) painter.FillRectAlpha(box.rect, look.shadowColor, 96);
    painter.FrameRect(box.rect, look.shadowColor, 1);
  }
  const Rect& r = box.rect;
  const Rect text{r.left + Px(kPadX), r.top, r.right - Px(kPadX) - Px(kMarkGap) - Px(kMarkWidth),
                  r.bottom};
  const Color color = look.enabled ? look.foreColor : look.disabledColor;
  painter.DrawText(text, box.text, *look.font, color, quTextSingleLine | quTextVCenter);
  const int32_t markTop = r.top + (r.Height() - Px(kMarkHeight)) / 2;
  const Rect mark{r.right - Px(kPadX) - Px(kMarkWidth), markTop, r.right - Px(kPadX),
                  markTop + Px(kMarkHeight)};
  painter.DrawSortMark(mark, box.ascending, look.shadowColor);
}

void GroupByBand::Paint(Painter& painter, const Rect& clip) {
  const Rect& band = site_.GetView().GroupByArea();
  const Rect area = band.Intersection(clip);
  if (area.IsEmpty()) return;
  const HeaderLook look = site_.Look();
  painter.PushClip(area);
  painter.FillRect(band, look.backColor);
  painter.FillRectAlpha(band, look.shadowColor, 64);
  const std::vector<Box> boxes = Boxes();
  if (boxes.empty()) {
    const Rect prompt{band.left + Px(kMargin), band.top, band.right - Px(kMargin), band.bottom};
    painter.DrawText(prompt, site_.PromptText(), *look.font, look.disabledColor,
                     quTextSingleLine | quTextVCenter);
  }
  for (size_t i = 0; i < boxes.size(); ++i) {
    const Rect& r = boxes[i].rect;
    if (i + 1 < boxes.size()) {
      // A connector from under this box to the next level's box.
      const int32_t x = r.left + Px(kPadX);
      const int32_t y = boxes[i + 1].rect.top + r.Height() / 2;
      painter.Line({x, r.bottom}, {x, y}, look.shadowColor, 1);
      painter.Line({x, y}, {boxes[i + 1].rect.left, y}, look.shadowColor, 1);
    }
    const bool dragged = gesture_ != Gesture::None && static_cast<int32_t>(i) + 1 == pressedLevel_;
    PaintBox(painter, boxes[i], dragged, look);
    if (dragged && outside_) painter.FillRectAlpha(r, look.backColor, 160);
  }
  if (dropLevel_ > 0) {
    const int32_t moving = gesture_ == Gesture::Drag ? pressedLevel_ : 0;
    const int32_t x = DropMarkX(dropLevel_, moving) - Px(kDropMark) / 2;
    painter.FillRect(
        {x, band.top + Px(kMargin) / 2, x + Px(kDropMark), band.bottom - Px(kMargin) / 2},
        look.highlightColor);
  }
  painter.PopClip();
}

// ---- Drop positions ---------------------------------------------------------------------------

int32_t GroupByBand::LevelAt(Point at) const {
  if (!Shown() || !site_.GetView().GroupByArea().Contains(at)) return 0;
  const std::vector<Box> boxes = Boxes();
  for (size_t i = 0; i < boxes.size(); ++i)
    if (boxes[i].rect.Contains(at)) return static_cast<int32_t>(i) + 1;
  return 0;
}

int32_t GroupByBand::DropLevel(Point at, int32_t moving) const {
  const std::vector<Box> boxes = Boxes();
  int32_t level = 1;
  for (size_t i = 0; i < boxes.size(); ++i) {
    if (static_cast<int32_t>(i) + 1 == moving) continue;
    const Rect& r = boxes[i].rect;
    if (at.x < r.left + r.Width() / 2) break;
    ++level;
  }
  return level;
}

int32_t GroupByBand::DropMarkX(int32_t dropLevel, int32_t moving) const {
  const std::vector<Box> boxes = Boxes();
  std::vector<Rect> others;
  for (size_t i = 0; i < boxes.size(); ++i)
    if (static_cast<int32_t>(i) + 1 != moving) others.push_back(boxes[i].rect);
  const int32_t half = Px(kBoxGap) / 2;
  if (others.empty()) return site_.GetView().GroupByArea().left + Px(kMargin) / 2;
  if (dropLevel <= static_cast<int32_t>(others.size()))
    return others[static_cast<size_t>(dropLevel - 1)].left - half;
  return others.back().right + half;
}

void GroupByBand::SetDropLevel(int32_t level) {
  if (level == dropLevel_) return;
  dropLevel_ = level;
  site_.InvalidateBand(site_.GetView().GroupByArea());
}

// ---- Drops from the header --------------------------------------------------------------------

namespace {

int32_t LevelOf(const std::vector<GroupLevel>& levels, int32_t col) {
  for (size_t i = 0; i < levels.size(); ++i)
    if (levels[i].col == col) return static_cast<int32_t>(i) + 1;
  return 0;
}

}  // namespace

void GroupByBand::HeaderDragOver(int32_t colIndex, Point at) {
  const bool over = AcceptsDrops() && site_.GetView().GroupByArea().Contains(at);
  SetDropLevel(over ? DropLevel(at, LevelOf(site_.GroupedBy(), colIndex)) : 0);
}

bool GroupByBand::HeaderDrop(int32_t colIndex, Point at) {
  SetDropLevel(0);
  if (!Shown() || !site_.GetView().GroupByArea().Contains(at)) return false;
  if (!site_.GroupingAllowed()) return true;
  Change(colIndex, DropLevel(at, LevelOf(site_.GroupedBy(), colIndex)), false);
  return true;
}

// ---- Changes ----------------------------------------------------------------------------------

void GroupByBand::Change(int32_t col, int32_t newLevel, bool reverse) {
  const std::vector<GroupLevel> before = site_.GroupedBy();
  const int32_t oldLevel = LevelOf(before, col);
  if (!reverse && newLevel == oldLevel) return;
  std::vector<GroupLevel> after = before;
  GroupLevel level;
  if (oldLevel > 0) {
    level = after[static_cast<size_t>(oldLevel - 1)];
    after.erase(after.begin() + (oldLevel - 1));
  } else {
    const model::Column& c = site_.Columns().AtIndex(col);
    level = {col, c.sortOrderDefault, c.sortType == quSortNone ? quSortByValueGeneral : c.sortType};
  }
  if (reverse) {
    level.order = level.order == quSortAsc ? quSortDesc : quSortAsc;
    newLevel = oldLevel;
  }
  if (newLevel > 0)
    after.insert(after.begin() + std::min<size_t>(static_cast<size_t>(newLevel - 1), after.size()),
                 level);
  QuiltaEvents* events = site_.Events();
  bool cancel = false;
  if (events) events->BeforeGroupByChange(col, newLevel, cancel);
  // A handler that cancels, or changes the grouping or the columns itself, keeps its own state.
  if (cancel || site_.GroupedBy() != before || col > site_.Columns().ColCount()) return;
  site_.Regroup(after);
  if (events) events->AfterGroupByChange(col, newLevel, oldLevel);
}

// ---- Mouse ------------------------------------------------------------------------------------

bool GroupByBand::Mouse(HeaderMouse action, int16_t button, int16_t /*shift*/, Point at) {
  switch (action) {
    case HeaderMouse::Down:
    case HeaderMouse::DblClick:
      return Down(button, at);
    case HeaderMouse::Move:
      return Move(at);
    case HeaderMouse::Up:
      return Up(at);
    case HeaderMouse::Leave:
      return gesture_ != Gesture::None;
  }
  return false;
}

bool GroupByBand::Down(int16_t button, Point at) {
  if (gesture_ != Gesture::None) return true;
  if (!Shown() || !site_.GetView().GroupByArea().Contains(at)) return false;
  if (button != 1 || !site_.Look().enabled || !site_.GroupingAllowed()) return true;
  const int32_t level = LevelAt(at);
  if (level == 0) return true;
  gesture_ = Gesture::Press;
  pressedLevel_ = level;
  pressedCol_ = site_.GroupedBy()[static_cast<size_t>(level - 1)].col;
  start_ = at;
  outside_ = false;
  site_.InvalidateBand(site_.GetView().GroupByArea());
  return true;
}

bool GroupByBand::Move(Point at) {
  if (gesture_ == Gesture::None) return false;
  if (gesture_ == Gesture::Press) {
    const bool far =
        std::abs(at.x - start_.x) >= Px(kDragStart) || std::abs(at.y - start_.y) >= Px(kDragStart);
    if (!far) return true;
    gesture_ = Gesture::Drag;
  }
  const bool inBand = site_.GetView().GroupByArea().Contains(at);
  if (inBand == outside_) {
    outside_ = !inBand;
    site_.InvalidateBand(site_.GetView().GroupByArea());
  }
  SetDropLevel(inBand ? DropLevel(at, pressedLevel_) : 0);
  return true;
}

bool GroupByBand::Up(Point at) {
  if (gesture_ == Gesture::None) return false;
  const Gesture gesture = gesture_;
  const int32_t col = pressedCol_;
  const int32_t level = pressedLevel_;
  // The gesture is over before any event: a handler that throws leaves no drag behind.
  Reset();
  site_.InvalidateBand(site_.GetView().GroupByArea());
  if (LevelOf(site_.GroupedBy(), col) != level) return true;
  if (gesture == Gesture::Press) {
    if (LevelAt(at) == level) Change(col, level, true);
  } else if (site_.GetView().GroupByArea().Contains(at)) {
    Change(col, DropLevel(at, level), false);
  } else {
    Change(col, 0, false);
  }
  return true;
}

void GroupByBand::Reset() {
  gesture_ = Gesture::None;
  pressedCol_ = 0;
  pressedLevel_ = 0;
  dropLevel_ = 0;
  outside_ = false;
}

}  // namespace quilta::header
