// A host's event handler that throws in the middle of an operation: the exception reaches the
// caller unchanged, the grid stays consistent, and the operation either happened completely or
// not at all (Before-events and the events raised while rows are being compared: not at all;
// After-events: completely).
#include <gtest/gtest.h>

#include <functional>
#include <quilta/quilta.hpp>
#include <stdexcept>
#include <string>

#include "consistency_checker.hpp"
#include "control/internals_access.hpp"
#include "grid_snapshot.hpp"

namespace {

using namespace quilta;
using testkit::ConsistencyChecker;
using testkit::Describe;
using testkit::TakeSnapshot;

struct HostFailure : std::runtime_error {
  HostFailure() : std::runtime_error("the host's handler failed") {}
};

// Throws from the named event on its n-th raising (1 = the first).
class ThrowingSink : public QuiltaEvents {
 public:
  ThrowingSink(std::string event, int nth) : event_(std::move(event)), left_(nth) {}
  int raised = 0;

  void BeforeContentsSorted() override { Maybe("BeforeContentsSorted"); }
  void AfterContentsSorted() override { Maybe("AfterContentsSorted"); }
  void CustomSort(int32_t, int32_t, int32_t, const Variant& v1, const Variant& v2,
                  int32_t& r) override {
    Maybe("CustomSort");
    r = CLng(v1) < CLng(v2) ? -1 : CLng(v1) > CLng(v2) ? 1 : 0;
  }
  void BeforeRowCollapseExpand(int32_t, bool, bool&) override { Maybe("BeforeRowCollapseExpand"); }
  void AfterRowCollapseExpand(int32_t, bool) override { Maybe("AfterRowCollapseExpand"); }
  void QuitCustomEdit() override { Maybe("QuitCustomEdit"); }
  void RequestRow(int32_t, bool&) override { Maybe("RequestRow"); }
  void RequestRowData(int32_t) override { Maybe("RequestRowData"); }
  void CellDynamicFormatting(int32_t, int32_t, const Variant&, Color&, Color&,
                             std::shared_ptr<Font>&) override {
    Maybe("CellDynamicFormatting");
  }
  void RowDynamicFormatting(int32_t, Color&, Color&, std::shared_ptr<Font>&) override {
    Maybe("RowDynamicFormatting");
  }
  void CellDynamicIcons(int32_t, int32_t, const Variant& v, int16_t& icon, int16_t&) override {
    Maybe("CellDynamicIcons");
    icon = static_cast<int16_t>(CLng(v));
  }
  void CellDynamicText(int32_t, int32_t, const Variant&, std::string&) override {
    Maybe("CellDynamicText");
  }

