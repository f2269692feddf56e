#pragma once

#include <cstdint>
#include <string_view>

#include "install/BitmapFunctions.h"

namespace nimbrel {

/// The alpha side of the composer: the twin of Functions_24bit, whose sheet carries the colour
/// table of input 0.

/// The path "IGNORE" is no file: false, and the slot stays as it is.
bool LoadBitmap8(std::int16_t slot, std::string_view path);
bool CreateSheet8(std::uint16_t bit_count, std::int16_t width, std::int16_t height);
bool BlitCell8(std::int16_t slot, const CellCopy& cell);
/// `name` without folder and extension.
bool SaveSheet8(std::string_view name);
void ReleaseInput8(std::int16_t slot);
void ReleaseSheet8();

}  // namespace nimbrel
