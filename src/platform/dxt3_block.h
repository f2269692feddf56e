#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace platform {

/// A square of 4 x 4 pixels: red, green, blue, alpha of each, row by row.
using BlockPixels = std::array<std::uint8_t, 64>;

/// The square as a DXT3 block: 8 bytes of 4-bit alpha, rounded to nearest, then the colour block
/// with its larger end colour first, so that readers that know DXT1 only see four colours too.
std::array<std::byte, 16> EncodeDxt3Block(const BlockPixels& pixels);

}  // namespace platform
