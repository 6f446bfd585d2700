// The view: layout pass, scroll ranges, rows meeting a band, cell part placement.
#include <gtest/gtest.h>

#include "layout/cell_parts.hpp"
#include "layout/geometry_test_support.hpp"

namespace quilta::testing {
namespace {

TEST(View, ScrollBarsAppearOnlyWhereTheContentIsLarger) {
  GeometryFixture f;
  f.platform.SetClientSize({300, 200});
  for (int i = 0; i < 3; ++i) f.grid.AddCol({.lWidth = 80});
  f.grid.AddRow({.lCount = 5});  // 5 x 18 = 90: fits
  auto& c = f.Internals();
  c.EnsureLayout();
  EXPECT_FALSE(c.view.Scroll(quScrollBarV).visible);
  EXPECT_FALSE(c.view.Scroll(quScrollBarH).visible);
  f.grid.AddRow({.lCount = 20});  // 450 high: a vertical bar, which leaves 283 for 240 of columns
  c.EnsureLayout();
  const int32_t hdr = c.view.HeaderOffset();
  EXPECT_TRUE(c.view.Scroll(quScrollBarV).visible);
  EXPECT_FALSE(c.view.Scroll(quScrollBarH).visible);
  EXPECT_EQ(c.view.ViewHeight(), 200 - hdr);
  EXPECT_EQ(c.view.Scroll(quScrollBarV).maxPos, 450 - (200 - hdr));
  EXPECT_EQ(f.platform.ScrollBar(quScrollBarV).page, 200 - hdr);
  f.grid.AddCol({.lWidth = 60});  // 300 wide no longer fits beside the vertical bar
  c.EnsureLayout();
  EXPECT_TRUE(c.view.Scroll(quScrollBarH).visible);
  EXPECT_EQ(c.view.ViewWidth(), 300 - 17);
  EXPECT_EQ(c.view.ViewHeight(), 200 - hdr - 17);
}

TEST(View, RowsMeetingABandSkipCollapsedRowsWithoutWalkingThem) {
  GeometryFixture f;
  f.platform.SetClientSize({300, 80});
  f.grid.AddCol();
  f.grid.AddRow({.lCount = 4});
  f.grid.AddRow({.btLevel = 1, .lCount = 1000});  // children of row 4
  f.grid.AddRow({.lCount = 3});
  f.grid.SetRowExpanded(4, false);
  auto& c = f.Internals();
  c.EnsureLayout();
  const auto& rows = c.store.Rows();
  const int32_t hdr = c.view.HeaderOffset();
  layout::RowRange r = layout::RowsMeeting(c.view, rows, hdr, hdr + 18 * 5);
  EXPECT_EQ(r.first, 1);
  EXPECT_EQ(r.last, 1005);  // row 4 then, past its hidden children, row 1005
  EXPECT_EQ(layout::NextShownRow(rows, 4), 1005);
  EXPECT_EQ(layout::NextShownRow(rows, 1007), 0);
  EXPECT_EQ(c.view.RowAtY(rows, hdr + 18 * 4 + 3), 1005);
  EXPECT_EQ(c.view.RowAtY(rows, hdr + 18 * 7), 0);  // below the last row
  EXPECT_EQ(hdr, 21);  // one 15-pixel line of Segoe UI 9 and a margin of 3 above and below
  c.ScrollTo(quScrollBarV, 18);
  EXPECT_EQ(c.view.RowAtY(rows, hdr), 2);
}

TEST(CellParts, PartsAreCarvedFromTheCellInOneOrderAndWidthIsTheInverse) {
  layout::CellPartsInput in;
  in.cell = {100, 20, 300, 38};
  in.treeSlots = 2;
  in.levelIndent = 16;
  in.treeButton = true;
  in.treeButtonSize = 9;
  in.comboButtonWidth = 17;
  in.indentLeft = in.indentRight = 1;
  in.checkBox = {13, 13};
  in.checkGap = 2;
  in.icon = {16, 16};
  in.extraIcon = {8, 8};
  in.iconGap = 2;
  const layout::CellParts p = layout::LayoutCellParts(in);
  EXPECT_EQ(p.treeButton, (Rect{119, 24, 128, 33}));  // centred in the second indent slot
  EXPECT_EQ(p.comboButton, (Rect{283, 20, 300, 38}));
  EXPECT_EQ(p.checkBox, (Rect{135, 20, 148, 33}));  // after tree, indent 1 and gap 2
  EXPECT_EQ(p.icon, (Rect{150, 20, 166, 36}));
  EXPECT_EQ(p.extraIcon, (Rect{168, 20, 176, 28}));
  EXPECT_EQ(p.text, (Rect{178, 20, 282, 38}));
  // The width that shows a text of exactly the text rectangle's width is the cell's width.
  EXPECT_EQ(layout::CellWidthForText(in, p.text.Width()), in.cell.Width());

  in.iconToText = quCellIconToTextRight;
  in.checkPos = quCheckPosRight;
  const layout::CellParts r = layout::LayoutCellParts(in);
  EXPECT_EQ(r.checkBox.right, 282 - 2);
  EXPECT_EQ(r.icon.right, r.checkBox.left - 2);
  EXPECT_EQ(r.extraIcon.right, r.icon.left - 2);
  EXPECT_EQ(r.text, (Rect{133, 20, r.extraIcon.left - 2, 38}));
  EXPECT_EQ(layout::CellWidthForText(in, r.text.Width()), in.cell.Width());
}

}  // namespace
}  // namespace quilta::testing

