#include "settings/CatalogueReader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <span>

#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "toolkit/gdiplus.h"

namespace nimbrel {
namespace {

struct TextKey {
  const char* key;
  std::string OptionCatalogue::*value;
};
struct FlagKey {
  const char* key;
  std::int16_t OptionCatalogue::*value;
};

constexpr TextKey kCloudTexts[] = {{"Destination", &OptionCatalogue::CloudDestination},
                                   {"DestinationCirrus", &OptionCatalogue::DestinationCirrus}};
constexpr TextKey kSkyTexts[] = {{"Destination", &OptionCatalogue::SkyDestination}};
constexpr TextKey kWaterTexts[] = {{"DestinationWater", &OptionCatalogue::DestinationWater},
                                   {"DestinationWaves", &OptionCatalogue::DestinationWaves}};
constexpr FlagKey kSkyFlags[] = {
    {"sunInhibitRandomizer", &OptionCatalogue::sunInhibitRandomizer},
    {"contrailsInhibitRandomizer", &OptionCatalogue::contrailsInhibitRandomizer}};

/// A family as its reader goes through it; its groups are those of kOptionGroups.
struct FamilyKeys {
  std::int16_t family;
  std::size_t groups;
  std::span<const TextKey> texts;
  std::span<const FlagKey> flags;
};
constexpr std::array<FamilyKeys, kFamilies> kFamilyKeys{{
    {kCloud, 4, kCloudTexts, {}},
    {kSky, 4, kSkyTexts, kSkyFlags},
    {kWater, 3, kWaterTexts, {}},
}};

std::int16_t Narrow(std::int32_t value, std::string_view key) {
  if (value < std::numeric_limits<std::int16_t>::min() ||
      value > std::numeric_limits<std::int16_t>::max()) {
    throw RunTimeFailure("Overflow of " + std::string(key));
  }
  return static_cast<std::int16_t>(value);
}

/// A flag as the text of its value. Strict: an optional sign and decimal digits within 16 bits, and
/// nothing else, so that a damaged catalogue is told at the start rather than drawn from at random.
std::int16_t ReadFlag(const char* section, const std::string& key, const std::string& file) {
  const std::string value = ReadIniString(section, key, file);
  const bool plus = value.size() > 1 && value[0] == '+' && value[1] != '-';
  const char* begin = value.data() + (plus ? 1 : 0);
  const char* end = value.data() + value.size();
  std::int16_t flag = 0;
  const auto [stop, error] = std::from_chars(begin, end, flag);
  if (error != std::errc() || stop != end) {
    throw RunTimeFailure(key + " is no number");
  }
  return flag;
}

/// The largest HighestIndex of the family, 0 when none is above it.
std::int16_t ReadHighestIndices(const FamilyKeys& keys, const std::string& file) {
  const auto family = static_cast<std::size_t>(keys.family);
  std::int16_t largest = 0;
  for (const OptionGroup& group : kOptionGroups) {
    if (group.family != keys.family) {
      continue;
    }
    const std::int32_t value = ReadIniInt(kFamilySections[family], group.highest_key, file);
    const std::int16_t highest = Narrow(value, group.highest_key);
    Catalogue.HighestIndex[family][static_cast<std::size_t>(group.index)] = highest;
    largest = std::max(largest, highest);
  }
  return largest;
}

TextureOption ReadRow(const char* section, const char* prefix, std::int16_t option,
                      const std::string& file, Pictures pictures) {
  const auto text = [&](const char* field) {
    return ReadIniString(section, RowKey(prefix, field, option), file);
  };
  TextureOption row;
  if (pictures == Pictures::kLoad) {
    const std::string picture = platform::ApplicationFolder() + "\\" + text("Preview") + ".bmp";
    toolkit::GdipLoadImageFromFile(picture, row.Preview);  // a failure leaves it without a picture
  }
  row.Textures = text("Textures");
  row.Description = text("Description");
  row.Title = text("Title");
  row.InhibitRandomizer = ReadFlag(section, RowKey(prefix, kInhibitField, option), file);
  return row;
}

void ReadGroup(const OptionGroup& group, const std::string& file, Pictures pictures) {
  const auto family = static_cast<std::size_t>(group.family);
  const std::int16_t highest =
      Catalogue.HighestIndex[family][static_cast<std::size_t>(group.index)];
  // 32 bits: the highest possible index is the highest possible 16-bit number.
  for (std::int32_t option = 0; option <= highest; ++option) {
    const auto index = static_cast<std::int16_t>(option);
    *Catalogue.Tables[family].Cell(group.index, index) =
        ReadRow(kFamilySections[family], group.prefix, index, file, pictures);
  }
}

}  // namespace

void ReadCatalogueFamily(std::int16_t number, const std::string& file, Pictures pictures) {
  const auto family = static_cast<std::size_t>(number);
  const FamilyKeys& keys = kFamilyKeys[family];
  RequireReadable(file);
  const std::int16_t largest = ReadHighestIndices(keys, file);
  for (const TextKey& text : keys.texts) {
    Catalogue.*text.value = ReadIniString(kFamilySections[family], text.key, file);
  }
  for (const FlagKey& flag : keys.flags) {
    Catalogue.*flag.value = ReadFlag(kFamilySections[family], flag.key, file);
  }
  if (largest == 0) {
    throw RunTimeFailure("A family without tables");
  }
  Catalogue.Tables[family].Create(keys.groups, largest);
  for (const OptionGroup& group : kOptionGroups) {
    if (group.family == keys.family) {
      ReadGroup(group, file, pictures);
    }
  }
}

}  // namespace nimbrel
