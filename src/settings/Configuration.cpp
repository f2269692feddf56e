#include "settings/Configuration.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>

#include "platform/FileSystem.h"
#include "platform/inifile.h"
#include "settings/Catalogue.h"
#include "settings/Failure.h"
#include "settings/Folders.h"
#include "settings/Functions_Configuration.h"

namespace nimbrel {
namespace {

constexpr std::string_view kMainSection = "Main";
constexpr std::string_view kInhibitField = "InhibitRandomizer";

struct TextKey {
  const char* key;
  std::string Catalogue::*value;
};
struct FlagKey {
  const char* key;
  std::int16_t Catalogue::*value;
};
constexpr TextKey kCloudTexts[] = {{"Destination", &Catalogue::CloudDestination},
                                   {"DestinationCirrus", &Catalogue::DestinationCirrus}};
constexpr TextKey kSkyTexts[] = {{"Destination", &Catalogue::SkyDestination}};
constexpr TextKey kWaterTexts[] = {{"DestinationWater", &Catalogue::DestinationWater},
                                   {"DestinationWaves", &Catalogue::DestinationWaves}};
constexpr FlagKey kSkyFlags[] = {
    {"sunInhibitRandomizer", &Catalogue::sunInhibitRandomizer},
    {"contrailsInhibitRandomizer", &Catalogue::contrailsInhibitRandomizer}};

/// A family's section, and the keys in it that belong to no group.
struct FamilyKeys {
  const char* section;
  std::span<const TextKey> texts;
  std::span<const FlagKey> flags;
};
constexpr PerFamily<FamilyKeys> kFamilyKeys{{{
    {"CloudTextures", kCloudTexts, {}},
    {"SkyTextures", kSkyTexts, kSkyFlags},
    {"WaterTextures", kWaterTexts, {}},
}}};

std::int16_t ReadHighest(const GroupFacts& group, const platform::IniFile& file) {
  const std::int32_t value = ReadIniInt(kFamilyKeys[group.family].section, group.highest_key, file);
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    throw ActionFailed(std::string(group.highest_key) + " is too large");
  }
  return static_cast<std::int16_t>(value);
}

/// A flag as the text of its value. Strict: an optional sign and decimal digits within 16 bits, and
/// nothing else, so that a damaged catalogue is told at the start rather than drawn from.
std::int16_t ReadFlag(const char* section, const std::string& key, const platform::IniFile& file) {
  const std::string value = ReadIniString(section, key, file);
  const bool plus = value.size() > 1 && value[0] == '+' && value[1] != '-';
  const char* const begin = value.data() + (plus ? 1 : 0);
  const char* const end = value.data() + value.size();
  std::int16_t flag = 0;
  const auto [stop, error] = std::from_chars(begin, end, flag);
  if (error != std::errc() || stop != end) {
    throw ActionFailed(key + " is not a number");
  }
  return flag;
}

TextureOption ReadOption(const GroupFacts& group, std::int16_t option,
                         const platform::IniFile& file) {
  const char* const section = kFamilyKeys[group.family].section;
  const auto text = [&](const char* field) {
    return ReadIniString(section, RowKey(group.prefix, field, option), file);
  };
  return {
      .Preview = text("Preview"),
      .Textures = text("Textures"),
      .Title = text("Title"),
      .Description = text("Description"),
      .InhibitRandomizer = ReadFlag(section, RowKey(group.prefix, kInhibitField, option), file)};
}

std::vector<TextureOption> ReadGroup(const GroupFacts& group, std::int16_t highest,
                                     const platform::IniFile& file) {
  std::vector<TextureOption> options;
  // 32 bits: the highest possible index is the highest possible 16-bit number.
  for (std::int32_t option = 0; option <= highest; ++option) {
    options.push_back(ReadOption(group, static_cast<std::int16_t>(option), file));
  }
  return options;
}

void WriteGroupFlags(const GroupFacts& group, const Catalogue& catalogue, platform::IniFile& file) {
  std::int16_t index = 0;
  for (const TextureOption& option : catalogue.options[group.group]) {
    WriteIniString(kFamilyKeys[group.family].section, RowKey(group.prefix, kInhibitField, index++),
                   std::to_string(option.InhibitRandomizer), file);
  }
}

/// Opens the information file, lets `change` set values and saves them. Creates no file.
template <class Change>
platform::FileStatus ChangeInformation(const Folders& folders, const Change& change) {
  platform::FileSystem files(kTemporaryPrefix);
  platform::IniFile file(files, InformationFile(folders));
  if (file.status() != platform::FileStatus::kOk) {
    return file.status();
  }
  change(file);
  return file.Save();
}

}  // namespace

void ReadFamily(Family family, const platform::IniFile& file, Catalogue& catalogue) {
  const FamilyKeys& keys = kFamilyKeys[family];
  const auto groups = GroupsOf(family);
  std::vector<std::int16_t> highest;
  for (const GroupFacts& group : groups) {
    highest.push_back(ReadHighest(group, file));
  }
  for (const TextKey& text : keys.texts) {
    catalogue.*text.value = ReadIniString(keys.section, text.key, file);
  }
  for (const FlagKey& flag : keys.flags) {
    catalogue.*flag.value = ReadFlag(keys.section, flag.key, file);
  }
  if (*std::max_element(highest.begin(), highest.end()) <= 0) {
    throw ActionFailed(std::string(keys.section) +
                       " needs at least one group with more than one option");
  }
  for (std::size_t i = 0; i < groups.size(); ++i) {
    catalogue.options[groups[i].group] = ReadGroup(groups[i], highest[i], file);
  }
}

Catalogue ReadCatalogue(const Folders& folders) {
  platform::FileSystem files(kTemporaryPrefix);
  const std::string path = InformationFile(folders);
  const platform::IniFile file(files, path);
  if (file.status() != platform::FileStatus::kOk) {
    throw ActionFailed(path, file.status());
  }
  Catalogue catalogue;
  for (const Family family : kFamilies) {
    ReadFamily(family, file, catalogue);
  }
  return catalogue;
}

MachineSwitches ReadMachineSwitches(const platform::IniFile& file) {
  return {.dxt = ReadIniInt(kMainSection, "useDXT", file) == 1,
          .fast = ReadIniInt(kMainSection, "useLowRes", file) == 1};
}

platform::FileStatus WriteMachineSwitches(const MachineSwitches& switches, const Folders& folders) {
  return ChangeInformation(folders, [&switches](platform::IniFile& file) {
    WriteIniString(kMainSection, "useDXT", switches.dxt ? "1" : "0", file);
    WriteIniString(kMainSection, "useLowRes", switches.fast ? "1" : "0", file);
  });
}

platform::FileStatus WriteInhibitFlags(const Catalogue& catalogue, const Folders& folders) {
  return ChangeInformation(folders, [&catalogue](platform::IniFile& file) {
    for (const Family family : {Family::kWater, Family::kSky, Family::kCloud}) {
      const FamilyKeys& keys = kFamilyKeys[family];
      for (const GroupFacts& group : GroupsOf(family)) {
        WriteGroupFlags(group, catalogue, file);
      }
      for (const FlagKey& flag : keys.flags) {
        WriteIniString(keys.section, flag.key, std::to_string(catalogue.*flag.value), file);
      }
    }
  });
}

}  // namespace nimbrel
