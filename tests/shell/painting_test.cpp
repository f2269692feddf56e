#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "shell/painting/mod_GDIP_DrawingRoutines.h"
#include "support/Surface.h"

namespace nimbrel {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kFrame = kFrameColor & 0xFFFFFFU;

struct Point {
  int x;
  int y;
};

/// The colours at some points: white, frame; a question mark for any other.
std::string Colors(const Surface& surface, const std::vector<Point>& points) {
  std::string colors;
  for (const auto& [x, y] : points) {
    const std::uint32_t color = surface.At(x, y);
    colors += color == kWhite ? 'w' : color == kFrame ? 'f' : '?';
  }
  return colors;
}

TEST(Tabs, TheFrameRunsAroundTheActiveTabAndTheOthersEndAtIt) {
  for (int active = 0; active < 4; ++active) {
    const Surface frame(596, 450);
    DrawTabFrame(frame.hdc, active);
    const int x = 17 + 84 * active;
    // Both ends of each line: none is slanted.
    EXPECT_EQ("ffffff",
              Colors(frame, {{x, 12}, {x, 21}, {x + 8, 5}, {x + 72, 5}, {x + 98, 28}, {583, 28}}));
    EXPECT_EQ("ffffff",
              Colors(frame, {{591, 36}, {591, 437}, {13, 445}, {583, 445}, {5, 36}, {5, 437}}));
    EXPECT_EQ("w", Colors(frame, {{x + 40, 28}})) << "open to the page";
    EXPECT_EQ(active == 0 ? "w" : "f", Colors(frame, {{active == 0 ? 24 : x - 20, 28}}));
    EXPECT_NE(kWhite, frame.At(x + 84, 17)) << "slope";
    for (int tab = 0; tab < 4; ++tab) {
      const Surface outline(596, 450);
      DrawTabOutline(outline.hdc, tab, active);
      const int left = 17 + 84 * tab;
      EXPECT_EQ("ffww",
                Colors(outline, {{left, 13}, {left + 40, 5}, {left + 40, 4}, {left + 40, 28}}));
      EXPECT_EQ(tab == 0, outline.At(left, 22) != kWhite);
      EXPECT_EQ(active != tab + 1, outline.At(left + 89, 23) != kWhite);
      EXPECT_NE(kWhite, outline.At(left + 82, 14));
    }
  }
}

}  // namespace
}  // namespace nimbrel
