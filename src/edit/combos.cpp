#include <cmath>
#include <quilta/combos.hpp>
#include <quilta/error.hpp>

#include "model/text/text.hpp"

namespace quilta {
namespace {
[[noreturn]] void Raise(int32_t code) { throw Error::FromCode(code); }
}  // namespace

int32_t ComboObject::AddItem(std::string_view sText, const Variant& vValue, int16_t iIcon,
                             int32_t lExtraData, const Variant& vIndexBefore) {
  size_t at = items_.size();
  if (!vIndexBefore.IsMissing()) {
    int32_t before = CLng(vIndexBefore);
    if (before < 0 || before > ItemCount()) Raise(quErrSubscriptOutOfRange);
    at = static_cast<size_t>(before);
  }
  ComboItem item{std::string(sText), vValue.IsMissing() ? Variant(sText) : vValue, iIcon,
                 lExtraData};
  items_.insert(items_.begin() + static_cast<std::ptrdiff_t>(at), std::move(item));
  return static_cast<int32_t>(at);
}

void ComboObject::RemoveItem(int32_t lIndex) {
  At(lIndex);
  items_.erase(items_.begin() + lIndex);
}

void ComboObject::Clear() { items_.clear(); }

const ComboItem& ComboObject::At(int32_t index) const {
  if (index < 0 || index >= ItemCount()) Raise(quErrSubscriptOutOfRange);
  return items_[static_cast<size_t>(index)];
}

ComboItem& ComboObject::At(int32_t index) {
  return const_cast<ComboItem&>(static_cast<const ComboObject*>(this)->At(index));
}

std::string ComboObject::ItemText(int32_t i) const { return At(i).text; }
void ComboObject::SetItemText(int32_t i, std::string_view s) { At(i).text = std::string(s); }
Variant ComboObject::ItemValue(int32_t i) const { return At(i).value; }
void ComboObject::SetItemValue(int32_t i, const Variant& v) { At(i).value = v; }
int16_t ComboObject::ItemIcon(int32_t i) const { return At(i).icon; }
void ComboObject::SetItemIcon(int32_t i, int16_t icon) { At(i).icon = icon; }
int32_t ComboObject::ItemExtraData(int32_t i) const { return At(i).extraData; }
void ComboObject::SetItemExtraData(int32_t i, int32_t d) { At(i).extraData = d; }

int32_t ComboObject::FindItemByValue(const Variant& vValue) const {
  for (size_t i = 0; i < items_.size(); ++i)
    if (Compare(items_[i].value, vValue, vbBinaryCompare) == VarCmpEq)
      return static_cast<int32_t>(i);
  return -1;
}

int32_t ComboObject::FindItemByText(std::string_view sText, bool bMatchCase) const {
  for (size_t i = 0; i < items_.size(); ++i) {
    int c = bMatchCase ? text::CompareBinary(items_[i].text, sText)
                       : text::CompareNoCase(items_[i].text, sText);
    if (c == 0) return static_cast<int32_t>(i);
  }
  return -1;
}

ComboObject& CombosObject::Add(std::string_view sKey) {
  if (sKey.empty()) Raise(quErrInvalidArgument);
  if (Exists(sKey)) Raise(quErrDuplicateKey);
  lists_.push_back(std::make_unique<ComboObject>(std::string(sKey)));
  return *lists_.back();
}

const ComboObject* CombosObject::Find(std::string_view sKey) const {
  for (const auto& list : lists_)
    if (text::CompareNoCase(list->Key(), sKey) == 0) return list.get();
  return nullptr;
}

size_t CombosObject::PositionOf(const Variant& vKey) const {
  if (vKey.IsString()) {
    for (size_t i = 0; i < lists_.size(); ++i)
      if (text::CompareNoCase(lists_[i]->Key(), vKey.StringView()) == 0) return i;
  } else if (vKey.IsNumber()) {
    double n = std::nearbyint(CDbl(vKey));
    if (n >= 1 && n <= Count()) return static_cast<size_t>(n) - 1;
  }
  Raise(quErrSubscriptOutOfRange);
}

void CombosObject::Remove(const Variant& vKey) {
  lists_.erase(lists_.begin() + static_cast<std::ptrdiff_t>(PositionOf(vKey)));
}

ComboObject& CombosObject::Item(const Variant& vKey) { return *lists_[PositionOf(vKey)]; }

}  // namespace quilta
