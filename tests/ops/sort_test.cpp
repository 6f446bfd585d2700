#include "control/internals_access.hpp"
#include "ops/ops_support.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

using Tags = std::vector<int32_t>;
using Log = std::vector<std::string>;

// Columns "c1" and "c2" hold the given values; rows are tagged 1..n in their first order.
Quilta Grid(const std::vector<Variant>& col1, const std::vector<Variant>& col2 = {}) {
  Quilta g;
  g.AddCol({.sKey = "c1"});
  g.AddCol({.sKey = "c2"});
  if (!col1.empty()) g.AddRow({.lCount = static_cast<int32_t>(col1.size())});
  for (size_t i = 0; i < col1.size(); ++i) SetValue(g, static_cast<int32_t>(i + 1), 1, col1[i]);
  for (size_t i = 0; i < col2.size(); ++i) SetValue(g, static_cast<int32_t>(i + 1), 2, col2[i]);
  TagRows(g);
  return g;
}

// SortObject as "column/order" items.
std::string Criteria(const Quilta& g) {
  std::string s;
  for (int32_t k = 1; k <= g.SortObject().ColCount(); ++k)
    s += std::to_string(g.SortObject().SortCol(k)) + "/" +
         std::to_string(g.SortObject().SortOrder(k)) + " ";
  return s;
}

// Answers CustomSort with a fixed result or by comparing Long values, logging every call.
struct CustomSorter : EventLog {
  int32_t fixed = 0;
  bool byValue = false;
  int throwAfter = -1;
  void CustomSort(int32_t lCol, int32_t lRow1, int32_t lRow2, const Variant& v1, const Variant& v2,
                  int32_t& lCompareResult) override {
    if (throwAfter >= 0 && throwAfter-- == 0) throw std::runtime_error("host failure");
    Add("CustomSort " + std::to_string(lCol) + " " + std::to_string(lRow1) + "," +
        std::to_string(lRow2) + " " + std::to_string(v1.LongValue()) + "," +
        std::to_string(v2.LongValue()));
    lCompareResult = byValue ? v1.LongValue() - v2.LongValue() : fixed;
  }
};

TEST(Sort, NothingToSortRaisesNothing) {
  Quilta g = Grid({3, 1, 2});
  g.SortObject().AddItem(1);
  g.SetColSortType("c2", quSortNone);
  EventLog events;
  g.SetEventSink(&events);
  g.DoDefaultSort("c2");  // an unsortable header does nothing
  EXPECT_EQ(Criteria(g), "1/0 ");
  g.Sort("c2");  // only unsortable columns: the criteria empty, nothing else
  EXPECT_EQ(Criteria(g), "");
  Quilta empty = Grid({});
  empty.SetEventSink(&events);
  empty.Sort(2);  // no rows: no events, but the marks follow SortObject
  EXPECT_EQ(empty.ColSortKey(2), 1);
  EXPECT_TRUE(events.log.empty());
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 3}));
}

TEST(Sort, TwoRowsAreComparedOnceAndSwappedOnlyAboveZero) {
  for (int32_t result : {-1, 0, 1}) {
    Quilta g = Grid({5, 7});
    g.SetColSortType(1, quSortCustom);
    CustomSorter events;
    events.fixed = result;
    g.SetEventSink(&events);
    g.Sort(1);
    EXPECT_EQ(events.log, (Log{"BeforeSorted", "CustomSort 1 1,2 5,7", "AfterSorted"}));
    EXPECT_EQ(TagOrder(g), result > 0 ? Tags({2, 1}) : Tags({1, 2})) << result;
  }
}

// lRow1 is where the row being placed stood when its placement began, even after another row has
// been moved into that position; v1 and v2 are always the compared rows' values.
TEST(Sort, CustomSortSeesThePositionWhereThePlacementBeganAndMayFail) {
  Quilta g = Grid({3, 2, 1});
  g.SetColSortType(1, quSortCustom);
  CustomSorter events;
  events.byValue = true;
  g.SetEventSink(&events);
  g.Sort(1);
  EXPECT_EQ(events.log, (Log{"BeforeSorted", "CustomSort 1 2,1 2,3", "CustomSort 1 3,2 1,3",
                             "CustomSort 1 3,1 1,2", "AfterSorted"}));
  events.throwAfter = 1;  // a failing handler leaves the rows as they were
  g.SortObject().SetSortOrder(1, quSortDesc);
  EXPECT_THROW(g.Sort(), std::runtime_error);
  EXPECT_EQ(TagOrder(g), (Tags{3, 2, 1}));
}

