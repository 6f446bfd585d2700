// LayoutSort: which columns the grid is sorted by, with their priorities and directions, as a
// layout string. Reading it sorts the grid again.
#pragma once

#include <optional>
#include <quilta/sort_group_object.hpp>
#include <string>
#include <string_view>

#include "exchange/exchange_site.hpp"
#include "model/column_store.hpp"

namespace quilta::exchange {

class SortLayout {
 public:
  SortLayout(model::ColumnStore& cols, SortGroupObject& sortObject, ExchangeSite& site)
      : cols_(cols), sortObject_(sortObject), site_(site) {}

  std::string Write() const;
  // Damage ends the reading silently: keys and orders read so far stay, and nothing is sorted.
  void Read(std::string_view layout);

 private:
  // Reads the items into the columns; the largest sort key read, or nothing on damage.
  std::optional<int32_t> ReadKeys(std::string_view layout);
  void SortByKeys(int32_t keys);

  model::ColumnStore& cols_;
  SortGroupObject& sortObject_;
  ExchangeSite& site_;
};

}  // namespace quilta::exchange
