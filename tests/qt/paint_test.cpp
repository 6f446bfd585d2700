// What the widget draws, checked on rendered images at 100 % and at 150 % (an image with device
// pixel ratio 1.5, so the painter works in logical pixels as on a scaled screen): the selection,
// the focus rectangle, the grid lines and a check box land where CellBoundary says.
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <cmath>

#include "widget_support.hpp"

namespace quilta::qt::testing {
namespace {

class QtPaint : public WidgetTest, public ::testing::WithParamInterface<double> {
 protected:
  void SetUp() override {
    WidgetTest::SetUp();
    grid().SetMultiSelect(true);
    grid().SetEditable(true);
  }

  // The viewport rendered at the test's scale; also written to the temporary directory so that
  // a failure can be looked at.
  QImage Render(const char* name) {
    const double scale = GetParam();
    QImage image(viewport()->size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::magenta);
    viewport()->render(&image);
    image.save(QDir::temp().filePath(
        QStringLiteral("quilta-qt-%1-%2.png").arg(name).arg(int(scale * 100))));
    return image;
  }
  // The colour of logical pixel (x, y): the device pixel in its middle.
  QColor At(const QImage& image, int x, int y) {
    const double s = GetParam();
    return image.pixelColor(int(std::floor(x * s + s / 2)), int(std::floor(y * s + s / 2)));
  }
  QColor Expected(Color c) {
    const Color rgb = (c & 0x80000000) ? grid().GetPlatform().SystemColor(c & 0xFF) : c;
    return QColor(rgb & 0xFF, (rgb >> 8) & 0xFF, (rgb >> 16) & 0xFF);
  }
};

TEST_P(QtPaint, SelectionAndGridLinesFollowTheCellBoundaries) {
  Click(Center(2, 1));
  Click(Center(4, 2), Qt::ShiftModifier);
  const QImage image = Render("selection");
  const QColor highlight = Expected(grid().HighlightBackColor());
  const QColor back = Expected(grid().BackColor());
  const QColor line = Expected(grid().GridLineColor());
  for (int32_t row : {2, 3}) {
    for (int32_t col : {1, 2}) {
      const QRect b = Bounds(row, col);  // selected, not current: the highlight to the edges
      EXPECT_EQ(At(image, b.right() - 2, b.top() + 1), highlight) << row << "," << col;
      EXPECT_EQ(At(image, b.right() - 2, b.bottom() - 1), highlight) << row << "," << col;
    }
  }
  const QRect outside = Bounds(6, 2);
  EXPECT_EQ(At(image, outside.right() - 2, outside.center().y()), back);
  // Each cell's grid lines are its last pixel column and row.
  const QRect cell = Bounds(7, 2);
  EXPECT_EQ(At(image, cell.center().x(), cell.bottom()), line);
  EXPECT_EQ(At(image, cell.right(), cell.center().y()), line);
  EXPECT_EQ(At(image, cell.center().x(), cell.bottom() - 1), back);
  EXPECT_EQ(At(image, cell.right() - 1, cell.center().y()), back);
}

TEST_P(QtPaint, TheFocusRectangleAlternatesItsColoursOnTheCurrentCellsEdge) {
  Click(Center(5, 2));
  const QImage image = Render("focus");
  const QColor one = Expected(grid().FocusRectColor1());
  const QColor two = Expected(grid().FocusRectColor2());
  const QRect b = Bounds(5, 2);
  int ones = 0, twos = 0, changes = 0;
  QColor previous;
  for (int x = b.left() + 2; x < b.right() - 2; ++x) {
    const QColor c = At(image, x, b.top());
    ones += c == one;
    twos += c == two;
    changes += x > b.left() + 2 && c != previous;
    previous = c;
  }
  EXPECT_EQ(ones + twos, b.width() - 5) << "only the two focus colours on the top edge";
  EXPECT_GT(ones, b.width() / 4);
  EXPECT_GT(twos, b.width() / 4);
  EXPECT_GT(changes, b.width() / 3);
  // Not on the next row's edge, nor inside the cell.
  EXPECT_NE(At(image, b.center().x(), b.top() + 3), one);
  const QRect below = Bounds(6, 2);
  EXPECT_EQ(At(image, below.center().x(), below.top()), Expected(grid().BackColor()));
}

TEST_P(QtPaint, ACheckBoxIsDrawnOnItsHitTestedPartAndShowsItsState) {
  grid().SetCellCheckVisible(5, 3, true);
  Click(Center(9, 1));
  const QImage unchecked = Render("check-off");
  grid().SetCellCheckState(5, 3, quCheckStateChecked);
  const QImage checked = Render("check-on");

  const QRect cell = Bounds(5, 3);
  int boxLeft = -1, boxRight = -1;
  for (int x = cell.left(); x <= cell.right(); ++x) {
    if (grid().HitTest(x, cell.center().y()) != quCellPartCheckBox) continue;
    if (boxLeft < 0) boxLeft = x;
    boxRight = x;
  }
  ASSERT_GE(boxLeft, 0);
  int boxTop = -1, boxBottom = -1;
  for (int y = cell.top(); y <= cell.bottom(); ++y) {
    if (grid().HitTest((boxLeft + boxRight) / 2, y) != quCellPartCheckBox) continue;
    if (boxTop < 0) boxTop = y;
    boxBottom = y;
  }
  const QColor back = Expected(grid().BackColor());
  // Where the two states differ, and where the box draws anything at all.
  QRect changed, drawn;
  for (int y = cell.top(); y < cell.bottom(); ++y) {
    for (int x = cell.left(); x < cell.right(); ++x) {
      if (At(checked, x, y) != At(unchecked, x, y)) changed |= QRect(x, y, 1, 1);
      if (x <= boxRight + 1 && At(unchecked, x, y) != back) drawn |= QRect(x, y, 1, 1);
    }
  }
  ASSERT_FALSE(changed.isEmpty()) << "the tick shows";
  EXPECT_GE(changed.left(), boxLeft);
  EXPECT_LE(changed.right(), boxRight);
  ASSERT_FALSE(drawn.isEmpty());
  EXPECT_NEAR(drawn.left(), boxLeft, 1);
  EXPECT_NEAR(drawn.right(), boxRight, 1);
  EXPECT_NEAR(drawn.top(), boxTop, 1);
  EXPECT_NEAR(drawn.bottom(), boxBottom, 1);
}

TEST_P(QtPaint, TheSelectionTakesTheNoFocusColourWhileAnotherWindowHasTheFocus) {
  grid().SetHighlightBackColorNoFocus(0x2080F0);
  Click(Center(3, 1));
  Click(Center(4, 2), Qt::ShiftModifier);
  const QRect selected = Bounds(3, 1);
  const QPoint spot(selected.right() - 2, selected.top() + 2);
  EXPECT_EQ(At(Render("focused"), spot.x(), spot.y()), Expected(grid().HighlightBackColor()));

  QLineEdit other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  other.setFocus();
  EXPECT_EQ(At(Render("unfocused"), spot.x(), spot.y()), Expected(0x2080F0));

  widget->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(widget.get()));
  EXPECT_EQ(At(Render("refocused"), spot.x(), spot.y()), Expected(grid().HighlightBackColor()));
}

INSTANTIATE_TEST_SUITE_P(Scales, QtPaint, ::testing::Values(1.0, 1.5),
                         [](const auto& info) { return info.param == 1.0 ? "At100" : "At150"; });

}  // namespace
}  // namespace quilta::qt::testing
