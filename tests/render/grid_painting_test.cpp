// What painting draws across cells: grid lines, the order of layers, selection, the focus
// rectangle, the frozen edge, tree lines and buttons, row text, and which rows it visits.
#include "render_support.hpp"

namespace quilta::test {
namespace {

class GridPainting : public RenderTest {
 protected:
  void SetUp() override { Fill(5, 3); }
};

TEST_F(GridPainting, GridLinesLieOnTheCellsRightAndBottomEdges) {
  RecordingPainter p = Paint();
  const Rect cell = CellRect(2, 2);
  const PaintOp* v = LineFrom(p, {cell.right - 1, cell.top});
  ASSERT_NE(v, nullptr);
  EXPECT_EQ(v->to, (Point{cell.right - 1, cell.bottom - 1}));
  EXPECT_EQ(v->color, kFace);
  EXPECT_EQ(v->value, 1);
  const PaintOp* h = LineFrom(p, {0, cell.bottom - 1});
  ASSERT_NE(h, nullptr);
  EXPECT_EQ(h->to, (Point{239, cell.bottom - 1}));  // across the three columns

  grid.SetGridLineThicknessH(3);
  grid.SetGridLineThicknessV(2);
  grid.SetGridLineColor(0x0000FF);
  p = Paint();
  EXPECT_EQ(LineFrom(p, {0, cell.bottom - 3})->value, 3);
  EXPECT_EQ(LineFrom(p, {cell.right - 2, cell.top})->color, 0x0000FF);

  grid.SetGridLines(quGridLinesHorizontal);
  p = Paint();
  EXPECT_NE(LineFrom(p, {0, cell.bottom - 3}), nullptr);
  EXPECT_EQ(LineFrom(p, {cell.right - 2, cell.top}), nullptr);
  grid.SetGridLines(quGridLinesNone);
  EXPECT_TRUE(Paint().OpsOf(PaintOpKind::Line).empty());
}

TEST_F(GridPainting, ExtendedGridLinesReachTheEdgesOfTheCellsArea) {
  const Rect last = CellRect(5, 3);
  const Size client = platform.ClientSize();
  RecordingPainter p = Paint();
  EXPECT_EQ(LineFrom(p, {last.right - 1, last.bottom}), nullptr);
  EXPECT_EQ(LineFrom(p, {0, last.bottom - 1})->to.x, last.right - 1);

  grid.SetGridLinesExtend(quGridLinesExtendBoth);
  p = Paint();
  const PaintOp* down = LineFrom(p, {last.right - 1, last.bottom});
  ASSERT_NE(down, nullptr);
  EXPECT_EQ(down->to.y, client.cy - 1);
  EXPECT_EQ(LineFrom(p, {0, last.bottom - 1})->to.x, client.cx - 1);
}

TEST_F(GridPainting, EachRowIsDrawnBackgroundContentsLinesThenSelectionAndFocus) {
  grid.SetCellSelected(2, 2, true);
  grid.SetSelectionAlphaBlend(128);
  SetCurrentCell(2, 2);
  RecordingPainter p = Paint();
  const Rect cell = CellRect(2, 2);
  const size_t fill = Index(p, At(p, PaintOpKind::FillRect, cell));
  const size_t text = Index(p, Text(p, "r2c2"));
  const size_t line = Index(p, LineFrom(p, {cell.right - 1, cell.top}));
  const PaintOp* layer = At(p, PaintOpKind::FillRectAlpha, cell);
  ASSERT_NE(layer, nullptr);
  const size_t focus = Index(p, p.OpsOf(PaintOpKind::DrawFocusRect).at(0));
  EXPECT_LT(fill, text);
  EXPECT_LT(text, line);
  EXPECT_LT(line, Index(p, layer));
  EXPECT_LT(Index(p, layer), focus);
  // The row below comes after the whole band of this one.
  EXPECT_LT(Index(p, layer), Index(p, At(p, PaintOpKind::FillRect, CellRect(3, 1))));
}

TEST_F(GridPainting, SelectedCellsAreHighlightedByTheSelectionProperties) {
  grid.SetCellSelected(1, 2, true);
  const Rect cell = CellRect(1, 2);
  RecordingPainter p = Paint();
  EXPECT_EQ(At(p, PaintOpKind::FillRect, cell)->color, kHighlight);
  EXPECT_EQ(Text(p, "r1c2")->color, kWhite);
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(1, 1))->color, kWhite);

  grid.SetHighlightBackColor(0x0000FF);
  EXPECT_EQ(At(Paint(), PaintOpKind::FillRect, cell)->color, 0x0000FF);