TEST(Sort, ComparisonRules) {
  Quilta g = Grid({"a", "b", "a", "b", "a"}, {1, 2, 2, 1, 1});
  g.Sort("c1");
  g.SortObject().AddItem(2, quSortDesc);  // negates only where column 2 decides
  g.Sort();
  EXPECT_EQ(TagOrder(g), (Tags{3, 1, 5, 2, 4}));

  g = Grid({"b", "A", Variant::Null(), 10, "a", 2.5});
  g.Sort(1);  // general rule: Null first, numbers before strings, "a" equal to "A"
  EXPECT_EQ(TagOrder(g), (Tags{3, 6, 4, 5, 2, 1}));
  g.SetColSortType(1, quSortByValueUseCase);
  g.Sort(1);  // "10" < "2.5" < "A" < "a" < "b"
  EXPECT_EQ(TagOrder(g), (Tags{3, 4, 6, 2, 5, 1}));
  g.SetColSortType(1, quSortByCellTextNoCase);
  g.DoDefaultSort(1, 0, quSortDesc);  // Null shows as empty text
  EXPECT_EQ(TagOrder(g), (Tags{1, 5, 2, 6, 4, 3}));
  g.SetColSortType(1, quSortByValueCustomGroups);
  EventLog events;
  g.SetEventSink(&events);
  g.Sort(1);  // custom groups outside grouping: the general rule, no CustomGroupValue
  EXPECT_EQ(TagOrder(g), (Tags{3, 6, 4, 2, 5, 1}));
  EXPECT_EQ(events.log, (Log{"BeforeSorted", "AfterSorted"}));
}

TEST(Sort, FieldSortTypesCompareTheCellRecord) {
  using Set = void (*)(model::Cell&, int);
  const std::pair<ESortTypes, Set> cases[] = {
      {quSortByIcon, [](model::Cell& c, int v) { c.SetIcon(static_cast<int16_t>(v - 1)); }},
      {quSortByBackColor, [](model::Cell& c, int v) { c.backColor = v * 0x10000 - 1; }},
      {quSortBySelected, [](model::Cell& c, int v) { c.SetSelected(v > 1); }},
      {quSortByExtraData, [](model::Cell& c, int v) { c.extraData = v * 1000000000; }},
  };
  for (auto [type, set] : cases) {
    Quilta g = Grid({0, 0, 0});
    for (int32_t r = 1; r <= 3; ++r) set(CellOf(g, r, 1), r == 2 ? 1 : 2);
    g.SetColSortType(1, type);
    g.Sort(1);
    EXPECT_EQ(TagOrder(g)[0], 2) << type;
  }
}

TEST(Sort, HeaderClicksAlternateAndShiftExtendsTheSort) {
  Quilta g = Grid({"a", "b", "a"}, {1, 2, 3});
  g.SetColSortOrderDefault(1, quSortDesc);
  g.DoDefaultSort(1);  // the first click uses the default order
  EXPECT_EQ(TagOrder(g)[0], 2);
  g.DoDefaultSort(1);
  EXPECT_EQ(TagOrder(g)[2], 2);
  EXPECT_EQ(g.ColSortOrder(1), quSortAsc);
  g.DoDefaultSort(2, 1);  // Shift: appended with its default order
  EXPECT_EQ(TagOrder(g), (Tags{1, 3, 2}));
  EXPECT_EQ(g.ColSortKey(2), 2);
  g.DoDefaultSort(2, 1);  // Shift again flips it within the sort
  EXPECT_EQ(Criteria(g), "1/0 2/1 ");
  g.DoDefaultSort(2);  // a plain click: the only criterion, flipped
  EXPECT_EQ(Criteria(g), "2/0 ");
  EXPECT_EQ(g.ColSortKey(1), 0);
  EXPECT_EQ(g.ColSortOrder(1), quSortAsc);  // kept for a column no longer sorted
}

