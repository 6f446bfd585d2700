// UTF-8 case mapping and comparison used by keys, sorting and key search.
#include "model/text/text.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace quilta::text;

TEST(TextCase, MapsAsciiLatinGreekCyrillic) {
  EXPECT_EQ(ToLower("Hello, World 42"), "hello, world 42");
  EXPECT_EQ(ToUpper("Hello, World 42"), "HELLO, WORLD 42");
  EXPECT_EQ(ToLower("ÀÉÎÕÜÝÞ×"), "àéîõüýþ×");
  EXPECT_EQ(ToUpper("àéîõüýþ÷ÿ"), "ÀÉÎÕÜÝÞ÷Ÿ");
  EXPECT_EQ(ToUpper("ß"), "ß");  // no single upper-case letter
  EXPECT_EQ(ToLower("ĀĂĄĆČĎĐĒĹĽŁŃŇŊŒŘŠŤŮŹŻŽŸ"), "āăąćčďđēĺľłńňŋœřšťůźżžÿ");
  EXPECT_EQ(ToUpper("āăąćčďđēĺľłńňŋœřšťůźżžſı"), "ĀĂĄĆČĎĐĒĹĽŁŃŇŊŒŘŠŤŮŹŻŽSI");
  EXPECT_EQ(ToLower("İ"), "i");
  EXPECT_EQ(ToLower("ΑΒΓΆΈΉΊΌΎΏΪΫ"), "αβγάέήίόύώϊϋ");
  EXPECT_EQ(ToUpper("αβγς ϊϋ άώ"), "ΑΒΓΣ ΪΫ ΆΏ");
  EXPECT_EQ(ToLower("ЁЖЯЀЏҐӁӐ"), "ёжяѐџґӂӑ");
  EXPECT_EQ(ToUpper("ёжяѐџґӂӑӏ"), "ЁЖЯЀЏҐӁӐӀ");
  EXPECT_EQ(ToUpper("日本語 €"), "日本語 €");
}

TEST(TextCase, InvalidUtf8PassesThroughUnchanged) {
  const std::string broken =
      std::string("a\xC3") + "\xFF" + "B\xE2\x82" + "\xC0\xAF" + "\xED\xA0\x80";
  EXPECT_EQ(ToLower(broken),
            std::string("a\xC3") + "\xFF" + "b\xE2\x82" + "\xC0\xAF" + "\xED\xA0\x80");
  EXPECT_EQ(ToUpper("\xC3"), "\xC3");  // truncated at the very end
  EXPECT_EQ(ToUpper(std::string("\xC3\xA9\xF4", 3)), "É\xF4");
}

TEST(TextCompare, BinaryIsByteOrder) {
  EXPECT_EQ(CompareBinary("a", "b"), -1);
  EXPECT_EQ(CompareBinary("B", "a"), -1);
  EXPECT_EQ(CompareBinary("ab", "a"), 1);
  EXPECT_EQ(CompareBinary("", ""), 0);
  EXPECT_EQ(CompareBinary("é", "z"), 1);
  EXPECT_EQ(CompareBinary(std::string("a\0b", 3), std::string("a\0c", 3)), -1);
}

TEST(TextCompare, NoCaseFoldsCodePoints) {
  EXPECT_EQ(CompareNoCase("HeLLo", "hello"), 0);
  EXPECT_EQ(CompareNoCase("apple", "Banana"), -1);
  EXPECT_EQ(CompareNoCase("abc", "AB"), 1);
  EXPECT_EQ(CompareNoCase("", "a"), -1);
  EXPECT_EQ(CompareNoCase("Ärger über Öl", "äRGER ÜBER öL"), 0);
  EXPECT_EQ(CompareNoCase("ΟΔΥΣΣΕΥΣ", "οδυσσευς"), 0);  // final sigma folds to sigma
  EXPECT_EQ(CompareNoCase("МОСКВА", "москва"), 0);
  EXPECT_EQ(CompareNoCase("ſ", "S"), 0);
  EXPECT_EQ(CompareNoCase("ı", "I"), 1);  // dotless i stays apart
  EXPECT_EQ(CompareNoCase("a\xFF", "A\xFF"), 0);
  EXPECT_EQ(CompareNoCase("a\xFE", "A\xFF"), -1);
  EXPECT_EQ(CompareNoCase("Z", "é"), -1);
  EXPECT_EQ(CompareNoCase("é", "Z"), 1);
}

}  // namespace
