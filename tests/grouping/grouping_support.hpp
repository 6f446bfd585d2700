// Helpers shared by the grouping tests.
#pragma once

#include <gtest/gtest.h>

#include <quilta/quilta.hpp>
#include <string>
#include <vector>

#include "model/test_support.hpp"

namespace quilta::testing {

// Sales rows: key, region, units (Long), price (Double), amount (Currency), day (Date).
struct Sale {
  const char* key;
  const char* region;
  Variant units;
  Variant price;
  Variant amount;
  double day;
};

inline std::vector<Sale> Sales() {
  return {
      {"s1", "North", 5, 1.5, Variant::Currency(10.10), 45000},
      {"s2", "south", 3, 2.25, Variant::Currency(0.05), 45031},
      {"s3", "North", Variant::Null(), 0.1, Variant::Currency(20.20), 45001},
      {"s4", "East", 7, Variant(), Variant::Currency(1.01), 45032},
      {"s5", "South", 1, 0.2, Variant::Currency(3.33), 45060},
      {"s6", "north", 2, 0.3, Variant::Null(), 45002},
  };
}

inline void AddSale(Quilta& g, const Sale& s, const Variant& before = Variant::Missing()) {
  int32_t r = g.AddRow({.sKey = s.key, .vRowBefore = before});
  g.SetCellValue(r, "region", s.region);
  g.SetCellValue(r, "units", s.units);
  g.SetCellValue(r, "price", s.price);
  g.SetCellValue(r, "amount", s.amount);
  g.SetCellValue(r, "day", Variant::Date(s.day));
}

inline void SalesGrid(Quilta& g) {
  g.AddCol({.sKey = "region", .sHeader = "Region"});
  g.AddCol({.sKey = "units", .sHeader = "Units"});
  g.AddCol({.sKey = "price", .sHeader = "Price"});
  g.AddCol({.sKey = "amount", .sHeader = "Amount"});
  g.AddCol({.sKey = "day", .sHeader = "Day"});
  for (const Sale& s : Sales()) AddSale(g, s);
}

// One line per row: group rows as "<level>:<group text>", data rows as "<level> <key>".
inline std::vector<std::string> Outline(const Quilta& g) {
  std::vector<std::string> lines;
  for (int32_t r = 1; r <= g.RowCount(); ++r) {
    std::string level = std::to_string(g.RowLevel(r));
    lines.push_back(g.RowIsGroupRow(r) ? level + ":" + g.GroupRowText(r)
                                       : level + " " + g.RowKey(r));
  }
  return lines;
}

inline std::vector<int32_t> GroupRows(const Quilta& g) {
  std::vector<int32_t> rows;
  for (int32_t r = 1; r <= g.RowCount(); ++r)
    if (g.RowIsGroupRow(r)) rows.push_back(r);
  return rows;
}

}  // namespace quilta::testing
