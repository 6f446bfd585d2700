#include "ops/ops_support.hpp"
#include "ops/sorting/sorter.hpp"

using namespace quilta;
using namespace quilta::testing;

namespace {

// Column 1 and 2 hold the given values; rows are tagged 1..n in their first order.
Quilta Grid(const std::vector<Variant>& col1, const std::vector<Variant>& col2 = {}) {
  Quilta g;
  g.AddCol({.sKey = "c1"});
  g.AddCol({.sKey = "c2"});
  if (!col1.empty()) g.AddRow({.lCount = static_cast<int32_t>(col1.size())});
  for (size_t i = 0; i < col1.size(); ++i) {
    SetValue(g, static_cast<int32_t>(i + 1), 1, col1[i]);
    if (i < col2.size()) SetValue(g, static_cast<int32_t>(i + 1), 2, col2[i]);
  }
  TagRows(g);
  return g;
}

using Tags = std::vector<int32_t>;

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

TEST(Sort, OnlyUnsortableColumnsEmptyTheCriteriaAndDoNothingElse) {
  Quilta g = Grid({3, 1, 2});
  g.SortObject().AddItem(1);
  g.SetColSortType("c2", quSortNone);
  EventLog events;
  g.SetEventSink(&events);
  g.Sort("c2");
  EXPECT_EQ(g.SortObject().ColCount(), 0);
  EXPECT_TRUE(events.log.empty());
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 3}));
  EXPECT_EQ(g.ColSortKey(1), 0);
}

TEST(Sort, EmptyGridRaisesNoEventsButUpdatesTheMarks) {
  Quilta g = Grid({});
  EventLog events;
  g.SetEventSink(&events);
  g.Sort(2);
  EXPECT_TRUE(events.log.empty());
  EXPECT_EQ(g.ColSortKey(2), 1);
}

TEST(Sort, TwoRowsAreComparedOnceAndSwappedOnlyAboveZero) {
  for (int32_t result : {-1, 0, 1}) {
    Quilta g = Grid({5, 7});
    g.SetColSortType(1, quSortCustom);
    CustomSorter events;
    events.fixed = result;
    g.SetEventSink(&events);
    g.Sort(1);
    EXPECT_EQ(events.log,
              (std::vector<std::string>{"BeforeSorted", "CustomSort 1 1,2 5,7", "AfterSorted"}));
    EXPECT_EQ(TagOrder(g), result > 0 ? Tags({2, 1}) : Tags({1, 2})) << result;
  }
}

// lRow1 is where the row being placed stood when its placement began, even after another row has
// been moved into that position; v1 and v2 are always the compared rows' values.
TEST(Sort, CustomSortSeesThePositionWhereThePlacementBegan) {
  Quilta g = Grid({3, 2, 1});
  g.SetColSortType(1, quSortCustom);
  CustomSorter events;
  events.byValue = true;
  g.SetEventSink(&events);
  g.Sort(1);
  EXPECT_EQ(events.log, (std::vector<std::string>{"BeforeSorted", "CustomSort 1 2,1 2,3",
                                                  "CustomSort 1 3,2 1,3", "CustomSort 1 3,1 1,2",
                                                  "AfterSorted"}));
  EXPECT_EQ(TagOrder(g), (Tags{3, 2, 1}));
}

TEST(Sort, HandlerFailureLeavesTheRowsAsTheyWere) {
  Quilta g = Grid({4, 3, 2, 1, 0});
  g.SetColSortType(1, quSortCustom);
  CustomSorter events;
  events.byValue = true;
  events.throwAfter = 5;
  g.SetEventSink(&events);
  EXPECT_THROW(g.Sort(1), std::runtime_error);
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 3, 4, 5}));
  EXPECT_EQ(g.RowIndex("x"), 0);
}

TEST(Sort, DescendingNegatesOnlyTheDecidingCriterion) {
  Quilta g = Grid({"a", "b", "a", "b", "a"}, {1, 2, 2, 1, 1});
  g.SetColSortOrderDefault(2, quSortDesc);
  g.Sort(Variant(std::string("c1")));
  g.SortObject().AddItem(2, quSortDesc);
  g.Sort();
  EXPECT_EQ(TagOrder(g)[0], 3);
  EXPECT_EQ(TagOrder(g)[3], 2);
  EXPECT_EQ(TagOrder(g)[4], 4);
  std::vector<int32_t> ties = {TagOrder(g)[1], TagOrder(g)[2]};
  std::sort(ties.begin(), ties.end());
  EXPECT_EQ(ties, (Tags{1, 5}));
}