  platform.SetFocus(false);
  p = Paint();
  EXPECT_EQ(At(p, PaintOpKind::FillRect, cell)->color, kFace);  // the no-focus colours
  EXPECT_EQ(Text(p, "r1c2")->color, kBlack);
  grid.SetHideSelection(true);
  EXPECT_EQ(At(Paint(), PaintOpKind::FillRect, cell)->color, kWhite);

  platform.SetFocus(true);
  grid.SetFullRowSelect(true);
  p = Paint();
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(1, 1))->color, 0x0000FF);
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(1, 3))->color, 0x0000FF);
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(2, 1))->color, kWhite);

  grid.SetHighlightSelCells(false);
  EXPECT_EQ(At(Paint(), PaintOpKind::FillRect, cell)->color, kWhite);
}

TEST_F(GridPainting, TranslucentSelectionLeavesTheCellsOwnColours) {
  grid.SetCellSelected(1, 2, true);
  grid.SetSelectionAlphaBlend(100);
  RecordingPainter p = Paint();
  const Rect cell = CellRect(1, 2);
  EXPECT_EQ(At(p, PaintOpKind::FillRect, cell)->color, kWhite);
  EXPECT_EQ(Text(p, "r1c2")->color, kBlack);
  const PaintOp* layer = At(p, PaintOpKind::FillRectAlpha, cell);
  ASSERT_NE(layer, nullptr);
  EXPECT_EQ(layer->value, 100);
  EXPECT_EQ(layer->color, kHighlight);
  EXPECT_EQ(p.OpsOf(PaintOpKind::FillRectAlpha).size(), 1u);
}

TEST_F(GridPainting, TheFocusRectangleFollowsFocusAndItsProperties) {
  SetCurrentCell(3, 2);
  const Rect cell = CellRect(3, 2);
  const Rect inner{cell.left, cell.top, cell.right - 1, cell.bottom - 1};
  RecordingPainter p = Paint();
  auto focus = p.OpsOf(PaintOpKind::DrawFocusRect);
  ASSERT_EQ(focus.size(), 1u);
  EXPECT_EQ(focus[0]->rect, inner);
  EXPECT_EQ(focus[0]->color, kWhite);
  EXPECT_EQ(focus[0]->color2, kBlack);

  grid.SetFocusRect(false);
  EXPECT_TRUE(Paint().OpsOf(PaintOpKind::DrawFocusRect).empty());
  grid.SetFocusRect(true);
  platform.SetFocus(false);
  EXPECT_TRUE(Paint().OpsOf(PaintOpKind::DrawFocusRect).empty());
  grid.SetFocusRectNoFocus(true);
  grid.SetFocusRectNoFocusColor1(0x0000FF);
  p = Paint();
  ASSERT_EQ(p.OpsOf(PaintOpKind::DrawFocusRect).size(), 1u);
  EXPECT_EQ(p.OpsOf(PaintOpKind::DrawFocusRect)[0]->color, 0x0000FF);
  EXPECT_EQ(p.OpsOf(PaintOpKind::DrawFocusRect)[0]->color2, kShadow);

  platform.SetFocus(true);
  grid.SetFullRowSelect(true);
  p = Paint();
  EXPECT_EQ(p.OpsOf(PaintOpKind::DrawFocusRect)[0]->rect,
            (Rect{0, cell.top, 239, cell.bottom - 1}));
}

TEST_F(GridPainting, TheFrozenEdgeShowsWhenScrolledOrAlways) {
  for (int i = 0; i < 10; ++i) grid.AddCol({.lWidth = 80});
  grid.SetFrozenCols(1);
  RecordingPainter p = Paint();
  EXPECT_EQ(LineFrom(p, {78, CellRect(1, 1).top}), nullptr);
  grid.SetFrozenColsEdgeDrawAlways(true);
  grid.SetFrozenColsEdgeColor(0x0000FF);
  grid.SetFrozenColsEdgeWidth(3);
  p = Paint();
  const PaintOp* edge = LineFrom(p, {77, CellRect(1, 1).top});
  ASSERT_NE(edge, nullptr);
  EXPECT_EQ(edge->value, 3);
  EXPECT_EQ(edge->color, 0x0000FF);

  grid.SetFrozenColsEdgeDrawAlways(false);
  grid.HostScroll(quScrollBarH, 50);
  p = Paint();
  EXPECT_NE(LineFrom(p, {77, CellRect(1, 1).top}), nullptr);
  // Scrolled cells stay right of the frozen column: their drawing is clipped to that side.
  const PaintOp* scrolled = Text(p, "r1c2");
  ASSERT_NE(scrolled, nullptr);
  EXPECT_EQ(scrolled->rect.left, 80 - 50 + 1);
  EXPECT_EQ(scrolled->clip.left, 80);
}

