#include "control/internals_access.hpp"
#include "ops/ops_support.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

using Flags = std::vector<bool>;

Flags VisibleAsChild(const Quilta& g) {
  Flags v;
  for (int32_t r = 1; r <= g.RowCount(); ++r) v.push_back(g.RowVisibleAsChild(r));
  return v;
}

int32_t Shown(Quilta& g) { return control::Internals(g).store.ShownRowCount(); }
int32_t StartY(Quilta& g, int32_t row) { return control::Internals(g).store.Rows().At(row).startY; }

TEST(Hierarchy, QueriesFollowTheLevels) {
  Quilta g = Tree();
  EXPECT_EQ(g.RowParent("A1b"), 2);
  EXPECT_EQ(g.RowParent("B"), 0);
  EXPECT_EQ(g.RowLastNested("A"), 5);
  EXPECT_EQ(g.RowLastNested("A1a"), 3);  // a leaf is its own subtree
  EXPECT_EQ(g.RowChildCount("A"), 2);    // grandchildren are not counted
  EXPECT_TRUE(g.RowHasChildren("A1"));
  EXPECT_FALSE(g.RowHasChildren("A1b"));  // followed by a row of smaller level
  g.SetRowLevel(7, 5);
  EXPECT_FALSE(g.RowHasChildren(7));  // the last row never has children
  EXPECT_EQ(g.RowChildCount(6), 0);   // a jump of several levels is not a child
  EXPECT_EQ(g.RowParent(7), 0);       // nothing above has level 4
  g.SetRowLevel(1, 3);
  EXPECT_EQ(g.RowParent(1), 0);
  ExpectError(513, [&] { g.RowLevel(0); });
  ExpectError(513, [&] { g.SetRowExpanded("nokey", false); });
}

TEST(Hierarchy, CollapseHidesTheSubtreeAndExpandRestoresItsShape) {
  Quilta g = Tree();
  auto& own = control::Internals(g).store;  // the host's RowVisible survives collapsing
  own.BeforeRowShapeChange(4);
  own.Rows().At(4).flags &= ~model::RowRecord::kVisible;
  own.AfterRowShapeChange(4);
  g.SetRowExpanded("A1", false);
  EventLog events;
  g.SetEventSink(&events);
  g.SetRowExpanded("A", false);
  EXPECT_EQ(events.log, (std::vector<std::string>{"QuitCustomEdit"}));
  EXPECT_EQ(VisibleAsChild(g), (Flags{1, 0, 0, 0, 0, 1, 1}));
  EXPECT_EQ(Shown(g), 3);
  EXPECT_EQ(StartY(g, 6), 18);
  g.SetRowExpanded("A", true);  // A1 is still collapsed: its children stay hidden
  EXPECT_EQ(VisibleAsChild(g), (Flags{1, 1, 0, 0, 1, 1, 1}));
  g.SetRowExpanded("A1", true);
  EXPECT_EQ(VisibleAsChild(g), Flags(7, true));
  EXPECT_FALSE(own.Rows().At(4).Visible());
  EXPECT_EQ(Shown(g), 6);
  EXPECT_EQ(StartY(g, 6), 4 * 18);
  g.SetRowVisibleAsChild("A1", false);  // one row only
  EXPECT_EQ(VisibleAsChild(g), (Flags{1, 0, 1, 1, 1, 1, 1}));
  EXPECT_EQ(StartY(g, 3), 18);
}

TEST(Hierarchy, SettingTheCurrentStateDoesNothing) {
  Quilta g = Tree();
  EventLog events;
  g.SetEventSink(&events);
  int64_t passes = control::Internals(g).geometry.RowPasses();
  g.SetRowExpanded("A", true);
  g.SetRowVisibleAsChild("B", true);
  g.SetRowExpanded("A1a", false);  // a leaf: only its own bit changes
  EXPECT_EQ(control::Internals(g).geometry.RowPasses(), passes);
  EXPECT_FALSE(g.RowExpanded("A1a"));
  EXPECT_EQ(events.log, (std::vector<std::string>{"QuitCustomEdit"}));
}

TEST(Hierarchy, BulkCollapseAndExpand) {
  Quilta g = Tree();
  EventLog events;
  g.SetEventSink(&events);
  g.CollapseAllRows();
  EXPECT_EQ(events.log,
            (std::vector<std::string>{"Before 0 collapse", "QuitCustomEdit", "After 0 collapse"}));
  EXPECT_EQ(VisibleAsChild(g), (Flags{1, 0, 0, 0, 0, 1, 0}));
  for (int32_t r = 1; r <= 7; ++r) EXPECT_FALSE(g.RowExpanded(r)) << r;  // leaves too
  EXPECT_EQ(StartY(g, 6), 18);
  g.ExpandAllChildRows("A1");
  EXPECT_EQ(VisibleAsChild(g), (Flags{1, 0, 1, 1, 0, 1, 0}));
  EXPECT_EQ(events.log.back(), "After 2 expand");
  g.ExpandAllRows();
  EXPECT_EQ(VisibleAsChild(g), Flags(7, true));
  g.CollapseAllChildRows("A");
  EXPECT_EQ(VisibleAsChild(g), (Flags{1, 0, 0, 0, 0, 1, 1}));
  EXPECT_TRUE(g.RowExpanded("B"));  // outside the subtree
  EXPECT_EQ(Shown(g), 3);
  events.doDefault = false;  // declined by the host: nothing changes
  int64_t passes = control::Internals(g).geometry.RowPasses();
  g.ExpandAllRows();
  EXPECT_EQ(events.log.back(), "Before 0 expand");
  EXPECT_EQ(VisibleAsChild(g), (Flags{1, 0, 0, 0, 0, 1, 1}));
  EXPECT_EQ(control::Internals(g).geometry.RowPasses(), passes);
}

TEST(Hierarchy, TreeButtonsLevelsAndTreeColumn) {
  Quilta g = Tree();
  g.SetRowExpanded("A", false);
  g.SetRowTreeButton("A", quRowTreeButtonVisible);
  EXPECT_EQ(g.RowTreeButton("A"), quRowTreeButtonVisible);
  EXPECT_FALSE(g.RowExpanded("A"));  // the other flags stay
  ExpectError(514, [&] { g.SetRowTreeButton("A", static_cast<ERowTreeButton>(3)); });
  g.SetAddRowAutoTreeButton(true);
  int32_t child = g.AddRow({.vRowParent = "B1"});
  EXPECT_EQ(g.RowTreeButton("B1"), quRowTreeButtonVisible);
  EXPECT_EQ(g.RowTreeButton(child), quRowTreeButtonHidden);

  auto& geometry = control::Internals(g).geometry;
  geometry.TakeLayoutMark();
  int64_t passes = geometry.RowPasses();
  g.SetRowLevel("B1", 0);  // a full re-layout
  EXPECT_EQ(geometry.LayoutMark(), 1);
  g.SetTreeCol(1);
  EXPECT_EQ(geometry.RowPasses(), passes + 2);
  ExpectError(514, [&] { g.SetTreeCol(-1); });
  EXPECT_EQ(g.TreeCol(), 1);
}

}  // namespace