TEST(Sort, GeneralRuleIgnoresCaseAndPutsNullFirst) {
  Quilta g = Grid({"b", "A", Variant::Null(), 10, "a", 2.5});
  g.Sort(1);
  Tags order = TagOrder(g);
  EXPECT_EQ((Tags{order[0], order[1], order[2], order[5]}), (Tags{3, 6, 4, 1}));
  EXPECT_EQ(order[3] + order[4], 2 + 5);  // "A" and "a" are equal
  g.SortObject().SetSortOrder(1, quSortDesc);
  g.Sort();
  EXPECT_EQ(TagOrder(g).back(), 3);
}

TEST(Sort, ValueTextTypesCompareTextByCodeOrIgnoringCase) {
  Quilta g = Grid({"a", "B", Variant::Null(), 9, 10});
  g.SetColSortType(1, quSortByValueUseCase);
  g.Sort(1);
  EXPECT_EQ(TagOrder(g), (Tags{3, 5, 4, 2, 1}));  // "10" < "9" < "B" < "a"
  g.SetColSortType(1, quSortByValueNoCase);
  g.Sort(1);
  EXPECT_EQ(TagOrder(g), (Tags{3, 5, 4, 1, 2}));
  g.SetColSortType(1, quSortByCellTextNoCase);
  g.Sort(1);
  EXPECT_EQ(TagOrder(g), (Tags{3, 5, 4, 1, 2}));  // Null shows as empty text
}

TEST(Sort, FieldSortTypesCompareTheCellRecord) {
  struct Case {
    ESortTypes type;
    void (*set)(model::Cell&, int);
  };
  const Case cases[] = {
      {quSortByIcon, [](model::Cell& c, int v) { c.icon = static_cast<int16_t>(v - 1); }},
      {quSortByExtraIcon, [](model::Cell& c, int v) { c.extraIcon = static_cast<int16_t>(v); }},
      {quSortByBackColor, [](model::Cell& c, int v) { c.backColor = v * 0x10000 - 1; }},
      {quSortByForeColor, [](model::Cell& c, int v) { c.foreColor = v; }},
      {quSortByFontIndex, [](model::Cell& c, int v) { c.font = static_cast<uint16_t>(v); }},
      {quSortBySelected, [](model::Cell& c, int v) { c.SetSelected(v > 1); }},
      {quSortBySelectable, [](model::Cell& c, int v) { c.SetSelectable(v > 1); }},
      {quSortByHatch, [](model::Cell& c, int v) { c.SetHatch(static_cast<EHatchStyles>(v)); }},
      {quSortByCheckState,
       [](model::Cell& c, int v) { c.SetCheckState(static_cast<ECellCheckState>(v)); }},
      {quSortByCheckVisible, [](model::Cell& c, int v) { c.SetCheckVisible(v > 1); }},
      {quSortByComboListIndex, [](model::Cell& c, int v) { c.comboListIndex = v - 2; }},
      {quSortByExtraData, [](model::Cell& c, int v) { c.extraData = v * 1000000000; }},
  };
  for (const Case& k : cases) {
    Quilta g = Grid({0, 0, 0});
    const int fields[] = {2, 1, 2};
    for (int32_t r = 1; r <= 3; ++r) k.set(CellOf(g, r, 1), fields[r - 1]);
    g.SetColSortType(1, k.type);
    g.Sort(1);
    EXPECT_EQ(TagOrder(g)[0], 2) << k.type;
  }
}

TEST(Sort, CustomGroupValuesAreOnlyUsedByGrouping) {
  Quilta g = Grid({"b", "c", "a"});
  g.SetColSortType(1, quSortByValueCustomGroups);
  EventLog events;
  g.SetEventSink(&events);
  g.Sort(1);
  EXPECT_EQ(TagOrder(g), (Tags{3, 1, 2}));
  EXPECT_EQ(events.log, (std::vector<std::string>{"BeforeSorted", "AfterSorted"}));
}

