// Tables shared by every cell of a grid and by its column default cells: format strings, fonts
// and combo-list keys. A cell stores a small number into each; entries are only ever added, so
// a number stays valid after the last cell that used it has changed.
#pragma once

#include <cstdint>
#include <memory>
#include <quilta/font.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "model/format/compiled_format.hpp"

namespace quilta::model {

// Format strings, each kept compiled so that producing a cell's text never parses.
class FormatTable {
 public:
  static constexpr int kMaxEntries = 255;
  // The number of the string (added if new); "" gives 0. Raises 516 when the table is full.
  uint8_t Intern(std::string_view pattern);
  int32_t Count() const { return static_cast<int32_t>(formats_.size()); }
  const std::string& Text(uint8_t number) const;
  const fmt::CompiledFormat& Compiled(uint8_t number) const { return formats_[number - 1]; }

 private:
  std::vector<fmt::CompiledFormat> formats_;
};

// Distinct fonts by value; number 0 is the grid's default font.
class FontTable {
 public:
  uint16_t Intern(const Font& font);
  int32_t Count() const { return static_cast<int32_t>(fonts_.size()); }
  const Font& At(uint16_t number) const { return fonts_[number - 1]; }

 private:
  std::vector<Font> fonts_;
  uint16_t lastHit_ = 0;
};

// Names of combo lists that cells refer to (CellCtrlKey), numbered from 1.
class ControlKeyTable {
 public:
  int16_t Intern(std::string_view key);
  int32_t Count() const { return static_cast<int32_t>(keys_.size()); }
  const std::string& Text(int16_t number) const;

 private:
  std::vector<std::string> keys_;
};

class CellResources {
 public:
  FormatTable formats;
  FontTable fonts;
  ControlKeyTable controlKeys;
};

}  // namespace quilta::model