// SortObject names columns by index: it follows them as columns come and go, so that it and the
// columns' sort keys keep agreeing and a saved sort layout reads back the same.
TEST(Sort, CriteriaFollowInsertedAndRemovedColumns) {
  Quilta g = Grid({"a", "b", "a"}, {1, 2, 3});
  g.AddCol({.sKey = "c3"});
  Variant cols = Variant::Array1D(1, 2);
  cols.SetAt(1, "c1");
  cols.SetAt(2, "c3");
  g.Sort(cols);
  g.AddCol({.sKey = "c0", .vColBefore = 1});
  EXPECT_EQ(Criteria(g), "2/0 4/0 ");
  g.RemoveCol("c1");
  EXPECT_EQ(Criteria(g), "3/0 ");
  EXPECT_EQ(g.ColSortKey("c3"), 1);
  const std::string layout = g.LayoutSort();
  EXPECT_EQ(layout, "3|SortKey|1|3|SortOrder|0|");
  g.SetLayoutSort(layout);
  EXPECT_EQ(Criteria(g), "3/0 ");
  g.Clear(true);
  EXPECT_EQ(g.SortObject().ColCount(), 0);
}

TEST(Sort, CurrentCellBoundsAndColumnLists) {
  Quilta g = Grid({5, 4, 3, 2, 1});
  control::Internals(g).SetCurrentCell(2, 2);
  EventLog events;
  g.SetEventSink(&events);
  g.SetRowKey(4, "four");
  g.Sort(1, 2, "four");  // rows 2..4 only
  EXPECT_EQ(TagOrder(g), (Tags{1, 4, 3, 2, 5}));
  EXPECT_EQ(g.RowIndex("four"), 2);
  EXPECT_EQ(g.CurRow(), 4);  // the current cell stays on its data row
  EXPECT_EQ(events.log, (Log{"BeforeSorted", "CurRow 2->4", "AfterSorted"}));
  g.AddCol({.sKey = "none", .eSortType = quSortNone});
  Variant cols = Variant::Array1D(-1, 3);
  for (auto [i, col] : {std::pair{-1, Variant("c2")}, {0, Variant("none")}, {1, Variant(1)}})
    cols.SetAt(i, col);
  g.Sort(cols, 4);
  EXPECT_EQ(Criteria(g), "2/0 1/0 ");
  EXPECT_EQ(TagOrder(g), (Tags{1, 4, 3, 5, 2}));
}

TEST(Sort, RejectedArgumentsChangeNothing) {
  Quilta g = Grid({3, 1, 2});
  g.SortObject().AddItem(2, quSortDesc);
  Variant cols = Variant::Array1D(1, 2);
  cols.SetAt(1, 1);
  cols.SetAt(2, "missing");
  ExpectError(513, [&] { g.Sort(cols); });
  ExpectError(513, [&] { g.Sort(1, 0); });
  ExpectError(514, [&] { g.Sort(Variant::Array2D(1, 1, 1, 1)); });
  ExpectError(513, [&] { g.DoDefaultSort(1, 0, quSortAsc, 1, 9); });
  ExpectError(514, [&] { g.DoDefaultSort(1, 0, static_cast<ESortOrders>(2)); });
  ExpectError(513, [&] { g.SortRowChildNodes(4); });
  ExpectError(514, [&] { g.SetColSortType(1, static_cast<ESortTypes>(50)); });
  ExpectError(514, [&] { g.SetColSortOrderDefault(1, static_cast<ESortOrders>(-1)); });
  ExpectError(514, [&] { g.SetColSortKey(1, -1); });
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 3}));
  EXPECT_EQ(Criteria(g), "2/1 ");
  EXPECT_EQ(g.ColSortType(1), quSortByValueGeneral);
  g.SetColSortKey(1, 2);  // the header marks only
  g.SetColSortOrder(1, quSortDesc);
  EXPECT_EQ(g.ColSortOrder(1), quSortDesc);
  EXPECT_EQ(Criteria(g), "2/1 ");
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 3}));
}

// A: 3 (A1: 2 (9, 8), A2: 1), B: 1 (5), C: 2
Quilta SortableTree() {
  Quilta g;
  g.AddCol();
  auto add = [&](int value, const Variant& parent) {
    int32_t row = g.AddRow({.vRowParent = parent});
    SetValue(g, row, 1, value);
    return row;
  };
  int32_t a = add(3, Variant::Missing());
  int32_t a1 = add(2, a);
  add(9, a1);
  add(8, a1);
  add(1, a);
  add(5, add(1, Variant::Missing()));
  add(2, Variant::Missing());
  TagRows(g);
  return g;
}

