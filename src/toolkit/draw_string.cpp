#include <QGuiApplication>
#include <QTextLayout>
#include <algorithm>

#include "toolkit/fonts.h"
#include "toolkit/gdiplus.h"
#include "toolkit/paint_objects.h"

namespace toolkit {
namespace {

constexpr qreal kUnbounded = 1 << 20;  ///< pixels; wider than any line

/// A string as the layout engine takes it: every kind of line break is one line separator.
QString LayoutText(std::string_view text) {
  QString layout = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
  layout.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  layout.replace(u'\r', u'\n');
  return layout.replace(u'\n', QChar::LineSeparator);
}

/// The font with the smoothing of the hint. Smoothed text is not fitted to the pixel grid, as
/// published, and smoothed in grey whatever the desktop says: it goes into a picture.
QFont WithHint(QFont font, TextRenderingHint hint) {
  if (hint == TextRenderingHintSingleBitPerPixel) {
    font.setStyleStrategy(QFont::NoAntialias);
  } else {
    font.setStyleStrategy(
        static_cast<QFont::StyleStrategy>(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    font.setHintingPreference(QFont::PreferNoHinting);
  }
  return font;
}

/// Breaks the text into lines of at most `width` pixels, from 0 downwards. Gives the height.
qreal BreakLines(QTextLayout& layout, qreal width) {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  layout.setTextOption(option);
  layout.beginLayout();
  qreal height = 0;
  for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
    line.setLineWidth(width);
    line.setPosition({0, height});
    height += line.height();
  }
  layout.endLayout();
  return height;
}

/// Where a length starts that is aligned in `room` pixels from `begin`; with no room it is aligned
/// about `begin` itself.
qreal Aligned(qreal begin, qreal room, qreal length, StringAlignment alignment) {
  return alignment == StringAlignmentCenter ? begin + (room - length) / 2 : begin;
}

/// Cuts what reaches out of the bounded sides of the layout rectangle.
void ClipToLayout(QPainter& painter, const RectF& layout) {
  QRectF bounds(-kUnbounded, -kUnbounded, 2 * kUnbounded, 2 * kUnbounded);
  if (layout.width > 0) {
    bounds.setLeft(layout.x);
    bounds.setWidth(layout.width);
  }
  if (layout.height > 0) {
    bounds.setTop(layout.y);
    bounds.setHeight(layout.height);
  }
  painter.setClipRect(bounds.toAlignedRect(), Qt::IntersectClip);
}

void DrawLines(QPainter& painter, const QTextLayout& text, const RectF& layout, qreal top,
               qreal margin, StringAlignment alignment) {
  for (int i = 0; i < text.lineCount(); ++i) {
    const QTextLine line = text.lineAt(i);
    const qreal length = line.naturalTextWidth() + 2 * margin;
    const qreal left = Aligned(layout.x, layout.width, length, alignment) + margin;
    line.draw(&painter, {left, top});
  }
}

}  // namespace

Status GdipCreateFontFamilyFromName(std::string_view name, GpFontFamily& family) {
  family.reset();
  if (name.empty()) {
    return Status::InvalidParameter;
  }
  family = std::make_shared<FontFamily>();
  family->name = name;
  return Status::Ok;
}

Status GdipCreateFont(const GpFontFamily& family, float size, int, Unit, GpFont& font) {
  font.reset();
  if (family == nullptr || !(size >= 1.0F && size <= 1000.0F)) {
    return Status::InvalidParameter;
  }
  font = std::make_shared<PaintFont>();
  font->em = size;
  font->font = MakeFont({.family = family->name, .pixel_size = size});
  return Status::Ok;
}

Status GdipCreateStringFormat(int, int, GpStringFormat& format) {
  format = std::make_shared<StringFormat>();
  return Status::Ok;
}

Status GdipSetStringFormatAlign(const GpStringFormat& format, StringAlignment alignment) {
  if (format == nullptr) {
    return Status::InvalidParameter;
  }
  format->horizontal = alignment;
  return Status::Ok;
}

Status GdipSetStringFormatLineAlign(const GpStringFormat& format, StringAlignment alignment) {
  if (format == nullptr) {
    return Status::InvalidParameter;
  }
  format->vertical = alignment;
  return Status::Ok;
}

Status GdipDrawString(const GpGraphics& graphics, std::string_view text, const GpFont& font,
                      const RectF& layout, const GpStringFormat& format, const GpBrush& brush) {
  if (graphics == nullptr || font == nullptr || format == nullptr || brush == nullptr ||
      qGuiApp == nullptr || !InReach(layout.x, layout.y, layout.width, layout.height)) {
    return Status::InvalidParameter;
  }
  Canvas canvas(*graphics);
  if (!canvas.Ready()) {
    return Status::InvalidParameter;
  }
  const qreal margin = font->em / 6.0;
  QTextLayout lines(LayoutText(text), WithHint(font->font, graphics->text_hint));
  const qreal width = layout.width > 0 ? std::max(layout.width - 2 * margin, 1.0) : kUnbounded;
  const qreal height = BreakLines(lines, width);
  const qreal top = Aligned(layout.y, std::max(layout.height, 0.0F), height, format->vertical);
  ClipToLayout(*canvas, layout);
  canvas->setPen(brush->color);
  DrawLines(*canvas, lines, layout, top, margin, format->horizontal);
  return Status::Ok;
}

}  // namespace toolkit
