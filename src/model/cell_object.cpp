// CellObject: a column default cell, edited with the same conversions, checks and bit packing as
// the Cell* properties of the grid.
#include "model/cell_object_access.hpp"
#include "model/cell_properties.hpp"
#include "model/cell_resources.hpp"

namespace quilta {

struct CellObject::Impl {
  model::Cell record;
  std::shared_ptr<model::CellResources> resources;
  model::CellObjectOwner* owner = nullptr;  // not counted: the grid owns this object

  Variant Read(ECellProperty p) const { return model::ReadCellProperty(record, p, *resources); }
  void Write(ECellProperty p, const Variant& raw) {
    model::WriteCellProperty(record, p, model::NormalizeCellProperty(p, raw, *resources));
    if (owner) owner->DefaultCellChanged(*self);
  }
  CellObject* self = nullptr;
};

CellObject::CellObject(std::unique_ptr<Impl> impl) : impl_(std::move(impl)) { impl_->self = this; }
CellObject::~CellObject() = default;

int32_t CellObject::lComboListIndex() const {
  return impl_->Read(quPropCellComboListIndex).LongValue();
}
void CellObject::SetlComboListIndex(int32_t v) { impl_->Write(quPropCellComboListIndex, v); }
Color CellObject::oBackColor() const { return impl_->Read(quPropCellBackColor).LongValue(); }
void CellObject::SetoBackColor(Color v) { impl_->Write(quPropCellBackColor, v); }
Color CellObject::oForeColor() const { return impl_->Read(quPropCellForeColor).LongValue(); }
void CellObject::SetoForeColor(Color v) { impl_->Write(quPropCellForeColor, v); }
EHAlignment CellObject::eAlignH() const {
  return static_cast<EHAlignment>(impl_->Read(quPropCellAlignH).LongValue());
}
void CellObject::SeteAlignH(EHAlignment v) {
  impl_->Write(quPropCellAlignH, static_cast<int32_t>(v));
}
EVAlignment CellObject::eAlignV() const {
  return static_cast<EVAlignment>(impl_->Read(quPropCellAlignV).LongValue());
}
void CellObject::SeteAlignV(EVAlignment v) {
  impl_->Write(quPropCellAlignV, static_cast<int32_t>(v));
}
ECellIconToText CellObject::eIconToText() const {
  return static_cast<ECellIconToText>(impl_->Read(quPropCellIconToText).LongValue());
}
void CellObject::SeteIconToText(ECellIconToText v) {
  impl_->Write(quPropCellIconToText, static_cast<int32_t>(v));
}
ETextFormatFlags CellObject::eTextFlags() const {
  return static_cast<ETextFormatFlags>(impl_->Read(quPropCellTextFlags).LongValue());
}
void CellObject::SeteTextFlags(ETextFormatFlags v) {
  impl_->Write(quPropCellTextFlags, static_cast<int32_t>(v));
}
uint8_t CellObject::btImageList() const { return impl_->Read(quPropCellImageList).ByteValue(); }
void CellObject::SetbtImageList(uint8_t v) { impl_->Write(quPropCellImageList, v); }
uint8_t CellObject::btExtraImageList() const {
  return impl_->Read(quPropCellExtraImageList).ByteValue();
}
void CellObject::SetbtExtraImageList(uint8_t v) { impl_->Write(quPropCellExtraImageList, v); }
int16_t CellObject::iIcon() const { return impl_->Read(quPropCellIcon).IntegerValue(); }
void CellObject::SetiIcon(int16_t v) { impl_->Write(quPropCellIcon, v); }
int16_t CellObject::iExtraIcon() const { return impl_->Read(quPropCellExtraIcon).IntegerValue(); }
void CellObject::SetiExtraIcon(int16_t v) { impl_->Write(quPropCellExtraIcon, v); }
bool CellObject::bSelectable() const { return impl_->Read(quPropCellSelectable).BoolValue(); }
void CellObject::SetbSelectable(bool v) { impl_->Write(quPropCellSelectable, v); }
bool CellObject::bSelected() const { return impl_->Read(quPropCellSelected).BoolValue(); }
void CellObject::SetbSelected(bool v) { impl_->Write(quPropCellSelected, v); }
uint8_t CellObject::btIndentLeft() const { return impl_->Read(quPropCellIndentLeft).ByteValue(); }
void CellObject::SetbtIndentLeft(uint8_t v) { impl_->Write(quPropCellIndentLeft, v); }
uint8_t CellObject::btIndentRight() const { return impl_->Read(quPropCellIndentRight).ByteValue(); }
void CellObject::SetbtIndentRight(uint8_t v) { impl_->Write(quPropCellIndentRight, v); }
uint8_t CellObject::btIndentTop() const { return impl_->Read(quPropCellIndentTop).ByteValue(); }
void CellObject::SetbtIndentTop(uint8_t v) { impl_->Write(quPropCellIndentTop, v); }
uint8_t CellObject::btIndentBottom() const {
  return impl_->Read(quPropCellIndentBottom).ByteValue();
}
void CellObject::SetbtIndentBottom(uint8_t v) { impl_->Write(quPropCellIndentBottom, v); }
ECellTypeFlags CellObject::eTypeFlags() const {
  return static_cast<ECellTypeFlags>(impl_->Read(quPropCellTypeFlags).LongValue());
}
void CellObject::SeteTypeFlags(ECellTypeFlags v) {
  impl_->Write(quPropCellTypeFlags, static_cast<int32_t>(v));
}
EHatchStyles CellObject::eHatch() const {
  return static_cast<EHatchStyles>(impl_->Read(quPropCellHatch).LongValue());
}
void CellObject::SeteHatch(EHatchStyles v) {
  impl_->Write(quPropCellHatch, static_cast<int32_t>(v));
}
std::string CellObject::sFmtString() const {
  return std::string(impl_->Read(quPropCellFmtString).StringView());
}
void CellObject::SetsFmtString(std::string_view v) {
  impl_->Write(quPropCellFmtString, Variant(v));
}
std::string CellObject::sCtrlKey() const {
  return std::string(impl_->Read(quPropCellCtrlKey).StringView());
}
void CellObject::SetsCtrlKey(std::string_view v) { impl_->Write(quPropCellCtrlKey, Variant(v)); }
Variant CellObject::vValue() const { return impl_->Read(quPropCellValue); }
void CellObject::SetvValue(const Variant& v) { impl_->Write(quPropCellValue, v); }
ECellTypes CellObject::eType() const {
  return static_cast<ECellTypes>(impl_->Read(quPropCellType).LongValue());
}
void CellObject::SeteType(ECellTypes v) { impl_->Write(quPropCellType, static_cast<int32_t>(v)); }
ECellCheckState CellObject::eCheckState() const {
  return static_cast<ECellCheckState>(impl_->Read(quPropCellCheckState).LongValue());
}
void CellObject::SeteCheckState(ECellCheckState v) {
  impl_->Write(quPropCellCheckState, static_cast<int32_t>(v));
}
bool CellObject::bCheckVisible() const { return impl_->Read(quPropCellCheckVisible).BoolValue(); }
void CellObject::SetbCheckVisible(bool v) { impl_->Write(quPropCellCheckVisible, v); }
ECellCheckPos CellObject::eCheckPos() const {
  return static_cast<ECellCheckPos>(impl_->Read(quPropCellCheckPos).LongValue());
}
void CellObject::SeteCheckPos(ECellCheckPos v) {
  impl_->Write(quPropCellCheckPos, static_cast<int32_t>(v));
}

std::shared_ptr<Font> CellObject::oFont() const {
  const model::Cell& cell = impl_->record;
  if (cell.font) return std::make_shared<Font>(impl_->resources->fonts.At(cell.font));
  return impl_->owner ? impl_->owner->DefaultFont() : std::make_shared<Font>();
}
void CellObject::SetoFont(const std::shared_ptr<Font>& v) {
  impl_->Write(quPropCellFont, Variant::Object(v));
}

namespace model {

std::shared_ptr<CellObject> CellObjectAccess::Create(std::shared_ptr<CellResources> resources,
                                                     CellObjectOwner* owner) {
  auto impl = std::make_unique<CellObject::Impl>();
  impl->resources = std::move(resources);
  impl->owner = owner;
  return std::shared_ptr<CellObject>(new CellObject(std::move(impl)));
}

const Cell& CellObjectAccess::Record(const CellObject& obj) { return obj.impl_->record; }
Cell& CellObjectAccess::MutableRecord(CellObject& obj) { return obj.impl_->record; }
void CellObjectAccess::Detach(CellObject& obj) { obj.impl_->owner = nullptr; }

}  // namespace model
}  // namespace quilta
