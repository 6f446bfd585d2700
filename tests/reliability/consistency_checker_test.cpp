// The checker reports each kind of internal damage under the check that owns it, and finds
// nothing wrong in a grid that only went through the object model.
#include "consistency_checker.hpp"

#include <gtest/gtest.h>

#include <functional>
#include <quilta/quilta.hpp>

#include "control/internals_access.hpp"

namespace {

using namespace quilta;
using control::Control;
using control::Internals;
using testkit::ConsistencyChecker;

void Fill(Quilta& grid) {
  grid.AddCol({.sKey = "a"});
  grid.AddCol({.sKey = "b"});
  for (int i = 1; i <= 8; ++i) grid.AddRow({.sKey = "r" + std::to_string(i)});
  grid.RemoveRow(3);  // one physical row in the free collection
  grid.SetRowLevel(2, 1);
  grid.SetRowHeight(4, 30);
}

std::string FirstProblem(Quilta& grid) {
  const auto problems = ConsistencyChecker::ForGrid().Run(grid);
  return problems.empty() ? "" : problems.front();
}

TEST(ConsistencyChecker, AGridBuiltThroughTheObjectModelIsConsistent) {
  Quilta grid;
  Fill(grid);
  grid.BeginUpdate();
  grid.AddRow({.vRowBefore = 2, .lCount = 5});
  grid.SetRowHeights(0, 3, 5);
  grid.EndUpdate();
  grid.Sort(1);
  grid.CollapseAllRows();
  grid.SetRowCount(3);
  EXPECT_EQ(FirstProblem(grid), "");
}

TEST(ConsistencyChecker, EachKindOfDamageIsReportedByItsCheck) {
  struct Damage {
    const char* check;
    std::function<void(Control&)> apply;
  };
  const Damage damages[] = {
      {"physical rows", [](Control& c) { c.store.Rows().At(2).phys = c.store.Rows().At(1).phys; }},
      {"physical rows", [](Control& c) { c.store.Rows().AddFree(c.store.Rows().At(1).phys); }},
      {"row keys", [](Control& c) { c.store.Rows().SetKey(c.store.Rows().At(1).phys, "r5"); }},
      {"row keys",
       [](Control& c) { c.store.Rows().SetKey(c.store.Rows().FreePhysRows()[0], "zz"); }},
      {"row totals", [](Control& c) { c.store.Rows().At(5).height = 50; }},
      {"row totals", [](Control& c) { c.store.Rows().At(5).flags ^= model::RowRecord::kGroupRow; }},
      {"row positions", [](Control& c) { c.store.Rows().At(6).startY += 1; }},
      {"row positions", [](Control& c) { c.store.Rows().At(6).visibleIndex = 0; }},
      {"columns", [](Control& c) { c.store.Cols().AtSlot(1).index = 2; }},
      {"columns", [](Control& c) { c.store.Cols().AtSlot(2).keyLower = "a"; }},
      {"column positions", [](Control& c) { c.store.Cols().AtSlot(2).startX = 0; }},
      {"current cell", [](Control& c) { c.selection.PlaceCurrent(99, 1); }},
      {"selection", [](Control& c) { c.store.MutableCell(2, 1).SetSelected(true); }},
      {"selection", [](Control& c) { c.selection.Items().Add(3, 1); }},
  };
  for (const Damage& d : damages) {
    Quilta grid;
    Fill(grid);
    ASSERT_EQ(FirstProblem(grid), "");
    d.apply(Internals(grid));
    EXPECT_EQ(FirstProblem(grid).rfind(d.check, 0), 0u)
        << "expected a report from \"" << d.check << "\", got: " << FirstProblem(grid);
  }
}

TEST(ConsistencyChecker, SubsystemsAddTheirOwnChecks) {
  ConsistencyChecker checker = ConsistencyChecker::ForGrid();
  checker.Add("no more than five rows", [](const Control& c, testkit::Problems& p) {
    if (c.store.RowCount() > 5) p.Report(std::to_string(c.store.RowCount()) + " rows");
  });
  Quilta grid;
  Fill(grid);
  const auto problems = checker.Run(grid);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(problems[0], "no more than five rows: 7 rows");
}

}  // namespace
