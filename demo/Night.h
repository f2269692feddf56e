#pragma once

#include <cstdint>

#include "Skies.h"

namespace demo {

/// Airglow, the Milky Way, the aurora in the north and a town's glow in the south-west, in the
/// display's colours.
Color NightGlow(const NightLights& lights, const Vec3& direction);

/// Strews stars over the faces, few bright and many faint ones, denser along the Milky Way.
void AddStars(SkyFaces& faces, const NightLights& lights, std::uint32_t seed);

}  // namespace demo
