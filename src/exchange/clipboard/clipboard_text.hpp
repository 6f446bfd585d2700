// Clipboard text as spreadsheets exchange it: cells separated by tabs, rows by line breaks.
// ClipboardTable reads such a text into one character buffer with cell offsets (no allocation
// per cell); AppendClipboardCell and the line joins write the grid's copies.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quilta::exchange {

// Reading rules:
// - rows end at CR LF or at a lone LF; one line break at the very end adds no empty row; an
//   empty text has no rows;
// - cells end at a tab;
// - a cell whose first character is a double quote is quoted: up to the closing quote, tabs and
//   line breaks belong to the cell and "" stands for one quote; characters after the closing
//   quote up to the cell's end are kept as they stand. A quote that is never closed quotes
//   nothing: the cell is then read as plain text, quote included, so a stray quote cannot swallow
//   the rest of the clipboard.
class ClipboardTable {
 public:
  ClipboardTable() = default;
  explicit ClipboardTable(std::string_view text) { Parse(text); }
  void Parse(std::string_view text);

  int32_t Rows() const { return static_cast<int32_t>(rowEnds_.size()); }
  // The widest row's cell count.
  int32_t Width() const { return width_; }
  int32_t CellsInRow(int32_t row) const;
  // Cell (row, col), 0-based; empty past the end of a shorter row.
  std::string_view Cell(int32_t row, int32_t col) const;

 private:
  void EndCell();
  void EndRow();
  // Reads a quoted cell starting at the opening quote; returns the position after its end, or
  // npos when the quote is never closed.
  size_t ReadQuoted(std::string_view text, size_t at);

  std::string chars_;
  std::vector<uint32_t> cellEnds_;  // end offset of each cell in chars_
  std::vector<uint32_t> rowEnds_;   // end index of each row in cellEnds_
  int32_t width_ = 0;
};

// Appends one cell of a copy: a text holding CR LF has every pair turned into LF and is wrapped
// in double quotes; quotes inside are left as they are; anything else is copied unchanged.
void AppendClipboardCell(std::string& out, std::string_view text);

}  // namespace quilta::exchange
