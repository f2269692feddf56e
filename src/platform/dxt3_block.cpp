#include "platform/dxt3_block.h"

#include <squish.h>

#include <limits>
#include <utility>

namespace platform {
namespace {

/// A colour of 5, 6 and 5 bits for red, green and blue.
using EndColor = std::array<int, 3>;
using Ends = std::array<EndColor, 2>;
constexpr EndColor kMaxEnd{31, 63, 31};

/// Steps that one block may take towards its best ends; nearly all stop after three.
constexpr int kMaxRounds = 8;

EndColor Unpack(std::byte low, std::byte high) {
  const int packed = std::to_integer<int>(low) | std::to_integer<int>(high) << 8;
  return {packed >> 11, packed >> 5 & 63, packed & 31};
}

int Pack(const EndColor& color) { return color[0] << 11 | color[1] << 5 | color[2]; }

/// The four colours of a block with 8 bits for each part.
std::array<std::array<int, 3>, 4> Palette(const Ends& ends) {
  std::array<std::array<int, 3>, 4> palette{};
  for (std::size_t part = 0; part < 3; ++part) {
    const int bits = part == 1 ? 6 : 5;
    const int first = ends[0][part] << (8 - bits) | ends[0][part] >> (2 * bits - 8);
    const int second = ends[1][part] << (8 - bits) | ends[1][part] >> (2 * bits - 8);
    palette[0][part] = first;
    palette[1][part] = second;
    palette[2][part] = (2 * first + second) / 3;
    palette[3][part] = (first + 2 * second) / 3;
  }
  return palette;
}

/// How far a block is from its pixels, as the sum of squares, and which colour each pixel takes,
/// two bits for each, the first pixel in the lowest.
struct Fit {
  int error = 0;
  std::uint32_t indices = 0;
};

/// Each pixel with its nearest colour. Stops once the error has reached `enough`.
Fit Match(const BlockPixels& pixels, const Ends& ends, int enough) {
  const auto palette = Palette(ends);
  Fit fit;
  for (std::size_t i = 0; i < 16 && fit.error < enough; ++i) {
    int least = std::numeric_limits<int>::max();
    std::uint32_t index = 0;
    for (std::uint32_t c = 0; c < 4; ++c) {
      const int red = pixels[i * 4] - palette[c][0];
      const int green = pixels[i * 4 + 1] - palette[c][1];
      const int blue = pixels[i * 4 + 2] - palette[c][2];
      const int error = red * red + green * green + blue * blue;
      if (error < least) {
        least = error;
        index = c;
      }
    }
    fit.error += least;
    fit.indices |= index << (i * 2);
  }
  return fit;
}

/// Moves one part of one end by one step if that brings the block nearer. True if it did.
bool Nudge(const BlockPixels& pixels, Ends& ends, Fit& fit, std::size_t end, std::size_t part) {
  const int before = ends[end][part];
  for (const int moved : {before - 1, before + 1}) {
    if (moved < 0 || moved > kMaxEnd[part]) {
      continue;
    }
    ends[end][part] = moved;
    const Fit tried = Match(pixels, ends, fit.error);
    if (tried.error < fit.error) {
      fit = tried;
      return true;
    }
  }
  ends[end][part] = before;
  return false;
}

/// The encoder fits its ends as exact colours and rounds them afterwards to the 16 bits that they
/// are stored in. In the soft slopes of a cloud that rounding is most of the error: a few steps
/// away from the rounded ends win back more than a decibel for about a quarter more time.
Fit Refine(const BlockPixels& pixels, Ends& ends) {
  Fit fit = Match(pixels, ends, std::numeric_limits<int>::max());
  bool moved = true;
  for (int round = 0; round < kMaxRounds && moved && fit.error > 0; ++round) {
    moved = false;
    for (std::size_t i = 0; i < 6; ++i) {
      moved = Nudge(pixels, ends, fit, i / 3, i % 3) || moved;
    }
  }
  return fit;
}

/// Equal ends are one colour, which every pixel takes from the first; otherwise the larger goes
/// first, which swaps the indices 0 with 1 and 2 with 3.
void PutInOrder(Ends& ends, Fit& fit) {
  if (Pack(ends[0]) == Pack(ends[1])) {
    fit.indices = 0;
  } else if (Pack(ends[0]) < Pack(ends[1])) {
    std::swap(ends[0], ends[1]);
    fit.indices ^= 0x55555555U;
  }
}

}  // namespace

std::array<std::byte, 16> EncodeDxt3Block(const BlockPixels& pixels) {
  // Block by block: the encoder's call for a whole image starts threads of its own.
  std::array<std::byte, 16> block{};
  squish::Compress(pixels.data(), block.data(), squish::kDxt3 | squish::kColourClusterFit);
  Ends ends{Unpack(block[8], block[9]), Unpack(block[10], block[11])};
  Fit fit = Refine(pixels, ends);
  PutInOrder(ends, fit);
  for (std::size_t end = 0; end < 2; ++end) {
    block[8 + end * 2] = static_cast<std::byte>(Pack(ends[end]) & 0xFF);
    block[9 + end * 2] = static_cast<std::byte>(Pack(ends[end]) >> 8);
  }
  for (std::size_t i = 0; i < 4; ++i) {
    block[12 + i] = static_cast<std::byte>(fit.indices >> (i * 8) & 0xFFU);
  }
  return block;
}

}  // namespace platform
