#include <benchmark/benchmark.h>
#include <squish.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "platform/bitmap_file.h"
#include "platform/files.h"
#include "platform/qvdds.h"

#define STB_DXT_IMPLEMENTATION
#include <stb_dxt.h>

// One 512 x 512 cloud sheet through our writer of the simulator's texture, files and all, and
// through the public block encoders, with the colour error of each. One thread.

namespace {

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

double Psnr(double squares, double samples) {
  return 10 * std::log10(255.0 * 255.0 * samples / squares);
}

/// Adds the errors of a sheet of DXT3 blocks to the benchmark's line: the colour's, the alpha's,
/// and how many blocks are not in four-colour order.
void Report(benchmark::State& state, std::span<const std::uint8_t> blocks) {
  double color_squares = 0;
  double alpha_squares = 0;
  double three_color = 0;
  for (std::size_t index = 0; index < kPixels / 16; ++index) {
    const std::uint8_t* const block = &blocks[index * kBlockBytes];
    three_color += (block[8] | block[9] << 8) < (block[10] | block[11] << 8) ? 1 : 0;
    Block decoded{};
    squish::Decompress(decoded.data(), block, squish::kDxt3);
    const Block wanted = CutBlock(index);
    for (std::size_t i = 0; i < kBlockPixelBytes; ++i) {
      (i % 4 == 3 ? alpha_squares : color_squares) += std::pow(wanted[i] - decoded[i], 2);
    }
  }
  state.counters["colour_dB"] = Psnr(color_squares, 3.0 * kPixels);
  state.counters["alpha_dB"] = Psnr(alpha_squares, kPixels);
  state.counters["three_colour_blocks"] = three_color;
}

template <typename Encode>
void RunEncoder(benchmark::State& state, Encode encode) {
  std::vector<std::uint8_t> blocks(kPixels);
  for ([[maybe_unused]] auto _ : state) {
    for (std::size_t index = 0; index < kPixels / 16; ++index) {
      encode(CutBlock(index).data(), &blocks[index * kBlockBytes]);
    }
    benchmark::DoNotOptimize(blocks.data());
  }
  Report(state, blocks);
}

void SquishCluster(benchmark::State& state) {
  RunEncoder(state, [](const std::uint8_t* pixels, std::uint8_t* block) {
    squish::Compress(pixels, block, squish::kDxt3 | squish::kColourClusterFit);
  });
}

void SquishRange(benchmark::State& state) {
  RunEncoder(state, [](const std::uint8_t* pixels, std::uint8_t* block) {
    squish::Compress(pixels, block, squish::kDxt3 | squish::kColourRangeFit);
  });
}

/// The encoder gives a DXT5 block, whose colour half is what DXT3 has; its alpha is not counted.
void StbHighQuality(benchmark::State& state) {
  RunEncoder(state, [](const std::uint8_t* pixels, std::uint8_t* block) {
    stb_compress_dxt_block(block, pixels, 1, STB_DXT_HIGHQUAL);
  });
  state.counters.erase("alpha_dB");
}

/// The two sheets on disk as the composer saves them.
class SheetFolder {
 public:
  SheetFolder() : path_(std::filesystem::temp_directory_path() / "nimbrel-texture-bench") {
    std::filesystem::create_directories(path_);
    WriteSheet("c.bmp", 24);
    WriteSheet("a.bmp", 8);
  }
  SheetFolder(const SheetFolder&) = delete;
  SheetFolder& operator=(const SheetFolder&) = delete;
  ~SheetFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  std::string File(const char* name) const { return (path_ / name).string(); }

 private:
  void WriteSheet(const char* name, std::uint16_t bit_count) const {
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
    platform::ReplaceFile(File(name), file, platform::Durability::kRename);
  }

  std::filesystem::path path_;
};

void NimbrelTexture(benchmark::State& state) {
  const SheetFolder folder;
  const auto format = static_cast<std::int32_t>(state.range(0));
  for ([[maybe_unused]] auto _ : state) {
    if (platform::BMPScompressBMP(folder.File("c.bmp"), folder.File("a.bmp"), format, -1, -1,
                                  folder.File("out.bmp")) != 1) {
      state.SkipWithError("no texture was written");
      return;
    }
  }
  const auto file = platform::ReadFile(folder.File("out.bmp"), kTextureHeaders + kSheetBytes);
  if (file && format == platform::kFormatDXT3) {
    std::vector<std::uint8_t> blocks(kPixels);
    std::memcpy(blocks.data(), file->data() + kTextureHeaders, blocks.size());
    Report(state, blocks);
  }
}

BENCHMARK(NimbrelTexture)
    ->Arg(platform::kFormatDXT3)
    ->Arg(platform::kFormat32Bit)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(SquishCluster)->Unit(benchmark::kMillisecond);
BENCHMARK(SquishRange)->Unit(benchmark::kMillisecond);
BENCHMARK(StbHighQuality)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
