#pragma once

#include <array>
#include <vector>

#include "CloudSheets.h"
#include "Reflections.h"
#include "SkyBox.h"
#include "WaterColors.h"
#include "Waves.h"

namespace demo {

/// A cloud input in both sizes.
struct CloudSheet {
  Texture large;
  Texture fast;
};
using CirrusSet = std::array<Texture, 3>;

/// Every set of the demo, in the catalogue's order; the last of each group is the simulator's own.
struct Library {
  std::array<std::vector<CloudSheet>, 3> clouds;
  std::vector<CirrusSet> cirrus;
  std::array<std::vector<SkyBox>, 4> skies;
  std::vector<WaterSet> water;
  std::vector<ReflectionSet> reflections;
  std::vector<WaveSet> waves;
};

Library PaintLibrary();

/// The preview of an option, from the library's textures alone.
Texture PaintPreview(const Library& library, std::size_t group, std::size_t option);

}  // namespace demo
