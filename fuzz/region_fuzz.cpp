#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/gdi.h"
#include "support.h"

/// Any bytes as a region file: refused, or a region that comes back the same from its own record,
/// has nothing left without itself, and lies inside its bounds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const platform::HRGN region = platform::ExtCreateRegion(std::as_bytes(std::span(data, size)));
  if (!region) {
    return 0;
  }
  const platform::HRGN again = platform::ExtCreateRegion(platform::GetRegionData(region));
  fuzz::Require(again && again->Rects() == region->Rects());
  platform::HRGN rest;
  fuzz::Require(platform::CombineRgn(rest, region, again, platform::RGN_DIFF) &&
                rest->Rects().empty());
  const platform::Rect bounds = region->Bounds();
  const int middle = (bounds.top + bounds.bottom) / 2;
  const platform::HRGN half =
      platform::CreateRectRgn(bounds.left, bounds.top, bounds.right, middle);
  fuzz::Require(platform::CombineRgn(rest, region, half, platform::RGN_DIFF));
  for (const platform::Rect& rect : rest->Rects()) {
    fuzz::Require(rect.top >= middle && rect.bottom <= bounds.bottom && rect.left >= bounds.left &&
                  rect.right <= bounds.right && !half->Contains(rect.left, rect.top) &&
                  region->Contains(rect.left, rect.top));
  }
  return 0;
}
