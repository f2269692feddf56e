#include "toolkit/gdiplus.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "support/BmpFile.h"
#include "support/Surface.h"
#include "support/TempFolder.h"
#include "toolkit/region.h"

namespace toolkit {
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr ARGB kBlack = 0xFF000000;

/// The handle that a call of the kind GdipCreate... makes.
template <typename Handle, typename Call, typename... Arguments>
Handle Made(Call call, const Arguments&... arguments) {
  Handle handle;
  EXPECT_EQ(Status::Ok, call(arguments..., handle));
  return handle;
}

GpGraphics On(const Surface& surface, SmoothingMode mode = SmoothingModeAntiAlias) {
  auto graphics = Made<GpGraphics>(GdipCreateFromHDC, surface.hdc);
  EXPECT_EQ(Status::Ok, GdipSetSmoothingMode(graphics, mode));
  return graphics;
}

GpPen PenOf(ARGB color, float width = 1) {
  return Made<GpPen>(GdipCreatePen1, color, width, UnitPixel);
}

GpBrush BrushOf(ARGB color) { return Made<GpBrush>(GdipCreateSolidFill, color); }

GpPath NewPath(FillMode mode = FillModeAlternate) { return Made<GpPath>(GdipCreatePath, mode); }

GpPath Ellipse(float left, float top, float side, const GpPath& path = NewPath()) {
  EXPECT_EQ(Status::Ok, GdipAddPathEllipse(path, left, top, side, side));
  return path;
}

void Clip(const GpGraphics& graphics, const GpPath& path, CombineMode mode = CombineModeIntersect) {
  const auto region = Made<GpRegion>(GdipCreateRegionPath, path);
  EXPECT_EQ(Status::Ok, GdipSetClipRegion(graphics, region, mode));
}

void FillAll(const GpGraphics& graphics, ARGB color = kBlack) {
  EXPECT_EQ(Status::Ok, GdipFillRectangle(graphics, BrushOf(color), 0, 0, 60, 60));
}

/// How much of the black drawn on white a pixel took, 0 to 255.
int Ink(const Surface& surface, int x, int y) {
  return 255 - static_cast<int>(surface.At(x, y) & 0xFFU);
}

/// The ink of pixels in a row or column, each `step` from the one before.
void ExpectInk(const Surface& surface, Rect at_and_step, std::initializer_list<int> expected) {
  auto [x, y, step_x, step_y] = at_and_step;
  for (const int ink : expected) {
    EXPECT_NEAR(ink, Ink(surface, x, y), 2) << x << ' ' << y;
    x += step_x;
    y += step_y;
  }
}

TEST(Lines, AreCrispOnPixelCentresWithFlatCaps) {
  for (const auto& [width, mode, beside] : {std::tuple{1.0F, SmoothingModeAntiAlias, 0},
                                            {1.0F, SmoothingModeNone, 0},
                                            {2.0F, SmoothingModeAntiAlias, 128},
                                            {3.0F, SmoothingModeNone, 255}}) {
    SCOPED_TRACE(width);
    const Surface surface(20, 20);
    GdipDrawLine(On(surface, mode), PenOf(kBlack, width), 2, 5, 12, 5);
    GdipDrawLine(On(surface, mode), PenOf(kBlack, width), 16, 5, 16, 15);
    ExpectInk(surface, {7, 3, 0, 1}, {0, beside, 255, beside, 0});
    ExpectInk(surface, {14, 9, 1, 0}, {0, beside, 255, beside, 0});
    ExpectInk(surface, {0, 5, 14, 0}, {0, 0});
    ExpectInk(surface, {16, 3, 0, 14}, {0, 0});
  }
}

TEST(Lines, BlendOnceWhereSegmentsMeet) {
  const Surface surface(40, 40);
  const GpPath path = NewPath(FillModeWinding);
  GdipAddPathLine(path, 10, 5, 30, 5);
  GdipAddPathArc(path, 25, 5, 10, 10, 270, 90);
  GdipAddPathLine(path, 35, 10, 35, 30);
  GdipAddPathLine(path, 35, 30, 10, 30);
  GdipClosePathFigure(path);
  GdipDrawPath(On(surface), PenOf(0x40000000), path);
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 40; ++x) {
      EXPECT_LE(Ink(surface, x, y), 0x41) << x << ' ' << y;
    }
  }
  EXPECT_NEAR(0x40, Ink(surface, 20, 5), 1);
  EXPECT_NEAR(0x40, Ink(surface, 35, 30), 1) << "mitred corner";
}

