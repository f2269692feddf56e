#pragma once

#include "Texture.h"

namespace demo {

/// A disc and its corona on black. `rays` from 0 to 1 makes them uneven round the disc.
struct SunLook {
  Color color;
  float disc;  ///< share of the half side
  float glow;
  float rays;
};

inline constexpr SunLook kReplacementSun{{1.0F, 0.95F, 0.84F}, 0.075F, 1.0F, 0.8F};
inline constexpr SunLook kOwnSun{{1.0F, 0.86F, 0.60F}, 0.14F, 0.45F, 0.0F};
inline constexpr SunLook kMoon{{0.86F, 0.92F, 1.0F}, 0.26F, 0.10F, 0.0F};

Texture PaintSun(const SunLook& look, int side);

}  // namespace demo
