// Text helpers shared by keys, sorting and searching: UTF-8 aware case folding and comparison.
#pragma once

#include <string>
#include <string_view>

namespace quilta::text {

// Lower-case copy of UTF-8 text (simple case mapping).
std::string ToLower(std::string_view s);
// Whether ToLower(s) equals `lowered`; plain ASCII text is folded as it is compared, not copied.
bool EqualsLowered(std::string_view lowered, std::string_view s);
// Upper-case copy of UTF-8 text (simple case mapping).
std::string ToUpper(std::string_view s);
// Code points of UTF-8 text and back; a stray byte survives the round trip unchanged.
std::u32string DecodeUtf8(std::string_view s);
std::string EncodeUtf8(std::u32string_view chars);
// Binary comparison by byte (= code point order for UTF-8): -1, 0 or 1.
int CompareBinary(std::string_view a, std::string_view b) noexcept;
// Comparison ignoring case (code points folded to lower case first): -1, 0 or 1.
int CompareNoCase(std::string_view a, std::string_view b) noexcept;

}  // namespace quilta::text
