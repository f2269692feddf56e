#pragma once

#include "Skies.h"

namespace demo {

/// A view of the set with the land or the sea below it. `sun` is the corona that the simulator adds
/// to the sky, or the moon's disc for a night.
Texture PreviewSky(const SkyBox& box, const SkyRecipe& recipe, const Texture& sun,
                   std::uint32_t seed);

/// Adds a picture of light on black round a direction, `size` degrees wide.
void AddLight(Canvas& canvas, const Camera& camera, const Texture& light, const Vec3& direction,
              float size, const Color& tint);

}  // namespace demo
