#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "Texture.h"

namespace demo {

/// What a set lets the water reflect.
struct ReflectionRecipe {
  float strength;  ///< of the sky in the water, 1 as in nature
  float blur;      ///< of the sky, 0 sharp to 1
  float path;      ///< width of the sun's image in degrees
  float sparkle;   ///< grain in the sun's image
  float clouds;    ///< share of clouds in the picture
  float sun;       ///< brightness of the sun's image
  int period;      ///< that its preview shows: 0 day, 1 dusk, 2 night
};

/// In the catalogue's order, then the simulator's own.
std::span<const ReflectionRecipe> ReflectionRecipes();

/// Day, dusk and night: the sky as a disc with the zenith in its middle and the horizon on its rim
/// (a paraboloid map; up on the picture is north).
using ReflectionSet = std::array<Texture, 3>;
ReflectionSet PaintReflections(const ReflectionRecipe& recipe, int side, std::uint32_t seed);

/// Light from a direction above the water.
Color Reflected(const Texture& map, const Vec3& direction);

/// Direction of the sun or the moon on the three maps.
Vec3 ReflectedSun(int period);

}  // namespace demo
