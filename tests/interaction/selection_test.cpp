// The current cell and the selection through the public object model: moves, the events and
// their order, the list of selected items, and how both follow the stores.
#include <gtest/gtest.h>

#include <stdexcept>

#include "interaction_support.hpp"

namespace quilta::testing {
namespace {

struct Selection : ::testing::Test {
  Selection() {
    Fill(g, 6, 3);
    g.SetEventSink(&rec);
  }
  Quilta g;
  Recorder rec;
};

TEST_F(Selection, MovesInSingleSelectionModeRaiseSelectionThenCurrentCellEvents) {
  g.SetCurCell(2, 3);
  EXPECT_EQ(rec.Take(), (Log{"QuitCustomEdit", "Before", "Cell 2,3 on", "CurCell 2,3 from 0,0",
                             "CurRow 2 from 0", "CurCol 3 from 0", "After true"}));
  g.SetCurCell(2, 3);  // already current: only scrolled into view
  g.SetCurRow(2);
  EXPECT_TRUE(rec.Take().empty());
  g.SetCurRow(4);
  EXPECT_EQ(rec.Take(), (Log{"QuitCustomEdit", "Before", "Cell 2,3 off", "Cell 4,3 on",
                             "CurCell 4,3 from 2,3", "CurRow 4 from 2", "After true"}));
  EXPECT_EQ(Items(g), "(4,3)");
  EXPECT_TRUE(g.CellSelected(4, 3));
  EXPECT_FALSE(g.CellSelected(2, 3));
  g.SetCurRow(0);
  EXPECT_EQ(g.CurRow(), 0);
  EXPECT_EQ(g.CurCol(), 3);
  EXPECT_EQ(g.SelItems().Count(), 0);
}

TEST_F(Selection, CurRowAndCurColRefuseValuesOutsideTheGrid) {
  g.SetCurCell(1, 1);
  rec.Take();
  for (int32_t bad : {-1, 7}) {
    EXPECT_THROW(g.SetCurRow(bad), Error);
  }
  EXPECT_THROW(g.SetCurCol(4), Error);
  EXPECT_THROW(g.SetCurCol(-1), Error);
  EXPECT_THROW(g.SetCurCell(7, 1), Error);
  EXPECT_THROW(g.SetCurCell(1, "nope"), Error);
  EXPECT_EQ(g.CurRow(), 1);
  EXPECT_EQ(g.CurCol(), 1);
  EXPECT_TRUE(rec.Take().empty());
  try {
    g.SetCurRow(9);
  } catch (const Error& e) {
    EXPECT_EQ(e.Code(), 513);
  }
}

TEST_F(Selection, CellSelectedInSingleSelectionModeMovesTheCurrentCellOrDoesNothing) {
  g.SetCurCell(1, 1);
  rec.Take();
  g.SetCellSelected(1, 1, false);
  EXPECT_TRUE(g.CellSelected(1, 1));
  g.SetCellSelected(3, 2, true);
  EXPECT_EQ(g.CurRow(), 3);
  EXPECT_EQ(g.CurCol(), 2);
  EXPECT_EQ(Items(g), "(3,2)");
  EXPECT_EQ(rec.Take(), (Log{"Before", "Cell 1,1 off", "Cell 3,2 on", "CurCell 3,2 from 1,1",
                             "CurRow 3 from 1", "CurCol 2 from 1", "After true"}));
}

TEST_F(Selection, MultiSelectionKeepsOneBeforeAfterPairPerOperation) {
  g.SetMultiSelect(true);
  g.SetCurCell(1, 1);
  g.SetCellSelected(3, 2, true);
  rec.Take();
  g.SetCellSelected(4, 1, true);
  EXPECT_EQ(rec.Take(), (Log{"Before", "Cell 4,1 on", "After true"}));
  g.SetCurCell(2, 2);  // selects only the new current cell
  EXPECT_EQ(rec.Take(), (Log{"QuitCustomEdit", "Before", "Cell 1,1 off", "Cell 4,1 off",
                             "Cell 3,2 off", "Cell 2,2 on", "CurCell 2,2 from 1,1",
                             "CurRow 2 from 1", "CurCol 2 from 1", "After true"}));
  EXPECT_EQ(Items(g), "(2,2)");
}

TEST_F(Selection, ClearSelectionAlsoRemovesTheCurrentCell) {
  g.ClearSelection();
  EXPECT_EQ(rec.Take(), (Log{"Before", "After false"}));
  g.SetMultiSelect(true);
  g.SetCurCell(2, 2);
  g.SetCellSelected(5, 3, true);
  rec.Take();
  g.ClearSelection();
  EXPECT_EQ(rec.Take(),
            (Log{"Before", "QuitCustomEdit", "Cell 2,2 off", "Cell 5,3 off", "CurCell 0,0 from 2,2",
                 "CurRow 0 from 2", "CurCol 0 from 2", "After true"}));
  EXPECT_EQ(g.SelItems().Count(), 0);
  EXPECT_FALSE(g.CellSelected(5, 3));
}

TEST_F(Selection, SelectAllAndInvertSelection) {
  EXPECT_THROW(g.SelectAll(), Error);
  EXPECT_THROW(g.InvertSelection(), Error);
  g.SetMultiSelect(true);
  g.SetCellSelectable(2, 2, false);
  g.SetRowVisible(4, false);
  rec.cellEvents = false;
  rec.Take();
  g.SelectAll();
  EXPECT_EQ(rec.Take(), (Log{"Before", "After true"}));
  EXPECT_EQ(g.SelItems().Count(), 6 * 3 - 3 - 1);  // hidden row 4 and the unselectable cell
  EXPECT_FALSE(g.CellSelected(2, 2));
  EXPECT_FALSE(g.CellSelected(4, 1));
  g.InvertSelection();
  EXPECT_EQ(rec.Take(), (Log{"Before", "After true"}));
  EXPECT_EQ(Items(g), "");  // the unselectable cell cannot be inverted into the selection
  g.SetRowVisible(4, true);
  g.SetCellSelectable(2, 2, true);
  g.SelectAll();
  rec.Take();
  g.SelectAll();  // everything is selected already
  EXPECT_TRUE(rec.Take().empty());
}

TEST_F(Selection, RowModeListsOneItemPerRow) {
  g.SetMultiSelect(true);
  g.SetRowMode(true);
  g.SetCurCell(2, 2);
  g.SetCellSelected(5, 1, true);
  EXPECT_EQ(g.SelItems().Count(), 2);
  EXPECT_EQ(Items(g), "(2,1);(5,1)");
  for (int32_t c = 1; c <= 3; ++c) EXPECT_TRUE(g.CellSelected(5, c));
  g.SetCellSelected(5, 3, false);  // a row-mode deselection takes the whole row out
  EXPECT_EQ(Items(g), "(2,1)");
  EXPECT_FALSE(g.CellSelected(5, 1));
  g.SetRowMode(false);  // back to cell items
  EXPECT_EQ(Items(g), "(2,1);(2,2);(2,3)");
}

TEST_F(Selection, SwitchingMultiSelectOffKeepsOnlyTheCurrentCell) {
  struct Host : HostSite {
    std::vector<std::string> changed;
    void PropertyChanged(std::string_view name) override { changed.emplace_back(name); }
  } host;
  g.SetHostSite(&host);
  g.SetMultiSelect(true);
  g.SetCurCell(3, 1);
  g.SetCellSelected(1, 1, true);
  g.SetCellSelected(6, 2, true);
  rec.Take();
  g.SetMultiSelect(false);
  EXPECT_EQ(rec.Take(), (Log{"Before", "Cell 1,1 off", "Cell 6,2 off", "After true"}));
  EXPECT_EQ(Items(g), "(3,1)");
  EXPECT_TRUE(g.CellSelected(3, 1));
  EXPECT_EQ(host.changed.back(), "MultiSelect");
}

TEST_F(Selection, AHandlerThatThrowsLeavesCellsAndListAgreeing) {
  struct Thrower : Recorder {
    int left = 2;
    void CellSelectionChange(int32_t, int32_t, bool) override {
      if (--left == 0) throw std::runtime_error("host failure");
    }
  } thrower;
  g.SetMultiSelect(true);
  g.SetCurCell(1, 1);
  for (int32_t r = 2; r <= 4; ++r) g.SetCellSelected(r, 2, true);
  g.SetEventSink(&thrower);
  EXPECT_THROW(g.SetCurCell(6, 3), std::runtime_error);
  int32_t selected = 0;
  for (int32_t r = 1; r <= 6; ++r)
    for (int32_t c = 1; c <= 3; ++c) selected += g.CellSelected(r, c);
  EXPECT_EQ(g.SelItems().Count(), selected);
  for (const TSelItemInfo& item : g.SelItems().GetArray())
    EXPECT_TRUE(g.CellSelected(item.Row, item.Col));
  thrower.left = 1000;
  g.SetCurCell(5, 1);  // the grid goes on working
  EXPECT_EQ(Items(g), "(5,1)");
}

TEST(SelItems, OrderCollisionsAndBounds) {
  Quilta g;
  Fill(g, 4, 4);
  g.SetMultiSelect(true);
  for (auto [r, c] : {std::pair{2, 1}, {1, 2}, {2, 3}, {3, 2}, {1, 1}})
    g.SetCellSelected(r, c, true);
  SelItemsObject& items = g.SelItems();
  EXPECT_TRUE(items.Sorted());
  EXPECT_EQ(items.GetString(), "(1,1);(1,2);(2,1);(2,3);(3,2)");
  items.SetSorted(false);
  // By bucket (Row * Col modulo 1009), each bucket in the order its items came.
  EXPECT_EQ(items.GetString(), "(1,1);(2,1);(1,2);(2,3);(3,2)");
  int32_t minRow = 0, maxRow = 0, minCol = 0, maxCol = 0;
  std::vector<TSelItemInfo> array = items.GetArray(minRow, maxRow, minCol, maxCol);
  ASSERT_EQ(array.size(), 5u);
  EXPECT_EQ(array[1], (TSelItemInfo{2, 1}));
  EXPECT_EQ(minRow, 1);
  EXPECT_EQ(maxRow, 3);
  EXPECT_EQ(minCol, 1);
  EXPECT_EQ(maxCol, 3);
  g.SetCellSelected(2, 3, false);  // (2,3) and (3,2) share a bucket: the other stays
  EXPECT_EQ(items.GetString(), "(1,1);(2,1);(1,2);(3,2)");
  g.SetCellSelected(2, 3, true);  // back at the end of its chain
  EXPECT_EQ(items.GetString(), "(1,1);(2,1);(1,2);(3,2);(2,3)");
  g.ClearSelection();
  EXPECT_EQ(items.GetString(), "");
  items.GetArray(minRow, maxRow, minCol, maxCol);
  EXPECT_EQ(minRow, 2147483647);
}

TEST(SelItems, ItemsSharingABucketFarApartInTheGrid) {
  Quilta g;
  g.AddCol({.lCount = 2});
  g.AddRow({.lCount = 2100});
  g.SetMultiSelect(true);
  g.SelItems().SetSorted(false);
  for (int32_t r : {2018, 1009 + 1, 1, 2}) g.SetCellSelected(r, 1, true);
  // 2018 falls into bucket 0, 1010 and 1 into bucket 1, 2 into bucket 2.
  EXPECT_EQ(g.SelItems().GetString(), "(2018,1);(1010,1);(1,1);(2,1)");
  g.SetCellSelected(1010, 1, false);
  EXPECT_EQ(g.SelItems().GetString(), "(2018,1);(1,1);(2,1)");
  EXPECT_EQ(g.SelItems().Count(), 3);
}

// ---- Following the stores ----------------------------------------------------------------

struct FollowingTheStores : Selection {
  FollowingTheStores() {
    g.SetMultiSelect(true);
    g.SetCurCell(2, 1);
    g.SetCellSelected(4, 2, true);
    rec.Take();
  }
};

TEST_F(FollowingTheStores, InsertedAndRemovedRowsShiftTheItemsAndTheCurrentRow) {
  g.AddRow({.vRowBefore = 3, .lCount = 2});
  EXPECT_EQ(Items(g), "(2,1);(6,2)");
  EXPECT_TRUE(g.CellSelected(6, 2));
  EXPECT_EQ(rec.Take(), (Log{"Before"}));
  g.AddRow();  // after every selected item: nothing to report
  EXPECT_TRUE(rec.Take().empty());
  g.RemoveRow(2);
  EXPECT_EQ(Items(g), "(5,2)");
  EXPECT_EQ(g.CurRow(), 0);  // the current row went
  EXPECT_EQ(g.CurCol(), 1);
  EXPECT_EQ(rec.Take(), (Log{"Before", "CurCell 0,1 from 2,1", "CurRow 0 from 2"}));
}

TEST_F(FollowingTheStores, RowsBelowEveryItemAfterRemovalsChangeNothing) {
  g.AddRow({.lCount = 6});
  for (int32_t r : {5, 12, 9}) g.SetCellSelected(r, 1, true);
  for (int32_t r : {12, 9, 4, 2}) g.SetCellSelected(r, r == 4 ? 2 : 1, false);
  EXPECT_EQ(Items(g), "(5,1)");
  rec.Take();
  g.AddRow({.vRowBefore = 6});  // below the last item left
  g.RemoveRow(8);
  EXPECT_TRUE(rec.Take().empty());
  g.AddRow({.vRowBefore = 5});
  EXPECT_EQ(Items(g), "(6,1)");
  EXPECT_EQ(rec.Take(), (Log{"Before"}));
}

TEST_F(FollowingTheStores, ShrinkingRowCountClearsACurrentRowBeyondIt) {
  g.SetCurCell(5, 1);
  g.SetCellSelected(2, 2, true);
  g.SetRowCount(4);
  EXPECT_EQ(g.CurRow(), 0);
  EXPECT_EQ(Items(g), "(2,2)");
}

TEST_F(FollowingTheStores, ColumnsShiftAndDropItems) {
  g.AddCol({.vColBefore = 2});
  EXPECT_EQ(Items(g), "(2,1);(4,3)");
  EXPECT_TRUE(g.CellSelected(4, 3));
  g.RemoveCol(3);
  EXPECT_EQ(Items(g), "(2,1)");
  g.RemoveCol(1);
  EXPECT_EQ(Items(g), "");
  EXPECT_EQ(g.CurCol(), 0);
}

TEST_F(FollowingTheStores, ClearEmptiesTheSelection) {
  g.Clear();
  EXPECT_EQ(g.SelItems().Count(), 0);
  EXPECT_EQ(g.CurRow(), 0);
  EXPECT_EQ(g.CurCol(), 0);
  EXPECT_EQ(rec.Take().front(), "Before");
}

TEST_F(FollowingTheStores, SortingAndMovingRowsKeepItemsOnTheirDataRows) {
  for (int32_t r = 1; r <= 6; ++r) g.SetCellValue(r, 1, 10 - r);  // descending
  g.Sort(1);                                                      // ascending: row r goes to 7 - r
  EXPECT_EQ(g.CurRow(), 5);
  EXPECT_EQ(Items(g), "(3,2);(5,1)");
  EXPECT_TRUE(g.CellSelected(3, 2));
  g.MoveRow(3, 1);
  EXPECT_EQ(Items(g), "(1,2);(5,1)");
  EXPECT_EQ(g.CurRow(), 5);
  // The list answers for the new rows: deselecting through it works.
  g.SetCellSelected(1, 2, false);
  EXPECT_EQ(Items(g), "(5,1)");
  g.DoKeyboardCommand(40, 1);  // Shift+Down: the anchor moved with its data row as well
  EXPECT_EQ(Items(g), "(5,1);(6,1)");
}

TEST_F(FollowingTheStores, ColCellsPropSelectsThroughTheSelection) {
  g.SetColCellsProp(3, quPropCellSelected, true, 1, 3);
  EXPECT_EQ(Items(g), "(1,3);(2,1);(2,3);(3,3);(4,2)");
  g.SetMultiSelect(false);
  EXPECT_THROW(g.SetColCellsProp(3, quPropCellSelected, true, 1, 3), Error);
  g.SetColCellsProp(3, quPropCellSelected, true, 6, 6);  // one cell: it becomes current
  EXPECT_EQ(Items(g), "(6,3)");
  EXPECT_EQ(g.CurRow(), 6);
  EXPECT_EQ(g.CurCol(), 3);
}

}  // namespace
}  // namespace quilta::testing
