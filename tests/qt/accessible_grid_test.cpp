// What a screen reader reads from the grid: the table's shape, the header captions, the cells'
// shown text, the current cell as the focus, the selection, and cells following a column move.
#include "../../hosts/qt/src/accessible_grid.hpp"

#include <QAccessible>

#include "widget_support.hpp"

namespace quilta::qt::testing {
namespace {

class Accessible : public WidgetTest {
 protected:
  // The widget installs the table interface itself: nothing here asks for it.
  void SetUp() override {
    WidgetTest::SetUp();
    grid().SetMultiSelect(true);
    grid().SetCellValue(2, 3, 1234.5);
    grid().SetCellFmtString(2, 3, "$#,##0.00");
    iface = QAccessible::queryAccessibleInterface(widget.get());
    ASSERT_NE(iface, nullptr);
    table = iface->tableInterface();
    ASSERT_NE(table, nullptr);
  }
  QString Name(QAccessibleInterface* i) { return i ? i->text(QAccessible::Name) : "(none)"; }

  QAccessibleInterface* iface = nullptr;
  QAccessibleTableInterface* table = nullptr;
};

TEST_F(Accessible, TheGridReadsAsATableWithHeaderCaptionsAndShownText) {
  EXPECT_EQ(iface->role(), QAccessible::Table);
  EXPECT_EQ(table->rowCount(), kRows);
  EXPECT_EQ(table->columnCount(), 3);
  EXPECT_EQ(table->columnDescription(2), "Price");
  QAccessibleInterface* cell = table->cellAt(1, 2);
  EXPECT_EQ(Name(cell), "$1,234.50");  // the formatted text, as drawn
  EXPECT_EQ(cell->role(), QAccessible::Cell);
  QAccessibleTableCellInterface* c = cell->tableCellInterface();
  ASSERT_NE(c, nullptr);
  EXPECT_EQ(c->rowIndex(), 1);
  EXPECT_EQ(c->columnIndex(), 2);
  ASSERT_EQ(c->columnHeaderCells().size(), 1);
  EXPECT_EQ(Name(c->columnHeaderCells()[0]), "Price");
  EXPECT_EQ(c->columnHeaderCells()[0]->role(), QAccessible::ColumnHeader);
  // Children: the header row, then the cells row by row; indexes go both ways.
  EXPECT_EQ(iface->childCount(), (kRows + 1) * 3);
  EXPECT_EQ(Name(iface->child(0)), "Item");
  EXPECT_EQ(iface->child(3 + 3 + 2), cell);
  EXPECT_EQ(iface->indexOfChild(cell), 3 + 3 + 2);
  EXPECT_EQ(iface->indexOfChild(iface->child(1)), 1);
  EXPECT_EQ(table->cellAt(kRows, 0), nullptr);
  // On screen where the grid draws it.
  const QRect r = Bounds(2, 3);
  EXPECT_EQ(cell->rect(), QRect(viewport()->mapToGlobal(r.topLeft()), r.size()));
}

TEST_F(Accessible, TheCurrentCellIsTheFocusAndTheSelectionIsReported) {
  grid().SetCurCell(3, 2);
  QAccessibleInterface* focus = iface->focusChild();
  ASSERT_NE(focus, nullptr);
  EXPECT_EQ(focus, table->cellAt(2, 1));
  EXPECT_TRUE(focus->state().focused);
  grid().ClearSelection();
  grid().SetCellSelected(4, 1, true);
  grid().SetCellSelected(4, 3, true);
  EXPECT_EQ(table->selectedCellCount(), 2);
  const auto cells = table->selectedCells();
  ASSERT_EQ(cells.size(), 2);
  EXPECT_EQ(cells[0], table->cellAt(3, 0));
  EXPECT_TRUE(cells[1]->state().selected);
  EXPECT_TRUE(table->selectedRows().isEmpty());  // row 4 misses its middle cell
  grid().SetCellSelected(4, 2, true);
  EXPECT_EQ(table->selectedRows(), QList<int>{3});
  EXPECT_TRUE(table->selectColumn(1));
  EXPECT_EQ(table->selectedColumns(), QList<int>{1});
  EXPECT_TRUE(table->unselectRow(3));
  EXPECT_FALSE(grid().CellSelected(4, 3));
  EXPECT_TRUE(table->selectedColumns().isEmpty());
}

TEST_F(Accessible, ColumnsAreReadInDisplayOrderAndCheckBoxesReadTheirState) {
  grid().SetColPos(3, 1);  // Price moves to the front
  EXPECT_EQ(table->columnDescription(0), "Price");
  EXPECT_EQ(Name(table->cellAt(1, 0)), "$1,234.50");
  grid().SetCellCheckVisible(1, 1, true);
  grid().SetCellCheckState(1, 1, quCheckStateChecked);
  const QAccessible::State s = table->cellAt(0, 1)->state();
  EXPECT_TRUE(s.checkable);
  EXPECT_TRUE(s.checked);
}

}  // namespace
}  // namespace quilta::qt::testing
