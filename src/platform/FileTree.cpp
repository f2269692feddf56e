#include "platform/FileTree.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

#include "platform/Descriptor.h"
#include "platform/FileSystem.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

FileStatus StatusOf(const std::error_code& error) {
  return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory
             ? FileStatus::kNoSource
             : StatusFromErrno(error.value());
}

EntryKind KindOf(const fs::file_status& status) {
  switch (status.type()) {
    case fs::file_type::none:
    case fs::file_type::not_found:
      return EntryKind::kNone;
    case fs::file_type::regular:
      return EntryKind::kFile;
    case fs::file_type::directory:
      return EntryKind::kFolder;
    case fs::file_type::symlink:
      return EntryKind::kLink;
    default:
      return EntryKind::kOther;
  }
}

/// `folder`: empty, or a path from the tree's root on with a slash at the end.
void AddTo(FolderTree& tree, const std::string& root, const std::string& folder) {
  std::vector<FolderEntry> entries;
  const std::string host = root + "/" + folder;
  if (const FileStatus status = ListFolder(host, entries); status != FileStatus::kOk) {
    tree.status = status;
    tree.unread = host.substr(0, host.size() - 1);
    return;
  }
  for (const FolderEntry& entry : entries) {
    if (entry.kind == EntryKind::kFolder) {
      tree.folders.push_back(folder + entry.name);
      AddTo(tree, root, folder + entry.name + "/");
    } else {
      tree.files.push_back(folder + entry.name);
    }
  }
}

}  // namespace

EntryKind KindOf(const std::string& host) {
  std::error_code ignored;
  return KindOf(fs::symlink_status(host, ignored));
}

FileStatus FileSize(const std::string& host, std::uintmax_t& size) {
  std::error_code error;
  size = fs::file_size(host, error);
  return StatusOf(error);
}

FileStatus RealPath(const std::string& host, std::string& real) {
  std::error_code error;
  real = fs::canonical(host, error).string();
  return StatusOf(error);
}

FileStatus ListFolder(const std::string& host, std::vector<FolderEntry>& entries) {
  std::error_code error;
  for (fs::directory_iterator it(host, error), end; !error && it != end; it.increment(error)) {
    std::error_code unknown;
    entries.push_back({it->path().filename().string(), KindOf(it->symlink_status(unknown))});
  }
  std::sort(entries.begin(), entries.end(),
            [](const FolderEntry& a, const FolderEntry& b) { return a.name < b.name; });
  return StatusOf(error);
}

FolderTree ListTree(const std::string& host) {
  FolderTree tree;
  AddTo(tree, host, "");
  std::sort(tree.files.begin(), tree.files.end());
  return tree;
}

FileStatus MakeFolders(FileSystem& files, std::string_view path) {
  if (files.FolderExists(path)) {
    return FileStatus::kOk;
  }
  const std::size_t cut = path.find_last_of("\\/");
  if (cut != std::string_view::npos && cut > 0) {
    if (const FileStatus status = MakeFolders(files, path.substr(0, cut));
        status != FileStatus::kOk) {
      return status;
    }
  }
  return files.CreateFolder(path);
}

FileStatus RemoveEntry(const std::string& host) {
  std::error_code error;
  fs::remove(host, error);
  return error == std::errc::directory_not_empty ? FileStatus::kOk : StatusOf(error);
}

FileStatus RenameEntry(const std::string& host, const std::string& new_host) {
  std::error_code error;
  fs::rename(host, new_host, error);
  return StatusOf(error);
}

FileStatus AllowExecution(const std::string& host) {
  constexpr auto kExecute = fs::perms::owner_exec | fs::perms::group_exec | fs::perms::others_exec;
  std::error_code error;
  fs::permissions(host, kExecute, fs::perm_options::add, error);
  return StatusOf(error);
}

FileStatus FreeSpace(const std::string& host, std::uintmax_t& bytes) {
  std::error_code error;
  bytes = fs::space(host, error).available;
  return StatusOf(error);
}

bool IsBeingRun(const std::string& host) {
  const Descriptor file(open(host.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC));
  return !file.IsOpen() && errno == ETXTBSY;
}

}  // namespace platform
