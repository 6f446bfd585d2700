// The one place that places the parts of a cell inside its rectangle: tree indent and tree
// button, combo button, check box, indents, icon, extra icon and text. Drawing, hit testing,
// auto-width, text clipping and the editing rectangle all ask this routine, so what is drawn is
// exactly what is hit and measured.
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>
#include <quilta/platform/painter.hpp>

namespace quilta::layout {

// Everything the placement depends on, in device pixels. Sizes of absent parts are 0.
struct CellPartsInput {
  Rect cell;
  // Tree column: `treeSlots` slots of `levelIndent` pixels are reserved at the left; the tree
  // button, when the row shows one, is centred in the last slot.
  int32_t treeSlots = 0;
  int32_t levelIndent = 0;
  bool treeButton = false;
  int32_t treeButtonSize = 0;
  // Combo button at the right edge (combo cells where the button is shown).
  int32_t comboButtonWidth = 0;
  uint8_t indentLeft = 0;
  uint8_t indentRight = 0;
  uint8_t indentTop = 0;
  uint8_t indentBottom = 0;
  // Check box (visible when its size is not 0), with the gap kept on each side of it.
  Size checkBox;
  ECellCheckPos checkPos = quCheckPosLeft;
  int32_t checkGap = 0;
  // Icons (absent when their size is 0) and where they stand relative to the text; the gap
  // separates the icon, the extra icon and the text.
  Size icon;
  Size extraIcon;
  ECellIconToText iconToText = quCellIconToTextLeft;
  int32_t iconGap = 0;
  // Vertical alignment of the icons and the check box beside the text.
  EVAlignment alignV = quAlignVTop;
};

struct CellParts {
  Rect treeButton;
  Rect comboButton;
  Rect checkBox;
  Rect icon;
  Rect extraIcon;
  Rect text;  // may be empty when the other parts take all the room
};

CellParts LayoutCellParts(const CellPartsInput& in);

// The smallest cell width that shows every part and a text of the given width unclipped: the
// inverse of LayoutCellParts along the horizontal axis.
int32_t CellWidthForText(const CellPartsInput& in, int32_t textWidth);

}  // namespace quilta::layout
