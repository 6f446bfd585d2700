#include "model/cell_resources.hpp"

#include <quilta/error.hpp>

namespace quilta::model {
namespace {
const std::string kNoText;
}

uint8_t FormatTable::Intern(std::string_view pattern) {
  if (pattern.empty()) return 0;
  for (size_t i = 0; i < formats_.size(); ++i)
    if (formats_[i].Pattern() == pattern) return static_cast<uint8_t>(i + 1);
  if (formats_.size() >= kMaxEntries) throw Error::FromCode(quErrTooManyFormatStrings);
  formats_.emplace_back(pattern);
  return static_cast<uint8_t>(formats_.size());
}

const std::string& FormatTable::Text(uint8_t number) const {
  return number == 0 ? kNoText : formats_[number - 1].Pattern();
}

uint16_t FontTable::Intern(const Font& font) {
  if (lastHit_ && fonts_[lastHit_ - 1] == font) return lastHit_;
  for (size_t i = 0; i < fonts_.size(); ++i)
    if (fonts_[i] == font) return lastHit_ = static_cast<uint16_t>(i + 1);
  if (fonts_.size() >= UINT16_MAX) throw Error::FromCode(quErrOutOfMemory);
  fonts_.push_back(font);
  return lastHit_ = static_cast<uint16_t>(fonts_.size());
}

int16_t ControlKeyTable::Intern(std::string_view key) {
  if (key.empty()) return 0;
  for (size_t i = 0; i < keys_.size(); ++i)
    if (keys_[i] == key) return static_cast<int16_t>(i + 1);
  if (keys_.size() >= INT16_MAX) throw Error::FromCode(quErrOutOfMemory);
  keys_.emplace_back(key);
  return static_cast<int16_t>(keys_.size());
}

const std::string& ControlKeyTable::Text(int16_t number) const {
  return number <= 0 ? kNoText : keys_[number - 1];
}

}  // namespace quilta::model
