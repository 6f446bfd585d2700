// Rendering a date section and the fixed US-English date texts (short and long date, long
// time, General Date).
#include <charconv>

#include "model/format/format_render.hpp"
#include "model/format/number_text.hpp"

namespace quilta::fmt {
namespace {

constexpr std::string_view kDayNames[7] = {"Sunday",   "Monday", "Tuesday", "Wednesday",
                                           "Thursday", "Friday", "Saturday"};
constexpr std::string_view kMonthNames[12] = {"January",   "February", "March",    "April",
                                              "May",       "June",     "July",     "August",
                                              "September", "October",  "November", "December"};

void AppendNumber(int64_t value, int minDigits, std::string& out) {
  if (minDigits == 2 && value >= 0 && value < 10) out.push_back('0');
  AppendInteger(value, out);
}

int Hour12(int hour) { return hour % 12 == 0 ? 12 : hour % 12; }

void AppendShortDate(const DateParts& d, std::string& out) {
  AppendNumber(d.month, 1, out);
  out.push_back('/');
  AppendNumber(d.day, 1, out);
  out.push_back('/');
  AppendNumber(d.year, 1, out);
}

void AppendLongDate(const DateParts& d, std::string& out) {
  out.append(kDayNames[d.weekday - 1]);
  out.append(", ");
  out.append(kMonthNames[d.month - 1]);
  out.push_back(' ');
  AppendNumber(d.day, 2, out);
  out.append(", ");
  AppendNumber(d.year, 1, out);
}

void AppendLongTime(const DateParts& d, std::string& out) {
  AppendNumber(Hour12(d.hour), 1, out);
  out.push_back(':');
  AppendNumber(d.minute, 2, out);
  out.push_back(':');
  AppendNumber(d.second, 2, out);
  out.append(d.hour < 12 ? " AM" : " PM");
}

void AppendMeridiem(const Token& t, bool pm, std::string& out) {
  const bool lower = (t.flags & (pm ? 2 : 1)) != 0;
  char letter = pm ? 'P' : 'A';
  if (lower) letter = static_cast<char>(letter + 32);
  out.push_back(letter);
  if (t.op == Op::AmPm) out.push_back(lower ? 'm' : 'M');
}

}  // namespace

void AppendGeneralDate(const DateParts& d, std::string& out) {
  const bool hasTime = d.hour != 0 || d.minute != 0 || d.second != 0;
  const bool hasDate = d.dayNumber != 0;
  if (hasDate) AppendShortDate(d, out);
  if (hasDate && hasTime) out.push_back(' ');
  if (hasTime || !hasDate) AppendLongTime(d, out);
}

void AppendDateText(double serial, std::string& out) {
  DateParts d;
  if (SplitDateSerial(serial, d))
    AppendGeneralDate(d, out);
  else
    AppendDouble(serial, out);
}

void RenderDateSection(const FormatProgram& format, const Section& section, const DateParts& d,
                       std::string& out) {
  const Token* tokens = format.tokens.data();
  const int hour = section.twelveHour ? Hour12(d.hour) : d.hour;
  for (uint32_t k = section.begin; k < section.end; ++k) {
    const Token& t = tokens[k];
    switch (t.op) {
      case Op::Literal:
        out.append(format.Literal(t));
        break;
      case Op::Day:
        AppendNumber(d.day, 1, out);
        break;
      case Op::Day2:
        AppendNumber(d.day, 2, out);
        break;
      case Op::DayAbbr:
        out.append(kDayNames[d.weekday - 1].substr(0, 3));
        break;
      case Op::DayName:
        out.append(kDayNames[d.weekday - 1]);
        break;
      case Op::ShortDate:
        AppendShortDate(d, out);
        break;
      case Op::LongDate:
        AppendLongDate(d, out);
        break;
      case Op::Weekday:
        AppendNumber(d.weekday, 1, out);
        break;
      case Op::Week:
        AppendNumber(WeekOfYear(d), 1, out);
        break;
      case Op::Month:
        AppendNumber(d.month, 1, out);
        break;
      case Op::Month2:
        AppendNumber(d.month, 2, out);
        break;
      case Op::MonthAbbr:
        out.append(kMonthNames[d.month - 1].substr(0, 3));
        break;
      case Op::MonthName:
        out.append(kMonthNames[d.month - 1]);
        break;
      case Op::Quarter:
        AppendNumber((d.month - 1) / 3 + 1, 1, out);
        break;
      case Op::DayOfYear:
        AppendNumber(d.dayOfYear, 1, out);
        break;
      case Op::Year2:
        AppendNumber(d.year % 100, 2, out);
        break;
      case Op::Year4:
        AppendNumber(d.year, 1, out);
        break;
      case Op::Hour:
        AppendNumber(hour, 1, out);
        break;
      case Op::Hour2:
        AppendNumber(hour, 2, out);
        break;
      case Op::Minute:
        AppendNumber(d.minute, 1, out);
        break;
      case Op::Minute2:
        AppendNumber(d.minute, 2, out);
        break;
      case Op::Second:
        AppendNumber(d.second, 1, out);
        break;
      case Op::Second2:
        AppendNumber(d.second, 2, out);
        break;
      case Op::LongTime:
        AppendLongTime(d, out);
        break;
      case Op::GeneralDate:
        AppendGeneralDate(d, out);
        break;
      case Op::AmPm:
      case Op::AP:
        AppendMeridiem(t, d.hour >= 12, out);
        break;
      default:
        break;
    }
  }
}

}  // namespace quilta::fmt