TEST_F(GridPainting, TreeLinesAndButtonsFollowTheTreeProperties) {
  grid.SetTreeCol(1);
  grid.SetRowLevel(2, 1);
  grid.SetRowLevel(3, 1);
  grid.SetRowTreeButton(1, quRowTreeButtonVisible);
  RecordingPainter p = Paint();
  auto buttons = p.OpsOf(PaintOpKind::DrawTreeButton);
  ASSERT_EQ(buttons.size(), 1u);
  const Rect row1 = CellRect(1, 1);
  EXPECT_EQ(buttons[0]->rect.Width(), 9);
  EXPECT_GE(buttons[0]->rect.left, row1.left);
  EXPECT_LE(buttons[0]->rect.right, row1.left + 16);
  EXPECT_EQ(buttons[0]->color, kShadow);
  EXPECT_EQ(buttons[0]->color2, kFace);
  EXPECT_TRUE(p.OpsOf(PaintOpKind::DottedLine).empty());  // TreeLines is off by default
  EXPECT_EQ(Text(p, "r2c1")->rect.left, CellRect(2, 1).left + 32 + 1);  // two slots, indent

  grid.SetTreeLines(quTreeLinesDotted);
  grid.SetTreeLinesColor(0x0000FF);
  p = Paint();
  const Rect row2 = CellRect(2, 1);
  // Row 2's own slot is the second: its connector runs up, across and on down to row 3.
  const PaintOp* up = LineFrom(p, {row2.left + 16 + 8, row2.top});
  ASSERT_NE(up, nullptr);
  EXPECT_EQ(up->kind, PaintOpKind::DottedLine);
  EXPECT_EQ(up->color, 0x0000FF);
  const int32_t mid = row2.top + row2.Height() / 2;
  EXPECT_NE(LineFrom(p, {row2.left + 24, mid}), nullptr);
  // The root slot of row 2: row 4 follows at the root level, so the line runs through.
  EXPECT_NE(LineFrom(p, {row2.left + 8, row2.top}), nullptr);
  const Rect row3 = CellRect(3, 1);
  // Row 3 is the last child: its line stops at the middle.
  bool downFromRow3 = false;
  for (const PaintOp* op : p.OpsOf(PaintOpKind::DottedLine))
    downFromRow3 |=
        op->from == Point{row3.left + 24, row3.top + row3.Height() / 2} && op->to.y > op->from.y;
  EXPECT_FALSE(downFromRow3);
  // A new sibling below row 3 is seen by the next paint.
  grid.SetRowLevel(4, 1);
  p = Paint();
  bool down = false;
  for (const PaintOp* op : p.OpsOf(PaintOpKind::DottedLine))
    down |=
        op->from == Point{row3.left + 24, row3.top + row3.Height() / 2} && op->to.y > op->from.y;
  EXPECT_TRUE(down);
  grid.SetRowLevel(4, 0);

  grid.SetTreeLines(quTreeLinesSolid);
  EXPECT_EQ(LineFrom(Paint(), {row2.left + 24, row2.top})->kind, PaintOpKind::Line);
  grid.SetTreeRootLines(false);
  EXPECT_EQ(Text(Paint(), "r2c1")->rect.left, row2.left + 16 + 1);

  grid.SetTreeRootLines(true);
  grid.SetLevelIndent(20);
  grid.SetTreeButtonSize(11);
  grid.SetTreeButtonForeColor(0x0000FF);
  grid.SetRowExpanded(1, false);
  p = Paint();
  EXPECT_EQ(Text(p, "r4c1")->rect.left, row2.left + 20 + 1);
  buttons = p.OpsOf(PaintOpKind::DrawTreeButton);
  ASSERT_EQ(buttons.size(), 1u);
  EXPECT_EQ(buttons[0]->rect.Width(), 11);
  EXPECT_EQ(buttons[0]->color3, 0x0000FF);
  EXPECT_FALSE(buttons[0]->flag);  // collapsed: a plus sign
}

