#include "layout/cell_parts.hpp"

#include <algorithm>

namespace quilta::layout {
namespace {

int32_t AlignedTop(const Rect& area, int32_t height, EVAlignment alignV) {
  switch (alignV) {
    case quAlignVCenter:
      return area.top + (area.Height() - height) / 2;
    case quAlignVBottom:
      return area.bottom - height;
    default:
      return area.top;
  }
}

Rect At(int32_t left, int32_t top, Size size) { return {left, top, left + size.cx, top + size.cy}; }

bool Present(Size s) { return s.cx > 0 && s.cy > 0; }

void PlaceTree(const CellPartsInput& in, Rect& area, CellParts& out) {
  if (in.treeSlots <= 0) return;
  const int32_t treeRight = std::min(area.right, area.left + in.treeSlots * in.levelIndent);
  if (in.treeButton) {
    const int32_t s = in.treeButtonSize;
    const int32_t slotLeft = treeRight - in.levelIndent;
    out.treeButton =
        At(slotLeft + (in.levelIndent - s) / 2, area.top + (area.Height() - s) / 2, {s, s});
  }
  area.left = treeRight;
}

void PlaceComboButton(const CellPartsInput& in, Rect& area, CellParts& out) {
  if (in.comboButtonWidth <= 0) return;
  out.comboButton = {std::max(area.left, area.right - in.comboButtonWidth), area.top, area.right,
                     area.bottom};
  area.right = out.comboButton.left;
}

void ApplyIndents(const CellPartsInput& in, Rect& area) {
  area.left += in.indentLeft;
  area.right -= in.indentRight;
  area.top += in.indentTop;
  area.bottom -= in.indentBottom;
}

void PlaceCheckBox(const CellPartsInput& in, Rect& area, CellParts& out) {
  if (!Present(in.checkBox)) return;
  const Size box = in.checkBox;
  const int32_t gap = in.checkGap;
  const int32_t centredX = area.left + (area.Width() - box.cx) / 2;
  switch (in.checkPos) {
    case quCheckPosTop:
      out.checkBox = At(centredX, area.top + gap, box);
      area.top = out.checkBox.bottom + gap;
      break;
    case quCheckPosRight:
      out.checkBox = At(area.right - gap - box.cx, AlignedTop(area, box.cy, in.alignV), box);
      area.right = out.checkBox.left - gap;
      break;
    case quCheckPosBottom:
      out.checkBox = At(centredX, area.bottom - gap - box.cy, box);
      area.bottom = out.checkBox.top - gap;
      break;
    case quCheckPosCenter:
      out.checkBox = At(centredX, area.top + (area.Height() - box.cy) / 2, box);
      area.right = area.left;  // a centred check box stands alone: no text beside it
      break;
    default:
      out.checkBox = At(area.left + gap, AlignedTop(area, box.cy, in.alignV), box);
      area.left = out.checkBox.right + gap;
      break;
  }
}

// Icons beside the text: the icon nearest the text edge it stands on, the extra icon after it.
void PlaceIcons(const CellPartsInput& in, Rect& area, CellParts& out) {
  const Size sizes[2] = {in.icon, in.extraIcon};
  Rect* rects[2] = {&out.icon, &out.extraIcon};
  int32_t rowWidth = -in.iconGap, rowHeight = 0;
  for (const Size& s : sizes) {
    if (!Present(s)) continue;
    rowWidth += s.cx + in.iconGap;
    rowHeight = std::max(rowHeight, s.cy);
  }
  if (rowHeight == 0) return;
  int32_t x = in.iconToText == quCellIconToTextRight  ? area.right
              : in.iconToText == quCellIconToTextLeft ? area.left
                                                      : area.left + (area.Width() - rowWidth) / 2;
  const int32_t rowTop =
      in.iconToText == quCellIconToTextBottom ? area.bottom - rowHeight : area.top;
  for (int i = 0; i < 2; ++i) {
    const Size s = sizes[i];
    if (!Present(s)) continue;
    switch (in.iconToText) {
      case quCellIconToTextLeft:
        *rects[i] = At(x, AlignedTop(area, s.cy, in.alignV), s);
        x += s.cx + in.iconGap;
        break;
      case quCellIconToTextRight:
        x -= s.cx;
        *rects[i] = At(x, AlignedTop(area, s.cy, in.alignV), s);
        x -= in.iconGap;
        break;
      default:  // a row of icons above or below the text
        *rects[i] = At(x, rowTop + (rowHeight - s.cy) / 2, s);
        x += s.cx + in.iconGap;
        break;
    }
  }
  switch (in.iconToText) {
    case quCellIconToTextLeft:
      area.left = x;
      break;
    case quCellIconToTextRight:
      area.right = x;
      break;
    case quCellIconToTextTop:
      area.top += rowHeight + in.iconGap;
      break;
    default:
      area.bottom -= rowHeight + in.iconGap;
      break;
  }
}

}  // namespace

CellParts LayoutCellParts(const CellPartsInput& in) {
  CellParts out;
  Rect area = in.cell;
  PlaceTree(in, area, out);
  PlaceComboButton(in, area, out);
  ApplyIndents(in, area);
  PlaceCheckBox(in, area, out);
  PlaceIcons(in, area, out);
  out.text = area.IsEmpty() ? Rect{area.left, area.top, area.left, area.top} : area;
  return out;
}

int32_t CellWidthForText(const CellPartsInput& in, int32_t textWidth) {
  int32_t content = textWidth;
  int32_t iconRow = -in.iconGap;
  for (const Size& s : {in.icon, in.extraIcon}) {
    if (Present(s)) iconRow += s.cx + in.iconGap;
  }
  if (iconRow > 0) {
    const bool beside =
        in.iconToText == quCellIconToTextLeft || in.iconToText == quCellIconToTextRight;
    content = beside ? content + iconRow + in.iconGap : std::max(content, iconRow);
  }
  if (Present(in.checkBox)) {
    const int32_t boxWithGaps = in.checkBox.cx + 2 * in.checkGap;
    switch (in.checkPos) {
      case quCheckPosLeft:
      case quCheckPosRight:
        content += boxWithGaps;
        break;
      case quCheckPosCenter:
        content = boxWithGaps;
        break;
      default:
        content = std::max(content, in.checkBox.cx);
        break;
    }
  }
  return std::max(0, in.treeSlots) * in.levelIndent + in.comboButtonWidth + in.indentLeft +
         in.indentRight + content;
}

}  // namespace quilta::layout
