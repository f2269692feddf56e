#include "platform/qvdds.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "support/BmpFile.h"
#include "support/TempFolder.h"

namespace {

constexpr int kSide = 64;

std::uint32_t Byte(const std::string& file, std::size_t at) {
  return static_cast<unsigned char>(file.at(at));
}

std::uint32_t Word(const std::string& file, std::size_t at) {
  return Byte(file, at) | Byte(file, at + 1) << 8U | Byte(file, at + 2) << 16U |
         Byte(file, at + 3) << 24U;
}

/// Soft slopes that tell left from right and top from bottom, blue from red, and a corner of one
/// colour.
std::uint32_t CloudColor(int x, int y) {
  if (x >= 48 && y >= 48) {
    return 0xFFFFFF;
  }
  const auto red = static_cast<std::uint32_t>(150 + x / 2);
  const auto green = static_cast<std::uint32_t>(210 - y / 2);
  const auto blue = static_cast<std::uint32_t>(std::lround(180 + 20 * std::sin(x * 0.1 + y * 0.1)));
  return red << 16U | green << 8U | blue;
}

std::uint32_t CloudAlpha(int x, int y) { return static_cast<std::uint32_t>((x * 5 + y * 3) % 256); }

/// Two sheets and an output in a folder of their own.
struct Sheets {
  TempFolder folder;
  std::string Path(const char* name) const { return folder.string() + "\\" + name; }
  void Write(const BmpFile& color, const BmpFile& alpha) const {
    WriteText(folder / "c.bmp", color.Bytes());
    WriteText(folder / "a.bmp", alpha.Bytes());
  }
  std::int32_t Merge(std::int32_t format) const {
    return platform::BMPScompressBMP(Path("c.bmp"), Path("A.bmp"), format, -1, -1, Path("out.bmp"));
  }
  std::string Output() const { return ReadText(folder / "out.bmp"); }
};

std::string Headers(std::uint32_t width, std::uint32_t height, std::uint32_t bits,
                    const char* compression, std::uint32_t pixel_bytes) {
  std::string file = "BM";
  for (const std::uint32_t field : {74 + pixel_bytes, 0U, 74U, 40U, width, height}) {
    BmpFile::Put(file, field, 4);
  }
  BmpFile::Put(file, 1, 2);
  BmpFile::Put(file, bits, 2);
  file.append(compression, 4);
  for (const std::uint32_t field : {pixel_bytes, 0U, 0U, 0U, 0U}) {
    BmpFile::Put(file, field, 4);
  }
  file += "FS70";
  for (const std::uint32_t field : {20U, 0x400U, 0U, 0U}) {
    BmpFile::Put(file, field, 4);
  }
  return file;
}

TEST(BMPScompressBMP, ThirtyTwoBitIsTheSheetsByteForByte) {
  for (const bool inverted_table : {false, true}) {
    const Sheets sheets;
    sheets.Write(ColorBmp(6, 3, CloudColor), GreyBmp(6, 3, inverted_table, CloudAlpha));
    ASSERT_EQ(1, sheets.Merge(platform::kFormat32Bit));
    std::string expected = Headers(6, 3, 32, "\0\0\0\0", 72);
    for (int y = 2; y >= 0; --y) {
      for (int x = 0; x < 6; ++x) {
        BmpFile::Put(expected, CloudColor(x, y) | CloudAlpha(x, y) << 24U, 4);
      }
    }
    EXPECT_EQ(expected, sheets.Output());
  }
}

/// The four colours of a block in four-colour order, red, green, blue each.
std::array<std::array<int, 3>, 4> Palette(std::uint32_t c0, std::uint32_t c1) {
  std::array<std::array<int, 3>, 4> colors{};
  for (std::size_t i = 0; i < 2; ++i) {
    const auto c = static_cast<int>(i == 0 ? c0 : c1);
    const int red = c >> 11;
    const int green = (c >> 5) & 63;
    const int blue = c & 31;
    colors[i] = {red << 3 | red >> 2, green << 2 | green >> 4, blue << 3 | blue >> 2};
  }
  for (std::size_t part = 0; part < 3; ++part) {
    colors[2][part] = (2 * colors[0][part] + colors[1][part]) / 3;
    colors[3][part] = (colors[0][part] + 2 * colors[1][part]) / 3;
  }
  return colors;
}

double ColorPsnr(double squares, int pixels) {
  return 10 * std::log10(255.0 * 255.0 / (squares / (3.0 * pixels)));
}

TEST(BMPScompressBMP, DXT3DecodesToTheSheets) {
  const Sheets sheets;
  sheets.Write(ColorBmp(kSide, kSide, CloudColor), GreyBmp(kSide, kSide, false, CloudAlpha));
  ASSERT_EQ(1, sheets.Merge(platform::kFormatDXT3));
  const std::string file = sheets.Output();
  const std::string headers = Headers(kSide, kSide, 16, "DXT3", kSide * kSide);
  ASSERT_EQ(headers.size() + kSide * kSide, file.size());
  EXPECT_EQ(headers, file.substr(0, headers.size()));
  double squares = 0;
  for (int i = 0; i < kSide * kSide; ++i) {
    const int x = i % kSide;
    const int from_bottom = i / kSide;
    const int y = kSide - 1 - from_bottom;
    const auto block = static_cast<std::size_t>(74 + (from_bottom / 4 * (kSide / 4) + x / 4) * 16);
    const auto pixel = static_cast<unsigned>(from_bottom % 4 * 4 + x % 4);
    const std::uint32_t alpha = Byte(file, block + pixel / 2) >> (pixel % 2 * 4) & 15U;
    ASSERT_EQ((CloudAlpha(x, y) * 15 + 127) / 255, alpha) << x << ',' << y;
    const std::uint32_t c0 = Word(file, block + 8) & 0xFFFF;
    const std::uint32_t c1 = Word(file, block + 8) >> 16;
    ASSERT_TRUE(c0 > c1 || (c0 == c1 && Word(file, block + 12) == 0));
    const std::uint32_t index = Word(file, block + 12) >> (pixel * 2) & 3U;
    const auto color = Palette(c0, c1).at(index);
    for (unsigned part = 0; part < 3; ++part) {
      const int wanted = static_cast<int>(CloudColor(x, y) >> (16 - part * 8) & 0xFF);
      squares += std::pow(color.at(part) - wanted, 2);
    }
  }
  EXPECT_GT(ColorPsnr(squares, kSide * kSide), 46.0);
}

TEST(BMPScompressBMP, BadSheetsLeaveTheOldTexture) {
  struct Case {
    const char* name;
    BmpFile color;
    BmpFile alpha;
    std::int32_t format;
  };
  const BmpFile color = ColorBmp(8, 8, CloudColor);
  const BmpFile alpha = GreyBmp(8, 8, false, CloudAlpha);
  BmpFile cut = color;
  cut.pixels.pop_back();
  const Case cases[] = {
      {"colour cut off", cut, alpha, 12},
      {"no colour depth", alpha, alpha, 12},
      {"no alpha depth", color, color, 17},
      {"widths differ", color, GreyBmp(4, 8, false, CloudAlpha), 17},
      {"heights differ", ColorBmp(8, 4, CloudColor), alpha, 17},
      {"no whole blocks", ColorBmp(6, 4, CloudColor), GreyBmp(6, 4, false, CloudAlpha), 12},
      {"unknown format", color, alpha, 13},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    const Sheets sheets;
    WriteText(sheets.folder / "out.bmp", "old");
    sheets.Write(row.color, row.alpha);
    EXPECT_EQ(0, sheets.Merge(row.format));
    EXPECT_EQ("old", sheets.Output());
  }
  const Sheets nothing;
  EXPECT_EQ(0, nothing.Merge(platform::kFormatDXT3));
  nothing.Write(color, alpha);
  EXPECT_EQ(1, nothing.Merge(platform::kFormatDXT3));
}

}  // namespace
