// Arrays: cell values to and from one- and two-dimensional arrays with any bounds.
#include <gtest/gtest.h>

#include <functional>
#include <quilta/quilta.hpp>

namespace quilta {
namespace {

class Arrays : public ::testing::Test {
 protected:
  void SetUp() override {
    grid.AddCol({.lCount = 8});
    grid.AddRow({.lCount = 8});
  }
  void ExpectError(int32_t code, const std::function<void()>& call) {
    try {
      call();
      ADD_FAILURE() << "expected " << code;
    } catch (const Error& e) {
      EXPECT_EQ(e.Code(), code);
    }
  }
  int32_t CountFilled() {
    int32_t n = 0;
    for (int32_t r = 1; r <= grid.RowCount(); ++r)
      for (int32_t c = 1; c <= grid.ColCount(); ++c) n += !grid.CellValue(r, c).IsEmpty();
    return n;
  }
  Quilta grid;
};

Variant Numbers1D(int32_t lBound, int32_t count) {
  Variant a = Variant::Array1D(lBound, count);
  for (int32_t i = 0; i < count; ++i) a.SetAt(lBound + i, 100 + i);
  return a;
}

TEST_F(Arrays, OneDimensionRunsDownAColumnOrAcrossARow) {
  grid.LoadFromArray(2, 3, Numbers1D(0, 5));
  for (int32_t k = 0; k < 5; ++k) EXPECT_EQ(grid.CellValue(2 + k, 3), Variant(100 + k));
  EXPECT_EQ(CountFilled(), 5);
  Quilta& g = grid;
  g.Clear();
  g.AddRow({.lCount = 8});
  g.LoadFromArray(2, 3, Numbers1D(0, 5), true);
  for (int32_t j = 0; j < 5; ++j) EXPECT_EQ(g.CellValue(2, 3 + j), Variant(100 + j));
  EXPECT_EQ(CountFilled(), 5);
}

TEST_F(Arrays, TwoDimensionsInBothOrdersWithTheirLowerBounds) {
  Variant a = Variant::Array2D(-1, 2, 5, 3);  // 2 x 3
  for (int32_t i = -1; i <= 0; ++i)
    for (int32_t j = 5; j <= 7; ++j) a.SetAt(i, j, (i + 1) * 10 + (j - 5));
  grid.LoadFromArray(1, 1, a);  // first dimension = rows
  EXPECT_EQ(grid.CellValue(1, 1), Variant(0));
  EXPECT_EQ(grid.CellValue(2, 3), Variant(12));
  EXPECT_TRUE(grid.CellValue(3, 1).IsEmpty());
  grid.LoadFromArray(4, 4, a, true);  // first dimension = columns
  EXPECT_EQ(grid.CellValue(4, 4), Variant(0));
  EXPECT_EQ(grid.CellValue(4, 5), Variant(10));
  EXPECT_EQ(grid.CellValue(6, 5), Variant(12));
  EXPECT_TRUE(grid.CellValue(7, 4).IsEmpty());
}

TEST_F(Arrays, ArraysLongerThanTheGridAreCutAtItsEdge) {
  Variant a = Variant::Array2D(0, 10, 0, 10);
  for (int32_t i = 0; i < 10; ++i)
    for (int32_t j = 0; j < 10; ++j) a.SetAt(i, j, i * 10 + j);
  grid.LoadFromArray(5, 6, a);
  EXPECT_EQ(CountFilled(), 4 * 3);
  EXPECT_EQ(grid.CellValue(8, 8), Variant(32));
  EXPECT_EQ(grid.RowCount(), 8);
  grid.LoadFromArray(1, grid.RowTextCol(), a);  // no column left
  EXPECT_EQ(CountFilled(), 4 * 3);
}

TEST_F(Arrays, RoundTripThroughAnArrayKeepsRawValuesAndTheArrayBounds) {
  grid.SetCellValue(1, 1, "text");
  grid.SetCellValue(2, 1, Variant::Date(45000.5));
  grid.SetCellValue(1, 2, Variant::Null());
  grid.SetCellFmtString(2, 1, "yyyy");
  Variant out = Variant::Array2D(3, 2, 1, 2);
  grid.LoadIntoArray(1, 1, out);
  EXPECT_EQ(out.LBound(1), 3);
  EXPECT_EQ(out.UBound(2), 2);
  EXPECT_EQ(out.At(3, 1), Variant("text"));
  EXPECT_EQ(out.At(4, 1), Variant::Date(45000.5));  // the value, not its text
  EXPECT_TRUE(out.At(3, 2).IsNull());
  Quilta copy;
  copy.AddCol({.lCount = 2});
  copy.AddRow({.lCount = 2});
  copy.LoadFromArray(1, 1, out);
  EXPECT_EQ(copy.CellValue(2, 1), Variant::Date(45000.5));
}

TEST_F(Arrays, SmallArraysTakeOnlyWhatFitsAndLargeOnesKeepTheirSurplus) {
  grid.SetCellValue(8, 8, 1);
  Variant small = Variant::Array1D(1, 2);
  grid.LoadIntoArray(7, 8, small);
  EXPECT_TRUE(small.At(1).IsEmpty());
  EXPECT_EQ(small.At(2), Variant(1));
  Variant big = Numbers1D(0, 20);
  grid.LoadIntoArray(7, 7, big, true);  // two columns left from column 7
  EXPECT_TRUE(big.At(0).IsEmpty());
  EXPECT_TRUE(big.At(1).IsEmpty());
  EXPECT_EQ(big.At(2), Variant(102));  // untouched beyond the grid
  grid.LoadFromArray(6, 6, Numbers1D(0, 20));
  EXPECT_EQ(grid.CellValue(8, 6), Variant(102));
  EXPECT_EQ(grid.RowCount(), 8);
  EXPECT_EQ(grid.ColCount(), 8);
}

TEST_F(Arrays, BadArgumentsFailBeforeAnythingIsTouched) {
  Variant good = Numbers1D(0, 3);
  ExpectError(quErrInvalidArgument, [&] { grid.LoadFromArray(1, 1, 5); });
  ExpectError(quErrInvalidArgument, [&] {
    grid.LoadFromArray(1, 1, Variant::Array({{0, 2}, {0, 2}, {0, 2}}));
  });
  ExpectError(quErrInvalidArgument, [&] { grid.LoadFromArray(99, 1, Variant("x")); });
  ExpectError(quErrSubscriptOutOfRange, [&] { grid.LoadFromArray(99, 1, good); });
  ExpectError(quErrSubscriptOutOfRange, [&] { grid.LoadFromArray(1, "nope", good); });
  EXPECT_EQ(CountFilled(), 0);
  grid.SetCellValue(1, 1, 5);
  Variant into = Variant::Array1D(0, 2);
  ExpectError(quErrInvalidArgument, [&] {
    Variant s = 3;
    grid.LoadIntoArray(1, 1, s);
  });
  ExpectError(quErrSubscriptOutOfRange, [&] { grid.LoadIntoArray(1, 0, into); });
  EXPECT_TRUE(into.At(0).IsEmpty());
}

}  // namespace
}  // namespace quilta
