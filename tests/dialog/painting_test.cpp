#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "shell/mod_GDIP_DrawingRoutines.h"
#include "support/BmpFile.h"
#include "support/Surface.h"
#include "support/TempFolder.h"

namespace nimbrel {
namespace {

using toolkit::GpImage;

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kRed = 0xFF0000;
constexpr std::uint32_t kFrame = kFrameColor & 0xFFFFFFU;
constexpr std::uint32_t kBorder = kBorderColor & 0xFFFFFFU;
constexpr std::uint32_t kShadowOnWhite = 0xBFBFBF;

struct Pixel {
  int x;
  int y;
  std::uint32_t color;
};

void ExpectPixels(const Surface& surface, const std::vector<Pixel>& pixels) {
  for (const Pixel& pixel : pixels) {
    EXPECT_EQ(pixel.color, surface.At(pixel.x, pixel.y))
        << pixel.x << ' ' << pixel.y << std::hex << ' ' << surface.At(pixel.x, pixel.y);
  }
}

GpImage RedPicture() {
  const TempFolder folder;
  const auto file = folder / "red.bmp";
  WriteText(file, ColorBmp(8, 6, [](int, int) { return kRed; }).Bytes());
  GpImage image;
  toolkit::GdipLoadImageFromFile(file.string(), image);
  return image;
}

TEST(FramedPicture, LiesInItsBorderOverItsShadow) {
  const Surface surface(120, 90);
  DrawFramedPicture(surface.hdc, {20, 10, 60, 50}, {10, 20, 3, 2}, RedPicture());
  ExpectPixels(surface, {{50, 35, kRed},
                         {50, 10, kBorder},  // upper edge, both borders
                         {50, 12, kRed},
                         {20, 35, kBorder},
                         {22, 35, kRed},
                         {80, 35, kBorder},  // right edge, only the first border
                         {78, 35, kRed},
                         {50, 60, kBorder},
                         {50, 58, kRed},
                         {20, 10, kWhite},  // cut corners
                         {22, 12, kWhite},
                         {80, 10, kWhite},
                         {20, 60, kWhite},
                         {82, 35, kShadowOnWhite},
                         {50, 62, kShadowOnWhite},
                         {84, 35, kWhite},
                         {50, 64, kWhite},
                         {83, 63, kWhite}});  // the shadow's corner is cut too
}

TEST(FramedPicture, OfTheSummaryHasTheThinBorder) {
  const Surface surface(80, 60);
  DrawFramedPicture(surface.hdc, {10, 10, 47, 35}, kSummaryFrame, RedPicture());
  ExpectPixels(surface, {{30, 10, kBorder},
                         {30, 9, kWhite},
                         {30, 11, kRed},
                         {10, 20, kBorder},
                         {11, 20, kRed},
                         {57, 20, kBorder},
                         {56, 20, kRed},
                         {30, 45, kBorder},
                         {58, 20, kShadowOnWhite},
                         {30, 46, kShadowOnWhite},
                         {60, 20, kWhite}});
}

TEST(FramedPicture, WithoutPictureKeepsTheBackground) {
  const Surface surface(80, 60, 0x80C0FF);
  DrawFramedPicture(surface.hdc, {10, 10, 47, 35}, kSummaryFrame, {});
  ExpectPixels(surface, {{30, 10, kBorder}, {30, 11, 0x80C0FF}, {30, 25, 0x6090BF}});
}

TEST(LargePicture, FillsItsPlaceWithoutAnOffsetShadow) {
  const Surface surface(280, 220);
  DrawLargePicture(surface.hdc, RedPicture());
  ExpectPixels(surface, {{130, 100, kRed},
                         {130, 4, kWhite},
                         {130, 7, kRed},
                         {2, 100, kRed},
                         {265, 100, kRed},
                         {269, 100, kWhite},
                         {130, 203, kRed},
                         {130, 207, kWhite},
                         {0, 5, kWhite}});
  EXPECT_LT(surface.At(267, 100) & 0xFFU, 0x48U) << "border over the hairline shadow";
}

TEST(TabFrame, RunsRoundTheActiveTab) {
  for (int active = 0; active < 4; ++active) {
    SCOPED_TRACE(active);
    const Surface surface(596, 450);
    DrawTabFrame(surface.hdc, active);
    const int x = 17 + 84 * active;
    ExpectPixels(surface, {{x, 16, kFrame},
                           {x + 40, 5, kFrame},
                           {500, 28, kFrame},
                           {591, 200, kFrame},
                           {300, 445, kFrame},
                           {5, 200, kFrame},
                           {x + 40, 28, kWhite},  // open to the page below
                           {300, 200, kWhite},
                           {x + 40, 3, kWhite},
                           {300, 447, kWhite}});
    EXPECT_EQ(active == 0 ? kWhite : kFrame, surface.At(active == 0 ? 24 : x - 20, 28));
    EXPECT_NE(kWhite, surface.At(x + 84, 17)) << "the slope";
  }
}

TEST(TabOutline, EndsUnderTheActiveTab) {
  for (int active = 0; active < 4; ++active) {
    for (int tab = 0; tab < 4; ++tab) {
      if (tab == active) {
        continue;
      }
      SCOPED_TRACE(std::to_string(tab) + " beside " + std::to_string(active));
      const Surface surface(596, 450);
      DrawTabOutline(surface.hdc, tab, active);
      const int x = 17 + 84 * tab;
      ExpectPixels(surface, {{x, 13, kFrame},
                             {x, tab == 0 ? 25 : 13, kFrame},
                             {x + 40, 5, kFrame},
                             {x + 40, 4, kWhite},
                             {x + 40, 28, kWhite}});
      EXPECT_EQ(tab == 0, surface.At(x, 22) != kWhite);
      EXPECT_EQ(active != tab + 1, surface.At(x + 89, 23) != kWhite);
      EXPECT_NE(kWhite, surface.At(x + 82, 14));
    }
  }
}

/// Columns of the bar that are filled, from its left end on; none may be filled behind a gap.
int BarWidth(const Surface& surface) {
  int width = 0;
  for (int x = 28; x <= 371; ++x) {
    const bool filled = surface.At(x, 243) == kFrame && surface.At(x, 262) == kFrame;
    EXPECT_TRUE(!filled || width == x - 28);
    width += filled ? 1 : 0;
  }
  return width;
}

TEST(Progress, FillsItsBarAndStaysInTheBox) {
  struct Row {
    double percent;
    int width;
  };
  const double infinity = std::numeric_limits<double>::infinity();
  for (const Row& row : std::vector<Row>{{0, 0},
                                         {100, 344},
                                         {50, 172},
                                         {33, 114},
                                         {12.5, 43},
                                         {0.14, 0},
                                         {0.15, 1},
                                         {12.5 * 3 / 43, 3},
                                         {100 * 1.5 / 344, 2},  // halves go to the even neighbour
                                         {100 * 2.5 / 344, 2},
                                         {150, 344},
                                         {-20, 0},
                                         {std::nan(""), 0},
                                         {infinity, 344},
                                         {-infinity, 0}}) {
    SCOPED_TRACE(row.percent);
    const Surface surface(400, 300);
    DrawProgressBox(surface.hdc, row.percent);
    EXPECT_EQ(row.width, BarWidth(surface));
    ExpectPixels(surface, {{200, 240, kFrame},
                           {375, 250, kFrame},
                           {200, 266, kFrame},
                           {25, 250, kFrame},
                           {27, 250, kWhite},
                           {372, 250, kWhite},
                           {30, 242, kWhite},
                           {30, 263, kWhite}});
  }
}

/// The pixels of the text's own rectangle above the box.
std::vector<std::uint32_t> TextPixels(double percent) {
  const Surface surface(400, 300);
  DrawProgressBox(surface.hdc, percent);
  std::vector<std::uint32_t> pixels;
  for (int y = 215; y < 235; ++y) {
    for (int x = 25; x < 375; ++x) {
      pixels.push_back(surface.At(x, y));
    }
  }
  return pixels;
}

TEST(Progress, TellsWholePercent) {
  EXPECT_EQ(TextPixels(13), TextPixels(12.5)) << "halves go up";
  EXPECT_EQ(TextPixels(12), TextPixels(12.4));
  EXPECT_EQ(TextPixels(3), TextPixels(2.5));
  EXPECT_NE(TextPixels(12), TextPixels(13));
  EXPECT_EQ(TextPixels(100), TextPixels(500));
}

TEST(PageText, LeavesAMinusOneUnbounded) {
  const auto ink = [](toolkit::RectF layout) {
    const Surface surface(400, 100);
    DrawPageText(surface.hdc, layout, "Randomizer Settings Overview", "Verdana", 22,
                 toolkit::FontStyleRegular, toolkit::StringAlignmentNear,
                 toolkit::StringAlignmentNear, kTitleColor, true);
    int last_row = 0;
    for (int i = 0; i < 400 * 100; ++i) {
      last_row = surface.At(i % 400, i / 400) != kWhite ? i / 400 : last_row;
    }
    return last_row;
  };
  EXPECT_LT(ink({10, 10, -1, -1}), 45) << "one line";
  EXPECT_GT(ink({10, 10, 200, -1}), 45) << "wrapped";
}

TEST(Painting, WithoutASurfaceIsPassedOver) {
  DrawFramedPicture({}, {0, 0, 10, 10}, kSummaryFrame, {});
  DrawTabFrame({}, 2);
  DrawProgressBox({}, 50);
  const Surface surface(4, 4);
  DrawFramedPicture(surface.hdc, {-50, -50, 0, -3}, kSummaryFrame, {});
}

}  // namespace
}  // namespace nimbrel
