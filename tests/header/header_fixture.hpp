// A grid with three columns and a few rows on the headless platform, an event sink that logs
// the header events, and the mouse gestures a user makes on the header.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "header_test_support.hpp"

namespace quilta::testing {

struct HeaderEvents : QuiltaEvents {
  std::vector<std::string> log;
  bool declineSort = false;
  bool declinePress = false;
  bool refuseSizing = false;
  bool refuseDrag = false;
  bool refuseMove = false;
  bool declineAutoSize = false;
  int32_t widthOverride = -1;

  void Log(std::string s) { log.push_back(std::move(s)); }
  static std::string N(int32_t v) { return std::to_string(v); }
  void ColHeaderClick(int32_t lCol, int16_t Shift, bool& bDoDefault) override {
    Log("click " + N(lCol) + " " + N(Shift));
    if (declineSort) bDoDefault = false;
  }
  void ColHeaderDblClick(int32_t lCol, int16_t) override { Log("dblclick " + N(lCol)); }
  void ColHeaderMouseDown(int32_t lCol, int16_t Button, int16_t, int32_t x, int32_t,
                          bool& bDoDefault) override {
    Log("down " + N(lCol) + " " + N(Button) + " at " + N(x));
    if (declinePress) bDoDefault = false;
  }
  void ColHeaderMouseUp(int32_t lCol, int16_t Button, int16_t, int32_t, int32_t) override {
    Log("up " + N(lCol) + " " + N(Button));
  }
  void ColHeaderMouseEnter(int32_t lCol) override { Log("enter " + N(lCol)); }
  void ColHeaderMouseLeave(int32_t lCol) override { Log("leave " + N(lCol)); }
  void ColDividerDblClick(int32_t lCol, bool& bDoDefault) override {
    Log("divider " + N(lCol));
    if (declineAutoSize) bDoDefault = false;
  }
  void ColWidthStartChange(int32_t lCol, bool& bCancel) override {
    Log("width start " + N(lCol));
    bCancel = refuseSizing;
  }
  void ColWidthChanging(int32_t lCol, int32_t& lNewWidth) override {
    Log("width " + N(lCol) + " " + N(lNewWidth));
    if (widthOverride >= 0) lNewWidth = widthOverride;
  }
  void ColWidthEndChange(int32_t lCol, int32_t lWidth) override {
    Log("width end " + N(lCol) + " " + N(lWidth));
  }
  void ColHeaderStartDrag(int32_t lCol, bool& bCancel) override {
    Log("drag " + N(lCol));
    bCancel = refuseDrag;
  }
  void BeforeColMove(int32_t lCol, int32_t lNewColPos, bool& bCancel) override {
    Log("before move " + N(lCol) + " to " + N(lNewColPos));
    bCancel = refuseMove;
  }
  void AfterColMove(int32_t lCol, int32_t lNewColPos, int32_t lOldColPos) override {
    Log("after move " + N(lCol) + " " + N(lOldColPos) + "->" + N(lNewColPos));
  }
  // Only the events whose text starts with one of the prefixes.
  std::vector<std::string> Only(std::initializer_list<std::string> prefixes) const {
    std::vector<std::string> out;
    for (const std::string& e : log)
      for (const std::string& p : prefixes)
        if (e.rfind(p, 0) == 0) {
          out.push_back(e);
          break;
        }
    return out;
  }
};

struct HeaderFixture : ::testing::Test {
  // Header 21 px high (one 15 px line and 3 px above and below); columns at x 0, 100 and 180.
  static constexpr int32_t kY = 10;
  HeadlessPlatform platform;
  Quilta grid{platform};
  HeaderEvents events;

  HeaderFixture() {
    grid.AddCol({.sKey = "a", .sHeader = "Alpha", .lWidth = 100});
    grid.AddCol({.sKey = "b", .sHeader = "Beta", .lWidth = 80});
    grid.AddCol({.sKey = "c", .sHeader = "Gamma", .lWidth = 120});
    const int32_t values[][3] = {{3, 1, 2}, {1, 2, 2}, {2, 3, 1}, {1, 1, 1}};
    for (const auto& v : values) {
      const int32_t row = grid.AddRow();
      for (int32_t col = 1; col <= 3; ++col) grid.SetCellValue(row, col, v[col - 1]);
    }
    grid.SetEventSink(&events);
  }

  void Click(int32_t x, int16_t shift = 0) {
    grid.HostMouseDown(1, shift, x, kY);
    grid.HostMouseUp(1, shift, x, kY);
  }
  void Drag(int32_t from, int32_t to, int16_t button = 1) {
    grid.HostMouseDown(button, 0, from, kY);
    const int32_t step = from < to ? 3 : -3;
    for (int32_t x = from; (step > 0 ? x < to : x > to); x += step)
      grid.HostMouseMove(button, 0, x, kY);
    grid.HostMouseMove(button, 0, to, kY);
    grid.HostMouseUp(button, 0, to, kY);
  }
  std::vector<int32_t> ColumnOrder() {
    std::vector<int32_t> order;
    for (int32_t p = 1; p <= grid.ColCount(); ++p) order.push_back(grid.ColFromPos(p));
    return order;
  }
  std::vector<int32_t> FirstColumnValues() {
    std::vector<int32_t> values;
    for (int32_t r = 1; r <= grid.RowCount(); ++r) values.push_back(CLng(grid.CellValue(r, 1)));
    return values;
  }
  control::Control& Internals() { return control::Internals(grid); }
};

}  // namespace quilta::testing
