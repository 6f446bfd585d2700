// Hit testing through the object model: cells under points, cell rectangles, parts of cells.
#include <gtest/gtest.h>

#include "layout/geometry_test_support.hpp"

namespace quilta::testing {
namespace {

constexpr int32_t kHdr = 21;  // header: one 15-pixel line and 3 pixels above and below
constexpr int32_t kRow = 18;  // the default row height

struct Box {
  int32_t left = -1, top = -1, width = -1, height = -1;
  bool operator==(const Box&) const = default;
};

Box Boundary(Quilta& g, const Variant& row, const Variant& col) {
  Box b;
  g.CellBoundary(row, col, b.left, b.top, b.width, b.height);
  return b;
}

Box TextBoundary(Quilta& g, const Variant& row, const Variant& col) {
  Box b;
  g.CellTextBoundary(row, col, b.left, b.top, b.width, b.height);
  return b;
}

std::pair<int32_t, int32_t> CellAt(Quilta& g, int32_t x, int32_t y) {
  int32_t row = -1, col = -1;
  g.CellFromPoint(x, y, row, col);
  return {row, col};
}

// 400 x 300 client, columns of 100 pixels, 20 rows of the default height.
struct HitFixture : GeometryFixture {
  explicit HitFixture(int cols = 3) {
    platform.SetClientSize({400, 300});
    for (int i = 0; i < cols; ++i) grid.AddCol({.lWidth = 100});
    grid.AddRow({.lCount = 20});
  }
};

using Cell = std::pair<int32_t, int32_t>;

TEST(CellFromPoint, MapsPointsToCellsAndNothingOutsideThem) {
  HitFixture f;
  EXPECT_EQ(Boundary(f.grid, 2, 2), (Box{100, kHdr + kRow, 100, kRow}));
  EXPECT_EQ(CellAt(f.grid, 150, kHdr + kRow + 5), Cell(2, 2));
  EXPECT_EQ(CellAt(f.grid, 0, kHdr), Cell(1, 1));
  EXPECT_EQ(CellAt(f.grid, 299, kHdr + 14 * kRow - 1), Cell(14, 3));
  EXPECT_EQ(CellAt(f.grid, 150, 5), Cell(0, 0));         // the header
  EXPECT_EQ(CellAt(f.grid, 300, kHdr + 5), Cell(0, 0));  // right of the last column
  EXPECT_EQ(CellAt(f.grid, 10, 300), Cell(0, 0));        // below the cells area
  EXPECT_EQ(CellAt(f.grid, -1, kHdr + 5), Cell(0, 0));
  // Hidden rows and columns take no room: the next ones move up and left.
  f.grid.SetRowVisible(1, false);
  f.grid.SetColVisible(1, false);
  EXPECT_EQ(CellAt(f.grid, 5, kHdr + 5), Cell(2, 2));
  // Scrolled down by two rows.
  f.grid.SetRowVisible(1, true);
  f.grid.ScrollBar(quScrollBarV).SetValue(2 * kRow);
  EXPECT_EQ(Boundary(f.grid, 3, 2), (Box{0, kHdr, 100, kRow}));
  EXPECT_EQ(Boundary(f.grid, 1, 2).top, kHdr - 2 * kRow);
  EXPECT_EQ(CellAt(f.grid, 5, kHdr + 1), Cell(3, 2));
  // A taller client: below the last row there is no cell.
  f.platform.SetClientSize({400, 500});
  f.grid.HostResize();
  EXPECT_EQ(CellAt(f.grid, 199, kHdr + 20 * kRow - 1), Cell(20, 3));  // column 1 is hidden
  EXPECT_EQ(CellAt(f.grid, 10, kHdr + 20 * kRow), Cell(0, 0));
}

TEST(CellFromPoint, FrozenColumnsStandStillAndCoverScrolledOnes) {
  HitFixture f(6);  // 600 wide in 400: a horizontal scroll bar
  f.grid.SetFrozenCols(1);
  f.grid.ScrollBar(quScrollBarH).SetValue(50);
  EXPECT_EQ(f.grid.ScrollBar(quScrollBarH).Value(), 50);
  EXPECT_EQ(Boundary(f.grid, 1, 1), (Box{0, kHdr, 100, kRow}));
  EXPECT_EQ(Boundary(f.grid, 1, 2), (Box{50, kHdr, 100, kRow}));  // half under column 1
  EXPECT_EQ(CellAt(f.grid, 60, kHdr + 1), Cell(1, 1));
  EXPECT_EQ(CellAt(f.grid, 120, kHdr + 1), Cell(1, 2));
  EXPECT_EQ(CellAt(f.grid, 160, kHdr + 1), Cell(1, 3));
  // Freezing columns anew puts the scrolled columns back.
  f.grid.SetFrozenCols(2);
  EXPECT_EQ(f.grid.ScrollBar(quScrollBarH).Value(), 0);
}

TEST(CellFromPoint, GroupRowsAndTheRowTextAreaAnswerTheRowTextColumn) {
  HitFixture f;
  const int32_t text = f.grid.RowTextCol();
  f.grid.AddRow({.bGroupRow = true});  // row 21, after 20 rows
  f.grid.ScrollBar(quScrollBarV).SetValue(kRow * 5);
  const Box group = Boundary(f.grid, 21, 2);
  EXPECT_EQ(group, (Box{0, kHdr + 15 * kRow, 300, kRow}));
  EXPECT_EQ(CellAt(f.grid, 250, group.top + 3), Cell(21, text));
  EXPECT_EQ(CellAt(f.grid, 301, group.top + 3), Cell(0, 0));

  // Row 2 draws row text below 18 pixels of normal cells, from column 2 on.
  f.grid.ScrollBar(quScrollBarV).SetValue(0);
  f.grid.SetDrawRowText(true);
  f.grid.SetRowTextStartCol(2);
  f.grid.SetRowHeight(2, 40);
  const int32_t top = kHdr + kRow;
  EXPECT_EQ(Boundary(f.grid, 2, text), (Box{100, top + kRow, 200, 40 - kRow}));
  EXPECT_EQ(Boundary(f.grid, 2, 1), (Box{0, top, 100, 40}));  // beside the row text: full
  EXPECT_EQ(Boundary(f.grid, 2, 3), (Box{200, top, 100, kRow}));
  EXPECT_EQ(CellAt(f.grid, 250, top + 5), Cell(2, 3));
  EXPECT_EQ(CellAt(f.grid, 250, top + 30), Cell(2, text));
  EXPECT_EQ(CellAt(f.grid, 50, top + 30), Cell(2, 1));
  // Without DrawRowText the cells fill their rows.
  f.grid.SetDrawRowText(false);
  EXPECT_EQ(CellAt(f.grid, 250, top + 30), Cell(2, 3));
  EXPECT_EQ(Boundary(f.grid, 2, 3).height, 40);
}

TEST(HitTest, FindsEveryPartOfACell) {
  HitFixture f;
  auto list = std::make_shared<HeadlessImageList>(Size{16, 16}, 5);
  f.grid.SetImageList(1, Variant::Object(std::static_pointer_cast<ImageList>(list)));
  // Column 1: a check box after the indent of 1 and the gap of 2; the text after it.
  f.grid.SetCellCheckVisible(1, 1, true);
  const int32_t y = kHdr + 4;
  EXPECT_EQ(f.grid.HitTest(3, y), quCellPartCheckBox);
  EXPECT_EQ(f.grid.HitTest(15, y), quCellPartCheckBox);
  EXPECT_EQ(f.grid.HitTest(1, y), quCellPartNone);  // the indent
  EXPECT_EQ(f.grid.HitTest(18, y), quCellPartText);
  EXPECT_EQ(TextBoundary(f.grid, 1, 1), (Box{18, kHdr, 81, kRow}));
  EXPECT_EQ(f.grid.HitTest(5, kHdr + 15), quCellPartNone);  // under the top-aligned box
  // Column 2: icon, extra icon, text.
  f.grid.SetCellIcon(1, 2, 1);
  f.grid.SetCellExtraImageList(1, 2, 1);
  f.grid.SetCellExtraIcon(1, 2, 2);
  EXPECT_EQ(f.grid.HitTest(101, y), quCellPartIcon);
  EXPECT_EQ(f.grid.HitTest(118, y), quCellPartNone);  // the gap between the icons
  EXPECT_EQ(f.grid.HitTest(119, y), quCellPartExtraIcon);
  EXPECT_EQ(f.grid.HitTest(137, y), quCellPartText);
  EXPECT_EQ(TextBoundary(f.grid, 1, 2), (Box{137, kHdr, 62, kRow}));
  // Column 3: a combo button at the right edge, shown in every cell.
  f.grid.SetCellType(1, 3, quCellCombo);
  EXPECT_EQ(f.grid.HitTest(290, y), quCellPartText);  // no button outside the current cell
  f.grid.SetShowControlsInAllCells(true);
  EXPECT_EQ(f.grid.HitTest(290, y), quCellPartComboButton);
  EXPECT_EQ(f.grid.HitTest(281, y), quCellPartText);
  f.grid.SetCellType(1, 3, quCellText);
  EXPECT_EQ(f.grid.HitTest(290, y), quCellPartText);
}

TEST(HitTest, CustomDrawnCellsReportControlsButNoIconOrText) {
  HitFixture f;
  auto list = std::make_shared<HeadlessImageList>(Size{16, 16}, 5);
  f.grid.SetImageList(1, Variant::Object(std::static_pointer_cast<ImageList>(list)));
  f.grid.SetCellType(1, 1, quCellCustomDraw);
  f.grid.SetCellCheckVisible(1, 1, true);
  f.grid.SetCellIcon(1, 1, 1);
  EXPECT_EQ(f.grid.HitTest(5, kHdr + 4), quCellPartCheckBox);
  EXPECT_EQ(f.grid.HitTest(19, kHdr + 4), quCellPartNone);  // the icon
  EXPECT_EQ(f.grid.HitTest(60, kHdr + 4), quCellPartNone);  // the text
}

TEST(HitTest, TreeButtonsOnlyWhereTheRowShowsOne) {
  HitFixture f;
  f.grid.SetRowTreeButton(1, quRowTreeButtonVisible);
  f.grid.SetRowTreeButton(2, quRowTreeButtonHidden);
  f.grid.SetTreeCol(2);
  // Root lines on: one 16-pixel slot; the 9-pixel button centred in it.
  const int32_t x = 100 + 3, y = kHdr + 4;
  EXPECT_EQ(f.grid.HitTest(x, y), quCellPartTreeButton);
  EXPECT_EQ(f.grid.HitTest(x + 8, y + 8), quCellPartTreeButton);
  EXPECT_EQ(f.grid.HitTest(x + 9, y), quCellPartNone);
  EXPECT_EQ(f.grid.HitTest(x, y + kRow), quCellPartNone);      // a hidden button
  EXPECT_EQ(f.grid.HitTest(x, y + 2 * kRow), quCellPartNone);  // no button at all
  EXPECT_EQ(TextBoundary(f.grid, 2, 2).left, 100 + 16 + 1);
  EXPECT_EQ(f.grid.HitTest(x - 100, y), quCellPartText);  // the same place in column 1
}

TEST(HitTest, AGivenCellIsTestedWhereverThePointIs) {
  HitFixture f;
  f.grid.SetCellCheckVisible(2, 1, true);
  // The point lies in row 1, but row 2's cell is asked about: its parts are one row lower.
  EXPECT_EQ(f.grid.HitTest(20, kHdr + 4, 2, 1), quCellPartNone);
  EXPECT_EQ(f.grid.HitTest(5, kHdr + kRow + 4, 2, 1), quCellPartCheckBox);
  EXPECT_EQ(f.grid.HitTest(150, kHdr + kRow + 4, 2, 1), quCellPartNone);  // outside it
  // One of the two missing: the point decides.
  EXPECT_EQ(f.grid.HitTest(150, kHdr + 4, 2, 0), quCellPartText);
  EXPECT_EQ(f.grid.HitTest(150, 5), quCellPartNone);  // the header
}

TEST(HitTest, BadReferencesFailAndLeaveOutputsAlone) {
  HitFixture f;
  f.grid.AddCol({.sKey = "k"});
  ExpectError(513, [&] { f.grid.HitTest(0, 0, 21, 1); });
  ExpectError(513, [&] { f.grid.HitTest(0, 0, 1, 99); });
  Box b;
  ExpectError(513, [&] { f.grid.CellBoundary(1, "nokey", b.left, b.top, b.width, b.height); });
  ExpectError(513, [&] { f.grid.CellTextBoundary(0, "k", b.left, b.top, b.width, b.height); });
  EXPECT_EQ(b, Box{});
  EXPECT_EQ(Boundary(f.grid, 1, "K").left, 300);
  ExpectError(513, [&] { f.grid.IsCellTextClipped(1, 6); });
  ExpectError(514, [&] { f.grid.ScrollBar(static_cast<EScrollBar>(2)); });
}

}  // namespace
}  // namespace quilta::testing
