#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStatus.h"

namespace platform {

class FileSystem;

/// The part of the graphics device interface that the program calls, in plain C++. A handle owns
/// its object; an empty handle is a failed call. Coordinates are pixels, y downwards.

using ColorRef = std::uint32_t;  ///< 0x00BBGGRR, as published
constexpr ColorRef RGB(unsigned red, unsigned green, unsigned blue) {
  return red | (green << 8U) | (blue << 16U);
}
inline constexpr ColorRef kInvalidColor = 0xFFFFFFFFU;  ///< CLR_INVALID

/// One colour table entry of a bitmap, in the order of the file.
struct RGBQuad {
  std::uint8_t blue = 0;
  std::uint8_t green = 0;
  std::uint8_t red = 0;
  std::uint8_t reserved = 0;
  bool operator==(const RGBQuad&) const = default;
};

/// The 40 bytes of BITMAPINFOHEADER, little-endian in files.
struct BitmapInfoHeader {
  std::uint32_t size = 40;
  std::int32_t width = 0;
  std::int32_t height = 0;  ///< positive: rows bottom to top
  std::uint16_t planes = 1;
  std::uint16_t bit_count = 0;
  std::uint32_t compression = 0;
  std::uint32_t size_image = 0;
  std::int32_t x_pels_per_meter = 0;
  std::int32_t y_pels_per_meter = 0;
  std::uint32_t colors_used = 0;
  std::uint32_t colors_important = 0;
};

/// BITMAPINFO with a whole colour table.
struct BitmapInfo {
  BitmapInfoHeader header;
  std::array<RGBQuad, 256> colors{};
};

/// A device-independent bitmap of 8, 24 or 32 bits. Rows are stored top to bottom, each padded to 4
/// bytes; the bytes of a pixel are blue, green, red and, with 32 bits, alpha.
struct Bitmap {
  int width = 0;
  int height = 0;
  int bit_count = 0;
  bool has_alpha = false;  ///< 32-bit only: false means that every pixel is opaque
  std::size_t stride = 0;  ///< bytes from one row to the next
  std::vector<std::uint8_t> bits;
  std::array<RGBQuad, 256> colors{};  ///< 8-bit only
};
using HBITMAP = std::shared_ptr<Bitmap>;

inline constexpr int kMaxSide = 16384;  ///< pixels of a bitmap, either way
/// A picture of 4096 x 4096 pixels of 32 bits, which is more than a skin or a texture pack holds.
inline constexpr std::size_t kMaxBitmapBytes = std::size_t{64} << 20U;

/// Bytes of a row, which is padded to 4.
inline std::size_t StrideOf(int width, int bit_count) {
  return (static_cast<std::size_t>(width) * static_cast<unsigned>(bit_count) + 31) / 32 * 4;
}

/// A memory device context: a bitmap to draw on, or none yet. Forms hand out a reference to the
/// context of their retained bitmap.
struct DeviceContext {
  HBITMAP bitmap;
};
using HDC = std::shared_ptr<DeviceContext>;

/// A memory context compatible with `reference`, which may be empty (the screen).
HDC CreateCompatibleDC(const HDC& reference);
void DeleteDC(HDC& dc);
void DeleteObject(HBITMAP& bitmap);

/// Puts the bitmap into the context. False if either is empty.
bool SelectObject(const HDC& dc, const HBITMAP& bitmap);

inline constexpr std::uint32_t LR_LOADFROMFILE = 0x0010;
inline constexpr std::uint32_t LR_CREATEDIBSECTION = 0x2000;
/// Decodes a BMP file: 1, 4, 8, 16, 24 or 32 bits, plain, run-length coded or with channel masks,
/// rows in either direction. Depths of 1 and 4 bits widen to 8, 16 to 24; 8, 24 and 32 keep their
/// depth and colour table. Empty for a missing, malformed or truncated file, one over 128 MiB, a
/// side of 0 or over 16384 and a picture that decodes to over 64 MiB. `status` is how the reading
/// went.
HBITMAP LoadImageA(FileSystem& files, std::string_view path, std::uint32_t flags,
                   FileStatus* status = nullptr);

/// A bitmap of 8, 24 or 32 bits, all bytes 0. Empty handle for another depth, a side below 1 or
/// over 16384, more than 64 MiB, or no memory.
HBITMAP NewBitmap(int width, int height, int bit_count);

/// A zero-filled bitmap of the header's size and depth, with the info's colours.
HBITMAP CreateDIBSection(const HDC& dc, const BitmapInfo& info);

inline constexpr std::uint32_t SRCCOPY = 0x00CC0020;
/// Copies a rectangle from a bitmap of any depth to another one of 8 or 24 bits, clipped to both,
/// nearest pixel where the sizes differ (the COLORONCOLOR mode). To 8 bits, colours are matched to
/// the nearest entry of the target's table; of equal ones the lowest index wins. False if either
/// context has no bitmap or both have the same, if a size is below 1 (nothing is mirrored), if the
/// target has another depth or the operation is not SRCCOPY. A rectangle wholly outside draws
/// nothing and is true.
bool StretchBlt(const HDC& target, int x, int y, int width, int height, const HDC& source,
                int source_x, int source_y, int source_width, int source_height,
                std::uint32_t operation);

/// Copies all rows of a bitmap into `pixels`, bottom to top, each padded to 4 bytes, in the
/// bitmap's own format, and fills info.colors (8 bits) and header.size_image. Returns the number of
/// rows; 0 if `start` and `lines` or the header do not name the whole bitmap, or `pixels` is too
/// short.
int GetDIBits(const HDC& dc, const HBITMAP& bitmap, unsigned start, unsigned lines,
              std::span<std::uint8_t> pixels, BitmapInfo& info);

/// The entries from `start` of an 8-bit context's table. Return the number read or set, 0 for other
/// depths.
unsigned GetDIBColorTable(const HDC& dc, unsigned start, std::span<RGBQuad> colors);
unsigned SetDIBColorTable(const HDC& dc, unsigned start, std::span<const RGBQuad> colors);

/// The pixel's colour; kInvalidColor outside the bitmap.
ColorRef GetPixel(const HDC& dc, int x, int y);

}  // namespace platform
