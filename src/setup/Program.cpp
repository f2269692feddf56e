#include "setup/Program.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <ostream>
#include <string_view>
#include <utility>

#include "install/CopyPlan.h"
#include "platform/text.h"
#include "settings/Configuration.h"
#include "settings/Failure.h"
#include "setup/Dialogue.h"
#include "setup/Disk.h"
#include "setup/Places.h"
#include "setup/Store.h"

namespace nimbrel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kInformation = "NB_Information.cfg";
constexpr std::string_view kHistory = "Data/History.nbh";

/// A pack copied out of another simulator also holds these, which must not come along: the program,
/// the other simulator's sun, what was composed and installed there.
constexpr std::array<std::string_view, 4> kNotOfAPack{"nimbrel", "Backups/", "TempBitmaps/",
                                                      kHistory};
constexpr std::array<std::string_view, 1> kArtwork{"Media/"};
constexpr std::array<std::string_view, 1> kSets{"Data/"};
/// What setup and program make in the program's folder.
constexpr std::array<std::string_view, 2> kMadeHere{"nimbrel", "TempBitmaps/"};
constexpr std::array<std::string_view, 1> kBackups{"Backups/TEX/"};

/// True for a path of the list, and for one in a folder of the list, which ends in a slash.
template <std::size_t kCount>
bool IsAmong(const std::string& path, const std::array<std::string_view, kCount>& list) {
  return std::any_of(list.begin(), list.end(), [&](std::string_view entry) {
    return entry.ends_with('/') ? platform::SameName(path.substr(0, entry.size()), entry)
                                : platform::SameName(path, entry);
  });
}

std::string BackupOf(const Places& places, const std::string& sun) {
  return places.program + "/Backups/TEX/" + fs::path(sun).filename().string();
}

std::uintmax_t SizeOfFile(const std::string& host) {
  std::uintmax_t size{};
  Require(platform::FileSize(host, size), host);
  return size;
}

void PlanPack(Disk& disk, const Places& places, const std::string& pack, DeliveryPlan& plan) {
  const std::string source = pack + "/";
  const std::string target = places.program + "/";
  plan.files = disk.Tree(pack).files;
  std::erase_if(plan.files, [&](const std::string& file) {
    return (plan.pack_in_place && !IsAmong(file, kArtwork)) || IsAmong(file, kNotOfAPack) ||
           !disk.files.FileExists(source + file) || disk.HasFile(target + file);
  });
  // Until the information file exists, the pack counts as not in place and is copied again.
  std::stable_partition(plan.files.begin(), plan.files.end(), [](const std::string& file) {
    return !platform::SameName(file, kInformation);
  });
  for (const std::string& file : plan.files) {
    plan.bytes += SizeOfFile(disk.HostPath(source + file));
  }
}

/// The backups are copies of the originals: a sun that an install has put into the simulator never
/// becomes a backup. An existing backup stays as it is.
void PlanSuns(Disk& disk, const Places& places, const std::vector<std::string>& kept,
              DeliveryPlan& plan) {
  for (const char* sun : kSunFiles) {
    const std::string path = std::string("Texture/") + sun;
    const auto original = std::find_if(kept.begin(), kept.end(), [&](const std::string& file) {
      return platform::SameName(file, path);
    });
    if (original != kept.end() && !disk.HasFile(BackupOf(places, path))) {
      plan.suns.push_back(*original);
    }
  }
}

bool IsOurs(const Store& store, const std::string& pack, const std::string& file) {
  const Places& places = store.places();
  const std::string here = places.program + "/" + file;
  if (platform::KindOf(here) == platform::EntryKind::kLink) {
    return false;
  }
  if (IsAmong(file, kMadeHere)) {
    return true;
  }
  // A backup older than the first setup may be the only copy of the simulator's sun.
  const std::string twin = IsAmong(file, kBackups)
                               ? store.Copy("Texture/" + fs::path(file).filename().string())
                               : pack + "/" + file;
  return store.disk().SameContent(here, twin);
}

