#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/gdi.h"

namespace toolkit {

/// The flat drawing calls that the program paints with, under their published names and with the
/// published meaning: an integer coordinate is the centre of a pixel, so a line of width 1 on it is
/// one pixel crisp. Handles own their objects. A call on an empty handle gives
/// Status::InvalidParameter and draws nothing.

using ARGB = std::uint32_t;

enum class Status : std::uint8_t { Ok, GenericError, InvalidParameter, OutOfMemory, FileNotFound };

enum FillMode : std::uint8_t { FillModeAlternate = 0, FillModeWinding = 1 };
enum Unit : std::uint8_t { UnitPixel = 2 };
enum CombineMode : std::uint8_t {
  CombineModeReplace = 0,
  CombineModeIntersect = 1,
  CombineModeExclude = 4,
};
enum SmoothingMode : std::uint8_t { SmoothingModeNone = 3, SmoothingModeAntiAlias = 4 };
enum TextRenderingHint : std::uint8_t {
  TextRenderingHintSingleBitPerPixel = 2,
  TextRenderingHintAntiAlias = 4,
};
enum StringAlignment : std::uint8_t { StringAlignmentNear = 0, StringAlignmentCenter = 1 };
/// Alpha, red, green and blue of 8 bits, the colours multiplied by alpha.
enum PixelFormat : std::uint32_t { PixelFormat32bppPARGB = 0x000E200B };
enum FontStyle : std::uint8_t { FontStyleRegular = 0 };

struct RectF {
  float x = 0;
  float y = 0;
  float width = 0;
  float height = 0;
};

struct Graphics;
struct GraphicsPath;
struct Pen;
struct Brush;
struct Region;
struct Image;
struct FontFamily;
struct PaintFont;
struct StringFormat;
using GpGraphics = std::shared_ptr<Graphics>;
using GpPath = std::shared_ptr<GraphicsPath>;
using GpPen = std::shared_ptr<Pen>;
using GpBrush = std::shared_ptr<Brush>;
using GpRegion = std::shared_ptr<const Region>;
using GpImage = std::shared_ptr<Image>;  ///< empty: the picture failed to load (handle 0)
using GpFontFamily = std::shared_ptr<FontFamily>;
using GpFont = std::shared_ptr<PaintFont>;
using GpStringFormat = std::shared_ptr<StringFormat>;

/// Start and end of the graphics library; `version` must be 1.
Status GdiplusStartup(std::uintptr_t& token, std::uint32_t version);
void GdiplusShutdown(std::uintptr_t token);

/// Draws into the context's 32-bit bitmap from here on.
Status GdipCreateFromHDC(const platform::HDC& dc, GpGraphics& graphics);
Status GdipSetSmoothingMode(const GpGraphics& graphics, SmoothingMode mode);
Status GdipSetTextRenderingHint(const GpGraphics& graphics, TextRenderingHint hint);
Status GdipSetClipRegion(const GpGraphics& graphics, const GpRegion& region, CombineMode mode);

Status GdipCreatePath(FillMode mode, GpPath& path);
Status GdipAddPathLine(const GpPath& path, float x1, float y1, float x2, float y2);
/// Angles in degrees, clockwise from the x axis.
Status GdipAddPathArc(const GpPath& path, float x, float y, float width, float height, float start,
                      float sweep);
Status GdipAddPathEllipse(const GpPath& path, float x, float y, float width, float height);
Status GdipClosePathFigure(const GpPath& path);

Status GdipCreatePen1(ARGB color, float width, Unit unit, GpPen& pen);
Status GdipCreateSolidFill(ARGB color, GpBrush& brush);
Status GdipCreateRegionPath(const GpPath& path, GpRegion& region);

Status GdipDrawPath(const GpGraphics& graphics, const GpPen& pen, const GpPath& path);
Status GdipDrawLine(const GpGraphics& graphics, const GpPen& pen, float x1, float y1, float x2,
                    float y2);
Status GdipDrawArc(const GpGraphics& graphics, const GpPen& pen, float x, float y, float width,
                   float height, float start, float sweep);
/// Fills the pixels [x, x + width) by [y, y + height).
Status GdipFillRectangle(const GpGraphics& graphics, const GpBrush& brush, float x, float y,
                         float width, float height);
/// Stretches the whole image over the pixels [x, x + width) by [y, y + height), bilinear, under
/// the clip.
Status GdipDrawImageRect(const GpGraphics& graphics, const GpImage& image, float x, float y,
                         float width, float height);
/// The same with a part of the image, whose pixels are [x, x + width) by [y, y + height) of it.
Status GdipDrawImageRectRect(const GpGraphics& graphics, const GpImage& image,
                             const RectF& destination, const RectF& source);

/// Decodes a picture file of any kind that LoadPicture (pictures.h) reads.
Status GdipLoadImageFromFile(std::string_view path, GpImage& image);
/// A transparent bitmap to draw on.
Status GdipCreateBitmapFromScan0(int width, int height, PixelFormat format, GpImage& bitmap);
/// Draws into the image from here on; several may be open on one image.
Status GdipGetImageGraphicsContext(const GpImage& image, GpGraphics& graphics);
Status GdipGetImageWidth(const GpImage& image, std::uint32_t& width);
Status GdipGetImageHeight(const GpImage& image, std::uint32_t& height);
inline constexpr std::uint32_t ImageFlagsHasAlpha = 2;
/// ImageFlagsHasAlpha for a picture that may let the background through, else 0.
Status GdipGetImageFlags(const GpImage& image, std::uint32_t& flags);
Status GdipBitmapGetPixel(const GpImage& image, int x, int y, ARGB& color);
Status GdipBitmapSetPixel(const GpImage& image, int x, int y, ARGB color);

Status GdipCreateFontFamilyFromName(std::string_view name, GpFontFamily& family);
/// `size` in pixels of the em square (UnitPixel).
Status GdipCreateFont(const GpFontFamily& family, float size, int style, Unit unit, GpFont& font);
Status GdipCreateStringFormat(int flags, int language, GpStringFormat& format);
Status GdipSetStringFormatAlign(const GpStringFormat& format, StringAlignment alignment);
Status GdipSetStringFormatLineAlign(const GpStringFormat& format, StringAlignment alignment);
/// One string in a layout rectangle; a width or height of 0 is unbounded. Words wrap at the width,
/// with the published margin of a sixth of an em at both ends of a line.
Status GdipDrawString(const GpGraphics& graphics, std::string_view text, const GpFont& font,
                      const RectF& layout, const GpStringFormat& format, const GpBrush& brush);

}  // namespace toolkit
