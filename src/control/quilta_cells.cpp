// The control facade: cell properties, cell text and the column default cells.
#include <quilta/quilta.hpp>

#include "control/control.hpp"
#include "model/cell_object_access.hpp"

namespace quilta {
namespace {

struct CellRef {
  int32_t row;
  int32_t colIndex;
};

CellRef Resolve(const control::Control& c, const Variant& vRow, const Variant& vCol) {
  return {c.store.ResolveRow(vRow), c.store.ResolveColIndex(vCol)};
}

Variant GetCellProp(const control::Control& c, const Variant& vRow, const Variant& vCol,
                    ECellProperty p) {
  CellRef ref = Resolve(c, vRow, vCol);
  return c.CellProperty(ref.row, ref.colIndex, p);
}

void SetCellProp(control::Control& c, const Variant& vRow, const Variant& vCol, ECellProperty p,
                 const Variant& value) {
  CellRef ref = Resolve(c, vRow, vCol);
  c.SetCellProperty(ref.row, ref.colIndex, p, value);
}

}  // namespace

Variant Quilta::CellValue(const Variant& vRow, const Variant& vCol) const {
  CellRef ref = Resolve(*c_, vRow, vCol);
  return c_->store.CellAt(ref.row, ref.colIndex).value;
}
void Quilta::SetCellValue(const Variant& vRow, const Variant& vCol, const Variant& vValue) {
  CellRef ref = Resolve(*c_, vRow, vCol);
  c_->SetCellValue(ref.row, ref.colIndex, vValue);
}
ECellTypes Quilta::CellType(const Variant& vRow, const Variant& vCol) const {
  return static_cast<ECellTypes>(GetCellProp(*c_, vRow, vCol, quPropCellType).LongValue());
}
void Quilta::SetCellType(const Variant& vRow, const Variant& vCol, ECellTypes eType) {
  SetCellProp(*c_, vRow, vCol, quPropCellType, static_cast<int32_t>(eType));
}
ECellTypeFlags Quilta::CellTypeFlags(const Variant& vRow, const Variant& vCol) const {
  return static_cast<ECellTypeFlags>(GetCellProp(*c_, vRow, vCol, quPropCellTypeFlags).LongValue());
}
void Quilta::SetCellTypeFlags(const Variant& vRow, const Variant& vCol, ECellTypeFlags eFlags) {
  SetCellProp(*c_, vRow, vCol, quPropCellTypeFlags, static_cast<int32_t>(eFlags));
}
ETextFormatFlags Quilta::CellTextFlags(const Variant& vRow, const Variant& vCol) const {
  return static_cast<ETextFormatFlags>(
      GetCellProp(*c_, vRow, vCol, quPropCellTextFlags).LongValue());
}
void Quilta::SetCellTextFlags(const Variant& vRow, const Variant& vCol, ETextFormatFlags eFlags) {
  SetCellProp(*c_, vRow, vCol, quPropCellTextFlags, static_cast<int32_t>(eFlags));
}
EHAlignment Quilta::CellAlignH(const Variant& vRow, const Variant& vCol) const {
  return static_cast<EHAlignment>(GetCellProp(*c_, vRow, vCol, quPropCellAlignH).LongValue());
}
void Quilta::SetCellAlignH(const Variant& vRow, const Variant& vCol, EHAlignment eAlign) {
  SetCellProp(*c_, vRow, vCol, quPropCellAlignH, static_cast<int32_t>(eAlign));
}
EVAlignment Quilta::CellAlignV(const Variant& vRow, const Variant& vCol) const {
  return static_cast<EVAlignment>(GetCellProp(*c_, vRow, vCol, quPropCellAlignV).LongValue());
}
void Quilta::SetCellAlignV(const Variant& vRow, const Variant& vCol, EVAlignment eAlign) {
  SetCellProp(*c_, vRow, vCol, quPropCellAlignV, static_cast<int32_t>(eAlign));
}
ECellIconToText Quilta::CellIconToText(const Variant& vRow, const Variant& vCol) const {
  return static_cast<ECellIconToText>(
      GetCellProp(*c_, vRow, vCol, quPropCellIconToText).LongValue());
}
void Quilta::SetCellIconToText(const Variant& vRow, const Variant& vCol, ECellIconToText ePos) {
  SetCellProp(*c_, vRow, vCol, quPropCellIconToText, static_cast<int32_t>(ePos));
}
uint8_t Quilta::CellIndentLeft(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellIndentLeft).ByteValue();
}
void Quilta::SetCellIndentLeft(const Variant& vRow, const Variant& vCol, uint8_t btIndent) {
  SetCellProp(*c_, vRow, vCol, quPropCellIndentLeft, btIndent);
}
uint8_t Quilta::CellIndentRight(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellIndentRight).ByteValue();
}
void Quilta::SetCellIndentRight(const Variant& vRow, const Variant& vCol, uint8_t btIndent) {
  SetCellProp(*c_, vRow, vCol, quPropCellIndentRight, btIndent);
}
uint8_t Quilta::CellIndentTop(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellIndentTop).ByteValue();
}
void Quilta::SetCellIndentTop(const Variant& vRow, const Variant& vCol, uint8_t btIndent) {
  SetCellProp(*c_, vRow, vCol, quPropCellIndentTop, btIndent);
}
uint8_t Quilta::CellIndentBottom(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellIndentBottom).ByteValue();
}
void Quilta::SetCellIndentBottom(const Variant& vRow, const Variant& vCol, uint8_t btIndent) {
  SetCellProp(*c_, vRow, vCol, quPropCellIndentBottom, btIndent);
}
Color Quilta::CellBackColor(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellBackColor).LongValue();
}
void Quilta::SetCellBackColor(const Variant& vRow, const Variant& vCol, Color oColor) {
  SetCellProp(*c_, vRow, vCol, quPropCellBackColor, oColor);
}
Color Quilta::CellForeColor(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellForeColor).LongValue();
}
void Quilta::SetCellForeColor(const Variant& vRow, const Variant& vCol, Color oColor) {
  SetCellProp(*c_, vRow, vCol, quPropCellForeColor, oColor);
}
uint8_t Quilta::CellImageList(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellImageList).ByteValue();
}
void Quilta::SetCellImageList(const Variant& vRow, const Variant& vCol, uint8_t btList) {
  SetCellProp(*c_, vRow, vCol, quPropCellImageList, btList);
}
uint8_t Quilta::CellExtraImageList(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellExtraImageList).ByteValue();
}
void Quilta::SetCellExtraImageList(const Variant& vRow, const Variant& vCol, uint8_t btList) {
  SetCellProp(*c_, vRow, vCol, quPropCellExtraImageList, btList);
}
int16_t Quilta::CellIcon(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellIcon).IntegerValue();
}
void Quilta::SetCellIcon(const Variant& vRow, const Variant& vCol, int16_t iIcon) {
  SetCellProp(*c_, vRow, vCol, quPropCellIcon, iIcon);
}
int16_t Quilta::CellExtraIcon(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellExtraIcon).IntegerValue();
}
void Quilta::SetCellExtraIcon(const Variant& vRow, const Variant& vCol, int16_t iIcon) {
  SetCellProp(*c_, vRow, vCol, quPropCellExtraIcon, iIcon);
}
EHatchStyles Quilta::CellHatch(const Variant& vRow, const Variant& vCol) const {
  return static_cast<EHatchStyles>(GetCellProp(*c_, vRow, vCol, quPropCellHatch).LongValue());
}
void Quilta::SetCellHatch(const Variant& vRow, const Variant& vCol, EHatchStyles eHatch) {
  SetCellProp(*c_, vRow, vCol, quPropCellHatch, static_cast<int32_t>(eHatch));
}
bool Quilta::CellSelectable(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellSelectable).BoolValue();
}
void Quilta::SetCellSelectable(const Variant& vRow, const Variant& vCol, bool bSelectable) {
  SetCellProp(*c_, vRow, vCol, quPropCellSelectable, bSelectable);
}
bool Quilta::CellCheckVisible(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellCheckVisible).BoolValue();
}
void Quilta::SetCellCheckVisible(const Variant& vRow, const Variant& vCol, bool bVisible) {
  SetCellProp(*c_, vRow, vCol, quPropCellCheckVisible, bVisible);
}
ECellCheckState Quilta::CellCheckState(const Variant& vRow, const Variant& vCol) const {
  return static_cast<ECellCheckState>(
      GetCellProp(*c_, vRow, vCol, quPropCellCheckState).LongValue());
}
void Quilta::SetCellCheckState(const Variant& vRow, const Variant& vCol, ECellCheckState eState) {
  SetCellProp(*c_, vRow, vCol, quPropCellCheckState, static_cast<int32_t>(eState));
}
ECellCheckPos Quilta::CellCheckPos(const Variant& vRow, const Variant& vCol) const {
  return static_cast<ECellCheckPos>(GetCellProp(*c_, vRow, vCol, quPropCellCheckPos).LongValue());
}
void Quilta::SetCellCheckPos(const Variant& vRow, const Variant& vCol, ECellCheckPos ePos) {
  SetCellProp(*c_, vRow, vCol, quPropCellCheckPos, static_cast<int32_t>(ePos));
}
int32_t Quilta::CellExtraData(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellExtraData).LongValue();
}
void Quilta::SetCellExtraData(const Variant& vRow, const Variant& vCol, int32_t lData) {
  SetCellProp(*c_, vRow, vCol, quPropCellExtraData, lData);
}
int32_t Quilta::CellComboListIndex(const Variant& vRow, const Variant& vCol) const {
  return GetCellProp(*c_, vRow, vCol, quPropCellComboListIndex).LongValue();
}
void Quilta::SetCellComboListIndex(const Variant& vRow, const Variant& vCol, int32_t lIndex) {
  SetCellProp(*c_, vRow, vCol, quPropCellComboListIndex, lIndex);
}
std::string Quilta::CellCtrlKey(const Variant& vRow, const Variant& vCol) const {
  return std::string(GetCellProp(*c_, vRow, vCol, quPropCellCtrlKey).StringView());
}
void Quilta::SetCellCtrlKey(const Variant& vRow, const Variant& vCol, std::string_view sKey) {
  SetCellProp(*c_, vRow, vCol, quPropCellCtrlKey, Variant(sKey));
}
std::string Quilta::CellFmtString(const Variant& vRow, const Variant& vCol) const {
  return std::string(GetCellProp(*c_, vRow, vCol, quPropCellFmtString).StringView());
}
void Quilta::SetCellFmtString(const Variant& vRow, const Variant& vCol, std::string_view sFormat) {
  SetCellProp(*c_, vRow, vCol, quPropCellFmtString, Variant(sFormat));
}

