#include <cstdlib>
#include <string>
#include <vector>

#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "settings/mod_ReadConfiguration.h"
#include "settings/mod_WriteConfiguration.h"
#include "shell/MainSwitches.h"
#include "support.h"
#include "support/recorders.h"

using namespace nimbrel;
using fuzz::Require;

namespace {

std::filesystem::path File() { return fuzz::Program("NB_Information.cfg"); }

[[maybe_unused]] const bool kSettled = fuzz::LetFilesSettle();

/// The four readers in the order of the start; false when one has ended the program.
bool Load() {
  try {
    LoadCumulusConfiguration();
    LoadSkyConfiguration();
    LoadWaterConfiguration();
    LoadMainConfiguration();
    return true;
  } catch (const ProgramEnded&) {
    return false;
  }
}

/// Calls `visit` for every row of every group that the file gives.
template <typename Visit>
void ForEachRow(Visit visit) {
  for (const OptionGroup& group : kOptionGroups) {
    const auto family = static_cast<std::size_t>(group.family);
    const int highest = Catalogue.HighestIndex[family][static_cast<std::size_t>(group.index)];
    for (int option = 0; option <= highest; ++option) {
      TextureOption* const row =
          Catalogue.Tables[family].Cell(group.index, static_cast<std::int16_t>(option));
      if (row == nullptr) {
        std::abort();
      }
      visit(*row);
    }
  }
}

struct Contents {
  std::vector<std::string> texts;
  std::vector<std::int16_t> flags;
  bool operator==(const Contents&) const = default;
};

Contents ReadContents() {
  Contents contents{
      {Catalogue.CloudDestination, Catalogue.DestinationCirrus, Catalogue.SkyDestination,
       Catalogue.DestinationWater, Catalogue.DestinationWaves},
      {Catalogue.sunInhibitRandomizer, Catalogue.contrailsInhibitRandomizer,
       Switches().chk_DXT.Value(), Switches().chk_Fast.Value()}};
  ForEachRow([&](const TextureOption& row) {
    contents.texts.insert(contents.texts.end(), {row.Textures, row.Title, row.Description});
    contents.flags.push_back(row.InhibitRandomizer);
  });
  return contents;
}

void FlipFlags() {
  const auto flip = [](std::int16_t& flag) { flag = flag == 1 ? 0 : 1; };
  flip(Catalogue.sunInhibitRandomizer);
  flip(Catalogue.contrailsInhibitRandomizer);
  ForEachRow([&](TextureOption& row) { flip(row.InhibitRandomizer); });
  Switches().chk_DXT.SetValue(Switches().chk_DXT.Value() == 1 ? 0 : 1);
}

void WriteBack() {
  WriteMainFlags();
  WriteInhibitFlags();
}

}  // namespace

/// Any bytes as the information file: the start is broken off with a message and nothing is ever
/// written back, or all flags are, and come back with every text as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto input = std::as_bytes(std::span(data, size));
  Recorded = {};
  Catalogue = {};
  fuzz::Put(File(), input);
  const bool loaded = Load();
  Require(loaded == ConfigurationLoaded() && loaded == Recorded.messages.empty());
  if (!loaded) {
    WriteBack();
    Require(fuzz::Get(File()) == fuzz::Text(input));
    return 0;
  }
  FlipFlags();
  const Contents flipped = ReadContents();
  WriteBack();
  Catalogue = {};
  Require(Load() && ReadContents() == flipped);
  const std::string written = fuzz::Get(File());
  WriteBack();
  Require(fuzz::Get(File()) == written);
  return 0;
}
