#include "install/CopyPlan.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "install/WorkBitmaps.h"
#include "platform/FileSystem.h"
#include "platform/text.h"
#include "settings/Catalogue.h"
#include "settings/Folders.h"

namespace nimbrel {
namespace {

constexpr std::size_t kMaxFiles = 100;

constexpr EnumArray<FixedFolder, const char*, 3> kFixedFolders{
    {"Data\\Clouds\\Cld", "Data\\Clouds\\cumulus", "Data\\Clouds\\stratus"}};

using Destination = std::string Catalogue::*;
struct GroupDestination {
  Group group;
  Destination folder;  ///< null for the cloud inputs, which are composed
};
constexpr PerGroup<GroupDestination> kDestinations{{{
    {Group::kSolid, nullptr},
    {Group::kStratus, nullptr},
    {Group::kWispy, nullptr},
    {Group::kCirrus, &Catalogue::DestinationCirrus},
    {Group::kSunrise, &Catalogue::SkyDestination},
    {Group::kDay, &Catalogue::SkyDestination},
    {Group::kSunset, &Catalogue::SkyDestination},
    {Group::kNight, &Catalogue::SkyDestination},
    {Group::kBase, &Catalogue::DestinationWater},
    {Group::kEnvironment, &Catalogue::DestinationWater},
    {Group::kWaves, &Catalogue::DestinationWaves},
}}};

std::string FolderOf(const std::string& file) {
  return file.substr(0, file.find_last_of("\\/") + 1);
}

/// Written files by the folded name of their host path, under which two spellings are one file.
class Collection {
 public:
  Collection(const CopyRoutes& routes, const Folders& folders, platform::FileSystem& files)
      : routes_(routes), folders_(folders), files_(files) {}

  /// The entry of a target, made if it is new. Null if no install writes the target.
  WrittenFile* Slot(const std::string& target) {
    platform::FileStatus status = platform::FileStatus::kOk;
    std::string host = files_.HostPath(target, &status);
    NoteReadError(target, status);
    if (!MayBeWritten(target)) {
      return nullptr;
    }
    WrittenFile& file = written_[platform::FoldName(host)];
    file.target = std::move(host);
    return &file;
  }

  void AddCopy(const FileCopy& copy) {
    if (WrittenFile* const file = Slot(copy.target); file != nullptr) {
      file->sources.push_back(copy.source);
    }
  }

  void AddRoute(const CopyRoute& route) {
    const CopyPlan plan = routes_.Plan(route);
    NoteReadError(route.source, plan.listed);
    for (const FileCopy& copy : plan.copies) {
      AddCopy(copy);
    }
  }

  WrittenFiles Take() {
    WrittenFiles all;
    for (auto& [key, file] : written_) {
      all.files.push_back(std::move(file));
    }
    all.unread = std::move(unread_);
    return all;
  }

 private:
  void NoteReadError(const std::string& path, platform::FileStatus status) {
    if (platform::IsReadError(status)) {
      unread_ = {path, status};
    }
  }

  bool MayBeWritten(const std::string& target) {
    platform::FileStatus status = platform::FileStatus::kOk;
    const bool may = !target.empty() && files_.FolderExists(FolderOf(target)) &&
                     files_.LiesWithin(target, folders_.simulator, &status);
    NoteReadError(target, status);
    return may;
  }

