// Grouping keeps what the rest of the grid holds about its rows: the selection, subtrees under
// their parents, and aggregates only of columns that exist (cases the random tester found).
#include <gtest/gtest.h>

#include <quilta/quilta.hpp>

#include "consistency_checker.hpp"

namespace quilta::testing {
namespace {

using testkit::ConsistencyChecker;
using testkit::Describe;

void ExpectConsistent(Quilta& g) {
  const auto problems = ConsistencyChecker::ForGrid().Run(g);
  EXPECT_TRUE(problems.empty()) << Describe(problems);
}

// Rows tagged 1..n whose column 1 holds the given values.
void Rows(Quilta& g, std::initializer_list<int> values) {
  g.AddCol({.lCount = 2});
  for (int v : values) {
    const int32_t r = g.AddRow();
    g.SetCellValue(r, 1, v);
    g.SetRowTag(r, r);
  }
}

int32_t RowOfTag(const Quilta& g, int32_t tag) {
  for (int32_t r = 1; r <= g.RowCount(); ++r)
    if (g.RowTag(r) == Variant(tag)) return r;
  return 0;
}

TEST(GroupingKeepsRows, TheSelectionFollowsItsRowsThroughGroupAndUngroup) {
  Quilta g;
  Rows(g, {3, 1, 3, 2});
  g.SetMultiSelect(true);
  g.SetCurCell(1, 2);
  g.SetCellSelected(4, 1, true);
  g.Group(1);  // group rows come in, the data rows are sorted
  ExpectConsistent(g);
  EXPECT_TRUE(g.CellSelected(RowOfTag(g, 1), 2));
  EXPECT_TRUE(g.CellSelected(RowOfTag(g, 4), 1));
  EXPECT_EQ(g.SelItems().Count(), 2);
  EXPECT_EQ(g.CurRow(), RowOfTag(g, 1));
  g.Ungroup();
  ExpectConsistent(g);
  EXPECT_EQ(g.SelItems().Count(), 2);
  EXPECT_TRUE(g.CellSelected(RowOfTag(g, 4), 1));
}

TEST(GroupingKeepsRows, ChildRowsStayUnderTheirParentsWithoutATreeColumn) {
  Quilta g;
  Rows(g, {5, 9});
  const int32_t child = g.AddRow({.vRowParent = 1});  // a child of the row holding 5
  g.SetCellValue(child, 1, 1);
  g.Group(1);
  for (int32_t r = 1; r <= g.RowCount(); ++r) {
    const bool outside = !g.RowIsGroupRow(r) && g.RowLevel(r) == 0;
    EXPECT_FALSE(outside) << "row " << r << " is outside the groups";
  }
  EXPECT_EQ(g.RowParent(RowOfTag(g, 1) + 1), RowOfTag(g, 1));
  ExpectConsistent(g);
}

TEST(GroupingKeepsRows, ClearWithColumnsDropsTheAggregates) {
  Quilta g;
  Rows(g, {1, 2});
  g.AddCol({.lCount = 3});
  g.Group(1);
  g.AggrFuncs().AddItem(4, quAggrMax);
  g.Ungroup();
  g.Clear(true);
  EXPECT_EQ(g.AggrFuncs().Count(), 0);
  g.AddCol();
  g.AddRow();
  g.Group(1);  // an aggregate of a column that went would be read here
  EXPECT_EQ(g.RowCount(), 2);
  ExpectConsistent(g);
}

}  // namespace
}  // namespace quilta::testing