/// The information file holds settings too, but without sets of the user's it is not worth keeping:
/// left alone in the folder it would pass for a pack in place. With such sets it is the user's.
void SortInformation(RemovalPlan& plan) {
  const bool users_sets =
      std::any_of(plan.users.begin(), plan.users.end(), [](const std::string& file) {
        return IsAmong(file, kSets) && !platform::SameName(file, kHistory);
      });
  if (!users_sets && std::erase_if(plan.users, [](const std::string& file) {
                       return platform::SameName(file, kInformation);
                     }) > 0) {
    plan.ours.emplace_back(kInformation);
  }
}

}  // namespace

Folders FoldersOfPack(Disk& disk, const Places& places, const SetupSources& sources) {
  const bool in_place = disk.HasFile(places.InformationFile());
  return {in_place ? places.program : sources.pack, places.simulator + "\\"};
}

Catalogue ReadPack(Disk& disk, const Folders& folders) {
  const std::string information = InformationFile(folders);
  if (!disk.HasFile(information)) {
    throw ActionFailed("There is no texture pack, with an NB_Information.cfg, in " +
                       folders.program);
  }
  try {
    return ReadCatalogue(folders);
  } catch (const ActionFailed& failure) {
    throw ActionFailed(disk.HostPath(information) + " can't be read: " + failure.what());
  }
}

DeliveryPlan PlanDelivery(Disk& disk, const Places& places, const SetupSources& sources,
                          const std::vector<std::string>& kept) {
  DeliveryPlan plan;
  plan.pack_in_place = disk.HasFile(places.InformationFile());
  plan.bytes = SizeOfFile(sources.program);
  PlanPack(disk, places, sources.pack, plan);
  PlanSuns(disk, places, kept, plan);
  return plan;
}

void AnnounceDelivery(std::ostream& out, const Places& places, const SetupSources& sources,
                      const DeliveryPlan& plan) {
  Announce(out, plan.suns, "back up the simulator's own sun for Nimbrel");
  if (plan.pack_in_place && !plan.files.empty()) {
    out << "  * add missing artwork (" << CountOf(plan.files.size()) << ")\n";
  } else if (!plan.files.empty()) {
    out << "  * copy the texture pack " << sources.pack << '\n'
        << "    (" << CountOf(plan.files.size()) << ") into " << places.program << '\n';
  }
  out << "  * copy the program there: " << places.ProgramFile() << '\n';
}

void Deliver(const Store& store, const SetupSources& sources, const DeliveryPlan& plan) {
  Disk& disk = store.disk();
  const Places& places = store.places();
  disk.SweepTemporaries(places.program);
  for (const std::string& sun : plan.suns) {
    disk.Copy(store.Copy(sun), BackupOf(places, sun));
  }
  disk.MakeFolders(places.program + "/Favorites");
  for (const std::string& file : plan.files) {
    disk.Copy(sources.pack + "/" + file, places.program + "/" + file);
  }
  disk.Copy(sources.program, places.ProgramFile());
  Require(platform::AllowExecution(disk.HostPath(places.ProgramFile())), places.ProgramFile());
}

RemovalPlan PlanRemoval(const Store& store, const SetupSources& sources) {
  RemovalPlan plan;
  for (std::string& file : store.disk().Tree(store.places().program).files) {
    (IsOurs(store, sources.pack, file) ? plan.ours : plan.users).push_back(std::move(file));
  }
  SortInformation(plan);
  // First the program: without it no install can begin while the rest is removed.
  std::stable_partition(plan.ours.begin(), plan.ours.end(),
                        [](const std::string& file) { return file == "nimbrel"; });
  return plan;
}

void RemoveProgram(Disk& disk, const Places& places, const RemovalPlan& plan, bool users_too) {
  disk.SweepTemporaries(places.program);
  for (const auto* files : {&plan.ours, &plan.users}) {
    for (const std::string& file : *files) {
      if (files == &plan.ours || users_too) {
        disk.Remove(places.program + "/" + file);
      }
    }
  }
  disk.RemoveEmptyFolders(places.program);
}

}  // namespace nimbrel