TEST(Sort, TreeSortKeepsSubtreesUnderTheirParents) {
  Quilta g = SortableTree();
  g.SetTreeCol(1);
  g.Sort(1);
  EXPECT_EQ(TagOrder(g), (Tags{6, 7, 8, 1, 5, 2, 4, 3}));
  EXPECT_EQ(Levels(g), (std::vector<int>{0, 1, 0, 0, 1, 1, 2, 2}));
  g.DoDefaultSort(1, 0, quSortDesc, 4, 8);  // a range: the subtree of A only
  EXPECT_EQ(TagOrder(g), (Tags{6, 7, 8, 1, 2, 3, 4, 5}));
}

TEST(Sort, SortRowChildNodesSortsOneLevelWithoutEvents) {
  Quilta g = SortableTree();
  g.SortObject().AddItem(1);
  EventLog events;
  g.SetEventSink(&events);
  g.SortRowChildNodes(1);
  EXPECT_EQ(TagOrder(g), (Tags{1, 5, 2, 3, 4, 6, 7, 8}));  // 9 and 8 stay unsorted
  g.SortRowChildNodes(0);
  EXPECT_EQ(TagOrder(g), (Tags{6, 7, 8, 1, 5, 2, 3, 4}));
  EXPECT_TRUE(events.log.empty());
}

// Row tags in order, 0 for group rows.
Tags GroupedTags(const Quilta& g) {
  Tags tags;
  for (int32_t r = 1; r <= g.RowCount(); ++r)
    tags.push_back(g.RowIsGroupRow(r) ? 0 : g.RowTag(r).LongValue());
  return tags;
}

TEST(SortGrouped, GroupRowsFenceOffTheRunsBetweenThem) {
  Quilta g = Grid({"c", "a", "b", "z", "y"}, {"g1", "g1", "g1", "g2", "g2"});
  g.Group(2);
  g.Sort(1);
  EXPECT_EQ(GroupedTags(g), (Tags{0, 2, 3, 1, 0, 5, 4}));
  g.SortObject().AddItem(2);
  g.SortObject().SetSortCol(1, 2);
  g.SortObject().SetSortCol(2, 1);
  g.DoDefaultSort(1, 1);  // Shift: the group prefix goes, column 1 flips within the sort
  EXPECT_EQ(GroupedTags(g), (Tags{0, 1, 3, 2, 0, 4, 5}));
  EXPECT_EQ(Criteria(g), "2/0 1/1 ");
  g.DoDefaultSort(2);  // a grouped column's header reverses the group instead of sorting
  EXPECT_EQ(g.GroupObject().SortOrder(1), quSortDesc);
  EXPECT_EQ(GroupedTags(g), (Tags{0, 4, 5, 0, 1, 3, 2}));
  g.RemoveRow(1);
  g.RemoveRow(2, 2);
  g.Sort(1);  // a grouped grid of two rows is left as it is
  EXPECT_EQ(GroupedTags(g), (Tags{0, 2}));
}

}  // namespace

namespace {
// Icons decided at drawing time from the value; the stored icon is ignored.
class DynamicIcons : public QuiltaEvents {
 public:
  int raised = 0;
  void CellDynamicIcons(int32_t, int32_t, const Variant& vValue, int16_t& iIcon,
                        int16_t&) override {
    ++raised;
    iIcon = static_cast<int16_t>(10 - CLng(vValue));
  }
};
}  // namespace

TEST(Sort, IconSortsAskForDynamicIconsOnlyWhenChosen) {
  Quilta g = Grid({1, 2, 3});
  for (int32_t r = 1; r <= 3; ++r) g.SetCellIcon(r, 1, static_cast<int16_t>(r));
  DynamicIcons host;
  g.SetEventSink(&host);
  g.SetColSortType(1, quSortByIcon);
  g.Sort(1);
  EXPECT_EQ(TagOrder(g), (std::vector<int32_t>{1, 2, 3}));
  EXPECT_EQ(host.raised, 0);
  g.SetDynamicContentEvents(quDCEventCellDynamicIcons);
  g.Sort(1);
  EXPECT_EQ(TagOrder(g), (std::vector<int32_t>{3, 2, 1}));
  EXPECT_GT(host.raised, 0);
}
