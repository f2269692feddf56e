#include <squish.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <span>
#include <string>
#include <vector>

#include "figures.h"
#include "platform/FileSystem.h"
#include "platform/bitmap_file.h"
#include "platform/qvdds.h"

#define STB_DXT_IMPLEMENTATION
#include <stb_dxt.h>

// One 512 x 512 cloud sheet through our writer of the simulator's texture, files and all, and
// through the public block encoders, with the colour error of each. One thread.

namespace {

constexpr int kRounds = 5;
constexpr int kSide = 512;
constexpr int kPixels = kSide * kSide;
constexpr std::size_t kSheetBytes = std::size_t{kPixels} * 4;
constexpr std::size_t kBlockPixelBytes = 64;
constexpr std::size_t kBlockBytes = 16;
constexpr std::size_t kTextureHeaders = 74;

/// A repeatable number from 0 to 1 for a point of a lattice.
double Lattice(int x, int y, unsigned seed) {
  std::uint32_t h = static_cast<std::uint32_t>(x) * 374761393U +
                    static_cast<std::uint32_t>(y) * 668265263U + seed * 2246822519U;
  h = (h ^ (h >> 13U)) * 1274126177U;
  return ((h ^ (h >> 16U)) & 0xFFFFU) / 65535.0;
}

double Smooth(double x, double y, unsigned seed) {
  const int left = static_cast<int>(std::floor(x));
  const int top = static_cast<int>(std::floor(y));
  const double fx = x - left;
  const double fy = y - top;
  const double u = fx * fx * (3 - 2 * fx);
  const double v = fy * fy * (3 - 2 * fy);
  return std::lerp(std::lerp(Lattice(left, top, seed), Lattice(left + 1, top, seed), u),
                   std::lerp(Lattice(left, top + 1, seed), Lattice(left + 1, top + 1, seed), u), v);
}

/// Layered noise from 0 to 1: each layer twice as fine and half as strong.
double Layers(int x, int y, unsigned seed) {
  double sum = 0;
  double strength = 0.5;
  double scale = 1.0 / 128;
  for (unsigned layer = 0; layer < 7; ++layer, strength /= 2, scale *= 2) {
    sum += strength * Smooth(x * scale, y * scale, seed + layer);
  }
  return sum;
}

std::uint8_t ToByte(double value) {
  return static_cast<std::uint8_t>(std::lround(std::fmin(255, std::fmax(0, value))));
}

/// Red, green, blue, alpha of every pixel, rows bottom to top: white tops, bluish shadow, a rim
/// that fades out.
std::vector<std::uint8_t> MakeCloud() {
  std::vector<std::uint8_t> cloud;
  cloud.reserve(kSheetBytes);
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const double light = Layers(x, y, 11);
      const double density = Layers(x, y, 97);
      cloud.push_back(ToByte(120 + 150 * light));
      cloud.push_back(ToByte(130 + 138 * light));
      cloud.push_back(ToByte(160 + 95 * light + 6 * density));
      cloud.push_back(ToByte((density - 0.3) * 600));
    }
  }
  return cloud;
}

const std::vector<std::uint8_t>& Cloud() {
  static const std::vector<std::uint8_t> cloud = MakeCloud();
  return cloud;
}

using Block = std::array<std::uint8_t, kBlockPixelBytes>;

/// Byte offset in the sheet of row `row` of block `index`.
std::size_t RowOf(std::size_t index, std::size_t row) {
  constexpr std::size_t kBlocksAcross = kSide / 4;
  return ((index / kBlocksAcross * 4 + row) * kSide + index % kBlocksAcross * 4) * 4;
}

Block CutBlock(std::size_t index) {
  Block block{};
  for (std::size_t row = 0; row < 4; ++row) {
    std::copy_n(Cloud().begin() + static_cast<std::ptrdiff_t>(RowOf(index, row)), 16,
                block.begin() + static_cast<std::ptrdiff_t>(row * 16));
  }
  return block;
}

/// The mean error of a sheet of DXT3 blocks, in steps of 255.
struct Errors {
  double color;
  double alpha;
  int three_color_blocks;  ///< not in four-colour order, which some readers garble
};

Errors ErrorsOf(std::span<const std::uint8_t> blocks) {
  double color = 0;
  double alpha = 0;
  int three_color = 0;
  for (std::size_t index = 0; index < kPixels / 16; ++index) {
    const std::uint8_t* const block = &blocks[index * kBlockBytes];
    three_color += (block[8] | block[9] << 8) < (block[10] | block[11] << 8) ? 1 : 0;
    Block decoded{};
    squish::Decompress(decoded.data(), block, squish::kDxt3);
    const Block wanted = CutBlock(index);
    for (std::size_t i = 0; i < kBlockPixelBytes; ++i) {
      (i % 4 == 3 ? alpha : color) += std::pow(wanted[i] - decoded[i], 2);
    }
  }
  return {std::sqrt(color / (3.0 * kPixels)), std::sqrt(alpha / kPixels), three_color};
}

double Decibels(double error) { return 20 * std::log10(255 / error); }

