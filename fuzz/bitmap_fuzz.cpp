#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "platform/bitmap_file.h"
#include "platform/gdi.h"
#include "support.h"

namespace {

using fuzz::Require;
using platform::HDC;

/// Copies of larger pictures, which run-length coding makes of a few bytes, take the fuzzer's time.
constexpr std::size_t kMaxCopied = std::size_t{1} << 20U;

HDC ContextOf(const platform::HBITMAP& bitmap) {
  HDC dc = platform::CreateCompatibleDC({});
  Require(platform::SelectObject(dc, bitmap));
  return dc;
}

/// Copies the picture to a sheet of another depth, stretched and across the edges, and reads the
/// sheet's rows back.
void CopyTo(const HDC& source, std::uint16_t bit_count) {
  platform::BitmapInfo info;
  info.header.width = 61;
  info.header.height = 17;
  info.header.bit_count = bit_count;
  const HDC sheet = ContextOf(platform::CreateDIBSection({}, info));
  const platform::Bitmap& picture = *source->bitmap;
  Require(platform::StretchBlt(sheet, -3, 2, picture.width, picture.height, source, 0, 0,
                               picture.width, picture.height, platform::SRCCOPY));
  Require(platform::StretchBlt(sheet, 5, -1, 50, 30, source, -2, 1, picture.width, picture.height,
                               platform::SRCCOPY));
  std::vector<std::uint8_t> pixels(sheet->bitmap->stride * 17);
  Require(platform::GetDIBits(sheet, sheet->bitmap, 0, 17, pixels, info) == 17);
}

}  // namespace

/// Any bytes as a bitmap file: refused, or a sound bitmap within its bound.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const platform::HBITMAP bitmap = platform::DecodeBitmapFile(std::as_bytes(std::span(data, size)));
  if (!bitmap) {
    return 0;
  }
  constexpr std::size_t kMaxDecoded = std::size_t{64} << 20U;
  Require(bitmap->bits.size() <= kMaxDecoded &&
          bitmap->bits.size() == bitmap->stride * static_cast<std::size_t>(bitmap->height));
  if (bitmap->bits.size() > kMaxCopied) {
    return 0;
  }
  const HDC source = ContextOf(bitmap);
  for (const std::uint16_t bit_count : std::initializer_list<std::uint16_t>{8, 24}) {
    CopyTo(source, bit_count);
  }
  return 0;
}
