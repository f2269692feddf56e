#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace toolkit {

struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;   ///< exclusive
  int bottom = 0;  ///< exclusive
  bool operator==(const Rect&) const = default;
};

/// A set of pixels. Regions don't change; CombineRgn makes new ones.
struct Region;
using HRGN = std::shared_ptr<const Region>;  ///< empty: a failed call

/// The sides may come in either order.
HRGN CreateRectRgn(int left, int top, int right, int bottom);
inline constexpr int RGN_DIFF = 4;
/// target = first minus second; only RGN_DIFF is served. False for an empty handle.
bool CombineRgn(HRGN& target, const HRGN& first, const HRGN& second, int mode);
/// Whether any pixel of the rectangle lies in the region.
bool RectInRegion(const HRGN& region, const Rect& rect);

/// The RGNDATA record of a region: the 32-byte header, then 16 bytes for each rectangle, all
/// little-endian. The rectangles form bands from top to bottom, each from left to right, and none
/// touch in a way that two could be one. Empty for an empty handle.
std::vector<std::byte> GetRegionData(const HRGN& region);
/// The region of an RGNDATA record. Empty if the record is shorter than its header, names another
/// header length than 32 or another kind than rectangles, is shorter than its count says, or would
/// fall into millions of pieces. Rectangles may overlap and lie in any order; empty ones count for
/// nothing. Coordinates outside -32768 to 32767 are cut to it.
HRGN ExtCreateRegion(std::span<const std::byte> data);

}  // namespace toolkit
