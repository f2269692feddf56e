#include "setup/Places.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <memory>
#include <system_error>

#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/CatalogueReader.h"
#include "settings/Functions_Configuration.h"

namespace nimbrel {
namespace {

namespace fs = std::filesystem;

/// The marks of the simulator, in any letter case: all of these folders, and one of these files.
/// The folders are those that installs write into or stand beside; any of the files tells the
/// simulator from another program with folders of such common names.
constexpr const char* kFolderMarks[] = {"Texture", "Effects", "Scenery"};
constexpr const char* kFileMarks[] = {"FS9.exe", "Effects\\fx_contrail_s.fx",
                                      "Effects\\fx_contrail_L.fx"};

std::string RealFolder(const std::string& folder) {
  std::error_code error;
  const fs::path real = fs::canonical(folder, error);
  if (error || !fs::is_directory(real, error)) {
    throw SetupFailure("There is no folder " + folder);
  }
  if (real.string().find('\\') != std::string::npos) {
    throw SetupFailure("Nimbrel can't stand below a folder with a backslash in its name: " +
                       real.string());
  }
  return real.string();
}

/// What keeps a folder from being the simulator's; empty when nothing does.
std::string MissingMark(const std::string& folder) {
  for (const char* mark : kFolderMarks) {
    if (!platform::FolderExists(folder + "\\" + mark)) {
      return std::string("it has no folder ") + mark;
    }
  }
  const bool known =
      std::any_of(std::begin(kFileMarks), std::end(kFileMarks),
                  [&](const char* mark) { return platform::FileExists(folder + "\\" + mark); });
  return known ? "" : "it has neither FS9.exe nor the contrail effects in Effects";
}

/// The program asks the system for its own folder and goes up from there: a link on the way would
/// lead it out of this simulator.
void RefuseLinks(const Places& places) {
  for (const std::string& folder : {places.modules, places.program, places.originals}) {
    if (fs::exists(fs::symlink_status(folder)) && fs::canonical(folder) != folder) {
      throw SetupFailure(folder + " is a symbolic link, from which Nimbrel would not find its way");
    }
  }
}

}  // namespace

Places FindPlaces(const std::string& folder, const SetupSources& from) {
  Places places;
  places.from = from;
  places.simulator = RealFolder(folder);
  const std::string missing = MissingMark(places.simulator);
  if (!missing.empty()) {
    throw SetupFailure(places.simulator +
                       " is not the folder of Flight Simulator 2004: " + missing);
  }
  places.modules = HostOf(places.simulator + "\\Modules");
  places.program = HostOf(places.modules + "\\Nimbrel");
  places.originals = HostOf(places.modules + "\\Nimbrel Originals");
  RefuseLinks(places);
  return places;
}

bool ProgramRuns(const Places& places) {
  errno = 0;
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(
      std::fopen(places.ProgramFile().c_str(), "r+b"), std::fclose);
  return !file && errno == static_cast<int>(std::errc::text_file_busy);
}

void ReadCatalogueOf(const Places& places) {
  const bool in_place = FileIsThere(places.PackInPlace());
  platform::SetApplicationFolder(in_place ? places.program : places.from.pack);
  SimulatorRoot = places.simulator + "\\";
  Catalogue = {};
  if (!platform::FileExists(InformationFile())) {
    throw SetupFailure("There is no texture pack, with an NB_Information.cfg, in " +
                       platform::ApplicationFolder());
  }
  try {
    for (const std::int16_t family : {kCloud, kSky, kWater}) {
      ReadCatalogueFamily(family, InformationFile(), Pictures::kSkip);
    }
  } catch (const RunTimeFailure& failure) {
    throw SetupFailure(platform::HostPath(InformationFile()) + " can't be read: " + failure.what());
  }
}

std::vector<std::byte> BytesOf(const std::string& file) {
  platform::FileStatus status = platform::FileStatus::kOk;
  auto bytes = platform::ReadFile(file, kMostBytes, &status);
  if (!bytes) {
    throw SetupFailure(file, status);
  }
  return std::move(*bytes);
}

bool SameContent(const std::string& a, const std::string& b) {
  return platform::FileExists(a) && platform::FileExists(b) &&
         fs::file_size(a) == fs::file_size(b) && BytesOf(a) == BytesOf(b);
}

std::string HostOf(const std::string& path) {
  platform::FileStatus status = platform::FileStatus::kOk;
  std::string host = platform::HostPath(path, &status);
  if (status != platform::FileStatus::kOk) {
    throw SetupFailure(path, status);
  }
  return host;
}

bool FileIsThere(const std::string& path) { return platform::FileExists(HostOf(path)); }

void MakeFolders(const std::string& folder) {
  if (platform::CreateFolder(folder)) {
    return;
  }
  const std::string above = fs::path(folder).parent_path().string();
  if (above != folder) {
    MakeFolders(above);
  }
  if (!platform::CreateFolder(folder)) {
    throw SetupFailure("The folder " + folder + " can't be made");
  }
}

void RemoveTemporariesIn(const std::string& folder) {
  const auto status = platform::RemoveTemporaries(folder);
  if (status != platform::FileStatus::kOk) {
    throw SetupFailure(folder + "/" + std::string(platform::kTemporaryPattern), status);
  }
}

void RemoveTemporariesBelow(const std::string& folder) {
  if (!platform::FolderExists(folder)) {
    return;
  }
  RemoveTemporariesIn(folder);
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_directory() && !entry.is_symlink()) {
      RemoveTemporariesIn(entry.path().string());
    }
  }
}

void CopyIn(const std::string& source, const std::string& target) {
  MakeFolders(fs::path(target).parent_path().string());
  const auto status = platform::CopyOver(source, target, platform::Durability::kFlushedRename);
  if (status != platform::FileStatus::kOk) {
    throw SetupFailure(status == platform::FileStatus::kNoSource ? source : target, status);
  }
}

}  // namespace nimbrel
