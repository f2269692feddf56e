#pragma once

#include <cstdint>
#include <vector>

namespace demo {

/// Lattice cells after which a field repeats, in each direction.
struct Period {
  int x;
  int y;
};

/// Gradient noise from about -1 to 1, repeating after `period` units; the same on every machine.
float Perlin(float x, float y, const Period& period, std::uint32_t seed);

/// `octaves` of it, each of half the size and half the weight of the one before.
float Fbm(float x, float y, const Period& period, int octaves, std::uint32_t seed);

/// A cube of noise that repeats after 1 in each direction, looked up between its points.
class NoiseVolume {
 public:
  static constexpr int kSide = 64;

  explicit NoiseVolume(std::vector<float> values) : values_(std::move(values)) {}
  float At(float x, float y, float z) const;

 private:
  std::vector<float> values_;
};

/// Rounded heaps, 0 in the clefts to 1 on the tops: three octaves of inverted cellular noise as
/// Worley published it. Made at the first call.
const NoiseVolume& Billows();
/// Smooth gradient noise of four octaves, from about -1 to 1. Made at the first call.
const NoiseVolume& Vapour();

}  // namespace demo
