#include "platform/bitmap_file.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>
#include <new>
#include <optional>

#include "platform/FileSystem.h"
#include "platform/little_endian.h"
#include "platform/run_length.h"

namespace platform {
namespace {

constexpr std::size_t kMaxFileBytes = 2 * kMaxBitmapBytes;

constexpr std::uint32_t kCoreHeader = 12;      ///< of the oldest writers
constexpr std::uint32_t kMaxInfoHeader = 124;  ///< the newest published
constexpr std::size_t kMasksAt = kFileHeaderBytes + kInfoHeaderBytes;
constexpr std::size_t kAlphaMaskAt = kMasksAt + 12;

enum Compression : std::uint32_t {
  kPlain = 0,
  kRuns8 = 1,
  kRuns4 = 2,
  kBitFields = 3,
  kAlphaBitFields = 6,
};

using Bytes = std::span<const std::byte>;

/// Where one colour sits in a pixel of 16 or 32 bits.
struct Channel {
  std::uint32_t mask = 0;

  std::uint8_t From(std::uint32_t pixel) const {
    const std::uint64_t highest = mask >> std::countr_zero(mask);
    const std::uint64_t value = (pixel & mask) >> std::countr_zero(mask);
    return static_cast<std::uint8_t>((value * 255 + highest / 2) / highest);
  }
  /// True for one run of bits.
  bool IsSound() const {
    return mask != 0 && std::has_single_bit((std::uint64_t{mask} >> std::countr_zero(mask)) + 1);
  }
};

/// The fields of a bitmap header that decide how its pixels are read.
struct Header {
  std::uint32_t size = 0;
  std::int64_t width = 0;
  std::int64_t height = 0;  ///< negative: rows top to bottom
  int planes = 0;
  int bit_count = 0;
  std::uint32_t compression = kPlain;
  std::uint32_t colors_used = 0;
  std::size_t color_bytes = sizeof(RGBQuad);

  bool HasMasks() const { return compression == kBitFields || compression == kAlphaBitFields; }
  /// Bytes of the channel masks that follow a header too short to hold them.
  std::size_t MaskBytes() const {
    const std::size_t masks = compression == kAlphaBitFields ? 16 : 12;
    return size == kInfoHeaderBytes && HasMasks() ? masks : 0;
  }
  /// Headers from 56 bytes up have the field, and some writers fill it in plain files too.
  bool HasAlphaMask() const { return bit_count == 32 && (size >= 56 || MaskBytes() == 16); }
};

/// Where a file keeps its parts, checked against its length.
struct Layout {
  int width = 0;
  int height = 0;
  RowOrder order = RowOrder::kBottomUp;
  int bit_count = 0;
  std::uint32_t compression = kPlain;
  std::size_t colors_at = 0;
  std::size_t color_count = 0;
  std::size_t color_bytes = 0;
  std::size_t pixels_at = 0;
  std::size_t stride = 0;  ///< of plain rows
  Channel red{}, green{}, blue{};
  std::optional<Channel> alpha{};

