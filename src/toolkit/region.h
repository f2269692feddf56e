#pragma once

#include <cstddef>
#include <optional>
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

/// A set of pixels as rectangles in bands from top to bottom, left to right, none touching in a
/// way that two could be one (the published order of a region's data).
class Region {
 public:
  Region() = default;
  explicit Region(std::vector<Rect> banded) : rects_(std::move(banded)) {}
  const std::vector<Rect>& Rects() const { return rects_; }
  Rect Bounds() const;
  bool Contains(int x, int y) const;

 private:
  std::vector<Rect> rects_;
};
using HRGN = std::optional<Region>;  ///< empty: a failed call

HRGN CreateRectRgn(int left, int top, int right, int bottom);
inline constexpr int RGN_DIFF = 4;
/// target = first minus second; only RGN_DIFF is served. False for an empty handle.
bool CombineRgn(HRGN& target, const HRGN& first, const HRGN& second, int mode);

/// The RGNDATA record of a region: the 32-byte header, then 16 bytes for each rectangle, all
/// little-endian. Empty when the region is an empty handle.
std::vector<std::byte> GetRegionData(const HRGN& region);
/// The region of an RGNDATA record. Empty when the record is shorter than its header, names another
/// header length than 32 or another kind than rectangles, is shorter than its count says, or would
/// fall into millions of pieces. Rectangles may overlap or lie in any order; empty ones count for
/// nothing. Coordinates outside -32768 to 32767 are cut to it.
HRGN ExtCreateRegion(std::span<const std::byte> data);

}  // namespace toolkit
