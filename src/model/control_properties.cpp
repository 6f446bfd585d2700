#include "model/control_properties.hpp"

#include <quilta/enums.hpp>
#include <quilta/error.hpp>

namespace quilta::model {
namespace {

constexpr Color SysColor(uint32_t index) { return static_cast<Color>(0x80000000u | index); }

PropertyInfo B(std::string_view n, bool d) { return {n, PropKind::Boolean, Variant(d)}; }
PropertyInfo L(std::string_view n, int32_t d, int32_t min = INT32_MIN) {
  return {n, PropKind::Long, Variant(d), min};
}
PropertyInfo C(std::string_view n, Color d) { return {n, PropKind::Color, Variant(d)}; }
PropertyInfo E(std::string_view n, int32_t d, int32_t max) {
  return {n, PropKind::Enum, Variant(d), 0, max};
}

// In the order of Prop.
const std::array<PropertyInfo, kPropCount>& Table() {
  static const std::array<PropertyInfo, kPropCount> table = {{
      B("AllowGrouping", true),
      B("AllowGroupRowEditing", false),
      B("AllowSorting", true),
      {"AutoColHeaderTextTemplate", PropKind::String, Variant("Col #")},
      L("AutoWidthColMaxRows", 0, 0),
      B("AutoWidthColWithHeader", true),
      C("BackColor", SysColor(5)),
      C("BackColorOddRows", -1),
      C("BackColorEvenRows", -1),
      B("BeginUpdateRecalcRowParms", false),
      E("BorderType", quBorderThemed, quBorderThemed),
      B("BrowseAllNonFrozenCols", false),
      B("BuiltinContextMenus", true),
      L("CellCheckGap", 2, 0),
      L("CellIconGap", 2, 0),
      B("ChangeColorsWhenDisabled", true),
      B("CopyPasteEnabled", true),
      B("DefaultAutoGroupRowExpanded", true),
      B("DisableIcons", true),
      B("DragSelect", true),
      B("DrawRowText", false),
      B("Editable", true),
      B("Enabled", true),
      B("EnsureVisibleAutoHScroll", true),
      B("EnsureVisibleAutoVScroll", true),
      B("FlatCellControls", false),
      B("FocusRect", true),
      C("FocusRectColor1", SysColor(5)),
      C("FocusRectColor2", SysColor(8)),
      B("FocusRectNoFocus", false),
      C("FocusRectNoFocusColor1", SysColor(5)),
      C("FocusRectNoFocusColor2", SysColor(0x11)),
      {"Font", PropKind::Font, Variant::Object(std::make_shared<quilta::Font>())},
      C("ForeColor", SysColor(8)),
      L("FrozenCols", 0, 0),
      C("FrozenColsEdgeColor", SysColor(0x10)),
      B("FrozenColsEdgeDrawAlways", false),
      L("FrozenColsEdgeWidth", 2, 1),
      B("FullRowSelect", false),
      C("GridLineColor", SysColor(0x0F)),
      E("GridLines", quGridLinesBoth, quGridLinesBoth),
      E("GridLinesExtend", quGridLinesExtendNone, quGridLinesExtendBoth),
      L("GridLineThicknessH", 1, 1),
      L("GridLineThicknessV", 1, 1),
      {"GroupByBoxText", PropKind::String,
       Variant("Drag a column header here to group by that column")},
      B("GroupByBoxVisible", false),
      B("HideSelection", false),
      C("HighlightBackColor", SysColor(0x0D)),
      C("HighlightBackColorNoFocus", SysColor(0x0F)),
      C("HighlightForeColor", SysColor(0x0E)),
      C("HighlightForeColorNoFocus", SysColor(8)),
      B("HighlightSelIcons", false),
      B("HighlightSelCells", true),
      E("KeyPressBehaviour", quKeyPressEditReplace, quKeyPressSearchDefCol),
      B("KeySearchFromCurRow", false),
      B("KeySearchLoop", false),
      L("LevelIndent", 16, 0),
      L("MemMngWantFreeRows", 100, 0),
      B("MultiSelect", false),
      {"OLEDropMode", PropKind::Integer, Variant(int16_t{0}), 0, 2},
      B("OpaqueTextInHatchedCells", true),
      B("PrefixGroupValues", true),
      B("RowMode", false),
      E("ScrollBarStyle", quScrollBarRegular, quScrollBarEncarta),
      {"SelectionAlphaBlend", PropKind::Byte, Variant(uint8_t{255})},
      B("ShowControlsInAllCells", false),
      B("SilentValidation", false),
      B("SkipNonSelectableCells", true),
      B("SortScrollToCurRow", true),
      E("StoreInitRowNumbers", quStoreInitRowNoNowhere, quStoreInitRowNoIn1stCol),
      C("TreeButtonBackColor", SysColor(0x0F)),
      C("TreeButtonBorderColor", SysColor(0x10)),
      C("TreeButtonForeColor", SysColor(0x12)),
      L("TreeButtonSize", 9, 1),
      L("TreeCol", 0, 0),
      E("TreeLines", quTreeLinesNone, quTreeLinesSolid),
      C("TreeLinesColor", SysColor(0x10)),
      B("TreeRootLines", true),
      L("ToolTipDelayTime", -1, -1),
      L("ToolTipVisibleTime", 20000, -1),
      B("UseTabKey", true),
      B("UseXPStyles", true),
      B("Virtual", false),
  }};
  return table;
}

int32_t CheckedRange(int32_t v, const PropertyInfo& info) {
  if (v < info.min || v > info.max) throw Error::FromCode(quErrInvalidArgument);
  return v;
}

}  // namespace

const PropertyInfo& Info(Prop p) { return Table()[static_cast<size_t>(p)]; }

ControlProperties::ControlProperties() {
  for (size_t i = 0; i < kPropCount; ++i) values_[i] = Table()[i].defaultValue;
}

Variant ControlProperties::Normalize(Prop p, const Variant& raw) {
  const PropertyInfo& info = Info(p);
  switch (info.kind) {
    case PropKind::Boolean:
      return Variant(CBool(raw));
    case PropKind::Long:
    case PropKind::Enum:
    case PropKind::Color:
      return Variant(CheckedRange(CLng(raw), info));
    case PropKind::Integer:
      return Variant(static_cast<int16_t>(CheckedRange(CInt(raw), info)));
    case PropKind::Byte:
      return Variant(CByte(raw));
    case PropKind::String:
      return Variant(CStr(raw));
    case PropKind::Font: {
      auto font = raw.ObjectAs<quilta::Font>();
      if (!font) throw Error::Runtime(vbErrTypeMismatch);
      return Variant::Object(std::make_shared<quilta::Font>(*font));  // the grid keeps its own copy
    }
  }
  return raw;
}

const quilta::Font& ControlProperties::FontValue() const {
  return *Get(Prop::Font).ObjectAs<quilta::Font>();
}

bool ControlProperties::Same(Prop p, const Variant& a, const Variant& b) {
  if (p != Prop::Font) return a == b;
  auto fa = a.ObjectAs<quilta::Font>();
  auto fb = b.ObjectAs<quilta::Font>();
  return fa && fb && *fa == *fb;
}

bool ControlProperties::Store(Prop p, Variant normalized) {
  Variant& slot = values_[static_cast<size_t>(p)];
  bool changed = !Same(p, slot, normalized);
  slot = std::move(normalized);
  return changed;
}

}  // namespace quilta::model
