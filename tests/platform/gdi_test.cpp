#include "platform/gdi.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/BmpFile.h"
#include "support/TempFolder.h"

namespace {

using platform::ColorRef;
using platform::RGB;

constexpr std::uint32_t kLoad = platform::LR_LOADFROMFILE | platform::LR_CREATEDIBSECTION;
constexpr ColorRef kRed = RGB(255, 0, 0);
constexpr ColorRef kGreen = RGB(0, 255, 0);
constexpr ColorRef kBlue = RGB(0, 0, 255);
constexpr ColorRef kWhite = RGB(255, 255, 255);

platform::HBITMAP Load(const std::string& bytes) {
  const TempFolder folder;
  WriteText(folder / "Picture.bmp", bytes);
  return platform::LoadImageA(folder.string() + "\\picture.BMP", kLoad);
}

platform::HDC ContextOf(const platform::HBITMAP& bitmap) {
  platform::HDC dc = platform::CreateCompatibleDC({});
  EXPECT_TRUE(platform::SelectObject(dc, bitmap));
  return dc;
}

platform::HDC Section(int width, int height, std::uint16_t depth,
                      std::initializer_list<platform::RGBQuad> colors = {}) {
  platform::BitmapInfo info;
  info.header.width = width;
  info.header.height = height;
  info.header.bit_count = depth;
  std::ranges::copy(colors, info.colors.begin());
  return ContextOf(platform::CreateDIBSection({}, info));
}

/// The bytes of one row, top row 0, without filler.
std::vector<int> Row(const platform::HDC& dc, int y, int bytes) {
  const auto row =
      dc->bitmap->bits.begin() + std::ptrdiff_t{y} * static_cast<int>(dc->bitmap->stride);
  return {row, row + bytes};
}

struct Depth {
  const char* name;
  BmpFile file;
  int depth_in_memory;
};

TEST(LoadImageA, EveryDepthInBothDirections) {
  using namespace std::string_literals;
  // Each shows red, green in its first row of the file and blue, white in its second.
  const Depth depths[] = {
      {"1 bit", {.bits = 1, .words = {0xFF0000, 0x00FF00}, .pixels = "\x40\0\0\0"s}, 8},
      {"4 bits",
       {.bits = 4,
        .colors_used = 4,
        .words = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF},
        .pixels = "\x01\0\0\0\x23\0\0\0"s},
       8},
      {"8 bits",
       {.bits = 8,
        .colors_used = 4,
        .words = {0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF},
        .pixels = "\x00\x01\0\0\x02\x03\0\0"s},
       8},
      {"16 bits", {.bits = 16, .pixels = "\x00\x7C\xE0\x03\x1F\x00\xFF\x7F"s}, 24},
      {"16 bits, masks",
       {.bits = 16,
        .compression = 3,
        .words = {0xF800, 0x07E0, 0x001F},
        .pixels = "\x00\xF8\xE0\x07\x1F\x00\xFF\xFF"s},
       24},
      {"24 bits", {.pixels = "\0\0\xFF\0\xFF\0\0\0\xFF\0\0\xFF\xFF\xFF\0\0"s}, 24},
      {"32 bits",
       {.bits = 32, .pixels = "\0\0\xFF\x01\0\xFF\0\x02\xFF\0\0\x03\xFF\xFF\xFF\x04"s},
       32},
      {"32 bits, masks",
       {.bits = 32,
        .compression = 3,
        .words = {0x000000FF, 0x0000FF00, 0x00FF0000},
        .pixels = "\xFF\0\0\x01\0\xFF\0\x02\0\0\xFF\x03\xFF\xFF\xFF\x04"s},
       32},
  };
  for (Depth row : depths) {
    for (const bool top_down : {false, true}) {
      SCOPED_TRACE(std::string(row.name) + (top_down ? ", top-down" : ""));
      const int height = row.file.bits == 1 ? 1 : 2;
      row.file.width = 2;
      row.file.height = top_down ? -height : height;
      const auto bitmap = Load(row.file.Bytes());
      ASSERT_TRUE(bitmap);
      EXPECT_EQ(row.depth_in_memory, bitmap->bit_count);
      const auto dc = ContextOf(bitmap);
      const int first = top_down ? 0 : height - 1;
      EXPECT_EQ(kRed, platform::GetPixel(dc, 0, first));
      EXPECT_EQ(kGreen, platform::GetPixel(dc, 1, first));
      if (height == 2) {
        EXPECT_EQ(kBlue, platform::GetPixel(dc, 0, 1 - first));
        EXPECT_EQ(kWhite, platform::GetPixel(dc, 1, 1 - first));
      }
      EXPECT_EQ(platform::kInvalidColor, platform::GetPixel(dc, 2, 0));
      EXPECT_EQ(platform::kInvalidColor, platform::GetPixel(dc, 0, -1));
    }
  }
}

