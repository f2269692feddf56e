#include "platform/bitmap_file.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <new>
#include <optional>

#include "platform/files.h"
#include "platform/little_endian.h"

namespace platform {
namespace {

constexpr int kMostPixelsASide = 16384;
/// Well over what the skin and a texture pack hold (a 4096 x 4096 picture of 32 bits is half of
/// it).
constexpr std::size_t kLargestFile = std::size_t{128} * 1024 * 1024;
/// The newest published info header has 124 bytes; what is longer is no bitmap of today.
constexpr std::uint32_t kLongestInfoHeader = 124;
constexpr std::uint32_t kPlain = 0;
constexpr std::uint32_t kBitFields = 3;
constexpr std::size_t kMaskBytes = 12;

using Bytes = std::span<const std::byte>;

/// Where one colour sits in a pixel of 16 or 32 bits.
struct Channel {
  std::uint32_t mask = 0;

  std::uint8_t From(std::uint32_t pixel) const {
    const std::uint64_t most = mask >> std::countr_zero(mask);
    const std::uint64_t value = (pixel & mask) >> std::countr_zero(mask);
    return static_cast<std::uint8_t>((value * 255 + most / 2) / most);
  }
  bool Sound() const {
    return mask != 0 && std::has_single_bit((std::uint64_t{mask} >> std::countr_zero(mask)) + 1);
  }
};

/// Everything a BMP file says of itself, checked against its length.
struct Layout {
  int width = 0;
  int height = 0;
  bool top_down = false;
  int bit_count = 0;
  bool bit_fields = false;
  std::size_t colors_at = 0;
  std::size_t color_count = 0;
  std::size_t pixels_at = 0;
  std::size_t stride = 0;
  Channel red, green, blue;
};

bool ReadSize(Bytes file, Layout& layout) {
  const auto width = ReadLittle<std::int32_t>(file, 18);
  const std::int64_t height = ReadLittle<std::int32_t>(file, 22);
  if (width < 1 || width > kMostPixelsASide || height == 0 || height > kMostPixelsASide ||
      height < -kMostPixelsASide) {
    return false;
  }
  layout.width = width;
  layout.top_down = height < 0;
  layout.height = static_cast<int>(layout.top_down ? -height : height);
  return true;
}

bool ReadDepth(Bytes file, Layout& layout) {
  constexpr std::array<int, 6> kDepths{1, 4, 8, 16, 24, 32};
  const auto planes = ReadLittle<std::uint16_t>(file, 26);
  const auto compression = ReadLittle<std::uint32_t>(file, 30);
  layout.bit_count = ReadLittle<std::uint16_t>(file, 28);
  layout.bit_fields = compression == kBitFields;
  const bool may_have_fields = layout.bit_count == 16 || layout.bit_count == 32;
  return planes == 1 && std::ranges::find(kDepths, layout.bit_count) != kDepths.end() &&
         (compression == kPlain || (layout.bit_fields && may_have_fields));
}

/// The masks stand at offset 54 with every length of info header: behind a short one, inside the
/// longer ones.
bool ReadMasks(Bytes file, Layout& layout) {
  constexpr std::size_t kMasksAt = kFileHeaderBytes + kInfoHeaderBytes;
  if (!layout.bit_fields) {
    layout.red.mask = layout.bit_count == 16 ? 0x7C00 : 0xFF0000;
    layout.green.mask = layout.bit_count == 16 ? 0x03E0 : 0x00FF00;
    layout.blue.mask = layout.bit_count == 16 ? 0x001F : 0x0000FF;
    return true;
  }
  if (file.size() < kMasksAt + kMaskBytes) {
    return false;
  }
  layout.red.mask = ReadLittle<std::uint32_t>(file, kMasksAt);
  layout.green.mask = ReadLittle<std::uint32_t>(file, kMasksAt + 4);
  layout.blue.mask = ReadLittle<std::uint32_t>(file, kMasksAt + 8);
  return layout.red.Sound() && layout.green.Sound() && layout.blue.Sound();
}

/// Headers of the older kind with 12 bytes are refused: nobody has written them for decades, and
/// every picture editor saves the longer ones.
std::optional<Layout> ReadLayout(Bytes file) {
  Layout layout;
  if (file.size() < kFileHeaderBytes + kInfoHeaderBytes || file[0] != std::byte{'B'} ||
      file[1] != std::byte{'M'}) {
    return {};
  }
  const auto header_size = ReadLittle<std::uint32_t>(file, 14);
  if (header_size < kInfoHeaderBytes || header_size > kLongestInfoHeader ||
      !ReadSize(file, layout) || !ReadDepth(file, layout) || !ReadMasks(file, layout)) {
    return {};
  }
  const std::size_t masks_behind =
      layout.bit_fields && header_size == kInfoHeaderBytes ? kMaskBytes : 0;
  layout.colors_at = kFileHeaderBytes + header_size + masks_behind;
  layout.pixels_at = ReadLittle<std::uint32_t>(file, 10);
  const auto bits =
      static_cast<std::size_t>(layout.width) * static_cast<unsigned>(layout.bit_count);
  layout.stride = (bits + 31) / 32 * 4;
  return layout;
}

/// The colour count and the places of table and pixels, none of which may leave the file.
bool CheckPlaces(Bytes file, Layout& layout) {
  if (layout.bit_count <= 8) {
    const std::size_t most = std::size_t{1} << static_cast<unsigned>(layout.bit_count);
    const auto used = ReadLittle<std::uint32_t>(file, 46);
    if (used > most) {
      return false;
    }
    layout.color_count = used == 0 ? most : used;
  }
  const std::size_t header_end = layout.colors_at + layout.color_count * sizeof(RGBQuad);
  const std::size_t pixel_bytes = layout.stride * static_cast<std::size_t>(layout.height);
  return layout.pixels_at >= header_end && layout.pixels_at <= file.size() &&
         file.size() - layout.pixels_at >= pixel_bytes;
}

void ReadColors(Bytes file, const Layout& layout, Bitmap& bitmap) {
  for (std::size_t i = 0; i < layout.color_count; ++i) {
    const std::size_t at = layout.colors_at + i * sizeof(RGBQuad);
    bitmap.colors[i] = {ReadLittle<std::uint8_t>(file, at), ReadLittle<std::uint8_t>(file, at + 1),
                        ReadLittle<std::uint8_t>(file, at + 2),
                        ReadLittle<std::uint8_t>(file, at + 3)};
  }
}

/// Indices of 1 or 4 bits, the leftmost pixel in the highest bits.
void WidenIndices(Bytes row, const Layout& layout, std::uint8_t* out) {
  const auto depth = static_cast<unsigned>(layout.bit_count);
  const unsigned mask = (1U << depth) - 1;
  for (std::size_t x = 0; x < static_cast<std::size_t>(layout.width); ++x) {
    const std::size_t bit = x * depth;
    const auto shift = static_cast<unsigned>(8 - depth - bit % 8);
    out[x] = static_cast<std::uint8_t>((std::to_integer<unsigned>(row[bit / 8]) >> shift) & mask);
  }
}

template <typename Pixel, std::size_t kTargetBytes>
void SpreadChannels(Bytes row, const Layout& layout, std::uint8_t* out) {
  for (std::size_t x = 0; x < static_cast<std::size_t>(layout.width); ++x, out += kTargetBytes) {
    const auto pixel = std::uint32_t{ReadLittle<Pixel>(row, x * sizeof(Pixel))};
    out[0] = layout.blue.From(pixel);
    out[1] = layout.green.From(pixel);
    out[2] = layout.red.From(pixel);
  }
}

void DecodeRow(Bytes row, const Layout& layout, std::uint8_t* out) {
  if (layout.bit_count < 8) {
    WidenIndices(row, layout, out);
  } else if (layout.bit_count == 16) {
    SpreadChannels<std::uint16_t, 3>(row, layout, out);
  } else if (layout.bit_fields) {
    SpreadChannels<std::uint32_t, 4>(row, layout, out);
  } else {
    std::memcpy(out, row.data(), row.size());
  }
}

int DepthInMemory(int file_depth) {
  return file_depth < 8 ? 8 : file_depth == 16 ? 24 : file_depth;
}

}  // namespace

HBITMAP NewBitmap(int width, int height, int bit_count) try {
  const bool sized =
      width >= 1 && width <= kMostPixelsASide && height >= 1 && height <= kMostPixelsASide;
  if (!sized || (bit_count != 8 && bit_count != 24 && bit_count != 32)) {
    return {};
  }
  auto bitmap = std::make_shared<Bitmap>();
  bitmap->width = width;
  bitmap->height = height;
  bitmap->bit_count = bit_count;
  bitmap->stride =
      (static_cast<std::size_t>(width) * static_cast<unsigned>(bit_count) + 31) / 32 * 4;
  bitmap->bits.resize(bitmap->stride * static_cast<std::size_t>(height));
  return bitmap;
} catch (const std::bad_alloc&) {
  return {};
}

HBITMAP DecodeBitmapFile(Bytes file) {
  std::optional<Layout> layout = ReadLayout(file);
  if (!layout || !CheckPlaces(file, *layout)) {
    return {};
  }
  HBITMAP bitmap = NewBitmap(layout->width, layout->height, DepthInMemory(layout->bit_count));
  if (!bitmap) {
    return {};
  }
  ReadColors(file, *layout, *bitmap);
  const auto rows = static_cast<std::size_t>(layout->height);
  for (std::size_t y = 0; y < rows; ++y) {
    const std::size_t file_row = layout->top_down ? y : rows - 1 - y;
    DecodeRow(file.subspan(layout->pixels_at + file_row * layout->stride, layout->stride), *layout,
              bitmap->bits.data() + y * bitmap->stride);
  }
  return bitmap;
}

HBITMAP LoadImageA(std::string_view path, std::uint32_t flags, FileStatus* status) {
  if ((flags & LR_LOADFROMFILE) == 0) {
    return {};
  }
  const auto file = ReadFile(path, kLargestFile, status);
  return file ? DecodeBitmapFile(*file) : HBITMAP();
}

void AppendFileHeader(std::vector<std::byte>& file, std::uint32_t file_size,
                      std::uint32_t pixel_offset) {
  file.push_back(std::byte{'B'});
  file.push_back(std::byte{'M'});
  for (const std::uint32_t field : {file_size, 0U, pixel_offset}) {
    AppendLittle(file, field);
  }
}

void AppendInfoHeader(std::vector<std::byte>& file, const BitmapInfoHeader& header) {
  AppendLittle(file, header.size);
  AppendLittle(file, header.width);
  AppendLittle(file, header.height);
  AppendLittle(file, header.planes);
  AppendLittle(file, header.bit_count);
  AppendLittle(file, header.compression);
  AppendLittle(file, header.size_image);
  AppendLittle(file, header.x_pels_per_meter);
  AppendLittle(file, header.y_pels_per_meter);
  AppendLittle(file, header.colors_used);
  AppendLittle(file, header.colors_important);
}

}  // namespace platform
