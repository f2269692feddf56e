#include "platform/gdi.h"

#include <cstdlib>
#include <limits>

#include "platform/bitmap_file.h"

namespace platform {
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

}  // namespace platform
