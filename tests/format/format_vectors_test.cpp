// Every row of the shared reference table of formatting cases must reproduce exactly.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <quilta/variant.hpp>
#include <sstream>
#include <string>
#include <vector>

namespace {

using quilta::Variant;

std::vector<std::string> SplitTabs(const std::string& line) {
  std::vector<std::string> fields;
  size_t start = 0;
  for (size_t tab; (tab = line.find('\t', start)) != std::string::npos; start = tab + 1)
    fields.push_back(line.substr(start, tab - start));
  fields.push_back(line.substr(start));
  return fields;
}

// "1234.5" -> 12345000 ten-thousandths, without going through the code under test.
int64_t ScaledCurrency(const std::string& text) {
  const bool negative = !text.empty() && text[0] == '-';
  const size_t point = text.find('.');
  const std::string whole =
      text.substr(negative ? 1 : 0,
                  point == std::string::npos ? std::string::npos : point - (negative ? 1 : 0));
  std::string decimals = point == std::string::npos ? "" : text.substr(point + 1);
  decimals.resize(4, '0');
  const int64_t scaled = std::stoll(whole) * 10000 + std::stoll(decimals);
  return negative ? -scaled : scaled;
}

// "yyyy-mm-dd" or "yyyy-mm-ddThh:mm:ss"; before 1899-12-30 the time is subtracted.
double DateSerialOf(const std::string& text) {
  const int y = std::stoi(text.substr(0, 4)), m = std::stoi(text.substr(5, 2)),
            d = std::stoi(text.substr(8, 2));
  const double day = quilta::DateSerial(y, m, d).DateValue();
  if (text.size() < 19) return day;
  const double time =
      quilta::TimeSerial(std::stoi(text.substr(11, 2)), std::stoi(text.substr(14, 2)),
                         std::stoi(text.substr(17, 2)))
          .DateValue();
  return day < 0 ? day - time : day + time;
}

Variant ValueOf(const std::string& type, const std::string& value) {
  if (type == "long") return Variant(std::stoi(value));
  if (type == "double") return Variant(std::strtod(value.c_str(), nullptr));
  if (type == "currency") return Variant::CurrencyFromScaled(ScaledCurrency(value));
  if (type == "date") return Variant::Date(DateSerialOf(value));
  if (type == "string") return Variant(value);
  if (type == "bool") return Variant(value == "True");
  if (type == "null") return Variant::Null();
  return Variant();
}

TEST(FormatVectors, EveryRowMatches) {
  const std::string path = std::string(QUILTA_SOURCE_DIR) + "/tests/format/data/format-vectors.tsv";
  std::ifstream in(path);
  ASSERT_TRUE(in) << "cannot open " << path;
  std::string line;
  std::getline(in, line);
  ASSERT_EQ(line, "type\tvalue\tformat\texpected\tnote");
  int rows = 0, failures = 0;
  while (std::getline(in, line)) {
    if (line.empty()) continue;
    const std::vector<std::string> f = SplitTabs(line);
    ASSERT_EQ(f.size(), 5u) << "malformed row: " << line;
    ++rows;
    const std::string actual = quilta::Format(ValueOf(f[0], f[1]), f[2]);
    if (actual != f[3]) {
      ++failures;
      ADD_FAILURE() << f[0] << " '" << f[1] << "' with '" << f[2] << "': expected '" << f[3]
                    << "', got '" << actual << "'  (" << f[4] << ")";
    }
  }
  EXPECT_GT(rows, 100);
  EXPECT_EQ(failures, 0);
}

}  // namespace
