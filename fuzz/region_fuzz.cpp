#include <cstddef>
#include <cstdint>
#include <span>

#include "support.h"
#include "toolkit/region.h"

/// Any bytes as a region file: refused, or a region that comes back the same from its own record
/// and has nothing left without itself.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const toolkit::HRGN region = toolkit::ExtCreateRegion(std::as_bytes(std::span(data, size)));
  if (!region) {
    return 0;
  }
  const auto record = toolkit::GetRegionData(region);
  const toolkit::HRGN again = toolkit::ExtCreateRegion(record);
  fuzz::Require(again && toolkit::GetRegionData(again) == record);
  toolkit::HRGN rest;
  fuzz::Require(toolkit::CombineRgn(rest, region, again, toolkit::RGN_DIFF) &&
                !toolkit::RectInRegion(rest, {-32768, -32768, 32767, 32767}));
  return 0;
}
