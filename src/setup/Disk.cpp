#include "setup/Disk.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

#include "settings/Failure.h"

namespace nimbrel {

using platform::FileStatus;

namespace {
std::string PathIn(const std::string& folder, const std::string& name) {
  return folder + "/" + name;
}
}  // namespace

void Require(FileStatus status, std::string_view path) {
  if (status != FileStatus::kOk) {
    throw ActionFailed(path, status);
  }
}

std::string Disk::HostPath(std::string_view path) {
  FileStatus status = FileStatus::kOk;
  std::string host = files.HostPath(path, &status);
  Require(status, path);
  return host;
}

bool Disk::HasFile(std::string_view path) { return files.FileExists(HostPath(path)); }

std::vector<std::byte> Disk::Read(std::string_view path) {
  FileStatus status = FileStatus::kOk;
  std::optional<std::vector<std::byte>> bytes = files.ReadFile(path, kMaxFileBytes, &status);
  Require(status, path);
  return std::move(*bytes);
}

bool Disk::SameContent(const std::string& a, const std::string& b) {
  if (!files.FileExists(a) || !files.FileExists(b)) {
    return false;
  }
  std::uintmax_t size_a{};
  std::uintmax_t size_b{};
  Require(platform::FileSize(HostPath(a), size_a), a);
  Require(platform::FileSize(HostPath(b), size_b), b);
  return size_a == size_b && Read(a) == Read(b);
}

platform::FolderTree Disk::Tree(std::string_view folder) {
  const std::string host = HostPath(folder);
  platform::FolderTree tree = platform::ListTree(host);
  if (tree.unread == host && tree.status == FileStatus::kNoSource) {
    return {};
  }
  Require(tree.status, tree.unread);
  std::erase_if(tree.files, [this](const std::string& file) {
    return files.IsTemporary(std::filesystem::path(file).filename().string());
  });
  return tree;
}

std::vector<platform::FolderEntry> Disk::List(std::string_view folder) {
  std::vector<platform::FolderEntry> entries;
  const FileStatus status = platform::ListFolder(HostPath(folder), entries);
  if (status != FileStatus::kNoSource) {
    Require(status, folder);
  }
  return entries;
}

void Disk::MakeFolders(std::string_view folder) {
  Require(platform::MakeFolders(files, folder), folder);
}

void Disk::Copy(const std::string& source, const std::string& target) {
  MakeFolders(std::filesystem::path(target).parent_path().string());
  const FileStatus status = files.CopyOver(source, target, platform::Durability::kFlushedRename);
  Require(status, status == FileStatus::kNoSource ? source : target);
}

void Disk::Remove(const std::string& host) { Require(platform::RemoveEntry(host), host); }

void Disk::RemoveTree(const std::string& host) {
  for (const std::string& file : platform::ListTree(host).files) {
    Remove(PathIn(host, file));
  }
  RemoveEmptyFolders(host);
}

void Disk::RemoveEmptyFolders(const std::string& host) {
  std::vector<std::string> below = Tree(host).folders;
  std::reverse(below.begin(), below.end());
  for (const std::string& path : below) {
    Remove(PathIn(host, path));
  }
  Remove(host);
}

void Disk::SweepTemporaries(std::string_view folder) {
  const std::string host = HostPath(folder);
  if (!files.FolderExists(host)) {
    return;
  }
  Require(files.SweepTemporaries(host), host);
  for (const std::string& below : Tree(host).folders) {
    const std::string path = PathIn(host, below);
    Require(files.SweepTemporaries(path), path);
  }
}

}  // namespace nimbrel
