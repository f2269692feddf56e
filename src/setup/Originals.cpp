#include "setup/Originals.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <system_error>
#include <utility>

#include "install/CopyPlan.h"
#include "platform/checksum.h"
#include "platform/text.h"

namespace nimbrel {
namespace {

namespace fs = std::filesystem;
using platform::FileStatus;

std::string ManifestFile(const Places& places) { return places.originals + "/manifest"; }
std::string FilesFolder(const Places& places) { return places.originals + "/files"; }

std::string InSimulator(const Places& places, const std::string& path,
                        FileStatus* status = nullptr) {
  return platform::HostPath(places.simulator + "/" + path, status);
}

bool Exists(const std::string& host) {
  std::error_code ignored;
  return fs::exists(fs::symlink_status(host, ignored));
}

/// kOutside for what lies in the store, which is no original, or out of the simulator, where a link
/// may lead that has come since the list was written; else how the look at it went.
FileStatus MayTouch(const Places& places, const std::string& host) {
  const std::string folder = fs::path(host).parent_path().string();
  FileStatus status = FileStatus::kOk;
  const bool inside = platform::LiesWithin(folder, places.simulator, &status);
  const bool stored = status == FileStatus::kOk && platform::FolderExists(places.originals) &&
                      platform::LiesWithin(folder, places.originals, &status);
  return status == FileStatus::kOk && (!inside || stored) ? FileStatus::kOutside : status;
}

/// Whether a file has the content of an original. One that can't be read has not.
bool Holds(const std::string& host, const Original& original) {
  std::error_code error;
  if (!platform::FileExists(host) || fs::file_size(host, error) != original.size || error) {
    return false;
  }
  const auto bytes = platform::ReadFile(host, kMostBytes);
  return bytes && platform::Sha256(*bytes) == original.checksum;
}

/// An install writes the history before it moves any texture.
bool InstallsMade(const Places& places) {
  return FileIsThere(places.program + "/Data/History.nbh") ||
         FileIsThere(places.program + "/TempBitmaps/cumulus01.bmp");
}

/// Whether an install has been at the file. Without any install it has not, also where the pack
/// brings the simulator's own file among its options. After one, a file that is as the pack has it
/// counts as the pack's.
bool MayBeInstalled(const WrittenFile& file, bool installs_made) {
  if (!installs_made) {
    return false;
  }
  return file.edited ||
         std::any_of(file.sources.begin(), file.sources.end(), [&](const std::string& source) {
           const std::string host = HostOf(source);
           return platform::FileExists(host) && SameContent(host, file.target);
         });
}

void PlanFile(const Places& places, const WrittenFile& file, bool installs_made, KeepPlan& plan) {
  std::string path = file.target.substr(places.simulator.size() + 1);
  const FileStatus touch = MayTouch(places, file.target);
  if (touch == FileStatus::kOutside) {
    return;
  }
  if (touch != FileStatus::kOk) {
    throw SetupFailure(file.target, touch);
  }
  if (!Exists(file.target)) {
    plan.absent.push_back(std::move(path));
  } else if (!platform::FileExists(file.target)) {
    return;  // a folder of that name: no install can replace it
  } else if (!MayBeInstalled(file, installs_made)) {
    plan.bytes += fs::file_size(file.target);
    plan.keep.push_back(std::move(path));
  } else if (platform::FileExists(StoredFile(places, path))) {
    plan.stored.push_back(std::move(path));
  } else {
    plan.unknown.push_back(std::move(path));
  }
}

/// A manifest vouches only for what is still in the store.
void PlanAgain(const Places& places, const Original& original, KeepPlan& plan) {
  if (original.was != Was::kKept || Holds(StoredFile(places, original.path), original)) {
    return;
  }
  if (Holds(InSimulator(places, original.path), original)) {
    plan.bytes += original.size;
    plan.again.push_back(original.path);
  } else {
    plan.lost.push_back(original.path);
  }
}

/// Modules counts as brought by Nimbrel also when it stands there empty: a setup that was killed
/// right after making it leaves it so.
bool MakesModules(const Places& places) {
  if (!platform::FolderExists(places.modules)) {
    return true;
  }
  return std::all_of(fs::directory_iterator(places.modules), fs::directory_iterator(),
                     [&](const fs::directory_entry& entry) {
                       return entry.path() == places.program || entry.path() == places.originals;
                     });
}

/// Takes the facts from the store's copy: they vouch for what a restore will read.
Original FactsOf(const Places& places, const std::string& path) {
  const std::vector<std::byte> bytes = BytesOf(StoredFile(places, path));
  return {
      .path = path, .was = Was::kKept, .size = bytes.size(), .checksum = platform::Sha256(bytes)};
}

void Store(const Places& places, const std::string& path) {
  const std::string source = InSimulator(places, path);
  const std::string stored = StoredFile(places, path);
  if (!platform::FileExists(stored) || !SameContent(source, stored)) {
    CopyIn(source, stored);
  }
}

FileStatus SetLetterCase(const Places& places, const std::string& path) {
  FileStatus status = FileStatus::kOk;
  const fs::path host = InSimulator(places, path, &status);
  const fs::path wanted = host.parent_path() / fs::path(path).filename();
  std::error_code error;
  if (host != wanted) {
    fs::rename(host, wanted, error);
  }
  return error ? FileStatus::kOther : status;
}

FileStatus BringBack(const Places& places, const std::string& path) {
  const FileStatus status =
      platform::CopyOver(StoredFile(places, path), InSimulator(places, path),
                         platform::Durability::kFlushedRename, {}, places.simulator);
  return status == FileStatus::kOk ? SetLetterCase(places, path) : status;
}

FileStatus TakeAway(const Places& places, const std::string& path) {
  return platform::DeleteFile(InSimulator(places, path));
}

void PlanOriginal(const Places& places, const Original& original, RestorePlan& plan) {
  FileStatus status = FileStatus::kOk;
  const std::string host = InSimulator(places, original.path, &status);
  if (original.was == Was::kUnknown) {
    plan.unknown.push_back(original.path);
  } else if (status != FileStatus::kOk) {
    plan.unseen.push_back({original.path, status});
  } else if (original.was == Was::kAbsent) {
    if (Exists(host)) {
      plan.take_away.push_back(original.path);
    }
  } else if (Holds(host, original)) {
    if (fs::path(host).filename() != fs::path(original.path).filename()) {
      plan.rename.push_back(original);
    }
  } else if (Holds(StoredFile(places, original.path), original)) {
    plan.bring_back.push_back(original);
  } else {
    plan.lost.push_back(original.path);
  }
}

/// What installs that were killed left half-written beside the originals.
void RemoveTemporariesOfInstalls(const Places& places, const Manifest& manifest,
                                 std::vector<NotRestored>& failures) {
  std::map<std::string, std::string> folders;  // with a file in each
  for (const Original& original : manifest.originals) {
    const std::string host = InSimulator(places, original.path);
    folders.emplace(fs::path(host).parent_path().string(), host);
  }
  for (const auto& [folder, file] : folders) {
    FileStatus status = MayTouch(places, file);
    status = status == FileStatus::kOk ? platform::RemoveTemporaries(folder) : status;
    if (status != FileStatus::kOk && status != FileStatus::kOutside) {
      failures.push_back({folder + "/" + std::string(platform::kTemporaryPattern), status});
    }
  }
}

}  // namespace

std::optional<Manifest> ReadOriginals(const Places& places) {
  return ReadManifest(ManifestFile(places));
}

KeepPlan PlanKeeping(const Places& places, const Manifest& known) {
  const bool installs_made = InstallsMade(places);
  KeepPlan plan;
  std::set<std::string> known_names;
  for (const Original& original : known.originals) {
    known_names.insert(platform::FoldName(original.path));
    PlanAgain(places, original, plan);
  }
  UnreadPlace unread;
  const std::vector<WrittenFile> files = FilesThatInstallsWrite(unread);
  if (!unread.path.empty()) {
    throw SetupFailure(unread.path, unread.status);  // what hides there would be lost
  }
  for (const WrittenFile& file : files) {
    const std::string name = platform::FoldName(file.target.substr(places.simulator.size() + 1));
    if (!known_names.contains(name)) {
      PlanFile(places, file, installs_made, plan);
    }
  }
  return plan;
}

void Keep(const Places& places, const KeepPlan& plan, Manifest& manifest) {
  if (manifest.originals.empty()) {
    manifest.made_modules = MakesModules(places);
  }
  MakeFolders(places.originals);
  RemoveTemporariesBelow(places.originals);
  for (const auto* paths : {&plan.again, &plan.keep}) {
    for (const std::string& path : *paths) {
      Store(places, path);
    }
  }
  for (const auto* paths : {&plan.keep, &plan.stored}) {
    for (const std::string& path : *paths) {
      manifest.originals.push_back(FactsOf(places, path));
    }
  }
  for (const auto& [was, paths] :
       {std::pair{Was::kAbsent, &plan.absent}, {Was::kUnknown, &plan.unknown}}) {
    for (const std::string& path : *paths) {
      manifest.originals.push_back({.path = path, .was = was, .size = 0, .checksum = {}});
    }
  }
  WriteManifest(ManifestFile(places), manifest);
}

RestorePlan PlanRestoring(const Places& places, const Manifest& manifest) {
  RestorePlan plan;
  for (const Original& original : manifest.originals) {
    PlanOriginal(places, original, plan);
  }
  return plan;
}

std::vector<NotRestored> Restore(const Places& places, const Manifest& manifest,
                                 const RestorePlan& plan) {
  std::vector<NotRestored> failures = plan.unseen;
  const auto act = [&](const std::string& path, auto&& step) {
    FileStatus status = MayTouch(places, InSimulator(places, path));
    status = status == FileStatus::kOk ? step(places, path) : status;
    if (status != FileStatus::kOk) {
      failures.push_back({path, status});
    }
  };
  for (const Original& original : plan.bring_back) {
    act(original.path, BringBack);
  }
  for (const Original& original : plan.rename) {
    act(original.path, SetLetterCase);
  }
  for (const std::string& path : plan.take_away) {
    act(path, TakeAway);
  }
  RemoveTemporariesOfInstalls(places, manifest, failures);
  return failures;
}

std::string StoredFile(const Places& places, const std::string& path) {
  return HostOf(FilesFolder(places) + "/" + path);
}

bool HoldsFilesWithoutManifest(const Places& places) {
  std::error_code ignored;
  return !platform::FileExists(ManifestFile(places)) && fs::exists(FilesFolder(places), ignored) &&
         !fs::is_empty(FilesFolder(places), ignored);
}

void RemoveOriginals(const Places& places, bool made_modules) {
  fs::remove_all(FilesFolder(places));
  RemoveTemporariesIn(places.originals);
  fs::remove(ManifestFile(places));
  fs::remove(places.originals);
  if (made_modules && fs::is_empty(places.modules)) {
    fs::remove(places.modules);
  }
}

}  // namespace nimbrel
