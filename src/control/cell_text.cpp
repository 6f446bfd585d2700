// The text of a cell as drawing, sorting, searching and copying see it.
#include "control/control.hpp"

namespace quilta::control {

std::string Control::CellText(int32_t row, int32_t colIndex) {
  const Variant& value = store.CellAt(row, colIndex).value;
  return value.IsNull() ? std::string() : CStr(value);
}

}  // namespace quilta::control
