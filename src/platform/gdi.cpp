#include "platform/gdi.h"

#include <new>

namespace platform {

HBITMAP NewBitmap(int width, int height, int bit_count) try {
  const bool sized = width >= 1 && width <= kMaxSide && height >= 1 && height <= kMaxSide;
  if (!sized || (bit_count != 8 && bit_count != 24 && bit_count != 32)) {
    return {};
  }
  const std::size_t stride = StrideOf(width, bit_count);
  if (stride * static_cast<std::size_t>(height) > kMaxBitmapBytes) {
    return {};
  }
  auto bitmap = std::make_shared<Bitmap>();
  bitmap->width = width;
  bitmap->height = height;
  bitmap->bit_count = bit_count;
  bitmap->stride = stride;
  bitmap->bits.resize(stride * static_cast<std::size_t>(height));
  return bitmap;
} catch (const std::bad_alloc&) {
  return {};
}

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
  HBITMAP bitmap = NewBitmap(info.header.width, info.header.height, info.header.bit_count);
  if (bitmap) {
    bitmap->colors = info.colors;
  }
  return bitmap;
}

}  // namespace platform
