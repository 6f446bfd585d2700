// What a user does to the widget with mouse, keyboard and wheel, seen through the object model.
#include <QClipboard>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>

#include "widget_support.hpp"

namespace quilta::qt::testing {
namespace {

using QtInput = WidgetTest;
using Strings = std::vector<std::string>;

TEST_F(QtInput, HeaderClicksSortShiftClicksAddALevelAndDividerDragsResize) {
  Click(Header(2));
  EXPECT_EQ(grid().ColSortKey("qty"), 1);
  const Strings qty = Column(2);
  EXPECT_TRUE(std::is_sorted(qty.begin(), qty.end(),
                             [](auto& a, auto& b) { return std::stoi(a) < std::stoi(b); }));
  Click(Header(1), Qt::ShiftModifier);
  EXPECT_EQ(grid().ColSortKey("qty"), 1);
  EXPECT_EQ(grid().ColSortKey("item"), 2);
  Click(Header(2));  // a plain click sorts by that column alone, the other way round
  EXPECT_EQ(grid().ColSortOrder("qty"), quSortDesc);
  EXPECT_EQ(grid().ColSortKey("item"), 0);

  const int before = grid().ColWidth("item");
  const QPoint divider = Divider(1);
  QTest::mouseMove(viewport(), divider);
  EXPECT_EQ(viewport()->cursor().shape(), Qt::SplitHCursor);
  QTest::mousePress(viewport(), Qt::LeftButton, {}, divider);
  QTest::mouseMove(viewport(), divider + QPoint(35, 0));
  QTest::mouseRelease(viewport(), Qt::LeftButton, {}, divider + QPoint(35, 0));
  EXPECT_EQ(grid().ColWidth("item"), before + 35);
  EXPECT_EQ(grid().ColSortKey("item"), 0);  // sizing is no click
}

TEST_F(QtInput, ArrowKeysMoveTheCurrentCellAndTabStaysInTheGrid) {
  Click(Center(2, 1));
  EXPECT_EQ(Cur(), (Cell{2, 1}));
  Key(Qt::Key_Down);
  Key(Qt::Key_Down);
  Key(Qt::Key_Right);
  EXPECT_EQ(Cur(), (Cell{4, 2}));
  Key(Qt::Key_Up, Qt::ShiftModifier);  // extends the selection from the anchor
  EXPECT_EQ(Cur(), (Cell{3, 2}));
  Key(Qt::Key_Tab);
  EXPECT_TRUE(widget->hasFocus());
}

TEST_F(QtInput, KeypadMinusAndPlusFoldTheCurrentNodeAndCtrlLettersTypeNothing) {
  grid().SetEditable(true);
  grid().SetRowTreeButton(5, quRowTreeButtonVisible);
  grid().SetRowLevel(6, 1);
  grid().SetTreeCol(1);
  Click(Center(5, 2));
  Key(Qt::Key_Minus, Qt::KeypadModifier);
  EXPECT_FALSE(grid().RowExpanded(5));
  Key(Qt::Key_Plus, Qt::KeypadModifier);
  EXPECT_TRUE(grid().RowExpanded(5));
  Key(Qt::Key_V, Qt::ControlModifier);
  Key(Qt::Key_B, Qt::ControlModifier);
  EXPECT_FALSE(grid().IsEditing());
  EXPECT_EQ(QApplication::focusWidget(), widget.get());
}

TEST_F(QtInput, TypingOpensTheLineEditAndEnterCommits) {
  grid().SetEditable(true);
  Click(Center(3, 2));
  Type("42");
  auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(edit, nullptr);
  EXPECT_EQ(edit->parentWidget(), viewport());
  EXPECT_EQ(edit->text(), "42");
  EXPECT_TRUE(Bounds(3, 2).contains(edit->geometry().center()));
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(grid().CellText(3, 2), "42");
  EXPECT_TRUE(widget->hasFocus());  // focus is back on the grid, not on the next widget
  EXPECT_FALSE(edit->isVisible());

  // Escape throws the typing away.
  Key(Qt::Key_F2);
  edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(edit, nullptr);
  Type("7");
  QTest::keyClick(edit, Qt::Key_Escape);
  EXPECT_EQ(grid().CellText(3, 2), "42");
}

TEST_F(QtInput, ABadValueShowsTheValidationMessageAndKeepsEditing) {
  grid().SetEditable(true);
  Click(Center(3, 2));
  Type("x");
  auto* edit = qobject_cast<QLineEdit*>(QApplication::focusWidget());
  ASSERT_NE(edit, nullptr);
  QString shown;
  QTimer closer;
  QObject::connect(&closer, &QTimer::timeout, [&] {
    if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
      shown = box->text();
      box->accept();
    }
  });
  closer.start(20);
  QTest::keyClick(edit, Qt::Key_Return);
  closer.stop();
  EXPECT_TRUE(shown.contains("invalid", Qt::CaseInsensitive)) << shown.toStdString();
  EXPECT_EQ(widget->focusWidget(), edit);  // the user can correct the value
  EXPECT_TRUE(edit->isVisible());
  EXPECT_NE(grid().CellText(3, 2), "x");
}

TEST_F(QtInput, CtrlCPutsTheSelectionOnTheClipboardAsTabSeparatedText) {
  QGuiApplication::clipboard()->setText("before");
  grid().SetMultiSelect(true);
  Click(Center(1, 1));
  Click(Center(2, 2), Qt::ShiftModifier);
  Key(Qt::Key_C, Qt::ControlModifier);
  const QString copied = QGuiApplication::clipboard()->text();
  const std::string expected = grid().CellText(1, 1) + "\t" + grid().CellText(1, 2) + "\r\n" +
                               grid().CellText(2, 1) + "\t" + grid().CellText(2, 2);
  EXPECT_EQ(copied.toStdString(), expected);
}

TEST_F(QtInput, ClipboardChangesOfAnyProgramMoveTheSequenceNumber) {
  Platform& platform = grid().GetPlatform();
  const uint32_t first = platform.ClipboardSequenceNumber();
  QGuiApplication::clipboard()->setText("from elsewhere");
  const uint32_t second = platform.ClipboardSequenceNumber();
  EXPECT_NE(second, first);
  EXPECT_EQ(platform.GetClipboardText(), "from elsewhere");
  platform.SetClipboardText("ünïcode\tcells");
  EXPECT_NE(platform.ClipboardSequenceNumber(), second);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), QString::fromUtf8("ünïcode\tcells"));
}