 private:
  void Maybe(const std::string& event) {
    if (event != event_) return;
    ++raised;
    if (--left_ == 0) throw HostFailure();
  }
  std::string event_;
  int left_;
};

// Twelve rows with descending values in column 1, a two-level tree in rows 1-4.
void Fill(Quilta& grid) {
  grid.AddCol({.sKey = "v"});
  grid.AddCol({.sKey = "w"});
  for (int i = 0; i < 12; ++i) {
    grid.AddRow({.sKey = "r" + std::to_string(i)});
    grid.SetCellValue(i + 1, 1, 12 - i);
  }
  grid.SetRowLevel(2, 1);
  grid.SetRowLevel(3, 1);
  grid.SetRowLevel(4, 2);
}

void ExpectConsistent(Quilta& grid) {
  const auto problems = ConsistencyChecker::ForGrid().Run(grid);
  EXPECT_TRUE(problems.empty()) << Describe(problems);
}

struct Case {
  std::string event;
  int nth;
  std::function<void(Quilta&)> setUp;
  std::function<void(Quilta&)> call;
};

// The call raises the event, the handler throws: the same exception reaches the caller and the
// grid is exactly as it was.
void ExpectNothingHappened(const Case& c) {
  SCOPED_TRACE(c.event + " thrown on raising " + std::to_string(c.nth));
  Quilta grid;
  Fill(grid);
  if (c.setUp) c.setUp(grid);
  ThrowingSink sink(c.event, c.nth);
  grid.SetEventSink(&sink);
  const testkit::GridSnapshot before = TakeSnapshot(grid);
  const int32_t sortKey = grid.ColSortKey(1);
  const int32_t criteria = grid.SortObject().ColCount();
  EXPECT_THROW(c.call(grid), HostFailure);
  EXPECT_GE(sink.raised, c.nth);
  EXPECT_EQ(testkit::FirstDifference(before, TakeSnapshot(grid)), "");
  EXPECT_EQ(grid.ColSortKey(1), sortKey);
  EXPECT_EQ(grid.SortObject().ColCount(), criteria);
  ExpectConsistent(grid);
}

TEST(ThrowingHandlers, SortsRaisingEventsChangeNothingWhenAHandlerThrows) {
  const auto custom = [](Quilta& g) { g.SetColSortType(1, quSortCustom); };
  const auto icons = [](Quilta& g) {
    g.SetColSortType(1, quSortByIcon);
    g.SetDynamicContentEvents(quDCEventCellDynamicIcons);
  };
  const auto sortColumn1 = [](Quilta& g) { g.Sort(1); };
  const auto treeSort = [](Quilta& g) {
    g.SetTreeCol(1);
    g.Sort(1);
  };
  for (const Case& c : {
           Case{"BeforeContentsSorted", 1, nullptr, sortColumn1},
           Case{"CustomSort", 1, custom, sortColumn1},
           Case{"CustomSort", 7, custom, sortColumn1},
           Case{"CustomSort", 30, custom, sortColumn1},
           Case{"CustomSort", 3, custom, treeSort},
           Case{"CellDynamicIcons", 9, icons, sortColumn1},
           Case{"CustomSort", 5, custom, [](Quilta& g) { g.DoDefaultSort(1); }},
           Case{"CustomSort", 4,
                [&](Quilta& g) {
                  custom(g);
                  g.Sort(1);  // no handler yet: every pair compares equal, nothing moves
                },
                [](Quilta& g) { g.Sort(Variant::Missing(), 3, 10); }},
       })
    ExpectNothingHappened(c);
}

TEST(ThrowingHandlers, BeforeEventsAndEndingAnEditStopTheOperationBeforeItChangesAnything) {
  for (const Case& c : {
           Case{"BeforeRowCollapseExpand", 1, nullptr, [](Quilta& g) { g.CollapseAllRows(); }},
           Case{"BeforeRowCollapseExpand", 1, nullptr,
                [](Quilta& g) { g.CollapseAllChildRows(1); }},
           Case{"QuitCustomEdit", 1, nullptr, [](Quilta& g) { g.SetRowExpanded(1, false); }},
           Case{"QuitCustomEdit", 1, nullptr, [](Quilta& g) { g.SetRowHeight(5, 40); }},
           Case{"QuitCustomEdit", 1, nullptr, [](Quilta& g) { g.MoveRow(1, 8); }},
       })
    ExpectNothingHappened(c);
}

TEST(ThrowingHandlers, AfterEventsThrowOnceTheOperationIsComplete) {
  {
    Quilta grid;
    Fill(grid);
    ThrowingSink sink("AfterContentsSorted", 1);
    grid.SetEventSink(&sink);
    EXPECT_THROW(grid.Sort(1), HostFailure);
    EXPECT_EQ(grid.CellValue(1, 1), Variant(1));
    EXPECT_EQ(grid.ColSortKey(1), 1) << "the header's sort mark follows the completed sort";
    ExpectConsistent(grid);
  }
  {
    Quilta grid;
    Fill(grid);
    ThrowingSink sink("AfterRowCollapseExpand", 1);
    grid.SetEventSink(&sink);
    EXPECT_THROW(grid.CollapseAllRows(), HostFailure);
    EXPECT_FALSE(grid.RowVisibleAsChild(2));
    EXPECT_FALSE(grid.RowExpanded(1));
    ExpectConsistent(grid);
  }
}

TEST(ThrowingHandlers, VirtualModeKeepsTheRowsAddedBeforeTheHandlerThrew) {
  for (const std::string event : {"RequestRow", "RequestRowData"}) {
    SCOPED_TRACE(event);
    Quilta grid;
    Fill(grid);
    grid.SetVirtual(true);
    ThrowingSink sink(event, 3);
    grid.SetEventSink(&sink);
    EXPECT_THROW(control::Internals(grid).store.EnsureVirtualRows(20), HostFailure);
    // Two rows came in whole; the third was either never added or added without its data.
    EXPECT_EQ(grid.RowCount(), event == "RequestRow" ? 14 : 15);
    ExpectConsistent(grid);
    grid.SetEventSink(nullptr);
    const int32_t added = grid.AddRow();
    EXPECT_EQ(added, grid.RowCount());
    ExpectConsistent(grid);
  }
}

TEST(ThrowingHandlers, DynamicContentHandlersThrowToTheReaderAndChangeNothing) {
  for (const std::string event :
       {"CellDynamicFormatting", "RowDynamicFormatting", "CellDynamicText"}) {
    SCOPED_TRACE(event);
    Quilta grid;
    Fill(grid);
    grid.SetDynamicContentEvents(static_cast<EDynamicContentEvents>(
        quDCEventCellDynamicFormatting | quDCEventRowDynamicFormatting | quDCEventCellDynamicText));
    ThrowingSink sink(event, 1);
    grid.SetEventSink(&sink);
    const testkit::GridSnapshot before = TakeSnapshot(grid);
    EXPECT_THROW(
        {
          if (event == "CellDynamicText")
            (void)grid.CellText(2, 1);
          else
            (void)grid.CellEffectiveBackColor(2, 1);
        },
        HostFailure);
    EXPECT_EQ(testkit::FirstDifference(before, TakeSnapshot(grid)), "");
    ExpectConsistent(grid);
  }
}

}  // namespace
