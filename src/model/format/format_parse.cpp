// Parsing a format string: named formats, sections, the format's kind and each section's
// tokens. Whatever the input, parsing ends with some token list; characters that mean nothing
// in the format's kind are copied as literals.
#include <algorithm>

#include "model/format/format_program.hpp"
#include "model/format/format_render.hpp"

namespace quilta::fmt {
namespace {

constexpr size_t kMaxSections = 4;
constexpr int32_t kMaxScaleTokens = 100000;  // keeps the decimal shift in range

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

bool EqualsNoCase(std::string_view a, std::string_view lowerB) {
  if (a.size() != lowerB.size()) return false;
  for (size_t i = 0; i < a.size(); ++i)
    if (Lower(a[i]) != lowerB[i]) return false;
  return true;
}

bool StartsWithNoCase(std::string_view s, size_t i, std::string_view lowerPrefix) {
  return s.size() - i >= lowerPrefix.size() &&
         EqualsNoCase(s.substr(i, lowerPrefix.size()), lowerPrefix);
}

// Repeats of a letter at s[i], counted up to six: no date token is longer.
size_t RunLength(std::string_view s, size_t i, char lowerLetter) {
  size_t k = i;
  while (k < s.size() && k - i < 6 && Lower(s[k]) == lowerLetter) ++k;
  return k - i;
}

struct NamedFormat {
  std::string_view name;
  NamedMode mode;
  std::string_view pattern;
};

constexpr NamedFormat kNamedFormats[] = {
    {"general number", NamedMode::GeneralNumber, ""},
    {"currency", NamedMode::None, "$#,##0.00;($#,##0.00)"},
    {"fixed", NamedMode::None, "0.00"},
    {"standard", NamedMode::None, "#,##0.00"},
    {"percent", NamedMode::None, "0.00%"},
    {"scientific", NamedMode::None, "0.00E+00"},
    {"yes/no", NamedMode::YesNo, ""},
    {"true/false", NamedMode::TrueFalse, ""},
    {"on/off", NamedMode::OnOff, ""},
    {"general date", NamedMode::GeneralDate, ""},
    {"long date", NamedMode::None, "dddd, mmmm dd, yyyy"},
    {"medium date", NamedMode::None, "dd-mmm-yy"},
    {"short date", NamedMode::None, "m/d/yyyy"},
    {"long time", NamedMode::None, "h:mm:ss AM/PM"},
    {"medium time", NamedMode::None, "hh:mm AM/PM"},
    {"short time", NamedMode::None, "hh:mm"},
};

// A quoted or backslash-escaped literal at s[i]: its text, with i moved past it.
bool TakeEscapedLiteral(std::string_view s, size_t& i, std::string_view& literal) {
  if (s[i] == '"') {
    const size_t close = s.find('"', i + 1);
    const size_t end = close == std::string_view::npos ? s.size() : close;
    literal = s.substr(i + 1, end - i - 1);
    i = close == std::string_view::npos ? s.size() : close + 1;
    return true;
  }
  if (s[i] == '\\') {
    const size_t next = i + 1 < s.size() ? NextCharacter(s, i + 1) : s.size();
    literal = s.substr(std::min(i + 1, s.size()), next - std::min(i + 1, s.size()));
    i = next;
    return true;
  }
  return false;
}

// Which kind an unescaped character at s[i] makes a format, if any.
FormatKind KindAt(std::string_view s, size_t i) {
  switch (Lower(s[i])) {
    case '0':
    case '#':
    case '.':
      return FormatKind::Number;
    case '@':
    case '&':
    case '<':
    case '>':
    case '!':
      return FormatKind::String;
    case '/':
    case ':':
    case 'd':
    case 'm':
    case 'y':
    case 'h':
    case 'n':
    case 's':
    case 'w':
    case 'q':
    case 'c':
      return FormatKind::Date;
    case 't':
      return RunLength(s, i, 't') >= 5 ? FormatKind::Date : FormatKind::Unknown;
    case 'a':
      return StartsWithNoCase(s, i, "am/pm") || StartsWithNoCase(s, i, "a/p") ||
                     StartsWithNoCase(s, i, "ampm")
                 ? FormatKind::Date
                 : FormatKind::Unknown;
    default:
      return FormatKind::Unknown;
  }
}

FormatKind DetectKind(std::string_view section) {
  std::string_view literal;
  for (size_t i = 0; i < section.size();) {
    if (TakeEscapedLiteral(section, i, literal)) continue;
    const FormatKind kind = KindAt(section, i);
    if (kind != FormatKind::Unknown) return kind;
    i = NextCharacter(section, i);
  }
  return FormatKind::Unknown;
}

void SplitSections(std::string_view pattern, std::vector<std::string_view>& sections) {
  size_t start = 0;
  for (size_t i = 0; i <= pattern.size() && sections.size() < kMaxSections;) {
    if (i == pattern.size() || pattern[i] == ';') {
      sections.push_back(pattern.substr(start, i - start));
      start = ++i;
    } else if (pattern[i] == '"') {
      const size_t close = pattern.find('"', i + 1);
      i = close == std::string_view::npos ? pattern.size() : close + 1;
    } else {
      i += pattern[i] == '\\' ? std::min<size_t>(2, pattern.size() - i) : 1;
    }
  }
}

// One element of a number section before its layout is known.
struct NumberItem {
  enum Type { Placeholder, Point, Comma, Percent, Exponent, ExponentPlaceholder, Text } type;
  char ch = 0;  // placeholder character, or exponent letter
  bool plus = false;
  std::string_view text;
};

class FormatCompiler {
 public:
  explicit FormatCompiler(FormatProgram& program) : f_(program) {}

