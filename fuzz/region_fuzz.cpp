#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/gdi.h"
#include "support.h"

/// Any bytes as a region file: refused, or a region that comes back the same from its own record,
/// has nothing left without itself, and lies inside its bounds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const toolkit::HRGN region = toolkit::ExtCreateRegion(std::as_bytes(std::span(data, size)));
  if (!region) {
    return 0;
  }
  const toolkit::HRGN again = toolkit::ExtCreateRegion(toolkit::GetRegionData(region));
  fuzz::Require(again && again->Rects() == region->Rects());
  toolkit::HRGN rest;
  fuzz::Require(toolkit::CombineRgn(rest, region, again, toolkit::RGN_DIFF) &&
                rest->Rects().empty());
  const toolkit::Rect bounds = region->Bounds();
  const int middle = (bounds.top + bounds.bottom) / 2;
  const toolkit::HRGN half = toolkit::CreateRectRgn(bounds.left, bounds.top, bounds.right, middle);
  fuzz::Require(toolkit::CombineRgn(rest, region, half, toolkit::RGN_DIFF));
  for (const toolkit::Rect& rect : rest->Rects()) {
    fuzz::Require(rect.top >= middle && rect.bottom <= bounds.bottom && rect.left >= bounds.left &&
                  rect.right <= bounds.right && !half->Contains(rect.left, rect.top) &&
                  region->Contains(rect.left, rect.top));
  }
  return 0;
}
