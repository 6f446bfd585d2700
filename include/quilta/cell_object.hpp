// CellObject: a column's default cell (the template copied into every new cell of the column).
// It stays valid after its column is removed; it then no longer changes the grid.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/enums.hpp>
#include <quilta/font.hpp>
#include <quilta/variant.hpp>
#include <string>
#include <string_view>

namespace quilta {

namespace model {
struct CellObjectAccess;
}

class CellObject {
 public:
  ~CellObject();
  CellObject(const CellObject&) = delete;
  CellObject& operator=(const CellObject&) = delete;

  int32_t lComboListIndex() const;
  void SetlComboListIndex(int32_t v);
  Color oBackColor() const;
  void SetoBackColor(Color v);
  Color oForeColor() const;
  void SetoForeColor(Color v);
  std::shared_ptr<Font> oFont() const;  // nullptr = the grid's default font
  void SetoFont(const std::shared_ptr<Font>& v);
  EHAlignment eAlignH() const;
  void SeteAlignH(EHAlignment v);
  EVAlignment eAlignV() const;
  void SeteAlignV(EVAlignment v);
  ECellIconToText eIconToText() const;
  void SeteIconToText(ECellIconToText v);
  ETextFormatFlags eTextFlags() const;
  void SeteTextFlags(ETextFormatFlags v);
  uint8_t btImageList() const;
  void SetbtImageList(uint8_t v);
  uint8_t btExtraImageList() const;
  void SetbtExtraImageList(uint8_t v);
  int16_t iIcon() const;
  void SetiIcon(int16_t v);
  int16_t iExtraIcon() const;
  void SetiExtraIcon(int16_t v);
  bool bSelectable() const;
  void SetbSelectable(bool v);
  bool bSelected() const;
  void SetbSelected(bool v);
  uint8_t btIndentLeft() const;
  void SetbtIndentLeft(uint8_t v);
  uint8_t btIndentRight() const;
  void SetbtIndentRight(uint8_t v);
  uint8_t btIndentTop() const;
  void SetbtIndentTop(uint8_t v);
  uint8_t btIndentBottom() const;
  void SetbtIndentBottom(uint8_t v);
  ECellTypeFlags eTypeFlags() const;
  void SeteTypeFlags(ECellTypeFlags v);
  EHatchStyles eHatch() const;
  void SeteHatch(EHatchStyles v);
  std::string sFmtString() const;
  void SetsFmtString(std::string_view v);
  std::string sCtrlKey() const;
  void SetsCtrlKey(std::string_view v);
  Variant vValue() const;
  void SetvValue(const Variant& v);
  ECellTypes eType() const;
  void SeteType(ECellTypes v);
  ECellCheckState eCheckState() const;
  void SeteCheckState(ECellCheckState v);
  bool bCheckVisible() const;
  void SetbCheckVisible(bool v);
  ECellCheckPos eCheckPos() const;
  void SeteCheckPos(ECellCheckPos v);

 private:
  friend struct model::CellObjectAccess;
  struct Impl;
  explicit CellObject(std::unique_ptr<Impl> impl);
  std::unique_ptr<Impl> impl_;
};

}  // namespace quilta
