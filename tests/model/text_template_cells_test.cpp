// Cells made as copies of a column's text template hold references to its text: they read back
// as the template and release it when they go (the sanitizer build's leak check sees the rest).
#include <gtest/gtest.h>

#include <quilta/quilta.hpp>

namespace quilta::testing {
namespace {

TEST(TextTemplateCells, CopiesOfATextTemplateReadBackAndAreReleased) {
  Quilta g;
  g.AddCol({.lCount = 3});
  g.ColDefaultCell(3)->SetvValue(Variant(std::string("template text")));
  g.AddRow({.lCount = 7});
  g.SetCurCell(6, 3);  // selecting gives the cells of column 3 records of their own
  for (int32_t r = 1; r <= 7; ++r) EXPECT_EQ(g.CellValue(r, 3), Variant("template text"));
  g.SetCellValue(2, 3, "own");
  g.RemoveRow(1, 3);
  EXPECT_EQ(g.CellValue(1, 3), Variant("template text"));
  g.RemoveCol(3);
  g.AddCol();
  EXPECT_TRUE(g.CellValue(1, 3).IsEmpty());
}

}  // namespace
}  // namespace quilta::testing
