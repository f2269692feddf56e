#include "toolkit/gdiplus.h"

#include <gtest/gtest.h>

#include <QImage>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "support/BmpFile.h"
#include "support/Surface.h"
#include "support/TempFolder.h"

namespace toolkit {
using namespace platform;
namespace {

constexpr std::uint32_t kWhite = 0xFFFFFF;

GpGraphics On(const Surface& surface, SmoothingMode mode = SmoothingModeAntiAlias) {
  GpGraphics graphics;
  EXPECT_EQ(Status::Ok, GdipCreateFromHDC(surface.hdc, graphics));
  EXPECT_EQ(Status::Ok, GdipSetSmoothingMode(graphics, mode));
  return graphics;
}

GpPen PenOf(ARGB color, float width) {
  GpPen pen;
  EXPECT_EQ(Status::Ok, GdipCreatePen1(color, width, UnitPixel, pen));
  return pen;
}

GpBrush BrushOf(ARGB color) {
  GpBrush brush;
  EXPECT_EQ(Status::Ok, GdipCreateSolidFill(color, brush));
  return brush;
}

GpPath NewPath(FillMode mode = FillModeAlternate) {
  GpPath path;
  EXPECT_EQ(Status::Ok, GdipCreatePath(mode, path));
  return path;
}

GpRegion RegionOf(const GpPath& path) {
  GpRegion region;
  EXPECT_EQ(Status::Ok, GdipCreateRegionPath(path, region));
  return region;
}

GpPath Box(float left, float top, float right, float bottom) {
  GpPath path = NewPath();
  GdipAddPathLine(path, left, top, right, top);
  GdipAddPathLine(path, right, bottom, left, bottom);
  GdipClosePathFigure(path);
  return path;
}

/// How much of the black drawn on white a pixel took, 0 to 255.
int Ink(const Surface& surface, int x, int y) {
  return 255 - static_cast<int>(surface.At(x, y) & 0xFFU);
}

TEST(Lines, AreCrispOnPixelCentres) {
  struct Row {
    float width;
    SmoothingMode mode;
    int beside;  ///< ink of the rows next to the line's own
  };
  for (const Row& row : {Row{1, SmoothingModeAntiAlias, 0}, Row{1, SmoothingModeNone, 0},
                         Row{2, SmoothingModeAntiAlias, 128}, Row{3, SmoothingModeNone, 255}}) {
    SCOPED_TRACE(row.width);
    const Surface surface(20, 20);
    GdipDrawLine(On(surface, row.mode), PenOf(0xFF000000, row.width), 2, 5, 12, 5);
    GdipDrawLine(On(surface, row.mode), PenOf(0xFF000000, row.width), 16, 5, 16, 15);
    for (const auto& [x, y, ink] : std::vector<std::array<int, 3>>{{7, 5, 255},
                                                                   {7, 4, row.beside},
                                                                   {7, 6, row.beside},
                                                                   {7, 8, 0},
                                                                   {16, 9, 255},
                                                                   {15, 9, row.beside},
                                                                   {17, 9, row.beside},
                                                                   {0, 5, 0},
                                                                   {14, 5, 0},
                                                                   {16, 3, 0},
                                                                   {16, 17, 0}}) {  // flat caps
      EXPECT_NEAR(ink, Ink(surface, x, y), 2) << x << ' ' << y;
    }
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
  GdipDrawPath(On(surface), PenOf(0x40000000, 1), path);
  int darkest = 0;
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 40; ++x) {
      darkest = std::max(darkest, Ink(surface, x, y));
    }
  }
  EXPECT_NEAR(0x40, darkest, 1);
  EXPECT_NEAR(0x40, Ink(surface, 20, 5), 1);
  EXPECT_NEAR(0x40, Ink(surface, 35, 30), 1) << "mitred corner";
}

TEST(Paths, JoinSegmentsOfAFigureAndNoOthers) {
  const Surface surface(60, 30);
  const GpPath path = NewPath();
  GdipAddPathLine(path, 5, 5, 15, 5);
  GdipAddPathLine(path, 25, 5, 25, 15);  // joined to the end of the first
  GdipClosePathFigure(path);
  GdipAddPathLine(path, 35, 5, 40, 5);  // a figure of its own
  GdipAddPathEllipse(path, 45, 10, 10, 10);
  GdipDrawPath(On(surface), PenOf(0xFF000000, 1), path);
  EXPECT_EQ(255, Ink(surface, 20, 5)) << "between the joined lines";
  EXPECT_GT(Ink(surface, 15, 10), 100) << "the closing line";
  EXPECT_EQ(0, Ink(surface, 30, 5)) << "between the figures";
  EXPECT_EQ(255, Ink(surface, 38, 5));
  EXPECT_EQ(0, Ink(surface, 43, 8)) << "from the line to the ellipse";
  EXPECT_GT(Ink(surface, 50, 10), 200) << "the ellipse's top";
}

TEST(Arcs, RunClockwiseFromTheXAxis) {
  const Surface surface(30, 30);
  GdipDrawArc(On(surface), PenOf(0xFF000000, 1), 5, 5, 20, 20, 0, 90);
  EXPECT_GT(Ink(surface, 22, 22), 60);
  EXPECT_EQ(0, Ink(surface, 8, 8));
  EXPECT_EQ(0, Ink(surface, 22, 8));
  GdipDrawArc(On(surface), PenOf(0xFF000000, 1), 5, 5, 20, 20, 0, 360);
  for (const auto& [x, y] : {std::pair{5, 15}, {25, 15}, {15, 5}, {15, 25}}) {
    EXPECT_GT(Ink(surface, x, y), 200) << x << ' ' << y;
  }
}

TEST(Clip, HoldsThePixelsWhoseCentreIsInside) {
  const Surface surface(40, 40);
  const GpGraphics graphics = On(surface);
  const GpPath circle = NewPath();
  GdipAddPathEllipse(circle, 5, 7, 21, 21);
  GdipSetClipRegion(graphics, RegionOf(circle), CombineModeIntersect);
  GdipFillRectangle(graphics, BrushOf(0xFF000000), 0, 0, 40, 40);
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 40; ++x) {
      const double distance = std::hypot(x - 15.5, y - 17.5);
      if (std::abs(distance - 10.5) > 0.05) {
        EXPECT_EQ(distance < 10.5 ? 255 : 0, Ink(surface, x, y)) << x << ' ' << y;
      }
    }
  }
}

