#include "ops/ops_support.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

// 1 A            level 0
// 2   A1         level 1
// 3     A1a      level 2
// 4     A1b      level 2
// 5   A2         level 1
// 6 B            level 0
// 7   B1         level 1
Quilta Tree() {
  Quilta g;
  g.AddCol();
  g.AddRow({.sKey = "A"});
  g.AddRow({.sKey = "A1", .vRowParent = "A"});
  g.AddRow({.sKey = "A1a", .vRowParent = "A1"});
  g.AddRow({.sKey = "A1b", .vRowParent = "A1"});
  g.AddRow({.sKey = "A2", .vRowParent = "A"});
  g.AddRow({.sKey = "B"});
  g.AddRow({.sKey = "B1", .vRowParent = "B"});
  return g;
}

// The row's own visibility (RowVisible belongs to the geometry setters).
void HideRow(Quilta& g, int32_t row) {
  auto& store = g.Internals().store;
  store.BeforeRowShapeChange(row);
  store.Rows().At(row).flags &= ~model::RowRecord::kVisible;
  store.AfterRowShapeChange(row);
}

std::vector<bool> VisibleAsChild(const Quilta& g) {
  std::vector<bool> v;
  for (int32_t r = 1; r <= g.RowCount(); ++r) v.push_back(g.RowVisibleAsChild(r));
  return v;
}

TEST(Hierarchy, QueriesFollowTheLevels) {
  Quilta g = Tree();
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 2, 2, 1, 0, 1}));
  EXPECT_EQ(g.RowParent("A1b"), 2);
  EXPECT_EQ(g.RowParent("A2"), 1);
  EXPECT_EQ(g.RowParent("B"), 0);
  EXPECT_EQ(g.RowLastNested("A"), 5);
  EXPECT_EQ(g.RowLastNested("A1a"), 3);  // a leaf is its own subtree
  EXPECT_EQ(g.RowChildCount("A"), 2);    // grandchildren are not counted
  EXPECT_EQ(g.RowChildCount("A2"), 0);
  EXPECT_TRUE(g.RowHasChildren("A1"));
  EXPECT_FALSE(g.RowHasChildren("A1b"));  // followed by a row of smaller level
  EXPECT_FALSE(g.RowHasChildren(7));      // the last row never has children
  g.SetRowLevel(7, 5);
  EXPECT_FALSE(g.RowHasChildren(7));
  EXPECT_EQ(g.RowLastNested(6), 7);
  EXPECT_EQ(g.RowChildCount(6), 0);  // a jump of several levels is not a child
  EXPECT_EQ(g.RowParent(7), 0);      // nothing above has level 4
}

TEST(Hierarchy, RowOneHasNoParentWhateverItsLevel) {
  Quilta g = Tree();
  g.SetRowLevel(1, 3);
  EXPECT_EQ(g.RowParent(1), 0);
  EXPECT_EQ(g.RowLevel(1), 3);
}

TEST(Hierarchy, CollapsingHidesTheSubtreeAndExpandingRestoresIt) {
  Quilta g = Tree();
  HideRow(g, 4);  // the host's own visibility survives
  EventLog events;
  g.SetEventSink(&events);
  g.SetRowExpanded("A", false);
  EXPECT_EQ(events.log, (std::vector<std::string>{"QuitCustomEdit"}));
  EXPECT_EQ(VisibleAsChild(g), (std::vector<bool>{true, false, false, false, false, true, true}));
  auto& store = g.Internals().store;
  EXPECT_EQ(store.ShownRowCount(), 3);
  EXPECT_EQ(store.Rows().At(6).startY, 18);
  EXPECT_EQ(store.Rows().At(6).visibleIndex, 2);
  g.SetRowExpanded("A", true);
  EXPECT_EQ(VisibleAsChild(g), std::vector<bool>(7, true));
  EXPECT_FALSE(g.Internals().store.Rows().At(4).Visible());
  EXPECT_EQ(store.ShownRowCount(), 6);
  EXPECT_EQ(store.Rows().At(6).startY, 4 * 18);
}

TEST(Hierarchy, CollapsedChildrenKeepTheirSubtreeHidden) {
  Quilta g = Tree();
  g.SetRowExpanded("A1", false);
  g.SetRowExpanded("A", false);
  g.SetRowExpanded("A", true);
  EXPECT_EQ(VisibleAsChild(g), (std::vector<bool>{true, true, false, false, true, true, true}));
  EXPECT_FALSE(g.RowExpanded("A1"));
  g.SetRowExpanded("A1", true);
  EXPECT_EQ(VisibleAsChild(g), std::vector<bool>(7, true));
}

TEST(Hierarchy, SettingTheCurrentStateDoesNothing) {
  Quilta g = Tree();
  EventLog events;
  g.SetEventSink(&events);
  int64_t passes = g.Internals().geometry.RowPasses();
  g.SetRowExpanded("A", true);
  g.SetRowVisibleAsChild("B", true);
  g.SetRowExpanded("A1a", false);  // a leaf: only its own bit changes
  EXPECT_EQ(g.Internals().geometry.RowPasses(), passes);
  EXPECT_FALSE(g.RowExpanded("A1a"));
  EXPECT_EQ(events.log, (std::vector<std::string>{"QuitCustomEdit"}));
}

