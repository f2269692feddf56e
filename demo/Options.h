#pragma once

#include <array>
#include <cstddef>
#include <filesystem>

namespace demo {

inline constexpr int kOptions = 5;  ///< options of each group

struct Option {
  const char* title;
  const char* description;
};

enum GroupKind {
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
  kWaves
};

/// One option group. The last two are folders and the files of a set; a cumulus group has none,
/// its inputs are files named after the option.
struct Group {
  GroupKind kind;
  const char* prefix;   ///< of the keys
  const char* num_key;  ///< suffix of the highest-index key
  const char* preview;  ///< file name before "_<n>"
  const char* set;      ///< path under Data before the option's number
  const char* target;   ///< folder in the simulator; empty: no set of files
  std::array<const char*, 6> files;
  std::array<Option, kOptions> options;
};

inline constexpr std::size_t kGroups = 11;
extern const std::array<Group, kGroups> kCatalogue;

/// NB_Information.cfg with all groups, every option open to the randomizer.
void WriteInformationFile(const std::filesystem::path& file);

}  // namespace demo
