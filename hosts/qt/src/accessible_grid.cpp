#include "accessible_grid.hpp"

#include <QScrollBar>
#include <algorithm>
#include <limits>
#include <quilta/qt/quilta_widget.hpp>

namespace quilta::qt {
namespace {

// One cell of the table, or a header cell (row -1).
class AccessibleCell final : public QAccessibleInterface, public QAccessibleTableCellInterface {
 public:
  AccessibleCell(AccessibleGrid* table, int row, int column)
      : table_(table), row_(row), column_(column) {}

  bool isValid() const override {
    return table_->isValid() && row_ < table_->rowCount() && column_ < table_->columnCount();
  }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return table_->window(); }
  QAccessibleInterface* parent() const override { return table_; }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  void setText(QAccessible::Text, const QString&) override {}

  QString text(QAccessible::Text t) const override {
    if (!isValid() || (t != QAccessible::Name && t != QAccessible::Description)) return {};
    const int32_t col = table_->ColumnAt(column_);
    if (row_ < 0 || t == QAccessible::Description) return table_->columnDescription(column_);
    return QString::fromStdString(table_->grid().CellText(row_ + 1, col));
  }

  QAccessible::Role role() const override {
    return row_ < 0 ? QAccessible::ColumnHeader : QAccessible::Cell;
  }

  QAccessible::State state() const override {
    QAccessible::State s;
    if (!isValid()) return s;
    const quilta::Quilta& g = table_->grid();
    const int32_t col = table_->ColumnAt(column_);
    if (row_ < 0) {
      s.invisible = !g.ColVisible(col);
      return s;
    }
    s.selectable = true;
    s.focusable = true;
    s.selected = g.CellSelected(row_ + 1, col);
    s.focused = g.CurRow() == row_ + 1 && g.CurCol() == col && table_->gridWidget()->hasFocus();
    s.invisible = !g.RowVisible(row_ + 1) || !g.ColVisible(col);
    s.checkable = g.CellCheckVisible(row_ + 1, col);
    s.checked = s.checkable && g.CellCheckState(row_ + 1, col) == quilta::quCheckStateChecked;
    s.expandable = g.RowHasChildren(row_ + 1) && col == g.TreeCol();
    s.expanded = s.expandable && g.RowExpanded(row_ + 1);
    return s;
  }

  // Client pixels of the grid map to the screen through the viewport the grid paints on.
  QRect rect() const override {
    if (!isValid()) return {};
    int32_t l = 0, t = 0, w = 0, h = 0;
    const int32_t col = table_->ColumnAt(column_);
    if (row_ < 0) {
      const quilta::Quilta& g = table_->grid();
      if (!g.ColVisible(col) || g.RowCount() < 1) return {};
      g.CellBoundary(1, col, l, t, w, h);
      h = std::max(0, g.Header().Height());
      t = 0;
    } else {
      table_->grid().CellBoundary(row_ + 1, col, l, t, w, h);
    }
    QWidget* port = table_->gridWidget()->viewport();
    return {port->mapToGlobal(QPoint(l, t)), QSize(w, h)};
  }

  void* interface_cast(QAccessible::InterfaceType t) override {
    return t == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this)
                                                : nullptr;
  }

  // ---- QAccessibleTableCellInterface
  bool isSelected() const override { return state().selected; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  int columnIndex() const override { return column_; }
  int rowIndex() const override { return row_; }
  QList<QAccessibleInterface*> columnHeaderCells() const override {
    return {table_->headerCell(column_)};
  }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  QAccessibleInterface* table() const override { return table_; }

 private:
  AccessibleGrid* table_;
  int row_;
  int column_;
};

QAccessibleInterface* MakeGridInterface(const QString& className, QObject* object) {
  if (className != QLatin1String("quilta::qt::QuiltaWidget")) return nullptr;
  auto* widget = qobject_cast<QuiltaWidget*>(object);
  return widget ? new AccessibleGrid(widget) : nullptr;
}

}  // namespace

AccessibleGrid::AccessibleGrid(QuiltaWidget* widget)
    : QAccessibleWidget(widget, QAccessible::Table) {}

AccessibleGrid::~AccessibleGrid() {
  for (QAccessible::Id id : std::as_const(cells_)) QAccessible::deleteAccessibleInterface(id);
}

QuiltaWidget* AccessibleGrid::gridWidget() const { return static_cast<QuiltaWidget*>(widget()); }
quilta::Quilta& AccessibleGrid::grid() const { return gridWidget()->grid(); }

