// A QuiltaWidget in a shown, active window with a small order list, and the points a user
// would click: cell centres, cell parts and header items.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <memory>
#include <quilta/qt/quilta_widget.hpp>

namespace quilta::qt::testing {

struct Cell {
  int32_t row, col;
  friend bool operator==(const Cell&, const Cell&) = default;
};

class WidgetTest : public ::testing::Test {
 protected:
  static constexpr int kRows = 40;

  void SetUp() override {
    widget = std::make_unique<QuiltaWidget>();
    Quilta& g = grid();
    g.AddCol({.sKey = "item", .sHeader = "Item", .lWidth = 120});
    g.AddCol({.sKey = "qty", .sHeader = "Qty", .lWidth = 80});
    g.AddCol({.sKey = "price", .sHeader = "Price", .lWidth = 90});
    for (int r = 1; r <= kRows; ++r) {
      g.AddRow();
      g.SetCellValue(r, 1, std::string("item ") + char('A' + (r * 7) % 26));
      g.SetCellValue(r, 2, (r * 37) % 11);
      g.SetCellValue(r, 3, 1.5 * r);
    }
    widget->resize(420, 300);
    widget->show();
    widget->activateWindow();
    widget->setFocus();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(widget.get()));
    QApplication::processEvents();
  }

  Quilta& grid() { return widget->grid(); }
  QWidget* viewport() { return widget->viewport(); }
  Cell Cur() { return {grid().CurRow(), grid().CurCol()}; }

  QRect Bounds(int32_t row, int32_t col) {
    int32_t l, t, w, h;
    grid().CellBoundary(row, col, l, t, w, h);
    return {l, t, w, h};
  }
  QPoint Center(int32_t row, int32_t col) { return Bounds(row, col).center(); }
  // A point on the given part of the cell, found by hit testing across its middle.
  QPoint On(int32_t row, int32_t col, ECellParts part) {
    const QRect b = Bounds(row, col);
    for (int x = b.left(); x <= b.right(); ++x) {
      if (grid().HitTest(x, b.center().y()) == part) return {x, b.center().y()};
    }
    ADD_FAILURE() << "no such part in " << row << "," << col;
    return b.center();
  }
  // The header item above a column, and the divider at its right edge.
  QPoint Header(int32_t col) { return {Center(1, col).x(), Bounds(1, col).top() / 2}; }
  QPoint Divider(int32_t col) {
    return {Bounds(1, col).left() + Bounds(1, col).width() - 1, Bounds(1, col).top() / 2};
  }
  std::vector<std::string> Column(int32_t col) {
    std::vector<std::string> values;
    for (int r = 1; r <= grid().RowCount(); ++r) values.push_back(grid().CellText(r, col));
    return values;
  }

  void Click(QPoint at, Qt::KeyboardModifiers mods = Qt::NoModifier,
             Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(viewport(), button, mods, at);
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers mods = Qt::NoModifier) {
    QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : widget.get();
    QTest::keyClick(target, key, mods);
  }

  // Types text key by key into whatever has the focus, as a user would.
  void Type(const QString& text) {
    for (QChar c : text) {
      QWidget* target = QApplication::focusWidget() ? QApplication::focusWidget() : widget.get();
      QTest::keyClick(target, c.toLatin1());
    }
  }

  std::unique_ptr<QuiltaWidget> widget;
};

}  // namespace quilta::qt::testing
