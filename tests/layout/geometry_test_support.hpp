// Helpers shared by the geometry tests.
#pragma once

#include <vector>

#include "control/internals_access.hpp"
#include "model/test_support.hpp"

namespace quilta::testing {

struct EditWatcher : QuiltaEvents {
  int quits = 0;
  void QuitCustomEdit() override { ++quits; }
};

// A grid on its own headless platform, with an event sink counting QuitCustomEdit.
struct GeometryFixture {
  HeadlessPlatform platform;
  Quilta grid{platform};
  EditWatcher events;
  GeometryFixture() { grid.SetEventSink(&events); }
  control::Control& Internals() { return control::Internals(grid); }
  const layout::ColumnTotals& Totals() { return control::Internals(grid).geometry.Columns(); }
  int32_t LayoutMark() { return control::Internals(grid).geometry.LayoutMark(); }
  void ClearLayoutMark() { control::Internals(grid).geometry.TakeLayoutMark(); }
};

// Every value geometry stores or derives for columns and rows, for "nothing changed" checks.
struct GeometrySnapshot {
  std::vector<int32_t> values;

  static GeometrySnapshot Of(Quilta& g) {
    GeometrySnapshot s;
    for (int32_t p = 1; p <= g.RowTextCol(); ++p) {
      int32_t c = g.ColFromPos(p);
      s.values.insert(s.values.end(), {c, g.ColWidth(c), g.ColMinWidth(c), g.ColMaxWidth(c),
                                       g.ColStartX(c), g.ColVisibleIndex(c), g.ColVisible(c)});
    }
    for (int32_t r = 1; r <= g.RowCount(); ++r)
      s.values.insert(s.values.end(), {g.RowHeight(r), g.RowNormalCellHeight(r), g.RowStartY(r),
                                       g.RowVisibleIndex(r), g.RowVisible(r)});
    return s;
  }
  bool operator==(const GeometrySnapshot&) const = default;
};

}  // namespace quilta::testing