  const CopyRoutes& routes_;
  const Folders& folders_;
  platform::FileSystem& files_;
  std::map<std::string, WrittenFile> written_;
  UnreadPlace unread_;
};

void AddSets(Collection& written, const CopyRoutes& routes, const Catalogue& catalogue) {
  for (const GroupFacts& facts : kGroups) {
    for (int option = 0; option <= catalogue.HighestIndex(facts.group); ++option) {
      written.AddRoute(routes.Set(facts.group, static_cast<std::int16_t>(option)));
    }
  }
}

void AddEffects(Collection& written, const CopyRoutes& routes) {
  for (const ContrailEffect& effect : kContrailEffects) {
    if (WrittenFile* const file = written.Slot(routes.SimulatorEffects() + effect.file);
        file != nullptr) {
      file->edited = true;
    }
  }
}

}  // namespace

CopyRoutes::CopyRoutes(const Catalogue& catalogue, const Folders& folders,
                       platform::FileSystem& files)
    : catalogue_(catalogue), folders_(folders), files_(files) {}

/// A folder of the catalogue below `root`, which ends in a separator. Empty if `part` adds nothing
/// to the root: files that belong to no set would be copied otherwise.
std::string CopyRoutes::FolderBelow(const std::string& root, const std::string& part) const {
  const std::string folder = root + part + "\\";
  const bool nothing = part.empty() || files_.HostPath(folder) == files_.HostPath(root);
  return nothing ? std::string() : folder;
}

CopyRoute CopyRoutes::Set(Group group, std::int16_t option) const {
  const Destination destination = kDestinations[group].folder;
  if (destination == nullptr) {
    return {};
  }
  return {FolderBelow(folders_.program + "\\", catalogue_.At(group, option).Textures),
          FolderBelow(folders_.simulator, catalogue_.*destination)};
}

CopyRoute CopyRoutes::Fixed(FixedFolder folder) const {
  return {FolderBelow(folders_.program + "\\", kFixedFolders[folder]), SimulatorTextures()};
}

CopyRoute CopyRoutes::Sun() const {
  return {folders_.program + "\\Data\\Sun\\", SimulatorTextures()};
}

std::string CopyRoutes::SunBackups() const { return folders_.program + "\\Backups\\TEX\\"; }

std::string CopyRoutes::SimulatorTextures() const { return folders_.simulator + "Texture\\"; }

std::string CopyRoutes::SimulatorEffects() const { return folders_.simulator + "Effects\\"; }

std::string CopyRoutes::ComposedCumulus() const {
  return TempBitmapFile(folders_, kCumulusTexture);
}

std::string CopyRoutes::CumulusTarget() const {
  return catalogue_.CloudDestination.empty() ? std::string()
                                             : folders_.simulator + catalogue_.CloudDestination;
}

std::vector<std::string> CopyRoutes::Destinations() const {
  std::vector<std::string> folders;
  std::set<std::string> known{std::string()};
  const auto add = [&](const std::string& folder) {
    if (known.insert(files_.HostPath(folder)).second) {
      folders.push_back(folder);
    }
  };
  for (const GroupDestination& row : kDestinations) {
    if (row.folder != nullptr) {
      add(FolderBelow(folders_.simulator, catalogue_.*row.folder));
    }
  }
  add(SimulatorTextures());
  add(SimulatorEffects());
  add(FolderOf(CumulusTarget()));
  return folders;
}

CopyPlan CopyRoutes::Plan(const CopyRoute& route) const {
  using namespace platform;
  CopyPlan plan;
  if (route.source.empty() || route.destination.empty()) {
    return plan;
  }
  const std::vector<std::string> names =
      files_.ListFiles(route.source + "*.*", kReadOnly | kHidden | kSystem, &plan.listed);
  plan.found = names.size();
  for (std::size_t i = 0; i < std::min(names.size(), kMaxFiles); ++i) {
    const std::string target = Trim(names[i]);
    plan.copies.push_back(
        {route.source + names[i], target.empty() ? std::string() : route.destination + target});
  }
  return plan;
}

WrittenFiles FilesThatInstallsWrite(const CopyRoutes& routes, const Catalogue& catalogue,
                                    const Folders& folders, platform::FileSystem& files) {
  Collection written(routes, folders, files);
  AddSets(written, routes, catalogue);
  for (const FixedFolder folder :
       {FixedFolder::kCld, FixedFolder::kCumulus, FixedFolder::kStratus}) {
    written.AddRoute(routes.Fixed(folder));
  }
  written.AddRoute(routes.Sun());
  for (const char* file : kSunFiles) {
    // No source: its backup is the simulator's own file.
    written.Slot(routes.SimulatorTextures() + file);
  }
  written.AddCopy({routes.ComposedCumulus(), routes.CumulusTarget()});
  AddEffects(written, routes);
  return written.Take();
}

}  // namespace nimbrel
