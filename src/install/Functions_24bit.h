#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/FileStatus.h"

namespace nimbrel {

struct CellCopy;
class WorkBitmaps;

/// The colour side of the composer. What each routine returns is said at WorkBitmaps.

platform::FileStatus LoadBitmap24(WorkBitmaps& side, std::size_t slot, std::string_view path);
bool CreateSheet24(WorkBitmaps& side, std::uint16_t bit_count, std::int16_t width,
                   std::int16_t height);
bool BlitCell24(WorkBitmaps& side, std::size_t slot, const CellCopy& cell);
/// `name` without folder and extension.
platform::FileStatus SaveSheet24(WorkBitmaps& side, std::string_view name);

}  // namespace nimbrel
