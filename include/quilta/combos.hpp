// Combo lists: named lists of items (text, value, icon, extra data) that combo cells show and
// pick from. A cell names its list with CellCtrlKey; a combo cell shows the text of the item
// whose value equals the cell value.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace quilta {

struct ComboItem {
  std::string text;
  Variant value;
  int16_t icon = 0;
  int32_t extraData = 0;
};

class ComboObject {
 public:
  explicit ComboObject(std::string key) : key_(std::move(key)) {}

  const std::string& Key() const { return key_; }
  int32_t ItemCount() const { return static_cast<int32_t>(items_.size()); }
  // Adds an item and returns its 0-based index. Without a value the item's text is its value.
  // vIndexBefore inserts before that index; missing appends.
  int32_t AddItem(std::string_view sText, const Variant& vValue = Variant::Missing(),
                  int16_t iIcon = 0, int32_t lExtraData = 0,
                  const Variant& vIndexBefore = Variant::Missing());
  void RemoveItem(int32_t lIndex);
  void Clear();

  std::string ItemText(int32_t lIndex) const;
  void SetItemText(int32_t lIndex, std::string_view sText);
  Variant ItemValue(int32_t lIndex) const;
  void SetItemValue(int32_t lIndex, const Variant& vValue);
  int16_t ItemIcon(int32_t lIndex) const;
  void SetItemIcon(int32_t lIndex, int16_t iIcon);
  int32_t ItemExtraData(int32_t lIndex) const;
  void SetItemExtraData(int32_t lIndex, int32_t lExtraData);

  // The first item whose value equals vValue by the runtime's comparison, or -1.
  int32_t FindItemByValue(const Variant& vValue) const;
  // The first item whose text equals sText (ignoring case unless bMatchCase), or -1.
  int32_t FindItemByText(std::string_view sText, bool bMatchCase = false) const;

 private:
  const ComboItem& At(int32_t index) const;
  ComboItem& At(int32_t index);

  std::string key_;
  std::vector<ComboItem> items_;
};

class CombosObject {
 public:
  // Adds an empty list under a key (keys ignore case; 515 when taken, 514 when empty).
  ComboObject& Add(std::string_view sKey);
  // Removes a list by key or by 1-based position (513 when there is none).
  void Remove(const Variant& vKey);
  // A list by key or by 1-based position (513 when there is none).
  ComboObject& Item(const Variant& vKey);
  const ComboObject* Find(std::string_view sKey) const;
  bool Exists(std::string_view sKey) const { return Find(sKey) != nullptr; }
  int32_t Count() const { return static_cast<int32_t>(lists_.size()); }
  void Clear() { lists_.clear(); }

 private:
  size_t PositionOf(const Variant& vKey) const;

  std::vector<std::unique_ptr<ComboObject>> lists_;
};

}  // namespace quilta
