#include <optional>
#include <string>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/inifile.h"
#include "settings/Catalogue.h"
#include "settings/Configuration.h"
#include "settings/Failure.h"
#include "settings/Folders.h"
#include "support.h"

using namespace nimbrel;
using fuzz::Require;

namespace {

MachineSwitches ReadSwitches(const Folders& folders) {
  platform::FileSystem files(kTemporaryPrefix);
  return ReadMachineSwitches(platform::IniFile(files, InformationFile(folders)));
}

std::optional<Catalogue> Read(const Folders& folders) {
  try {
    return ReadCatalogue(folders);
  } catch (const ActionFailed&) {
    return std::nullopt;
  }
}

struct Contents {
  std::vector<std::string> texts;
  std::vector<std::int16_t> flags;
  bool operator==(const Contents&) const = default;
};

Contents ContentsOf(const Catalogue& catalogue) {
  Contents contents{
      {catalogue.CloudDestination, catalogue.DestinationCirrus, catalogue.SkyDestination,
       catalogue.DestinationWater, catalogue.DestinationWaves},
      {catalogue.sunInhibitRandomizer, catalogue.contrailsInhibitRandomizer}};
  for (const auto& options : catalogue.options) {
    for (const TextureOption& row : options) {
      contents.texts.insert(contents.texts.end(),
                            {row.Preview, row.Textures, row.Title, row.Description});
      contents.flags.push_back(row.InhibitRandomizer);
    }
  }
  return contents;
}

void FlipFlags(Catalogue& catalogue) {
  const auto flip = [](std::int16_t& flag) { flag = flag == 1 ? 0 : 1; };
  flip(catalogue.sunInhibitRandomizer);
  flip(catalogue.contrailsInhibitRandomizer);
  for (auto& options : catalogue.options) {
    for (TextureOption& row : options) {
      flip(row.InhibitRandomizer);
    }
  }
}

void Write(const Catalogue& catalogue, const MachineSwitches& switches, const Folders& folders) {
  Require(WriteInhibitFlags(catalogue, folders) == platform::FileStatus::kOk);
  Require(WriteMachineSwitches(switches, folders) == platform::FileStatus::kOk);
}

}  // namespace

/// Any bytes as the information file: refused, or all flags can be written back and are read again
/// with every text as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Folders folders = fuzz::Simulator().folders();
  const std::filesystem::path file = fuzz::Simulator().Program("NB_Information.cfg");
  fuzz::Put(file, std::as_bytes(std::span(data, size)));
  std::optional<Catalogue> catalogue = Read(folders);
  if (!catalogue) {
    return 0;
  }
  FlipFlags(*catalogue);
  MachineSwitches switches = ReadSwitches(folders);
  switches.dxt = !switches.dxt;
  Write(*catalogue, switches, folders);
  const std::optional<Catalogue> again = Read(folders);
  Require(again && ContentsOf(*again) == ContentsOf(*catalogue));
  Require(ReadSwitches(folders) == switches);
  const std::string written = ReadText(file);
  Write(*again, switches, folders);
  Require(ReadText(file) == written);
  return 0;
}
