#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/FileStatus.h"

namespace nimbrel {

struct CellCopy;
class WorkBitmaps;

/// The alpha side of the composer: the twin of Functions_24bit, whose sheet carries the colour
/// table of input 0.

/// The path "IGNORE" names no file: kNoSource, and the slot stays as it is.
platform::FileStatus LoadBitmap8(WorkBitmaps& side, std::size_t slot, std::string_view path);
bool CreateSheet8(WorkBitmaps& side, std::uint16_t bit_count, std::int16_t width,
                  std::int16_t height);
bool BlitCell8(WorkBitmaps& side, std::size_t slot, const CellCopy& cell);
/// `name` without folder and extension.
platform::FileStatus SaveSheet8(WorkBitmaps& side, std::string_view name);

}  // namespace nimbrel
