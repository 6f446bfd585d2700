#include "render/paint_style.hpp"

namespace quilta::render {

using model::Prop;

Color ToRgb(Color c, const Platform& platform) {
  if ((static_cast<uint32_t>(c) & 0xFF000000u) == 0x80000000u)
    return platform.SystemColor(c & 0xFF);
  return c;
}

namespace {

constexpr int32_t kButtonFace = 15;
constexpr int32_t kGreyText = 17;

}  // namespace

PaintStyle PaintStyle::From(const model::ControlProperties& props, const Platform& platform,
                            bool hasFocus, int32_t dynamicEvents, int32_t levelIndentPixels) {
  auto rgb = [&](Prop p) { return ToRgb(props.Long(p), platform); };
  auto optionalRgb = [&](Prop p) { return props.Long(p) == -1 ? -1 : rgb(p); };
  PaintStyle s;
  s.back = rgb(Prop::BackColor);
  s.fore = rgb(Prop::ForeColor);
  s.oddRowsBack = optionalRgb(Prop::BackColorOddRows);
  s.evenRowsBack = optionalRgb(Prop::BackColorEvenRows);
  s.enabled = props.Bool(Prop::Enabled);
  s.disabledLook = !s.enabled && props.Bool(Prop::ChangeColorsWhenDisabled);
  s.disabledBack = platform.SystemColor(kButtonFace);
  s.disabledFore = platform.SystemColor(kGreyText);
  s.dimIcons = !s.enabled && props.Bool(Prop::DisableIcons);
  s.opaqueTextInHatch = props.Bool(Prop::OpaqueTextInHatchedCells);
  s.cellControlsLook = props.Bool(Prop::FlatCellControls) || !props.Bool(Prop::UseXPStyles)
                           ? ControlLook::Flat
                           : ControlLook::Themed;

  const int32_t lines = props.Long(Prop::GridLines);
  s.hLines = lines & quGridLinesHorizontal;
  s.vLines = lines & quGridLinesVertical;
  const int32_t extend = props.Long(Prop::GridLinesExtend);
  s.extendH = extend & quGridLinesExtendHorizontal;
  s.extendV = extend & quGridLinesExtendVertical;
  s.gridLineColor = rgb(Prop::GridLineColor);
  s.lineH = props.Long(Prop::GridLineThicknessH);
  s.lineV = props.Long(Prop::GridLineThicknessV);
  s.frozenEdgeColor = rgb(Prop::FrozenColsEdgeColor);
  s.frozenEdgeWidth = props.Long(Prop::FrozenColsEdgeWidth);
  s.frozenEdgeAlways = props.Bool(Prop::FrozenColsEdgeDrawAlways);

  s.highlight =
      props.Bool(Prop::HighlightSelCells) && (hasFocus || !props.Bool(Prop::HideSelection));
  s.highlightBack = rgb(hasFocus ? Prop::HighlightBackColor : Prop::HighlightBackColorNoFocus);
  s.highlightFore = rgb(hasFocus ? Prop::HighlightForeColor : Prop::HighlightForeColorNoFocus);
  s.alpha = static_cast<uint8_t>(props.Long(Prop::SelectionAlphaBlend));
  s.highlightIcons = props.Bool(Prop::HighlightSelIcons);
  s.fullRowSelect = props.Bool(Prop::FullRowSelect) || props.Bool(Prop::RowMode);
  s.focusRect = props.Bool(Prop::FocusRect) && (hasFocus || props.Bool(Prop::FocusRectNoFocus));
  s.focusColor1 = rgb(hasFocus ? Prop::FocusRectColor1 : Prop::FocusRectNoFocusColor1);
  s.focusColor2 = rgb(hasFocus ? Prop::FocusRectColor2 : Prop::FocusRectNoFocusColor2);
  // The key-search match always shows in the focused highlight colours: a search runs only
  // while the grid has the keyboard.
  s.keySearchBack = rgb(Prop::HighlightBackColor);
  s.keySearchFore = rgb(Prop::HighlightForeColor);

  s.treeLines = static_cast<ETreeLines>(props.Long(Prop::TreeLines));
  s.treeLinesColor = rgb(Prop::TreeLinesColor);
  s.treeRootLines = props.Bool(Prop::TreeRootLines);
  s.treeButtonBorder = rgb(Prop::TreeButtonBorderColor);
  s.treeButtonBack = rgb(Prop::TreeButtonBackColor);
  s.treeButtonFore = rgb(Prop::TreeButtonForeColor);
  s.treeCol = props.Long(Prop::TreeCol);
  s.levelIndent = levelIndentPixels;

  s.drawRowText = props.Bool(Prop::DrawRowText);
  s.frozenCols = props.Long(Prop::FrozenCols);
  s.dynamicEvents = dynamicEvents;
  return s;
}

}  // namespace quilta::render
