#include "toolkit/pictures.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>

#include "platform/FileSystem.h"
#include "platform/bitmap_file.h"
#include "toolkit/host_files.h"

namespace toolkit {
namespace {

/// Holds an uncompressed bitmap of kMaxMebibytes with its headers.
constexpr std::size_t kMaxFile = (std::size_t{64} << 20U) + 4096;
constexpr int kMaxMebibytes = 64;  ///< of a decoded picture
constexpr std::int64_t kMaxPixels = (std::int64_t{kMaxMebibytes} << 20U) / 4;

using Bytes = std::span<const std::byte>;

template <typename Visit>
void ForEachPixel(QImage& image, Visit visit) {
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    std::for_each(row, row + image.width(), visit);
  }
}

/// `image` has 4 bytes a pixel.
void MakeOpaque(QImage& image) {
  ForEachPixel(image, [](QRgb& pixel) { pixel |= 0xFF000000U; });
  image.reinterpretAsFormat(QImage::Format_RGB32);
}

QImage::Format FormatOf(const platform::Bitmap& bitmap) {
  switch (bitmap.bit_count) {
    case 8:
      return QImage::Format_Indexed8;
    case 24:
      return QImage::Format_BGR888;
    default:
      return bitmap.has_alpha ? QImage::Format_ARGB32 : QImage::Format_RGB32;
  }
}

QList<QRgb> ColorsOf(const platform::Bitmap& bitmap) {
  QList<QRgb> colors;
  for (const platform::RGBQuad& color : bitmap.colors) {
    colors << qRgb(color.red, color.green, color.blue);
  }
  return colors;
}

QImage FromBitmap(const platform::Bitmap& bitmap) {
  QImage wrapped(bitmap.bits.data(), bitmap.width, bitmap.height,
                 static_cast<qsizetype>(bitmap.stride), FormatOf(bitmap));
  if (bitmap.bit_count == 8) {
    wrapped.setColorTable(ColorsOf(bitmap));
  }
  if (bitmap.has_alpha) {
    return wrapped.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  }
  QImage image =
      bitmap.bit_count == 32 ? wrapped.copy() : wrapped.convertToFormat(QImage::Format_RGB32);
  MakeOpaque(image);
  return image;
}

/// The bitmap decoder's own bound is of 8 bits a pixel, not of the 32 used here.
QImage DecodeBmp(Bytes bytes) {
  const platform::HBITMAP bitmap = platform::DecodeBitmapFile(bytes);
  return bitmap != nullptr && IsPictureSize({bitmap->width, bitmap->height}) ? FromBitmap(*bitmap)
                                                                             : QImage();
}

bool IsBmp(Bytes bytes) {
  return bytes.size() >= 2 && bytes[0] == std::byte{'B'} && bytes[1] == std::byte{'M'};
}

void MakeDrawable(QImage& image) {
  if (!image.hasAlphaChannel()) {
    image.convertTo(QImage::Format_RGB32);
    return;
  }
  image.convertTo(QImage::Format_ARGB32);
  bool seen = false;
  ForEachPixel(image, [&seen](QRgb pixel) { seen = seen || qAlpha(pixel) != 0; });
  if (seen) {
    image.convertTo(QImage::Format_ARGB32_Premultiplied);
  } else {
    MakeOpaque(image);
  }
}

}  // namespace

bool IsPictureSize(const QSize& size) {
  return size.width() > 0 && size.height() > 0 && size.width() <= kMaxPictureSide &&
         size.height() <= kMaxPictureSide &&
         std::int64_t{size.width()} * size.height() <= kMaxPixels;
}

QImage DecodePicture(Bytes bytes, const char* format, int index) {
  QByteArray shared = QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.data()),
                                              static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&shared);
  buffer.open(QIODevice::ReadOnly);
  QImageReader::setAllocationLimit(kMaxMebibytes);
  QImageReader reader(&buffer, format);
  const bool found = index == 0 || reader.jumpToImage(index);
  return found && IsPictureSize(reader.size()) ? reader.read() : QImage();
}

QImage LoadPicture(std::string_view path, platform::FileStatus& status) {
  const auto bytes = Files().ReadFile(path, kMaxFile, &status);
  if (!bytes) {
    return {};
  }
  if (IsBmp(*bytes)) {
    return DecodeBmp(*bytes);
  }
  QImage image = DecodePicture(*bytes);
  MakeDrawable(image);
  return image;
}

}  // namespace toolkit
