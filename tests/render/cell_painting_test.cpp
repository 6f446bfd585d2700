// What painting draws inside a cell: backgrounds, hatching, check boxes, icons, text and the
// events that change them while drawing.
#include <quilta/platform/headless.hpp>

#include "render_support.hpp"

namespace quilta::test {
namespace {

class CellPainting : public RenderTest {
 protected:
  void SetUp() override { Fill(5, 3); }
};

TEST_F(CellPainting, BackgroundsFollowTheCellThenAlternatingThenGridColours) {
  grid.SetBackColorOddRows(0x00FF00);
  grid.SetBackColorEvenRows(static_cast<Color>(0x80000010u));  // a system colour
  grid.SetCellBackColor(3, 2, 0x0000FF);
  RecordingPainter p = Paint();
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(1, 1))->color, 0x00FF00);
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(2, 1))->color, kShadow);
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(3, 2))->color, 0x0000FF);
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(3, 1))->color, 0x00FF00);

  grid.SetBackColorOddRows(-1);
  grid.SetBackColor(0x123456);
  p = Paint();
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(1, 1))->color, 0x123456);
  // The empty area right of the columns and below the rows shows BackColor too.
  EXPECT_EQ(p.Ops()[1].kind, PaintOpKind::FillRect);
  EXPECT_EQ(p.Ops()[1].color, 0x123456);
}

TEST_F(CellPainting, TextIsDrawnInTheTextRectangleWithColourFontAndFlags) {
  grid.SetCellForeColor(1, 2, 0x0000FF);
  grid.SetCellAlignH(1, 2, quAlignHRight);
  grid.SetCellFont(1, 2, MakeFont("Arial", 12, true));
  RecordingPainter p = Paint();
  const PaintOp* text = Text(p, "r1c2");
  ASSERT_NE(text, nullptr);
  const Rect cell = CellRect(1, 2);
  // Indents of one pixel left and right of the default cell.
  EXPECT_EQ(text->rect, (Rect{cell.left + 1, cell.top, cell.right - 1, cell.bottom}));
  EXPECT_EQ(text->color, 0x0000FF);
  EXPECT_TRUE(text->value & quTextRight);
  EXPECT_TRUE(text->value & quTextEndEllipsis);
  EXPECT_EQ(p.Fonts()[text->font].name, "Arial");
  EXPECT_TRUE(p.Fonts()[text->font].bold);
  EXPECT_EQ(Text(p, "r1c1")->color, kBlack);
  EXPECT_EQ(p.Fonts()[Text(p, "r1c1")->font].name, "Segoe UI");
}

TEST_F(CellPainting, HatchingCoversTheCellAndOpaqueTextKeepsItsOwnPatch) {
  grid.SetCellHatch(2, 1, quHatchCross);
  grid.SetCellForeColor(2, 1, 0x0000FF);
  RecordingPainter p = Paint();
  const PaintOp* hatch = At(p, PaintOpKind::FillHatch, CellRect(2, 1));
  ASSERT_NE(hatch, nullptr);
  EXPECT_EQ(hatch->value, quHatchCross);
  EXPECT_EQ(hatch->color, 0x0000FF);
  const PaintOp* text = Text(p, "r2c1");
  const PaintOp& patch = p.Ops()[Index(p, text) - 1];
  EXPECT_LT(Index(p, hatch), Index(p, text));
  ASSERT_EQ(patch.kind, PaintOpKind::FillRect);
  EXPECT_EQ(patch.color, kWhite);
  // "r2c1": four characters of 6 pixels, one line of 15, from the text rectangle's corner.
  EXPECT_EQ(patch.rect,
            (Rect{text->rect.left, text->rect.top, text->rect.left + 24, text->rect.top + 15}));

  grid.SetOpaqueTextInHatchedCells(false);
  p = Paint();
  EXPECT_NE(p.Ops()[Index(p, Text(p, "r2c1")) - 1].kind, PaintOpKind::FillRect);
}

