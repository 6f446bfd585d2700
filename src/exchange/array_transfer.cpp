#include "exchange/array_transfer.hpp"

#include <algorithm>
#include <quilta/error.hpp>

namespace quilta::exchange {

ArrayTransfer::Mapping ArrayTransfer::Map(const Variant& vStartRow, const Variant& vStartCol,
                                          const Variant& vArray, bool colMajor) const {
  if (!vArray.IsArray()) throw Error::FromCode(quErrInvalidArgument);
  int32_t dims = vArray.Dims();
  if (dims != 1 && dims != 2) throw Error::FromCode(quErrInvalidArgument);
  Mapping m{};
  m.startRow = store_.ResolveRow(vStartRow);
  m.startCol = store_.ResolveColIndex(vStartCol);
  m.twoDims = dims == 2;
  m.lb1 = vArray.LBound(1);
  m.lb2 = m.twoDims ? vArray.LBound(2) : 0;
  int64_t len1 = int64_t{vArray.UBound(1)} - m.lb1 + 1;
  int64_t len2 = m.twoDims ? int64_t{vArray.UBound(2)} - m.lb2 + 1 : 1;
  // A 1-D array runs down one column, or across one row in column-major order.
  m.rowsAlongFirst = !colMajor;
  int64_t alongRows = m.rowsAlongFirst ? len1 : len2;
  int64_t alongCols = m.rowsAlongFirst ? len2 : len1;
  int64_t rowRoom = int64_t{store_.RowCount()} - m.startRow + 1;
  int64_t colRoom = int64_t{store_.ColCount()} - m.startCol + 1;
  m.rows = static_cast<int32_t>(std::max<int64_t>(0, std::min(rowRoom, alongRows)));
  m.cols = static_cast<int32_t>(std::max<int64_t>(0, std::min(colRoom, alongCols)));
  return m;
}

void ArrayTransfer::LoadFromArray(const Variant& vStartRow, const Variant& vStartCol,
                                  const Variant& vArray, bool colMajor) {
  Mapping m = Map(vStartRow, vStartCol, vArray, colMajor);
  if (m.rows == 0 || m.cols == 0) return;
  for (int32_t j = 0; j < m.cols; ++j) {
    int32_t colIndex = m.startCol + j;
    model::CellColumn& column = store_.Cells().Column(colIndex);
    for (int32_t k = 0; k < m.rows; ++k) {
      int32_t a = m.rowsAlongFirst ? k : j;
      int32_t b = m.rowsAlongFirst ? j : k;
      const Variant& element = m.twoDims ? vArray.At(m.lb1 + a, m.lb2 + b) : vArray.At(m.lb1 + a);
      model::Cell& cell = store_.MutableCell(m.startRow + k, colIndex);
      cell.value = element;
      column.NoteRefs(cell);
      cell.state |= model::Cell::kRemeasure;
    }
  }
  site_.CellValuesWritten(m.startRow);
}

void ArrayTransfer::LoadIntoArray(const Variant& vStartRow, const Variant& vStartCol,
                                  Variant& vArray, bool colMajor) const {
  Mapping m = Map(vStartRow, vStartCol, vArray, colMajor);
  for (int32_t j = 0; j < m.cols; ++j) {
    for (int32_t k = 0; k < m.rows; ++k) {
      int32_t a = m.rowsAlongFirst ? k : j;
      int32_t b = m.rowsAlongFirst ? j : k;
      Variant value = store_.CellAt(m.startRow + k, m.startCol + j).value;
      if (m.twoDims) {
        vArray.SetAt(m.lb1 + a, m.lb2 + b, std::move(value));
      } else {
        vArray.SetAt(m.lb1 + a, std::move(value));
      }
    }
  }
}

}  // namespace quilta::exchange
