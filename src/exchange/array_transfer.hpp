// LoadFromArray and LoadIntoArray: raw cell values between a rectangle of existing cells and a
// one- or two-dimensional array. Neither ever adds rows or columns or resizes the array.
#pragma once

#include <cstdint>
#include <quilta/variant.hpp>

#include "exchange/exchange_site.hpp"
#include "model/grid_store.hpp"

namespace quilta::exchange {

class ArrayTransfer {
 public:
  ArrayTransfer(model::GridStore& store, ExchangeSite& site) : store_(store), site_(site) {}

  // Both check the array (514) and resolve the start cell (513) before touching anything.
  void LoadFromArray(const Variant& vStartRow, const Variant& vStartCol, const Variant& vArray,
                     bool colMajor);
  void LoadIntoArray(const Variant& vStartRow, const Variant& vStartCol, Variant& vArray,
                     bool colMajor) const;

 private:
  // How array elements meet cells: element (lb1 + a, lb2 + b) holds the cell at row
  // startRow + (rowsAlongFirst ? a : b), column startCol + (rowsAlongFirst ? b : a).
  struct Mapping {
    int32_t startRow, startCol;
    int32_t rows, cols;
    int32_t lb1, lb2;
    bool twoDims;
    bool rowsAlongFirst;
  };
  Mapping Map(const Variant& vStartRow, const Variant& vStartCol, const Variant& vArray,
              bool colMajor) const;

  model::GridStore& store_;
  ExchangeSite& site_;
};

}  // namespace quilta::exchange