namespace quilta::testing {
namespace {

TEST(CellParts, TheGridGathersTreeComboCheckAndIconsForACell) {
  GeometryFixture f;
  f.grid.AddCol({.lWidth = 200});
  f.grid.AddRow({.eTreeButton = quRowTreeButtonVisible});
  f.grid.AddRow({.btLevel = 1});
  f.grid.SetTreeCol(1);
  auto list = std::make_shared<HeadlessImageList>(Size{16, 16}, 3);
  f.grid.SetImageList(1, Variant::Object(std::static_pointer_cast<ImageList>(list)));
  f.grid.SetCellIcon(2, 1, 2);
  f.grid.SetCellIcon(1, 1, 7);  // past the list's end: no icon
  f.grid.SetCellCheckVisible(2, 1, true);
  f.grid.SetCellType(2, 1, quCellCombo);
  auto& c = f.Internals();
  c.EnsureLayout();
  const layout::CellPartsInput root = c.CellPartsFor(1, 1, c.CellRect(1, 1), false);
  EXPECT_EQ(root.treeSlots, 1);  // root lines on: a slot for the root's button
  EXPECT_TRUE(root.treeButton);
  EXPECT_EQ(root.icon, (Size{}));
  const layout::CellPartsInput child = c.CellPartsFor(2, 1, c.CellRect(2, 1), false);
  EXPECT_EQ(child.treeSlots, 2);
  EXPECT_FALSE(child.treeButton);
  EXPECT_EQ(child.icon, (Size{16, 16}));
  EXPECT_EQ(child.checkBox, (Size{13, 13}));
  EXPECT_EQ(child.comboButtonWidth, 0);  // shown only in the current cell
  f.grid.SetShowControlsInAllCells(true);
  EXPECT_EQ(c.CellPartsFor(2, 1, c.CellRect(2, 1), false).comboButtonWidth, 17);

  ExpectError(518, [&] { f.grid.SetImageList(2, 5); });
  ExpectError(514, [&] { f.grid.SetImageList(16, Variant()); });
  f.grid.SetImageList(1, Variant());
  EXPECT_TRUE(f.grid.ImageList(1).IsEmpty());
}

}  // namespace
}  // namespace quilta::testing
