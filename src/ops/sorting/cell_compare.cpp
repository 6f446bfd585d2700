#include "ops/sorting/cell_compare.hpp"

#include <limits>

#include "model/text/text.hpp"

namespace quilta::ops {

SortKind KindOf(int32_t sortType) {
  switch (sortType) {
    case quSortByValueGeneral:
      return SortKind::General;
    case quSortByValueUseCase:
    case quSortByValueNoCase:
      return SortKind::ValueText;
    case quSortByCellTextUseCase:
    case quSortByCellTextNoCase:
      return SortKind::CellText;
    case quSortByIcon:
    case quSortByExtraIcon:
      return SortKind::Icon;
    case quSortByForeColor:
    case quSortByBackColor:
    case quSortByFontIndex:
    case quSortBySelected:
    case quSortBySelectable:
    case quSortByHatch:
    case quSortByCheckState:
    case quSortByCheckVisible:
    case quSortByComboListIndex:
    case quSortByExtraData:
      return SortKind::Field;
    case quSortByValueCustomGroups:
      return SortKind::CustomGroups;
    case quSortCustom:
      return SortKind::Custom;
    default:
      return SortKind::None;
  }
}

bool ValidSortType(int32_t sortType) {
  return KindOf(sortType) != SortKind::None || sortType == quSortNone;
}

bool NoCase(int32_t sortType) {
  return sortType == quSortByValueNoCase || sortType == quSortByCellTextNoCase;
}

int CompareGeneral(const Variant& a, const Variant& b) {
  if (a.IsString() && b.IsString()) return text::CompareNoCase(a.StringView(), b.StringView());
  int nulls = CompareNulls(a.IsNull(), b.IsNull());
  if (nulls != 2) return nulls;
  VarCmpResult r = Compare(a, b, vbTextCompare);
  return r == VarCmpGt ? 1 : r == VarCmpLt ? -1 : 0;
}

int CompareText(std::string_view a, std::string_view b, bool noCase) {
  return noCase ? text::CompareNoCase(a, b) : text::CompareBinary(a, b);
}

int64_t FieldValue(int32_t sortType, const model::Cell& cell) {
  switch (sortType) {
    case quSortByIcon:
      return cell.Icon();
    case quSortByExtraIcon:
      return cell.ExtraIcon();
    case quSortByForeColor:
      return cell.foreColor;
    case quSortByBackColor:
      return cell.backColor;
    case quSortByFontIndex:
      return cell.font;
    case quSortBySelected:
      return cell.state & model::Cell::kSelected;
    case quSortBySelectable:
      return cell.state & model::Cell::kSelectable;
    case quSortByHatch:
      return cell.Hatch();
    case quSortByCheckState:
      return cell.CheckState();
    case quSortByCheckVisible:
      return cell.check & model::Cell::kCheckVisible;
    case quSortByComboListIndex:
      return cell.comboListIndex;
    case quSortByExtraData:
      return cell.extraData;
    default:
      return 0;
  }
}

int64_t CompareFields(int32_t sortType, int64_t a, int64_t b) {
  switch (sortType) {
    case quSortByIcon:
    case quSortByExtraIcon:
    case quSortByFontIndex:  // kept to 16 bits
      return static_cast<int16_t>(static_cast<uint16_t>(a - b));
    case quSortByForeColor:
    case quSortByBackColor:  // 32-bit difference
      return static_cast<int32_t>(static_cast<uint32_t>(a - b));
    case quSortByComboListIndex:
    case quSortByExtraData:
      return (a > b) - (a < b);
    default:
      return a - b;
  }
}

bool FieldsOrderNaturally(int32_t sortType, int64_t low, int64_t high) {
  switch (sortType) {
    case quSortByIcon:
    case quSortByExtraIcon:
    case quSortByFontIndex:
      return high - low <= std::numeric_limits<int16_t>::max();
    case quSortByForeColor:
    case quSortByBackColor:
      return high - low <= std::numeric_limits<int32_t>::max();
    default:
      return true;
  }
}

}  // namespace quilta::ops
