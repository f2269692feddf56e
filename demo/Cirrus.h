#pragma once

#include <cstdint>
#include <span>

#include "Texture.h"

namespace demo {

/// One set of high ice clouds.
struct CirrusRecipe {
  int across;    ///< streaks over the texture
  int along;     ///< pieces of a streak over the texture
  float hook;    ///< how far the wind bends them
  float low;     ///< noise below shows nothing,
  float high;    ///< above is closed cloud
  float cover;   ///< share of the sky with any streaks at all
  float ripple;  ///< depth of the waves across the wind
  float opacity;
  Color color;
};

/// In the catalogue's order, then the simulator's own.
std::span<const CirrusRecipe> CirrusRecipes();

/// One of a set's textures, which repeats without a seam.
Texture PaintCirrus(const CirrusRecipe& recipe, int side, std::uint32_t seed);

}  // namespace demo
