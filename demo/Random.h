#pragma once

#include <cmath>
#include <cstdint>

#include "Vec.h"

namespace demo {

/// A row of numbers that is the same for the same seed on every machine: xorshift64*.
class Random {
 public:
  explicit Random(std::uint32_t seed) : state_((seed + 1ULL) * 0x9E3779B97F4A7C15ULL) {}

  std::uint32_t Next() {
    state_ ^= state_ >> 12U;
    state_ ^= state_ << 25U;
    state_ ^= state_ >> 27U;
    return static_cast<std::uint32_t>((state_ * 0x2545F4914F6CDD1DULL) >> 32U);
  }
  /// From 0 up to, not including, 1.
  float Unit() { return static_cast<float>(Next() >> 8U) / 16777216.0F; }
  float Between(float low, float high) { return low + (high - low) * Unit(); }
  /// Mean 0, deviation 1: the Box-Muller transform.
  float Gauss() {
    const float radius = std::sqrt(-2.0F * std::log(1.0F - Unit()));
    return radius * std::cos(2.0F * kPi * Unit());
  }

 private:
  std::uint64_t state_;
};

}  // namespace demo
