// A grid on the headless platform with a few helpers to paint it and find what was drawn.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <quilta/platform/headless.hpp>
#include <quilta/platform/recording_painter.hpp>
#include <quilta/quilta.hpp>
#include <string>

#include "control/internals_access.hpp"

namespace quilta::test {

constexpr Color kWhite = 0xFFFFFF;   // system colour 5, the window background
constexpr Color kBlack = 0x000000;   // system colour 8, the window text
constexpr Color kFace = 0xC8D0D4;    // system colour 15, button face: the grid line colour
constexpr Color kShadow = 0x808080;  // system colour 16
constexpr Color kHighlight = 0x6A240A;

class RenderTest : public ::testing::Test {
 protected:
  HeadlessPlatform platform;
  Quilta grid{platform};

  // cols columns of width 80 and rows rows of the default height (18), with texts "rXcY".
  void Fill(int32_t rows, int32_t cols) {
    for (int32_t c = 1; c <= cols; ++c)
      grid.AddCol({.sKey = "c" + std::to_string(c), .lWidth = 80});
    if (rows > 0) grid.AddRow({.lCount = rows});
    for (int32_t r = 1; r <= std::min(rows, 200); ++r)
      for (int32_t c = 1; c <= cols; ++c)
        grid.SetCellValue(r, c, "r" + std::to_string(r) + "c" + std::to_string(c));
  }

  // Paints the cells area (the header strip has tests of its own).
  RecordingPainter Paint() {
    const Size client = platform.ClientSize();
    const int32_t header = grid.Header().Visible() ? grid.Header().Height() : 0;
    const Rect all{0, header, client.cx, client.cy};
    RecordingPainter painter(all);
    grid.Paint(painter, all);
    return painter;
  }

  Rect CellRect(int32_t row, int32_t col) {
    control::Control& c = control::Internals(grid);
    c.EnsureLayout();
    return c.CellRect(row, col);
  }

  void SetCurrentCell(int32_t row, int32_t col) {
    control::Internals(grid).SetCurrentCell(row, col);
  }

  static const PaintOp* Text(const RecordingPainter& p, std::string_view text) {
    for (const PaintOp& op : p.Ops())
      if (op.kind == PaintOpKind::DrawText && op.text == text) return &op;
    return nullptr;
  }
  // The first op of a kind covering exactly a rectangle, or nullptr.
  static const PaintOp* At(const RecordingPainter& p, PaintOpKind kind, const Rect& r) {
    for (const PaintOp& op : p.Ops())
      if (op.kind == kind && op.rect == r) return &op;
    return nullptr;
  }
  static size_t Index(const RecordingPainter& p, const PaintOp* op) {
    return static_cast<size_t>(op - p.Ops().data());
  }
  // Lines (of any thickness) starting at a point.
  static const PaintOp* LineFrom(const RecordingPainter& p, Point from) {
    for (const PaintOp& op : p.Ops())
      if ((op.kind == PaintOpKind::Line || op.kind == PaintOpKind::DottedLine) && op.from == from)
        return &op;
    return nullptr;
  }
};

}  // namespace quilta::test
