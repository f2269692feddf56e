#include <QFile>
#include <QImageReader>
#include <QtEndian>
#include <array>
#include <cstdlib>
#include <limits>

#include "platform/files.h"
#include "toolkit/gdiplus.h"
#include "toolkit/paint_objects.h"

namespace toolkit {
namespace {

constexpr int kLargestSide = 16384;
constexpr int kLargestMegabytes = 1024;  ///< of a picture with both sides at the limit

/// What the first bytes of a BMP file tell about its pixels; little-endian in the file.
struct BmpFacts {
  bool is_bmp = false;
  std::int64_t pixels_end = 0;  ///< file length that the pixels need; 0 when packed
};

using BmpHead = std::array<char, 54>;

template <typename Number>
Number Field(const BmpHead& head, std::size_t offset) {
  return qFromLittleEndian<Number>(&head[offset]);
}

/// Where plain pixels end; 0 for packed ones, past every file for sides that are not served. The
/// oldest header has 16-bit sides and no packing.
std::int64_t PixelsEnd(const BmpHead& head) {
  constexpr std::uint32_t kOldestHeader = 12;
  constexpr std::uint32_t kPlain = 0;
  constexpr std::uint32_t kBitFields = 3;
  const bool oldest = Field<std::uint32_t>(head, 14) == kOldestHeader;
  const auto compression = oldest ? kPlain : Field<std::uint32_t>(head, 30);
  if (compression != kPlain && compression != kBitFields) {
    return 0;
  }
  const std::int64_t width =
      oldest ? Field<std::uint16_t>(head, 18) : Field<std::int32_t>(head, 18);
  const std::int64_t height =
      oldest ? Field<std::uint16_t>(head, 20) : Field<std::int32_t>(head, 22);
  if (std::abs(width) > kLargestSide || std::abs(height) > kLargestSide) {
    return std::numeric_limits<std::int64_t>::max();
  }
  const std::int64_t depth = Field<std::uint16_t>(head, oldest ? 24 : 28);
  return Field<std::uint32_t>(head, 10) +
         (std::abs(width) * depth + 31) / 32 * 4 * std::abs(height);
}

BmpFacts ReadBmpFacts(QFile& file) {
  BmpHead head{};
  file.peek(head.data(), head.size());
  if (head[0] != 'B' || head[1] != 'M') {
    return {};
  }
  return {.is_bmp = true, .pixels_end = PixelsEnd(head)};
}

bool SizeServed(const QSize& size) {
  return size.width() > 0 && size.height() > 0 && size.width() <= kLargestSide &&
         size.height() <= kLargestSide;
}

/// A null picture for anything but a whole picture. A BMP file that ends early is refused: the
/// decoder would leave the missing rows as memory happened to be.
QImage Decode(QFile& file, bool& is_bmp) {
  const BmpFacts facts = ReadBmpFacts(file);
  is_bmp = facts.is_bmp;
  QImageReader reader(&file);
  reader.setDecideFormatFromContent(true);
  if (facts.pixels_end > file.size() || !SizeServed(reader.size())) {
    return {};
  }
  return reader.read();
}

/// The form that draws fastest; pixels that are in it already are not copied. The fourth byte of a
/// BMP's pixels is no transparency, as published: it is often left at 0 all over.
void MakeDrawable(QImage& pixels, bool opaque) {
  const bool plain = opaque || !pixels.hasAlphaChannel();
  pixels.convertTo(plain ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
}

bool Inside(const GpImage& image, int x, int y) {
  return image != nullptr && image->pixels.valid(x, y);
}

}  // namespace

Status GdipLoadImageFromFile(std::string_view path, GpImage& image) {
  image.reset();
  const std::string host = platform::HostPath(path);
  QFile file(QString::fromUtf8(host.data(), static_cast<qsizetype>(host.size())));
  if (!file.open(QIODevice::ReadOnly)) {
    return Status::FileNotFound;
  }
  QImageReader::setAllocationLimit(kLargestMegabytes);
  bool is_bmp = false;
  QImage pixels = Decode(file, is_bmp);
  if (pixels.isNull()) {
    return Status::GenericError;
  }
  MakeDrawable(pixels, is_bmp);
  if (pixels.isNull()) {
    return Status::OutOfMemory;
  }
  image = std::make_shared<Image>();
  image->pixels = std::move(pixels);
  return Status::Ok;
}

Status GdipCreateBitmapFromScan0(int width, int height, PixelFormat, GpImage& bitmap) {
  bitmap.reset();
  if (!SizeServed({width, height})) {
    return Status::InvalidParameter;
  }
  QImage pixels(width, height, QImage::Format_ARGB32_Premultiplied);
  if (pixels.isNull()) {
    return Status::OutOfMemory;
  }
  pixels.fill(Qt::transparent);
  bitmap = std::make_shared<Image>();
  bitmap->pixels = std::move(pixels);
  return Status::Ok;
}

Status GdipGetImageGraphicsContext(const GpImage& image, GpGraphics& graphics) {
  graphics.reset();
  if (image == nullptr) {
    return Status::InvalidParameter;
  }
  graphics = std::make_shared<Graphics>();
  graphics->image = image;
  return Status::Ok;
}

Status GdipDisposeImage(GpImage& image) { return Release(image); }

Status GdipGetImageWidth(const GpImage& image, std::uint32_t& width) {
  width = image == nullptr ? 0 : static_cast<std::uint32_t>(image->pixels.width());
  return image == nullptr ? Status::InvalidParameter : Status::Ok;
}

Status GdipGetImageHeight(const GpImage& image, std::uint32_t& height) {
  height = image == nullptr ? 0 : static_cast<std::uint32_t>(image->pixels.height());
  return image == nullptr ? Status::InvalidParameter : Status::Ok;
}

Status GdipGetImageFlags(const GpImage& image, std::uint32_t& flags) {
  flags = image != nullptr && image->pixels.hasAlphaChannel() ? ImageFlagsHasAlpha : 0;
  return image != nullptr ? Status::Ok : Status::InvalidParameter;
}

Status GdipBitmapGetPixel(const GpImage& image, int x, int y, ARGB& color) {
  if (!Inside(image, x, y)) {
    return Status::InvalidParameter;
  }
  color = image->pixels.pixel(x, y);
  return Status::Ok;
}

Status GdipBitmapSetPixel(const GpImage& image, int x, int y, ARGB color) {
  if (!Inside(image, x, y)) {
    return Status::InvalidParameter;
  }
  QImage& pixels = image->pixels;
  const bool fits = qAlpha(color) == 0xFF && pixels.format() == QImage::Format_RGB32;
  if (!fits && pixels.format() != QImage::Format_ARGB32) {
    pixels.convertTo(QImage::Format_ARGB32);
  }
  reinterpret_cast<QRgb*>(pixels.scanLine(y))[x] = color;
  return Status::Ok;
}

Status GdipDrawImageRect(const GpGraphics& graphics, const GpImage& image, float x, float y,
                         float width, float height) {
  if (image == nullptr) {
    return Status::InvalidParameter;
  }
  return GdipDrawImageRectRect(graphics, image, {x, y, width, height},
                               {0, 0, static_cast<float>(image->pixels.width()),
                                static_cast<float>(image->pixels.height())});
}

Status GdipDrawImageRectRect(const GpGraphics& graphics, const GpImage& image,
                             const RectF& destination, const RectF& source) {
  if (graphics == nullptr || image == nullptr || !InReach(destination) || !InReach(source)) {
    return Status::InvalidParameter;
  }
  Canvas canvas(*graphics);
  if (!canvas.Ready()) {
    return Status::InvalidParameter;
  }
  const QRect place = WholePixels(destination);
  const QRect part = WholePixels(source);
  // Pixels that are not scaled stay as they are; asking for smoothness would cost six times as
  // much.
  canvas->setRenderHint(QPainter::SmoothPixmapTransform, place.size() != part.size());
  if (!place.isEmpty() && !part.isEmpty()) {
    canvas->drawImage(place, image->pixels, part);
  }
  return Status::Ok;
}

}  // namespace toolkit