  void Compile(std::string_view pattern) {
    if (pattern.empty()) return;
    std::string_view text = pattern;
    for (const NamedFormat& named : kNamedFormats) {
      if (!EqualsNoCase(pattern, named.name)) continue;
      f_.named = named.mode;
      if (named.mode != NamedMode::None) return;
      text = named.pattern;
      break;
    }
    std::vector<std::string_view> parts;
    SplitSections(text, parts);
    for (std::string_view part : parts) {
      f_.kind = DetectKind(part);
      if (f_.kind != FormatKind::Unknown) break;
    }
    for (std::string_view part : parts) CompileSection(part);
  }

 private:
  void CompileSection(std::string_view text) {
    Section section;
    section.begin = static_cast<uint32_t>(f_.tokens.size());
    section.empty = text.empty();
    sectionBegin_ = f_.tokens.size();
    switch (f_.kind) {
      case FormatKind::Number:
        CompileNumber(text, section);
        break;
      case FormatKind::Date:
        CompileDate(text, section);
        break;
      case FormatKind::String:
        CompileString(text, section);
        break;
      case FormatKind::Unknown:
        CompileLiterals(text);
        break;
    }
    section.end = static_cast<uint32_t>(f_.tokens.size());
    f_.sections.push_back(section);
  }

  void Add(Op op, uint8_t flags = 0, uint32_t a = 0, uint32_t b = 0) {
    f_.tokens.push_back(Token{op, flags, a, b});
  }

  // Literal text, merged into the previous literal token of the section when adjacent.
  void AddLiteral(std::string_view text) {
    if (text.empty()) return;
    const uint32_t offset = static_cast<uint32_t>(f_.literals.size());
    f_.literals.append(text);
    if (f_.tokens.size() > sectionBegin_) {
      Token& last = f_.tokens.back();
      if (last.op == Op::Literal && last.a + last.b == offset) {
        last.b += static_cast<uint32_t>(text.size());
        return;
      }
    }
    Add(Op::Literal, 0, offset, static_cast<uint32_t>(text.size()));
  }

  // A quoted/escaped literal or one plain character at s[i], added as literal text.
  void AddLiteralAt(std::string_view s, size_t& i) {
    std::string_view literal;
    if (TakeEscapedLiteral(s, i, literal)) return AddLiteral(literal);
    const size_t next = NextCharacter(s, i);
    AddLiteral(s.substr(i, next - i));
    i = next;
  }

  void CompileLiterals(std::string_view s) {
    for (size_t i = 0; i < s.size();) AddLiteralAt(s, i);
  }

  // ---- numbers ----

