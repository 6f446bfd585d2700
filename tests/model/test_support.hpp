// Helpers shared by the grid-model tests.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <quilta/quilta.hpp>

#include "control/control.hpp"

namespace quilta::testing {

// Runs call and expects it to raise the object-model error with this code.
inline void ExpectError(int32_t code, const std::function<void()>& call) {
  try {
    call();
    ADD_FAILURE() << "expected error " << code;
  } catch (const Error& e) {
    EXPECT_EQ(e.Code(), code) << e.what();
  }
}

// Everything a failed call must leave as it was: counts, keys, tags and cell values.
struct GridSnapshot {
  int32_t rows, cols, allocated;
  std::vector<std::string> rowKeys, colKeys;
  std::vector<Variant> rowTags;
  std::vector<int32_t> keyLookups;
  std::vector<Variant> cells;

  static GridSnapshot Of(const Quilta& g) {
    GridSnapshot s{g.RowCount(), g.ColCount(), g.Sys(quSysMemMngAllocatedRows), {}, {}, {}, {}, {}};
    for (int32_t r = 1; r <= g.RowCount(); ++r) {
      s.rowKeys.push_back(g.RowKey(r));
      s.rowTags.push_back(g.RowTag(r));
      s.keyLookups.push_back(s.rowKeys.back().empty() ? 0 : g.RowIndex(s.rowKeys.back()));
    }
    for (int32_t c = 1; c <= g.ColCount(); ++c) {
      s.colKeys.push_back(g.ColKey(c));
      for (int32_t r = 1; r <= g.RowCount(); ++r) s.cells.push_back(g.CellValue(r, c));
    }
    return s;
  }
  bool operator==(const GridSnapshot&) const = default;
};

}  // namespace quilta::testing
