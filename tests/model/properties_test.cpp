#include <set>

#include "model/test_support.hpp"

using namespace quilta;
using quilta::testing::ExpectError;

namespace {

class RecordingSite : public HostSite {
 public:
  std::vector<std::string> changed;
  void PropertyChanged(std::string_view name) override { changed.emplace_back(name); }
};

// A store that counts writes and can hold any value.
class RecordingBag : public MemoryPropertyBag {
 public:
  std::set<std::string> written;
  void WriteProperty(std::string_view name, const Variant& value,
                     const Variant& defaultValue) override {
    written.emplace(name);
    MemoryPropertyBag::WriteProperty(name, value, defaultValue);
  }
};

TEST(Errors, CarryNumberSourceAndFixedMessage) {
  Quilta grid;
  try {
    grid.RowTag(1);
    FAIL();
  } catch (const Error& e) {
    EXPECT_EQ(e.Code(), 513);
    EXPECT_EQ(e.Number(), -2147220991);
    EXPECT_EQ(e.Source(), "Quilta");
    EXPECT_EQ(e.Description(), "Subscript out of range.");
    EXPECT_STREQ(e.what(), "Subscript out of range.");
  }
  EXPECT_EQ(Error::FromCode(524).Number(), -2147220980);
  EXPECT_EQ(Error::FromCode(524).Description(), "Invalid hierarchy structure.");
  EXPECT_EQ(Error::FromCode(516).Description(), "Attempt to use more than 255 format strings.");
  EXPECT_EQ(Error::FromCode(517).Description(), "");
  EXPECT_EQ(Error::FromCode(527).Number(), -2147220977);
}

TEST(Properties, NewControlHasTheDocumentedDefaults) {
  Quilta grid;
  EXPECT_TRUE(grid.AllowGrouping());
  EXPECT_FALSE(grid.AllowGroupRowEditing());
  EXPECT_EQ(grid.AutoColHeaderTextTemplate(), "Col #");
  EXPECT_EQ(grid.BackColor(), static_cast<Color>(0x80000005u));
  EXPECT_EQ(grid.BackColorOddRows(), -1);
  EXPECT_EQ(grid.BorderType(), 3);
  EXPECT_EQ(grid.FocusRectNoFocusColor2(), static_cast<Color>(0x80000011u));
  EXPECT_EQ(grid.GridLines(), 3);
  EXPECT_EQ(grid.KeyPressBehaviour(), quKeyPressEditReplace);
  EXPECT_EQ(grid.LevelIndent(), 16);
  EXPECT_EQ(grid.MemMngWantFreeRows(), 100);
  EXPECT_EQ(grid.SelectionAlphaBlend(), 255);
  EXPECT_EQ(grid.ToolTipDelayTime(), -1);
  EXPECT_EQ(grid.ToolTipVisibleTime(), 20000);
  EXPECT_EQ(grid.TreeButtonSize(), 9);
  EXPECT_EQ(grid.TreeButtonForeColor(), static_cast<Color>(0x80000012u));
  EXPECT_TRUE(grid.UseXPStyles());
  EXPECT_FALSE(grid.Virtual());
  EXPECT_EQ(grid.Font()->name, "Segoe UI");
}

TEST(Properties, SettersNotifyTheHostByName) {
  Quilta grid;
  RecordingSite site;
  grid.SetHostSite(&site);
  grid.SetAllowSorting(false);
  grid.SetGridLineColor(0xFF);
  grid.SetMemMngWantFreeRows(5);
  grid.SetVirtual(true);
  grid.SetBeginUpdateRecalcRowParms(true);
  EXPECT_EQ(site.changed,
            (std::vector<std::string>{"AllowSorting", "GridLineColor", "MemMngWantFreeRows",
                                      "Virtual", "BeginUpdateRecalcRowParms"}));
}

TEST(Properties, RejectedValuesKeepTheOldValueAndNotifyNothing) {
  Quilta grid;
  RecordingSite site;
  grid.SetHostSite(&site);
  ExpectError(514, [&] { grid.SetFrozenColsEdgeWidth(0); });
  ExpectError(514, [&] { grid.SetGridLineThicknessH(0); });
  ExpectError(514, [&] { grid.SetLevelIndent(-1); });
  ExpectError(514, [&] { grid.SetFrozenCols(-1); });
  ExpectError(514, [&] { grid.SetTreeCol(-1); });
  ExpectError(514, [&] { grid.SetAutoWidthColMaxRows(-1); });
  ExpectError(514, [&] { grid.SetBorderType(static_cast<EBorderType>(9)); });
  ExpectError(514, [&] { grid.SetStoreInitRowNumbers(static_cast<EStoreInitRowNumbersPlace>(4)); });
  EXPECT_EQ(grid.FrozenColsEdgeWidth(), 2);
  EXPECT_EQ(grid.LevelIndent(), 16);
  EXPECT_TRUE(site.changed.empty());
  grid.SetFrozenCols(0);
  grid.SetLevelIndent(0);
  EXPECT_EQ(grid.LevelIndent(), 0);
}

TEST(Properties, FontIsAValue) {
  Quilta grid;
  auto font = MakeFont("Courier New", 11, true);
  grid.SetFont(font);
  font->name = "changed later";
  EXPECT_EQ(grid.Font()->name, "Courier New");
  EXPECT_TRUE(grid.Font()->bold);
}

TEST(Persistence, RestoringFromAnEmptyStoreGivesTheDefaults) {
  Quilta changed;
  changed.SetAllowSorting(false);
  changed.SetTreeButtonSize(13);
  changed.SetAutoColHeaderTextTemplate("C#");
  MemoryPropertyBag empty;
  changed.ReadProperties(empty);
  Quilta fresh;
  MemoryPropertyBag a, b;
  changed.WriteProperties(a);
  fresh.WriteProperties(b);
  EXPECT_EQ(a.Size(), 0u);
  EXPECT_EQ(b.Size(), 0u);
  EXPECT_TRUE(changed.AllowSorting());
  EXPECT_EQ(changed.TreeButtonSize(), 9);
}

TEST(Persistence, SaveWritesEveryKeyAndRestoreReadsItBack) {
  Quilta grid;
  grid.SetMultiSelect(true);
  grid.SetBackColorOddRows(0x00EEEEEE);
  grid.SetFont(MakeFont("Arial", 12));
  grid.SetStoreInitRowNumbers(quStoreInitRowNoInRowTag);
  grid.SetSelectionAlphaBlend(128);
  RecordingBag bag;
  grid.WriteProperties(bag);
  EXPECT_EQ(bag.written.size(), 83u);
  EXPECT_TRUE(bag.written.count("ToolTipVisibleTime"));
  EXPECT_TRUE(bag.written.count("GroupByBoxVisible"));
  EXPECT_TRUE(bag.written.count("GroupByBoxText"));
  EXPECT_TRUE(bag.Contains("MultiSelect"));
  EXPECT_FALSE(bag.Contains("AllowSorting"));

  Quilta loaded;
  RecordingSite site;
  loaded.SetHostSite(&site);
  loaded.ReadProperties(bag);
  EXPECT_TRUE(loaded.MultiSelect());
  EXPECT_EQ(loaded.BackColorOddRows(), 0x00EEEEEE);
  EXPECT_EQ(loaded.Font()->name, "Arial");
  EXPECT_EQ(loaded.StoreInitRowNumbers(), quStoreInitRowNoInRowTag);
  EXPECT_EQ(loaded.SelectionAlphaBlend(), 128);
  EXPECT_TRUE(site.changed.empty());  // loading is not a design change
}

TEST(Persistence, ABadStoredValueChangesNothing) {
  Quilta grid;
  MemoryPropertyBag bag;
  bag.Set("AllowSorting", false);
  bag.Set("MemMngWantFreeRows", -5);
  ExpectError(514, [&] { grid.ReadProperties(bag); });
  EXPECT_TRUE(grid.AllowSorting());
  EXPECT_EQ(grid.MemMngWantFreeRows(), 100);
  bag.Set("MemMngWantFreeRows", "lots");
  EXPECT_THROW(grid.ReadProperties(bag), Error);  // type mismatch from the conversion
  EXPECT_TRUE(grid.AllowSorting());
  bag.Set("MemMngWantFreeRows", "20");  // stores may hand back text
  grid.ReadProperties(bag);
  EXPECT_EQ(grid.MemMngWantFreeRows(), 20);
  EXPECT_FALSE(grid.AllowSorting());
}

}  // namespace
