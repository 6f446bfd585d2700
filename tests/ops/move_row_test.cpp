#include "control/internals_access.hpp"
#include "ops/ops_support.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

using Keys = std::vector<std::string>;

// The tree with each key also in column 1.
Quilta KeyedTree() {
  Quilta g = Tree();
  for (int32_t r = 1; r <= g.RowCount(); ++r) SetValue(g, r, 1, g.RowKey(r));
  return g;
}

// Row order as keys; each key must still find its row and the row its cells.
Keys Order(Quilta& g) {
  Keys keys;
  for (int32_t r = 1; r <= g.RowCount(); ++r) {
    keys.push_back(g.RowKey(r));
    EXPECT_EQ(g.RowIndex(keys.back()), r);
    EXPECT_EQ(control::Internals(g).store.CellAt(r, 1).value, Variant(keys.back()));
  }
  return keys;
}

TEST(MoveRow, BeforeAndAfterMakeTheBlockTheTargetsSiblings) {
  Quilta g = KeyedTree();
  g.MoveRow("A1", "B", 1, quMoveRowAfter);  // after B's whole subtree
  EXPECT_EQ(Order(g), (Keys{"A", "A2", "B", "B1", "A1", "A1a", "A1b"}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 0, 1, 0, 1, 1}));
  g.MoveRow("B", "A2");
  EXPECT_EQ(Order(g), (Keys{"A", "B", "B1", "A2", "A1", "A1a", "A1b"}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 2, 1, 0, 1, 1}));
  control::Internals(g).SetCurrentCell(g.RowIndex("B1"), 1);
  g.MoveRow("A2", "B1", 1, quMoveRowAfter);  // already there: only the level changes
  EXPECT_EQ(Order(g), (Keys{"A", "B", "B1", "A2", "A1", "A1a", "A1b"}));
  EXPECT_EQ(g.RowLevel("A2"), 2);
  EXPECT_EQ(g.CurRow(), 3);
  g.MoveRow("A1a", "A");  // before its old grandparent
  EXPECT_EQ(Order(g), (Keys{"A1a", "A", "B", "B1", "A2", "A1", "A1b"}));
  EXPECT_EQ(g.CurRow(), 4);
  EXPECT_EQ(g.RowLevel("A1a"), 0);
  for (int32_t r = 1; r <= 7; ++r)
    EXPECT_EQ(control::Internals(g).store.Rows().At(r).startY, (r - 1) * 18);
}

TEST(MoveRow, AsChildAppendsToTheTargetsChildren) {
  Quilta g = KeyedTree();
  g.MoveRow("A1", "B", 1, quMoveRowAsChild);
  EXPECT_EQ(Order(g), (Keys{"A", "A2", "B", "B1", "A1", "A1a", "A1b"}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 0, 1, 1, 2, 2}));
  g.MoveRow("B1", "A2", 2, quMoveRowAsChild);  // two siblings, each with its subtree
  EXPECT_EQ(Order(g), (Keys{"A", "A2", "B1", "A1", "A1a", "A1b", "B"}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 2, 2, 3, 3, 0}));
}

TEST(MoveRow, MovedRowsFollowTheNewParentsExpansionAndButtons) {
  Quilta g = KeyedTree();
  g.SetAddRowAutoTreeButton(true);
  g.SetRowTreeButton("B", quRowTreeButtonVisible);
  g.SetRowExpanded("A1", false);
  g.SetRowExpanded("A2", false);
  g.MoveRow("A1", "A2", 1, quMoveRowAsChild);
  for (const char* key : {"A1", "A1a", "A1b"}) EXPECT_FALSE(g.RowVisibleAsChild(key)) << key;
  g.SetRowExpanded("A2", true);
  EXPECT_TRUE(g.RowVisibleAsChild("A1"));
  EXPECT_FALSE(g.RowVisibleAsChild("A1a"));  // A1 itself is still collapsed
  g.MoveRow("B1", "A1", 1, quMoveRowAsChild);
  EXPECT_EQ(g.RowTreeButton("A1"), quRowTreeButtonVisible);
  EXPECT_EQ(g.RowTreeButton("B"), quRowTreeButtonHidden);  // no children left
  EXPECT_FALSE(g.RowVisibleAsChild("B1"));
}

TEST(MoveRow, CurrentCellStaysOnItsDataRow) {
  Quilta g = KeyedTree();
  control::Internals(g).SetCurrentCell(g.RowIndex("A2"), 1);
  g.MoveRow("B", "A");
  EXPECT_EQ(g.CurRow(), g.RowIndex("A2"));
  control::Internals(g).SetCurrentCell(g.RowIndex("B1"), 1);
  g.MoveRow("B", "A2", 1, quMoveRowAfter);
  EXPECT_EQ(g.CurRow(), g.RowIndex("B1"));
}

TEST(MoveRow, RejectedMovesChangeNothing) {
  Quilta g = KeyedTree();
  Keys before = Order(g);
  ExpectError(524, [&] { g.MoveRow("A", "A1a"); });  // into its own subtree
  ExpectError(524, [&] { g.MoveRow("A1", "A1", 1, quMoveRowAsChild); });
  ExpectError(524, [&] { g.MoveRow("A1", "A2", 2, quMoveRowAfter); });  // A2 is in the block
  ExpectError(514, [&] { g.MoveRow("A1", "B", 3); });  // only A2 follows A1 as a sibling
  ExpectError(514, [&] { g.MoveRow("A1", "B", 0); });
  ExpectError(514, [&] { g.MoveRow("A1", "B", 1, static_cast<EMoveRowMode>(3)); });
  ExpectError(513, [&] { g.MoveRow("A1", "missing"); });
  g.SetRowLevel("B1", 255);
  ExpectError(524, [&] { g.MoveRow("A2", "B1", 1, quMoveRowAsChild); });
  ExpectError(524, [&] { g.MoveRow("A1", "B1", 1, quMoveRowAfter); });  // A1a would be 256
  EXPECT_EQ(Order(g), before);
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 2, 2, 1, 0, 255}));
}

}  // namespace