TEST(Clip, OwnsItsLeftAndUpperEdgesAndCombines) {
  struct Row {
    CombineMode mode;
    int left;
    int right;
  };
  for (const Row& row : {Row{CombineModeIntersect, 5, 8}, Row{CombineModeReplace, 5, 12}}) {
    const Surface surface(20, 20);
    const GpGraphics graphics = On(surface);
    GdipSetClipRegion(graphics, RegionOf(Box(2, 3, 9, 7)), CombineModeIntersect);
    GdipSetClipRegion(graphics, RegionOf(Box(5, 3, 13, 7)), row.mode);
    GdipFillRectangle(graphics, BrushOf(0xFF000000), 0, 0, 20, 20);
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 20; ++x) {
        const bool inside = x >= row.left && x <= row.right && y >= 3 && y <= 6;
        EXPECT_EQ(inside ? 255 : 0, Ink(surface, x, y)) << x << ' ' << y;
      }
    }
  }
}

TEST(Clip, FollowsTheFillMode) {
  for (const auto& [mode, ink] : {std::pair{FillModeAlternate, 0}, {FillModeWinding, 255}}) {
    const Surface surface(20, 20);
    const GpGraphics graphics = On(surface);
    const GpPath path = NewPath(mode);
    GdipAddPathEllipse(path, 1, 1, 17, 17);
    GdipAddPathEllipse(path, 5, 5, 9, 9);
    GdipSetClipRegion(graphics, RegionOf(path), CombineModeReplace);
    GdipFillRectangle(graphics, BrushOf(0xFF000000), 0, 0, 20, 20);
    EXPECT_EQ(ink, Ink(surface, 9, 9));
    EXPECT_EQ(255, Ink(surface, 9, 3));
  }
}

TEST(Surfaces, TakeSeveralGraphicsAtOnceAndEachItsOwnClip) {
  const Surface surface(10, 10);
  const GpGraphics outer = On(surface);
  GdipSetClipRegion(outer, RegionOf(Box(0, 0, 5, 10)), CombineModeIntersect);
  GdipFillRectangle(outer, BrushOf(0x40000000), 0, 0, 10, 10);
  GdipFillRectangle(On(surface), BrushOf(0xFFFF0000), 4, 0, 2, 10);
  GdipFillRectangle(outer, BrushOf(0xFF0000FF), 2, 2, 8, 1);
  EXPECT_EQ(0xBFBFBFU, surface.At(0, 0)) << "a quarter of black on white";
  EXPECT_EQ(0xFF0000U, surface.At(5, 2));
  EXPECT_EQ(0x0000FFU, surface.At(4, 2));
  EXPECT_EQ(kWhite, surface.At(6, 2));
}

