#include "platform/text.h"

#include <gtest/gtest.h>

#include <array>

namespace {

struct Pair {
  const char* from;
  const char* to;
};

TEST(Text, EveryByteSurvivesTheWayThereAndBack) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) {
    bytes += static_cast<char>(i);
  }
  const std::string text = platform::FromAnsi(bytes);
  EXPECT_EQ(bytes, platform::ToAnsi(text));
  EXPECT_EQ(128 + 2 * 128 + 17, static_cast<int>(text.size()));  // 17 need three bytes
}

TEST(Text, AnsiIsCodePage1252) {
  constexpr auto kRows = std::to_array<Pair>({{"\x80 \x99 \x9F", "€ ™ Ÿ"},
                                              {"Z\xFCrich \xDF", "Zürich ß"},
                                              {"\x81\x8D", "\xC2\x81\xC2\x8D"}});
  for (const auto& [ansi, utf8] : kRows) {
    EXPECT_EQ(utf8, platform::FromAnsi(ansi));
    EXPECT_EQ(ansi, platform::ToAnsi(utf8));
  }
}

TEST(Text, WhatThePageLacksBecomesAQuestionMark) {
  constexpr auto kRows = std::to_array<Pair>({
      {"日本", "??"},
      {"a\xF0\x9F\x98\x80z", "a?z"},
      {"\xC2\x80", "?"},  // a control character whose byte means the euro sign
      {"\xE2\x82", "?"},  // cut off
      {"\xE2\x82x", "?x"},
      {"\xC0\xAF", "??"},            // overlong
      {"\xED\xA0\x80", "???"},       // surrogate
      {"\xF4\x90\x80\x80", "????"},  // above the last character
      {"\xFC", "?"},
  });
  for (const auto& [utf8, ansi] : kRows) {
    EXPECT_EQ(ansi, platform::ToAnsi(utf8)) << utf8;
  }
}

TEST(Text, NamesFold) {
  constexpr auto kSame = std::to_array<Pair>({
      {"SUN.BMP", "sun.bmp"},
      {"ÄÖÜÉŸ", "äöüéÿ"},
      {"ŁŽŐĲ", "łžőĳ"},
      {"ΆΣΏΩ", "άσώω"},
      {"ς", "σ"},
      {"ЁЖЯҐ", "ёжяґ"},
      {"ẼẞỲ", "ẽßỳ"},
      {"Ａ", "ａ"},
      {"\xFF"
       "A",
       "\xFF"
       "a"},
  });
  for (const auto& [a, b] : kSame) {
    EXPECT_TRUE(platform::SameName(a, b)) << a;
  }
  constexpr auto kOther = std::to_array<Pair>(
      {{"×", "÷"}, {"ı", "i"}, {"ß", "ss"}, {"@", "`"}, {"[", "{"}, {"\xC4", "\xE4"}, {"Ň", "ŉ"}});
  for (const auto& [a, b] : kOther) {
    EXPECT_FALSE(platform::SameName(a, b)) << a;
  }
}

TEST(Text, TrimTakesBlanksAlone) {
  EXPECT_EQ("a b\t", platform::Trim("  a b\t "));
  EXPECT_EQ("", platform::Trim("   "));
  EXPECT_EQ("abÄ", platform::LowerCase("ABÄ"));
}

}  // namespace
