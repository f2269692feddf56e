#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <span>

namespace demo {

/// A set's texts for the user. A title of up to 18 letters fits every label of the program.
struct Option {
  const char* title;
  const char* description;
};

enum GroupKind : std::size_t {
  kSolid,
  kStratus,
  kWispy,
  kCirrus,
  kSunrise,
  kDay,
  kSunset,
  kNight,
  kBase,
  kEnvironment,
  kWaves,
  kGroups
};

struct Group {
  const char* prefix;   ///< of the keys
  const char* num_key;  ///< suffix of the highest-index key
  const char* preview;  ///< file name before "_<n>"
  const char* set;      ///< path under Data before the option's number
  std::span<const Option> options;
};

extern const std::array<Group, kGroups> kCatalogue;

/// NB_Information.cfg with all groups and every option allowed for the randomizer.
void WriteInformationFile(const std::filesystem::path& file);

}  // namespace demo