  static void ScanNumber(std::string_view s, std::vector<NumberItem>& items) {
    bool seenPoint = false, seenExponent = false, inExponentDigits = false;
    std::string_view literal;
    for (size_t i = 0; i < s.size();) {
      if (TakeEscapedLiteral(s, i, literal)) {
        items.push_back({NumberItem::Text, 0, false, literal});
        inExponentDigits = false;
        continue;
      }
      const char c = s[i];
      const bool digit = c == '0' || c == '#';
      if (inExponentDigits && digit) {
        items.push_back({NumberItem::ExponentPlaceholder, c, false, {}});
      } else if (digit && !seenExponent) {
        items.push_back({NumberItem::Placeholder, c, false, {}});
      } else if (c == '.' && !seenPoint && !seenExponent) {
        seenPoint = true;
        items.push_back({NumberItem::Point, c, false, {}});
      } else if (c == ',' && !seenExponent) {
        items.push_back({NumberItem::Comma, c, false, {}});
      } else if (c == '%') {
        items.push_back({NumberItem::Percent, c, false, {}});
      } else if ((c == 'e' || c == 'E') && !seenExponent && i + 1 < s.size() &&
                 (s[i + 1] == '+' || s[i + 1] == '-')) {
        items.push_back({NumberItem::Exponent, c, s[i + 1] == '+', {}});
        seenExponent = inExponentDigits = true;
        i += 2;
        continue;
      } else {
        const size_t next = NextCharacter(s, i);
        items.push_back({NumberItem::Text, 0, false, s.substr(i, next - i)});
        inExponentDigits = false;
        i = next;
        continue;
      }
      if (!digit) inExponentDigits = false;
      ++i;
    }
  }

  void CompileNumber(std::string_view s, Section& section) {
    std::vector<NumberItem> items;
    ScanNumber(s, items);
    size_t point = items.size(), exponent = items.size();
    int exponentZeros = 0;
    for (size_t k = 0; k < items.size(); ++k) {
      if (items[k].type == NumberItem::Point && point == items.size()) point = k;
      if (items[k].type == NumberItem::Exponent) exponent = k;
      if (items[k].type == NumberItem::ExponentPlaceholder && items[k].ch == '0') ++exponentZeros;
    }
    const size_t integerEnd = std::min(point, exponent);
    size_t lastIntegerPlaceholder = 0;
    for (size_t k = 0; k < integerEnd; ++k)
      if (items[k].type == NumberItem::Placeholder) lastIntegerPlaceholder = k;
    NumberLayout& layout = section.number;
    layout.scientific = exponent != items.size();
    layout.firstIntZero = -1;
    int32_t commasToScale = 0, percents = 0;
    for (size_t k = 0; k < items.size(); ++k) {
      const NumberItem& item = items[k];
      switch (item.type) {
        case NumberItem::Placeholder:
          if (k < integerEnd) {
            if (item.ch == '0' && layout.firstIntZero < 0) layout.firstIntZero = layout.intPlaces;
            Add(Op::IntDigit, 0, static_cast<uint32_t>(layout.intPlaces++));
          } else {
            if (item.ch == '0') layout.lastFracZero = layout.fracPlaces;
            Add(Op::FracDigit, 0, static_cast<uint32_t>(layout.fracPlaces++));
          }
          break;
        case NumberItem::Point:
          Add(Op::DecimalPoint);
          break;
        case NumberItem::Comma:
          // Between integer placeholders a comma turns grouping on; after the last one it
          // divides by 1000; anywhere else it is an ordinary character.
          if (k >= integerEnd || layout.intPlaces == 0) {
            AddLiteral(",");
          } else if (k < lastIntegerPlaceholder) {
            layout.grouping = true;
          } else {
            commasToScale = std::min(commasToScale + 1, kMaxScaleTokens);
          }
          break;
        case NumberItem::Percent:
          percents = std::min(percents + 1, kMaxScaleTokens);
          AddLiteral("%");
          break;
        case NumberItem::Exponent:
          Add(Op::ExpMark, item.plus ? 1 : 0, static_cast<uint8_t>(item.ch));
          Add(Op::ExpDigits, 0, static_cast<uint32_t>(std::max(1, exponentZeros)));
          break;
        case NumberItem::ExponentPlaceholder:
          break;  // counted above
        case NumberItem::Text:
          AddLiteral(item.text);
          break;
      }
    }
    if (layout.firstIntZero < 0) layout.firstIntZero = layout.intPlaces;
    layout.shift = 2 * percents - 3 * commasToScale;
  }

