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

#include "platform/files.h"

namespace platform {

/// The part of the graphics device interface that the program calls, in plain C++. Handles own what
/// they stand for; an empty handle is a failed call. Coordinates are pixels, y downwards.

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

/// A device-independent bitmap of 8, 24 or 32 bits. Rows lie in memory top to bottom, each padded
/// to 4 bytes; 32-bit pixels are 0xAARRGGBB words of the machine.
struct Bitmap {
  int width = 0;
  int height = 0;
  int bit_count = 0;
  std::size_t stride = 0;  ///< bytes from one row to the next
  std::vector<std::uint8_t> bits;
  std::array<RGBQuad, 256> colors{};  ///< 8-bit only
};
using HBITMAP = std::shared_ptr<Bitmap>;

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

/// Puts the bitmap into the context. False when either is empty.
bool SelectObject(const HDC& dc, const HBITMAP& bitmap);

inline constexpr std::uint32_t LR_LOADFROMFILE = 0x0010;
inline constexpr std::uint32_t LR_CREATEDIBSECTION = 0x2000;
/// Decodes an uncompressed BMP file of 1, 4, 8, 16, 24 or 32 bits, rows in either direction, plain
/// or with channel masks. Depths of 1 and 4 bits widen to 8, 16 to 24; 8, 24 and 32 keep their
/// depth and colour table. Empty for a missing, malformed, truncated or run-length coded file, one
/// over 128 MiB, a side of 0 or over 16384, and the 12-byte header of the oldest writers. `status`
/// tells, when it is given, how the reading of the file went.
HBITMAP LoadImageA(std::string_view path, std::uint32_t flags, FileStatus* status = nullptr);

/// A zero-filled bitmap of the header's size and depth (8, 24 or 32 bits), with the info's colours.
HBITMAP CreateDIBSection(const HDC& dc, const BitmapInfo& info);

inline constexpr std::uint32_t SRCCOPY = 0x00CC0020;
/// Copies a rectangle between contexts, clipped to both bitmaps, nearest pixel where it stretches
/// (the COLORONCOLOR mode). Between two 8-bit bitmaps with different tables, and from deeper ones
/// to 8 bits, colours are matched to the nearest entry of the target's table (the lowest index
/// wins); 32-bit pixels that come from another depth are opaque. False when either context has no
/// bitmap, a size is below 1 (nothing is mirrored) or the operation is not SRCCOPY; a rectangle
/// wholly outside draws nothing and is true.
bool StretchBlt(const HDC& target, int x, int y, int width, int height, const HDC& source,
                int source_x, int source_y, int source_width, int source_height,
                std::uint32_t operation);

/// Copies `lines` rows from the bottom row `start` upwards into `pixels`, in the format of
/// info.header (8 to 8 or 24 to 24 bits), rows bottom to top, each padded to 4 bytes, and fills
/// header.size_image. For 8 bits it also fills the info's colours. The number of rows copied; 0
/// when depth or size don't fit or `pixels` is too short. 32 to 32 bits goes the same way.
int GetDIBits(const HDC& dc, const HBITMAP& bitmap, unsigned start, unsigned lines,
              std::span<std::uint8_t> pixels, BitmapInfo& info);

/// Entries of an 8-bit context's table, from `start`; the number read or set, 0 for other depths.
unsigned GetDIBColorTable(const HDC& dc, unsigned start, std::span<RGBQuad> colors);
unsigned SetDIBColorTable(const HDC& dc, unsigned start, std::span<const RGBQuad> colors);

/// The pixel's colour; kInvalidColor outside the bitmap.
ColorRef GetPixel(const HDC& dc, int x, int y);

}  // namespace platform
