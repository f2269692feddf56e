#pragma once

#include <cstdint>
#include <cstring>
#include <memory>

#include "platform/gdi.h"

/// A 32-bit surface to draw on, and its pixels as 0xRRGGBB.
class Surface {
 public:
  Surface(int width, int height, std::uint32_t color = 0xFFFFFF)
      : hdc(std::make_shared<platform::DeviceContext>()) {
    hdc->bitmap = std::make_shared<platform::Bitmap>();
    platform::Bitmap& bitmap = *hdc->bitmap;
    bitmap.width = width;
    bitmap.height = height;
    bitmap.bit_count = 32;
    bitmap.stride = static_cast<std::size_t>(width) * 4;
    bitmap.bits.resize(bitmap.stride * static_cast<std::size_t>(height));
    color |= 0xFF000000U;
    for (std::size_t at = 0; at < bitmap.bits.size(); at += 4) {
      std::memcpy(&bitmap.bits[at], &color, 4);
    }
  }

  std::uint32_t At(int x, int y) const {
    const platform::Bitmap& bitmap = *hdc->bitmap;
    std::uint32_t color = 0;
    std::memcpy(
        &color,
        &bitmap.bits[static_cast<std::size_t>(y) * bitmap.stride + static_cast<std::size_t>(x) * 4],
        4);
    return color & 0xFFFFFFU;
  }

  platform::HDC hdc;
};
