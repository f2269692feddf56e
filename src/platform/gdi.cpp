#include "platform/gdi.h"

#include <cstdlib>
#include <limits>

#include "platform/bitmap_file.h"

namespace platform {
namespace {

constexpr int kUsualDpi = 96;
int g_dpi = kUsualDpi;

}  // namespace

HDC CreateCompatibleDC(const HDC& /*reference*/) { return std::make_shared<DeviceContext>(); }

void DeleteDC(HDC& dc) { dc.reset(); }

void DeleteObject(HBITMAP& bitmap) { bitmap.reset(); }

bool SelectObject(const HDC& dc, const HBITMAP& bitmap) {
  if (!dc || !bitmap) {
    return false;
  }
  dc->bitmap = bitmap;
  return true;
}

HBITMAP CreateDIBSection(const HDC& /*dc*/, const BitmapInfo& info) {
  const BitmapInfoHeader& header = info.header;
  if (header.compression != 0 || header.height == std::numeric_limits<std::int32_t>::min()) {
    return {};
  }
  HBITMAP bitmap = NewBitmap(header.width, std::abs(header.height), header.bit_count);
  if (bitmap) {
    bitmap->colors = info.colors;
  }
  return bitmap;
}

int GetDeviceCaps(const HDC& /*dc*/, int index) {
  return index == LOGPIXELSX || index == LOGPIXELSY ? g_dpi : 0;
}

void SetDeviceDpi(int dots_per_inch) { g_dpi = dots_per_inch > 0 ? dots_per_inch : kUsualDpi; }

HFONT CreateFontA(int height, int /*width*/, int /*escapement*/, int /*orientation*/, int weight,
                  bool italic, bool underline, bool strikeout, std::uint32_t charset,
                  std::string_view face) {
  return std::make_shared<LogFont>(
      LogFont{height, weight, italic, underline, strikeout, charset, std::string(face)});
}

int MulDiv(int number, int numerator, int denominator) {
  if (denominator == 0) {
    return -1;
  }
  const std::int64_t product = std::int64_t{number} * numerator;
  const std::int64_t divisor = std::abs(std::int64_t{denominator});
  const std::int64_t magnitude = (std::abs(product) + divisor / 2) / divisor;
  const bool negative = (product < 0) != (denominator < 0);
  const std::int64_t result = negative ? -magnitude : magnitude;
  const bool fits =
      result >= std::numeric_limits<int>::min() && result <= std::numeric_limits<int>::max();
  return fits ? static_cast<int>(result) : -1;
}

}  // namespace platform
