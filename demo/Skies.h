#pragma once

#include <span>

#include "Atmosphere.h"
#include "SkyBox.h"

namespace demo {

/// Lights of a night beside the moon's scattered light; all from 0 (none) up.
struct NightLights {
  float stars = 0.0F;
  float milky_way = 0.0F;
  float aurora = 0.0F;
  float town = 0.0F;
};

enum class Foreground { kHills, kPeaks, kSea };

/// One sky set: its air and its light, how it is developed, and what its preview looks at.
struct SkyRecipe {
  Air air;
  float azimuth;  ///< of the sun or the moon, degrees from north
  float elevation;
  float exposure;
  float saturation;
  Color tint;  ///< overhead, and at the horizon
  Color low;
  float streaks;  ///< thin far clouds, 0 for none to 1
  float heading;  ///< of the preview
  Foreground foreground;
  NightLights lights;
};

enum class SkyPeriod { kSunrise, kDay, kSunset, kNight };
/// The sets of a period in the catalogue's order, then the simulator's own sky.
std::span<const SkyRecipe> SkyRecipes(SkyPeriod period);

/// The display's colour of that air in a direction, without the lights of the night.
Color SkyColor(const SkyRecipe& recipe, const Atmosphere& air, const Vec3& direction);
SkyBox PaintSky(const SkyRecipe& recipe, int side, std::uint32_t seed);

}  // namespace demo
