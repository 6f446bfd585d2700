#include "ops/ops_support.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

const std::vector<std::string> kNames = {"A", "A1", "A1a", "A1b", "A2", "B", "B1"};

// The tree of the hierarchy tests; each row's key is also its value in column 1.
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
  for (int32_t r = 1; r <= g.RowCount(); ++r) SetValue(g, r, 1, g.RowKey(r));
  return g;
}

// Row order as keys; each key must still find its row and the row its cells.
std::vector<std::string> Order(Quilta& g) {
  std::vector<std::string> keys;
  for (int32_t r = 1; r <= g.RowCount(); ++r) {
    keys.push_back(g.RowKey(r));
    EXPECT_EQ(g.RowIndex(keys.back()), r);
    EXPECT_EQ(ValueOf(g, r, 1), Variant(keys.back()));
  }
  return keys;
}

TEST(MoveRow, AfterTakesTheTargetsLevelAndSkipsItsSubtree) {
  Quilta g = Tree();
  g.MoveRow("A1", "B", 1, quMoveRowAfter);
  EXPECT_EQ(Order(g), (std::vector<std::string>{"A", "A2", "B", "B1", "A1", "A1a", "A1b"}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 0, 1, 0, 1, 1}));
  EXPECT_EQ(g.RowChildCount("A"), 1);
}

TEST(MoveRow, BeforeMakesTheBlockTheTargetsSibling) {
  Quilta g = Tree();
  g.MoveRow("B", "A2");
  EXPECT_EQ(Order(g), (std::vector<std::string>{"A", "A1", "A1a", "A1b", "B", "B1", "A2"}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 2, 2, 1, 2, 1}));
  EXPECT_EQ(g.RowParent("B1"), g.RowIndex("B"));
  g.MoveRow("A1a", "A");  // up to the top, before its own ancestor
  EXPECT_EQ(Order(g), (std::vector<std::string>{"A1a", "A", "A1", "A1b", "B", "B1", "A2"}));
  EXPECT_EQ(g.RowLevel("A1a"), 0);
}

TEST(MoveRow, AsChildAppendsToTheTargetsChildren) {
  Quilta g = Tree();
  g.MoveRow("A1", "B", 1, quMoveRowAsChild);
  EXPECT_EQ(Order(g), (std::vector<std::string>{"A", "A2", "B", "B1", "A1", "A1a", "A1b"}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 0, 1, 1, 2, 2}));
  EXPECT_EQ(g.RowChildCount("B"), 2);
  g.MoveRow("B1", "A2", 1, quMoveRowAsChild);  // deeper, and moving forward
  EXPECT_EQ(Order(g), (std::vector<std::string>{"A", "A2", "B1", "B", "A1", "A1a", "A1b"}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 2, 0, 1, 2, 2}));
}

TEST(MoveRow, SeveralSiblingsMoveTogether) {
  Quilta g = Tree();
  g.MoveRow("A1", "B1", 2, quMoveRowAfter);
  EXPECT_EQ(Order(g), (std::vector<std::string>{"A", "B", "B1", "A1", "A1a", "A1b", "A2"}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 0, 1, 1, 2, 2, 1}));
  ExpectError(514, [&] { g.MoveRow("A1", "A", 3); });  // only A2 follows A1 as a sibling
}

TEST(MoveRow, MovedRowsFollowTheNewParentsExpansion) {
  Quilta g = Tree();
  g.SetRowExpanded("A1", false);
  g.SetRowExpanded("B", false);
  g.MoveRow("A1", "B", 1, quMoveRowAsChild);
  for (const char* key : {"A1", "A1a", "A1b"}) EXPECT_FALSE(g.RowVisibleAsChild(key)) << key;
  g.SetRowExpanded("B", true);
  EXPECT_TRUE(g.RowVisibleAsChild("A1"));
  EXPECT_FALSE(g.RowVisibleAsChild("A1a"));  // A1 itself is still collapsed
  g.MoveRow("A1", "A");
  g.SetRowExpanded("A1", true);
  EXPECT_TRUE(g.RowVisibleAsChild("A1a"));
  EXPECT_EQ(g.Internals().store.ShownRowCount(), 7);
}

TEST(MoveRow, TreeButtonsFollowTheChildren) {
  Quilta g = Tree();
  g.SetAddRowAutoTreeButton(true);
  g.SetRowTreeButton("B", quRowTreeButtonVisible);
  g.MoveRow("B1", "A2", 1, quMoveRowAsChild);
  EXPECT_EQ(g.RowTreeButton("A2"), quRowTreeButtonVisible);
  EXPECT_EQ(g.RowTreeButton("B"), quRowTreeButtonHidden);  // no children left
}

TEST(MoveRow, CurrentCellStaysOnItsDataRow) {
  Quilta g = Tree();
  g.Internals().SetCurrentCell(g.RowIndex("A2"), 1);
  g.MoveRow("B", "A");
  EXPECT_EQ(g.CurRow(), g.RowIndex("A2"));
  g.Internals().SetCurrentCell(g.RowIndex("B1"), 1);
  g.MoveRow("B", "A2", 1, quMoveRowAfter);
  EXPECT_EQ(g.CurRow(), g.RowIndex("B1"));
}

TEST(MoveRow, RowPositionsAreRecomputed) {
  Quilta g = Tree();
  g.MoveRow("B", "A");
  auto& rows = g.Internals().store.Rows();
  for (int32_t r = 1; r <= 7; ++r) EXPECT_EQ(rows.At(r).startY, (r - 1) * 18) << r;
}

TEST(MoveRow, RejectedMovesChangeNothing) {
  Quilta g = Tree();
  std::vector<std::string> before = Order(g);
  ExpectError(524, [&] { g.MoveRow("A", "A1a"); });  // into its own subtree
  ExpectError(524, [&] { g.MoveRow("A1", "A1", 1, quMoveRowAsChild); });
  ExpectError(524, [&] { g.MoveRow("A1", "A2", 2, quMoveRowAfter); });  // A2 is in the block
  ExpectError(514, [&] { g.MoveRow("A1", "B", 0); });
  ExpectError(514, [&] { g.MoveRow("A1", "B", 1, static_cast<EMoveRowMode>(3)); });
  ExpectError(513, [&] { g.MoveRow("A1", "missing"); });
  ExpectError(513, [&] { g.MoveRow(8, 1); });
  g.SetRowLevel("B1", 255);
  ExpectError(524, [&] { g.MoveRow("A2", "B1", 1, quMoveRowAsChild); });
  ExpectError(524, [&] { g.MoveRow("A1", "B1", 1, quMoveRowAfter); });  // A1a would be 256
  EXPECT_EQ(Order(g), before);
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 2, 2, 1, 0, 255}));
}

}  // namespace
