#pragma once

#include <cstdint>
#include <vector>

namespace demo {

/// How a field of noise looks: lattice cells across the field in each direction, halved in size
/// `octaves` - 1 times. The field tiles without a seam.
struct NoiseShape {
  int cells_x;
  int cells_y;
  int octaves;
};

/// Smooth values from 0 to 1, row by row, the same for the same arguments on every machine.
class Noise {
 public:
  Noise(int width, int height, const NoiseShape& shape, std::uint32_t seed);

  int width() const { return width_; }
  int height() const { return height_; }
  float At(int x, int y) const {
    return values_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                   static_cast<std::size_t>(x)];
  }

 private:
  void Add(int cells_x, int cells_y, float weight, std::uint32_t seed);

  int width_;
  int height_;
  std::vector<float> values_;
};

/// 0 below `low`, 1 above `high`, a smooth slope between.
float Slope(float value, float low, float high);

}  // namespace demo
