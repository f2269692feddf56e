#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/gdi.h"

namespace platform {

/// The bitmap file format: the one decoder, and the headers of the files that the program writes.

inline constexpr std::size_t kFileHeaderBytes = 14;
inline constexpr std::size_t kInfoHeaderBytes = 40;

/// The bitmap of a whole BMP file in memory; reads and refuses what LoadImageA does. A 32-bit file
/// whose header has an alpha mask has alpha, unless its alpha is 0 throughout.
HBITMAP DecodeBitmapFile(std::span<const std::byte> file);

/// Appends the 14 bytes that begin every bitmap file. `pixel_offset` counts from the file's start.
void AppendFileHeader(std::vector<std::byte>& file, std::uint32_t file_size,
                      std::uint32_t pixel_offset);
void AppendInfoHeader(std::vector<std::byte>& file, const BitmapInfoHeader& header);

}  // namespace platform
