// The control facade: control-level properties, update suspension and persistence.
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta {

using P = model::Prop;

bool Quilta::AllowGrouping() const { return c_->props.Bool(P::AllowGrouping); }
void Quilta::SetAllowGrouping(bool b) { c_->SetProperty(P::AllowGrouping, b); }

bool Quilta::AllowGroupRowEditing() const { return c_->props.Bool(P::AllowGroupRowEditing); }
void Quilta::SetAllowGroupRowEditing(bool b) { c_->SetProperty(P::AllowGroupRowEditing, b); }

bool Quilta::AllowSorting() const { return c_->props.Bool(P::AllowSorting); }
void Quilta::SetAllowSorting(bool b) { c_->SetProperty(P::AllowSorting, b); }

std::string Quilta::AutoColHeaderTextTemplate() const {
  return c_->props.String(P::AutoColHeaderTextTemplate);
}
void Quilta::SetAutoColHeaderTextTemplate(std::string_view s) {
  c_->SetProperty(P::AutoColHeaderTextTemplate, Variant(s));
}

int32_t Quilta::AutoWidthColMaxRows() const { return c_->props.Long(P::AutoWidthColMaxRows); }
void Quilta::SetAutoWidthColMaxRows(int32_t l) { c_->SetProperty(P::AutoWidthColMaxRows, l); }

bool Quilta::AutoWidthColWithHeader() const { return c_->props.Bool(P::AutoWidthColWithHeader); }
void Quilta::SetAutoWidthColWithHeader(bool b) { c_->SetProperty(P::AutoWidthColWithHeader, b); }

Color Quilta::BackColor() const { return c_->props.Long(P::BackColor); }
void Quilta::SetBackColor(Color c) { c_->SetProperty(P::BackColor, c); }

Color Quilta::BackColorOddRows() const { return c_->props.Long(P::BackColorOddRows); }
void Quilta::SetBackColorOddRows(Color c) { c_->SetProperty(P::BackColorOddRows, c); }

Color Quilta::BackColorEvenRows() const { return c_->props.Long(P::BackColorEvenRows); }
void Quilta::SetBackColorEvenRows(Color c) { c_->SetProperty(P::BackColorEvenRows, c); }

EBorderType Quilta::BorderType() const {
  return static_cast<EBorderType>(c_->props.Long(P::BorderType));
}
void Quilta::SetBorderType(EBorderType e) {
  c_->SetProperty(P::BorderType, static_cast<int32_t>(e));
}

bool Quilta::BrowseAllNonFrozenCols() const { return c_->props.Bool(P::BrowseAllNonFrozenCols); }
void Quilta::SetBrowseAllNonFrozenCols(bool b) { c_->SetProperty(P::BrowseAllNonFrozenCols, b); }

bool Quilta::BuiltinContextMenus() const { return c_->props.Bool(P::BuiltinContextMenus); }
void Quilta::SetBuiltinContextMenus(bool b) { c_->SetProperty(P::BuiltinContextMenus, b); }

int32_t Quilta::CellCheckGap() const { return c_->props.Long(P::CellCheckGap); }
void Quilta::SetCellCheckGap(int32_t l) { c_->SetProperty(P::CellCheckGap, l); }

int32_t Quilta::CellIconGap() const { return c_->props.Long(P::CellIconGap); }
void Quilta::SetCellIconGap(int32_t l) { c_->SetProperty(P::CellIconGap, l); }

bool Quilta::ChangeColorsWhenDisabled() const {
  return c_->props.Bool(P::ChangeColorsWhenDisabled);
}
void Quilta::SetChangeColorsWhenDisabled(bool b) {
  c_->SetProperty(P::ChangeColorsWhenDisabled, b);
}

bool Quilta::CopyPasteEnabled() const { return c_->props.Bool(P::CopyPasteEnabled); }
void Quilta::SetCopyPasteEnabled(bool b) { c_->SetProperty(P::CopyPasteEnabled, b); }

bool Quilta::DefaultAutoGroupRowExpanded() const {
  return c_->props.Bool(P::DefaultAutoGroupRowExpanded);
}
void Quilta::SetDefaultAutoGroupRowExpanded(bool b) {
  c_->SetProperty(P::DefaultAutoGroupRowExpanded, b);
}

bool Quilta::DisableIcons() const { return c_->props.Bool(P::DisableIcons); }
void Quilta::SetDisableIcons(bool b) { c_->SetProperty(P::DisableIcons, b); }

bool Quilta::DragSelect() const { return c_->props.Bool(P::DragSelect); }
void Quilta::SetDragSelect(bool b) { c_->SetProperty(P::DragSelect, b); }

bool Quilta::DrawRowText() const { return c_->props.Bool(P::DrawRowText); }
void Quilta::SetDrawRowText(bool b) { c_->SetProperty(P::DrawRowText, b); }

bool Quilta::Editable() const { return c_->props.Bool(P::Editable); }
void Quilta::SetEditable(bool b) { c_->SetProperty(P::Editable, b); }

bool Quilta::Enabled() const { return c_->props.Bool(P::Enabled); }
void Quilta::SetEnabled(bool b) { c_->SetProperty(P::Enabled, b); }

bool Quilta::EnsureVisibleAutoHScroll() const {
  return c_->props.Bool(P::EnsureVisibleAutoHScroll);
}
void Quilta::SetEnsureVisibleAutoHScroll(bool b) {
  c_->SetProperty(P::EnsureVisibleAutoHScroll, b);
}

bool Quilta::EnsureVisibleAutoVScroll() const {
  return c_->props.Bool(P::EnsureVisibleAutoVScroll);
}
void Quilta::SetEnsureVisibleAutoVScroll(bool b) {
  c_->SetProperty(P::EnsureVisibleAutoVScroll, b);
}

bool Quilta::FlatCellControls() const { return c_->props.Bool(P::FlatCellControls); }
void Quilta::SetFlatCellControls(bool b) { c_->SetProperty(P::FlatCellControls, b); }

bool Quilta::FocusRect() const { return c_->props.Bool(P::FocusRect); }
void Quilta::SetFocusRect(bool b) { c_->SetProperty(P::FocusRect, b); }

Color Quilta::FocusRectColor1() const { return c_->props.Long(P::FocusRectColor1); }
void Quilta::SetFocusRectColor1(Color c) { c_->SetProperty(P::FocusRectColor1, c); }

Color Quilta::FocusRectColor2() const { return c_->props.Long(P::FocusRectColor2); }
void Quilta::SetFocusRectColor2(Color c) { c_->SetProperty(P::FocusRectColor2, c); }

bool Quilta::FocusRectNoFocus() const { return c_->props.Bool(P::FocusRectNoFocus); }
void Quilta::SetFocusRectNoFocus(bool b) { c_->SetProperty(P::FocusRectNoFocus, b); }

Color Quilta::FocusRectNoFocusColor1() const { return c_->props.Long(P::FocusRectNoFocusColor1); }
void Quilta::SetFocusRectNoFocusColor1(Color c) { c_->SetProperty(P::FocusRectNoFocusColor1, c); }

Color Quilta::FocusRectNoFocusColor2() const { return c_->props.Long(P::FocusRectNoFocusColor2); }
void Quilta::SetFocusRectNoFocusColor2(Color c) { c_->SetProperty(P::FocusRectNoFocusColor2, c); }

Color Quilta::ForeColor() const { return c_->props.Long(P::ForeColor); }
void Quilta::SetForeColor(Color c) { c_->SetProperty(P::ForeColor, c); }

int32_t Quilta::FrozenCols() const { return c_->props.Long(P::FrozenCols); }
void Quilta::SetFrozenCols(int32_t l) { c_->SetProperty(P::FrozenCols, l); }

Color Quilta::FrozenColsEdgeColor() const { return c_->props.Long(P::FrozenColsEdgeColor); }
void Quilta::SetFrozenColsEdgeColor(Color c) { c_->SetProperty(P::FrozenColsEdgeColor, c); }

bool Quilta::FrozenColsEdgeDrawAlways() const {
  return c_->props.Bool(P::FrozenColsEdgeDrawAlways);
}
void Quilta::SetFrozenColsEdgeDrawAlways(bool b) {
  c_->SetProperty(P::FrozenColsEdgeDrawAlways, b);
}

int32_t Quilta::FrozenColsEdgeWidth() const { return c_->props.Long(P::FrozenColsEdgeWidth); }
void Quilta::SetFrozenColsEdgeWidth(int32_t l) { c_->SetProperty(P::FrozenColsEdgeWidth, l); }

bool Quilta::FullRowSelect() const { return c_->props.Bool(P::FullRowSelect); }
void Quilta::SetFullRowSelect(bool b) { c_->SetProperty(P::FullRowSelect, b); }

Color Quilta::GridLineColor() const { return c_->props.Long(P::GridLineColor); }
void Quilta::SetGridLineColor(Color c) { c_->SetProperty(P::GridLineColor, c); }

EGridLines Quilta::GridLines() const {
  return static_cast<EGridLines>(c_->props.Long(P::GridLines));
}
void Quilta::SetGridLines(EGridLines e) { c_->SetProperty(P::GridLines, static_cast<int32_t>(e)); }

EGridLinesExtendModes Quilta::GridLinesExtend() const {
  return static_cast<EGridLinesExtendModes>(c_->props.Long(P::GridLinesExtend));
}
void Quilta::SetGridLinesExtend(EGridLinesExtendModes e) {
  c_->SetProperty(P::GridLinesExtend, static_cast<int32_t>(e));
}

int32_t Quilta::GridLineThicknessH() const { return c_->props.Long(P::GridLineThicknessH); }
void Quilta::SetGridLineThicknessH(int32_t l) { c_->SetProperty(P::GridLineThicknessH, l); }

int32_t Quilta::GridLineThicknessV() const { return c_->props.Long(P::GridLineThicknessV); }
void Quilta::SetGridLineThicknessV(int32_t l) { c_->SetProperty(P::GridLineThicknessV, l); }

bool Quilta::HideSelection() const { return c_->props.Bool(P::HideSelection); }
void Quilta::SetHideSelection(bool b) { c_->SetProperty(P::HideSelection, b); }

Color Quilta::HighlightBackColor() const { return c_->props.Long(P::HighlightBackColor); }
void Quilta::SetHighlightBackColor(Color c) { c_->SetProperty(P::HighlightBackColor, c); }

Color Quilta::HighlightBackColorNoFocus() const {
  return c_->props.Long(P::HighlightBackColorNoFocus);
}
void Quilta::SetHighlightBackColorNoFocus(Color c) {
  c_->SetProperty(P::HighlightBackColorNoFocus, c);
}

Color Quilta::HighlightForeColor() const { return c_->props.Long(P::HighlightForeColor); }
void Quilta::SetHighlightForeColor(Color c) { c_->SetProperty(P::HighlightForeColor, c); }

Color Quilta::HighlightForeColorNoFocus() const {
  return c_->props.Long(P::HighlightForeColorNoFocus);
}
void Quilta::SetHighlightForeColorNoFocus(Color c) {
  c_->SetProperty(P::HighlightForeColorNoFocus, c);
}

bool Quilta::HighlightSelIcons() const { return c_->props.Bool(P::HighlightSelIcons); }
void Quilta::SetHighlightSelIcons(bool b) { c_->SetProperty(P::HighlightSelIcons, b); }

bool Quilta::HighlightSelCells() const { return c_->props.Bool(P::HighlightSelCells); }
void Quilta::SetHighlightSelCells(bool b) { c_->SetProperty(P::HighlightSelCells, b); }

EKeyPressBehaviour Quilta::KeyPressBehaviour() const {
  return static_cast<EKeyPressBehaviour>(c_->props.Long(P::KeyPressBehaviour));
}
void Quilta::SetKeyPressBehaviour(EKeyPressBehaviour e) {
  c_->SetProperty(P::KeyPressBehaviour, static_cast<int32_t>(e));
}

bool Quilta::KeySearchFromCurRow() const { return c_->props.Bool(P::KeySearchFromCurRow); }
void Quilta::SetKeySearchFromCurRow(bool b) { c_->SetProperty(P::KeySearchFromCurRow, b); }

bool Quilta::KeySearchLoop() const { return c_->props.Bool(P::KeySearchLoop); }
void Quilta::SetKeySearchLoop(bool b) { c_->SetProperty(P::KeySearchLoop, b); }

int32_t Quilta::LevelIndent() const { return c_->props.Long(P::LevelIndent); }
void Quilta::SetLevelIndent(int32_t l) { c_->SetProperty(P::LevelIndent, l); }

int16_t Quilta::OLEDropMode() const { return c_->props.Get(P::OLEDropMode).IntegerValue(); }
void Quilta::SetOLEDropMode(int16_t i) { c_->SetProperty(P::OLEDropMode, i); }

bool Quilta::OpaqueTextInHatchedCells() const {
  return c_->props.Bool(P::OpaqueTextInHatchedCells);
}
void Quilta::SetOpaqueTextInHatchedCells(bool b) {
  c_->SetProperty(P::OpaqueTextInHatchedCells, b);
}

std::string Quilta::GroupByBoxText() const { return c_->props.String(P::GroupByBoxText); }
void Quilta::SetGroupByBoxText(std::string_view s) {
  c_->SetProperty(P::GroupByBoxText, Variant(s));
}
bool Quilta::GroupByBoxVisible() const { return c_->props.Bool(P::GroupByBoxVisible); }
void Quilta::SetGroupByBoxVisible(bool b) { c_->SetProperty(P::GroupByBoxVisible, b); }

bool Quilta::PrefixGroupValues() const { return c_->props.Bool(P::PrefixGroupValues); }
void Quilta::SetPrefixGroupValues(bool b) { c_->SetProperty(P::PrefixGroupValues, b); }

EScrollBarStyles Quilta::ScrollBarStyle() const {
  return static_cast<EScrollBarStyles>(c_->props.Long(P::ScrollBarStyle));
}
void Quilta::SetScrollBarStyle(EScrollBarStyles e) {
  c_->SetProperty(P::ScrollBarStyle, static_cast<int32_t>(e));
}

uint8_t Quilta::SelectionAlphaBlend() const {
  return c_->props.Get(P::SelectionAlphaBlend).ByteValue();
}
void Quilta::SetSelectionAlphaBlend(uint8_t bt) { c_->SetProperty(P::SelectionAlphaBlend, bt); }

bool Quilta::ShowControlsInAllCells() const { return c_->props.Bool(P::ShowControlsInAllCells); }
void Quilta::SetShowControlsInAllCells(bool b) { c_->SetProperty(P::ShowControlsInAllCells, b); }

bool Quilta::SilentValidation() const { return c_->props.Bool(P::SilentValidation); }
void Quilta::SetSilentValidation(bool b) { c_->SetProperty(P::SilentValidation, b); }

bool Quilta::SkipNonSelectableCells() const { return c_->props.Bool(P::SkipNonSelectableCells); }
void Quilta::SetSkipNonSelectableCells(bool b) { c_->SetProperty(P::SkipNonSelectableCells, b); }

bool Quilta::SortScrollToCurRow() const { return c_->props.Bool(P::SortScrollToCurRow); }
void Quilta::SetSortScrollToCurRow(bool b) { c_->SetProperty(P::SortScrollToCurRow, b); }

Color Quilta::TreeButtonBackColor() const { return c_->props.Long(P::TreeButtonBackColor); }
void Quilta::SetTreeButtonBackColor(Color c) { c_->SetProperty(P::TreeButtonBackColor, c); }

Color Quilta::TreeButtonBorderColor() const { return c_->props.Long(P::TreeButtonBorderColor); }
void Quilta::SetTreeButtonBorderColor(Color c) { c_->SetProperty(P::TreeButtonBorderColor, c); }

Color Quilta::TreeButtonForeColor() const { return c_->props.Long(P::TreeButtonForeColor); }
void Quilta::SetTreeButtonForeColor(Color c) { c_->SetProperty(P::TreeButtonForeColor, c); }

int32_t Quilta::TreeButtonSize() const { return c_->props.Long(P::TreeButtonSize); }
void Quilta::SetTreeButtonSize(int32_t l) { c_->SetProperty(P::TreeButtonSize, l); }

int32_t Quilta::TreeCol() const { return c_->props.Long(P::TreeCol); }
void Quilta::SetTreeCol(int32_t l) { c_->SetProperty(P::TreeCol, l); }

ETreeLines Quilta::TreeLines() const {
  return static_cast<ETreeLines>(c_->props.Long(P::TreeLines));
}
void Quilta::SetTreeLines(ETreeLines e) { c_->SetProperty(P::TreeLines, static_cast<int32_t>(e)); }

Color Quilta::TreeLinesColor() const { return c_->props.Long(P::TreeLinesColor); }
void Quilta::SetTreeLinesColor(Color c) { c_->SetProperty(P::TreeLinesColor, c); }

bool Quilta::TreeRootLines() const { return c_->props.Bool(P::TreeRootLines); }
void Quilta::SetTreeRootLines(bool b) { c_->SetProperty(P::TreeRootLines, b); }

int32_t Quilta::ToolTipDelayTime() const { return c_->props.Long(P::ToolTipDelayTime); }
void Quilta::SetToolTipDelayTime(int32_t l) { c_->SetProperty(P::ToolTipDelayTime, l); }

int32_t Quilta::ToolTipVisibleTime() const { return c_->props.Long(P::ToolTipVisibleTime); }
void Quilta::SetToolTipVisibleTime(int32_t l) { c_->SetProperty(P::ToolTipVisibleTime, l); }

bool Quilta::UseTabKey() const { return c_->props.Bool(P::UseTabKey); }
void Quilta::SetUseTabKey(bool b) { c_->SetProperty(P::UseTabKey, b); }

bool Quilta::UseXPStyles() const { return c_->props.Bool(P::UseXPStyles); }
void Quilta::SetUseXPStyles(bool b) { c_->SetProperty(P::UseXPStyles, b); }

std::shared_ptr<quilta::Font> Quilta::Font() const {
  return std::make_shared<quilta::Font>(c_->props.FontValue());
}
void Quilta::SetFont(const std::shared_ptr<quilta::Font>& font) {
  c_->SetProperty(P::Font, Variant::Object(font));
}

// ---- Update suspension ----------------------------------------------------------------------

void Quilta::BeginUpdate() { c_->BeginUpdate(); }
void Quilta::EndUpdate() { c_->EndUpdate(); }
int32_t Quilta::BeginUpdateCount() const { return c_->updates.count; }
bool Quilta::BeginUpdateRecalcRowParms() const {
  return c_->props.Bool(P::BeginUpdateRecalcRowParms);
}
void Quilta::SetBeginUpdateRecalcRowParms(bool b) {
  c_->SetProperty(P::BeginUpdateRecalcRowParms, b);
}

// ---- Persistence ----------------------------------------------------------------------------

void Quilta::ReadProperties(PropertyBag& bag) {
  // Every value is read and checked before any is applied, so a bad store changes nothing.
  std::vector<Variant> values;
  values.reserve(model::kPropCount);
  for (size_t i = 0; i < model::kPropCount; ++i) {
    auto p = static_cast<P>(i);
    const model::PropertyInfo& info = model::Info(p);
    values.push_back(
        model::ControlProperties::Normalize(p, bag.ReadProperty(info.name, info.defaultValue)));
  }
  c_->loadingProperties = true;
  for (size_t i = 0; i < model::kPropCount; ++i) c_->ApplyProperty(static_cast<P>(i), values[i]);
  c_->loadingProperties = false;
}

void Quilta::WriteProperties(PropertyBag& bag) const {
  for (size_t i = 0; i < model::kPropCount; ++i) {
    auto p = static_cast<P>(i);
    const model::PropertyInfo& info = model::Info(p);
    Variant value = c_->PropertyValue(p);
    if (model::ControlProperties::Same(p, value, info.defaultValue)) value = info.defaultValue;
    bag.WriteProperty(info.name, value, info.defaultValue);
  }
}

}  // namespace quilta
