#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <string_view>

#include "support/Surface.h"
#include "toolkit/gdiplus.h"
#include "toolkit/region.h"

namespace toolkit {
namespace {

struct Text {
  std::string_view text;
  RectF layout;
  StringAlignment alignment = StringAlignmentNear;
  TextRenderingHint hint = TextRenderingHintAntiAlias;
  float size = 16;
};

/// Writes on white. Gives the smallest rectangle round the ink; right and bottom are exclusive.
Rect Write(const Text& text, const Surface& surface = Surface(300, 120)) {
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
  GdipSetStringFormatAlign(format, text.alignment);
  GdipSetStringFormatLineAlign(format, text.alignment);
  GdipSetTextRenderingHint(graphics, text.hint);
  EXPECT_EQ(Status::Ok, GdipDrawString(graphics, text.text, font, text.layout, format, brush));
  Rect ink{300, 120, 0, 0};
  for (int i = 0; i < 300 * 120; ++i) {
    const int x = i % 300;
    const int y = i / 300;
    if (surface.At(x, y) != 0xFFFFFF) {
      ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1), y + 1};
    }
  }
  return ink;
}

TEST(DrawString, WrapsAtWordsOnlyWhereAWidthIsGivenAndStaysInside) {
  const int line = Write({.text = "Wide words", .layout = {10, 5, 0, 0}}).bottom;
  for (const char* text : {"Wide words", "HHHHHHHHHHHHHH"}) {
    const Rect wrapped = Write({.text = text, .layout = {10, 5, 60, 0}});
    EXPECT_GT(wrapped.bottom, line + 10);
    EXPECT_LE(wrapped.right, 70);
  }
  for (const std::string_view two : {"H\nH", "H\rH", "H\r\nH"}) {
    const Rect lines = Write({.text = two, .layout = {10, 5, 0, 0}});
    EXPECT_GT(lines.bottom, line + 10);
    EXPECT_LT(lines.bottom, line + 25) << "one break, not two";
  }
  const Rect ink = Write({.text = "One two three four five six", .layout = {30, 20, 70, 25}});
  EXPECT_GE(ink.left, 30);
  EXPECT_EQ(45, ink.bottom) << "the second line is cut";
}

}  // namespace
}  // namespace toolkit
