#include "shell/painting/mod_GDIP_DrawingRoutines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace nimbrel {

using namespace platform;
using namespace toolkit;

namespace {

constexpr float kHairline = 1.0F;
constexpr float kThick = 2.0F;

/// A graphics object with smooth outlines for one drawing step.
GpGraphics SmoothGraphics(const HDC& hdc) {
  GpGraphics graphics;
  GdipCreateFromHDC(hdc, graphics);
  GdipSetSmoothingMode(graphics, SmoothingModeAntiAlias);
  return graphics;
}

GpGraphics SmoothGraphics(const GpImage& bitmap) {
  GpGraphics graphics;
  GdipGetImageGraphicsContext(bitmap, graphics);
  GdipSetSmoothingMode(graphics, SmoothingModeAntiAlias);
  return graphics;
}

GpPen MakePen(ARGB color, float width) {
  GpPen pen;
  GdipCreatePen1(color, width, UnitPixel, pen);
  return pen;
}

/// The figure of every framed picture, clockwise from the upper left corner.
GpPath RoundedRectangle(const RectF& place, const PictureFrame& frame) {
  const auto [x, y, w, h] = place;
  const float r = frame.radius;
  const float d = frame.diameter;
  GpPath path;
  GdipCreatePath(FillModeWinding, path);
  GdipAddPathLine(path, x + r, y, x + w - d, y);
  GdipAddPathArc(path, x + w - d, y, d, d, 270, 90);
  GdipAddPathLine(path, x + w, y + r, x + w, y + h - d);
  GdipAddPathArc(path, x + w - d, y + h - d, d, d, 0, 90);
  GdipAddPathLine(path, x + w - d, y + h, x + r, y + h);
  GdipAddPathArc(path, x, y + h - d, d, d, 90, 90);
  GdipAddPathLine(path, x, y + h - d, x, y + r);
  GdipAddPathArc(path, x, y, d, d, 180, 90);
  GdipClosePathFigure(path);
  return path;
}

/// Whether every pixel of the frame's inside will be the picture's own.
bool Covers(const GpImage& image) {
  std::uint32_t flags = 0;
  return GdipGetImageFlags(image, flags) == Status::Ok && (flags & ImageFlagsHasAlpha) == 0;
}

/// The translucent shadow without the part that an opaque picture covers.
void DrawShadow(const GpGraphics& graphics, const RectF& place, const PictureFrame& frame,
                const GpRegion& covered) {
  const RectF shadow{place.x + frame.shadow, place.y + frame.shadow, place.width, place.height};
  const GpPath path = RoundedRectangle(shadow, frame);
  GpRegion region;
  GpBrush brush;
  GdipCreateRegionPath(path, region);
  GdipCreateSolidFill(kShadowColor, brush);
  if (covered != nullptr) {
    GdipSetClipRegion(graphics, covered, CombineModeExclude);
  }
  GdipDrawPath(graphics, MakePen(kShadowColor, kHairline), path);
  GdipSetClipRegion(graphics, region, CombineModeIntersect);
  GdipFillRectangle(graphics, brush, shadow.x, shadow.y, shadow.width, shadow.height);
}

/// The border, the picture clipped to it, and the border's inner half once more over the picture.
void DrawPictureInFrame(const HDC& hdc, const RectF& place, const GpPath& path,
                        const GpRegion& region, float border, const GpImage& image) {
  const GpGraphics graphics = SmoothGraphics(hdc);
  GdipDrawPath(graphics, MakePen(kBorderColor, kHairline), path);
  GdipSetClipRegion(graphics, region, CombineModeIntersect);
  GdipDrawImageRect(graphics, image, place.x, place.y, place.width, place.height);
  GdipDrawPath(graphics, MakePen(kBorderColor, border), path);
}

/// Both borders, without the part of the first that an opaque picture covers.
void DrawBordersOnly(const GpGraphics& graphics, const GpPath& path, const GpRegion& region,
                     float border) {
  GdipSetClipRegion(graphics, region, CombineModeExclude);
  GdipDrawPath(graphics, MakePen(kBorderColor, kHairline), path);
  GdipSetClipRegion(graphics, region, CombineModeReplace);
  GdipDrawPath(graphics, MakePen(kBorderColor, border), path);
}

/// Place of a ready frame's overlay on the page: all that its outlines touch.
RectF OverlayOf(const ReadyFrame& ready) {
  constexpr float kMargin = 1;
  const auto [x, y, w, h] = ready.place;
  const float more = 2 * kMargin + ready.frame.shadow + 1;
  return {x - kMargin, y - kMargin, w + more, h + more};
}

/// The overlay in four strips round the picture's middle, where it is empty.
void DrawOverlay(const HDC& hdc, const ReadyFrame& ready) {
  const RectF whole = OverlayOf(ready);
  const float edge = ready.frame.radius + ready.frame.border;
  const float left = ready.place.x - whole.x + edge;
  const float top = ready.place.y - whole.y + edge;
  const float width = std::max(0.0F, ready.place.width - 2 * edge);
  const float height = std::max(0.0F, ready.place.height - 2 * edge);
  GpGraphics graphics;
  GdipCreateFromHDC(hdc, graphics);
  for (const RectF& strip : {RectF{0, 0, whole.width, top}, RectF{0, top, left, height},
                             RectF{left + width, top, whole.width - left - width, height},
                             RectF{0, top + height, whole.width, whole.height - top - height}}) {
    GdipDrawImageRectRect(graphics, ready.overlay,
                          {whole.x + strip.x, whole.y + strip.y, strip.width, strip.height}, strip);
  }
}

struct Line {
  float x1, y1, x2, y2;
};

/// Box, start angle and sweep, as GdipDrawArc takes them.
struct Arc {
  float x, y, width, height, start, sweep;
};

template <std::size_t N>
void DrawLines(const GpGraphics& graphics, const GpPen& pen, const std::array<Line, N>& lines) {
  for (const Line& line : lines) {
    GdipDrawLine(graphics, pen, line.x1, line.y1, line.x2, line.y2);
  }
}

template <std::size_t N>
void DrawArcs(const GpGraphics& graphics, const GpPen& pen, const std::array<Arc, N>& arcs) {
  for (const Arc& arc : arcs) {
    GdipDrawArc(graphics, pen, arc.x, arc.y, arc.width, arc.height, arc.start, arc.sweep);
  }
}

/// Left edge of a randomizer tab. Its lines and arcs have one opaque colour, so their order does
/// not show.
float TabLeft(int tab) { return static_cast<float>(17 + 84 * tab); }

/// The nearest percentage on the scale; 0 for a value that is no number.
double OnScale(double percent) { return std::isnan(percent) ? 0 : std::clamp(percent, 0.0, 100.0); }

}  // namespace

