#include "platform/text.h"

#include <gtest/gtest.h>

namespace {

/// One after the other in pairs.
using Words = std::vector<std::string>;

TEST(Text, IsCodePage1252) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) {
    bytes += static_cast<char>(i);
  }
  EXPECT_EQ(bytes, platform::ToAnsi(platform::FromAnsi(bytes)));
  EXPECT_EQ("€™Ÿ ü \xC2\x81", platform::FromAnsi("\x80\x99\x9F \xFC \x81"));
  // What the page lacks: the control character of the euro sign's byte, an invisible character, a
  // look-alike of '!'. Then sequences cut off, overlong, of a surrogate, above the last character.
  const Words rows = {
      "日本",          "??",  "a\xF0\x9F\x98\x80z", "a?z", "\xC2\x80\x7F",     "?\x7F",
      "a\u200B\uFF01", "a??", "\xE2\x82",           "?",   "\xE2\x82x",        "?x",
      "\xC0\xAF",      "??",  "\xED\xA0\x80",       "???", "\xF4\x90\x80\x80", "????"};
  for (std::size_t i = 0; i < rows.size(); i += 2) {
    EXPECT_EQ(rows[i + 1], platform::ToAnsi(rows[i]));
  }
}

TEST(Text, NamesFold) {
  const Words same = {"SUN[Z@].BMP", "sun[z@].bmp", "ÄÖÜÉŸ", "äöüéÿ", "ΆΣΏΩ",  "άςώω",
                      "ЁЖЯҐ",        "ёжяґ",        "ẞ",     "ß",     "\xFFZ", "\xFFz"};
  for (std::size_t i = 0; i < same.size(); i += 2) {
    EXPECT_TRUE(platform::SameName(same[i], same[i + 1])) << same[i];
  }
  const Words other = {"×", "÷", "ı", "i", "İ",    "i",    "ß", "ss",
                       "@", "`", "[", "{", "\xC4", "\xE4", "é", "e\u0301"};
  for (std::size_t i = 0; i < other.size(); i += 2) {
    EXPECT_FALSE(platform::SameName(other[i], other[i + 1])) << other[i];
  }
  EXPECT_EQ("a@z[bÄ", platform::LowerCase("A@Z[BÄ"));
}

TEST(Text, TrimTakesBlanksAlone) {
  EXPECT_EQ("a b\t", platform::Trim("  a b\t "));
  EXPECT_EQ("", platform::Trim("   "));
}

}  // namespace
