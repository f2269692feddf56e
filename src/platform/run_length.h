#pragma once

#include <cstddef>
#include <span>

namespace platform {

struct Bitmap;

/// The order in which a file stores the rows of a picture.
enum class RowOrder : bool { kBottomUp, kTopDown };

/// Fills an 8-bit bitmap whose bytes are 0 from the published run-length code of `depth` 4 or 8
/// bits. Pixels that no run covers stay 0, what lies outside the picture is left out. False if the
/// code ends before the picture does.
bool DecodeRuns(std::span<const std::byte> code, unsigned depth, RowOrder order, Bitmap& bitmap);

}  // namespace platform
