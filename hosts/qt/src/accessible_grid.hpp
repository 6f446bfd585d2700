// Accessibility for QuiltaWidget: screen readers see the grid as a table whose columns carry
// the header captions, whose cells read their shown text, and whose focus is the current cell.
//
// Rows are the grid's rows in their order (hidden ones included, reported as invisible);
// columns are the grid's columns in display order. Cell objects are made when a reader asks for
// them and kept in Qt's accessibility cache while the table lives.
#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPair>

namespace quilta {
class Quilta;
}

namespace quilta::qt {

class QuiltaWidget;

class AccessibleGrid final : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit AccessibleGrid(QuiltaWidget* widget);
  ~AccessibleGrid() override;

  // ---- QAccessibleInterface
  void* interface_cast(QAccessible::InterfaceType t) override;
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* focusChild() const override;
  QAccessible::Role role() const override { return QAccessible::Table; }

  // ---- QAccessibleTableInterface (0-based rows and columns)
  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int column) const override;
  int selectedCellCount() const override;
  QList<QAccessibleInterface*> selectedCells() const override;
  QString columnDescription(int column) const override;
  QString rowDescription(int) const override { return {}; }
  int selectedColumnCount() const override { return int(selectedColumns().size()); }
  int selectedRowCount() const override { return int(selectedRows().size()); }
  int columnCount() const override;
  int rowCount() const override;
  QList<int> selectedColumns() const override;
  QList<int> selectedRows() const override;
  bool isColumnSelected(int column) const override;
  bool isRowSelected(int row) const override;
  bool selectRow(int row) override;
  bool selectColumn(int column) override;
  bool unselectRow(int row) override;
  bool unselectColumn(int column) override;
  void modelChange(QAccessibleTableModelChangeEvent*) override {}

  // The header cell of a column (0-based display position).
  QAccessibleInterface* headerCell(int column) const;
  quilta::Quilta& grid() const;
  QuiltaWidget* gridWidget() const;
  // The grid's column index at a 0-based display position, and back.
  int32_t ColumnAt(int column) const;
  int ColumnOf(int32_t colIndex) const;

 private:
  // row -1 is the header.
  QAccessibleInterface* Cached(int row, int column) const;
  mutable QHash<QPair<int, int>, QAccessible::Id> cells_;
};

// Makes the grid's accessible interface when Qt asks for one of a QuiltaWidget (idempotent).
void InstallAccessibleGridFactory();

// Tells assistive technology that the current cell moved (call after the grid's current cell
// changed while the widget has the focus).
void NotifyCurrentCellChanged(QuiltaWidget* widget);

}  // namespace quilta::qt
