// Fuzzes clipboard text: the reader that splits it into rows and cells, the writer of the grid's
// copies, and a paste of it into a small grid. Input: one byte of options, then the text.
// - Reading never fails; every row has at least one cell and the widest row sets the width.
// - Cells written back (after dropping what the grid's copy format cannot carry: tabs, carriage
//   returns and quotes) read back to themselves; a cell with line feeds comes back quoted.
// - Pasting, copying and pasting the grid's own block leave the grid consistent.
#include <cstdint>
#include <cstdlib>
#include <quilta/quilta.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "consistency_checker.hpp"
#include "exchange/clipboard/clipboard_text.hpp"

namespace {

using quilta::exchange::AppendClipboardCell;
using quilta::exchange::ClipboardTable;

void Require(bool ok) {
  if (!ok) std::abort();
}

std::string Carriable(std::string_view cell) {
  std::string out;
  for (char ch : cell)
    if (ch != '\t' && ch != '\r' && ch != '"') out.push_back(ch);
  return out;
}

void CheckReader(std::string_view text) {
  const ClipboardTable table(text);
  int32_t width = 0;
  size_t chars = 0;
  for (int32_t r = 0; r < table.Rows(); ++r) {
    Require(table.CellsInRow(r) >= 1);
    width = std::max(width, table.CellsInRow(r));
    for (int32_t c = 0; c < table.CellsInRow(r); ++c) chars += table.Cell(r, c).size();
    Require(table.Cell(r, table.CellsInRow(r)).empty());
  }
  Require(width == table.Width());
  Require(chars <= text.size());
  Require(text.empty() == (table.Rows() == 0));

  // Write the carriable cells as the grid's copy does, every row as wide as the widest.
  std::vector<std::string> cells;
  std::string written;
  for (int32_t r = 0; r < table.Rows(); ++r) {
    if (r) written += "\r\n";
    for (int32_t c = 0; c < table.Width(); ++c) {
      cells.push_back(Carriable(table.Cell(r, c)));
      std::string withBreaks;
      for (char ch : cells.back())
        withBreaks += ch == '\n' ? std::string("\r\n") : std::string(1, ch);
      const size_t at = written.size();
      if (c) written.push_back('\t');
      AppendClipboardCell(written, withBreaks);
      const std::string_view cell = std::string_view(written).substr(at + (c ? 1 : 0));
      Require(cell.find("\r\n") == std::string_view::npos);
      if (withBreaks.find("\r\n") != std::string::npos)
        Require(cell.size() >= 2 && cell.front() == '"' && cell.back() == '"');
    }
  }
  const ClipboardTable again(written);
  int32_t rows = table.Rows();
  // A last row of one empty cell leaves only the line break before it, which ends the text.
  if (table.Width() == 1 && rows > 0 && cells.back().empty()) --rows;
  Require(again.Rows() == rows);
  for (int32_t r = 0; r < rows; ++r) {
    Require(again.CellsInRow(r) == table.Width());
    for (int32_t c = 0; c < table.Width(); ++c)
      Require(again.Cell(r, c) == cells[static_cast<size_t>(r * table.Width() + c)]);
  }
}

struct Host : quilta::QuiltaEvents {
  uint8_t options = 0;
  void BeforePaste(bool&, int32_t, int32_t, bool& bAddCols, bool& bAddRows,
                   bool& bShowWarning) override {
    bAddCols = options & 1;
    bAddRows = options & 2;
    bShowWarning = options & 4;
  }
  void RequestEdit(int32_t lRow, int32_t lCol, int32_t, bool& bCancel, std::string& sText, int32_t&,
                   quilta::ETextEditFlags&) override {
    bCancel = (options & 8) && (lRow + lCol) % 3 == 0;
    if (options & 16) sText += "x";
  }
};

void CheckPaste(uint8_t options, std::string_view text) {
  quilta::HeadlessPlatform platform;
  quilta::Quilta grid(platform);
  Host host;
  host.options = options;
  grid.SetMultiSelect(options & 32);
  grid.AddCol({.lCount = 3});
  grid.AddRow({.lCount = 4});
  for (int32_t r = 1; r <= 4; ++r) {
    grid.SetCellValue(r, 1, r);
    grid.SetCellValue(r, 2, r + 0.5);
    grid.SetCellValue(r, 3, "t");
  }
  if (options & 64) grid.SetEventSink(&host);
  grid.SetCurCell(1 + (options >> 6), 1 + (options & 1) + ((options >> 3) & 1));
  platform.SetClipboardTextFromOtherProgram(text);
  grid.DoKeyboardCommand(86, 2);  // Ctrl+V
  const auto& checker = quilta::testkit::ConsistencyChecker::ForGrid();
  Require(checker.Run(grid).empty());
  grid.DoKeyboardCommand(88, 2);  // Ctrl+X: the pasted block goes to the clipboard
  grid.SetCurCell(grid.RowCount(), grid.ColCount());
  grid.DoKeyboardCommand(86, 2);  // the grid's own block, pasted with its holes
  Require(checker.Run(grid).empty());
  Require(grid.BeginUpdateCount() == 0);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  CheckReader(text);
  CheckPaste(data[0], text);
  return 0;
}