TEST(Clips, HoldThePixelsWhoseCentreIsInside) {
  const Surface surface(40, 40);
  const GpGraphics graphics = On(surface);
  Clip(graphics, Ellipse(5, 7, 21));
  FillAll(graphics);
  for (int i = 0; i < 40 * 40; ++i) {
    const int x = i % 40;
    const int y = i / 40;
    const double distance = std::hypot(x - 15.5, y - 17.5);
    if (std::abs(distance - 10.5) > 0.05) {
      EXPECT_EQ(distance < 10.5 ? 255 : 0, Ink(surface, x, y)) << x << ' ' << y;
    }
  }
}

TEST(Handles, EmptyOnesOtherDepthsAndNonsenseAreRefused) {
  const Surface surface(4, 4);
  const GpGraphics graphics = On(surface);
  const float nan = std::nanf("");
  GpPen pen;
  GpGraphics none;
  GpImage picture;
  surface.hdc->bitmap->bit_count = 24;
  std::uintptr_t token = 7;
  for (const Status status :
       {GdipCreatePen1(kBlack, nan, UnitPixel, pen), GdipCreatePen1(kBlack, 0, UnitPixel, pen),
        GdipDrawLine(graphics, pen, 0, 0, 4, 4), GdipDrawLine({}, PenOf(kBlack), 0, 0, 4, 4),
        GdipDrawImageRect(graphics, {}, 0, 0, 4, 4), GdipAddPathLine(NewPath(), 0, nan, 1e30F, 0),
        GdipSetClipRegion(graphics, {}, CombineModeReplace), GdipCreateFromHDC({}, none),
        GdipFillRectangle(On(Surface(4, 4)), BrushOf(kBlack), 0, 0, INFINITY, 1),
        GdipCreateBitmapFromScan0(0, 1, PixelFormat32bppPARGB, picture),
        GdipCreateFromHDC(std::make_shared<platform::DeviceContext>(), none),
        GdipCreateFromHDC(surface.hdc, none), GdiplusStartup(token, 2),
        GdipFillRectangle(graphics, BrushOf(kBlack), 0, 0, 4, 4)}) {
    EXPECT_EQ(Status::InvalidParameter, status);
  }
  EXPECT_EQ(0U, token);
  EXPECT_EQ(Status::Ok, GdiplusStartup(token, 1));
  EXPECT_NE(0U, token);
}

template <typename Color>
GpImage ImageOf(int width, int height, Color color) {
  const TempFolder folder;
  WriteText(folder / "a.bmp", ColorBmp(width, height, color).Bytes());
  return Made<GpImage>(GdipLoadImageFromFile, (folder / "a.bmp").string());
}

TEST(Images, KeepPixelsAsTheyWereSet) {
  const GpImage image = ImageOf(3, 2, [](int, int) { return 0x102030U; });
  std::uint32_t flags = 7;
  EXPECT_EQ(Status::Ok, GdipGetImageFlags(image, flags));
  EXPECT_EQ(0U, flags);
  ARGB color = 0;
  for (const ARGB set : {0xFF445566U, 0x00FFFFFFU, 0x80FF0001U}) {
    EXPECT_EQ(Status::Ok, GdipBitmapSetPixel(image, 2, 1, set));
    EXPECT_EQ(Status::Ok, GdipBitmapGetPixel(image, 2, 1, color));
    EXPECT_EQ(set, color);
  }
  GdipGetImageFlags(image, flags);
  EXPECT_EQ(ImageFlagsHasAlpha, flags);
  GdipBitmapGetPixel(image, 0, 0, color);
  EXPECT_EQ(0xFF102030U, color) << "the others stay opaque";
  EXPECT_EQ(Status::InvalidParameter, GdipBitmapGetPixel(image, 3, 0, color));
  EXPECT_EQ(Status::InvalidParameter, GdipBitmapSetPixel(image, 0, -1, 0));
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  EXPECT_EQ(Status::Ok, GdipGetImageWidth(image, width));
  EXPECT_EQ(Status::Ok, GdipGetImageHeight(image, height));
  EXPECT_EQ(std::pair(3U, 2U), std::pair(width, height));
  auto drawn = Made<GpImage>(GdipCreateBitmapFromScan0, 3, 2, PixelFormat32bppPARGB);
  const auto on_drawn = Made<GpGraphics>(GdipGetImageGraphicsContext, drawn);
  GdipFillRectangle(on_drawn, BrushOf(0xFF102030), 0, 0, 1, 2);
  GdipFillRectangle(on_drawn, BrushOf(0x40000000), 2, 0, 1, 2);
  const Surface surface(3, 2, 0x00FF00);
  GdipDrawImageRect(On(surface), drawn, 0, 0, 3, 2);
  EXPECT_EQ(0x00FF00U, surface.At(1, 1));
  EXPECT_EQ(0x102030U, surface.At(0, 1));
  EXPECT_EQ(0x00BF00U, surface.At(2, 1)) << "a quarter of black on green";
}

}  // namespace
}  // namespace toolkit