TEST_F(QtInput, CheckBoxClicksToggleAndTreeButtonsFold) {
  grid().SetEditable(true);
  grid().SetCellCheckVisible(2, 3, true);
  Click(On(2, 3, quCellPartCheckBox));
  EXPECT_EQ(grid().CellCheckState(2, 3), quCheckStateChecked);
  QTest::qWait(QApplication::doubleClickInterval() + 50);
  Click(On(2, 3, quCellPartCheckBox));
  EXPECT_EQ(grid().CellCheckState(2, 3), quCheckStateUnchecked);

  grid().SetRowTreeButton(5, quRowTreeButtonVisible);
  grid().SetRowLevel(6, 1);
  grid().SetRowLevel(7, 1);
  grid().SetTreeCol(1);
  const int top8 = Bounds(8, 1).top();
  Click(On(5, 1, quCellPartTreeButton));
  EXPECT_FALSE(grid().RowExpanded(5));
  EXPECT_EQ(Bounds(8, 1).top(), Bounds(6, 1).top());  // the children are folded away
  EXPECT_LT(Bounds(8, 1).top(), top8);
}

TEST_F(QtInput, AComboButtonDropsAListThatSearchesAsYouTypeAndEnterChooses) {
  ComboObject& sizes = grid().Combos().Add("sizes");
  for (const char* item : {"Small", "Medium", "Large", "Larger"}) sizes.AddItem(item);
  grid().SetCellCtrlKey(2, 2, "sizes");
  grid().SetCellType(2, 2, quCellCombo);
  grid().SetShowControlsInAllCells(true);
  grid().SetEditable(true);
  Click(On(2, 2, quCellPartComboButton));
  auto* list = qobject_cast<QListWidget*>(QApplication::activePopupWidget());
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->count(), 4);
  const QRect cell = Bounds(2, 2);
  EXPECT_EQ(list->geometry().top(), viewport()->mapToGlobal(cell.bottomLeft()).y() + 1);
  QTest::keyClicks(list, "larg");
  EXPECT_EQ(list->currentRow(), 2);
  QTest::keyClick(list, Qt::Key_Return);
  EXPECT_EQ(grid().CellText(2, 2), "Large");
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);

  Click(On(2, 2, quCellPartComboButton));  // Escape closes it without a choice
  list = qobject_cast<QListWidget*>(QApplication::activePopupWidget());
  ASSERT_NE(list, nullptr);
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Escape);
  EXPECT_EQ(grid().CellText(2, 2), "Large");
  EXPECT_FALSE(grid().IsEditing());
}

