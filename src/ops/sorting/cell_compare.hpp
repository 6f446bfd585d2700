// How two cells compare under each sort type. These are the exact rules; the fast key-based sort
// is checked against them, so any change here changes both paths alike.
#pragma once

#include <cstdint>
#include <quilta/enums.hpp>
#include <quilta/variant.hpp>
#include <string_view>

#include "model/cell.hpp"

namespace quilta::ops {

// What a sort type reads from a cell, which decides how a sort prepares for it.
enum class SortKind : uint8_t {
  None,          // quSortNone, unknown types, columns that do not exist: always equal
  General,       // cell values by the general rule (also custom groups outside grouping)
  ValueText,     // cell values as text, with the null rule
  CellText,      // displayed text
  Field,         // an integer field of the cell record
  Icon,          // icon indexes, which CellDynamicIcons may replace
  CustomGroups,  // values supplied by CustomGroupValue (grouping only)
  Custom         // the host decides through CustomSort
};

SortKind KindOf(int32_t sortType);
// Whether the value is one of ESortTypes.
bool ValidSortType(int32_t sortType);
bool NoCase(int32_t sortType);

// General rule: two strings compare ignoring case; otherwise Null first, then the variant rules.
int CompareGeneral(const Variant& a, const Variant& b);
// Text by character code or ignoring case.
int CompareText(std::string_view a, std::string_view b, bool noCase);
// Null rule of the value-text types: the result when one side is Null, or 2 when neither is.
inline int CompareNulls(bool aNull, bool bNull) {
  if (aNull) return bNull ? 0 : -1;
  return bNull ? 1 : 2;
}

// Field sort types: the field as a number, and the difference the grid takes of two fields.
int64_t FieldValue(int32_t sortType, const model::Cell& cell);
int64_t CompareFields(int32_t sortType, int64_t a, int64_t b);
// Whether comparing fields in [low, high] by CompareFields agrees with their numeric order (the
// 16- and 32-bit differences wrap for far-apart values).
bool FieldsOrderNaturally(int32_t sortType, int64_t low, int64_t high);

}  // namespace quilta::ops
