#include "platform/bitmap_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

#include "support/BmpFile.h"

namespace {

using namespace std::string_literals;
using Words = std::vector<std::uint32_t>;
using Row = std::vector<std::uint8_t>;

constexpr std::uint32_t R = 0xFF0000;
constexpr std::uint32_t G = 0x00FF00;
constexpr std::uint32_t B = 0x0000FF;
constexpr std::uint32_t W = 0xFFFFFF;

/// A file of 2 x 2 pixels; `words` follow the header's 40 bytes.
BmpFile File(int bits, std::uint32_t compression, Words words, std::string pixels) {
  BmpFile file{.width = 2, .height = 2, .compression = compression};
  file.bits = static_cast<std::uint16_t>(bits);
  file.colors_used = bits <= 8 ? static_cast<std::uint32_t>(words.size()) : 0;
  file.words = std::move(words);
  file.pixels = std::move(pixels);
  return file;
}

platform::HBITMAP Decode(const std::string& bytes) {
  return platform::DecodeBitmapFile(std::as_bytes(std::span(bytes)));
}

platform::HDC ContextOf(const platform::HBITMAP& bitmap) {
  platform::HDC dc = platform::CreateCompatibleDC({});
  EXPECT_TRUE(platform::SelectObject(dc, bitmap));
  return dc;
}

/// The pixels as a letter for each of the four colours, row by row.
std::string Letters(const std::string& bytes) {
  const auto bitmap = Decode(bytes);
  std::string letters;
  for (int i = 0; bitmap && i < bitmap->width * bitmap->height; ++i) {
    const int x = i % bitmap->width;
    const auto color = platform::GetPixel(ContextOf(bitmap), x, i / bitmap->width);
    letters += x == 0 && i > 0 ? "/" : "";
    letters += color == 0xFF       ? 'R'
               : color == G        ? 'G'
               : color == 0xFF0000 ? 'B'
               : color == W        ? 'W'
                                   : '?';
  }
  return letters;
}

TEST(DecodeBitmapFile, ReadsEveryDepthInBothDirections) {
  const Words four = {R, G, B, W};
  // The file, its pixels stored bottom-up and top-down, the depth decoded.
  const std::vector<std::tuple<BmpFile, std::string, std::string, int>> rows = {
      {File(1, 0, {R, G}, "\x40\0\0\0\x80\0\0\0"s), "GR/RG", "RG/GR", 8},
      {File(4, 0, four, "\x01\0\0\0\x23\0\0\0"s), "BW/RG", "RG/BW", 8},
      {File(8, 0, four, "\0\1\0\0\2\3\0\0"s), "BW/RG", "RG/BW", 8},
      {File(16, 0, {}, "\0\x7C\xE0\3\x1F\0\xFF\x7F"s), "BW/RG", "RG/BW", 24},
      {File(16, 3, {0xF800, 0x07E0, 0x1F}, "\0\xF8\xE0\7\x1F\0\xFF\xFF"s), "BW/RG", "RG/BW", 24},
      {File(24, 0, {}, "\0\0\xFF\0\xFF\0\0\0\xFF\0\0\xFF\xFF\xFF\0\0"s), "BW/RG", "RG/BW", 24},
      {File(32, 0, {}, "\0\0\xFF\1\0\xFF\0\2\xFF\0\0\3\xFF\xFF\xFF\4"s), "BW/RG", "RG/BW", 32},
      {File(32, 3, {B, G, R}, "\xFF\0\0\1\0\xFF\0\2\0\0\xFF\3\xFF\xFF\xFF\4"s), "BW/RG", "RG/BW",
       32},
      {File(8, 1, four, "\1\0\1\1\0\0\1\2\1\3\0\1"s), "BW/RG", "RG/BW", 8},
  };
  for (auto [file, bottom_up, top_down, bit_count] : rows) {
    const std::string bytes = file.Bytes();
    EXPECT_EQ(bottom_up, Letters(bytes)) << file.bits << ' ' << file.compression;
    file.height = -2;
    EXPECT_EQ(top_down, Letters(file.Bytes())) << file.bits;
    EXPECT_EQ(bit_count, Decode(bytes)->bit_count);
    EXPECT_FALSE(Decode(bytes)->has_alpha);
    const std::string cut = bytes.substr(0, bytes.size() - (file.compression == 1 ? 3 : 1));
    EXPECT_EQ("", Letters(cut)) << file.bits << ' ' << file.compression;
  }
  const auto dc = ContextOf(Decode(std::get<BmpFile>(rows[0]).Bytes()));
  for (const auto& [x, y] : {std::pair(2, 0), {0, 2}, {-1, 0}, {0, -1}}) {
    EXPECT_EQ(platform::kInvalidColor, platform::GetPixel(dc, x, y));
  }
}

TEST(DecodeBitmapFile, FollowsRuns) {
  // Depth, code, and the indices of 4 x 3 pixels from the top; none if the file is refused.
  const std::vector<std::tuple<int, std::string, std::string>> rows = {
      {8, "\4\1\0\0\4\2\0\0\4\3\0\1"s, "333322221111"},
      {8, "\0\3\1\2\3\0\1\4\0\1"s, "000000001234"},      // as they are, padded to words
      {8, "\0\4\1\2\3\4\0\0\1\5\0\1"s, "000050001234"},  // without need of padding
      {4, "\3\x12\1\x34\0\0\0\3\x56\x70\0\1"s, "000056701213"},
      {4, "\0\5\x12\x34\x56\0\0\0\2\x78\0\1"s, "000078001234"},
      {8, "\1\1\0\2\2\1\1\2\0\1"s, "000000021000"},  // a jump leaves 0
      {8, "\0\2\0\2\1\3\0\1"s, "300000000000"},
      {8, "\5\1\0\0\0\6\1\2\3\4\5\6\0\1"s, "000012341111"},  // over the edge
      {8, "\0\2\xFF\xFF\1\1"s, "000000000000"},              // out of the picture
      {8, "\0\1\4\4"s, "000000000000"},                      // the end comes first
      {8, "\4\1\0\0\4\2\0\0\4\3"s, "333322221111"},          // whole without its end
      {8, "\4\1\0\0\4\2\0\0\3\3"s, ""},
      {8, "\4\1\0\0\4\2\0\0"s, ""},
      {8, "\4\1\4"s, ""},
      {8, "\0\3\1\2\3"s, ""},
      {8, "\0\2\1"s, ""},
      {8, "", ""},
  };
  for (const auto& [bits, code, expected] : rows) {
    BmpFile file = File(bits, bits == 8 ? 1 : 2, {0}, code);
    file.width = 4;
    file.height = 3;
    const auto bitmap = Decode(file.Bytes());
    std::string indices;
    for (std::size_t i = 0; bitmap && i < bitmap->bits.size(); ++i) {
      indices += static_cast<char>('0' + bitmap->bits[i]);
    }
    EXPECT_EQ(expected, indices) << testing::PrintToString(code);
  }
}

TEST(DecodeBitmapFile, KeepsTheAlphaOfAMaskUnlessItIsZeroThroughout) {
  // Length of the header, compression, mask, the stored bytes and the alpha of two pixels, if any.
  const std::vector<
      std::tuple<std::uint32_t, std::uint32_t, std::uint32_t, std::string, std::string>>
      rows = {
          {124, 3, 0xFF000000, "\x80\0"s, "\x80\0"s},
          {56, 3, 0xFF000000, "\0\1"s, "\0\1"s},
          {108, 3, 0xF0000000, "\x80\xF0", "\x88\xFF"},
          {108, 0, 0xFF000000, "\x80\xFF", "\x80\xFF"},
          {40, 6, 0xFF000000, "\x80\xFF", "\x80\xFF"},
          {108, 3, 0xFF000000, "\0\0"s, ""},
          {108, 3, 0, "\x80\xFF", ""},
          {108, 3, 0x81000000, "\x80\xFF", ""},
          {52, 3, 0xFF000000, "\x80\xFF", ""},
      };
  for (const auto& [header_size, compression, mask, stored, alpha] : rows) {
    BmpFile file =
        File(32, compression, {R, G, B, mask}, "\0\0\xFF"s + stored[0] + "\0\xFF\0"s + stored[1]);
    file.height = 1;
    file.header_size = header_size;
    file.words.resize(std::max(4U, (header_size - 40) / 4));
    EXPECT_EQ("RG", Letters(file.Bytes())) << header_size;
    const auto bitmap = Decode(file.Bytes());
    ASSERT_EQ(!alpha.empty(), bitmap && bitmap->has_alpha) << header_size << ' ' << compression;
    if (bitmap->has_alpha) {
      EXPECT_EQ(alpha, (std::string{static_cast<char>(bitmap->bits[3]),
                                    static_cast<char>(bitmap->bits[7])}));
    }
  }
}

TEST(DecodeBitmapFile, RefusesWhatIsNoSoundBitmap) {
  const std::string sound = File(24, 0, {}, std::string(16, 'x')).Bytes();
  ASSERT_TRUE(Decode(sound));
  const std::pair<std::size_t, Words> faults[] = {
      {0, {0x4D58, 0x5842}},                     // the letters BM
      {10, {53, 55, 0xFFFFFFFF}},                // where the pixels start
      {14, {39, 125, 0xFFFFFFFF}},               // the header's length
      {18, {0, 0xFFFFFFFE, 16385, 0x80000000}},  // the width
      {22, {0, 0xFFFFBFFF, 16385, 0x80000000}},  // the height
      {26, {0x180002, 0x070001, 1}},             // depth and planes
      {30, {1, 2, 3, 4}},                        // coding
  };
  for (const auto& [offset, values] : faults) {
    for (const std::uint32_t value : values) {
      std::string field;
      BmpFile::Put(field, value, 4);
      EXPECT_FALSE(Decode(std::string(sound).replace(offset, 4, field))) << offset << ' ' << value;
    }
  }
  EXPECT_EQ("", Letters(File(32, 3, {1, 0, 4}, std::string(16, 'x')).Bytes()));
  EXPECT_EQ("", Letters(File(32, 3, {5, 2, 8}, std::string(16, 'x')).Bytes()));
  EXPECT_EQ("", Letters(File(32, 3, {1}, "").Bytes()));
  EXPECT_EQ("", Letters(File(1, 0, {0, 0, 0}, std::string(8, 'x')).Bytes()));
  for (std::size_t size = 0; size < sound.size(); ++size) {
    EXPECT_FALSE(Decode(sound.substr(0, size))) << size;
  }
}

TEST(DecodeBitmapFile, DecodesToAtMost64MiB) {
  BmpFile plain = File(1, 0, {R, G}, std::string(std::size_t{2048} * 4097, '\0'));
  plain.width = 16384;
  BmpFile coded = File(8, 1, {R}, "\0\1"s);
  coded.width = 8192;
  for (const auto& [file, highest] : {std::pair(&plain, 4096), std::pair(&coded, 8192)}) {
    file->height = highest;
    EXPECT_TRUE(Decode(file->Bytes()));
    file->height = highest + 1;
    EXPECT_FALSE(Decode(file->Bytes()));
  }
}

platform::HDC Section(int width, int height, std::uint16_t depth, Row greys = {}) {
  platform::BitmapInfo info;
  info.header = {.width = width, .height = height, .bit_count = depth};
  std::ranges::transform(greys, info.colors.begin(), [](std::uint8_t grey) {
    return platform::RGBQuad{grey, grey, grey, 0};
  });
  return ContextOf(platform::CreateDIBSection({}, info));
}

bool Copy(const platform::HDC& to, int x, int width, const platform::HDC& from, int from_x,
          int from_width, int height = 1) {
  return platform::StretchBlt(to, x, 0, width, height, from, from_x, 0, from_width, height,
                              platform::SRCCOPY);
}

TEST(StretchBlt, CopiesWhatBothBitmapsHold) {
  const auto source = Section(4, 1, 8);
  source->bitmap->bits = {1, 2, 3, 4};
  constexpr int kLowest = std::numeric_limits<int>::min();
  constexpr int kHighest = std::numeric_limits<int>::max();
  // x and width on the target, x and width on the source.
  const std::vector<std::array<int, 4>> places = {
      {0, 4, 0, 4}, {1, 4, 0, 4},  {-1, 4, 0, 4},
      {0, 4, 2, 4}, {0, 4, -1, 4}, {4, 4, 0, 4},
      {0, 4, 0, 2}, {0, 2, 0, 4},  {kLowest, kHighest, 0, 4},
  };
  const std::vector<Row> rows = {
      {1, 2, 3, 4}, {9, 1, 2, 3}, {2, 3, 4, 9}, {3, 4, 9, 9}, {9, 1, 2, 3},
      {9, 9, 9, 9}, {1, 1, 2, 2}, {1, 3, 9, 9}, {9, 9, 9, 9},
  };
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto target = Section(4, 1, 8);
    target->bitmap->bits = {9, 9, 9, 9};
    EXPECT_TRUE(Copy(target, places[i][0], places[i][1], source, places[i][2], places[i][3]));
    EXPECT_EQ(rows[i], target->bitmap->bits) << i;
  }
  const auto target = Section(4, 1, 8);
  const auto none = platform::CreateCompatibleDC({});
  EXPECT_FALSE(Copy(target, 0, 4, none, 0, 4) || Copy(none, 0, 4, source, 0, 4));
  EXPECT_FALSE(Copy(target, 0, 0, source, 0, 4) || Copy(target, 0, 4, source, 0, 0));
  EXPECT_FALSE(Copy(target, 0, 4, source, 0, 4, 0) || Copy(source, 0, 4, source, 0, 4));
  EXPECT_FALSE(Copy(Section(4, 1, 32), 0, 4, source, 0, 4));
}

