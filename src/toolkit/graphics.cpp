#include "toolkit/gdiplus.h"

#include <algorithm>
#include <cmath>

#include "toolkit/paint_objects.h"

namespace toolkit {
namespace {

/// Adds the arc to the path, joined to the last segment of an open figure. The toolkit counts
/// angles against the clock.
void AddArc(GraphicsPath& path, const QRectF& box, float start, float sweep) {
  if (!path.figure_open) {
    path.path.arcMoveTo(box, -start);
    path.figure_open = true;
  }
  path.path.arcTo(box, -start, -sweep);
}

/// What a graphics object draws on, its memory wrapped without a copy; null if it has no surface.
QImage Target(const Graphics& graphics) {
  if (graphics.image != nullptr) {
    QImage& pixels = graphics.image->pixels;
    return {pixels.bits(), pixels.width(), pixels.height(), pixels.bytesPerLine(), pixels.format()};
  }
  if (!Drawable(graphics.dc)) {
    return {};
  }
  platform::Bitmap& bitmap = *graphics.dc->bitmap;
  return {bitmap.bits.data(), bitmap.width, bitmap.height, static_cast<qsizetype>(bitmap.stride),
          QImage::Format_RGB32};
}

/// Outlines are filled shapes here, for every width and mode: the toolkit's own shortcuts for thin
/// pens place them by other rules, and blend a translucent pen twice where segments meet.
Status Stroke(const Graphics& graphics, const Pen& pen, const QPainterPath& path) {
  Canvas canvas(graphics);
  if (!canvas.Ready()) {
    return Status::InvalidParameter;
  }
  QPainterPathStroker stroker;
  stroker.setWidth(pen.width);
  stroker.setCapStyle(Qt::FlatCap);
  stroker.setJoinStyle(Qt::MiterJoin);
  stroker.setMiterLimit(10);
  canvas->setRenderHint(QPainter::Antialiasing, graphics.antialias);
  canvas->translate(kPixelCentre, kPixelCentre);
  canvas->fillPath(stroker.createStroke(path), pen.color);
  return Status::Ok;
}

}  // namespace

Canvas::Canvas(const Graphics& graphics) : surface_(Target(graphics)) {
  if (surface_.isNull()) {
    return;
  }
  painter_.begin(&surface_);
  if (graphics.clipped) {
    painter_.setClipRegion(graphics.clip);
  }
}

bool Drawable(const platform::HDC& dc) {
  if (dc == nullptr || dc->bitmap == nullptr) {
    return false;
  }
  const platform::Bitmap& bitmap = *dc->bitmap;
  return bitmap.bit_count == 32 && bitmap.width > 0 && bitmap.height > 0 &&
         bitmap.stride >= static_cast<std::size_t>(bitmap.width) * 4 &&
         bitmap.bits.size() >= bitmap.stride * static_cast<std::size_t>(bitmap.height);
}

QRect WholePixels(const RectF& place) {
  const int left = static_cast<int>(std::lround(place.x));
  const int top = static_cast<int>(std::lround(place.y));
  return {left, top, static_cast<int>(std::lround(place.x + place.width)) - left,
          static_cast<int>(std::lround(place.y + place.height)) - top};
}

Status GdiplusStartup(std::uintptr_t& token, std::uint32_t version) {
  token = version == 1 ? 1 : 0;
  return version == 1 ? Status::Ok : Status::InvalidParameter;
}

void GdiplusShutdown(std::uintptr_t) {}

Status GdipCreateFromHDC(const platform::HDC& dc, GpGraphics& graphics) {
  graphics.reset();
  if (!Drawable(dc)) {
    return Status::InvalidParameter;
  }
  graphics = std::make_shared<Graphics>();
  graphics->dc = dc;
  return Status::Ok;
}

Status GdipSetSmoothingMode(const GpGraphics& graphics, SmoothingMode mode) {
  if (graphics == nullptr) {
    return Status::InvalidParameter;
  }
  graphics->antialias = mode == SmoothingModeAntiAlias;
  return Status::Ok;
}

Status GdipSetTextRenderingHint(const GpGraphics& graphics, TextRenderingHint hint) {
  if (graphics == nullptr) {
    return Status::InvalidParameter;
  }
  graphics->text_hint = hint;
  return Status::Ok;
}

Status GdipSetClipRegion(const GpGraphics& graphics, const GpRegion& region, CombineMode mode) {
  if (graphics == nullptr || region == nullptr) {
    return Status::InvalidParameter;
  }
  const QRegion before = graphics->clipped ? graphics->clip : Target(*graphics).rect();
  switch (mode) {
    case CombineModeReplace:
      graphics->clip = region->pixels;
      break;
    case CombineModeIntersect:
      graphics->clip = before.intersected(region->pixels);
      break;
    case CombineModeExclude:
      graphics->clip = before.subtracted(region->pixels);
      break;
  }
  graphics->clipped = true;
  return Status::Ok;
}

Status GdipCreatePath(FillMode mode, GpPath& path) {
  path = std::make_shared<GraphicsPath>();
  path->path.setFillRule(mode == FillModeWinding ? Qt::WindingFill : Qt::OddEvenFill);
  return Status::Ok;
}

Status GdipAddPathLine(const GpPath& path, float x1, float y1, float x2, float y2) {
  if (path == nullptr || !InReach(x1, y1, x2, y2)) {
    return Status::InvalidParameter;
  }
  if (path->figure_open) {
    path->path.lineTo(x1, y1);
  } else {
    path->path.moveTo(x1, y1);
  }
  path->path.lineTo(x2, y2);
  path->figure_open = true;
  return Status::Ok;
}

Status GdipAddPathArc(const GpPath& path, float x, float y, float width, float height, float start,
                      float sweep) {
  if (path == nullptr || !InReach(x, y, width, height, start, sweep) || width <= 0 || height <= 0) {
    return Status::InvalidParameter;
  }
  AddArc(*path, QRectF(x, y, width, height), start, sweep);
  return Status::Ok;
}

Status GdipAddPathEllipse(const GpPath& path, float x, float y, float width, float height) {
  if (path == nullptr || !InReach(x, y, width, height)) {
    return Status::InvalidParameter;
  }
  path->path.addEllipse(QRectF(x, y, width, height));
  path->figure_open = false;
  return Status::Ok;
}

Status GdipClosePathFigure(const GpPath& path) {
  if (path == nullptr) {
    return Status::InvalidParameter;
  }
  path->path.closeSubpath();
  path->figure_open = false;
  return Status::Ok;
}

Status GdipCreatePen1(ARGB color, float width, Unit, GpPen& pen) {
  pen.reset();
  if (!InReach(width) || width <= 0) {
    return Status::InvalidParameter;
  }
  pen = std::make_shared<Pen>(Pen{ColorOf(color), width});
  return Status::Ok;
}

Status GdipCreateSolidFill(ARGB color, GpBrush& brush) {
  brush = std::make_shared<Brush>(Brush{ColorOf(color)});
  return Status::Ok;
}

Status GdipDrawPath(const GpGraphics& graphics, const GpPen& pen, const GpPath& path) {
  if (graphics == nullptr || pen == nullptr || path == nullptr) {
    return Status::InvalidParameter;
  }
  return Stroke(*graphics, *pen, path->path);
}

Status GdipDrawLine(const GpGraphics& graphics, const GpPen& pen, float x1, float y1, float x2,
                    float y2) {
  if (graphics == nullptr || pen == nullptr || !InReach(x1, y1, x2, y2)) {
    return Status::InvalidParameter;
  }
  QPainterPath line(QPointF(x1, y1));
  line.lineTo(x2, y2);
  return Stroke(*graphics, *pen, line);
}

Status GdipDrawArc(const GpGraphics& graphics, const GpPen& pen, float x, float y, float width,
                   float height, float start, float sweep) {
  if (graphics == nullptr || pen == nullptr || !InReach(x, y, width, height, start, sweep) ||
      width <= 0 || height <= 0) {
    return Status::InvalidParameter;
  }
  GraphicsPath arc;
  const QRectF box(x, y, width, height);
  if (std::abs(sweep) >= 360) {
    arc.path.addEllipse(box);
  } else {
    AddArc(arc, box, start, sweep);
  }
  return Stroke(*graphics, *pen, arc.path);
}

Status GdipFillRectangle(const GpGraphics& graphics, const GpBrush& brush, float x, float y,
                         float width, float height) {
  if (graphics == nullptr || brush == nullptr || !InReach(x, y, width, height)) {
    return Status::InvalidParameter;
  }
  Canvas canvas(*graphics);
  if (!canvas.Ready()) {
    return Status::InvalidParameter;
  }
  canvas->fillRect(WholePixels({x, y, width, height}), brush->color);
  return Status::Ok;
}

}  // namespace toolkit
