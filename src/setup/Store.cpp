#include "setup/Store.h"

#include <filesystem>

#include "platform/checksum.h"
#include "setup/Disk.h"
#include "setup/Places.h"

namespace nimbrel {

namespace fs = std::filesystem;
using platform::FileStatus;

std::string Store::ListFile() const { return places_.originals + "/manifest"; }
std::string Store::FilesFolder() const { return places_.originals + "/files"; }

std::optional<Manifest> Store::ReadList() const { return ReadManifest(disk_.files, ListFile()); }

void Store::WriteList(const Manifest& manifest) const {
  WriteManifest(disk_.files, ListFile(), manifest);
}

std::string Store::InSimulator(const std::string& path, FileStatus* status) const {
  return disk_.files.HostPath(places_.simulator + "/" + path, status);
}

std::string Store::Copy(const std::string& path) const {
  return disk_.HostPath(FilesFolder() + "/" + path);
}

bool Store::Matches(const std::string& host, const Original& original) const {
  std::uintmax_t size{};
  if (platform::FileSize(host, size) != FileStatus::kOk || size != original.size) {
    return false;
  }
  const auto bytes = disk_.files.ReadFile(host, kMaxFileBytes);
  return bytes && platform::Sha256(*bytes) == original.checksum;
}

Reach Store::ReachOf(const std::string& host, FileStatus& status) const {
  const std::string folder = fs::path(host).parent_path().string();
  platform::FileSystem& files = disk_.files;
  const bool inside = files.LiesWithin(folder, places_.simulator, &status);
  const bool stored = status == FileStatus::kOk && files.FolderExists(places_.originals) &&
                      files.LiesWithin(folder, places_.originals, &status);
  if (status != FileStatus::kOk) {
    return Reach::kUnknown;
  }
  return inside && !stored ? Reach::kInside : Reach::kOutside;
}

bool Store::IsUnfinished() const {
  return !disk_.files.FileExists(ListFile()) && !disk_.List(FilesFolder()).empty();
}

void Store::Open() const {
  disk_.MakeFolders(places_.originals);
  disk_.SweepTemporaries(places_.originals);
}

void Store::Remove(bool made_modules) const {
  disk_.RemoveTree(FilesFolder());
  disk_.SweepTemporaries(places_.originals);
  disk_.Remove(ListFile());
  disk_.Remove(places_.originals);
  if (made_modules) {
    disk_.Remove(places_.modules);
  }
}

}  // namespace nimbrel
