// The drawing properties of the grid resolved once per paint: colours translated to RGB, the
// focus-dependent choices made, so that painting a cell reads plain fields.
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>
#include <quilta/platform/platform.hpp>

#include "model/control_properties.hpp"

namespace quilta::render {

struct PaintStyle {
  // Backgrounds and text.
  Color back = 0;
  Color fore = 0;
  Color oddRowsBack = -1;  // -1: the grid's back colour
  Color evenRowsBack = -1;
  bool disabledLook = false;  // Enabled off with ChangeColorsWhenDisabled
  Color disabledBack = 0;
  Color disabledFore = 0;
  bool dimIcons = false;  // Enabled off with DisableIcons
  bool enabled = true;
  bool opaqueTextInHatch = true;
  ControlLook cellControlsLook = ControlLook::Themed;
  // Grid lines and the frozen edge.
  bool hLines = true;
  bool vLines = true;
  bool extendH = false;
  bool extendV = false;
  Color gridLineColor = 0;
  int32_t lineH = 1;
  int32_t lineV = 1;
  Color frozenEdgeColor = 0;
  int32_t frozenEdgeWidth = 2;
  bool frozenEdgeAlways = false;
  // Selection and focus.
  bool highlight = true;  // selected cells are drawn highlighted
  Color highlightBack = 0;
  Color highlightFore = 0;
  uint8_t alpha = 255;
  bool highlightIcons = false;
  bool fullRowSelect = false;
  bool focusRect = true;
  Color focusColor1 = 0;
  Color focusColor2 = 0;
  Color keySearchBack = 0;
  Color keySearchFore = 0;
  // Tree of rows.
  ETreeLines treeLines = quTreeLinesNone;
  Color treeLinesColor = 0;
  bool treeRootLines = true;
  Color treeButtonBorder = 0;
  Color treeButtonBack = 0;
  Color treeButtonFore = 0;
  int32_t treeCol = 0;
  int32_t levelIndent = 16;
  // Layout of rows.
  bool drawRowText = false;
  int32_t frozenCols = 0;
  int32_t dynamicEvents = 0;

  static PaintStyle From(const model::ControlProperties& props, const Platform& platform,
                         bool hasFocus, int32_t dynamicEvents, int32_t levelIndentPixels);
};

// A colour in the grid's encoding (system colours with the high bit) as RGB.
Color ToRgb(Color c, const Platform& platform);

}  // namespace quilta::render
