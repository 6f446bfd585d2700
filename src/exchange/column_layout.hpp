// LayoutCol: the width, display position and visibility of every column as a layout string,
// written for the current resolution and read back at any other.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "exchange/exchange_site.hpp"
#include "model/column_store.hpp"

namespace quilta::exchange {

class ColumnLayout {
 public:
  ColumnLayout(model::ColumnStore& cols, ExchangeSite& site) : cols_(cols), site_(site) {}

  std::string Write() const;
  // Damage ends the reading silently and leaves every column as it was: the new table is only
  // put in place when the whole string has been read.
  void Read(std::string_view layout);

 private:
  struct Placements;
  bool ReadItems(std::string_view items, double factor, Placements& out) const;
  std::vector<model::Column> NewColumns(Placements& p) const;

  model::ColumnStore& cols_;
  ExchangeSite& site_;
};

}  // namespace quilta::exchange
