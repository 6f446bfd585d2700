// Randomized runs: after every call, the selected bits of the cells and the list of selected
// items must describe the same cells, and the current cell must lie inside the grid.
#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>

#include "interaction_support.hpp"

namespace quilta::testing {
namespace {

void ExpectConsistent(const Quilta& g, std::string step) {
  std::set<std::pair<int32_t, int32_t>> bits, listed;
  for (int32_t r = 1; r <= g.RowCount(); ++r)
    for (int32_t c = 1; c <= g.RowTextCol(); ++c)
      if (g.CellSelected(r, c)) bits.insert({r, c});
  // In row mode a row is listed, as (row, 1), exactly when cells of it are selected.
  if (g.RowMode()) {
    std::set<std::pair<int32_t, int32_t>> rows;
    for (auto [r, c] : bits) rows.insert({r, 1});
    bits = rows;
  }
  for (const TSelItemInfo& item : g.SelItems().GetArray()) listed.insert({item.Row, item.Col});
  ASSERT_EQ(bits, listed) << "after step " << step;
  ASSERT_EQ(static_cast<size_t>(g.SelItems().Count()), listed.size()) << "after step " << step;
  ASSERT_TRUE(g.MultiSelect() || listed.size() <= 1) << "after step " << step;
  ASSERT_LE(g.CurRow(), g.RowCount()) << "after step " << step;
  ASSERT_LE(g.CurCol(), g.RowTextCol()) << "after step " << step;
}

// Runs one random call; returns which kind of call it was.
template <class Pick>
int Step(Quilta& g, Pick& pick, int32_t rows, int32_t cols, bool multiSelect,
         const int16_t (&keys)[14]) {
  int kind = pick(0, 12);
  switch (kind) {
    case 0:
    case 1:
    case 2:
      g.DoKeyboardCommand(keys[pick(0, 13)], static_cast<int16_t>(pick(0, 3)));
      break;
    case 3:
      if (rows && cols) g.SetCellSelected(pick(1, rows), pick(1, cols), pick(0, 1));
      break;
    case 4:
      if (rows && cols) g.SetCurCell(pick(1, rows), pick(1, cols));
      break;
    case 5:
      g.AddRow({.vRowBefore = rows ? Variant(pick(1, rows)) : Variant::Missing(),
                .bGroupRow = pick(0, 4) == 0,
                .lCount = pick(1, 3)});
      break;
    case 6:
      if (rows > 1) g.RemoveRow(pick(1, rows), 1);
      break;
    case 7:
      if (rows > 2) g.MoveRow(pick(1, rows), pick(1, rows), 1);
      break;
    case 8:
      if (rows && cols) g.Sort(pick(1, cols));
      break;
    case 9:
      if (cols < 8) g.AddCol({.vColBefore = cols ? Variant(pick(1, cols)) : Variant::Missing()});
      if (cols > 2 && pick(0, 1)) g.RemoveCol(pick(1, cols));
      break;
    case 10:
      if (multiSelect) {
        pick(0, 1) ? g.InvertSelection() : g.SelectAll();
      } else {
        g.ClearSelection();
      }
      break;
    case 11:
      if (rows && cols) g.SetCellSelectable(pick(1, rows), pick(1, cols), pick(0, 3) != 0);
      break;
    case 12:
      if (pick(0, 20) == 0) g.SetRowCount(pick(0, rows + 3));
      if (rows && pick(0, 1)) g.SetRowLevel(pick(1, rows), static_cast<uint8_t>(pick(0, 2)));
      break;
  }
  return kind;
}

void RandomRun(bool multiSelect, unsigned seed, bool rowMode = false) {
  Quilta g;
  Fill(g, 30, 5);
  g.SetMultiSelect(multiSelect);
  g.SetRowMode(rowMode);
  g.SetTreeCol(1);
  std::mt19937 rng(seed);
  auto pick = [&](int32_t lo, int32_t hi) {
    return std::uniform_int_distribution<int32_t>(lo, hi)(rng);
  };
  const int16_t keys[] = {33, 34, 35, 36, 37, 38, 39, 40, 32, 65, 107, 109, 106, 27};
  for (int step = 0; step < 2000; ++step) {
    int32_t rows = g.RowCount(), cols = g.ColCount();
    int kind = -1;
    try {
      kind = Step(g, pick, rows, cols, multiSelect, keys);
    } catch (const Error&) {
      // refused moves and levels must leave the grid as it was
    }
    ExpectConsistent(g, std::to_string(step) + " (call kind " + std::to_string(kind) + ")");
    if (::testing::Test::HasFatalFailure()) return;
  }
}

TEST(SelectionConsistency, MultiSelectionRandomRun) {
  for (unsigned seed : {1u, 2u, 3u, 6u, 7u}) RandomRun(true, seed);
}

TEST(SelectionConsistency, RowModeRandomRun) {
  for (unsigned seed : {9u, 10u, 12u, 13u}) RandomRun(true, seed, true);
  RandomRun(false, 11u, true);
}

TEST(SelectionConsistency, SingleSelectionRandomRun) {
  for (unsigned seed : {4u, 5u, 8u}) RandomRun(false, seed);
}

}  // namespace
}  // namespace quilta::testing
