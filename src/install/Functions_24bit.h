#pragma once

#include <cstdint>
#include <string_view>

#include "install/BitmapFunctions.h"

namespace nimbrel {

/// The colour side of the composer: inputs 0 to 2 and one work sheet.

bool LoadBitmap24(std::int16_t slot, std::string_view path);
bool CreateSheet24(std::uint16_t bit_count, std::int16_t width, std::int16_t height);
bool BlitCell24(std::int16_t slot, const CellCopy& cell);
/// `name` without folder and extension.
bool SaveSheet24(std::string_view name);
void ReleaseInput24(std::int16_t slot);
void ReleaseSheet24();

}  // namespace nimbrel