TEST(Sort, HeaderClicksAlternateAndShiftExtendsTheSort) {
  Quilta g = Grid({"a", "b", "a"}, {1, 2, 3});
  g.SetColSortOrderDefault(1, quSortDesc);
  g.DoDefaultSort(1);  // the first click uses the default order
  EXPECT_EQ(TagOrder(g)[0], 2);
  EXPECT_EQ(g.ColSortOrder(1), quSortDesc);
  g.DoDefaultSort(1);
  EXPECT_EQ(TagOrder(g)[2], 2);
  EXPECT_EQ(g.ColSortOrder(1), quSortAsc);
  g.DoDefaultSort(2, 1);  // Shift: appended with its default order
  EXPECT_EQ(TagOrder(g), (Tags{1, 3, 2}));
  EXPECT_EQ(g.SortObject().ColCount(), 2);
  EXPECT_EQ(g.ColSortKey(2), 2);
  g.DoDefaultSort(2, 1);  // Shift again flips it within the sort
  EXPECT_EQ(TagOrder(g), (Tags{3, 1, 2}));
  EXPECT_EQ(g.SortObject().SortOrder(1), quSortAsc);
  g.DoDefaultSort(2);  // a plain click: the only criterion, flipped
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 3}));
  EXPECT_EQ(g.SortObject().ColCount(), 1);
  EXPECT_EQ(g.ColSortKey(1), 0);
  EXPECT_EQ(g.ColSortOrder(1), quSortAsc);  // kept for a column no longer sorted
  g.DoDefaultSort(2, 0, quSortDesc);
  EXPECT_EQ(TagOrder(g), (Tags{3, 2, 1}));
}

TEST(Sort, HeaderClickSortsUnlessDeclined) {
  Quilta g = Grid({2, 1});
  struct Declining : EventLog {
    bool decline = true;
    void ColHeaderClick(int32_t, int16_t, bool& bDoDefault) override { bDoDefault = !decline; }
  } events;
  g.SetEventSink(&events);
  ops::Sorter(g.Internals()).HeaderClicked(1, 0);
  EXPECT_EQ(TagOrder(g), (Tags{1, 2}));
  events.decline = false;
  g.SetAllowSorting(false);
  ops::Sorter(g.Internals()).HeaderClicked(1, 0);
  EXPECT_EQ(TagOrder(g), (Tags{1, 2}));
  g.SetAllowSorting(true);
  ops::Sorter(g.Internals()).HeaderClicked(1, 0);
  EXPECT_EQ(TagOrder(g), (Tags{2, 1}));
}

TEST(Sort, UnsortableColumnHeaderDoesNothing) {
  Quilta g = Grid({2, 1});
  g.SortObject().AddItem(2);
  g.SetColSortType(1, quSortNone);
  EventLog events;
  g.SetEventSink(&events);
  g.DoDefaultSort(1);
  EXPECT_TRUE(events.log.empty());
  EXPECT_EQ(g.SortObject().SortCol(1), 2);
}

TEST(Sort, CurrentCellStaysOnItsDataRow) {
  Quilta g = Grid({"c", "a", "b"});
  g.Internals().SetCurrentCell(1, 2);
  EventLog events;
  g.SetEventSink(&events);
  g.Sort(1);
  EXPECT_EQ(g.CurRow(), 3);
  EXPECT_EQ(g.CurCol(), 2);
  EXPECT_EQ(events.log, (std::vector<std::string>{"BeforeSorted", "CurRow 1->3", "AfterSorted"}));
}

TEST(Sort, BoundsLimitTheSortToTheirRange) {
  Quilta g = Grid({5, 4, 3, 2, 1});
  g.SetRowKey(4, "four");
  g.Sort(1, 2, "four");
  EXPECT_EQ(TagOrder(g), (Tags{1, 4, 3, 2, 5}));
  EXPECT_EQ(g.RowIndex("four"), 2);
  g.DoDefaultSort(1, 0, quSortAsc, 4);
  EXPECT_EQ(TagOrder(g), (Tags{1, 4, 3, 5, 2}));
}

TEST(Sort, ColumnArraysRunFromLowerToUpperBoundSkippingUnsortableColumns) {
  Quilta g = Grid({1, 2});
  g.AddCol({.sKey = "none", .eSortType = quSortNone});
  Variant cols = Variant::Array1D(-1, 3);
  cols.SetAt(-1, "c2");
  cols.SetAt(0, "none");
  cols.SetAt(1, 1);
  g.Sort(cols);
  EXPECT_EQ(g.SortObject().ColCount(), 2);
  EXPECT_EQ(g.SortObject().SortCol(1), 2);
  EXPECT_EQ(g.SortObject().SortCol(2), 1);
  EXPECT_EQ(g.ColSortKey("c2"), 1);
  EXPECT_EQ(g.ColSortKey("none"), 0);
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
  ExpectError(514, [&] { g.SetColSortOrder(1, static_cast<ESortOrders>(2)); });
  ExpectError(514, [&] { g.SetColSortKey(1, -1); });
  ExpectError(513, [&] { g.ColSortType("missing"); });
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 3}));
  EXPECT_EQ(g.SortObject().ColCount(), 1);
  EXPECT_EQ(g.SortObject().SortOrder(1), quSortDesc);
  EXPECT_EQ(g.ColSortType(1), quSortByValueGeneral);
  EXPECT_EQ(g.ColSortOrderDefault(1), quSortAsc);
}