std::shared_ptr<quilta::Font> Quilta::CellFont(const Variant& vRow, const Variant& vCol) const {
  CellRef ref = Resolve(*c_, vRow, vCol);
  return c_->FontOf(c_->store.CellAt(ref.row, ref.colIndex).font);
}
void Quilta::SetCellFont(const Variant& vRow, const Variant& vCol,
                         const std::shared_ptr<quilta::Font>& oFont) {
  SetCellProp(*c_, vRow, vCol, quPropCellFont, Variant::Object(oFont));
}

void Quilta::CellDefaultForeColor(const Variant& vRow, const Variant& vCol) {
  SetCellProp(*c_, vRow, vCol, quPropCellForeColor, -1);
}
void Quilta::CellDefaultBackColor(const Variant& vRow, const Variant& vCol) {
  SetCellProp(*c_, vRow, vCol, quPropCellBackColor, -1);
}
void Quilta::CellDefaultFont(const Variant& vRow, const Variant& vCol) {
  SetCellProp(*c_, vRow, vCol, quPropCellFont, Variant::Object(std::shared_ptr<quilta::Font>()));
}

Color Quilta::CellEffectiveForeColor(const Variant& vRow, const Variant& vCol) const {
  CellRef ref = Resolve(*c_, vRow, vCol);
  return c_->EffectiveColor(ref.row, ref.colIndex, false);
}
Color Quilta::CellEffectiveBackColor(const Variant& vRow, const Variant& vCol) const {
  CellRef ref = Resolve(*c_, vRow, vCol);
  return c_->EffectiveColor(ref.row, ref.colIndex, true);
}
std::string Quilta::CellText(const Variant& vRow, const Variant& vCol) const {
  CellRef ref = Resolve(*c_, vRow, vCol);
  return c_->CellText(ref.row, ref.colIndex);
}

