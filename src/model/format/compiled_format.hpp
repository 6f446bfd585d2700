// A format string parsed once into sections of tokens, so that producing a cell's text never
// parses. An empty pattern means plain conversion.
#pragma once

#include <quilta/variant.hpp>
#include <string>
#include <string_view>

#include "model/format/format_program.hpp"

namespace quilta::fmt {

class CompiledFormat {
 public:
  CompiledFormat() = default;                         // empty format = plain conversion
  explicit CompiledFormat(std::string_view pattern);  // parses once, never throws
  const std::string& Pattern() const;
  bool IsEmpty() const;
  void AppendTo(const Variant& value, std::string& out) const;  // formatted text appended
  std::string Apply(const Variant& value) const;

 private:
  void AppendNumber(const Variant& value, std::string& out) const;
  void AppendDate(const Variant& value, std::string& out) const;
  void AppendString(const Variant& value, std::string& out) const;
  void AppendNamed(const Variant& value, std::string& out) const;
  size_t PickSection(bool negative, bool zero) const;

  std::string pattern_;
  FormatProgram program_;
};

}  // namespace quilta::fmt
