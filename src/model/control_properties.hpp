// The control-level properties that the host's property store saves by name: their names,
// types, defaults and value rules, and the stored values of those no subsystem owns.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <quilta/font.hpp>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>

namespace quilta::model {

enum class Prop : uint8_t {
  AllowGrouping,
  AllowGroupRowEditing,
  AllowSorting,
  AutoColHeaderTextTemplate,
  AutoWidthColMaxRows,
  AutoWidthColWithHeader,
  BackColor,
  BackColorOddRows,
  BackColorEvenRows,
  BeginUpdateRecalcRowParms,
  BorderType,
  BrowseAllNonFrozenCols,
  BuiltinContextMenus,
  CellCheckGap,
  CellIconGap,
  ChangeColorsWhenDisabled,
  CopyPasteEnabled,
  DefaultAutoGroupRowExpanded,
  DisableIcons,
  DragSelect,
  DrawRowText,
  Editable,
  Enabled,
  EnsureVisibleAutoHScroll,
  EnsureVisibleAutoVScroll,
  FlatCellControls,
  FocusRect,
  FocusRectColor1,
  FocusRectColor2,
  FocusRectNoFocus,
  FocusRectNoFocusColor1,
  FocusRectNoFocusColor2,
  Font,
  ForeColor,
  FrozenCols,
  FrozenColsEdgeColor,
  FrozenColsEdgeDrawAlways,
  FrozenColsEdgeWidth,
  FullRowSelect,
  GridLineColor,
  GridLines,
  GridLinesExtend,
  GridLineThicknessH,
  GridLineThicknessV,
  GroupByBoxText,
  GroupByBoxVisible,
  HideSelection,
  HighlightBackColor,
  HighlightBackColorNoFocus,
  HighlightForeColor,
  HighlightForeColorNoFocus,
  HighlightSelIcons,
  HighlightSelCells,
  KeyPressBehaviour,
  KeySearchFromCurRow,
  KeySearchLoop,
  LevelIndent,
  MemMngWantFreeRows,
  MultiSelect,
  OLEDropMode,
  OpaqueTextInHatchedCells,
  PrefixGroupValues,
  RowMode,
  ScrollBarStyle,
  SelectionAlphaBlend,
  ShowControlsInAllCells,
  SilentValidation,
  SkipNonSelectableCells,
  SortScrollToCurRow,
  StoreInitRowNumbers,
  TreeButtonBackColor,
  TreeButtonBorderColor,
  TreeButtonForeColor,
  TreeButtonSize,
  TreeCol,
  TreeLines,
  TreeLinesColor,
  TreeRootLines,
  ToolTipDelayTime,
  ToolTipVisibleTime,
  UseTabKey,
  UseXPStyles,
  Virtual,
  Count
};

inline constexpr size_t kPropCount = static_cast<size_t>(Prop::Count);

enum class PropKind : uint8_t { Boolean, Long, Integer, Byte, Color, String, Font, Enum };

struct PropertyInfo {
  std::string_view name;
  PropKind kind;
  Variant defaultValue;
  int32_t min = INT32_MIN;  // Long and Enum values below it are refused (514)
  int32_t max = INT32_MAX;  // Long and Enum values above it are refused (514)
};

const PropertyInfo& Info(Prop p);

class ControlProperties {
 public:
  ControlProperties();

  // Converts a value to the property's type and checks its rules: raises the conversion's
  // runtime error or 514, and changes nothing.
  static Variant Normalize(Prop p, const Variant& raw);

  // Whether two normalized values of a property are the same value (fonts compare by value).
  static bool Same(Prop p, const Variant& a, const Variant& b);

  const Variant& Get(Prop p) const { return values_[static_cast<size_t>(p)]; }
  bool Bool(Prop p) const { return Get(p).BoolValue(); }
  int32_t Long(Prop p) const { return Get(p).LongValue(); }
  std::string String(Prop p) const { return std::string(Get(p).StringView()); }
  const quilta::Font& FontValue() const;
  // Stores a normalized value; returns whether it differs from the old one.
  bool Store(Prop p, Variant normalized);

 private:
  std::array<Variant, kPropCount> values_;
};

}  // namespace quilta::model