  // ---- dates ----

  void CompileDate(std::string_view s, Section& section) {
    bool minutesPending = false;  // an hour token makes the next m or mm minutes
    for (size_t i = 0; i < s.size();) {
      const char c = Lower(s[i]);
      const size_t run = RunLength(s, i, c);
      size_t take = 1;
      switch (c) {
        case 'd': {
          static constexpr Op kDays[] = {Op::Day,     Op::Day2,      Op::DayAbbr,
                                         Op::DayName, Op::ShortDate, Op::LongDate};
          take = std::min<size_t>(run, 6);
          Add(kDays[take - 1]);
          minutesPending = false;
          break;
        }
        case 'w':
          take = std::min<size_t>(run, 2);
          Add(take == 2 ? Op::Week : Op::Weekday);
          break;
        case 'm':
          if (run >= 3) {
            take = std::min<size_t>(run, 4);
            Add(take == 4 ? Op::MonthName : Op::MonthAbbr);
          } else {
            take = run;
            const bool two = take == 2;
            Add(minutesPending ? (two ? Op::Minute2 : Op::Minute) : (two ? Op::Month2 : Op::Month));
            minutesPending = false;
          }
          break;
        case 'q':
          Add(Op::Quarter);
          break;
        case 'y':
          take = run >= 4 ? 4 : run >= 2 ? 2 : 1;
          Add(take == 4 ? Op::Year4 : take == 2 ? Op::Year2 : Op::DayOfYear);
          break;
        case 'h':
          take = std::min<size_t>(run, 2);
          Add(take == 2 ? Op::Hour2 : Op::Hour);
          minutesPending = true;
          break;
        case 'n':
          take = std::min<size_t>(run, 2);
          Add(take == 2 ? Op::Minute2 : Op::Minute);
          break;
        case 's':
          take = std::min<size_t>(run, 2);
          Add(take == 2 ? Op::Second2 : Op::Second);
          break;
        case 'c':
          Add(Op::GeneralDate);
          break;
        case 't':
          if (run < 5) {
            AddLiteralAt(s, i);
            continue;
          }
          take = 5;
          Add(Op::LongTime);
          break;
        case 'a':
          if (!TakeMeridiem(s, i, section)) AddLiteralAt(s, i);
          continue;
        default:
          AddLiteralAt(s, i);
          continue;
      }
      i += take;
    }
  }

  bool TakeMeridiem(std::string_view s, size_t& i, Section& section) {
    auto lowerAt = [&](size_t k) -> uint8_t { return s[k] >= 'a' && s[k] <= 'z' ? 1 : 0; };
    if (StartsWithNoCase(s, i, "am/pm")) {
      Add(Op::AmPm, static_cast<uint8_t>(lowerAt(i) | lowerAt(i + 3) << 1));
      i += 5;
    } else if (StartsWithNoCase(s, i, "a/p")) {
      Add(Op::AP, static_cast<uint8_t>(lowerAt(i) | lowerAt(i + 2) << 1));
      i += 3;
    } else if (StartsWithNoCase(s, i, "ampm")) {
      Add(Op::AmPm, 0);  // the locale's designators
      i += 4;
    } else {
      return false;
    }
    section.twelveHour = true;
    return true;
  }

  // ---- strings ----

  void CompileString(std::string_view s, Section& section) {
    bool lower = false, upper = false;
    for (size_t i = 0; i < s.size();) {
      switch (s[i]) {
        case '@':
          Add(Op::CharOrSpace), ++section.placeholders;
          break;
        case '&':
          Add(Op::CharOrNothing), ++section.placeholders;
          break;
        case '<':
          lower = true;
          break;
        case '>':
          upper = true;
          break;
        case '!':
          section.padAtEnd = true;
          break;
        default:
          AddLiteralAt(s, i);
          continue;
      }
      ++i;
    }
    section.caseMode = lower ? CaseMode::Lower : upper ? CaseMode::Upper : CaseMode::Keep;
  }

  FormatProgram& f_;
  size_t sectionBegin_ = 0;
};

}  // namespace

FormatProgram CompileFormat(std::string_view pattern) {
  FormatProgram program;
  FormatCompiler(program).Compile(pattern);
  return program;
}

}  // namespace quilta::fmt