TEST_F(CellPainting, CheckBoxesShowStateLookAndEnabledState) {
  grid.SetCellCheckVisible(1, 1, true);
  grid.SetCellCheckState(1, 1, quCheckStateGrayed);
  RecordingPainter p = Paint();
  auto boxes = p.OpsOf(PaintOpKind::DrawCheckBox);
  ASSERT_EQ(boxes.size(), 1u);
  const Rect cell = CellRect(1, 1);
  // Left of the text, after the indent and the gap, 13 x 13.
  EXPECT_EQ(boxes[0]->rect.left, cell.left + 1 + 2);
  EXPECT_EQ(boxes[0]->rect.Width(), 13);
  EXPECT_EQ(boxes[0]->value, quCheckStateGrayed);
  EXPECT_EQ(boxes[0]->look, ControlLook::Themed);
  EXPECT_TRUE(boxes[0]->flag);
  EXPECT_GE(Text(p, "r1c1")->rect.left, boxes[0]->rect.right);

  grid.SetFlatCellControls(true);
  grid.SetEnabled(false);
  p = Paint();
  boxes = p.OpsOf(PaintOpKind::DrawCheckBox);
  EXPECT_EQ(boxes[0]->look, ControlLook::Flat);
  EXPECT_FALSE(boxes[0]->flag);
}

TEST_F(CellPainting, ComboButtonsShowInTheCurrentCellOrInEveryCell) {
  grid.SetCellType(1, 2, quCellTextCombo);
  grid.SetCellType(3, 2, quCellTextCombo);
  EXPECT_TRUE(Paint().OpsOf(PaintOpKind::DrawComboButton).empty());
  SetCurrentCell(1, 2);
  RecordingPainter p = Paint();
  auto buttons = p.OpsOf(PaintOpKind::DrawComboButton);
  ASSERT_EQ(buttons.size(), 1u);
  const Rect cell = CellRect(1, 2);
  EXPECT_EQ(buttons[0]->rect, (Rect{cell.right - 17, cell.top, cell.right, cell.bottom}));
  EXPECT_LE(Text(p, "r1c2")->rect.right, buttons[0]->rect.left);
  grid.SetShowControlsInAllCells(true);
  EXPECT_EQ(Paint().OpsOf(PaintOpKind::DrawComboButton).size(), 2u);
}

TEST_F(CellPainting, VerticalAlignmentAndTextFlagsReachTheText) {
  grid.SetCellAlignV(1, 1, quAlignVBottom);
  grid.SetCellTextFlags(1, 2, static_cast<ETextFormatFlags>(quTextWordBreak | quTextCenter));
  RecordingPainter p = Paint();
  EXPECT_TRUE(Text(p, "r1c1")->value & quTextBottom);
  EXPECT_EQ(Text(p, "r1c2")->value, quTextWordBreak | quTextCenter);
}

struct IconEvents : QuiltaEvents {
  void CellDynamicIcons(int32_t lRow, int32_t lCol, const Variant&, int16_t& iIcon,
                        int16_t& iExtraIcon) override {
    if (lRow == 2 && lCol == 2) iIcon = 3, iExtraIcon = 4;
  }
};

TEST_F(CellPainting, IconsComeFromTheCellsImageListsOrTheDynamicIconsEvent) {
  std::shared_ptr<ImageList> list = std::make_shared<HeadlessImageList>(Size{16, 16}, 4);
  grid.SetImageList(1, Variant::Object(list));
  grid.SetCellIcon(1, 1, 2);
  IconEvents events;
  grid.SetEventSink(&events);
  grid.SetDynamicContentEvents(quDCEventCellDynamicIcons);
  RecordingPainter p = Paint();
  auto images = p.OpsOf(PaintOpKind::DrawImage);
  ASSERT_EQ(images.size(), 3u);
  const Rect cell = CellRect(1, 1);
  EXPECT_EQ(images[0]->value, 2);
  EXPECT_EQ(images[0]->rect.left, cell.left + 1);
  EXPECT_EQ(images[0]->images, list.get());
  EXPECT_EQ(images[0]->color, -1);
  EXPECT_GE(Text(p, "r1c1")->rect.left, images[0]->rect.right + 2);  // the icon gap
  EXPECT_EQ(images[1]->value, 3);
  EXPECT_EQ(images[2]->value, 4);

  // Selected icons take the highlight's tint with HighlightSelIcons; disabled grids dim them.
  grid.SetCellSelected(1, 1, true);
  grid.SetHighlightSelIcons(true);
  grid.SetEnabled(false);
  p = Paint();
  EXPECT_EQ(p.OpsOf(PaintOpKind::DrawImage)[0]->color, kHighlight);
  EXPECT_TRUE(p.OpsOf(PaintOpKind::DrawImage)[0]->flag);
}

