// The recording painter: calls kept in order with the clip in force, and its text dump.
#include <cstdlib>
#include <filesystem>
#include <quilta/platform/headless.hpp>

#include "raster.hpp"
#include "render_support.hpp"

namespace quilta::test {
namespace {

TEST(RecordingPainter, KeepsCallsInOrderWithTheClipInForce) {
  RecordingPainter p({0, 0, 100, 100});
  p.FillRect({10, 10, 50, 50}, 0x0000FF);
  p.PushClip({20, 0, 200, 30});
  p.PushClip({0, 5, 40, 200});
  p.DrawText({0, 0, 60, 20}, "abc", Font{}, 0x00FF00, quTextCenter);
  p.PopClip();
  p.Line({0, 1}, {9, 1}, 0xFF0000, 2);
  p.PopClip();
  ASSERT_EQ(p.Ops().size(), 7u);
  EXPECT_EQ(p.Ops()[0].clip, (Rect{0, 0, 100, 100}));
  EXPECT_EQ(p.Ops()[3].clip, (Rect{20, 5, 40, 30}));
  EXPECT_EQ(p.Ops()[5].clip, (Rect{20, 0, 100, 30}));
  EXPECT_EQ(p.OpsOf(PaintOpKind::DrawText).at(0)->text, "abc");
  EXPECT_EQ(p.Dump(),
            "fill (10,10)-(50,50) #FF0000\n"
            "clip (20,0)-(200,30)\n"
            "  clip (0,5)-(40,200)\n"
            "    text (0,0)-(60,20) \"abc\" #00FF00 flags 1 font Segoe UI 9\n"
            "  end-clip\n"
            "  line (0,1)-(9,1) #0000FF width 2\n"
            "end-clip\n");
}

TEST(RecordingPainter, DumpsTheWholeViewOfAGrid) {
  HeadlessPlatform platform;
  platform.SetClientSize({200, 80});
  Quilta grid(platform);
  grid.AddCol({.sKey = "a", .lWidth = 60});
  grid.AddRow({.lCount = 2});
  grid.SetCellValue(1, "a", "hello");
  const std::string dump = DumpPaint(grid);
  EXPECT_NE(dump.find("fill (0,21)-(60,39) #FFFFFF\n"), std::string::npos) << dump;
  EXPECT_NE(dump.find("text (1,21)-(59,39) \"hello\" #000000 flags 32768"), std::string::npos)
      << dump;
  EXPECT_NE(dump.find("line (59,21)-(59,38) #D4D0C8 width 1"), std::string::npos) << dump;
}

// Writes a showcase grid as a PNG when QUILTA_PNG_DIR names a folder, for looking at by eye.
class Picture : public RenderTest {};

TEST_F(Picture, ShowcaseGridRastersToAPicture) {
  platform.SetClientSize({560, 300});
  Fill(30, 6);
  std::shared_ptr<ImageList> list = std::make_shared<HeadlessImageList>(Size{16, 16}, 4);
  grid.SetImageList(1, Variant::Object(list));
  grid.SetBackColorEvenRows(0xF4F0EC);
  grid.SetTreeCol(1);
  grid.SetTreeLines(quTreeLinesDotted);
  grid.SetRowTreeButton(1, quRowTreeButtonVisible);
  grid.SetRowLevel(2, 1);
  grid.SetRowLevel(3, 1);
  grid.SetRowTreeButton(3, quRowTreeButtonVisible);
  grid.SetRowLevel(4, 2);
  grid.SetCellCheckVisible(2, 2, true);
  grid.SetCellCheckState(2, 2, quCheckStateChecked);
  grid.SetCellIcon(3, 2, 2);
  grid.SetCellHatch(5, 3, quHatchDiagCross);
  grid.SetCellForeColor(5, 3, 0x0000C0);
  grid.SetCellAlignH(6, 3, quAlignHRight);
  grid.SetCellSelected(7, 2, true);
  grid.SetCellSelected(7, 3, true);
  grid.SetCellBackColor(8, 4, 0x80FFFF);
  grid.SetFrozenCols(1);
  grid.SetFrozenColsEdgeDrawAlways(true);
  grid.SetRowHeight(9, 40);
  grid.SetRowNormalCellHeight(9, 18);
  grid.SetDrawRowText(true);
  grid.SetCellValue(9, grid.RowTextCol(), "a row text under the cells of row 9");
  control::Internals(grid).SetCurrentCell(10, 3);
  RecordingPainter p = Paint();
  Raster raster(560, 300);
  raster.Replay(p);
  EXPECT_EQ(raster.At(CellRect(8, 4).left + 5, CellRect(8, 4).top + 2), 0x80FFFF);
  if (const char* dir = std::getenv("QUILTA_PNG_DIR")) {
    EXPECT_TRUE(raster.WritePng(std::filesystem::path(dir) / "showcase.png"));
  }
}

}  // namespace
}  // namespace quilta::test