TEST_F(GridPainting, RowTextIsDrawnBelowTheNormalCells) {
  grid.SetRowHeight(2, 40);
  grid.SetRowNormalCellHeight(2, 18);
  grid.SetCellValue(2, grid.RowTextCol(), "row text");
  EXPECT_EQ(Text(Paint(), "row text"), nullptr);
  grid.SetDrawRowText(true);
  RecordingPainter p = Paint();
  const PaintOp* text = Text(p, "row text");
  ASSERT_NE(text, nullptr);
  const Rect row = CellRect(2, 1);
  EXPECT_EQ(text->rect.top, row.top + 18);
  EXPECT_EQ(text->rect.left, 1);
  EXPECT_EQ(text->rect.right, 239);
  EXPECT_EQ(Text(p, "r2c2")->rect.bottom, row.top + 18);
}

TEST_F(GridPainting, GroupRowsSpanTheWidthWithTheirRowTextCell) {
  // Grouping builds group rows elsewhere; here a row is marked as one directly.
  control::Internals(grid).store.Rows().At(2).flags |= model::RowRecord::kGroupRow;
  grid.SetCellValue(2, grid.RowTextCol(), "Group: 2");
  RecordingPainter p = Paint();
  const Rect row = CellRect(2, 1);
  const PaintOp* fill = At(p, PaintOpKind::FillRect, {0, row.top, 240, row.bottom});
  ASSERT_NE(fill, nullptr);
  const PaintOp* text = Text(p, "Group: 2");
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->rect.left, 16 + 1);  // after the group row's tree slot
  EXPECT_EQ(Text(p, "r2c1"), nullptr);
  EXPECT_NE(LineFrom(p, {0, row.bottom - 1}), nullptr);
}

class ManyRows : public RenderTest {};

TEST_F(ManyRows, PaintingVisitsOnlyTheRowsInView) {
  Fill(0, 3);
  grid.AddRow({.lCount = 200000});
  for (int32_t r : {1, 100000, 100001, 199999})
    for (int32_t c = 1; c <= 3; ++c)
      grid.SetCellValue(r, c, "r" + std::to_string(r) + "c" + std::to_string(c));
  RecordingPainter p = Paint();
  // 600 - 21 header = 579 pixels: 33 rows of 18 meet them.
  EXPECT_EQ(p.OpsOf(PaintOpKind::FillRect).size(), 1u + 33 * 3);
  grid.HostScroll(quScrollBarV, 99999 * 18);
  p = Paint();
  ASSERT_NE(Text(p, "r100000c2"), nullptr);
  EXPECT_EQ(Text(p, "r100000c2")->rect.top, 21);
  EXPECT_NE(Text(p, "r100001c2"), nullptr);
  EXPECT_EQ(Text(p, "r1c1"), nullptr);

  // A clip rectangle limits the rows and columns visited.
  RecordingPainter part({80, 21, 160, 39});
  grid.Paint(part, {80, 21, 160, 39});
  EXPECT_EQ(part.OpsOf(PaintOpKind::DrawText).size(), 1u);
}

class Invalidation : public RenderTest {};

TEST_F(Invalidation, CellChangesInvalidateTheCellsRectangleOnly) {
  Fill(100, 3);
  Paint();
  platform.TakeInvalidatedRects();
  const int64_t whole = platform.Invalidations();
  grid.SetCellValue(2, 2, "new");
  grid.SetCellBackColor(3, 1, 0x0000FF);
  EXPECT_EQ(platform.TakeInvalidatedRects(), (std::vector<Rect>{CellRect(2, 2), CellRect(3, 1)}));
  grid.SetCellValue(90, 2, "out of view");
  EXPECT_TRUE(platform.TakeInvalidatedRects().empty());
  EXPECT_EQ(platform.Invalidations(), whole);

  grid.SetGridLineColor(0x0000FF);  // a drawing property repaints everything
  EXPECT_EQ(platform.Invalidations(), whole + 1);

  grid.BeginUpdate();
  grid.SetCellValue(2, 2, "again");
  EXPECT_TRUE(platform.TakeInvalidatedRects().empty());
  grid.EndUpdate();
  EXPECT_EQ(platform.Invalidations(), whole + 2);
}

TEST_F(Invalidation, MovingTheCurrentCellRepaintsTheRowsItLeavesAndEnters) {
  Fill(10, 3);
  Paint();
  platform.TakeInvalidatedRects();
  SetCurrentCell(2, 1);
  SetCurrentCell(4, 1);
  const Rect r2 = CellRect(2, 1), r4 = CellRect(4, 1);
  const int32_t right = platform.ClientSize().cx;
  EXPECT_EQ(platform.TakeInvalidatedRects(), (std::vector<Rect>{{0, r2.top, right, r2.bottom},
                                                                {0, r2.top, right, r2.bottom},
                                                                {0, r4.top, right, r4.bottom}}));
}

}  // namespace
}  // namespace quilta::test
