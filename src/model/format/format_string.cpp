// Rendering a string section: @ and & placeholders filled with the text's characters.
#include "model/format/format_render.hpp"
#include "model/text/text.hpp"

namespace quilta::fmt {

size_t NextCharacter(std::string_view s, size_t i) {
  const unsigned char lead = static_cast<unsigned char>(s[i]);
  const size_t length = lead < 0xC2 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 1;
  if (length == 1 || s.size() - i < length) return i + 1;
  for (size_t k = 1; k < length; ++k)
    if ((static_cast<unsigned char>(s[i + k]) & 0xC0) != 0x80) return i + 1;
  return i + length;
}

namespace {

size_t CountCharacters(std::string_view s) {
  size_t n = 0;
  for (size_t i = 0; i < s.size(); i = NextCharacter(s, i)) ++n;
  return n;
}

}  // namespace

void RenderStringSection(const FormatProgram& format, const Section& section, std::string_view text,
                         std::string& out) {
  std::string converted;
  if (section.caseMode != CaseMode::Keep) {
    converted = section.caseMode == CaseMode::Lower ? text::ToLower(text) : text::ToUpper(text);
    text = converted;
  }
  const size_t placeholders = static_cast<size_t>(section.placeholders);
  const size_t length = placeholders == 0 ? 0 : CountCharacters(text);
  const size_t missing = length < placeholders ? placeholders - length : 0;
  // Placeholders without a character come first, or last with '!'.
  const size_t emptyFrom = section.padAtEnd ? placeholders - missing : 0;
  const size_t emptyTo = section.padAtEnd ? placeholders : missing;
  const Token* tokens = format.tokens.data();
  size_t placeholder = 0;
  size_t cursor = 0;
  for (uint32_t k = section.begin; k < section.end; ++k) {
    const Token& t = tokens[k];
    if (t.op == Op::Literal) {
      out.append(format.Literal(t));
      continue;
    }
    if (t.op != Op::CharOrSpace && t.op != Op::CharOrNothing) continue;
    const size_t index = placeholder++;
    if (index >= emptyFrom && index < emptyTo) {
      if (t.op == Op::CharOrSpace) out.push_back(' ');
    } else if (cursor < text.size()) {
      const size_t next = NextCharacter(text, cursor);
      out.append(text.substr(cursor, next - cursor));
      cursor = next;
    }
  }
  out.append(text.substr(cursor));  // characters left over go at the very end
}

}  // namespace quilta::fmt
