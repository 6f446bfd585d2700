#include "interaction/key_search.hpp"

#include "model/text/text.hpp"

namespace quilta::interaction {
namespace {

bool Matches(std::string_view cell, std::string_view text, ESearchMatchMode mode) {
  switch (mode) {
    case quSearchMatchContains:
      return cell.find(text) != std::string_view::npos;
    case quSearchMatchEquals:
      return cell == text;
    default:
      return cell.substr(0, text.size()) == text;
  }
}

// Characters arrive as code points; SearchString holds them as UTF-8.
void AppendUtf8(std::string& s, uint32_t cp) {
  if (cp < 0x80) {
    s += static_cast<char>(cp);
  } else if (cp < 0x800) {
    s += static_cast<char>(0xC0 | (cp >> 6));
    s += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    s += static_cast<char>(0xE0 | (cp >> 12));
    s += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    s += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// The text without its last character (a whole UTF-8 sequence).
std::string DropLastChar(const std::string& s) {
  size_t end = s.size();
  while (end > 0 && (static_cast<unsigned char>(s[end - 1]) & 0xC0) == 0x80) --end;
  return s.substr(0, end > 0 ? end - 1 : 0);
}

size_t CharCount(const std::string& s) {
  size_t n = 0;
  for (char ch : s) n += (static_cast<unsigned char>(ch) & 0xC0) != 0x80;
  return n;
}

}  // namespace

bool KeySearch::RowPasses(int32_t row, ECellVisibilityFilter visibility) const {
  const model::RowRecord& rec = store_.Rows().At(row);
  switch (visibility) {
    case quCellVisCurrentlyVisible:
      return rec.Shown();
    case quCellVisVisibleProperty:
      return rec.Visible();
    default:
      return true;
  }
}

int32_t KeySearch::FindRow(const RowSearch& s) const {
  int32_t count = store_.RowCount();
  if (count == 0 || s.start < 1 || s.start > count) return 0;
  std::string wanted = s.matchCase ? s.text : text::ToLower(s.text);
  auto test = [&](int32_t row) {
    if (!RowPasses(row, s.visibility)) return false;
    std::string cell = cellText_(row, s.col);
    return Matches(s.matchCase ? cell : text::ToLower(cell), wanted, s.mode);
  };
  int32_t end = s.step > 0 ? count : 1;
  for (int32_t r = s.start;; r += s.step) {
    if (test(r)) return r;
    if (r == end) break;
  }
  if (!s.loop) return 0;
  // Round from the other end up to the start row, which was tested already.
  for (int32_t r = s.step > 0 ? 1 : count; r != s.start; r += s.step)
    if (test(r)) return r;
  return 0;
}

bool KeySearch::Active() const {
  int32_t b = props_.Long(model::Prop::KeyPressBehaviour);
  return b == quKeyPressSearchCurCol || b == quKeyPressSearchDefCol;
}

int32_t KeySearch::SearchColumn() const {
  switch (props_.Long(model::Prop::KeyPressBehaviour)) {
    case quKeyPressSearchCurCol:
      return selection_.CurCol();
    case quKeyPressSearchDefCol:
      return keySearchCol_;
    default:
      return 0;
  }
}

void KeySearch::Type(int32_t code) {
  if (code == 0 || code == 13) return;
  if (code == 8) {
    Apply(CharCount(text_) > 1 ? DropLastChar(text_) : std::string());
  } else if (code == 27) {
    Apply(std::string());
  } else {
    std::string text = text_;
    AppendUtf8(text, static_cast<uint32_t>(code));
    Apply(std::move(text));
  }
}

void KeySearch::Apply(std::string text) {
  int32_t col = SearchColumn();
  if (col < 1 || col > store_.Cols().RowTextCol()) return;
  if (text.empty()) {
    text_.clear();
    site_.Redraw();  // the current cell loses its search highlight
    return;
  }
  bool fromCurrent = props_.Bool(model::Prop::KeySearchFromCurRow) && selection_.CurRow() >= 1;
  RowSearch search{.col = col,
                   .text = text,
                   .start = fromCurrent ? selection_.CurRow() : 1,
                   .loop = props_.Bool(model::Prop::KeySearchLoop)};
  int32_t row = FindRow(search);
  if (row == 0) return;  // the character is dropped
  text_ = std::move(text);
  MoveTo(row, col);
}

bool KeySearch::SearchAgain(int step) {
  int32_t col = SearchColumn();
  int32_t start = selection_.CurRow() + step;
  if (text_.empty() || col < 1 || col > store_.Cols().RowTextCol() || start < 1 ||
      start > store_.RowCount())
    return false;
  int32_t row = FindRow({.col = col, .text = text_, .start = start, .step = step});
  if (row == 0) return false;
  MoveTo(row, col);
  return true;
}

void KeySearch::MoveTo(int32_t row, int32_t col) {
  if (props_.Bool(model::Prop::MultiSelect)) {
    selection_.SelectOnly(row, col, true);
  } else {
    selection_.MoveSingleSelection(row, col);
  }
  selection_.SetCurCellPos(row, col);
  selection_.ScrollCurrentIntoView();
  selection_.RaisePendingSelEvents();
}

}  // namespace quilta::interaction