TEST_F(QtInput, ATextComboTypesIntoItsBoxWhileItsListIsOpen) {
  ComboObject& sizes = grid().Combos().Add("sizes");
  for (const char* item : {"Small", "Medium", "Large"}) sizes.AddItem(item);
  grid().SetCellCtrlKey(2, 2, "sizes");
  grid().SetCellType(2, 2, quCellTextCombo);
  grid().SetShowControlsInAllCells(true);
  grid().SetEditable(true);
  Click(On(2, 2, quCellPartComboButton));
  auto* list = qobject_cast<QListWidget*>(QApplication::activePopupWidget());
  ASSERT_NE(list, nullptr);
  QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(list, "XL");
  EXPECT_EQ(grid().TextEditText(), "XL");
  QTest::keyClick(list, Qt::Key_Down);  // the arrows stay with the list
  EXPECT_EQ(grid().TextEditText(), "XL");
  QTest::keyClick(list, Qt::Key_Escape);
}

TEST_F(QtInput, TheWheelAndTheScrollBarScroll) {
  QScrollBar* bar = widget->verticalScrollBar();
  ASSERT_TRUE(bar->isVisible());
  const int top = Bounds(1, 1).top();
  const QPoint at = Center(2, 1);
  QWheelEvent down(at, viewport()->mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                   Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(viewport(), &down);
  EXPECT_GT(bar->value(), 0);
  EXPECT_EQ(Bounds(1, 1).top(), top - bar->value());

  QWheelEvent touchpad(at, viewport()->mapToGlobal(at), QPoint(0, 7), QPoint(0, 7 * 8),
                       Qt::NoButton, Qt::NoModifier, Qt::ScrollUpdate, false);
  const int before = bar->value();
  QApplication::sendEvent(viewport(), &touchpad);
  EXPECT_EQ(bar->value(), before - 7);

  bar->setValue(bar->maximum());  // dragging the bar to its end shows the last row
  EXPECT_LE(Bounds(kRows, 1).bottom(), viewport()->height());
  EXPECT_GE(Bounds(kRows, 1).top(), 0);
}

TEST_F(QtInput, DraggingBelowTheCellsSelectsAndScrollsOnItsOwn) {
  grid().SetMultiSelect(true);
  QScrollBar* bar = widget->verticalScrollBar();
  const QPoint start = Center(2, 1);
  QTest::mousePress(viewport(), Qt::LeftButton, {}, start);
  QTest::mouseMove(viewport(), QPoint(start.x(), viewport()->height() + 10));
  EXPECT_TRUE(QTest::qWaitFor([&] { return bar->value() > 0; }, 3000));
  QTest::mouseRelease(viewport(), Qt::LeftButton, {}, QPoint(start.x(), viewport()->height() + 10));
  const int scrolled = bar->value();
  QTest::qWait(200);
  EXPECT_EQ(bar->value(), scrolled);  // released: scrolling stops
  EXPECT_GT(grid().CurRow(), 2);
  EXPECT_GT(grid().SelItems().Count(), 2);
}

TEST_F(QtInput, TheFrameFollowsBorderTypeAndTheLayoutFollowsTheSize) {
  grid().SetBorderType(quBorderNone);
  QApplication::processEvents();
  EXPECT_EQ(widget->frameWidth(), 0);
  EXPECT_EQ(grid().GetPlatform().ClientSize(), (Size{widget->width(), widget->height()}));
  grid().SetBorderType(quBorderSunken);
  QApplication::processEvents();
  EXPECT_EQ(widget->frameWidth(), 2);

  QScrollBar* bar = widget->verticalScrollBar();
  EXPECT_TRUE(bar->isVisible());
  widget->resize(420, 1200);  // every row fits: no scroll bar, and the cells use its room
  QApplication::processEvents();
  EXPECT_FALSE(bar->isVisible());
  EXPECT_EQ(viewport()->width(), widget->width() - 4);
}

}  // namespace
}  // namespace quilta::qt::testing
