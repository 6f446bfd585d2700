#include "ops/ops_support.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

// Every criterion as "column/order/type".
std::vector<std::string> Items(const SortGroupObject& s) {
  std::vector<std::string> items;
  for (int32_t k = 1; k <= s.ColCount(); ++k)
    items.push_back(std::to_string(s.SortCol(k)) + "/" + std::to_string(s.SortOrder(k)) + "/" +
                    std::to_string(s.SortType(k)));
  return items;
}

Quilta ThreeColumns() {
  Quilta g;
  for (const char* key : {"Name", "Qty", "Price"}) g.AddCol({.sKey = key});
  return g;
}

TEST(SortGroupObject, ColCountAndIndexRules) {
  Quilta g = ThreeColumns();
  SortGroupObject& s = g.SortObject();
  s.AddItem("price", quSortDesc, quSortByValueNoCase);
  s.SetColCount(3);  // new entries: column i, ascending, the general rule
  EXPECT_EQ(Items(s), (std::vector<std::string>{"3/1/2", "2/0/0", "3/0/0"}));
  ExpectError(514, [&] { s.SetColCount(-1); });
  s.SetColCount(1);
  for (int32_t bad : {0, 2}) {
    ExpectError(514, [&] { s.SortCol(bad); });
    ExpectError(514, [&] { s.SetSortOrder(bad, quSortDesc); });
    ExpectError(514, [&] { s.RemoveItem(bad); });
  }
  ExpectError(514, [&] { s.SetSortType(1, quSortNone); });
  s.SetSortCol(1, 77);  // stored as given
  EXPECT_EQ(Items(s), (std::vector<std::string>{"77/1/2"}));
  s.SetColCount(0);
  EXPECT_EQ(s.ColCount(), 0);
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
  EXPECT_EQ(Items(s), (std::vector<std::string>{"2/0/0", "4/1/0", "2/1/98"}));
  EXPECT_EQ(s.FindCol("Qty"), 1);
  EXPECT_EQ(s.FindCol(1), 0);
  ExpectError(513, [&] { s.FindCol(0); });
  s.RemoveItem(1);
  EXPECT_EQ(s.FindCol("Qty"), 2);
  EXPECT_EQ(g.SortObject().ColCount(), 0);  // the two objects are separate
}

}  // namespace