TEST(Surfaces, OtherThan32BitsAreRefused) {
  const Surface surface(4, 4);
  GpGraphics graphics;
  EXPECT_EQ(Status::InvalidParameter, GdipCreateFromHDC({}, graphics));
  EXPECT_EQ(Status::InvalidParameter,
            GdipCreateFromHDC(std::make_shared<DeviceContext>(), graphics));
  const GpGraphics open = On(surface);
  surface.hdc->bitmap->bit_count = 24;
  EXPECT_EQ(Status::InvalidParameter, GdipCreateFromHDC(surface.hdc, graphics));
  EXPECT_EQ(Status::InvalidParameter, GdipFillRectangle(open, BrushOf(0xFF000000), 0, 0, 4, 4));
  EXPECT_EQ(nullptr, graphics);
}

TEST(Handles, EmptyOnesAndNonsenseDrawNothing) {
  const Surface surface(4, 4);
  const GpGraphics graphics = On(surface);
  const float nan = std::nanf("");
  GpPen pen;
  EXPECT_EQ(Status::InvalidParameter, GdipCreatePen1(0xFF000000, nan, UnitPixel, pen));
  EXPECT_EQ(Status::InvalidParameter, GdipDrawLine(graphics, pen, 0, 0, 4, 4));
  EXPECT_EQ(Status::InvalidParameter, GdipDrawLine({}, PenOf(0xFF000000, 1), 0, 0, 4, 4));
  EXPECT_EQ(Status::InvalidParameter, GdipDrawImageRect(graphics, {}, 0, 0, 4, 4));
  EXPECT_EQ(Status::InvalidParameter, GdipSetClipRegion(graphics, {}, CombineModeReplace));
  EXPECT_EQ(Status::InvalidParameter, GdipAddPathLine(NewPath(), 0, nan, 1e30F, 0));
  EXPECT_EQ(Status::InvalidParameter,
            GdipFillRectangle(graphics, BrushOf(0xFF000000), 0, 0, INFINITY, 1));
  GpPath none;
  EXPECT_EQ(Status::InvalidParameter, GdipDeletePath(none));
  EXPECT_EQ(kWhite, surface.At(0, 0));
}

class Pictures : public testing::Test {
 protected:
  GpImage Load(const std::string& bytes) {
    const auto file = folder_ / "picture.bmp";
    WriteText(file, bytes);
    GpImage image;
    status_ = GdipLoadImageFromFile(file.string(), image);
    EXPECT_EQ(status_ == Status::Ok, image != nullptr);
    return image;
  }
  TempFolder folder_;
  Status status_ = Status::Ok;
};

TEST_F(Pictures, StretchOverWholePixelsUnderTheClip) {
  const GpImage image =
      Load(ColorBmp(8, 4, [](int x, int) { return x < 4 ? 0xFF0000U : 0x0000FFU; }).Bytes());
  const Surface surface(40, 30);
  const GpGraphics graphics = On(surface);
  GdipSetClipRegion(graphics, RegionOf(Box(0, 8, 40, 30)), CombineModeIntersect);
  EXPECT_EQ(Status::Ok, GdipDrawImageRect(graphics, image, 10, 5, 16, 12));
  for (const auto& [x, y, color] :
       std::vector<std::tuple<int, int, std::uint32_t>>{{10, 8, 0xFF0000},
                                                        {25, 16, 0x0000FF},
                                                        {9, 8, kWhite},
                                                        {26, 8, kWhite},
                                                        {10, 7, kWhite},
                                                        {10, 17, kWhite}}) {
    EXPECT_EQ(color, surface.At(x, y)) << x << ' ' << y;
  }
  const std::uint32_t middle = surface.At(18, 12);
  EXPECT_GT(middle >> 16U, 0x20U) << "bilinear";
  EXPECT_GT(middle & 0xFFU, 0x20U);
}

TEST_F(Pictures, KeepPixelsAsTheyWereSet) {
  const GpImage image = Load(ColorBmp(3, 2, [](int, int) { return 0x102030U; }).Bytes());
  ARGB color = 0;
  for (const ARGB set : {0xFF445566U, 0x00FFFFFFU, 0x80FF0001U}) {
    EXPECT_EQ(Status::Ok, GdipBitmapSetPixel(image, 2, 1, set));
    EXPECT_EQ(Status::Ok, GdipBitmapGetPixel(image, 2, 1, color));
    EXPECT_EQ(set, color);
  }
  GdipBitmapGetPixel(image, 0, 0, color);
  EXPECT_EQ(0xFF102030U, color) << "the others stay opaque";
  EXPECT_EQ(Status::InvalidParameter, GdipBitmapGetPixel(image, 3, 0, color));
  EXPECT_EQ(Status::InvalidParameter, GdipBitmapSetPixel(image, 0, -1, 0));
  std::uint32_t width = 0;
  std::uint32_t height = 0;
  GdipGetImageWidth(image, width);
  GdipGetImageHeight(image, height);
  EXPECT_EQ(std::pair(3U, 2U), std::pair(width, height));
  const Surface surface(3, 2, 0x00FF00);
  GdipBitmapSetPixel(image, 1, 1, 0x00FFFFFF);
  GdipDrawImageRect(On(surface), image, 0, 0, 3, 2);
  EXPECT_EQ(0x00FF00U, surface.At(1, 1));
  EXPECT_EQ(0x102030U, surface.At(0, 1));
}

