#include "install/CopyPlan.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/files.h"
#include "platform/system.h"
#include "platform/text.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"

namespace nimbrel {
namespace {

constexpr std::size_t kMostFiles = 100;

constexpr std::array<const char*, 3> kFixedFolders{"Data\\Clouds\\Cld", "Data\\Clouds\\cumulus",
                                                   "Data\\Clouds\\stratus"};

/// A composed folder, or empty text when `part` adds nothing to `root`: an empty `Textures` or
/// destination of the catalogue would else stand for the whole program or simulator folder, and
/// files that belong to no set would be copied.
std::string FolderBelow(const std::string& root, const std::string& part) {
  const std::string folder = root + "\\" + part + "\\";
  const bool nothing =
      part.empty() || platform::HostPath(folder) == platform::HostPath(root + "\\");
  return nothing ? std::string() : folder;
}

std::string SourceFolder(const std::string& part) {
  return FolderBelow(platform::ApplicationFolder(), part);
}

std::string DestinationFolder(const std::string& part) {
  const std::string_view root = SimulatorRoot;
  return FolderBelow(std::string(root.substr(0, root.find_last_not_of('\\') + 1)), part);
}

using Destination = std::string OptionCatalogue::*;

/// Where a group's sets go, by family and group; null for the three cloud inputs.
constexpr std::array<std::array<Destination, kMostGroups>, kFamilies> kDestinations{{
    {nullptr, nullptr, nullptr, &OptionCatalogue::DestinationCirrus},
    {&OptionCatalogue::SkyDestination, &OptionCatalogue::SkyDestination,
     &OptionCatalogue::SkyDestination, &OptionCatalogue::SkyDestination},
    {&OptionCatalogue::DestinationWater, &OptionCatalogue::DestinationWater,
     &OptionCatalogue::DestinationWaves, nullptr},
}};

/// The names in a set folder. A set path that names a file or nothing has none.
std::vector<std::string> SetFiles(const std::string& folder, platform::FileStatus& status) {
  return platform::ListFiles(folder + "*.*",
                             platform::kReadOnly | platform::kHidden | platform::kSystem, &status);
}

/// Written files by the folded name of their host path, under which two spellings are one file.
class Collection {
 public:
  explicit Collection(UnreadPlace& unread) : unread_(unread) {}

  /// Null for what no install writes.
  WrittenFile* Find(const std::string& target) {
    platform::FileStatus status = platform::FileStatus::kOk;
    std::string host = platform::HostPath(target, &status);
    Note(target, status);
    if (!MayBeWritten(target)) {
      return nullptr;
    }
    WrittenFile* const file = &files_[platform::FoldName(host)];
    file->target = std::move(host);
    return file;
  }

  void AddCopy(const FileCopy& copy) {
    if (WrittenFile* const file = Find(copy.target); file != nullptr) {
      file->sources.push_back(copy.source);
    }
  }

  void AddRoute(const CopyRoute& route) {
    const CopyPlan plan = PlanCopies(route);
    Note(route.source, plan.listed);
    for (const FileCopy& copy : plan.copies) {
      AddCopy(copy);
    }
  }

  std::vector<WrittenFile> Take() {
    std::vector<WrittenFile> files;
    for (auto& [key, file] : files_) {
      files.push_back(std::move(file));
    }
    return files;
  }

 private:
  void Note(const std::string& path, platform::FileStatus status) {
    if (platform::IsUnread(status)) {
      unread_ = {path, status};
    }
  }

  bool MayBeWritten(const std::string& target) {
    platform::FileStatus status = platform::FileStatus::kOk;
    const bool may = !target.empty() &&
                     platform::FolderExists(target.substr(0, target.find_last_of("\\/"))) &&
                     platform::LiesWithin(target, SimulatorRoot, &status);
    Note(target, status);
    return may;
  }

  UnreadPlace& unread_;
  std::map<std::string, WrittenFile> files_;
};

void AddSets(Collection& files) {
  for (const OptionGroup& group : kOptionGroups) {
    const auto family = static_cast<std::size_t>(group.family);
    const std::int32_t highest =
        Catalogue.HighestIndex[family][static_cast<std::size_t>(group.index)];
    for (std::int32_t option = 0; option <= highest; ++option) {
      files.AddRoute(SetRoute(group.family, group.index, static_cast<std::int16_t>(option)));
    }
  }
}

}  // namespace

std::string SunBackupFolder() { return platform::ApplicationFolder() + "\\Backups\\TEX\\"; }

std::string SimulatorTextures() { return SimulatorRoot + "Texture\\"; }

std::string SimulatorEffects() { return SimulatorRoot + "Effects\\"; }

std::string ComposedCumulus() {
  return platform::ApplicationFolder() + "\\TempBitmaps\\cumulus01.bmp";
}

std::string CumulusTarget() {
  return Catalogue.CloudDestination.empty() ? std::string()
                                            : SimulatorRoot + Catalogue.CloudDestination;
}

CopyRoute SetRoute(std::int16_t family, std::int16_t group, std::int16_t option) {
  const Destination destination =
      kDestinations[static_cast<std::size_t>(family)][static_cast<std::size_t>(group)];
  if (destination == nullptr) {
    return {};
  }
  return {SourceFolder(Catalogue.At(family, group, option).Textures),
          DestinationFolder(Catalogue.*destination)};
}

CopyRoute FixedRoute(FixedFolder folder) {
  return {SourceFolder(kFixedFolders[static_cast<std::size_t>(folder)]),
          DestinationFolder("Texture")};
}

CopyRoute SunRoute() {
  return {platform::ApplicationFolder() + "\\Data\\Sun\\", SimulatorTextures()};
}

CopyPlan PlanCopies(const CopyRoute& route) {
  CopyPlan plan;
  if (route.source.empty() || route.destination.empty()) {
    return plan;
  }
  const std::vector<std::string> names = SetFiles(route.source, plan.listed);
  plan.found = names.size();
  for (std::size_t i = 0; i < std::min(names.size(), kMostFiles); ++i) {
    const std::string target = platform::Trim(names[i]);
    plan.copies.push_back(
        {route.source + names[i], target.empty() ? std::string() : route.destination + target});
  }
  return plan;
}

std::vector<WrittenFile> FilesThatInstallsWrite(UnreadPlace& unread) {
  unread = {};
  Collection files(unread);
  AddSets(files);
  for (const FixedFolder folder :
       {FixedFolder::kCld, FixedFolder::kCumulus, FixedFolder::kStratus}) {
    files.AddRoute(FixedRoute(folder));
  }
  files.AddRoute(SunRoute());
  for (const char* file : kSunFiles) {
    files.Find(SimulatorTextures() + file);  // what comes back from the backups is its own
  }
  files.AddCopy({ComposedCumulus(), CumulusTarget()});
  for (const ContrailEffect& effect : kContrailEffects) {
    if (WrittenFile* const file = files.Find(SimulatorEffects() + effect.file); file != nullptr) {
      file->edited = true;
    }
  }
  return files.Take();
}

}  // namespace nimbrel
