// Requests for more memory than the machine has: error 523 before anything changes, in release
// builds and under the sanitizers alike.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <quilta/quilta.hpp>

#include "consistency_checker.hpp"
#include "grid_snapshot.hpp"

namespace {

using namespace quilta;

TEST(OutOfMemory, HugeCountsFailWith523AndChangeNothing) {
  constexpr int32_t kHuge = std::numeric_limits<int32_t>::max() - 100;
  const std::function<void(Quilta&)> calls[] = {
      [](Quilta& g) { g.AddRow({.lCount = kHuge}); },
      [](Quilta& g) { g.AddRow({.vRowBefore = 2, .lCount = kHuge}); },
      [](Quilta& g) { g.SetRowCount(kHuge); },
      [](Quilta& g) { g.AddCol({.sHeader = "wide", .lCount = 1 << 30}); },
      [](Quilta& g) { g.SetColCount(1 << 30); },
  };
  for (const auto& call : calls) {
    Quilta grid;
    for (int c = 0; c < 10; ++c) grid.AddCol();
    grid.AddRow({.sKey = "first", .lCount = 50});
    for (int c = 1; c <= 10; ++c) grid.SetColCellsProp(c, quPropCellValue, 1.5);
    const testkit::GridSnapshot before = testkit::TakeSnapshot(grid);
    try {
      call(grid);
      ADD_FAILURE() << "no error";
    } catch (const Error& e) {
      EXPECT_EQ(e.Code(), 523);
    }
    EXPECT_EQ(testkit::FirstDifference(before, testkit::TakeSnapshot(grid)), "");
    const auto problems = testkit::ConsistencyChecker::ForGrid().Run(grid);
    EXPECT_TRUE(problems.empty()) << testkit::Describe(problems);
    EXPECT_EQ(grid.AddRow(), 51) << "the grid still takes rows";
  }
}

}  // namespace