TEST_F(Pictures, OfOtherKindsAreReadByTheirContent) {
  QImage picture(2, 1, QImage::Format_ARGB32);
  picture.setPixel(0, 0, 0xFF112233);
  picture.setPixel(1, 0, 0x00000000);
  ASSERT_TRUE(picture.save(QString::fromStdString((folder_ / "really.bmp").string()), "PNG"));
  GpImage image;
  ASSERT_EQ(Status::Ok, GdipLoadImageFromFile((folder_ / "really.bmp").string(), image));
  const Surface surface(2, 1, 0x00FF00);
  GdipDrawImageRect(On(surface), image, 0, 0, 2, 1);
  EXPECT_EQ(0x112233U, surface.At(0, 0));
  EXPECT_EQ(0x00FF00U, surface.At(1, 0));
}

TEST_F(Pictures, Of32BitsShowWhateverTheirFourthByte) {
  for (const std::uint32_t compression : {0U, 3U}) {
    BmpFile file{.bits = 32, .compression = compression};
    if (compression != 0) {
      file.words = {0xFF0000, 0x00FF00, 0x0000FF, 0xFF000000};
      file.words.resize(17);  // the version 4 header, which has a mask of alpha
      file.header_size = 108;
    }
    BmpFile::Put(file.pixels, 0x00102030, 4);
    const GpImage image = Load(file.Bytes());
    ARGB color = 0;
    GdipBitmapGetPixel(image, 0, 0, color);
    EXPECT_EQ(0xFF102030U, color) << compression;
  }
}

TEST_F(Pictures, ThatAreNotWholeAreRefused) {
  const BmpFile sound = ColorBmp(9, 9, [](int, int) { return 0x808080U; });
  const std::string bytes = sound.Bytes();
  EXPECT_NE(nullptr, Load(bytes));
  for (const auto& [name, broken] : std::vector<std::pair<const char*, std::string>>{
           {"empty", ""},
           {"no picture", "Dear reader,\n"},
           {"two letters", "BM"},
           {"header cut", bytes.substr(0, 40)},
           {"last byte missing", bytes.substr(0, bytes.size() - 1)},
           {"pixels missing", bytes.substr(0, 54)},
           {"sides 0", BmpFile{.width = 0, .height = 0}.Bytes()},
           {"huge sides", BmpFile{.width = 100000, .height = 100000}.Bytes()},
           {"long side", ColorBmp(16385, 1, [](int, int) { return 0U; }).Bytes()},
           {"sides of 2^31",
            BmpFile{.width = INT32_MIN, .height = INT32_MIN, .bits = 65535}.Bytes()},
           {"packed, no data",
            BmpFile{.width = 9, .height = 9, .bits = 8, .compression = 1}.Bytes()},
           {"unknown packing",
            BmpFile{.width = 4, .height = 4, .bits = 16, .compression = 0x33545844}.Bytes()}}) {
    EXPECT_EQ(nullptr, Load(broken)) << name;
  }
  GpImage image;
  EXPECT_EQ(Status::FileNotFound, GdipLoadImageFromFile((folder_ / "none.bmp").string(), image));
  EXPECT_NE(Status::Ok, GdipLoadImageFromFile(folder_.string(), image));
}

TEST(Startup, GivesATokenForItsOwnVersionAlone) {
  std::uintptr_t token = 0;
  EXPECT_EQ(Status::InvalidParameter, GdiplusStartup(token, 2));
  EXPECT_EQ(Status::Ok, GdiplusStartup(token, 1));
  EXPECT_NE(0U, token);
  SetGdiplusStartupStatus(Status::OutOfMemory);
  EXPECT_EQ(Status::OutOfMemory, GdiplusStartup(token, 1));
  EXPECT_EQ(0U, token);
  SetGdiplusStartupStatus(Status::Ok);
}

}  // namespace
}  // namespace toolkit
