#include "model/format/value_parse.hpp"

#include <charconv>
#include <ctime>

#include "model/format/date_serial.hpp"

namespace quilta::fmt {
namespace {

bool IsSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

std::string_view Trim(std::string_view s) {
  while (!s.empty() && IsSpace(s.front())) s.remove_prefix(1);
  while (!s.empty() && IsSpace(s.back())) s.remove_suffix(1);
  return s;
}

void SkipSpaces(std::string_view s, size_t& i) {
  while (i < s.size() && IsSpace(s[i])) ++i;
}

// ---- numbers ----------------------------------------------------------------------------

void PushDigit(ParsedNumber& n, char c, bool integerPart) {
  if (n.count == 0 && c == '0') {
    if (!integerPart) --n.pointPos;  // zeros right after the point only move it
    return;
  }
  if (n.count < ParsedNumber::kMaxDigits) n.digits[n.count++] = c;
  if (integerPart) ++n.pointPos;
}

void SetInteger(ParsedNumber& n, int64_t value) {
  bool negative = n.negative;
  if (value < 0) negative = !negative, value = -value;
  n = ParsedNumber();
  n.negative = negative;
  char buf[24];
  auto r = std::to_chars(buf, buf + sizeof buf, value);
  for (const char* p = buf; p != r.ptr; ++p) PushDigit(n, *p, true);
}

// "&H1F" or "&O17" (the '&' already consumed); the value keeps the width of the type the
// runtime would give it, so 16 and 32 bit patterns with the top bit set are negative.
bool ParseRadixInteger(std::string_view s, size_t i, ParsedNumber& n) {
  if (i >= s.size()) return false;
  const char prefix = Lower(s[i++]);
  const int radix = prefix == 'h' ? 16 : prefix == 'o' ? 8 : 0;
  if (radix == 0 || i >= s.size()) return false;
  uint64_t value = 0;
  for (; i < s.size(); ++i) {
    const char c = Lower(s[i]);
    int digit = IsDigit(c) ? c - '0' : (c >= 'a' && c <= 'f') ? c - 'a' + 10 : 99;
    if (digit >= radix) return false;
    if (value > (UINT64_MAX >> 4)) return false;
    value = value * static_cast<uint64_t>(radix) + static_cast<uint64_t>(digit);
  }
  if (value > UINT32_MAX) return false;
  int64_t typed = value <= 0xFFFF ? static_cast<int16_t>(static_cast<uint16_t>(value))
                                  : static_cast<int32_t>(static_cast<uint32_t>(value));
  SetInteger(n, typed);
  return true;
}

bool ParseExponent(std::string_view s, size_t& i, int64_t& exponent) {
  size_t k = i + 1;
  bool negative = false;
  if (k < s.size() && (s[k] == '+' || s[k] == '-')) negative = s[k++] == '-';
  if (k >= s.size() || !IsDigit(s[k])) return false;
  int64_t value = 0;
  for (; k < s.size() && IsDigit(s[k]); ++k)
    if (value < 1000000) value = value * 10 + (s[k] - '0');
  exponent = negative ? -value : value;
  i = k;
  return true;
}

bool ParseMantissa(std::string_view s, size_t& i, ParsedNumber& n) {
  bool anyDigit = false;
  for (; i < s.size(); ++i) {
    if (IsDigit(s[i])) {
      PushDigit(n, s[i], true);
      anyDigit = true;
    } else if (s[i] != ',' || !anyDigit) {
      break;
    }
  }
  if (i < s.size() && s[i] == '.') {
    for (++i; i < s.size() && IsDigit(s[i]); ++i) {
      PushDigit(n, s[i], false);
      anyDigit = true;
    }
  }
  if (!anyDigit) return false;
  int64_t exponent = 0;
  if (i < s.size() && (Lower(s[i]) == 'e' || Lower(s[i]) == 'd') && !ParseExponent(s, i, exponent))
    return false;
  while (n.count > 0 && n.digits[n.count - 1] == '0') --n.count;
  if (n.count == 0) n.pointPos = 0;
  n.pointPos += n.count == 0 ? 0 : exponent;
  return true;
}

}  // namespace

bool ParseNumber(std::string_view text, ParsedNumber& n) {
  n = ParsedNumber();
  std::string_view s = Trim(text);
  const bool parens = s.size() >= 2 && s.front() == '(' && s.back() == ')';
  if (parens) s = Trim(s.substr(1, s.size() - 2));
  bool sign = false;
  bool dollar = false;
  size_t i = 0;
  while (i < s.size()) {
    if (!sign && (s[i] == '+' || s[i] == '-')) {
      sign = true;
      n.negative = s[i] == '-';
    } else if (!dollar && s[i] == '$') {
      dollar = true;
    } else {
      break;
    }
    ++i;
    SkipSpaces(s, i);
  }
  if (parens && sign) return false;
  n.negative = n.negative || parens;
  if (i < s.size() && s[i] == '&') return ParseRadixInteger(s, i + 1, n);
  if (!ParseMantissa(s, i, n)) return false;
  if (!sign && !parens && i < s.size() && (s[i] == '+' || s[i] == '-')) {
    n.negative = s[i] == '-';
    ++i;
  }
  return i == s.size();
}

bool ParsedNumber::ToDouble(double& value) const {
  if (count == 0) {
    value = 0.0;
    return true;
  }
  if (pointPos > 400) return false;
  if (pointPos < -400) {
    value = 0.0;
    return true;
  }
  char buf[kMaxDigits + 32] = "0.";
  char* p = buf + 2;
  for (int k = 0; k < count; ++k) *p++ = digits[k];
  *p++ = 'e';
  p = std::to_chars(p, buf + sizeof buf, pointPos).ptr;
  double magnitude = 0.0;
  auto r = std::from_chars(buf, p, magnitude);
  if (r.ec == std::errc::result_out_of_range) {
    if (pointPos > 0) return false;
    magnitude = 0.0;
  }
  value = negative ? -magnitude : magnitude;
  return true;
}

using Unsigned128 = unsigned __int128;

bool ParsedNumber::ToCurrency(int64_t& scaled) const {
  const int64_t integerDigits = pointPos + 4;  // digits of value * 10000 before its point
  if (count == 0 || integerDigits < 0) {
    scaled = 0;
    return true;
  }
  if (integerDigits > 19) return false;
  auto digitAt = [this](int64_t k) { return k < count ? digits[k] - '0' : 0; };
  Unsigned128 acc = 0;
  for (int64_t k = 0; k < integerDigits; ++k) acc = acc * 10 + digitAt(k);
  const int next = digitAt(integerDigits);
  const bool moreAfter = count > integerDigits + 1;
  if (next > 5 || (next == 5 && (moreAfter || (acc & 1) != 0))) ++acc;
  const Unsigned128 limit = negative ? (Unsigned128{1} << 63) : Unsigned128{INT64_MAX};
  if (acc > limit) return false;
  scaled = negative ? static_cast<int64_t>(-static_cast<__int128>(acc)) : static_cast<int64_t>(acc);
  return true;
}

// ---- dates ------------------------------------------------------------------------------

namespace {

enum class WordKind { Number, Month, Weekday, AmPm };

struct DateToken {
  WordKind kind = WordKind::Number;
  int value = 0;   // number, month 1-12, or 1 for PM / 0 for AM
  int digits = 0;  // digits written, for numbers
  char after = 0;  // separator right after a number: '/', '-', '.', ':' or 0
};

constexpr int kMaxDateTokens = 8;

struct DateTokens {
  DateToken items[kMaxDateTokens];
  int count = 0;
  bool used[kMaxDateTokens] = {};
};

constexpr std::string_view kMonthNames[12] = {"january",   "february", "march",    "april",
                                              "may",       "june",     "july",     "august",
                                              "september", "october",  "november", "december"};
constexpr std::string_view kWeekdayNames[7] = {"sunday",   "monday", "tuesday", "wednesday",
                                               "thursday", "friday", "saturday"};

// A word matches a name when it is the whole name or at least its first three letters.
bool MatchesName(std::string_view word, std::string_view name) {
  if (word.size() < 3 || word.size() > name.size()) return false;
  for (size_t k = 0; k < word.size(); ++k)
    if (Lower(word[k]) != name[k]) return false;
  return true;
}

bool ClassifyWord(std::string_view word, DateToken& t) {
  for (int m = 0; m < 12; ++m)
    if (MatchesName(word, kMonthNames[m])) return t = {WordKind::Month, m + 1, 0, 0}, true;
  for (int d = 0; d < 7; ++d)
    if (MatchesName(word, kWeekdayNames[d])) return t = {WordKind::Weekday, d + 1, 0, 0}, true;
  std::string_view w = word;
  if (w.size() <= 2) {
    const char a = Lower(w[0]);
    const bool meridiem = (a == 'a' || a == 'p') && (w.size() == 1 || Lower(w[1]) == 'm');
    if (meridiem) return t = {WordKind::AmPm, a == 'p' ? 1 : 0, 0, 0}, true;
  }
  return false;
}

bool IsDateSeparator(char c) { return c == '/' || c == '-' || c == '.' || c == ':'; }

bool Tokenize(std::string_view s, DateTokens& tokens) {
  size_t i = 0;
  while (i < s.size()) {
    const char c = s[i];
    if (IsSpace(c) || c == ',') {
      ++i;
      continue;
    }
    if (tokens.count == kMaxDateTokens) return false;
    DateToken& t = tokens.items[tokens.count];
    if (IsDigit(c)) {
      t = DateToken();
      for (; i < s.size() && IsDigit(s[i]); ++i) {
        if (++t.digits > 9) return false;
        t.value = t.value * 10 + (s[i] - '0');
      }
      if (i < s.size() && IsDateSeparator(s[i])) t.after = s[i++];
    } else if (IsLetter(c)) {
      const size_t start = i;
      while (i < s.size() && IsLetter(s[i])) ++i;
      std::string_view word = s.substr(start, i - start);
      if (word.size() == 1 && Lower(word[0]) == 't') continue;  // ISO date-time separator
      if (!ClassifyWord(word, t)) return false;
      if (t.kind != WordKind::AmPm && i < s.size() && IsDateSeparator(s[i]) && s[i] != ':') ++i;
    } else {
      return false;
    }
    ++tokens.count;
  }
  return tokens.count > 0;
}

bool IsNumberAt(const DateTokens& tokens, int k) {
  return k < tokens.count && tokens.items[k].kind == WordKind::Number;
}

// Finds "h:mm[:ss] [AM|PM]" or "h AM|PM", marks its tokens used, returns the time of day.
bool TakeTime(DateTokens& tokens, bool& found, double& timeOfDay) {
  found = false;
  int k = 0;
  while (k < tokens.count) {
    const DateToken& t = tokens.items[k];
    const bool colon = t.kind == WordKind::Number && t.after == ':' && IsNumberAt(tokens, k + 1);
    const bool meridiem = t.kind == WordKind::Number && t.after == 0 && k + 1 < tokens.count &&
                          tokens.items[k + 1].kind == WordKind::AmPm;
    if (colon || meridiem) break;
    ++k;
  }
  if (k == tokens.count) return true;
  found = true;
  int hour = tokens.items[k].value, minute = 0, second = 0;
  int last = k;
  if (tokens.items[k].after == ':') {
    minute = tokens.items[++last].value;
    if (tokens.items[last].after == ':') {
      if (!IsNumberAt(tokens, last + 1)) return false;
      second = tokens.items[++last].value;
    }
  }
  for (int u = k; u <= last; ++u) tokens.used[u] = true;
  if (last + 1 < tokens.count && tokens.items[last + 1].kind == WordKind::AmPm) {
    tokens.used[last + 1] = true;
    if (hour > 12) return false;
    hour = hour % 12 + (tokens.items[last + 1].value == 1 ? 12 : 0);
  }
  if (hour > 23 || minute > 59 || second > 59) return false;
  timeOfDay = (hour * 3600 + minute * 60 + second) / 86400.0;
  return true;
}

int CurrentYear() {
  const int64_t unixDays = static_cast<int64_t>(std::time(nullptr)) / 86400;
  DateParts parts;
  SplitDateSerial(static_cast<double>(unixDays + 25569), parts);
  return parts.year;
}

int ExpandYear(const DateToken& t) {
  if (t.digits > 2) return t.value;
  return t.value < 30 ? 2000 + t.value : 1900 + t.value;
}

bool LooksLikeYear(const DateToken& t) { return t.digits > 2 || t.value > 31; }

struct Ymd {
  int year = 0, month = 0, day = 0;
};

bool ResolveWithMonthName(int month, const DateToken* nums, int n, Ymd& d) {
  d.month = month;
  if (n == 1) {
    if (LooksLikeYear(nums[0])) return d.year = ExpandYear(nums[0]), d.day = 1, true;
    return d.year = CurrentYear(), d.day = nums[0].value, true;
  }
  if (n != 2) return false;
  const bool yearFirst = LooksLikeYear(nums[0]);
  d.day = nums[yearFirst ? 1 : 0].value;
  d.year = ExpandYear(nums[yearFirst ? 0 : 1]);
  return true;
}

bool ResolveNumeric(const DateToken* nums, int n, Ymd& d) {
  if (n == 3) {
    if (LooksLikeYear(nums[0])) {  // ISO order
      d = {ExpandYear(nums[0]), nums[1].value, nums[2].value};
      return true;
    }
    d = {ExpandYear(nums[2]), nums[0].value, nums[1].value};
  } else if (n == 2) {
    if (LooksLikeYear(nums[0])) return d = {ExpandYear(nums[0]), nums[1].value, 1}, true;
    if (LooksLikeYear(nums[1])) return d = {ExpandYear(nums[1]), nums[0].value, 1}, true;
    d = {CurrentYear(), nums[0].value, nums[1].value};
  } else {
    return false;
  }
  if (d.month > 12 && d.day <= 12) std::swap(d.month, d.day);  // day written first
  return true;
}

bool TakeDate(const DateTokens& tokens, bool& found, int64_t& dayNumber) {
  DateToken nums[kMaxDateTokens];
  int n = 0, month = 0, weekdays = 0;
  for (int k = 0; k < tokens.count; ++k) {
    if (tokens.used[k]) continue;
    const DateToken& t = tokens.items[k];
    if (t.kind == WordKind::Number) {
      if (t.after == ':') return false;
      nums[n++] = t;
    } else if (t.kind == WordKind::Month && month == 0) {
      month = t.value;
    } else if (t.kind == WordKind::Weekday && weekdays++ == 0) {
      continue;
    } else {
      return false;
    }
  }
  found = n > 0 || month != 0;
  if (!found) return weekdays == 0;
  Ymd d;
  if (!(month != 0 ? ResolveWithMonthName(month, nums, n, d) : ResolveNumeric(nums, n, d)))
    return false;
  if (d.year < 100 || d.year > 9999 || d.month < 1 || d.month > 12 || d.day < 1 ||
      d.day > DaysInMonth(d.year, d.month))
    return false;
  dayNumber = DayNumberOf(d.year, d.month, d.day);
  return true;
}

}  // namespace

bool ParseDateTime(std::string_view text, double& serial) {
  DateTokens tokens;
  if (!Tokenize(text, tokens)) return false;
  bool hasTime = false, hasDate = false;
  double timeOfDay = 0.0;
  int64_t dayNumber = 0;
  if (!TakeTime(tokens, hasTime, timeOfDay) || !TakeDate(tokens, hasDate, dayNumber)) return false;
  if (!hasTime && !hasDate) return false;
  serial = JoinDateSerial(dayNumber, timeOfDay);
  return true;
}

}  // namespace quilta::fmt