void DrawPageText(const HDC& hdc, RectF layout, std::string_view text, std::string_view font,
                  float size, FontStyle style, StringAlignment horizontal, StringAlignment vertical,
                  ARGB color, bool antialias) {
  layout.width = layout.width == -1.0F ? 0.0F : layout.width;
  layout.height = layout.height == -1.0F ? 0.0F : layout.height;
  GpGraphics graphics;
  GpBrush brush;
  GpFontFamily family;
  GpFont face;
  GpStringFormat format;
  GdipCreateFromHDC(hdc, graphics);
  GdipCreateSolidFill(color, brush);
  GdipCreateFontFamilyFromName(font, family);
  GdipCreateFont(family, size, style, UnitPixel, face);
  GdipCreateStringFormat(0, 0, format);
  GdipSetTextRenderingHint(
      graphics, antialias ? TextRenderingHintAntiAlias : TextRenderingHintSingleBitPerPixel);
  GdipSetStringFormatAlign(format, horizontal);
  GdipSetStringFormatLineAlign(format, vertical);
  GdipDrawString(graphics, text, face, layout, format, brush);
}

void DrawFramedPicture(const HDC& hdc, const RectF& place, const PictureFrame& frame,
                       const GpImage& image) {
  const GpPath path = RoundedRectangle(place, frame);
  GpRegion region;
  GdipCreateRegionPath(path, region);
  DrawShadow(SmoothGraphics(hdc), place, frame, Covers(image) ? region : GpRegion());
  DrawPictureInFrame(hdc, place, path, region, frame.border, image);
}

ReadyFrame MakeReadyFrame(const RectF& place, const PictureFrame& frame) {
  ReadyFrame ready{place, frame, {}, {}};
  GdipCreateRegionPath(RoundedRectangle(place, frame), ready.inside);
  const RectF whole = OverlayOf(ready);
  GdipCreateBitmapFromScan0(static_cast<int>(whole.width), static_cast<int>(whole.height),
                            PixelFormat32bppPARGB, ready.overlay);
  const RectF drawn{place.x - whole.x, place.y - whole.y, place.width, place.height};
  const GpPath path = RoundedRectangle(drawn, frame);
  GpRegion region;
  GdipCreateRegionPath(path, region);
  DrawShadow(SmoothGraphics(ready.overlay), drawn, frame, region);
  DrawBordersOnly(SmoothGraphics(ready.overlay), path, region, frame.border);
  return ready;
}

