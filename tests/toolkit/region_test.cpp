#include "toolkit/region.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/little_endian.h"

namespace toolkit {
namespace {

constexpr int kSide = 12;

std::vector<std::byte> Record(const std::vector<Rect>& rects, std::uint32_t header_size = 32,
                              std::uint32_t kind = 1) {
  std::vector<std::byte> data;
  for (const std::uint32_t field :
       {header_size, kind, static_cast<std::uint32_t>(rects.size()), 0U, 0U, 0U, 0U, 0U}) {
    platform::AppendLittle(data, field);
  }
  for (const Rect& rect : rects) {
    for (const int side : {rect.left, rect.top, rect.right, rect.bottom}) {
      platform::AppendLittle(data, side);
    }
  }
  return data;
}

bool Holds(const std::vector<Rect>& rects, int x, int y) {
  return std::ranges::any_of(rects, [x, y](const Rect& rect) {
    return rect.left <= x && x < rect.right && rect.top <= y && y < rect.bottom;
  });
}

TEST(Region, ArbitraryRectanglesUniteAndSubtractPixelForPixel) {
  std::mt19937 random(7);
  const auto side = [&random](int from) { return from + static_cast<int>(random() % kSide); };
  for (int round = 0; round < 300; ++round) {
    std::vector<Rect> rects[2];
    for (std::vector<Rect>& some : rects) {
      some.resize(random() % 8);
      for (Rect& rect : some) {
        rect = {side(0), side(0), 0, 0};
        rect.right = side(rect.left);
        rect.bottom = side(rect.top);
      }
    }
    const HRGN whole = ExtCreateRegion(Record(rects[0]));
    HRGN rest;
    ASSERT_TRUE(CombineRgn(rest, whole, ExtCreateRegion(Record(rects[1])), RGN_DIFF));
    for (int i = 0; i < 4 * kSide * kSide; ++i) {
      const int x = i % (2 * kSide);
      const int y = i / (2 * kSide);
      const Rect pixel{x, y, x + 1, y + 1};
      const bool inside = Holds(rects[0], x, y);
      ASSERT_EQ(inside, RectInRegion(whole, pixel)) << round;
      ASSERT_EQ(inside && !Holds(rects[1], x, y), RectInRegion(rest, pixel)) << round;
    }
  }
}

TEST(RegionData, IsThePublishedRecord) {
  HRGN region = CreateRectRgn(9, 6, -1, 2);  // sides in either order
  CombineRgn(region, region, CreateRectRgn(3, 2, 5, 4), RGN_DIFF);
  std::vector<std::byte> expected;
  for (const int field : {32, 1, 3, 48, -1, 2, 9, 6, -1, 2, 3, 4, 5, 2, 9, 4, -1, 4, 9, 6}) {
    platform::AppendLittle(expected, field);
  }
  EXPECT_EQ(expected, GetRegionData(region));
  EXPECT_EQ(expected, GetRegionData(ExtCreateRegion(expected)));
  EXPECT_TRUE(GetRegionData({}).empty());
}

TEST(RegionData, RefusesOtherRecordsAndCutsCoordinates) {
  const auto sound = Record({{0, 0, 2, 2}});
  EXPECT_TRUE(ExtCreateRegion(sound));
  EXPECT_FALSE(ExtCreateRegion({}));
  const auto none = Record({});
  EXPECT_TRUE(ExtCreateRegion(none));
  EXPECT_FALSE(ExtCreateRegion(std::span(none).first(31)));
  EXPECT_FALSE(ExtCreateRegion(std::span(sound).first(47)));
  EXPECT_FALSE(ExtCreateRegion(Record({{0, 0, 2, 2}}, 31)));
  EXPECT_FALSE(ExtCreateRegion(Record({{0, 0, 2, 2}}, 32, 2)));
  auto endless = sound;
  std::fill_n(endless.begin() + 8, 4, std::byte{0xFF});
  EXPECT_FALSE(ExtCreateRegion(endless));
  const auto cut = ExtCreateRegion(Record({{-2'000'000, 0, 2'000'000, 40'000}}));
  EXPECT_EQ(GetRegionData(CreateRectRgn(-32768, 0, 32767, 32767)), GetRegionData(cut));
}

/// Columns crossed by as many rows: the columns fall into 2 * bars^2 pieces.
TEST(RegionData, RefusesWhatFallsIntoMillionsOfPieces) {
  for (const int bars : {900, 1100}) {
    std::vector<Rect> grid;
    for (int i = 0; i < bars; ++i) {
      grid.push_back({i * 2, 0, i * 2 + 1, bars * 2});
      grid.push_back({6000, i * 2, 6001, i * 2 + 1});
    }
    EXPECT_EQ(bars < 1000, ExtCreateRegion(Record(grid)) != nullptr) << bars;
  }
}

}  // namespace
}  // namespace toolkit
