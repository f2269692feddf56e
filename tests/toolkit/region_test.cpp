#include "toolkit/region.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bitset>
#include <random>

#include "platform/little_endian.h"

namespace {

using toolkit::HRGN;
using toolkit::Rect;

constexpr int kSide = 12;
using Pixels = std::bitset<kSide * kSide>;

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

Pixels Draw(const std::vector<Rect>& rects) {
  Pixels pixels;
  for (const Rect& rect : rects) {
    for (int y = rect.top; y < rect.bottom; ++y) {
      for (int x = rect.left; x < rect.right; ++x) {
        pixels.set(static_cast<std::size_t>(y * kSide + x));
      }
    }
  }
  return pixels;
}

Pixels Ask(const toolkit::Region& region) {
  Pixels pixels;
  for (int i = 0; i < kSide * kSide; ++i) {
    pixels.set(static_cast<std::size_t>(i), region.Contains(i % kSide, i / kSide));
  }
  return pixels;
}

using Band = std::vector<Rect>;

std::vector<Band> Bands(const std::vector<Rect>& rects) {
  std::vector<Band> bands;
  for (const Rect& rect : rects) {
    if (bands.empty() || bands.back().front().top != rect.top) {
      bands.emplace_back();
    }
    bands.back().push_back(rect);
  }
  return bands;
}

bool SameSpans(const Band& a, const Band& b) {
  return std::ranges::equal(
      a, b, [](const Rect& p, const Rect& q) { return p.left == q.left && p.right == q.right; });
}

/// Bands in order, spans apart from each other, touching bands different.
void ExpectCanonical(const toolkit::Region& region) {
  const std::vector<Band> bands = Bands(region.Rects());
  for (std::size_t i = 0; i < bands.size(); ++i) {
    for (std::size_t j = 0; j < bands[i].size(); ++j) {
      const Rect& rect = bands[i][j];
      EXPECT_TRUE(rect.left < rect.right && rect.top < rect.bottom);
      EXPECT_EQ(bands[i][0].bottom, rect.bottom);
      EXPECT_TRUE(j == 0 || bands[i][j - 1].right < rect.left);
    }
    if (i > 0) {
      const int above = bands[i - 1][0].bottom;
      EXPECT_LE(above, bands[i][0].top);
      EXPECT_FALSE(above == bands[i][0].top && SameSpans(bands[i - 1], bands[i]));
    }
  }
}

TEST(Region, ArbitraryRectanglesUniteAndSubtractPixelForPixel) {
  std::mt19937 random(7);
  const auto some_rects = [&random] {
    std::vector<Rect> rects(random() % 8);
    for (Rect& rect : rects) {
      rect.left = static_cast<int>(random() % kSide);
      rect.top = static_cast<int>(random() % kSide);
      rect.right =
          rect.left + static_cast<int>(random() % (kSide + 1U - static_cast<unsigned>(rect.left)));
      rect.bottom =
          rect.top + static_cast<int>(random() % (kSide + 1U - static_cast<unsigned>(rect.top)));
    }
    return rects;
  };
  for (int round = 0; round < 2000; ++round) {
    SCOPED_TRACE(round);
    const std::vector<Rect> first_rects = some_rects();
    const std::vector<Rect> second_rects = some_rects();
    HRGN first = toolkit::ExtCreateRegion(Record(first_rects));
    const HRGN second = toolkit::ExtCreateRegion(Record(second_rects));
    ASSERT_TRUE(first && second);
    ExpectCanonical(*first);
    ASSERT_EQ(Draw(first_rects), Ask(*first));
    ASSERT_TRUE(toolkit::CombineRgn(first, first, second, toolkit::RGN_DIFF));
    ExpectCanonical(*first);
    ASSERT_EQ(Draw(first_rects) & ~Draw(second_rects), Ask(*first));
  }
}

TEST(Region, RowsCutOneByOneGiveTheShape) {
  HRGN region = toolkit::CreateRectRgn(0, 0, 800, 600);
  for (int y = 0; y < 600; ++y) {
    const int x = y < 300 ? 10 : 790;
    ASSERT_TRUE(toolkit::CombineRgn(region, region, toolkit::CreateRectRgn(x, y, 800, y + 1),
                                    toolkit::RGN_DIFF));
  }
  const std::vector<Rect> expected{{0, 0, 10, 300}, {0, 300, 790, 600}};
  EXPECT_EQ(expected, region->Rects());
  EXPECT_EQ((Rect{0, 0, 790, 600}), region->Bounds());
  HRGN nothing = region;
  ASSERT_TRUE(toolkit::CombineRgn(nothing, region, region, toolkit::RGN_DIFF));
  EXPECT_TRUE(nothing->Rects().empty());
  EXPECT_EQ(Rect{}, nothing->Bounds());
}

TEST(Region, FailedHandlesAndOtherModesCombineToNothing) {
  HRGN target = toolkit::CreateRectRgn(0, 0, 5, 5);
  const HRGN kept = target;
  EXPECT_FALSE(toolkit::CombineRgn(target, target, std::nullopt, toolkit::RGN_DIFF));
  EXPECT_FALSE(toolkit::CombineRgn(target, std::nullopt, kept, toolkit::RGN_DIFF));
  EXPECT_FALSE(toolkit::CombineRgn(target, kept, kept, 1));
  EXPECT_EQ(kept->Rects(), target->Rects());
}

TEST(RegionData, IsThePublishedRecord) {
  HRGN region = toolkit::CreateRectRgn(9, 6, -1, 2);  // sides in either order
  toolkit::CombineRgn(region, region, toolkit::CreateRectRgn(3, 2, 5, 4), toolkit::RGN_DIFF);
  const std::vector<Rect> rects{{-1, 2, 3, 4}, {5, 2, 9, 4}, {-1, 4, 9, 6}};
  std::vector<std::byte> expected;
  for (const int field : {32, 1, 3, 48, -1, 2, 9, 6, -1, 2, 3, 4, 5, 2, 9, 4, -1, 4, 9, 6}) {
    platform::AppendLittle(expected, field);
  }
  EXPECT_EQ(expected, toolkit::GetRegionData(region));
  EXPECT_EQ(rects, toolkit::ExtCreateRegion(expected)->Rects());
  EXPECT_TRUE(toolkit::GetRegionData(std::nullopt).empty());
  EXPECT_EQ(32U, toolkit::GetRegionData(toolkit::Region()).size());
}

TEST(RegionData, RefusesWhatIsNoRecord) {
  const std::vector<Rect> one{{0, 0, 2, 2}};
  EXPECT_FALSE(toolkit::ExtCreateRegion({}));
  const auto sound = Record(one);
  EXPECT_TRUE(toolkit::ExtCreateRegion(sound));
  EXPECT_FALSE(toolkit::ExtCreateRegion(std::span(sound).first(31)));
  EXPECT_FALSE(toolkit::ExtCreateRegion(std::span(sound).first(47)));
  EXPECT_FALSE(toolkit::ExtCreateRegion(Record(one, 31)));
  EXPECT_FALSE(toolkit::ExtCreateRegion(Record(one, 32, 2)));
  auto endless = sound;
  std::fill_n(endless.begin() + 8, 4, std::byte{0xFF});
  EXPECT_FALSE(toolkit::ExtCreateRegion(endless));
  // 3000 columns crossed by 3000 rows would be nine million rectangles.
  std::vector<Rect> grid;
  for (int i = 0; i < 3000; ++i) {
    grid.push_back({i * 2, 0, i * 2 + 1, 6000});
    grid.push_back({6000, i * 2, 6001, i * 2 + 1});
  }
  EXPECT_FALSE(toolkit::ExtCreateRegion(Record(grid)));
  const auto cut = toolkit::ExtCreateRegion(Record({{-2'000'000, 0, 2'000'000, 40'000}}));
  EXPECT_EQ((std::vector<Rect>{{-32768, 0, 32767, 32767}}), cut->Rects());
}

}  // namespace
