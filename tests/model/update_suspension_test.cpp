#include "control/internals_access.hpp"
#include "model/test_support.hpp"

using namespace quilta;

namespace {

struct Fixture {
  HeadlessPlatform platform;
  Quilta grid{platform};
  Fixture() {
    grid.AddCol();
    grid.AddRow({.lCount = 100});
  }
  int64_t Passes() { return control::Internals(grid).geometry.RowPasses(); }
  int32_t StartY(int32_t row) { return control::Internals(grid).store.Rows().At(row).startY; }
};

TEST(UpdateSuspension, NestedCallsRecalculateOnceFromTheLowestRow) {
  Fixture f;
  int64_t passes = f.Passes();
  f.grid.BeginUpdate();
  f.grid.BeginUpdate();
  f.grid.AddRow({.vRowBefore = 50});
  f.grid.AddRow({.vRowBefore = 10});
  f.grid.EndUpdate();
  EXPECT_EQ(f.grid.BeginUpdateCount(), 1);
  EXPECT_EQ(f.Passes(), passes);
  EXPECT_EQ(control::Internals(f.grid).updates.pendingRow, 10);
  f.grid.EndUpdate();
  EXPECT_EQ(f.Passes(), passes + 1);
  EXPECT_EQ(f.grid.BeginUpdateCount(), 0);
  EXPECT_EQ(f.StartY(102), 101 * 18);
  EXPECT_EQ(control::Internals(f.grid).updates.pendingRow, 0);
}

TEST(UpdateSuspension, SurplusEndUpdateDoesNothing) {
  Fixture f;
  int64_t invalidations = f.platform.Invalidations();
  f.grid.EndUpdate();
  EXPECT_EQ(f.grid.BeginUpdateCount(), 0);
  EXPECT_EQ(f.platform.Invalidations(), invalidations);
}

TEST(UpdateSuspension, DrawingWaitsForTheLastEndUpdate) {
  Fixture f;
  int64_t invalidations = f.platform.Invalidations();
  f.grid.BeginUpdate();
  f.grid.AddRow({.lCount = 5});
  f.grid.RemoveRow(1);
  EXPECT_EQ(f.platform.Invalidations(), invalidations);
  f.grid.EndUpdate();
  EXPECT_EQ(f.platform.Invalidations(), invalidations + 1);
}

TEST(UpdateSuspension, RecalcRowParmsKeepsPositionsRightWhileSuspended) {
  Fixture f;
  f.grid.BeginUpdate();
  f.grid.AddRow({.vRowBefore = 1, .lHeight = 40});
  EXPECT_EQ(f.StartY(2), 0);
  f.grid.SetBeginUpdateRecalcRowParms(true);  // runs the pending pass at once
  EXPECT_EQ(f.StartY(2), 40);
  f.grid.AddRow({.vRowBefore = 1, .lHeight = 10});
  EXPECT_EQ(f.StartY(2), 10);
  EXPECT_EQ(f.StartY(3), 50);
  f.grid.EndUpdate();
}

}  // namespace
