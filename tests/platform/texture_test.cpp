#include "platform/qvdds.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "platform/FileSystem.h"
#include "support/BmpFile.h"
#include "support/TempFolder.h"

namespace {

constexpr std::size_t kSide = 64;
constexpr std::uint32_t kDXT3 = 0x33545844;  ///< the letters, the first one in the lowest byte
constexpr std::uint32_t kFS70 = 0x30375346;

/// A number of the file, little-endian.
std::uint32_t Number(const std::string& file, std::size_t at, std::size_t bytes) {
  std::uint32_t value = 0;
  for (std::size_t i = bytes; i-- > 0;) {
    value = value << 8U | static_cast<unsigned char>(file.at(at + i));
  }
  return value;
}

/// Soft slopes that tell left from right and top from bottom, blue from red, and a corner of one
/// colour.
std::uint32_t CloudColor(int x, int y) {
  const auto red = static_cast<std::uint32_t>(150 + x / 2);
  const auto green = static_cast<std::uint32_t>(210 - y / 2);
  const auto blue = static_cast<std::uint32_t>(std::lround(180 + 20 * std::sin(x * 0.1 + y * 0.1)));
  return x >= 48 && y >= 48 ? 0xFFFFFF : red << 16U | green << 8U | blue;
}

std::uint32_t CloudAlpha(int x, int y) { return static_cast<std::uint32_t>((x * 5 + y * 3) % 256); }

/// The output for two sheets; what was there before if they are refused.
std::string Merge(const BmpFile& color, const BmpFile& alpha, std::int32_t format) {
  const TempFolder folder;
  platform::FileSystem files("~test-");
  const auto path = [&folder](const char* name) { return folder.string() + "\\" + name; };
  WriteText(folder / "out.bmp", "old");
  WriteText(folder / "c.bmp", color.Bytes());
  WriteText(folder / "a.bmp", alpha.Bytes());
  const std::int32_t done = platform::BMPScompressBMP(path("c.bmp"), path("A.bmp"), format, -1, -1,
                                                      path("OUT.bmp"), files);
  std::string output = ReadText(folder / "out.bmp");
  EXPECT_EQ(done, output == "old" ? 0 : 1);
  return output;
}

std::string Headers(std::uint32_t width, std::uint32_t height, std::uint32_t bits,
                    std::uint32_t compression, std::uint32_t pixel_bytes) {
  std::string file = "BM";
  for (const std::uint32_t field :
       {74 + pixel_bytes, 0U, 74U, 40U, width, height, 1 | bits << 16U, compression, pixel_bytes,
        0U, 0U, 0U, 0U, kFS70, 20U, 0x400U, 0U, 0U}) {
    BmpFile::Put(file, field, 4);
  }
  return file;
}

TEST(BMPScompressBMP, ThirtyTwoBitIsTheSheetsByteForByte) {
  for (const bool inverted_table : {false, true}) {
    std::string expected = Headers(6, 3, 32, 0, 72);
    for (int i = 0; i < 18; ++i) {
      const int y = 2 - i / 6;
      BmpFile::Put(expected, CloudColor(i % 6, y) | CloudAlpha(i % 6, y) << 24U, 4);
    }
    EXPECT_EQ(expected, Merge(ColorBmp(6, 3, CloudColor), GreyBmp(6, 3, inverted_table, CloudAlpha),
                              platform::kFormat32Bit));
  }
}

/// A part of a colour of 5, 6 and 5 bits, widened to 8: 0 is red, 1 green, 2 blue.
int Part(std::uint32_t color, unsigned part) {
  constexpr std::array<unsigned, 3> kShift{11, 5, 0};
  const unsigned bits = part == 1 ? 6 : 5;
  const unsigned value = color >> kShift.at(part) & ((1U << bits) - 1);
  return static_cast<int>(value << (8 - bits) | value >> (2 * bits - 8));
}

TEST(BMPScompressBMP, DXT3DecodesToTheSheets) {
  constexpr std::array<int, 4> kThirdsOfFirst{3, 0, 2, 1};  // of the two ends, by index
  const std::string file = Merge(ColorBmp(64, 64, CloudColor), GreyBmp(64, 64, false, CloudAlpha),
                                 platform::kFormatDXT3);
  const std::string headers = Headers(64, 64, 16, kDXT3, 64 * 64);
  ASSERT_EQ(headers.size() + kSide * kSide, file.size());
  EXPECT_EQ(headers, file.substr(0, headers.size()));
  double squares = 0;
  for (std::size_t i = 0; i < kSide * kSide; ++i) {
    const std::size_t from_bottom = i / kSide;
    const int x = static_cast<int>(i % kSide);
    const int y = static_cast<int>(kSide - 1 - from_bottom);
    const std::size_t block = 74 + (from_bottom / 4 * (kSide / 4) + i % kSide / 4) * 16;
    const auto pixel = static_cast<unsigned>(from_bottom % 4 * 4 + i % 4);
    const std::uint32_t alpha = Number(file, block + pixel / 2, 1) >> (pixel % 2 * 4) & 15U;
    ASSERT_EQ((CloudAlpha(x, y) * 15 + 127) / 255, alpha) << x << ',' << y;
    const std::uint32_t first = Number(file, block + 8, 2);
    const std::uint32_t second = Number(file, block + 10, 2);
    const std::uint32_t indices = Number(file, block + 12, 4);
    ASSERT_TRUE(first > second || (first == second && indices == 0));
    const int thirds = kThirdsOfFirst.at(indices >> (pixel * 2) & 3U);
    for (unsigned part = 0; part < 3; ++part) {
      const int mixed = (thirds * Part(first, part) + (3 - thirds) * Part(second, part)) / 3;
      squares += std::pow(mixed - static_cast<int>(CloudColor(x, y) >> (16 - part * 8) & 0xFF), 2);
    }
  }
  // The signal-to-noise ratio of the colours, in decibels.
  EXPECT_GT(10 * std::log10(255.0 * 255.0 * 3 * kSide * kSide / squares), 46.0);
}

TEST(BMPScompressBMP, BadSheetsLeaveTheOldTexture) {
  const BmpFile color = ColorBmp(8, 8, CloudColor);
  const BmpFile alpha = GreyBmp(8, 8, false, CloudAlpha);
  BmpFile cut = color;
  cut.pixels.pop_back();
  EXPECT_EQ("old", Merge(cut, alpha, 12));
  EXPECT_EQ("old", Merge(alpha, alpha, 12));
  EXPECT_EQ("old", Merge(color, color, 17));
  EXPECT_EQ("old", Merge(color, GreyBmp(4, 8, false, CloudAlpha), 17));
  EXPECT_EQ("old", Merge(ColorBmp(8, 4, CloudColor), alpha, 17));
  EXPECT_EQ("old", Merge(ColorBmp(6, 4, CloudColor), GreyBmp(6, 4, false, CloudAlpha), 12));
  EXPECT_EQ("old", Merge(ColorBmp(4, 6, CloudColor), GreyBmp(4, 6, false, CloudAlpha), 12));
  EXPECT_EQ("old", Merge(color, alpha, 13));
}

}  // namespace
