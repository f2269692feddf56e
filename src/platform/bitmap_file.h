#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/gdi.h"

namespace platform {

/// The bitmap file format itself, for those inside the layer that read or write its headers.

inline constexpr std::size_t kFileHeaderBytes = 14;
inline constexpr std::size_t kInfoHeaderBytes = 40;

/// The bitmap of a whole BMP file in memory; what LoadImageA serves and refuses holds here.
HBITMAP DecodeBitmapFile(std::span<const std::byte> file);

/// Appends the 14 bytes that begin every bitmap file. `pixel_offset` counts from the file's start.
void AppendFileHeader(std::vector<std::byte>& file, std::uint32_t file_size,
                      std::uint32_t pixel_offset);
void AppendInfoHeader(std::vector<std::byte>& file, const BitmapInfoHeader& header);

/// An empty bitmap of 8, 24 or 32 bits, all bytes 0. Empty handle for another depth, a side below 1
/// or over 16384, or no memory.
HBITMAP NewBitmap(int width, int height, int bit_count);

}  // namespace platform
