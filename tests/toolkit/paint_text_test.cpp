#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>

#include "support/Surface.h"
#include "toolkit/gdiplus.h"
#include "toolkit/region.h"

namespace toolkit {
using namespace platform;
namespace {

struct Text {
  std::string_view text;
  RectF layout;
  StringAlignment horizontal = StringAlignmentNear;
  StringAlignment vertical = StringAlignmentNear;
  TextRenderingHint hint = TextRenderingHintAntiAlias;
  float size = 16;
};

/// The smallest rectangle round all that was drawn on white; right and bottom exclusive.
Rect InkOf(const Surface& surface) {
  const Bitmap& bitmap = *surface.hdc->bitmap;
  Rect ink{bitmap.width, bitmap.height, 0, 0};
  for (int y = 0; y < bitmap.height; ++y) {
    for (int x = 0; x < bitmap.width; ++x) {
      if (surface.At(x, y) != 0xFFFFFF) {
        ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
               std::max(ink.bottom, y + 1)};
      }
    }
  }
  return ink;
}

Rect Write(const Surface& surface, const Text& text) {
  GpGraphics graphics;
  GpBrush brush;
  GpFontFamily family;
  GpFont font;
  GpStringFormat format;
  GdipCreateFromHDC(surface.hdc, graphics);
  GdipCreateSolidFill(0xFF000000, brush);
  GdipCreateFontFamilyFromName("Verdana", family);
  GdipCreateFont(family, text.size, FontStyleRegular, UnitPixel, font);
  GdipCreateStringFormat(0, 0, format);
  GdipSetStringFormatAlign(format, text.horizontal);
  GdipSetStringFormatLineAlign(format, text.vertical);
  GdipSetTextRenderingHint(graphics, text.hint);
  EXPECT_EQ(Status::Ok, GdipDrawString(graphics, text.text, font, text.layout, format, brush));
  return InkOf(surface);
}

Rect Write(const Text& text) { return Write(Surface(300, 120), text); }

TEST(DrawString, KeepsASixthOfAnEmFromTheLeftEdge) {
  // A full block starts where its advance does, so the ink shows the margin itself.
  for (const float size : {12.0F, 24.0F}) {
    const Rect ink = Write({.text = "\xE2\x96\x88", .layout = {50, 10, 200, 40}, .size = size});
    EXPECT_NEAR(50 + size / 6, ink.left, 1) << size;
    EXPECT_GE(ink.top, 10) << size;
  }
}

TEST(DrawString, AlignsInItsRectangle) {
  const RectF layout{20, 10, 240, 60};
  const Rect near = Write({.text = "HHHH", .layout = layout});
  const Rect centred = Write({.text = "HHHH",
                              .layout = layout,
                              .horizontal = StringAlignmentCenter,
                              .vertical = StringAlignmentCenter});
  EXPECT_LT(near.left, 28);
  EXPECT_LT(near.bottom, 30);
  EXPECT_NEAR(140, (centred.left + centred.right) / 2.0, 1);
  EXPECT_NEAR(40, (centred.top + centred.bottom) / 2.0, 2);
  EXPECT_EQ(near.right - near.left, centred.right - centred.left);
}

TEST(DrawString, WrapsAtWordsOnlyWhereAWidthIsGiven) {
  const int line = Write({.text = "Wide words", .layout = {10, 5, 0, 0}}).bottom;
  const Rect wrapped = Write({.text = "Wide words", .layout = {10, 5, 60, 0}});
  EXPECT_GT(wrapped.bottom, line + 10);
  EXPECT_LE(wrapped.right, 70);
  const Rect broken = Write({.text = "HHHHHHHHHHHHHH", .layout = {10, 5, 60, 0}});
  EXPECT_LE(broken.right, 70) << "a word wider than the rectangle";
  EXPECT_GT(broken.bottom, line + 10);
  for (const std::string_view two : {"H\nH", "H\rH", "H\r\nH"}) {
    const Rect lines = Write({.text = two, .layout = {10, 5, 0, 0}});
    EXPECT_GT(lines.bottom, line + 10);
    EXPECT_LT(lines.bottom, line + 25) << "one break, not two";
  }
}

TEST(DrawString, StaysInsideItsRectangle) {
  const Rect ink = Write({.text = "One two three four five six", .layout = {30, 20, 70, 25}});
  EXPECT_GE(ink.left, 30);
  EXPECT_LE(ink.right, 100);
  EXPECT_EQ(45, ink.bottom) << "the second line is cut";
}

TEST(DrawString, SmoothsInGreyOrNotAtAll) {
  for (const TextRenderingHint hint :
       {TextRenderingHintAntiAlias, TextRenderingHintSingleBitPerPixel}) {
    const Surface surface(300, 120);
    Write(surface, {.text = "Sunset & Night", .layout = {10, 10, 0, 0}, .hint = hint});
    std::set<std::uint32_t> colors;
    for (int i = 0; i < 300 * 120; ++i) {
      const std::uint32_t color = surface.At(i % 300, i / 300);
      EXPECT_EQ((color & 0xFFU) * 0x010101U, color);
      colors.insert(color);
    }
    const bool smooth = hint == TextRenderingHintAntiAlias;
    EXPECT_TRUE(smooth ? colors.size() > 10 : colors.size() == 2) << colors.size();
  }
}

TEST(DrawString, RefusesFontsOfNoSize) {
  GpFontFamily family;
  GpFont font;
  EXPECT_EQ(Status::InvalidParameter, GdipCreateFontFamilyFromName("", family));
  EXPECT_EQ(Status::InvalidParameter, GdipCreateFont(family, 12, 0, UnitPixel, font));
  GdipCreateFontFamilyFromName("Verdana", family);
  EXPECT_EQ(Status::InvalidParameter, GdipCreateFont(family, 0, 0, UnitPixel, font));
  EXPECT_EQ(nullptr, font);
}

}  // namespace
}  // namespace toolkit
