#include "control/internals_access.hpp"
#include "model/test_support.hpp"

using namespace quilta;

using quilta::testing::ExpectError;

namespace {

TEST(Columns, AddColDefaultsAndRowTextColumn) {
  Quilta grid;
  EXPECT_EQ(grid.ColCount(), 0);
  EXPECT_EQ(grid.RowTextCol(), 1);
  std::shared_ptr<CellObject> cell = grid.AddCol();
  ASSERT_NE(cell, nullptr);
  EXPECT_EQ(grid.ColCount(), 1);
  EXPECT_EQ(grid.RowTextCol(), 2);
  EXPECT_EQ(grid.ColPos(1), 1);
  EXPECT_EQ(grid.ColPos(2), 2);  // the row text column is addressable by its index
}

TEST(Columns, InsertBeforeRenumbersIndexesButKeepsKeys) {
  Quilta grid;
  grid.AddCol({.sKey = "a"});
  grid.AddCol({.sKey = "b"});
  grid.AddCol({.sKey = "c"});
  grid.AddCol({.sKey = "new", .vColBefore = 1});
  EXPECT_EQ(grid.ColIndex("new"), 1);
  EXPECT_EQ(grid.ColIndex("a"), 2);
  EXPECT_EQ(grid.ColIndex("c"), 4);
  EXPECT_EQ(grid.ColPos("new"), 1);
  EXPECT_EQ(grid.ColKey(1), "new");
  EXPECT_EQ(grid.RowTextCol(), 5);
}

TEST(Columns, KeysAreCaseInsensitiveAndUnique) {
  Quilta grid;
  grid.AddCol({.sKey = "Name"});
  EXPECT_EQ(grid.ColIndex("name"), 1);
  EXPECT_EQ(grid.ColIndex("NAME"), 1);
  ExpectError(513, [&] { grid.ColIndex("Names"); });
  grid.AddCol({.sKey = "Gr\xc3\xb6\xc3\x9f"
                       "e"});  // Größe
  EXPECT_EQ(grid.ColIndex("GR\xc3\x96\xc3\x9f"
                          "E"),
            2);
  grid.RemoveCol(2);
  ExpectError(515, [&] { grid.AddCol({.sKey = "NAME"}); });
  EXPECT_EQ(grid.ColCount(), 1);
  grid.AddCol();  // empty keys may repeat
  grid.AddCol();
  ExpectError(515, [&] { grid.SetColKey(2, "nAmE"); });
  EXPECT_EQ(grid.ColKey(2), "");
  grid.SetColKey(1, "name");  // its own key again, other case
  EXPECT_EQ(grid.ColKey(1), "name");
}

TEST(Columns, WidthLimitsClampBeforeTheCheck) {
  Quilta grid;
  grid.AddCol({.lWidth = 10, .lMinWidth = 20, .lMaxWidth = 30});
  EXPECT_EQ(grid.ColWidth(1), 20);
  grid.AddCol({.lMaxWidth = 40});
  EXPECT_EQ(grid.ColWidth(2), 40);
  grid.AddCol();
  EXPECT_EQ(grid.ColWidth(3), 64);
  ExpectError(519, [&] { grid.AddCol({.lMinWidth = 30, .lMaxWidth = 20}); });
  EXPECT_EQ(grid.ColCount(), 3);
}

TEST(Columns, CountCreatesSeveralAndOnlyTheFirstHasTheKey) {
  Quilta grid;
  grid.AddCol({.sKey = "k", .lCount = 3});
  EXPECT_EQ(grid.ColCount(), 3);
  EXPECT_EQ(grid.ColKey(1), "k");
  EXPECT_EQ(grid.ColKey(2), "");
  ExpectError(514, [&] { grid.AddCol({.lCount = 0}); });
}

TEST(Columns, ReferencesThatDoNotResolve) {
  Quilta grid;
  grid.AddCol({.sKey = "x", .lCount = 3});
  for (const Variant& bad : {Variant(true), Variant(), Variant::Null(), Variant(0), Variant(5),
                             Variant("nokey"), Variant("")}) {
    ExpectError(513, [&] { grid.ColPos(bad); });
  }
  EXPECT_EQ(grid.ColPos(2.5), 2);  // ties to even
  EXPECT_EQ(grid.ColPos(2.6), 3);
  EXPECT_EQ(grid.ColPos(int16_t{3}), 3);
}

TEST(Columns, RemoveColRenumbersAndChecksItsRange) {
  Quilta grid;
  grid.AddCol({.sKey = "a"});
  grid.AddCol({.sKey = "b"});
  grid.AddCol({.sKey = "c"});
  grid.AddRow({.lCount = 2});
  ExpectError(514, [&] { grid.RemoveCol(2, 3); });
  ExpectError(514, [&] { grid.RemoveCol(1, 0); });
  ExpectError(514, [&] { grid.RemoveCol(4); });  // the row text column cannot go
  ExpectError(513, [&] { grid.RemoveCol("zz"); });
  EXPECT_EQ(grid.ColCount(), 3);
  grid.RemoveCol("b");
  EXPECT_EQ(grid.ColCount(), 2);
  EXPECT_EQ(grid.ColIndex("c"), 2);
  EXPECT_EQ(grid.RowTextCol(), 3);
}

TEST(Columns, RemovedColumnKeepsItsDefaultCellObject) {
  Quilta grid;
  auto cell = grid.AddCol({.sKey = "a"});
  grid.RemoveCol("a");
  EXPECT_EQ(cell.use_count(), 1);  // the grid let go; the host's reference stays usable
}

TEST(Columns, ColCountGrowsWithTemplateHeadersAndShrinksFromTheEnd) {
  Quilta grid;
  grid.AddCol({.sKey = "first"});
  ExpectError(514, [&] { grid.SetColCount(-1); });
  grid.SetColCount(4);
  EXPECT_EQ(grid.ColCount(), 4);
  EXPECT_EQ(grid.ColKey(4), "");
  grid.SetColCount(1);
  EXPECT_EQ(grid.ColIndex("first"), 1);
  grid.SetColCount(0);
  EXPECT_EQ(grid.RowTextCol(), 1);
}

TEST(Columns, TagsKeepObjectsByReference) {
  Quilta grid;
  grid.AddCol({.sKey = "a", .vTag = 42});
  EXPECT_EQ(grid.ColTag("a"), Variant(42));
  auto obj = std::make_shared<std::string>("payload");
  grid.SetColTag(1, Variant::Object(obj));
  EXPECT_EQ(grid.ColTag(1).ObjectAs<std::string>(), obj);
  ExpectError(513, [&] { grid.ColTag(9); });
}

TEST(Columns, CurrentColumnFollowsInsertionAndRemoval) {
  Quilta grid;
  grid.AddCol({.lCount = 4});
  grid.AddRow({.lCount = 2});
  control::Internals(grid).SetCurrentCell(1, 3);
  grid.AddCol({.vColBefore = 2});
  EXPECT_EQ(grid.CurCol(), 4);
  grid.RemoveCol(1);
  EXPECT_EQ(grid.CurCol(), 3);
  grid.RemoveCol(2, 2);
  EXPECT_EQ(grid.CurCol(), 0);
}

}  // namespace
