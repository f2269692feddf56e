#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "settings/Groups.h"

namespace nimbrel {

/// One option of a group, as the information file describes it.
struct TextureOption {
  std::string Preview;   ///< picture file below the program's folder, without ".bmp"
  std::string Textures;  ///< folder, or for the three cloud inputs path without extension
  std::string Title;
  std::string Description;
  std::int16_t InhibitRandomizer = 0;  ///< 1: the randomizer may not pick this option
};

/// What can be chosen and where it goes. Text only: pictures are the interface's business.
struct Catalogue {
  PerGroup<std::vector<TextureOption>> options;

  std::int16_t sunInhibitRandomizer = 0;
  std::int16_t contrailsInhibitRandomizer = 0;

  // Paths relative to the simulator's root, no backslash at either end.
  std::string CloudDestination;  ///< the cumulus texture file itself
  std::string DestinationCirrus;
  std::string SkyDestination;
  std::string DestinationWater;
  std::string DestinationWaves;

  /// The option, or an empty one for an index outside the catalogue: records from files may hold
  /// any index.
  const TextureOption& At(Group group, std::int16_t option) const;
  /// The group's highest option index, -1 for a group without options.
  std::int16_t HighestIndex(Group group) const;
};

}  // namespace nimbrel
