#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/gdiplus.h"

namespace nimbrel {

/// What can be chosen. Written by the readers of mod_ReadConfiguration at start-up, and never
/// again but for the inhibit flags, which the randomizer also sets.

inline constexpr std::int16_t kCloud = 0;
inline constexpr std::int16_t kSky = 1;
inline constexpr std::int16_t kWater = 2;
inline constexpr std::size_t kFamilies = 3;
inline constexpr std::size_t kMostGroups = 4;  ///< groups of the largest family

/// Section of each family in the information file.
inline constexpr std::array<const char*, kFamilies> kFamilySections{"CloudTextures", "SkyTextures",
                                                                    "WaterTextures"};

/// One of the eleven groups: the fixed facts by which everything else loops over them.
struct OptionGroup {
  std::int16_t family;
  std::int16_t index;       ///< inside the family
  const char* prefix;       ///< of its row keys in the information file
  const char* highest_key;  ///< key of its HighestIndex
};

/// Families in the order of the pages, groups in the order of their index.
inline constexpr std::array<OptionGroup, 11> kOptionGroups{{
    {kCloud, 0, "solid", "numSolid"},
    {kCloud, 1, "stratus", "numStratus"},
    {kCloud, 2, "wispy", "numWispy"},
    {kCloud, 3, "cirrus", "numCirrus"},
    {kSky, 0, "sunrise", "numSunrise"},
    {kSky, 1, "day", "numDay"},
    {kSky, 2, "sunset", "numSunset"},
    {kSky, 3, "night", "numNight"},
    {kWater, 0, "base", "numBase"},
    {kWater, 1, "environment", "numEnvironment"},
    {kWater, 2, "waves", "numWaves"},
}};

/// One catalogue row.
struct TextureOption {
  platform::GpImage Preview;  ///< empty when the picture failed to load
  std::string Textures;       ///< folder, or for the three cloud inputs path without extension
  std::string Title;
  std::string Description;
  std::int16_t InhibitRandomizer = 0;  ///< 1: the randomizer may not pick this option
};

/// A family's rows, addressed by (group index, option index): as wide as the largest group, cells
/// above a group's own HighestIndex empty. One table of rows rather than five parallel ones, so
/// that what belongs to an option stands together.
class CatalogueTable {
 public:
  /// Makes the empty cells for `groups` groups of `highest` + 1 options each.
  void Create(std::size_t groups, std::int16_t highest);
  /// The cell, or an empty one outside the table: indices from history and favourite files are
  /// taken as read, and behave as an option without picture, title and files.
  const TextureOption& At(std::int16_t group, std::int16_t option) const;
  /// For the readers and the randomizer: null outside the table.
  TextureOption* Cell(std::int16_t group, std::int16_t option);
  bool Empty() const { return rows_.empty(); }

 private:
  /// Number of the row, or that of rows_ when the place is outside.
  std::size_t Row(std::int16_t group, std::int16_t option) const;

  std::size_t width_ = 0;
  std::vector<TextureOption> rows_;
};

struct OptionCatalogue {
  std::array<std::array<std::int16_t, kMostGroups>, kFamilies> HighestIndex{};
  std::array<CatalogueTable, kFamilies> Tables;

  std::int16_t sunInhibitRandomizer = 0;
  std::int16_t contrailsInhibitRandomizer = 0;

  // Paths relative to the SimulatorRoot, no backslash at either end.
  std::string CloudDestination;  ///< the cumulus texture file itself
  std::string DestinationCirrus;
  std::string SkyDestination;
  std::string DestinationWater;
  std::string DestinationWaves;

  const TextureOption& At(std::int16_t family, std::int16_t group, std::int16_t option) const;
};

extern OptionCatalogue Catalogue;

}  // namespace nimbrel
