#pragma once

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>
#include <string>

#include "toolkit/gdiplus.h"

namespace toolkit {

/// What the handles of the flat drawing calls own.

struct Graphics {
  platform::HDC dc;  ///< kept alive; each call takes the bitmap it holds then
  GpImage image;     ///< drawn on instead of a context's bitmap when there is one
  bool antialias = false;
  TextRenderingHint text_hint = TextRenderingHintAntiAlias;
  bool clipped = false;
  QRegion clip;  ///< in pixels; holds only while `clipped`
};

struct GraphicsPath {
  QPainterPath path;         ///< in published coordinates
  bool figure_open = false;  ///< the next segment connects to the last one
};

struct Pen {
  QColor color;
  float width = 1;
};

struct Brush {
  QColor color;
};

struct Region {
  QRegion pixels;
};

/// Format_RGB32 while opaque. With transparency Format_ARGB32_Premultiplied, which draws fastest,
/// until a pixel is set: then Format_ARGB32, so that pixels read back as they were written.
struct Image {
  QImage pixels;
};

struct FontFamily {
  std::string name;
};

struct PaintFont {
  QFont font;
  float em = 0;  ///< pixels
};

struct StringFormat {
  StringAlignment horizontal = StringAlignmentNear;
  StringAlignment vertical = StringAlignmentNear;
};

/// The toolkit puts the centre of the first pixel at (0.5, 0.5), the published calls at (0, 0).
/// Outlines, paths and clips move by this much; whole pixels (fills, images, text) don't.
inline constexpr qreal kPixelCentre = 0.5;

/// A painter on the memory of a context's bitmap or an image for the length of one call, so that
/// several graphics objects may be open on one, and the bitmap may be replaced between two calls.
class Canvas {
 public:
  explicit Canvas(const Graphics& graphics);
  bool Ready() const { return painter_.isActive(); }
  QPainter& operator*() { return painter_; }
  QPainter* operator->() { return &painter_; }

 private:
  QImage surface_;  ///< wraps the target's bytes; never shared, so that it never copies them
  QPainter painter_;
};

/// Whether the context has a bitmap that can be drawn on.
bool Drawable(const platform::HDC& dc);

inline QColor ColorOf(ARGB color) { return QColor::fromRgba(color); }

/// Whether every number is finite and within what a surface could need: a guard against nonsense
/// reaching the rasterizer, which counts in fixed point.
template <typename... Numbers>
bool InReach(Numbers... numbers) {
  return ((numbers >= -32768.0F && numbers <= 32768.0F) && ...);
}

inline bool InReach(const RectF& place) {
  return InReach(place.x, place.y, place.width, place.height);
}

/// The whole pixels of a rectangle.
QRect WholePixels(const RectF& place);

}  // namespace toolkit
