// The item syntax shared by the column and sort layout strings: `<index>|<name>|<value>|`, one
// after another, with nothing between items but the bars.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quilta::exchange {

struct LayoutItem {
  int32_t col = 0;
  std::string_view name;
  std::string_view value;
};

class LayoutItemReader {
 public:
  explicit LayoutItemReader(std::string_view items) : rest_(items) {}

  // The next item, or nothing at the end or at damage (a missing bar, an index that is not an
  // integer); Damaged() tells the two apart.
  std::optional<LayoutItem> Next();
  bool Damaged() const { return damaged_; }

 private:
  std::optional<std::string_view> Field();

  std::string_view rest_;
  bool damaged_ = false;
};

// A whole decimal integer within 32 bits ("-12"), or nothing.
std::optional<int32_t> ParseInteger(std::string_view text);
// The leading numeric part of a text, as the classic runtime's Val reads it ("144dpi" is 144,
// "x" is 0).
double LeadingNumber(std::string_view text);

void AppendItem(std::string& out, int32_t col, std::string_view name, int32_t value);

}  // namespace quilta::exchange