TEST(LoadImageA, RefusesWhatIsNoSoundBitmap) {
  const auto sound = [] {
    return BmpFile{.width = 2, .height = 2, .pixels = std::string(16, 'x')};
  };
  ASSERT_TRUE(Load(sound().Bytes()));
  constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
  const std::pair<const char*, void (*)(BmpFile&)> faults[] = {
      {"a row short", [](BmpFile& f) { f.pixels.resize(15); }},
      {"no pixels", [](BmpFile& f) { f.pixels.clear(); }},
      {"width 0", [](BmpFile& f) { f.width = 0; }},
      {"height 0", [](BmpFile& f) { f.height = 0; }},
      {"negative width", [](BmpFile& f) { f.width = -2; }},
      {"lowest height", [](BmpFile& f) { f.height = kLowest; }},
      {"lowest width", [](BmpFile& f) { f.width = kLowest; }},
      {"huge", [](BmpFile& f) { f.width = f.height = 100'000; }},
      {"huge top-down", [](BmpFile& f) { f.height = -100'000; }},
      {"wide as allowed, short", [](BmpFile& f) { f.width = f.height = 16384; }},
      {"7 bits", [](BmpFile& f) { f.bits = 7; }},
      {"0 bits", [](BmpFile& f) { f.bits = 0; }},
      {"two planes", [](BmpFile& f) { f.planes = 2; }},
      {"run length",
       [](BmpFile& f) {
         f.bits = 8;
         f.compression = 1;
       }},
      {"masks at 24 bits",
       [](BmpFile& f) {
         f.compression = 3;
         f.words = {1, 2, 4};
       }},
      {"an empty mask",
       [](BmpFile& f) {
         f.bits = 32;
         f.compression = 3;
         f.words = {1, 0, 4};
       }},
      {"a torn mask",
       [](BmpFile& f) {
         f.bits = 32;
         f.compression = 3;
         f.words = {5, 2, 8};
       }},
      {"masks cut off",
       [](BmpFile& f) {
         f.bits = 32;
         f.compression = 3;
         f.pixels.clear();
         f.words = {1};
       }},
      {"257 colours",
       [](BmpFile& f) {
         f.bits = 8;
         f.colors_used = 257;
         f.words.resize(257);
       }},
      {"3 colours of 1 bit",
       [](BmpFile& f) {
         f.bits = 1;
         f.colors_used = 3;
         f.words.resize(3);
       }},
      {"a table cut off",
       [](BmpFile& f) {
         f.bits = 8;
         f.words.resize(10);
       }},
      {"pixels in the header", [](BmpFile& f) { f.pixel_offset = 53; }},
      {"pixels at 0", [](BmpFile& f) { f.pixel_offset = 0; }},
      {"pixels outside", [](BmpFile& f) { f.pixel_offset = 71; }},
      {"pixels far outside", [](BmpFile& f) { f.pixel_offset = 0xFFFFFFFF; }},
      {"the oldest header", [](BmpFile& f) { f.header_size = 12; }},
      {"an endless header", [](BmpFile& f) { f.header_size = 0xFFFFFFFF; }},
  };
  for (const auto& [name, spoil] : faults) {
    BmpFile file = sound();
    spoil(file);
    EXPECT_FALSE(Load(file.Bytes())) << name;
  }
  EXPECT_FALSE(Load("BX" + sound().Bytes().substr(2)));
  EXPECT_FALSE(Load(""));
  EXPECT_FALSE(Load("BM"));
  EXPECT_FALSE(platform::LoadImageA("\\no\\such.bmp", kLoad));
}

TEST(CreateDIBSection, IsEmptyOfColourAndOfSoundSizeOnly) {
  const auto dc = Section(3, 2, 24);
  EXPECT_EQ(std::vector<std::uint8_t>(24, 0), dc->bitmap->bits);  // rows of 9 bytes padded to 12
  for (const auto& [width, height, depth] : {std::tuple{0, 1, 24},
                                             {1, 0, 24},
                                             {-1, 1, 24},
                                             {1, 1, 7},
                                             {16385, 1, 8},
                                             {1, std::numeric_limits<int>::min(), 24}}) {
    platform::BitmapInfo info;
    info.header.width = width;
    info.header.height = height;
    info.header.bit_count = static_cast<std::uint16_t>(depth);
    EXPECT_FALSE(platform::CreateDIBSection({}, info)) << width << 'x' << height << 'x' << depth;
  }
}

TEST(StretchBlt, CopiesWhatLiesOnBothBitmaps) {
  const auto source = Section(4, 1, 8);
  source->bitmap->bits = {1, 2, 3, 4};
  struct {
    int x, width, source_x, source_width;
    std::vector<int> row;
  } const cases[] = {
      {0, 4, 0, 4, {1, 2, 3, 4}},
      {1, 4, 0, 4, {9, 1, 2, 3}},
      {-1, 4, 0, 4, {2, 3, 4, 9}},
      {0, 4, 2, 4, {3, 4, 9, 9}},
      {0, 4, -1, 4, {9, 1, 2, 3}},
      {4, 4, 0, 4, {9, 9, 9, 9}},
      {0, 4, 0, 2, {1, 1, 2, 2}},
      {0, 2, 0, 4, {1, 3, 9, 9}},
      {std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 0, 4, {9, 9, 9, 9}},
  };
  for (const auto& row : cases) {
    const auto target = Section(4, 1, 8);
    target->bitmap->bits = {9, 9, 9, 9};
    EXPECT_TRUE(platform::StretchBlt(target, row.x, 0, row.width, 1, source, row.source_x, 0,
                                     row.source_width, 1, platform::SRCCOPY));
    EXPECT_EQ(row.row, Row(target, 0, 4)) << row.x << ' ' << row.width << ' ' << row.source_x;
  }
  const auto target = Section(4, 1, 8);
  const auto none = platform::CreateCompatibleDC({});
  EXPECT_FALSE(platform::StretchBlt(target, 0, 0, 4, 1, none, 0, 0, 4, 1, platform::SRCCOPY));
  EXPECT_FALSE(platform::StretchBlt(none, 0, 0, 4, 1, source, 0, 0, 4, 1, platform::SRCCOPY));
  EXPECT_FALSE(platform::StretchBlt(target, 0, 0, 0, 1, source, 0, 0, 4, 1, platform::SRCCOPY));
  EXPECT_FALSE(platform::StretchBlt(target, 0, 0, 4, 1, source, 0, 0, 4, 1, 0));
  // Inside one bitmap the old pixels are what is copied.
  EXPECT_TRUE(platform::StretchBlt(source, 1, 0, 3, 1, source, 0, 0, 3, 1, platform::SRCCOPY));
  EXPECT_EQ((std::vector<int>{1, 1, 2, 3}), Row(source, 0, 4));
}

TEST(StretchBlt, MatchesColoursBetweenDepths) {
  const auto greys = Section(2, 1, 8, {{0, 0, 0, 0}, {100, 100, 100, 0}, {200, 200, 200, 0}});
  greys->bitmap->bits = {2, 1, 0, 0};
  const auto copy = [](const platform::HDC& target, const platform::HDC& source) {
    EXPECT_TRUE(platform::StretchBlt(target, 0, 0, 2, 1, source, 0, 0, 2, 1, platform::SRCCOPY));
  };
  // 200 is nearest to 190, and 100 as near to 90 as to 110: the lower index wins.
  const auto other = Section(2, 1, 8, {{110, 110, 110, 0}, {90, 90, 90, 0}, {190, 190, 190, 0}});
  copy(other, greys);
  EXPECT_EQ((std::vector<int>{2, 0}), Row(other, 0, 2));
  const auto true_color = Section(2, 1, 24);
  copy(true_color, greys);
  EXPECT_EQ((std::vector<int>{200, 200, 200, 100, 100, 100}), Row(true_color, 0, 6));
  const auto deep = Section(2, 1, 32);
  copy(deep, true_color);
  EXPECT_EQ((std::vector<int>{200, 200, 200, 255, 100, 100, 100, 255}), Row(deep, 0, 8));
  const auto back = Section(2, 1, 24);
  copy(back, deep);
  EXPECT_EQ(true_color->bitmap->bits, back->bitmap->bits);
  const auto matched = Section(2, 1, 8, {{0, 0, 0, 0}, {100, 100, 100, 0}, {200, 200, 200, 0}});
  copy(matched, deep);
  EXPECT_EQ(greys->bitmap->bits, matched->bitmap->bits);
}

TEST(GetDIBits, GivesRowsFromTheBottom) {
  const auto dc = Section(3, 2, 8, {{1, 2, 3, 0}});
  dc->bitmap->bits = {1, 2, 3, 0, 4, 5, 6, 0};
  platform::BitmapInfo info;
  info.header.width = 3;
  info.header.height = 2;
  info.header.bit_count = 8;
  std::vector<std::uint8_t> pixels(8, 0xEE);
  EXPECT_EQ(2, platform::GetDIBits(dc, dc->bitmap, 0, 5, pixels, info));
  EXPECT_EQ((std::vector<std::uint8_t>{4, 5, 6, 0, 1, 2, 3, 0}), pixels);
  EXPECT_EQ(8U, info.header.size_image);
  EXPECT_EQ(3, info.colors[0].red);
  EXPECT_EQ(1, platform::GetDIBits(dc, dc->bitmap, 1, 1, pixels, info));
  EXPECT_EQ(1, pixels[0]);
  EXPECT_EQ(0, platform::GetDIBits(dc, dc->bitmap, 2, 1, pixels, info));
  EXPECT_EQ(0, platform::GetDIBits(dc, dc->bitmap, 0, 2, std::span(pixels).first(7), info));
  info.header.bit_count = 24;
  EXPECT_EQ(0, platform::GetDIBits(dc, dc->bitmap, 0, 1, pixels, info));
}

TEST(ColorTable, HoldsForEightBitsOnly) {
  const auto dc = Section(1, 1, 8, {{1, 2, 3, 0}, {4, 5, 6, 0}});
  std::array<platform::RGBQuad, 300> colors{};
  EXPECT_EQ(255U, platform::GetDIBColorTable(dc, 1, colors));
  EXPECT_EQ(5, colors[0].green);
  EXPECT_EQ(2U, platform::SetDIBColorTable(dc, 254, colors));
  EXPECT_EQ(5, dc->bitmap->colors[254].green);
  EXPECT_EQ(0U, platform::SetDIBColorTable(dc, 256, colors));
  EXPECT_EQ(0U, platform::GetDIBColorTable(Section(1, 1, 24), 0, colors));
  EXPECT_EQ(0U, platform::SetDIBColorTable(platform::CreateCompatibleDC({}), 0, colors));
}

}  // namespace
