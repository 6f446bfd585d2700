#include "ops/ops_support.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

Quilta ThreeColumns() {
  Quilta g;
  g.AddCol({.sKey = "Name"});
  g.AddCol({.sKey = "Qty"});
  g.AddCol({.sKey = "Price"});
  return g;
}

struct Items {
  std::vector<int32_t> cols, orders, types;
  static Items Of(const SortGroupObject& s) {
    Items i;
    for (int32_t k = 1; k <= s.ColCount(); ++k) {
      i.cols.push_back(s.SortCol(k));
      i.orders.push_back(s.SortOrder(k));
      i.types.push_back(s.SortType(k));
    }
    return i;
  }
  bool operator==(const Items&) const = default;
};

TEST(SortGroupObject, ColCountGrowsWithDefaultsAndShrinks) {
  Quilta g = ThreeColumns();
  SortGroupObject& s = g.SortObject();
  EXPECT_EQ(s.ColCount(), 0);
  s.AddItem("price", quSortDesc, quSortByValueNoCase);
  s.SetColCount(3);
  EXPECT_EQ(Items::Of(s), (Items{{3, 2, 3}, {1, 0, 0}, {2, 0, 0}}));
  s.SetColCount(1);
  EXPECT_EQ(Items::Of(s), (Items{{3}, {1}, {2}}));
  ExpectError(514, [&] { s.SetColCount(-1); });
  EXPECT_EQ(s.ColCount(), 1);
  s.SetColCount(0);
  EXPECT_EQ(s.ColCount(), 0);
}

TEST(SortGroupObject, IndexesOutsideTheListRaise514) {
  Quilta g = ThreeColumns();
  SortGroupObject& s = g.SortObject();
  s.AddItem(1);
  for (int32_t bad : {0, 2}) {
    ExpectError(514, [&] { s.SortCol(bad); });
    ExpectError(514, [&] { s.SetSortOrder(bad, quSortDesc); });
    ExpectError(514, [&] { s.SetSortType(bad, quSortCustom); });
    ExpectError(514, [&] { s.RemoveItem(bad); });
  }
  ExpectError(514, [&] { s.SetSortType(1, quSortNone); });
  s.SetSortCol(1, 77);  // stored as given
  s.SetSortType(1, quSortByIcon);
  EXPECT_EQ(Items::Of(s), (Items{{77}, {0}, {quSortByIcon}}));
}

TEST(SortGroupObject, AddItemResolvesColumnsAndFindColSearchesFromTheFront) {
  Quilta g = ThreeColumns();
  SortGroupObject& s = g.GroupObject();
  s.AddItem("QTY");
  s.AddItem(4, quSortDesc);  // the row text column
  s.AddItem("qty", quSortDesc, quSortCustom);
  ExpectError(513, [&] { s.AddItem(5); });
  ExpectError(513, [&] { s.AddItem("missing"); });
  ExpectError(514, [&] { s.AddItem(1, quSortAsc, quSortNone); });
  EXPECT_EQ(Items::Of(s), (Items{{2, 4, 2}, {0, 1, 1}, {0, 0, quSortCustom}}));
  EXPECT_EQ(s.FindCol("Qty"), 1);
  EXPECT_EQ(s.FindCol(4), 2);
  EXPECT_EQ(s.FindCol(1), 0);
  ExpectError(513, [&] { s.FindCol(0); });
  s.RemoveItem(1);
  EXPECT_EQ(s.FindCol("Qty"), 2);
  s.Clear();
  EXPECT_EQ(s.ColCount(), 0);
  EXPECT_EQ(g.SortObject().ColCount(), 0);  // the two objects are separate
}

}  // namespace
