#include <quilta/sel_items_object.hpp>

#include "interaction/sel_items.hpp"

namespace quilta {
namespace {

std::vector<TSelItemInfo> ToInfo(const std::vector<interaction::SelItem>& items) {
  std::vector<TSelItemInfo> out;
  out.reserve(items.size());
  for (const interaction::SelItem& item : items) out.push_back({item.row, item.col});
  return out;
}

std::string ToText(const std::vector<TSelItemInfo>& items) {
  std::string text;
  text.reserve(items.size() * 12);
  for (const TSelItemInfo& item : items) {
    if (!text.empty()) text += ';';
    text += '(';
    text += std::to_string(item.Row);
    text += ',';
    text += std::to_string(item.Col);
    text += ')';
  }
  return text;
}

}  // namespace

int32_t SelItemsObject::Count() const { return items_->Count(); }
bool SelItemsObject::Sorted() const { return items_->Sorted(); }
void SelItemsObject::SetSorted(bool bSorted) { items_->SetSorted(bSorted); }

std::vector<TSelItemInfo> SelItemsObject::GetArray() const {
  return ToInfo(items_->Sorted() ? items_->SortedItems() : items_->Items());
}

std::vector<TSelItemInfo> SelItemsObject::GetArray(int32_t& lMinRow, int32_t& lMaxRow,
                                                   int32_t& lMinCol, int32_t& lMaxCol) const {
  interaction::SelBounds b = items_->Bounds();
  lMinRow = b.minRow, lMaxRow = b.maxRow, lMinCol = b.minCol, lMaxCol = b.maxCol;
  return GetArray();
}

std::string SelItemsObject::GetString() const { return ToText(GetArray()); }

std::string SelItemsObject::GetString(int32_t& lMinRow, int32_t& lMaxRow, int32_t& lMinCol,
                                      int32_t& lMaxCol) const {
  return ToText(GetArray(lMinRow, lMaxRow, lMinCol, lMaxCol));
}

}  // namespace quilta
