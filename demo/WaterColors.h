#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "Texture.h"

namespace demo {

enum WaterKind { kOcean, kCoast, kLake, kRiver, kTropic, kPolar, kWaterKinds };

enum class Shore { kIslands, kAtoll, kLake, kRiver, kIce };

/// Colours of a set by the kind of water, as light that leaves it.
struct WaterRecipe {
  std::array<Color, kWaterKinds> deep;
  Color shallow;  ///< the colour that the coast and the tropic approach
  float mottle;   ///< depth of the large patches
  float streaks;  ///< strength of the wind's lines
  Shore shore;    ///< that its preview shows
};

/// In the catalogue's order, then the simulator's own.
std::span<const WaterRecipe> WaterRecipes();

using WaterSet = std::array<Texture, kWaterKinds>;
WaterSet PaintWater(const WaterRecipe& recipe, int side, std::uint32_t seed);

}  // namespace demo
