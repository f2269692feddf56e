#pragma once

#include <cstdint>
#include <span>

#include "Texture.h"

namespace demo {

/// A sea state. Heights and lengths in metres, speed in metres a second.
struct WaveRecipe {
  float wind;
  float heading;     ///< towards which the waves run, degrees from the texture's u axis
  float spread;      ///< power of the cosine to the wind: 2 wide, 8 in long crests
  float height;      ///< significant: the mean of the highest third
  float choppiness;  ///< how sharp the crests are, 0 for round waves
  float swell_height;
  float swell_length;
};

/// In the catalogue's order, then the simulator's own.
std::span<const WaveRecipe> WaveRecipes();

inline constexpr float kWaveTile = 96.0F;  ///< metres that a wave texture covers
inline constexpr float kWaveRange = 4.5F;  ///< metres above and below the mean from black to white

/// The two files of a set: directions of the surface (red and green from -1 to 1, blue up) with the
/// foam as alpha, and heights in grey.
struct WaveSet {
  Texture surface;
  Texture height;
};
WaveSet PaintWaves(const WaveRecipe& recipe, int side, std::uint32_t seed);

}  // namespace demo