TEST(Hierarchy, VisibleAsChildHidesOneRowOnly) {
  Quilta g = Tree();
  g.SetRowVisibleAsChild("A1", false);
  EXPECT_EQ(VisibleAsChild(g), (std::vector<bool>{true, false, true, true, true, true, true}));
  EXPECT_EQ(g.Internals().store.ShownRowCount(), 6);
  EXPECT_EQ(g.Internals().store.Rows().At(3).startY, 18);
}

TEST(Hierarchy, BulkCollapseAndExpandOfTheWholeGrid) {
  Quilta g = Tree();
  EventLog events;
  g.SetEventSink(&events);
  g.CollapseAllRows();
  EXPECT_EQ(events.log,
            (std::vector<std::string>{"Before 0 collapse", "QuitCustomEdit", "After 0 collapse"}));
  EXPECT_EQ(VisibleAsChild(g), (std::vector<bool>{true, false, false, false, false, true, false}));
  for (int32_t r = 1; r <= 7; ++r) EXPECT_FALSE(g.RowExpanded(r)) << r;  // leaves too
  EXPECT_EQ(g.Internals().store.ShownRowCount(), 2);
  EXPECT_EQ(g.Internals().store.Rows().At(6).startY, 18);
  g.ExpandAllRows();
  EXPECT_EQ(VisibleAsChild(g), std::vector<bool>(7, true));
  for (int32_t r = 1; r <= 7; ++r) EXPECT_TRUE(g.RowExpanded(r)) << r;
  EXPECT_EQ(g.Internals().store.ShownRowCount(), 7);
}

TEST(Hierarchy, BulkCollapseOfOneSubtree) {
  Quilta g = Tree();
  g.SetRowExpanded("B", false);
  EventLog events;
  g.SetEventSink(&events);
  g.CollapseAllChildRows("A1");
  EXPECT_EQ(events.log.front(), "Before 2 collapse");
  EXPECT_EQ(VisibleAsChild(g), (std::vector<bool>{true, true, false, false, true, true, false}));
  g.ExpandAllChildRows("A");
  EXPECT_EQ(VisibleAsChild(g), (std::vector<bool>{true, true, true, true, true, true, false}));
  EXPECT_FALSE(g.RowExpanded("B"));  // outside the subtree
  EXPECT_EQ(events.log.back(), "After 1 expand");
}

TEST(Hierarchy, BulkCollapseDeclinedByTheHostChangesNothing) {
  Quilta g = Tree();
  EventLog events;
  events.doDefault = false;
  g.SetEventSink(&events);
  int64_t passes = g.Internals().geometry.RowPasses();
  g.CollapseAllRows();
  g.CollapseAllChildRows("A");
  EXPECT_EQ(events.log, (std::vector<std::string>{"Before 0 collapse", "Before 1 collapse"}));
  EXPECT_EQ(VisibleAsChild(g), std::vector<bool>(7, true));
  EXPECT_TRUE(g.RowExpanded("A"));
  EXPECT_EQ(g.Internals().geometry.RowPasses(), passes);
}

TEST(Hierarchy, TreeButtonsAndAutomaticButtons) {
  Quilta g = Tree();
  g.SetRowExpanded("A", false);
  g.SetRowTreeButton("A", quRowTreeButtonVisible);
  EXPECT_EQ(g.RowTreeButton("A"), quRowTreeButtonVisible);
  EXPECT_FALSE(g.RowExpanded("A"));  // the other flags stay
  ExpectError(514, [&] { g.SetRowTreeButton("A", static_cast<ERowTreeButton>(3)); });
  EXPECT_EQ(g.RowTreeButton("A"), quRowTreeButtonVisible);

  EXPECT_FALSE(g.AddRowAutoTreeButton());
  g.SetAddRowAutoTreeButton(true);
  int32_t child = g.AddRow({.vRowParent = "B1"});
  EXPECT_EQ(g.RowTreeButton("B1"), quRowTreeButtonVisible);
  EXPECT_EQ(g.RowTreeButton(child), quRowTreeButtonHidden);
}

TEST(Hierarchy, LevelAndTreeColumnRecomputeTheWholeLayout) {
  Quilta g = Tree();
  auto& c = g.Internals();
  c.geometry.TakeLayoutMark();
  int64_t passes = c.geometry.RowPasses();
  g.SetRowLevel("B1", 0);
  EXPECT_EQ(g.RowParent("B1"), 0);
  EXPECT_EQ(c.geometry.LayoutMark(), 1);
  EXPECT_EQ(c.geometry.RowPasses(), passes + 1);
  g.SetTreeCol(1);
  EXPECT_EQ(c.geometry.RowPasses(), passes + 2);
  ExpectError(514, [&] { g.SetTreeCol(-1); });
  EXPECT_EQ(g.TreeCol(), 1);
}

TEST(Hierarchy, BadRowReferencesRaise513) {
  Quilta g = Tree();
  ExpectError(513, [&] { g.RowLevel(0); });
  ExpectError(513, [&] { g.SetRowExpanded("nokey", false); });
  ExpectError(513, [&] { g.CollapseAllChildRows(8); });
  ExpectError(513, [&] { g.RowParent(Variant()); });
  EXPECT_EQ(VisibleAsChild(g), std::vector<bool>(7, true));
}

}  // namespace