TEST(Sort, HeaderMarkSettersChangeOnlyTheHeader) {
  Quilta g = Grid({3, 1, 2});
  g.SetColSortKey(1, 2);
  g.SetColSortOrder(1, quSortDesc);
  EXPECT_EQ(g.ColSortKey(1), 2);
  EXPECT_EQ(g.ColSortOrder(1), quSortDesc);
  EXPECT_EQ(g.SortObject().ColCount(), 0);
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 3}));
}

// A: 3   ( 3b: 2  (3b1, 3b2),  3a: 1 )
// B: 1   ( 1a: 5 )
// C: 2
Quilta SortableTree() {
  Quilta g;
  g.AddCol();
  auto add = [&](int value, const Variant& parent) {
    int32_t row = g.AddRow({.vRowParent = parent});
    SetValue(g, row, 1, value);
    return row;
  };
  int32_t a = add(3, Variant::Missing());
  int32_t ab = add(2, a);
  add(9, ab);
  add(8, ab);
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
  EXPECT_EQ(TagOrder(g), (Tags{1, 5, 2, 3, 4, 6, 7, 8}));  // 3b1, 3b2 stay unsorted
  g.SortRowChildNodes(0);
  EXPECT_EQ(TagOrder(g), (Tags{6, 7, 8, 1, 5, 2, 3, 4}));
  EXPECT_TRUE(events.log.empty());
  g.SortRowChildNodes(8);  // a leaf: nothing to sort
  EXPECT_EQ(TagOrder(g).back(), 4);
}

}  // namespace

namespace {

// Grouping is not built yet; these set the grouped state directly, as grouping will.
TEST(SortGrouped, GroupRowsFenceOffTheRunsBetweenThem) {
  Quilta g = Grid({"group", "c", "a", "b", "group", "z", "y"});
  for (int32_t r : {1, 5}) g.Internals().store.Rows().At(r).flags |= model::RowRecord::kGroupRow;
  g.Internals().groupedBy = {{2, quSortAsc, quSortByValueGeneral}};
  g.Sort(1);
  EXPECT_EQ(TagOrder(g), (Tags{1, 3, 4, 2, 5, 7, 6}));
  g.SortObject().Clear();
  g.SortObject().AddItem(2);
  g.SortObject().AddItem(1);
  g.DoDefaultSort(1, 1);  // Shift: the group prefix goes, column 1 flips within the sort
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 4, 3, 5, 6, 7}));
  EXPECT_EQ(g.SortObject().ColCount(), 2);
  EXPECT_EQ(g.SortObject().SortCol(1), 2);
  EXPECT_EQ(g.SortObject().SortOrder(2), quSortDesc);
}

TEST(SortGrouped, GroupedColumnHeaderReversesTheGroupInsteadOfSorting) {
  Quilta g = Grid({"b", "a", "c"}, {2, 1, 3});
  g.Internals().groupedBy = {{2, quSortAsc, quSortByValueGeneral}};
  EventLog events;
  g.SetEventSink(&events);
  g.DoDefaultSort(2);
  EXPECT_TRUE(events.log.empty());
  EXPECT_EQ(g.GroupObject().ColCount(), 1);
  EXPECT_EQ(g.GroupObject().SortOrder(1), quSortDesc);
  EXPECT_EQ(TagOrder(g), (Tags{1, 2, 3}));
}

TEST(SortGrouped, GroupedGridOfTwoRowsIsLeftAsItIs) {
  Quilta g = Grid({"b", "a"});
  g.Internals().groupedBy = {{2, quSortAsc, quSortByValueGeneral}};
  g.Sort(1);
  EXPECT_EQ(TagOrder(g), (Tags{1, 2}));
  EXPECT_EQ(g.ColSortKey(1), 1);
}

}  // namespace