struct FormattingEvents : QuiltaEvents {
  int rowEvents = 0;
  void CellDynamicFormatting(int32_t lRow, int32_t lCol, const Variant&, Color&, Color& oBackColor,
                             std::shared_ptr<Font>& oFont) override {
    if (lRow == 1 && lCol == 1) oBackColor = 0x0000FF, oFont = MakeFont("Courier", 10);
  }
  void RowDynamicFormatting(int32_t lRow, Color& oForeColor, Color&,
                            std::shared_ptr<Font>&) override {
    ++rowEvents;
    if (lRow == 2) oForeColor = 0x00FF00;
  }
  void CellDynamicText(int32_t lRow, int32_t lCol, const Variant&, std::string& sText) override {
    if (lRow == 3 && lCol == 3) sText = "dynamic";
  }
};

TEST_F(CellPainting, DynamicFormattingAndTextApplyWhileDrawing) {
  FormattingEvents events;
  grid.SetEventSink(&events);
  RecordingPainter p = Paint();
  EXPECT_EQ(events.rowEvents, 0);  // not asked for
  EXPECT_NE(Text(p, "r3c3"), nullptr);

  grid.SetDynamicContentEvents(static_cast<EDynamicContentEvents>(
      quDCEventCellDynamicFormatting | quDCEventRowDynamicFormatting | quDCEventCellDynamicText));
  p = Paint();
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(1, 1))->color, 0x0000FF);
  EXPECT_EQ(p.Fonts()[Text(p, "r1c1")->font].name, "Courier");
  EXPECT_EQ(Text(p, "r2c3")->color, 0x00FF00);
  EXPECT_EQ(Text(p, "r1c2")->color, kBlack);
  EXPECT_EQ(Text(p, "r3c3"), nullptr);
  EXPECT_NE(Text(p, "dynamic"), nullptr);
  EXPECT_EQ(events.rowEvents, 5);  // once per row, not per cell
}

struct CustomDrawEvents : QuiltaEvents {
  std::vector<Rect> backgrounds;
  bool drawBackground = true;
  void CustomDrawCellBackground(int32_t, int32_t, Painter&, int32_t l, int32_t t, int32_t r,
                                int32_t b, bool, bool& bDoDefault) override {
    backgrounds.push_back({l, t, r, b});
    bDoDefault = drawBackground;
  }
  void CustomDrawCellForeground(int32_t, int32_t, Painter& painter, int32_t l, int32_t t, int32_t r,
                                int32_t b, bool bSelected, bool&) override {
    painter.FrameRect({l, t, r, b}, bSelected ? 0x0000FF : 0x00FF00, 2);
  }
};

TEST_F(CellPainting, CustomDrawCellsRaiseTheirEventsClippedToTheCell) {
  CustomDrawEvents events;
  grid.SetEventSink(&events);
  grid.SetCellType(2, 2, quCellCustomDraw);
  RecordingPainter p = Paint();
  const Rect cell = CellRect(2, 2);
  ASSERT_EQ(events.backgrounds, std::vector<Rect>{cell});
  const PaintOp* frame = At(p, PaintOpKind::FrameRect, cell);
  ASSERT_NE(frame, nullptr);
  EXPECT_EQ(frame->clip, cell);
  EXPECT_EQ(frame->color, 0x00FF00);
  EXPECT_NE(At(p, PaintOpKind::FillRect, cell), nullptr);
  EXPECT_EQ(Text(p, "r2c2"), nullptr);  // custom-draw cells have no text of their own

  events.drawBackground = false;
  grid.SetCellSelected(2, 2, true);
  p = Paint();
  EXPECT_EQ(At(p, PaintOpKind::FillRect, cell), nullptr);
  EXPECT_EQ(At(p, PaintOpKind::FrameRect, cell)->color, 0x0000FF);
}

TEST_F(CellPainting, DisabledGridsDrawInDisabledColoursUnlessTold) {
  grid.SetCellBackColor(1, 1, 0x0000FF);
  grid.SetEnabled(false);
  RecordingPainter p = Paint();
  EXPECT_EQ(Text(p, "r1c1")->color, kShadow);  // grey text
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(1, 1))->color, kFace);
  grid.SetChangeColorsWhenDisabled(false);
  p = Paint();
  EXPECT_EQ(Text(p, "r1c1")->color, kBlack);
  EXPECT_EQ(At(p, PaintOpKind::FillRect, CellRect(1, 1))->color, 0x0000FF);
}

}  // namespace
}  // namespace quilta::test
