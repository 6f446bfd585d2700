#include "control/internals_access.hpp"
#include "model/test_support.hpp"

using namespace quilta;
using quilta::testing::ExpectError;

namespace {

Quilta Grid(int32_t rows = 3) {
  Quilta grid;
  grid.AddCol({.sKey = "a"});
  grid.AddCol({.sKey = "b"});
  grid.AddRow({.lCount = rows});
  return grid;
}

TEST(Cells, NewCellsCopyTheColumnDefaultCell) {
  Quilta grid = Grid(1);
  EXPECT_EQ(grid.CellBackColor(1, "a"), -1);
  EXPECT_EQ(grid.CellTextFlags(1, "a"), quTextEndEllipsis);
  EXPECT_EQ(grid.CellHatch(1, "a"), quHatchNone);
  EXPECT_TRUE(grid.CellSelectable(1, "a"));
  EXPECT_EQ(grid.CellIndentLeft(1, "a"), 1);
  EXPECT_EQ(grid.CellIndentTop(1, "a"), 0);
  EXPECT_EQ(grid.CellImageList(1, "a"), 1);
  EXPECT_EQ(grid.CellExtraImageList(1, "a"), 1);
  EXPECT_TRUE(grid.CellValue(1, "a").IsEmpty());

  std::shared_ptr<CellObject> tmpl = grid.ColDefaultCell("b");
  tmpl->SetoBackColor(0x123456);
  tmpl->SetvValue("fresh");
  EXPECT_EQ(grid.CellBackColor(1, "b"), -1);  // existing cells keep what they have
  grid.AddRow();
  EXPECT_EQ(grid.CellBackColor(2, "b"), 0x123456);
  EXPECT_EQ(grid.CellValue(2, "b"), Variant("fresh"));
  EXPECT_EQ(grid.CellBackColor(2, "a"), -1);
  std::shared_ptr<CellObject> added = grid.AddCol({.sKey = "c"});
  EXPECT_EQ(added, grid.ColDefaultCell("c"));
}

TEST(Cells, PackedFieldsDoNotDisturbTheirNeighbours) {
  Quilta grid = Grid(1);
  grid.SetCellHatch(1, 1, quHatchCross);
  grid.SetCellSelectable(1, 1, false);
  grid.SetCellType(1, 1, quCellTextCombo);
  EXPECT_EQ(grid.CellHatch(1, 1), quHatchCross);
  EXPECT_FALSE(grid.CellSelectable(1, 1));
  grid.SetCellHatch(1, 1, quHatchVertical);
  EXPECT_EQ(grid.CellType(1, 1), quCellTextCombo);

  grid.SetCellImageList(1, 1, 3);
  grid.SetCellExtraImageList(1, 1, 5);
  EXPECT_EQ(grid.CellImageList(1, 1), 3);
  EXPECT_EQ(grid.CellExtraImageList(1, 1), 5);
  ExpectError(514, [&] { grid.SetCellImageList(1, 1, 16); });
  EXPECT_EQ(grid.CellImageList(1, 1), 3);

  grid.SetCellCheckState(1, 1, quCheckStateGrayed);
  grid.SetCellCheckVisible(1, 1, true);
  grid.SetCellTypeFlags(1, 1, static_cast<ECellTypeFlags>(quCheckBox3State | quTextBoxHScrollBar));
  EXPECT_EQ(grid.CellCheckState(1, 1), quCheckStateGrayed);
  EXPECT_TRUE(grid.CellCheckVisible(1, 1));
  EXPECT_EQ(grid.CellTypeFlags(1, 1), quCheckBox3State | quTextBoxHScrollBar);

  grid.SetCellAlignH(1, 1, quAlignHRight);
  grid.SetCellAlignV(1, 1, quAlignVBottom);
  grid.SetCellIconToText(1, 1, quCellIconToTextTop);
  EXPECT_EQ(grid.CellAlignH(1, 1), quAlignHRight);
  EXPECT_EQ(grid.CellAlignV(1, 1), quAlignVBottom);
  EXPECT_EQ(grid.CellIconToText(1, 1), quCellIconToTextTop);
}

// Icons, image lists and alignment share their bytes with the value's storage: changing either
// must leave the other alone, and copies of the default cell carry both.
TEST(Cells, ValuesAndTheFieldsBesideThemStayApart) {
  Quilta grid = Grid(2);
  grid.SetCellIcon(1, 1, -7);
  grid.SetCellExtraIcon(1, 1, 300);
  grid.SetCellImageList(1, 1, 9);
  grid.SetCellAlignH(1, 1, quAlignHCenter);
  for (const Variant& v : {Variant("a longer text value"), Variant(2.5), Variant::Null(),
                           Variant(int16_t{-1}), Variant()}) {
    grid.SetCellValue(1, 1, v);
    EXPECT_EQ(grid.CellValue(1, 1), v);
    EXPECT_EQ(grid.CellIcon(1, 1), -7);
    EXPECT_EQ(grid.CellExtraIcon(1, 1), 300);
    EXPECT_EQ(grid.CellImageList(1, 1), 9);
    EXPECT_EQ(grid.CellAlignH(1, 1), quAlignHCenter);
  }
  grid.SetColCellsProp(1, quPropCellValue, "all");
  EXPECT_EQ(grid.CellIcon(1, 1), -7);
  grid.SetCellIcon(1, 1, 0);
  EXPECT_EQ(grid.CellValue(1, 1), Variant("all"));
  EXPECT_EQ(grid.CellIcon(2, 1), 0);  // the neighbour row was never touched
  EXPECT_EQ(grid.CellImageList(2, 1), 1);

  std::shared_ptr<CellObject> tmpl = grid.ColDefaultCell(2);
  tmpl->SetiIcon(12);
  tmpl->SetvValue("x");
  grid.AddRow({.lCount = 2});
  EXPECT_EQ(grid.CellIcon(3, 2), 12);
  EXPECT_EQ(grid.CellValue(4, 2), Variant("x"));
  EXPECT_EQ(tmpl->iIcon(), 12);
}

// A column gets records only for the rows up to the ones written (and a block beyond); the rows
// past them are its template until touched, also when the default cell changes in between.
TEST(Cells, RowsPastTheWrittenOnesStayTheTemplateUntilTouched) {
  Quilta grid = Grid(10000);
  grid.SetCellValue(1, 1, 1);
  grid.RemoveRow(8000);  // never written; the new last row takes its physical row
  grid.AddRow();
  EXPECT_TRUE(grid.CellValue(10000, 1).IsEmpty());
  EXPECT_EQ(grid.CellBackColor(10000, 1), -1);

  grid.ColDefaultCell(1)->SetoBackColor(0x00FF00);
  grid.RemoveRow(9000);  // the same with another default cell
  grid.AddRow();
  EXPECT_EQ(grid.CellBackColor(10000, 1), 0x00FF00);
  EXPECT_EQ(grid.CellBackColor(9500, 1), -1);
  EXPECT_EQ(grid.CellBackColor(2, 1), -1);
  grid.AddRow();
  EXPECT_EQ(grid.CellBackColor(10001, 1), 0x00FF00);
  EXPECT_EQ(grid.CellBackColor(9999, 1), -1);

  grid.SetCellValue(9999, 1, "x");
  EXPECT_EQ(grid.CellValue(9999, 1), Variant("x"));
  EXPECT_TRUE(grid.CellValue(9998, 1).IsEmpty());
  grid.RemoveRow(9999);  // written: its text goes, the new row starts from the default
  grid.AddRow();
  EXPECT_EQ(grid.CellBackColor(10001, 1), 0x00FF00);
  EXPECT_TRUE(grid.CellValue(10001, 1).IsEmpty());
  EXPECT_EQ(grid.CellValue(1, 1), Variant(1));
}

TEST(Cells, OutOfRangeValuesAndReferencesChangeNothing) {
  Quilta grid = Grid(1);
  ExpectError(514, [&] { grid.SetCellType(1, 1, static_cast<ECellTypes>(4)); });
  ExpectError(514, [&] { grid.SetCellHatch(1, 1, static_cast<EHatchStyles>(6)); });
  ExpectError(514, [&] { grid.SetCellTypeFlags(1, 1, static_cast<ECellTypeFlags>(8)); });
  ExpectError(513, [&] { grid.SetCellValue(2, 1, 5); });
  ExpectError(513, [&] { grid.CellValue(1, "zz"); });
  EXPECT_EQ(grid.CellType(1, 1), quCellText);
  EXPECT_EQ(grid.CellHatch(1, 1), quHatchNone);
}

TEST(Cells, ValuesSurviveSortingOfRowRecordsBecauseCellsNeverMove) {
  Quilta grid = Grid(3);
  grid.SetCellValue(1, "a", "x");
  grid.SetCellValue(3, "a", 3.5);
  grid.RemoveRow(2);
  EXPECT_EQ(grid.CellValue(2, "a"), Variant(3.5));
  grid.AddRow({.vRowBefore = 1});  // reuses the freed physical row with fresh cells
  EXPECT_TRUE(grid.CellValue(1, "a").IsEmpty());
  EXPECT_EQ(grid.CellValue(2, "a"), Variant("x"));
}

TEST(Cells, EffectiveColoursFallBackThroughTheChain) {
  Quilta grid = Grid(2);
  HeadlessPlatform& platform = static_cast<HeadlessPlatform&>(grid.GetPlatform());
  Color window = platform.SystemColor(5);
  EXPECT_EQ(grid.CellEffectiveBackColor(1, 1), window);  // never -1
  EXPECT_EQ(grid.CellEffectiveForeColor(1, 1), platform.SystemColor(8));
  grid.SetBackColorOddRows(0x0000AA);
  grid.SetBackColorEvenRows(0x00BB00);
  control::Internals(grid).RecalcRowsFrom(1);
  EXPECT_EQ(grid.CellEffectiveBackColor(1, 1), 0x0000AA);
  EXPECT_EQ(grid.CellEffectiveBackColor(2, 1), 0x00BB00);
  grid.SetCellBackColor(1, 1, 0xFF0000);
  EXPECT_EQ(grid.CellEffectiveBackColor(1, 1), 0xFF0000);
  grid.CellDefaultBackColor(1, 1);
  EXPECT_EQ(grid.CellEffectiveBackColor(1, 1), 0x0000AA);
  grid.SetCellForeColor(2, 2, static_cast<Color>(0x8000000Du));
  EXPECT_EQ(grid.CellEffectiveForeColor(2, 2), platform.SystemColor(13));
}

class Formatting : public QuiltaEvents {
 public:
  int calls = 0;
  void CellDynamicFormatting(int32_t lRow, int32_t, const Variant&, Color&, Color& oBackColor,
                             std::shared_ptr<Font>&) override {
    ++calls;
    if (lRow == 2) oBackColor = 0x0F0F0F;
  }
  void RowDynamicFormatting(int32_t, Color& oForeColor, Color&, std::shared_ptr<Font>&) override {
    ++calls;
    oForeColor = 0x111111;
  }
  void CellDynamicText(int32_t lRow, int32_t, const Variant&, std::string& sText) override {
    ++calls;
    if (lRow == 1) sText = "<" + sText + ">";
  }
};

TEST(Cells, DynamicEventsAreRaisedOnlyWhenChosen) {
  Quilta grid = Grid(2);
  Formatting host;
  grid.SetEventSink(&host);
  grid.SetCellValue(1, 1, Variant::Null());
  grid.CellEffectiveBackColor(2, 1);
  grid.CellText(1, 1);
  EXPECT_EQ(host.calls, 0);
  grid.SetDynamicContentEvents(static_cast<EDynamicContentEvents>(
      quDCEventCellDynamicFormatting | quDCEventRowDynamicFormatting | quDCEventCellDynamicText));
  EXPECT_EQ(grid.CellEffectiveBackColor(2, 1), 0x0F0F0F);
  EXPECT_EQ(grid.CellEffectiveForeColor(1, 1), 0x111111);
  EXPECT_EQ(grid.CellText(1, 1), "<>");  // Null still reaches the host
  ExpectError(514, [&] { grid.SetDynamicContentEvents(static_cast<EDynamicContentEvents>(16)); });
}

TEST(Cells, FontsAreSharedValues) {
  Quilta grid = Grid(3);
  EXPECT_EQ(grid.CellFont(1, 1)->name, grid.Font()->name);
  auto bold = MakeFont("Arial", 10, true);
  grid.SetColCellsProp(1, quPropCellFont, Variant::Object(bold));
  grid.SetCellFont(2, 2, MakeFont("Arial", 10, true));
  EXPECT_EQ(grid.Sys(quSysFontCount), 1);
  EXPECT_TRUE(grid.CellFont(3, 1)->bold);
  grid.CellDefaultFont(3, 1);
  EXPECT_FALSE(grid.CellFont(3, 1)->bold);
  grid.SetCellFont(1, 1, nullptr);
  EXPECT_EQ(grid.CellFont(1, 1)->name, grid.Font()->name);
}

TEST(Cells, SetColCellsPropCoversTheGivenRange) {
  Quilta grid = Grid(5);
  grid.SetColCellsProp("a", quPropCellExtraData, 7);
  for (int r = 1; r <= 5; ++r) EXPECT_EQ(grid.CellExtraData(r, "a"), 7);
  grid.SetColCellsProp("a", quPropCellExtraData, 9, 3);
  EXPECT_EQ(grid.CellExtraData(2, "a"), 7);
  EXPECT_EQ(grid.CellExtraData(5, "a"), 9);
  grid.SetColCellsProp("a", quPropCellValue, "v", 2, 3);
  EXPECT_EQ(grid.CellValue(3, "a"), Variant("v"));
  EXPECT_TRUE(grid.CellValue(4, "a").IsEmpty());
  EXPECT_EQ(grid.CellExtraData(1, "b"), 0);

  ExpectError(514, [&] { grid.SetColCellsProp("a", quPropCellExtraImageList, 16); });
  ExpectError(514, [&] { grid.SetColCellsProp("a", quPropCellSelected, true); });
  grid.SetMultiSelect(true);
  grid.SetColCellsProp("a", quPropCellSelected, true);
  EXPECT_TRUE(grid.CellSelected(4, "a"));
  ExpectError(513, [&] { grid.SetColCellsProp("a", quPropCellIcon, 1, 9); });
  EXPECT_EQ(grid.CellIcon(1, "a"), 0);
}

TEST(CellText, FormatStringsAreInternedOnceAndLimitedTo255) {
  Quilta grid = Grid(1000);
  for (int r = 1; r <= 1000; ++r) grid.SetCellFmtString(r, 1, r % 2 ? "0.00" : "0.000");
  EXPECT_EQ(grid.Sys(quSysFormatStringCount), 2);
  grid.SetCellValue(1, 1, 3.14159);
  EXPECT_EQ(grid.CellText(1, 1), "3.14");
  grid.SetCellFmtString(1, 1, "");
  EXPECT_EQ(grid.CellFmtString(1, 1), "");
  EXPECT_EQ(grid.CellText(1, 1), "3.14159");
  EXPECT_EQ(grid.Sys(quSysFormatStringCount), 2);  // entries are never dropped

  for (int i = 3; i <= 255; ++i) grid.SetCellFmtString(2, 2, "0" + std::string(i, '#'));
  EXPECT_EQ(grid.Sys(quSysFormatStringCount), 255);
  grid.SetCellFmtString(3, 2, "0.00");  // known strings still work
  ExpectError(516, [&] { grid.SetCellFmtString(3, 2, "new"); });
  EXPECT_EQ(grid.CellFmtString(3, 2), "0.00");
  ExpectError(516, [&] { grid.SetColCellsProp(2, quPropCellFmtString, "other"); });
}

TEST(CellText, DatesNullsAndCellTypes) {
  Quilta grid = Grid(3);
  grid.SetCellValue(1, 1, Variant::Date(36526.5));
  EXPECT_EQ(grid.CellText(1, 1), "1/1/2000 12:00:00 PM");
  grid.SetCellFmtString(1, 1, "yyyy-mm-dd");
  EXPECT_EQ(grid.CellText(1, 1), "2000-01-01");
  grid.SetCellValue(2, 1, Variant::Null());
  EXPECT_EQ(grid.CellText(2, 1), "");
  grid.SetCellValue(3, 1, "hidden");
  grid.SetCellType(3, 1, quCellCustomDraw);
  EXPECT_EQ(grid.CellText(3, 1), "");
}

TEST(CellText, ComboCellsShowTheTextOfTheItemWithTheirValue) {
  Quilta grid = Grid(2);
  ComboObject& status = grid.Combos().Add("status");
  status.AddItem("Open", 1);
  status.AddItem("Closed", 2);
  EXPECT_EQ(status.FindItemByText("closed"), 1);
  ExpectError(515, [&] { grid.Combos().Add("STATUS"); });
  grid.SetColCellsProp(1, quPropCellType, quCellCombo);
  grid.SetColCellsProp(1, quPropCellCtrlKey, "status");
  grid.SetCellValue(1, 1, 2.0);  // equal by value, not by type
  grid.SetCellFmtString(1, 1, "0.00");
  EXPECT_EQ(grid.CellText(1, 1), "Closed");
  EXPECT_EQ(grid.CellCtrlKey(1, 1), "status");
  grid.SetCellValue(2, 1, 3);
  EXPECT_EQ(grid.CellText(2, 1), "");
  grid.Combos().Remove("status");
  EXPECT_EQ(grid.CellText(1, 1), "");
}

TEST(ColumnDefaultCell, StaysUsableAfterItsColumnIsRemoved) {
  Quilta grid = Grid(1);
  std::shared_ptr<CellObject> cell = grid.ColDefaultCell("a");
  cell->SetsFmtString("0.0");
  grid.RemoveCol("a");
  cell->SetiIcon(4);
  cell->SetsFmtString("0.00");
  EXPECT_EQ(cell->iIcon(), 4);
  EXPECT_EQ(cell->sFmtString(), "0.00");
  EXPECT_EQ(grid.CellIcon(1, 1), 0);
  ExpectError(514, [&] { cell->SetbtImageList(16); });
  EXPECT_EQ(cell->btImageList(), 1);
}

}  // namespace
