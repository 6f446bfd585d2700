// The group-by band: headers dropped on it group, its boxes reorder, leave or reverse levels,
// every change announced and cancellable; the header and the cells move down below it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <quilta/quilta.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "consistency_checker.hpp"
#include "grid_snapshot.hpp"
#include "header_test_support.hpp"

namespace quilta::testing {
namespace {

struct BandEvents : QuiltaEvents {
  std::vector<std::string> log;
  bool cancel = false;
  bool throwBefore = false;
  std::function<void()> duringBefore;
  static std::string N(int32_t v) { return std::to_string(v); }
  void BeforeGroupByChange(int32_t lCol, int32_t lNewLevel, bool& bCancel) override {
    log.push_back("before " + N(lCol) + " to " + N(lNewLevel));
    if (throwBefore) throw std::runtime_error("host refuses");
    if (duringBefore) duringBefore();
    bCancel = cancel;
  }
  void AfterGroupByChange(int32_t lCol, int32_t lNewLevel, int32_t lOldLevel) override {
    log.push_back("after " + N(lCol) + " " + N(lOldLevel) + "->" + N(lNewLevel));
  }
  void BeforeColMove(int32_t lCol, int32_t, bool&) override { log.push_back("move " + N(lCol)); }
};

// Columns Region (x 0-100), Kind (100-180) and Qty (180-300); the header is 21 px high and the
// band, while at most one level is grouped, 33 px (a 21 px box and a 6 px margin around it).
struct GroupByBand : ::testing::Test {
  static constexpr int32_t kBand = 33;
  HeadlessPlatform platform;
  Quilta grid{platform};
  BandEvents events;

  GroupByBand() {
    platform.SetClientSize({600, 300});
    grid.AddCol({.sKey = "region", .sHeader = "Region", .lWidth = 100});
    grid.AddCol({.sKey = "kind", .sHeader = "Kind", .lWidth = 80});
    grid.AddCol({.sKey = "qty", .sHeader = "Qty", .lWidth = 120});
    const char* rows[][2] = {{"North", "b"}, {"South", "a"}, {"North", "a"}, {"South", "b"}};
    for (const auto& r : rows) {
      const int32_t row = grid.AddRow();
      grid.SetCellValue(row, "region", r[0]);
      grid.SetCellValue(row, "kind", r[1]);
      grid.SetCellValue(row, "qty", row);
    }
    grid.SetGroupByBoxVisible(true);
    grid.SetEventSink(&events);
  }

