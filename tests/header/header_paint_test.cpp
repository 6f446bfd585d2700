// What the header strip draws: items in display order, their parts, marks, states and looks.
#include <cstdlib>

#include "header_fixture.hpp"
#include "model/test_support.hpp"

namespace quilta::testing {
namespace {

using HeaderPaint = HeaderFixture;

std::shared_ptr<ImageList> Icons(Size size) { return std::make_shared<HeadlessImageList>(size, 4); }

TEST_F(HeaderPaint, ItemsFollowTheDisplayOrderAndLeaveOutHiddenColumns) {
  RecordingPainter p = PaintAll(grid);
  EXPECT_EQ(p.Texts(), (std::vector<std::string>{"Alpha", "Beta", "Gamma"}));
  EXPECT_EQ(p.TextCall("Alpha")->rect, (Rect{4, 2, 96, 19}));
  EXPECT_EQ(p.TextCall("Beta")->rect, (Rect{104, 2, 176, 19}));
  EXPECT_EQ(p.TextCall("Alpha")->flags, quTextEndEllipsis);
  // Three themed items and the blank rest of the strip.
  const auto items = p.Of(PaintCall::HeaderItem);
  ASSERT_EQ(items.size(), 4u);
  EXPECT_EQ(items[3].rect, (Rect{300, 0, 800, 21}));

  grid.SetColPos("c", 1);
  grid.SetColVisible("a", false);
  p = PaintAll(grid);
  EXPECT_EQ(p.Texts(), (std::vector<std::string>{"Gamma", "Beta"}));
  EXPECT_EQ(p.TextCall("Beta")->rect.left, 124);

  grid.SetColHeaderText("b", "Second");
  EXPECT_EQ(PaintAll(grid).Texts(), (std::vector<std::string>{"Gamma", "Second"}));
}

TEST_F(HeaderPaint, CaptionAlignmentsTextFlagsAndIcon) {
  grid.SetColHeaderAlignH("a", quAlignHRight);
  grid.SetColHeaderAlignV("a", quAlignVCenter);
  grid.SetColHeaderTextFlags("b", static_cast<ETextFormatFlags>(quTextWordBreak | quTextRight));
  grid.SetColHeaderAlignH("b", quAlignHCenter);
  RecordingPainter p = PaintAll(grid);
  EXPECT_EQ(p.TextCall("Alpha")->flags, quTextEndEllipsis | quTextRight | quTextVCenter);
  // The column's alignment wins over alignment bits in its text flags.
  EXPECT_EQ(p.TextCall("Beta")->flags, quTextWordBreak | quTextCenter);

  grid.SetImageList(1, Variant::Object(Icons({16, 16})));
  grid.SetColHeaderIcon("a", 2);
  grid.SetColHeaderIcon("b", 9);  // beyond the list: no icon, no room taken
  p = PaintAll(grid);
  const auto images = p.Of(PaintCall::Image);
  ASSERT_EQ(images.size(), 1u);
  EXPECT_EQ(images[0].flags, 2);
  EXPECT_EQ(images[0].rect, (Rect{4, 2, 20, 18}));  // vertically centred like the caption
  EXPECT_EQ(p.TextCall("Alpha")->rect.left, 23);
  EXPECT_EQ(p.TextCall("Beta")->rect.left, 104);

  grid.Header().SetImageList(0);
  EXPECT_TRUE(PaintAll(grid).Of(PaintCall::Image).empty());
}

TEST_F(HeaderPaint, SortMarksShowTheOrderAndThePriorityOfSeveralSortedColumns) {
  EXPECT_TRUE(PaintAll(grid).Of(PaintCall::SortMark).empty());
  grid.DoDefaultSort("a");
  RecordingPainter p = PaintAll(grid);
  auto marks = p.Of(PaintCall::SortMark);
  ASSERT_EQ(marks.size(), 1u);
  EXPECT_TRUE(marks[0].ascending);
  EXPECT_EQ(marks[0].rect, (Rect{87, 7, 96, 12}));  // on the caption's line
  EXPECT_EQ(p.TextCall("Alpha")->rect.right, 84);   // the caption gives way to the mark
  EXPECT_EQ(p.TextCall("1"), nullptr);              // one sorted column: no priority

  grid.DoDefaultSort("c", 1);  // Shift adds a level
  grid.DoDefaultSort("c", 1);  // and flips it
  p = PaintAll(grid);
  marks = p.Of(PaintCall::SortMark);
  ASSERT_EQ(marks.size(), 2u);
  EXPECT_TRUE(marks[0].ascending);
  EXPECT_FALSE(marks[1].ascending);
  ASSERT_NE(p.TextCall("1"), nullptr);
  ASSERT_NE(p.TextCall("2"), nullptr);
  EXPECT_EQ(p.TextCall("1")->rect, (Rect{90, 2, 96, 17}));
  EXPECT_EQ(marks[0].rect.right, 89);
  EXPECT_EQ(p.TextCall("2")->rect.right, 296);

  // ColSortKey and ColSortOrder change only what the header shows.
  grid.SetColSortKey("b", 3);
  grid.SetColSortOrder("b", quSortDesc);
  EXPECT_EQ(PaintAll(grid).Of(PaintCall::SortMark).size(), 3u);
  grid.Header().SetSortMarks(false);
  EXPECT_TRUE(PaintAll(grid).Of(PaintCall::SortMark).empty());
}

TEST_F(HeaderPaint, WidthNeededCoversCaptionIconAndMark) {
  control::Control& c = Internals();
  EXPECT_EQ(c.HeaderItemWidthNeeded(1), 4 + 5 * 6 + 4);
  grid.SetImageList(1, Variant::Object(Icons({16, 16})));
  grid.SetColHeaderIcon("a", 1);
  EXPECT_EQ(c.HeaderItemWidthNeeded(1), 4 + 16 + 3 + 30 + 4);
  grid.DoDefaultSort("a");
  EXPECT_EQ(c.HeaderItemWidthNeeded(1), 4 + 16 + 3 + 30 + 3 + 9 + 4);
  grid.DoDefaultSort("b", 1);
  EXPECT_EQ(c.HeaderItemWidthNeeded(1), 4 + 16 + 3 + 30 + 3 + 9 + 1 + 6 + 4);
  // An item exactly that wide shows its caption unclipped.
  grid.SetColWidth("a", c.HeaderItemWidthNeeded(1));
  EXPECT_EQ(PaintAll(grid).TextCall("Alpha")->rect.Width(), 30);
  // Spacing grows with the resolution like the text: at 192 dpi everything doubles.
  platform.SetDpi(192);
  EXPECT_EQ(c.HeaderItemWidthNeeded(1), 8 + 16 + 6 + 60 + 6 + 18 + 2 + 12 + 8);
}

TEST_F(HeaderPaint, FlatAndThemedLooksWithHotAndPressedItems) {
  grid.HostMouseMove(0, 0, 150, kY);
  RecordingPainter p = PaintAll(grid);
  auto items = p.Of(PaintCall::HeaderItem);
  ASSERT_EQ(items.size(), 4u);
  EXPECT_FALSE(items[0].state.hot);
  EXPECT_TRUE(items[1].state.hot);
  EXPECT_EQ(items[1].state.look, ControlLook::Themed);

  grid.HostMouseDown(1, 0, 150, kY);
  items = PaintAll(grid).Of(PaintCall::HeaderItem);
  EXPECT_TRUE(items[1].state.pressed);
  grid.HostMouseMove(1, 0, 150, 100);  // off the item: it pops up again
  EXPECT_FALSE(PaintAll(grid).Of(PaintCall::HeaderItem)[1].state.pressed);
  grid.HostMouseUp(1, 0, 150, 100);
  EXPECT_TRUE(events.Only({"click"}).empty());

  grid.Header().SetFlat(true);
  grid.HostMouseMove(0, 0, 150, kY);
  p = PaintAll(grid);
  EXPECT_TRUE(p.Of(PaintCall::HeaderItem).empty());
  const Color face = platform.SystemColor(15);
  int faces = 0;
  for (const PaintCall& call : p.Of(PaintCall::Fill))
    if (call.color == face && call.rect.top == 0 && call.rect.bottom == 21) ++faces;
  EXPECT_EQ(faces, 4);
  const auto blends = p.Of(PaintCall::FillAlpha);
  ASSERT_EQ(blends.size(), 1u);  // the hot item
  EXPECT_EQ(blends[0].rect, (Rect{100, 0, 180, 21}));

  grid.Header().SetHotTracking(false);
  EXPECT_TRUE(PaintAll(grid).Of(PaintCall::FillAlpha).empty());
  grid.Header().SetFlat(false);
  grid.SetUseXPStyles(false);  // no themes: the flat look
  EXPECT_TRUE(PaintAll(grid).Of(PaintCall::HeaderItem).empty());
}

TEST_F(HeaderPaint, FrozenItemsStandStillWhileTheOthersScrollUnderThem) {
  platform.SetClientSize({250, 200});
  grid.SetFrozenCols(1);
  grid.HostResize();
  grid.HostScroll(quScrollBarH, 30);
  RecordingPainter p = PaintAll(grid);
  EXPECT_EQ(p.TextCall("Alpha")->rect.left, 4);
  const PaintCall* beta = p.TextCall("Beta");
  ASSERT_NE(beta, nullptr);
  EXPECT_EQ(beta->rect.left, 74);
  EXPECT_EQ(beta->clip.left, 100);  // the part under the frozen item is not drawn
  // The hidden part of Beta does not answer the mouse: the press lands on Alpha.
  Click(80);
  EXPECT_EQ(events.Only({"click"}), (std::vector<std::string>{"click 1 0"}));
}

TEST_F(HeaderPaint, HeightVisibilityAndFont) {
  EXPECT_EQ(grid.Header().Height(), 21);
  EXPECT_TRUE(grid.Header().AutoHeight());
  grid.Header().SetHeight(30);
  EXPECT_EQ(grid.Header().Height(), 30);
  EXPECT_EQ(PaintAll(grid).Of(PaintCall::HeaderItem)[0].rect.bottom, 30);
  ExpectError(quErrInvalidArgument, [&] { grid.Header().SetHeight(-2); });
  EXPECT_EQ(grid.Header().Height(), 30);
  grid.Header().SetHeight(-1);
  grid.Header().SetFont(MakeFont("Segoe UI", 18));  // 24 px em: 30 px line
  EXPECT_EQ(grid.Header().Height(), 36);

  grid.Header().SetVisible(false);
  RecordingPainter p = PaintAll(grid);
  EXPECT_TRUE(p.Of(PaintCall::HeaderItem).empty());
  EXPECT_EQ(Internals().view.CellsArea().top, 0);
  Click(50);  // a click where the strip was is the cells' business
  EXPECT_TRUE(events.log.empty());
}

TEST_F(HeaderPaint, HeaderRepaintsOnlyWhatChangedAndWaitsForEndUpdate) {
  PaintAll(grid);
  platform.TakeInvalidatedRects();
  grid.HostMouseMove(0, 0, 150, kY);
  EXPECT_EQ(platform.TakeInvalidatedRects(), (std::vector<Rect>{{100, 0, 180, 21}}));
  grid.BeginUpdate();
  grid.SetColSortKey("a", 1);
  grid.HostMouseMove(0, 0, 50, kY);
  EXPECT_TRUE(platform.TakeInvalidatedRects().empty());
  const int64_t before = platform.Invalidations();
  grid.EndUpdate();
  EXPECT_GT(platform.Invalidations(), before);
}

TEST_F(HeaderPaint, BadInputFailsAndChangesNothing) {
  ExpectError(quErrInvalidArgument,
              [&] { grid.SetColHeaderAlignH("a", static_cast<EHAlignment>(3)); });
  ExpectError(quErrInvalidArgument,
              [&] { grid.SetColHeaderAlignV("a", static_cast<EVAlignment>(-1)); });
  ExpectError(quErrInvalidArgument,
              [&] { grid.SetColHeaderTextFlags("a", static_cast<ETextFormatFlags>(1 << 30)); });
  ExpectError(quErrInvalidArgument, [&] { grid.SetColHeaderIcon("a", -1); });
  ExpectError(quErrInvalidArgument, [&] { grid.SetColHeaderText(grid.RowTextCol(), "x"); });
  ExpectError(quErrSubscriptOutOfRange, [&] { grid.SetColHeaderText(9, "x"); });
  ExpectError(quErrSubscriptOutOfRange, [&] { grid.ColHeaderText("nokey"); });
  ExpectError(quErrInvalidArgument, [&] { grid.Header().SetImageList(16); });
  ExpectError(quErrInvalidArgument, [&] { grid.Header().SetForeColor(-1); });
  EXPECT_EQ(grid.ColHeaderAlignH("a"), quAlignHLeft);
  EXPECT_EQ(grid.ColHeaderAlignV("a"), quAlignVTop);
  EXPECT_EQ(grid.ColHeaderTextFlags("a"), quTextEndEllipsis);
  EXPECT_EQ(grid.ColHeaderIcon("a"), 0);
  EXPECT_EQ(grid.Header().ImageList(), 1);
  EXPECT_EQ(grid.Header().ForeColor(), static_cast<Color>(0x80000012u));
}

// Writes pictures of the header to look at: QUILTA_HEADER_PICTURES=<folder>.
TEST_F(HeaderPaint, Pictures) {
  const char* folder = std::getenv("QUILTA_HEADER_PICTURES");
  if (!folder) GTEST_SKIP() << "set QUILTA_HEADER_PICTURES to write pictures";
  platform.SetClientSize({420, 60});
  grid.SetImageList(1, Variant::Object(Icons({16, 16})));
  grid.SetColHeaderIcon("b", 1);
  grid.SetColHeaderAlignH("c", quAlignHRight);
  grid.SetColHeaderAlignV("a", quAlignVCenter);
  grid.SetColHeaderText("c", "Gamma with a long caption");
  grid.DoDefaultSort("a");
  grid.DoDefaultSort("c", 1);
  grid.DoDefaultSort("c", 1);
  grid.HostMouseMove(0, 0, 150, kY);
  grid.HostResize();
  WritePicture(PaintAll(grid), {420, 60}, std::string(folder) + "/header_themed.png");
  grid.Header().SetFlat(true);
  WritePicture(PaintAll(grid), {420, 60}, std::string(folder) + "/header_flat.png");
  grid.HostMouseDown(1, 0, 50, kY);
  for (int32_t x = 50; x < 260; x += 10) grid.HostMouseMove(1, 0, x, kY);
  WritePicture(PaintAll(grid), {420, 60}, std::string(folder) + "/header_dragging.png");
  grid.HostMouseUp(1, 0, 260, kY);
  grid.Header().SetHeight(40);
  WritePicture(PaintAll(grid), {420, 60}, std::string(folder) + "/header_moved_tall.png");
}

}  // namespace
}  // namespace quilta::testing
