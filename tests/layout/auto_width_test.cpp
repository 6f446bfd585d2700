// Sizing columns to their contents and measuring cell text through the object model.
#include <gtest/gtest.h>

#include <string>

#include "layout/geometry_test_support.hpp"

namespace quilta::testing {
namespace {

// Headless text is 6 pixels a character; cells have an indent of 1 on the left and right.
int32_t Need(int chars) { return chars * 6 + 2; }

struct IconWatcher : QuiltaEvents {
  std::vector<int32_t> rows;
  void CellDynamicIcons(int32_t lRow, int32_t, const Variant&, int16_t& iIcon, int16_t&) override {
    rows.push_back(lRow);
    if (lRow == 2) iIcon = 1;  // drawing shows an icon here: auto-width makes room for it
  }
};

struct WidthFixture : GeometryFixture {
  WidthFixture() {
    grid.SetAutoWidthColWithHeader(false);  // header items measure themselves
    grid.AddCol({.sKey = "a"});
    grid.AddCol({.sKey = "b"});
    grid.AddRow({.lCount = 3});
    grid.SetCellValue(1, "a", "abc");
    grid.SetCellValue(2, "a", "abcdefghij");
  }
};

TEST(AutoWidthCol, LimitsApplyInTheirFixedOrder) {
  WidthFixture f;
  f.grid.AutoWidthCol("a");
  EXPECT_EQ(f.grid.ColWidth("a"), Need(10));
  f.grid.AutoWidthCol("a", 70);
  EXPECT_EQ(f.grid.ColWidth("a"), 70);
  f.grid.AutoWidthCol("a", 10, 30);
  EXPECT_EQ(f.grid.ColWidth("a"), 30);
  f.grid.SetColMinWidth("a", 80);
  f.grid.AutoWidthCol("a");
  EXPECT_EQ(f.grid.ColWidth("a"), 80);
  f.grid.AutoWidthCol("a", -1, 50);  // the given maximum wins even over the column's minimum
  EXPECT_EQ(f.grid.ColWidth("a"), 50);
  ExpectError(514, [&] { f.grid.AutoWidthCol("a", 100, 50); });
  EXPECT_EQ(f.grid.ColWidth("a"), 50);
  f.grid.AutoWidthCol("a", 50, 50);  // equal limits are fine
  EXPECT_EQ(f.grid.ColWidth("a"), 50);
  f.grid.SetColMinWidth("a", -1);
  f.grid.SetColMaxWidth("a", 40);
  f.grid.AutoWidthCol("a", 70);  // the column's maximum comes after the given minimum
  EXPECT_EQ(f.grid.ColWidth("a"), 40);
  EXPECT_EQ(f.grid.ColStartX("b"), 40);  // positions follow
  EXPECT_GE(f.events.quits, 1);
}

TEST(AutoWidthCol, MeasuresEveryPartAsDrawingLaysItOut) {
  WidthFixture f;
  auto list = std::make_shared<HeadlessImageList>(Size{16, 16}, 5);
  f.grid.SetImageList(1, Variant::Object(std::static_pointer_cast<ImageList>(list)));
  f.grid.SetCellCheckVisible(2, "a", true);
  f.grid.AutoWidthCol("a");
  EXPECT_EQ(f.grid.ColWidth("a"), Need(10) + 13 + 2 * 2);
  f.grid.SetCellIcon(2, "a", 1);
  f.grid.SetCellIndentLeft(2, "a", 5);
  f.grid.AutoWidthCol("a");
  EXPECT_EQ(f.grid.ColWidth("a"), Need(10) + 4 + 13 + 4 + 16 + 2);
  // Nothing fits into less: the text is not clipped at that width, and is one pixel less.
  EXPECT_FALSE(f.grid.IsCellTextClipped(2, "a"));
  f.grid.SetColWidth("a", f.grid.ColWidth("a") - 1);
  EXPECT_TRUE(f.grid.IsCellTextClipped(2, "a"));
  // Tree column: a slot of the level indent for the root lines and one per level.
  f.grid.SetTreeCol(2);
  f.grid.SetCellValue(3, "b", "xy");
  f.grid.SetRowLevel(3, 1);
  f.grid.AutoWidthCol("b");
  EXPECT_EQ(f.grid.ColWidth("b"), 2 * 16 + Need(2));
  // An empty column needs only its indents.
  f.grid.AddCol({.sKey = "c"});
  f.grid.AutoWidthCol("c");
  EXPECT_EQ(f.grid.ColWidth("c"), 2);
}

TEST(AutoWidthCol, SkipsGroupRowsCustomDrawnCellsAndFilteredRows) {
  WidthFixture f;
  const std::string longer(20, 'x');
  f.grid.AddRow({.bGroupRow = true});  // row 4
  f.grid.SetCellValue(4, "a", longer);
  f.grid.SetCellValue(3, "a", longer);
  f.grid.SetCellType(3, "a", quCellCustomDraw);
  f.grid.AutoWidthCol("a");
  EXPECT_EQ(f.grid.ColWidth("a"), Need(10));
  f.grid.SetCellType(3, "a", quCellText);
  f.grid.SetRowVisible(3, false);
  f.grid.AutoWidthCol("a");  // rows shown now
  EXPECT_EQ(f.grid.ColWidth("a"), Need(10));
  f.grid.AutoWidthCol("a", -1, -1, quCellVisAllCells);
  EXPECT_EQ(f.grid.ColWidth("a"), Need(20));
  f.grid.AutoWidthCol("a", -1, -1, quCellVisVisibleProperty);
  EXPECT_EQ(f.grid.ColWidth("a"), Need(10));
  // A collapsed child keeps its own visibility property but is not shown.
  f.grid.SetRowVisible(3, true);
  f.grid.SetRowLevel(3, 1);
  f.grid.SetRowExpanded(2, false);
  f.grid.AutoWidthCol("a", -1, -1, quCellVisVisibleProperty);
  EXPECT_EQ(f.grid.ColWidth("a"), Need(20));
  f.grid.AutoWidthCol("a");
  EXPECT_EQ(f.grid.ColWidth("a"), Need(10));
  ExpectError(514,
              [&] { f.grid.AutoWidthCol("a", -1, -1, static_cast<ECellVisibilityFilter>(3)); });
  ExpectError(514, [&] { f.grid.AutoWidthCol(f.grid.RowTextCol()); });
  ExpectError(513, [&] { f.grid.AutoWidthCol("zz"); });
  EXPECT_EQ(f.grid.ColWidth("a"), Need(10));
}

TEST(AutoWidthCol, MaxRowsLimitsTheRowsLookedAt) {
  GeometryFixture f;
  IconWatcher icons;
  f.grid.SetEventSink(&icons);
  f.grid.SetAutoWidthColWithHeader(false);
  f.grid.AddCol();
  f.grid.AddRow({.lCount = 1000});
  f.grid.SetCellValue(11, 1, std::string(30, 'w'));
  f.grid.SetCellValue(5, 1, "12345");
  f.grid.SetRowVisible(7, false);
  f.grid.SetDynamicContentEvents(quDCEventCellDynamicIcons);
  auto list = std::make_shared<HeadlessImageList>(Size{16, 16}, 5);
  f.grid.SetImageList(1, Variant::Object(std::static_pointer_cast<ImageList>(list)));
  f.grid.SetAutoWidthColMaxRows(10);
  f.grid.AutoWidthCol(1);
  EXPECT_EQ(f.grid.ColWidth(1), Need(5));  // row 2's dynamic icon is narrower than that
  EXPECT_EQ(icons.rows, (std::vector<int32_t>{1, 2, 3, 4, 5, 6, 8, 9, 10}));
  f.grid.SetCellValue(5, 1, "");
  f.grid.AutoWidthCol(1);
  EXPECT_EQ(f.grid.ColWidth(1), 2 + 16 + 2);  // the icon drawing would show, and its gap
  f.grid.SetAutoWidthColMaxRows(0);
  f.grid.AutoWidthCol(1);
  EXPECT_EQ(f.grid.ColWidth(1), Need(30));
  ExpectError(514, [&] { f.grid.SetAutoWidthColMaxRows(-1); });
  EXPECT_EQ(f.grid.AutoWidthColMaxRows(), 0);
}

TEST(AutoWidthCols, SizesTheColumnsOfAnIndexRangeWithOneRedraw) {
  WidthFixture f;
  f.grid.AddCol({.sKey = "c"});
  f.grid.SetCellValue(1, "b", "1234");
  f.grid.SetCellValue(1, "c", "12");
  f.grid.SetColPos("c", 1);  // the range is in column indexes, not positions
  const int32_t before = f.platform.Invalidations();
  f.grid.AutoWidthCols(2, 3);
  EXPECT_EQ(f.platform.Invalidations(), before + 1);
  EXPECT_EQ(f.grid.ColWidth("a"), 64);
  EXPECT_EQ(f.grid.ColWidth("b"), Need(4));
  EXPECT_EQ(f.grid.ColWidth("c"), Need(2));
  f.grid.AutoWidthCols(Variant::Missing(), Variant::Missing(), 30);
  EXPECT_EQ(f.grid.ColWidth("a"), Need(10));
  EXPECT_EQ(f.grid.ColWidth("c"), 30);
  ExpectError(514, [&] { f.grid.AutoWidthCols(1, 3, 50, 40); });
  ExpectError(513, [&] { f.grid.AutoWidthCols(1, "zz"); });
  EXPECT_EQ(f.grid.ColWidth("c"), 30);
}

TEST(EvaluateText, MeasuresTheCellTextInItsFontAndFlags) {
  WidthFixture f;
  EXPECT_EQ(f.grid.EvaluateTextWidth(2, "a"), 60);
  EXPECT_EQ(f.grid.EvaluateTextWidth(3, "a"), 0);
  EXPECT_EQ(f.grid.EvaluateTextHeight(2, "a"), 15);
  auto big = f.grid.Font();
  big->size = 18;
  f.grid.SetCellFont(2, "a", big);
  EXPECT_EQ(f.grid.EvaluateTextWidth(2, "a"), 120);
  f.grid.SetCellFont(2, "a", nullptr);
  f.grid.SetCellValue(1, "a", "one two three four");
  f.grid.SetCellTextFlags(1, "a", quTextWordBreak);
  EXPECT_EQ(f.grid.EvaluateTextHeight(1, "a", 60), 2 * 15);
  EXPECT_EQ(f.grid.EvaluateTextHeight(1, "a", 30), 4 * 15);
  f.grid.SetColWidth("a", 62);  // a text rectangle of 60
  EXPECT_EQ(f.grid.EvaluateTextHeight(1, "a"), 2 * 15);
  EXPECT_TRUE(f.grid.IsCellTextClipped(1, "a"));  // two lines in an 18-pixel row
  f.grid.SetRowHeight(1, 30);
  EXPECT_FALSE(f.grid.IsCellTextClipped(1, "a"));
  EXPECT_FALSE(f.grid.IsCellTextClipped(3, "a"));  // empty
  ExpectError(514, [&] { f.grid.EvaluateTextHeight(1, "a", -2); });
  ExpectError(513, [&] { f.grid.EvaluateTextWidth(4, "a"); });
}

}  // namespace
}  // namespace quilta::testing
