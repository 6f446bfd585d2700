#include "control/internals_access.hpp"
#include "model/test_support.hpp"

using namespace quilta;
using quilta::testing::ExpectError;
using quilta::testing::GridSnapshot;

namespace {

Quilta GridWithRows(int32_t rows) {
  Quilta grid;
  grid.AddCol({.sKey = "c1"});
  grid.AddCol({.sKey = "c2"});
  if (rows) grid.AddRow({.lCount = rows});
  return grid;
}

TEST(Rows, CountAndKeysOnlyOnTheFirstNewRow) {
  Quilta grid = GridWithRows(0);
  ExpectError(514, [&] { grid.AddRow({.lCount = 0}); });
  EXPECT_EQ(grid.AddRow({.sKey = "k", .lCount = 3}), 1);
  EXPECT_EQ(grid.RowCount(), 3);
  EXPECT_EQ(grid.RowKey(1), "k");
  EXPECT_EQ(grid.RowKey(2), "");
  EXPECT_EQ(grid.RowIndex("k"), 1);
  EXPECT_EQ(grid.RowIndex("missing"), 0);
}

TEST(Rows, RowKeysAreCaseSensitive) {
  Quilta grid = GridWithRows(0);
  grid.AddRow({.sKey = "Name"});
  grid.AddRow({.sKey = "NAME"});
  ExpectError(515, [&] { grid.AddRow({.sKey = "Name"}); });
  EXPECT_EQ(grid.RowIndex("NAME"), 2);
  ExpectError(515, [&] { grid.SetRowKey(1, "NAME"); });
  grid.SetRowKey(1, "Name");  // its own key again
  grid.SetRowKey(2, "");
  EXPECT_EQ(grid.RowIndex("NAME"), 0);
  grid.SetRowKey(1, "NAME");
  EXPECT_EQ(grid.RowIndex("NAME"), 1);
}

TEST(Rows, KeysFollowTheirRowsThroughInsertionAndRemoval) {
  Quilta grid = GridWithRows(0);
  for (const char* key : {"r1", "r2", "r3", "r4", "r5"}) grid.AddRow({.sKey = key});
  grid.AddRow({.sKey = "new", .vRowBefore = 2, .lCount = 2});
  EXPECT_EQ(grid.RowIndex("new"), 2);
  EXPECT_EQ(grid.RowIndex("r2"), 4);
  EXPECT_EQ(grid.RowIndex("r5"), 7);
  grid.RemoveRow("r2", 2);
  EXPECT_EQ(grid.RowIndex("r2"), 0);
  EXPECT_EQ(grid.RowIndex("r3"), 0);
  EXPECT_EQ(grid.RowIndex("r4"), 4);
  EXPECT_EQ(grid.RowIndex("new"), 2);
}

TEST(Rows, RowReferencesRoundHalfToEvenAndRejectOtherTypes) {
  Quilta grid = GridWithRows(5);
  grid.SetRowTag(2.5, "two");
  grid.SetRowTag(2.6, "three");
  EXPECT_EQ(grid.RowTag(2), Variant("two"));
  EXPECT_EQ(grid.RowTag(3), Variant("three"));
  for (const Variant& bad :
       {Variant(true), Variant(), Variant::Null(), Variant(0), Variant(6), Variant("nokey")})
    ExpectError(513, [&] { grid.RowTag(bad); });
}

TEST(Rows, RemoveRowCurrentRowRules) {
  Quilta grid = GridWithRows(10);
  control::Internals(grid).SetCurrentCell(6, 1);
  grid.RemoveRow(5, 3);
  EXPECT_EQ(grid.CurRow(), 3);
  Quilta other = GridWithRows(10);
  control::Internals(other).SetCurrentCell(5, 2);
  other.RemoveRow(5, 3);
  EXPECT_EQ(other.CurRow(), 0);
  EXPECT_EQ(other.CurCol(), 2);
  control::Internals(other).SetCurrentCell(7, 1);
  other.RemoveRow(2);
  EXPECT_EQ(other.CurRow(), 6);
  other.AddRow({.vRowBefore = 1});
  EXPECT_EQ(other.CurRow(), 7);
}

TEST(Rows, RemovingEveryRowIsClear) {
  Quilta grid = GridWithRows(4);
  grid.RemoveRow(1, grid.RowCount());
  EXPECT_EQ(grid.RowCount(), 0);
  EXPECT_EQ(grid.Sys(quSysMemMngAllocatedRows), 0);
  EXPECT_EQ(grid.ColCount(), 2);
}

TEST(Rows, RemoveRowTakesTheWholeSubtree) {
  Quilta grid = GridWithRows(0);
  grid.AddRow({.sKey = "p"});
  grid.AddRow({.vRowParent = "p"});
  grid.AddRow({.vRowParent = "p"});
  grid.AddRow({.vRowParent = 2});
  grid.AddRow({.sKey = "after"});
  EXPECT_EQ(grid.RowIndex("after"), 5);
  grid.RemoveRow("p", 1);
  EXPECT_EQ(grid.RowCount(), 1);
  EXPECT_EQ(grid.RowIndex("after"), 1);
  ExpectError(514, [&] { grid.RemoveRow(1, 2); });
  ExpectError(514, [&] { grid.RemoveRow(1, 0); });
}

TEST(Rows, ChildRowsGoToTheEndOfTheParentsSubtree) {
  Quilta grid = GridWithRows(0);
  grid.AddRow({.sKey = "a"});
  grid.AddRow({.sKey = "b"});
  grid.AddRow({.sKey = "a1", .vRowBefore = "b", .vRowParent = "a"});
  grid.AddRow({.sKey = "a2", .vRowParent = "a"});
  EXPECT_EQ(grid.RowIndex("a1"), 2);
  EXPECT_EQ(grid.RowIndex("a2"), 3);
  EXPECT_EQ(grid.RowIndex("b"), 4);
}

TEST(Rows, StoreInitRowNumbersInKeysTagsAndFirstColumn) {
  Quilta grid = GridWithRows(0);
  grid.SetStoreInitRowNumbers(quStoreInitRowNoInRowKey);
  grid.AddRow({.lCount = 3});
  EXPECT_EQ(grid.RowKey(2), "2");
  EXPECT_EQ(grid.RowIndex("2"), 2);
  grid.AddRow({.vRowBefore = 1});  // index 1 is already a key: the new row stays without one
  EXPECT_EQ(grid.RowKey(1), "");
  EXPECT_EQ(grid.RowIndex("2"), 3);
  grid.AddRow({.sKey = "own"});
  EXPECT_EQ(grid.RowKey(5), "own");

  Quilta tagged = GridWithRows(0);
  tagged.SetStoreInitRowNumbers(quStoreInitRowNoInRowTag);
  tagged.AddRow({.lCount = 2});
  EXPECT_EQ(tagged.RowTag(2), Variant(2));
}

TEST(Rows, CapacityGrowsInBlocksOfSpareRows) {
  Quilta grid = GridWithRows(0);
  grid.SetRowCount(250);
  EXPECT_EQ(grid.Sys(quSysMemMngAllocatedRows), 350);
  grid.SetMemMngWantFreeRows(10);
  grid.AddRow({.lCount = 100});
  EXPECT_EQ(grid.Sys(quSysMemMngAllocatedRows), 350);
  grid.AddRow({.lCount = 1});
  EXPECT_EQ(grid.Sys(quSysMemMngAllocatedRows), 361);
  ExpectError(514, [&] { grid.SetMemMngWantFreeRows(-1); });
  EXPECT_EQ(grid.MemMngWantFreeRows(), 10);
}

TEST(Rows, FreedPhysicalRowsAreReusedFirst) {
  Quilta grid = GridWithRows(5);
  grid.RemoveRow(2, 2);
  EXPECT_EQ(grid.Sys(quSysMemMngFreePhysRows), 2);
  grid.AddRow({.lCount = 3});
  EXPECT_EQ(grid.Sys(quSysMemMngFreePhysRows), 0);
  EXPECT_EQ(grid.RowCount(), 6);
}

TEST(Rows, RowCountShrinksAndGrows) {
  Quilta grid = GridWithRows(0);
  grid.AddRow({.sKey = "a"});
  grid.AddRow({.sKey = "b"});
  grid.AddRow({.sKey = "c"});
  control::Internals(grid).SetCurrentCell(3, 1);
  grid.SetRowCount(2);
  EXPECT_EQ(grid.RowIndex("c"), 0);
  EXPECT_EQ(grid.CurRow(), 0);
  grid.SetRowCount(4);
  EXPECT_EQ(grid.RowKey(4), "");
  ExpectError(514, [&] { grid.SetRowCount(-1); });
  EXPECT_EQ(grid.RowCount(), 4);
}

TEST(Rows, ClearKeepsOrRemovesColumns) {
  Quilta grid = GridWithRows(3);
  grid.SetRowKey(1, "k");
  grid.Clear();
  EXPECT_EQ(grid.RowCount(), 0);
  EXPECT_EQ(grid.ColCount(), 2);
  EXPECT_EQ(grid.RowIndex("k"), 0);
  grid.AddRow({.sKey = "k"});  // the key is free again
  grid.Clear(true);
  EXPECT_EQ(grid.ColCount(), 0);
  EXPECT_EQ(grid.RowTextCol(), 1);
  EXPECT_EQ(grid.ColPos(1), 1);
}

TEST(Rows, FailedCallsChangeNothing) {
  Quilta grid = GridWithRows(0);
  grid.AddRow({.sKey = "a", .vTag = 1});
  grid.AddRow({.sKey = "b", .lCount = 2});
  grid.SetCellValue(2, "c2", "text");
  grid.SetCellValue(3, "c1", 2.5);
  GridSnapshot before = GridSnapshot::Of(grid);
  ExpectError(515, [&] { grid.AddRow({.sKey = "a", .lCount = 5}); });
  ExpectError(513, [&] { grid.AddRow({.vRowBefore = "zz", .lCount = 5}); });
  ExpectError(513, [&] { grid.AddRow({.vRowParent = 9}); });
  ExpectError(514, [&] { grid.AddRow({.lCount = -3}); });
  ExpectError(513, [&] { grid.RemoveRow("zz"); });
  ExpectError(514, [&] { grid.RemoveRow(2, 3); });
  ExpectError(515, [&] { grid.SetRowKey(3, "a"); });
  ExpectError(513, [&] { grid.SetRowKey(4, "q"); });
  ExpectError(514, [&] { grid.SetRowCount(-2); });
  ExpectError(515, [&] { grid.AddCol({.sKey = "C1"}); });
  ExpectError(519, [&] { grid.AddCol({.lMinWidth = 5, .lMaxWidth = 4}); });
  ExpectError(513, [&] { grid.AddCol({.vColBefore = 7}); });
  ExpectError(513, [&] { grid.RemoveCol(0); });
  ExpectError(514, [&] { grid.RemoveCol(1, 3); });
  ExpectError(515, [&] { grid.SetColKey(2, "c1"); });
  ExpectError(513, [&] { grid.SetColKey(5, "x"); });
  EXPECT_EQ(GridSnapshot::Of(grid), before);
}

class VirtualHost : public QuiltaEvents {
 public:
  int32_t available = 3;
  std::vector<int32_t> dataRequests;
  void RequestRow(int32_t lRow, bool& bNoMoreRows) override { bNoMoreRows = lRow > available; }
  void RequestRowData(int32_t lRow) override { dataRequests.push_back(lRow); }
};

TEST(Rows, VirtualModeAsksTheHostForRowsUntilItHasNoMore) {
  Quilta grid = GridWithRows(0);
  VirtualHost host;
  grid.SetEventSink(&host);
  grid.SetVirtual(true);
  auto& store = control::Internals(grid).store;
  EXPECT_TRUE(store.EnsureVirtualRows(2));
  EXPECT_EQ(grid.RowCount(), 2);
  EXPECT_FALSE(store.EnsureVirtualRows(5));
  EXPECT_EQ(grid.RowCount(), 3);
  EXPECT_EQ(host.dataRequests, (std::vector<int32_t>{1, 2, 3}));
  host.available = 10;
  EXPECT_FALSE(store.EnsureVirtualRows(4));  // the grid stopped asking
  grid.Clear();                              // until the grid is cleared
  EXPECT_TRUE(store.EnsureVirtualRows(4));
}

}  // namespace
