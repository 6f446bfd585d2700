#include "exchange/layout_items.hpp"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace quilta::exchange {

std::optional<std::string_view> LayoutItemReader::Field() {
  size_t bar = rest_.find('|');
  if (bar == std::string_view::npos) return std::nullopt;
  std::string_view field = rest_.substr(0, bar);
  rest_.remove_prefix(bar + 1);
  return field;
}

std::optional<LayoutItem> LayoutItemReader::Next() {
  if (rest_.empty() || damaged_) return std::nullopt;
  auto index = Field();
  auto name = index ? Field() : std::nullopt;
  auto value = name ? Field() : std::nullopt;
  std::optional<int32_t> col = value ? ParseInteger(*index) : std::nullopt;
  if (!col) {
    damaged_ = true;
    return std::nullopt;
  }
  return LayoutItem{*col, *name, *value};
}

std::optional<int32_t> ParseInteger(std::string_view text) {
  int32_t value = 0;
  const char* end = text.data() + text.size();
  auto [ptr, ec] = std::from_chars(text.data(), end, value);
  if (ec != std::errc() || ptr != end || text.empty()) return std::nullopt;
  return value;
}

double LeadingNumber(std::string_view text) {
  size_t i = 0;
  while (i < text.size() && (text[i] == ' ' || text[i] == '\t')) ++i;
  size_t start = i;
  auto digits = [&] {
    size_t from = i;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i;
    return i > from;
  };
  if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
  bool any = digits();
  if (i < text.size() && text[i] == '.') {
    ++i;
    any = digits() || any;
  }
  if (!any) return 0;
  size_t mantissaEnd = i;
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    if (!digits()) i = mantissaEnd;
  }
  double value = std::strtod(std::string(text.substr(start, i - start)).c_str(), nullptr);
  return std::isfinite(value) ? value : 0;
}

void AppendItem(std::string& out, int32_t col, std::string_view name, int32_t value) {
  out += std::to_string(col);
  out += '|';
  out += name;
  out += '|';
  out += std::to_string(value);
  out += '|';
}

}  // namespace quilta::exchange