TEST(StretchBlt, MatchesColoursBetweenDepths) {
  const auto greys = Section(2, 2, 8, {0, 100, 200});
  greys->bitmap->bits = {2, 1, 0, 0, 1, 2, 0, 0};
  // 200 is nearest to 190, and 100 as near to 90 as to 110: the lower index wins.
  const auto other = Section(2, 2, 8, {110, 90, 190});
  EXPECT_TRUE(Copy(other, 0, 2, greys, 0, 2, 2));
  EXPECT_EQ((Row{2, 0, 0, 0, 0, 2, 0, 0}), other->bitmap->bits);
  const auto colors = Section(2, 1, 24);
  EXPECT_TRUE(Copy(colors, 0, 2, greys, 0, 2));
  EXPECT_EQ((Row{200, 200, 200, 100, 100, 100, 0, 0}), colors->bitmap->bits);
  const auto deep = Section(2, 1, 32);
  deep->bitmap->bits = {200, 90, 80, 0, 7, 8, 9, 255};
  EXPECT_TRUE(Copy(colors, 0, 2, deep, 0, 2));
  EXPECT_EQ((Row{200, 90, 80, 7, 8, 9, 0, 0}), colors->bitmap->bits);
  other->bitmap->colors = {{{80, 90, 200, 0}, {90, 200, 80, 0}, {200, 80, 90, 0}}};
  EXPECT_TRUE(Copy(other, 0, 2, deep, 0, 2));
  EXPECT_EQ((Row{2, 3, 0, 0, 0, 2, 0, 0}), other->bitmap->bits);
}

}  // namespace