void* AccessibleGrid::interface_cast(QAccessible::InterfaceType t) {
  if (t == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(t);
}

int32_t AccessibleGrid::ColumnAt(int column) const { return grid().ColFromPos(column + 1); }
int AccessibleGrid::ColumnOf(int32_t colIndex) const { return grid().ColPos(colIndex) - 1; }

int AccessibleGrid::columnCount() const { return grid().ColCount(); }
int AccessibleGrid::rowCount() const { return grid().RowCount(); }

QString AccessibleGrid::columnDescription(int column) const {
  if (column < 0 || column >= columnCount()) return {};
  return QString::fromStdString(grid().ColHeaderText(ColumnAt(column)));
}

QAccessibleInterface* AccessibleGrid::Cached(int row, int column) const {
  const QPair<int, int> key(row, column);
  auto it = cells_.constFind(key);
  if (it != cells_.constEnd()) return QAccessible::accessibleInterface(*it);
  auto* cell = new AccessibleCell(const_cast<AccessibleGrid*>(this), row, column);
  cells_.insert(key, QAccessible::registerAccessibleInterface(cell));
  return cell;
}

QAccessibleInterface* AccessibleGrid::headerCell(int column) const {
  if (column < 0 || column >= columnCount()) return nullptr;
  return Cached(-1, column);
}

QAccessibleInterface* AccessibleGrid::cellAt(int row, int column) const {
  if (row < 0 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
  return Cached(row, column);
}

// The header row comes first, then the cells row by row.
int AccessibleGrid::childCount() const {
  const int64_t n = int64_t(rowCount() + 1) * columnCount();
  return int(std::min<int64_t>(n, std::numeric_limits<int>::max()));
}

QAccessibleInterface* AccessibleGrid::child(int index) const {
  const int cols = columnCount();
  if (index < 0 || cols == 0) return nullptr;
  const int row = index / cols - 1;
  return row < 0 ? headerCell(index % cols) : cellAt(row, index % cols);
}

int AccessibleGrid::indexOfChild(const QAccessibleInterface* child) const {
  if (!child || child->parent() != this) return -1;
  const auto* cell = static_cast<QAccessibleTableCellInterface*>(
      const_cast<QAccessibleInterface*>(child)->interface_cast(QAccessible::TableCellInterface));
  if (!cell) {
    // A header cell has no cell interface of its own: find it among the cached ones.
    for (auto it = cells_.constBegin(); it != cells_.constEnd(); ++it)
      if (it.key().first < 0 && QAccessible::accessibleInterface(it.value()) == child)
        return it.key().second;
    return -1;
  }
  return (cell->rowIndex() + 1) * columnCount() + cell->columnIndex();
}

QAccessibleInterface* AccessibleGrid::focusChild() const {
  const quilta::Quilta& g = grid();
  if (g.CurRow() < 1 || g.CurCol() < 1 || g.CurCol() > g.ColCount()) return nullptr;
  return cellAt(g.CurRow() - 1, ColumnOf(g.CurCol()));
}

int AccessibleGrid::selectedCellCount() const { return grid().SelItems().Count(); }

QList<QAccessibleInterface*> AccessibleGrid::selectedCells() const {
  QList<QAccessibleInterface*> out;
  for (const quilta::TSelItemInfo& item : grid().SelItems().GetArray())
    if (item.Col >= 1 && item.Col <= columnCount())
      out.append(cellAt(item.Row - 1, ColumnOf(item.Col)));
  return out;
}

bool AccessibleGrid::isRowSelected(int row) const {
  if (row < 0 || row >= rowCount()) return false;
  for (int c = 0; c < columnCount(); ++c)
    if (grid().ColVisible(ColumnAt(c)) && !grid().CellSelected(row + 1, ColumnAt(c))) return false;
  return columnCount() > 0;
}

bool AccessibleGrid::isColumnSelected(int column) const {
  if (column < 0 || column >= columnCount() || rowCount() == 0) return false;
  const int32_t col = ColumnAt(column);
  for (int32_t r = 1; r <= rowCount(); ++r)
    if (grid().RowVisible(r) && !grid().CellSelected(r, col)) return false;
  return true;
}

// Rows and columns count as selected when every shown cell in them is; found from the selection
// list, so a large grid with a small selection answers quickly.
QList<int> AccessibleGrid::selectedRows() const {
  QList<int> rows;
  int last = -1;
  for (const quilta::TSelItemInfo& item : grid().SelItems().GetArray()) {
    if (item.Row - 1 == last) continue;
    last = item.Row - 1;
    if (isRowSelected(last)) rows.append(last);
  }
  return rows;
}

QList<int> AccessibleGrid::selectedColumns() const {
  QList<int> cols;
  QList<int32_t> seen;
  for (const quilta::TSelItemInfo& item : grid().SelItems().GetArray()) {
    if (seen.contains(item.Col)) continue;
    seen.append(item.Col);
    const int column = ColumnOf(item.Col);
    if (isColumnSelected(column)) cols.append(column);
  }
  std::sort(cols.begin(), cols.end());
  return cols;
}

bool AccessibleGrid::selectRow(int row) {
  if (row < 0 || row >= rowCount() || !grid().MultiSelect()) return false;
  for (int c = 0; c < columnCount(); ++c) grid().SetCellSelected(row + 1, ColumnAt(c), true);
  return true;
}

bool AccessibleGrid::unselectRow(int row) {
  if (row < 0 || row >= rowCount()) return false;
  for (int c = 0; c < columnCount(); ++c) grid().SetCellSelected(row + 1, ColumnAt(c), false);
  return true;
}

bool AccessibleGrid::selectColumn(int column) {
  if (column < 0 || column >= columnCount() || !grid().MultiSelect()) return false;
  grid().SetColCellsProp(ColumnAt(column), quilta::quPropCellSelected, true);
  return true;
}

bool AccessibleGrid::unselectColumn(int column) {
  if (column < 0 || column >= columnCount()) return false;
  grid().SetColCellsProp(ColumnAt(column), quilta::quPropCellSelected, false);
  return true;
}

void InstallAccessibleGridFactory() {
  static const bool installed = [] {
    QAccessible::installFactory(MakeGridInterface);
    return true;
  }();
  (void)installed;
}

void NotifyCurrentCellChanged(QuiltaWidget* widget) {
  if (!widget || !QAccessible::isActive()) return;
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(widget);
  QAccessibleInterface* cell = table ? table->focusChild() : nullptr;
  if (!cell) return;
  QAccessibleEvent focus(table, QAccessible::Focus);
  focus.setChild(table->indexOfChild(cell));
  QAccessible::updateAccessibility(&focus);
}

}  // namespace quilta::qt
