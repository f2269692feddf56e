#pragma once

#include "Reflections.h"
#include "SkyBox.h"
#include "WaterColors.h"
#include "Waves.h"

namespace demo {

/// The textures of a picture of water.
struct SeaTextures {
  const WaveSet& waves;
  const Texture& reflection;
  const WaterSet& water;
  const SkyBox& sky;
  float sky_turn;  ///< degrees from north to the sky's own sun
  Vec3 sun;        ///< on the reflection map
  float light;     ///< of the period, 1 for the day
  bool behind;     ///< the sun and its image are behind the eye
};

/// From a boat's mast, `eye` metres above the water.
Texture PreviewSea(const SeaTextures& textures, float eye, float heading);
/// From the air, over the shore of the set.
Texture PreviewShore(const SeaTextures& textures, Shore shore, std::uint32_t seed);

}  // namespace demo
