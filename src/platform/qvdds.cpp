#include "platform/qvdds.h"

#include <array>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/bitmap_file.h"
#include "platform/dxt3_block.h"
#include "platform/gdi.h"
#include "platform/little_endian.h"

namespace platform {
namespace {

constexpr std::uint32_t kPixelsAt = 74;
constexpr std::uint32_t kSectionBytes = 20;
constexpr std::uint32_t kHasAlpha = 0x00000400;

constexpr std::uint32_t FourLetters(const char (&letters)[5]) {
  std::uint32_t value = 0;
  for (unsigned i = 4; i-- > 0;) {
    value = (value << 8U) | static_cast<unsigned char>(letters[i]);
  }
  return value;
}

struct TextureFormat {
  std::int32_t code;
  std::uint16_t bit_count;
  std::uint32_t compression;
  std::uint32_t bytes_per_pixel;
  int side_multiple;  ///< width and height must be multiples of it
};
constexpr std::array<TextureFormat, 2> kFormats{{
    {kFormatDXT3, 16, FourLetters("DXT3"), 1, 4},
    {kFormat32Bit, 32, 0, 4, 1},
}};

const TextureFormat* FindFormat(std::int32_t code) {
  for (const TextureFormat& format : kFormats) {
    if (format.code == code) {
      return &format;
    }
  }
  return nullptr;
}

/// The grey of a colour table entry by the usual weights (77, 150, 29 of 256); an entry of three
/// equal parts is exactly that part.
std::uint8_t Grey(const RGBQuad& color) {
  return static_cast<std::uint8_t>(
      (color.red * 77U + color.green * 150U + color.blue * 29U + 128U) >> 8U);
}

/// The two sheets as one picture of colour and alpha. Rows are counted from the bottom.
class MergedSheet {
 public:
  MergedSheet(HBITMAP color, HBITMAP alpha) : color_(std::move(color)), alpha_(std::move(alpha)) {
    for (std::size_t i = 0; i < greys_.size(); ++i) {
      greys_[i] = Grey(alpha_->colors[i]);
    }
  }

  bool IsSound() const {
    return color_->bit_count == 24 && alpha_->bit_count == 8 && color_->width == alpha_->width &&
           color_->height == alpha_->height;
  }
  int width() const { return color_->width; }
  int height() const { return color_->height; }
  /// Blue, green, red of a pixel.
  const std::uint8_t* Color(std::size_t x, std::size_t y) const {
    return color_->bits.data() + MemoryRow(y) * color_->stride + x * 3;
  }
  std::uint8_t Alpha(std::size_t x, std::size_t y) const {
    return greys_[alpha_->bits[MemoryRow(y) * alpha_->stride + x]];
  }

 private:
  std::size_t MemoryRow(std::size_t y) const {
    return static_cast<std::size_t>(color_->height) - 1 - y;
  }

  HBITMAP color_;
  HBITMAP alpha_;
  std::array<std::uint8_t, 256> greys_{};
};

void AppendHeaders(std::vector<std::byte>& file, const MergedSheet& sheet,
                   const TextureFormat& format, std::uint32_t pixel_bytes) {
  AppendFileHeader(file, kPixelsAt + pixel_bytes, kPixelsAt);
  BitmapInfoHeader header;
  header.width = sheet.width();
  header.height = sheet.height();
  header.bit_count = format.bit_count;
  header.compression = format.compression;
  header.size_image = pixel_bytes;
  AppendInfoHeader(file, header);
  AppendLittle(file, FourLetters("FS70"));
  AppendLittle(file, kSectionBytes);
  AppendLittle(file, kHasAlpha);
  AppendLittle(file, std::uint64_t{0});  // no smaller images follow
}

void AppendPlainPixels(std::vector<std::byte>& file, const MergedSheet& sheet) {
  for (std::size_t y = 0; y < static_cast<std::size_t>(sheet.height()); ++y) {
    for (std::size_t x = 0; x < static_cast<std::size_t>(sheet.width()); ++x) {
      const std::uint8_t* color = sheet.Color(x, y);
      for (const std::uint8_t part : {color[0], color[1], color[2], sheet.Alpha(x, y)}) {
        file.push_back(std::byte{part});
      }
    }
  }
}

BlockPixels CutBlock(const MergedSheet& sheet, std::size_t left, std::size_t bottom) {
  BlockPixels pixels{};
  for (std::size_t i = 0; i < 16; ++i) {
    const std::size_t x = left + i % 4;
    const std::size_t y = bottom + i / 4;
    const std::uint8_t* color = sheet.Color(x, y);
    pixels[i * 4] = color[2];
    pixels[i * 4 + 1] = color[1];
    pixels[i * 4 + 2] = color[0];
    pixels[i * 4 + 3] = sheet.Alpha(x, y);
  }
  return pixels;
}

void AppendBlocks(std::vector<std::byte>& file, const MergedSheet& sheet) {
  for (std::size_t y = 0; y < static_cast<std::size_t>(sheet.height()); y += 4) {
    for (std::size_t x = 0; x < static_cast<std::size_t>(sheet.width()); x += 4) {
      const auto block = EncodeDxt3Block(CutBlock(sheet, x, y));
      file.insert(file.end(), block.begin(), block.end());
    }
  }
}

}  // namespace

std::int32_t BMPScompressBMP(std::string_view color_sheet, std::string_view alpha_sheet,
                             std::int32_t format, std::int16_t /*flag1*/, std::int16_t /*flag2*/,
                             std::string_view output, FileSystem& files) {
  const TextureFormat* const texture = FindFormat(format);
  const HBITMAP color = LoadImageA(files, color_sheet, LR_LOADFROMFILE | LR_CREATEDIBSECTION);
  const HBITMAP alpha = LoadImageA(files, alpha_sheet, LR_LOADFROMFILE | LR_CREATEDIBSECTION);
  if (texture == nullptr || !color || !alpha) {
    return 0;
  }
  const MergedSheet sheet(color, alpha);
  if (!sheet.IsSound() || sheet.width() % texture->side_multiple != 0 ||
      sheet.height() % texture->side_multiple != 0) {
    return 0;
  }
  const std::uint32_t pixel_bytes = static_cast<std::uint32_t>(sheet.width()) *
                                    static_cast<std::uint32_t>(sheet.height()) *
                                    texture->bytes_per_pixel;
  std::vector<std::byte> file;
  file.reserve(kPixelsAt + pixel_bytes);
  AppendHeaders(file, sheet, *texture, pixel_bytes);
  if (texture->code == kFormatDXT3) {
    AppendBlocks(file, sheet);
  } else {
    AppendPlainPixels(file, sheet);
  }
  return files.ReplaceFile(output, file, Durability::kRename) == FileStatus::kOk ? 1 : 0;
}

}  // namespace platform
