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
// Binary comparison by byte (= code point order for UTF-8): -1, 0 or 1.
int CompareBinary(std::string_view a, std::string_view b) noexcept;
// Comparison ignoring case (code points folded to lower case first): -1, 0 or 1.
int CompareNoCase(std::string_view a, std::string_view b) noexcept;

}  // namespace quilta::text