  int32_t CellsTop() {
    int32_t left = 0, top = 0, width = 0, height = 0;
    grid.CellBoundary(1, 1, left, top, width, height);
    return top;
  }
  int32_t BandHeight() { return CellsTop() - grid.Header().Height(); }
  int32_t HeaderY() { return BandHeight() + 10; }
  RecordingPainter PaintBand() {
    const Rect band{0, 0, 600, BandHeight()};
    RecordingPainter p(band);
    grid.Paint(p, band);
    return p;
  }
  // The middle of the band's box for a column header text.
  Point Box(std::string_view text) {
    const RecordingPainter p = PaintBand();
    const PaintCall* call = p.TextCall(text);
    if (!call) {
      ADD_FAILURE() << "no box " << text;
      return {};
    }
    return {call->rect.left + 4, (call->rect.top + call->rect.bottom) / 2};
  }
  void Gesture(Point from, Point to) {
    grid.HostMouseDown(1, 0, from.x, from.y);
    for (int32_t i = 1; i <= 4; ++i)
      grid.HostMouseMove(1, 0, from.x + (to.x - from.x) * i / 4, from.y + (to.y - from.y) * i / 4);
    grid.HostMouseUp(1, 0, to.x, to.y);
  }
  void DropHeader(int32_t headerX, Point to) { Gesture({headerX, HeaderY()}, to); }
  std::vector<std::string> Levels() {
    std::vector<std::string> out;
    const SortGroupObject& by = grid.GroupedBy();
    for (int32_t i = 1; i <= by.ColCount(); ++i)
      out.push_back(grid.ColKey(by.SortCol(i)) + (by.SortOrder(i) == quSortDesc ? " desc" : ""));
    return out;
  }
  std::vector<std::string> GroupTexts() {
    std::vector<std::string> out;
    for (int32_t r = 1; r <= grid.RowCount(); ++r)
      if (grid.RowIsGroupRow(r)) out.push_back(grid.GroupRowText(r));
    return out;
  }
  void ExpectConsistent() {
    const auto problems = testkit::ConsistencyChecker::ForGrid().Run(grid);
    EXPECT_TRUE(problems.empty()) << testkit::Describe(problems);
  }
};

using Strings = std::vector<std::string>;

TEST_F(GroupByBand, MovesTheHeaderAndTheCellsDownAndGrowsWithTheLevels) {
  grid.SetGroupByBoxVisible(false);
  const int32_t plainTop = CellsTop();
  grid.SetGroupByBoxVisible(true);
  EXPECT_EQ(CellsTop(), plainTop + kBand);

  int32_t row = 0, col = 0;
  grid.CellFromPoint(150, CellsTop() + 2, row, col);
  EXPECT_EQ(row, 1);
  EXPECT_EQ(col, 2);
  grid.CellFromPoint(150, 5, row, col);  // on the band
  EXPECT_EQ(row, 0);
  EXPECT_EQ(grid.HitTest(150, 5), quCellPartNone);
  EXPECT_EQ(grid.HitTest(110, CellsTop() + 5), quCellPartText);

  grid.Group("region");
  grid.GroupObject().AddItem("kind");
  grid.Group();
  EXPECT_EQ(BandHeight(), kBand + 10);  // the second level's box sits half a box lower

  // Scrolling into view keeps the band out of the count: the last row ends inside the client.
  platform.SetClientSize({600, 120});
  grid.HostResize();
  grid.EnsureVisibleRow(grid.RowCount());
  int32_t left = 0, top = 0, width = 0, height = 0;
  grid.CellBoundary(grid.RowCount(), 1, left, top, width, height);
  EXPECT_GE(top, BandHeight() + grid.Header().Height());
  EXPECT_LE(top + height, 120);
}

TEST_F(GroupByBand, ShowsThePromptUntilAColumnIsGroupedAndKeepsItsProperties) {
  EXPECT_EQ(PaintBand().Texts(), Strings{"Drag a column header here to group by that column"});
  grid.SetGroupByBoxText("Group here");
  EXPECT_EQ(PaintBand().Texts(), Strings{"Group here"});

  MemoryPropertyBag bag;
  grid.WriteProperties(bag);
  Quilta copy;
  copy.ReadProperties(bag);
  EXPECT_TRUE(copy.GroupByBoxVisible());
  EXPECT_EQ(copy.GroupByBoxText(), "Group here");
  EXPECT_FALSE(Quilta().GroupByBoxVisible());
}

TEST_F(GroupByBand, HeadersDroppedOnTheBandGroupAtTheDropPosition) {
  DropHeader(140, {20, 15});  // Kind
  EXPECT_EQ(Levels(), Strings{"kind"});
  EXPECT_EQ(GroupTexts(), (Strings{"Kind: a (2)", "Kind: b (2)"}));
  EXPECT_EQ(events.log, (Strings{"before 2 to 1", "after 2 0->1"}));
  EXPECT_EQ(grid.ColFromPos(2), 2);  // grouping does not move the column

  // Region dropped left of the Kind box becomes the outer level.
  const Point kind = Box("Kind");
  events.log.clear();
  DropHeader(50, {kind.x - 8, kind.y});
  EXPECT_EQ(Levels(), (Strings{"region", "kind"}));
  EXPECT_EQ(events.log, (Strings{"before 1 to 1", "after 1 0->1"}));
  EXPECT_EQ(GroupTexts(), (Strings{"Region: North (2)", "Kind: a (1)", "Kind: b (1)",
                                   "Region: South (2)", "Kind: a (1)", "Kind: b (1)"}));
  // Qty dropped right of everything becomes the innermost level.
  DropHeader(250, {590, 20});
  EXPECT_EQ(Levels(), (Strings{"region", "kind", "qty"}));
  ExpectConsistent();
}

TEST_F(GroupByBand, BoxesReorderLeaveAndReverseLevels) {
  grid.Group("region");
  grid.GroupObject().AddItem("kind");
  grid.Group();
  const Point region = Box("Region");
  const Point kind = Box("Kind");
  Gesture(region, {kind.x + 60, kind.y});
  EXPECT_EQ(Levels(), (Strings{"kind", "region"}));
  EXPECT_EQ(events.log, (Strings{"before 1 to 2", "after 1 1->2"}));
  EXPECT_EQ(GroupTexts().front(), "Kind: a (2)");

  // A click reverses the level's order, as the grouped column's header does.
  events.log.clear();
  const Point first = Box("Kind");
  grid.HostMouseDown(1, 0, first.x, first.y);
  grid.HostMouseUp(1, 0, first.x, first.y);
  EXPECT_EQ(Levels(), (Strings{"kind desc", "region"}));
  EXPECT_EQ(events.log, (Strings{"before 2 to 1", "after 2 1->1"}));
  EXPECT_EQ(GroupTexts().front(), "Kind: b (2)");

  // Dragged out (onto the cells) a level goes; the last one out ungroups.
  events.log.clear();
  Gesture(Box("Kind"), {150, 200});
  EXPECT_EQ(Levels(), Strings{"region"});
  Gesture(Box("Region"), {700, 5});  // away, past the control's edge
  EXPECT_EQ(Levels(), Strings{});
  EXPECT_EQ(events.log,
            (Strings{"before 2 to 0", "after 2 1->0", "before 1 to 0", "after 1 1->0"}));
  EXPECT_EQ(grid.RowCount(), 4);
  for (int32_t r = 1; r <= 4; ++r) EXPECT_EQ(grid.RowLevel(r), 0);
  EXPECT_EQ(PaintBand().Texts().size(), 1u);  // the prompt again
  ExpectConsistent();
}

TEST_F(GroupByBand, TheHostCanCancelAndAllowGroupingOffRefusesEveryChange) {
  events.cancel = true;
  DropHeader(140, {20, 15});
  EXPECT_EQ(Levels(), Strings{});
  EXPECT_EQ(events.log, Strings{"before 2 to 1"});

  events.cancel = false;
  grid.Group("region");
  events.log.clear();
  grid.SetAllowGrouping(false);
  DropHeader(140, {150, 15});
  const Point region = Box("Region");
  grid.HostMouseDown(1, 0, region.x, region.y);
  grid.HostMouseUp(1, 0, region.x, region.y);
  Gesture(region, {150, 200});
  EXPECT_EQ(Levels(), Strings{"region"});
  EXPECT_EQ(events.log, Strings{});  // no group change and no column move either
  EXPECT_EQ(grid.ColFromPos(2), 2);

  // A host that regroups from the Before event keeps its own grouping.
  grid.SetAllowGrouping(true);
  events.duringBefore = [&] { grid.Group("qty"); };
  DropHeader(140, {150, 15});
  EXPECT_EQ(Levels(), Strings{"qty"});
  EXPECT_EQ(events.log, Strings{"before 2 to 2"});
}

TEST_F(GroupByBand, AThrowingBeforeHandlerLeavesTheGridAsItWas) {
  grid.Group("region");
  const testkit::GridSnapshot before = testkit::TakeSnapshot(grid);
  events.throwBefore = true;
  EXPECT_THROW(DropHeader(140, {150, 15}), std::runtime_error);
  EXPECT_EQ(testkit::FirstDifference(before, testkit::TakeSnapshot(grid)), "");
  EXPECT_THROW(Gesture(Box("Region"), {150, 200}), std::runtime_error);
  EXPECT_EQ(testkit::FirstDifference(before, testkit::TakeSnapshot(grid)), "");
  ExpectConsistent();

  // No drag is left behind: the next gesture works.
  events.throwBefore = false;
  DropHeader(140, {150, 15});
  EXPECT_EQ(Levels(), (Strings{"region", "kind"}));
}

TEST_F(GroupByBand, HeaderDragsStillMoveColumnsAndReachTheBandWithColumnMovingOff) {
  Gesture({50, HeaderY()}, {240, HeaderY()});
  EXPECT_EQ(grid.ColFromPos(1), 2);
  EXPECT_EQ(grid.ColFromPos(3), 1);
  EXPECT_EQ(Levels(), Strings{});

  // With column moving off a header still goes to the band, but nowhere else.
  grid.Header().SetAllowColMoving(false);
  Gesture({150, HeaderY()}, {20, HeaderY()});
  EXPECT_EQ(grid.ColFromPos(1), 2);
  DropHeader(250, {20, 15});
  EXPECT_EQ(Levels(), Strings{"region"});
  EXPECT_EQ(grid.ColFromPos(1), 2);
}

// Writes pictures of the band to look at: QUILTA_HEADER_PICTURES=<folder>.
TEST_F(GroupByBand, Pictures) {
  const char* folder = std::getenv("QUILTA_HEADER_PICTURES");
  if (!folder) GTEST_SKIP() << "set QUILTA_HEADER_PICTURES to write pictures";
  auto write = [&](const std::string& name) {
    const Rect all{0, 0, 600, 300};
    RecordingPainter p(all);
    grid.Paint(p, all);
    WritePicture(p, {600, 300}, std::string(folder) + "/" + name);
  };
  write("group_by_prompt.png");
  grid.Group("region");
  grid.GroupObject().AddItem("kind", quSortDesc);
  grid.Group();
  write("group_by_two_levels.png");
  grid.HostMouseDown(1, 0, 250, HeaderY());
  grid.HostMouseMove(1, 0, 260, HeaderY() - 20);
  grid.HostMouseMove(1, 0, 400, 20);
  write("group_by_dropping.png");
  grid.HostMouseUp(1, 0, 400, 20);
}

}  // namespace
}  // namespace quilta::testing
