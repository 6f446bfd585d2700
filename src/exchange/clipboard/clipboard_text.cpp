#include "exchange/clipboard/clipboard_text.hpp"

#include <algorithm>

namespace quilta::exchange {

void ClipboardTable::EndCell() { cellEnds_.push_back(static_cast<uint32_t>(chars_.size())); }

void ClipboardTable::EndRow() {
  EndCell();
  rowEnds_.push_back(static_cast<uint32_t>(cellEnds_.size()));
  width_ = std::max(width_, CellsInRow(Rows() - 1));
}

size_t ClipboardTable::ReadQuoted(std::string_view text, size_t at) {
  const size_t mark = chars_.size();
  for (size_t i = at + 1; i < text.size(); ++i) {
    if (text[i] != '"') {
      chars_.push_back(text[i]);
    } else if (i + 1 < text.size() && text[i + 1] == '"') {
      chars_.push_back('"');
      ++i;
    } else {
      return i + 1;
    }
  }
  chars_.resize(mark);
  return std::string_view::npos;
}

void ClipboardTable::Parse(std::string_view text) {
  chars_.clear();
  cellEnds_.clear();
  rowEnds_.clear();
  width_ = 0;
  chars_.reserve(text.size());
  if (text.empty()) return;
  size_t i = 0;
  bool cellStart = true;
  while (i < text.size()) {
    const char ch = text[i];
    if (cellStart && ch == '"') {
      cellStart = false;
      const size_t after = ReadQuoted(text, i);
      if (after != std::string_view::npos) {
        i = after;
        continue;
      }
    }
    cellStart = false;
    if (ch == '\t') {
      EndCell();
      cellStart = true;
    } else if (ch == '\n' || (ch == '\r' && i + 1 < text.size() && text[i + 1] == '\n')) {
      if (ch == '\r') ++i;
      EndRow();
      cellStart = true;
    } else {
      chars_.push_back(ch);
    }
    ++i;
  }
  // A text that ends with a line break has already closed its last row.
  if (!cellStart || text.back() == '\t') EndRow();
}

int32_t ClipboardTable::CellsInRow(int32_t row) const {
  const uint32_t first = row == 0 ? 0 : rowEnds_[static_cast<size_t>(row) - 1];
  return static_cast<int32_t>(rowEnds_[static_cast<size_t>(row)] - first);
}

std::string_view ClipboardTable::Cell(int32_t row, int32_t col) const {
  if (row < 0 || row >= Rows() || col < 0 || col >= CellsInRow(row)) return {};
  const size_t first = row == 0 ? 0 : rowEnds_[static_cast<size_t>(row) - 1];
  const size_t index = first + static_cast<size_t>(col);
  const size_t begin = index == 0 ? 0 : cellEnds_[index - 1];
  return std::string_view(chars_).substr(begin, cellEnds_[index] - begin);
}

void AppendClipboardCell(std::string& out, std::string_view text) {
  if (text.find("\r\n") == std::string_view::npos) {
    out.append(text);
    return;
  }
  out.push_back('"');
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    out.push_back(text[i]);
  }
  out.push_back('"');
}

}  // namespace quilta::exchange
