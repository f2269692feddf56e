#include "Noise.h"

#include <algorithm>

namespace demo {

namespace {

float Lattice(int x, int y, std::uint32_t seed) {
  std::uint32_t h = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^
                    static_cast<std::uint32_t>(y) * 0x85EBCA77U ^ seed * 0xC2B2AE3DU;
  h = (h ^ (h >> 15U)) * 0x2C1B3C6DU;
  h = (h ^ (h >> 12U)) * 0x297A2D39U;
  h ^= h >> 15U;
  return static_cast<float>(h >> 8U) / 16777216.0F;
}

float Smooth(float t) { return t * t * (3.0F - 2.0F * t); }

}  // namespace

Noise::Noise(int width, int height, const NoiseShape& shape, std::uint32_t seed)
    : width_(width),
      height_(height),
      values_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
  float weight = 0.5F;
  for (int octave = 0; octave < shape.octaves; ++octave) {
    Add(shape.cells_x << octave, shape.cells_y << octave, weight,
        seed * 31U + static_cast<std::uint32_t>(octave));
    weight /= 2.0F;
  }
}

void Noise::Add(int cells_x, int cells_y, float weight, std::uint32_t seed) {
  std::size_t at = 0;
  for (int y = 0; y < height_; ++y) {
    const float fy = static_cast<float>(y * cells_y) / static_cast<float>(height_);
    const int y0 = static_cast<int>(fy);
    const int y1 = (y0 + 1) % cells_y;
    const float ty = Smooth(fy - static_cast<float>(y0));
    for (int x = 0; x < width_; ++x) {
      const float fx = static_cast<float>(x * cells_x) / static_cast<float>(width_);
      const int x0 = static_cast<int>(fx);
      const int x1 = (x0 + 1) % cells_x;
      const float tx = Smooth(fx - static_cast<float>(x0));
      const float top = Lattice(x0, y0, seed) * (1.0F - tx) + Lattice(x1, y0, seed) * tx;
      const float bottom = Lattice(x0, y1, seed) * (1.0F - tx) + Lattice(x1, y1, seed) * tx;
      values_[at++] += weight * (top * (1.0F - ty) + bottom * ty);
    }
  }
}

float Slope(float value, float low, float high) {
  return Smooth(std::clamp((value - low) / (high - low), 0.0F, 1.0F));
}

}  // namespace demo
