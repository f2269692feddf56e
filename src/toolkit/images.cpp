#include "toolkit/gdiplus.h"
#include "toolkit/paint_objects.h"
#include "toolkit/pictures.h"

namespace toolkit {
namespace {

bool Inside(const GpImage& image, int x, int y) {
  return image != nullptr && image->pixels.valid(x, y);
}

}  // namespace

Status GdipLoadImageFromFile(std::string_view path, GpImage& image) {
  image.reset();
  platform::FileStatus status = platform::FileStatus::kOk;
  QImage pixels = LoadPicture(path, status);
  if (pixels.isNull()) {
    return status == platform::FileStatus::kOk ? Status::GenericError : Status::FileNotFound;
  }
  image = std::make_shared<Image>();
  image->pixels = std::move(pixels);
  return Status::Ok;
}

Status GdipCreateBitmapFromScan0(int width, int height, PixelFormat, GpImage& bitmap) {
  bitmap.reset();
  if (!IsPictureSize({width, height})) {
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
