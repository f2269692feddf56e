#include "setup/Program.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <string_view>

#include "install/CopyPlan.h"
#include "platform/files.h"
#include "platform/text.h"
#include "setup/Originals.h"

namespace nimbrel {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kInformation = "NB_Information.cfg";
constexpr std::string_view kHistory = "Data/History.nbh";

/// What a pack that was lifted out of another simulator carries along and must not bring here: the
/// program, the other simulator's sun, what was made and installed there.
constexpr std::array<std::string_view, 4> kNotOfAPack{"nimbrel", "Backups/", "TempBitmaps/",
                                                      kHistory};
constexpr std::array<std::string_view, 1> kArtwork{"Media/"};
constexpr std::array<std::string_view, 1> kSets{"Data/"};
/// What setup and program make in the program's folder.
constexpr std::array<std::string_view, 2> kMadeHere{"nimbrel", "TempBitmaps/"};
constexpr std::array<std::string_view, 1> kBackups{"Backups/TEX/"};

/// Whether a path is one of a list, or lies in a folder of it that ends in a slash.
template <std::size_t kCount>
bool IsAmong(const std::string& path, const std::array<std::string_view, kCount>& list) {
  return std::any_of(list.begin(), list.end(), [&](std::string_view entry) {
    return entry.ends_with('/') ? platform::SameName(path.substr(0, entry.size()), entry)
                                : platform::SameName(path, entry);
  });
}

/// Half-written by a killed run, and no file of anybody.
bool IsTemporary(const fs::path& file) {
  constexpr std::string_view kStart =
      platform::kTemporaryPattern.substr(0, platform::kTemporaryPattern.find('*'));
  return file.filename().string().starts_with(kStart);
}

/// Files below a folder, from it on, sorted. Links to folders count as files: they are not entered.
std::vector<std::string> FilesBelow(const std::string& folder) {
  std::vector<std::string> files;
  if (!platform::FolderExists(folder)) {
    return files;
  }
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
    if ((entry.is_symlink() || !entry.is_directory()) && !IsTemporary(entry.path())) {
      files.push_back(entry.path().string().substr(folder.size() + 1));
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string BackupFolder(const Places& places) { return places.program + "/Backups/TEX/"; }

bool IsWanted(const Places& places, const PutPlan& plan, const std::string& file) {
  return (!plan.pack_in_place || IsAmong(file, kArtwork)) && !IsAmong(file, kNotOfAPack) &&
         platform::FileExists(places.from.pack + "/" + file) &&
         !FileIsThere(places.program + "/" + file);
}

void PlanPack(const Places& places, PutPlan& plan) {
  plan.files = FilesBelow(places.from.pack);
  std::erase_if(plan.files, [&](const std::string& file) { return !IsWanted(places, plan, file); });
  // Until the information file is there, the pack counts as not in place and is put there again.
  std::stable_partition(plan.files.begin(), plan.files.end(), [](const std::string& file) {
    return !platform::SameName(file, kInformation);
  });
  for (const std::string& file : plan.files) {
    plan.bytes += fs::file_size(places.from.pack + "/" + file);
  }
}

/// Backups\\TEX is filled from the store, so that a sun that an install has put into the simulator
/// never becomes a backup. A backup that stands there is left as it is.
void PlanSuns(const Places& places, const std::vector<std::string>& kept, PutPlan& plan) {
  for (const char* sun : kSunFiles) {
    const std::string path = HostOf(SimulatorTextures() + sun).substr(places.simulator.size() + 1);
    const auto original = std::find_if(kept.begin(), kept.end(), [&](const std::string& file) {
      return platform::SameName(file, path);
    });
    if (original != kept.end() && !FileIsThere(BackupFolder(places) + sun)) {
      plan.suns.push_back(*original);
    }
  }
}

/// Removes a folder and those below it as far as they are empty.
void RemoveEmptyFolders(const fs::path& folder) {
  std::vector<fs::path> below;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    if (entry.is_directory() && !entry.is_symlink()) {
      below.push_back(entry.path());
    }
  }
  std::for_each(below.begin(), below.end(), RemoveEmptyFolders);
  if (fs::is_empty(folder)) {
    fs::remove(folder);
  }
}

bool IsOurs(const Places& places, const std::string& file) {
  const fs::path here = places.program + "/" + file;
  if (IsAmong(file, kMadeHere) || fs::is_symlink(here)) {
    return !fs::is_symlink(here);
  }
  // A backup that was there before setup may be the only copy of the simulator's sun.
  const std::string twin = IsAmong(file, kBackups)
                               ? StoredFile(places, "Texture/" + here.filename().string())
                               : places.from.pack + "/" + file;
  return SameContent(here.string(), HostOf(twin));
}

/// The program keeps its settings in the information file. That alone makes it nobody's own: left
/// behind without its sets it would pass for a pack in place. With sets of the user's it is theirs.
void SortInformation(TakePlan& plan) {
  const bool own_sets = std::any_of(plan.own.begin(), plan.own.end(), [](const std::string& file) {
    return IsAmong(file, kSets) && !platform::SameName(file, kHistory);
  });
  if (!own_sets && std::erase_if(plan.own, [](const std::string& file) {
                     return platform::SameName(file, kInformation);
                   }) > 0) {
    plan.ours.emplace_back(kInformation);
  }
}

}  // namespace

PutPlan PlanPutting(const Places& places, const std::vector<std::string>& kept) {
  PutPlan plan;
  plan.pack_in_place = FileIsThere(places.PackInPlace());
  plan.bytes = fs::file_size(places.from.program);
  PlanPack(places, plan);
  PlanSuns(places, kept, plan);
  return plan;
}

void PutInPlace(const Places& places, const PutPlan& plan) {
  RemoveTemporariesBelow(places.program);
  for (const std::string& sun : plan.suns) {
    CopyIn(StoredFile(places, sun), BackupFolder(places) + fs::path(sun).filename().string());
  }
  MakeFolders(places.program + "/Favorites");
  for (const std::string& file : plan.files) {
    CopyIn(places.from.pack + "/" + file, places.program + "/" + file);
  }
  CopyIn(places.from.program, places.ProgramFile());
  constexpr auto kToStart = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
  fs::permissions(places.ProgramFile(), kToStart, fs::perm_options::add);
}

TakePlan PlanTaking(const Places& places) {
  TakePlan plan;
  for (std::string& file : FilesBelow(places.program)) {
    (IsOurs(places, file) ? plan.ours : plan.own).push_back(std::move(file));
  }
  SortInformation(plan);
  // First the program: without it no install can begin while the rest goes.
  std::stable_partition(plan.ours.begin(), plan.ours.end(), [&](const std::string& file) {
    return places.program + "/" + file == places.ProgramFile();
  });
  return plan;
}

void TakeOut(const Places& places, const TakePlan& plan, bool own_too) {
  RemoveTemporariesBelow(places.program);
  for (const auto* files : {&plan.ours, &plan.own}) {
    for (const std::string& file : *files) {
      if (files == &plan.ours || own_too) {
        fs::remove(places.program + "/" + file);
      }
    }
  }
  if (platform::FolderExists(places.program)) {
    RemoveEmptyFolders(places.program);
  }
}

}  // namespace nimbrel