/// A public encoder of one block of 16 pixels.
struct Encoder {
  const char* name;
  void (*encode)(const std::uint8_t* pixels, std::uint8_t* block);
};
constexpr Encoder kEncoders[] = {
    {"libsquish cluster fit",
     [](const std::uint8_t* pixels, std::uint8_t* block) {
       squish::Compress(pixels, block, squish::kDxt3 | squish::kColourClusterFit);
     }},
    {"libsquish range fit",
     [](const std::uint8_t* pixels, std::uint8_t* block) {
       squish::Compress(pixels, block, squish::kDxt3 | squish::kColourRangeFit);
     }},
    // It gives a DXT5 block, whose colour half is what DXT3 has; its alpha does not count.
    {"stb_dxt high quality", [](const std::uint8_t* pixels, std::uint8_t* block) {
       stb_compress_dxt_block(block, pixels, 1, STB_DXT_HIGHQUAL);
     }}};

double TimeEncoder(const Encoder& encoder, std::vector<std::uint8_t>& blocks) {
  return bench::Milliseconds([&] {
    for (std::size_t index = 0; index < kPixels / 16; ++index) {
      encoder.encode(CutBlock(index).data(), &blocks[index * kBlockBytes]);
    }
  });
}

/// The two sheets on disk as the composer saves them.
class SheetFolder {
 public:
  SheetFolder() : files_("~bench-") {
    WriteSheet("c.bmp", 24);
    WriteSheet("a.bmp", 8);
  }
  std::string File(const char* name) const { return (folder_.path() / name).string(); }
  platform::FileSystem& files() { return files_; }

 private:
  void WriteSheet(const char* name, std::uint16_t bit_count) {
    std::vector<std::byte> file;
    const std::uint32_t table = bit_count == 8 ? 1024 : 0;
    platform::AppendFileHeader(file, 54 + table + kPixels * (bit_count / 8U), 54 + table);
    platform::BitmapInfoHeader header;
    header.width = header.height = kSide;
    header.bit_count = bit_count;
    platform::AppendInfoHeader(file, header);
    for (std::uint32_t i = 0; i < table; ++i) {
      file.push_back(static_cast<std::byte>(i / 4));
    }
    for (std::size_t i = 0; i < kSheetBytes; i += 4) {
      if (bit_count == 8) {
        file.push_back(std::byte{Cloud()[i + 3]});
        continue;
      }
      for (const std::size_t part : {2U, 1U, 0U}) {
        file.push_back(std::byte{Cloud()[i + part]});
      }
    }
    files_.ReplaceFile(File(name), file, platform::Durability::kRename);
  }

  bench::WorkFolder folder_;
  platform::FileSystem files_;
};

/// The writer with its files, as an install calls it.
double TimeWriter(SheetFolder& folder, std::int32_t format) {
  return bench::Milliseconds([&] {
    if (platform::BMPScompressBMP(folder.File("c.bmp"), folder.File("a.bmp"), format, -1, -1,
                                  folder.File("out.bmp"), folder.files()) != 1) {
      std::fprintf(stderr, "no texture was written\n");
      std::exit(EXIT_FAILURE);
    }
  });
}

std::vector<std::uint8_t> WrittenBlocks(SheetFolder& folder) {
  TimeWriter(folder, platform::kFormatDXT3);
  std::vector<std::uint8_t> blocks(kPixels);
  const auto file = folder.files().ReadFile(folder.File("out.bmp"), kTextureHeaders + kSheetBytes);
  if (file && file->size() == kTextureHeaders + blocks.size()) {
    std::memcpy(blocks.data(), file->data() + kTextureHeaders, blocks.size());
  }
  return blocks;
}

/// Ours and the other turn by turn. True if our colours are as good as the other's or better.
bool Compare(SheetFolder& folder, const Encoder& encoder, double our_error) {
  std::vector<double> ours;
  std::vector<double> theirs;
  std::vector<std::uint8_t> blocks(kPixels);
  for (int round = 0; round < kRounds; ++round) {
    theirs.push_back(TimeEncoder(encoder, blocks));
    ours.push_back(TimeWriter(folder, platform::kFormatDXT3));
  }
  const Errors errors = ErrorsOf(blocks);
  const std::string beside = std::string("for ") + encoder.name + " without files";
  bench::Report(
      {"A DXT3 texture of 512 x 512", bench::Median(ours), bench::Median(theirs), beside});
  std::printf("Its colour error\t%.2f dB\t%.2f dB for %s\t%.2f\t1.00\n", Decibels(our_error),
              Decibels(errors.color), encoder.name, our_error / errors.color);
  std::fprintf(stderr, "%s: alpha %.2f dB, %d blocks in three-colour order\n", encoder.name,
               Decibels(errors.alpha), errors.three_color_blocks);
  return our_error <= errors.color;
}

bool PlainTexture(SheetFolder& folder) {
  std::vector<double> plain;
  std::vector<double> packed;
  for (int round = 0; round < kRounds; ++round) {
    plain.push_back(TimeWriter(folder, platform::kFormat32Bit));
    packed.push_back(TimeWriter(folder, platform::kFormatDXT3));
  }
  return bench::Report(
      {"A 32-bit texture of 512 x 512", bench::Median(plain), bench::Median(packed), "as DXT3"});
}

}  // namespace

int main() {
  SheetFolder folder;
  const Errors ours = ErrorsOf(WrittenBlocks(folder));
  std::fprintf(stderr, "ours: colour %.2f dB, alpha %.2f dB, %d blocks in three-colour order\n",
               Decibels(ours.color), Decibels(ours.alpha), ours.three_color_blocks);
  bool held = PlainTexture(folder) && ours.three_color_blocks == 0;
  for (const Encoder& encoder : kEncoders) {
    held = Compare(folder, encoder, ours.color) && held;
  }
  return held ? EXIT_SUCCESS : EXIT_FAILURE;
}
