// The parsed form of a format string.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quilta::fmt {

// What a format's placeholders format; Unknown when it holds literals only.
enum class FormatKind : uint8_t { Unknown, Number, Date, String };

// Named formats that are not a pattern in disguise.
enum class NamedMode : uint8_t { None, GeneralNumber, YesNo, TrueFalse, OnOff, GeneralDate };

enum class Op : uint8_t {
  Literal,  // literals[a, a + b)
  // numbers
  IntDigit,      // integer placeholder number a (0 = leftmost)
  FracDigit,     // decimal placeholder number a (0 = tenths)
  DecimalPoint,  //
  ExpMark,       // letter a; flags 1 = always write the sign
  ExpDigits,     // at least a digits
  // dates
  Day,
  Day2,
  DayAbbr,
  DayName,
  ShortDate,
  LongDate,
  Weekday,
  Week,
  Month,
  Month2,
  MonthAbbr,
  MonthName,
  Quarter,
  DayOfYear,
  Year2,
  Year4,
  Hour,
  Hour2,
  Minute,
  Minute2,
  Second,
  Second2,
  LongTime,
  GeneralDate,
  AmPm,  // flags 1 = lower-case "am", 2 = lower-case "pm"
  AP,    // same flags for "a" / "p"
  // strings
  CharOrSpace,    // @
  CharOrNothing,  // &
};

struct Token {
  Op op = Op::Literal;
  uint8_t flags = 0;
  uint32_t a = 0;
  uint32_t b = 0;
};

struct NumberLayout {
  int32_t intPlaces = 0;      // placeholders before the decimal point
  int32_t fracPlaces = 0;     // placeholders after it
  int32_t firstIntZero = 0;   // leftmost '0' of the integer field (intPlaces when none)
  int32_t lastFracZero = -1;  // rightmost '0' among the decimals (-1 when none)
  int32_t shift = 0;          // power of ten applied first: +2 per %, -3 per scaling comma
  bool grouping = false;
  bool scientific = false;
};

enum class CaseMode : uint8_t { Keep, Lower, Upper };

struct Section {
  uint32_t begin = 0, end = 0;  // tokens[begin, end)
  bool empty = true;            // nothing at all was written between the separators
  NumberLayout number;
  bool twelveHour = false;   // an AM/PM token turns h into the 12-hour clock
  int32_t placeholders = 0;  // @ and &
  CaseMode caseMode = CaseMode::Keep;
  bool padAtEnd = false;  // ! moves the missing characters to the end
};

struct FormatProgram {
  std::string literals;
  std::vector<Token> tokens;
  std::vector<Section> sections;  // at most four; none for plain conversion and NamedMode
  FormatKind kind = FormatKind::Unknown;
  NamedMode named = NamedMode::None;

  std::string_view Literal(const Token& t) const {
    return std::string_view(literals).substr(t.a, t.b);
  }
};

// Never fails: characters without a meaning in the format's kind become literals.
FormatProgram CompileFormat(std::string_view pattern);

}  // namespace quilta::fmt