  bool IsCoded() const { return compression == kRuns8 || compression == kRuns4; }
};

/// The file's header, if it has one of a published length.
std::optional<Header> ReadHeader(Bytes file) {
  if (file.size() < kFileHeaderBytes + sizeof(std::uint32_t) || file[0] != std::byte{'B'} ||
      file[1] != std::byte{'M'}) {
    return {};
  }
  const auto size = ReadLittle<std::uint32_t>(file, 14);
  const bool core = size == kCoreHeader;
  if ((!core && size < kInfoHeaderBytes) || size > kMaxInfoHeader ||
      file.size() - kFileHeaderBytes < size) {
    return {};
  }
  if (core) {
    return Header{.size = size,
                  .width = ReadLittle<std::uint16_t>(file, 18),
                  .height = ReadLittle<std::uint16_t>(file, 20),
                  .planes = ReadLittle<std::uint16_t>(file, 22),
                  .bit_count = ReadLittle<std::uint16_t>(file, 24),
                  .color_bytes = 3};
  }
  return Header{.size = size,
                .width = ReadLittle<std::int32_t>(file, 18),
                .height = ReadLittle<std::int32_t>(file, 22),
                .planes = ReadLittle<std::uint16_t>(file, 26),
                .bit_count = ReadLittle<std::uint16_t>(file, 28),
                .compression = ReadLittle<std::uint32_t>(file, 30),
                .colors_used = ReadLittle<std::uint32_t>(file, 46)};
}

/// True for a size, a depth and a coding that this decoder reads.
bool IsServed(const Header& header) {
  struct Coding {
    int bit_count;
    std::uint32_t compression;
    bool operator==(const Coding&) const = default;
  };
  constexpr auto kCodings = std::to_array<Coding>({{1, kPlain},
                                                   {4, kPlain},
                                                   {8, kPlain},
                                                   {16, kPlain},
                                                   {24, kPlain},
                                                   {32, kPlain},
                                                   {4, kRuns4},
                                                   {8, kRuns8},
                                                   {16, kBitFields},
                                                   {32, kBitFields},
                                                   {32, kAlphaBitFields}});
  const Coding coding{header.bit_count, header.compression};
  return header.width >= 1 && header.width <= kMaxSide && header.height != 0 &&
         header.height >= -kMaxSide && header.height <= kMaxSide && header.planes == 1 &&
         std::ranges::find(kCodings, coding) != kCodings.end();
}

/// The masks begin at offset 54 with every length of info header: after a short one, inside the
/// longer ones.
bool ReadMasks(Bytes file, const Header& header, Layout& layout) {
  if (header.HasMasks()) {
    layout.red.mask = ReadLittle<std::uint32_t>(file, kMasksAt);
    layout.green.mask = ReadLittle<std::uint32_t>(file, kMasksAt + 4);
    layout.blue.mask = ReadLittle<std::uint32_t>(file, kMasksAt + 8);
  } else {
    layout.red.mask = header.bit_count == 16 ? 0x7C00 : 0xFF0000;
    layout.green.mask = header.bit_count == 16 ? 0x03E0 : 0x00FF00;
    layout.blue.mask = header.bit_count == 16 ? 0x001F : 0x0000FF;
  }
  if (header.HasAlphaMask()) {
    const Channel alpha{ReadLittle<std::uint32_t>(file, kAlphaMaskAt)};
    layout.alpha = alpha.IsSound() ? std::optional(alpha) : std::nullopt;
  }
  return layout.red.IsSound() && layout.green.IsSound() && layout.blue.IsSound();
}

/// The number of table entries; none if the file claims more than its depth can use.
std::optional<std::size_t> CountColors(const Header& header) {
  if (header.bit_count > 8) {
    return 0;
  }
  const std::size_t maximum = std::size_t{1} << static_cast<unsigned>(header.bit_count);
  if (header.colors_used > maximum) {
    return {};
  }
  return header.colors_used == 0 ? maximum : header.colors_used;
}

/// False if the table and the pixels overlap or leave the file. How long coded pixels are shows
/// when they are decoded.
bool FitsInto(Bytes file, const Layout& layout) {
  const std::size_t header_end = layout.colors_at + layout.color_count * layout.color_bytes;
  const std::size_t pixel_bytes =
      layout.IsCoded() ? 0 : layout.stride * static_cast<std::size_t>(layout.height);
  return layout.pixels_at >= header_end && layout.pixels_at <= file.size() &&
         file.size() - layout.pixels_at >= pixel_bytes;
}

std::optional<Layout> ReadLayout(Bytes file) {
  const std::optional<Header> header = ReadHeader(file);
  if (!header || !IsServed(*header)) {
    return {};
  }
  const std::optional<std::size_t> colors = CountColors(*header);
  Layout layout{.width = static_cast<int>(header->width),
                .height = static_cast<int>(std::abs(header->height)),
                .order = header->height < 0 ? RowOrder::kTopDown : RowOrder::kBottomUp,
                .bit_count = header->bit_count,
                .compression = header->compression,
                .colors_at = kFileHeaderBytes + header->size + header->MaskBytes(),
                .color_count = colors.value_or(0),
                .color_bytes = header->color_bytes,
                .pixels_at = ReadLittle<std::uint32_t>(file, 10)};
  layout.stride = StrideOf(layout.width, layout.bit_count);
  const bool sound = colors && file.size() >= layout.colors_at &&
                     ReadMasks(file, *header, layout) && FitsInto(file, layout);
  return sound ? std::optional(layout) : std::nullopt;
}

void ReadColors(Bytes file, const Layout& layout, Bitmap& bitmap) {
  for (std::size_t i = 0; i < layout.color_count; ++i) {
    const Bytes entry = file.subspan(layout.colors_at + i * layout.color_bytes, layout.color_bytes);
    std::memcpy(&bitmap.colors[i], entry.data(), entry.size());
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
    if constexpr (kTargetBytes == 4) {
      out[3] = layout.alpha ? layout.alpha->From(pixel) : 0;
    }
  }
}

void DecodeRow(Bytes row, const Layout& layout, std::uint8_t* out) {
  if (layout.bit_count < 8) {
    WidenIndices(row, layout, out);
  } else if (layout.bit_count == 16) {
    SpreadChannels<std::uint16_t, 3>(row, layout, out);
  } else if (layout.compression != kPlain || layout.alpha) {
    SpreadChannels<std::uint32_t, 4>(row, layout, out);
  } else {
    std::memcpy(out, row.data(), row.size());
  }
}

void DecodeRows(Bytes pixels, const Layout& layout, Bitmap& bitmap) {
  const auto rows = static_cast<std::size_t>(layout.height);
  for (std::size_t y = 0; y < rows; ++y) {
    const std::size_t file_row = layout.order == RowOrder::kTopDown ? y : rows - 1 - y;
    DecodeRow(pixels.subspan(file_row * layout.stride, layout.stride), layout,
              bitmap.bits.data() + y * bitmap.stride);
  }
}

bool DecodePixels(Bytes pixels, const Layout& layout, Bitmap& bitmap) {
  if (layout.IsCoded()) {
    return DecodeRuns(pixels, static_cast<unsigned>(layout.bit_count), layout.order, bitmap);
  }
  DecodeRows(pixels, layout, bitmap);
  return true;
}

/// Many writers leave the fourth byte of every pixel at 0 and mean an opaque picture.
bool ShowsThroughAlpha(const Bitmap& bitmap) {
  for (std::size_t at = 3; at < bitmap.bits.size(); at += 4) {
    if (bitmap.bits[at] != 0) {
      return true;
    }
  }
  return false;
}

int DepthInMemory(int file_depth) {
  return file_depth < 8 ? 8 : file_depth == 16 ? 24 : file_depth;
}

}  // namespace

HBITMAP DecodeBitmapFile(Bytes file) {
  const std::optional<Layout> layout = ReadLayout(file);
  if (!layout) {
    return {};
  }
  HBITMAP bitmap = NewBitmap(layout->width, layout->height, DepthInMemory(layout->bit_count));
  if (!bitmap) {
    return {};
  }
  ReadColors(file, *layout, *bitmap);
  if (!DecodePixels(file.subspan(layout->pixels_at), *layout, *bitmap)) {
    return {};
  }
  bitmap->has_alpha = layout->alpha && ShowsThroughAlpha(*bitmap);
  return bitmap;
}

HBITMAP LoadImageA(FileSystem& files, std::string_view path, std::uint32_t flags,
                   FileStatus* status) {
  if ((flags & LR_LOADFROMFILE) == 0) {
    return {};
  }
  const auto file = files.ReadFile(path, kMaxFileBytes, status);
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