void DrawFramedPicture(const HDC& hdc, const ReadyFrame& ready, const GpImage& image) {
  const RectF& place = ready.place;
  if (!Covers(image) || ready.overlay == nullptr) {
    DrawFramedPicture(hdc, place, ready.frame, image);
    return;
  }
  GpGraphics graphics;
  GdipCreateFromHDC(hdc, graphics);
  GdipSetClipRegion(graphics, ready.inside, CombineModeIntersect);
  GdipDrawImageRect(graphics, image, place.x, place.y, place.width, place.height);
  DrawOverlay(hdc, ready);
}

void DrawLargePicture(const HDC& hdc, const GpImage& image) {
  constexpr RectF kPlace{0, 5, 267, 200};
  const GpPath path =
      RoundedRectangle(kPlace, {.radius = 4, .diameter = 8, .shadow = 0, .border = 0});
  GpRegion region;
  GdipCreateRegionPath(path, region);
  GdipDrawPath(SmoothGraphics(hdc), MakePen(kShadowColor, kHairline), path);
  DrawPictureInFrame(hdc, kPlace, path, region, kThick, image);
}

void DrawTabFrame(const HDC& hdc, int active) {
  const float x = TabLeft(active);
  const GpGraphics graphics = SmoothGraphics(hdc);
  const GpPen pen = MakePen(kFrameColor, kThick);
  // The first tab's left edge starts at the corner, without a line between them.
  if (active != 0) {
    GdipDrawLine(graphics, pen, 11, 28, x - 6, 28);
  }
  DrawArcs(graphics, pen,
           std::array<Arc, 8>{{{5, 28, 12, 12, 180, 90},
                               {x - 12, 16, 12, 12, 0, 90},
                               {x, 5, 12, 12, 180, 90},
                               {x + 68, 5, 12, 12, 270, 60},
                               {x + 88, 16, 12, 12, 90, 60},
                               {579, 28, 12, 12, 270, 90},
                               {579, 433, 12, 12, 0, 90},
                               {5, 433, 12, 12, 90, 90}}});
  DrawLines(graphics, pen,
            std::array<Line, 7>{{{x, 22, x, 11},
                                 {x + 6, 5, x + 74, 5},
                                 {x + 79, 8, x + 89, 25},
                                 {x + 94, 28, 585, 28},
                                 {591, 34, 591, 439},
                                 {585, 445, 11, 445},
                                 {5, 439, 5, 34}}});
}

void DrawTabOutline(const HDC& hdc, int tab, int active) {
  const float x = TabLeft(tab);
  const GpGraphics graphics = SmoothGraphics(hdc);
  const GpPen pen = MakePen(kFrameColor, kHairline);
  const bool cut_short = active == tab + 1;
  DrawLines(
      graphics, pen,
      std::array<Line, 3>{{{x, tab == 0 ? 28.0F : 16.0F, x, 11},
                           {x + 6, 5, x + 74, 5},
                           {x + 79, 8, cut_short ? x + 84 : x + 92, cut_short ? 17.0F : 28.0F}}});
  DrawArcs(graphics, pen,
           std::array<Arc, 2>{{{x, 5, 12, 12, 180, 90}, {x + 68, 5, 12, 12, 270, 60}}});
}

void DrawProgressBox(const HDC& hdc, double percent) {
  const double done = OnScale(percent);
  const GpGraphics graphics = SmoothGraphics(hdc);
  GpBrush brush;
  GdipCreateSolidFill(kFrameColor, brush);
  DrawLines(
      graphics, MakePen(kFrameColor, kThick),
      std::array<Line, 4>{
          {{25, 240, 375, 240}, {375, 240, 375, 266}, {375, 266, 25, 266}, {25, 266, 25, 240}}});
  // Halves go to the even neighbour, the default way of rounding.
  const auto width = static_cast<float>(std::nearbyint(done / 100 * 344));
  GdipFillRectangle(graphics, brush, 28, 243, width, 20);
  DrawPageText(hdc, {25, 215, 350, 20}, std::to_string(std::lround(done)) + "% Complete", "Verdana",
               16, FontStyleRegular, StringAlignmentCenter, StringAlignmentCenter, kFrameColor,
               true);
}

}  // namespace nimbrel