std::shared_ptr<CellObject> Quilta::ColDefaultCell(const Variant& vCol) const {
  return c_->store.Cols().AtSlot(c_->store.ResolveColSlot(vCol)).defaultCell;
}

void Quilta::SetColCellsProp(const Variant& vCol, ECellProperty eProperty, const Variant& vValue,
                             const Variant& vStartRow, const Variant& vEndRow) {
  int32_t colIndex = c_->store.ResolveColIndex(vCol);
  int32_t first = vStartRow.IsMissing() ? 1 : c_->store.ResolveRow(vStartRow);
  int32_t last = vEndRow.IsMissing() ? c_->store.RowCount() : c_->store.ResolveRow(vEndRow);
  c_->SetColumnCellsProperty(colIndex, eProperty, vValue, first, last);
}

EDynamicContentEvents Quilta::DynamicContentEvents() const {
  return static_cast<EDynamicContentEvents>(c_->dynamicContentEvents);
}
void Quilta::SetDynamicContentEvents(EDynamicContentEvents eEvents) {
  if (eEvents & ~0x0F) throw Error::FromCode(quErrInvalidArgument);
  c_->dynamicContentEvents = eEvents;
  c_->RequestRedraw();
}

CombosObject& Quilta::Combos() { return c_->combos; }

}  // namespace quilta
