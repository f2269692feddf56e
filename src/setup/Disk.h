#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStatus.h"
#include "platform/FileSystem.h"
#include "platform/FileTree.h"
#include "settings/Folders.h"

namespace nimbrel {

/// The largest file that the command reads into memory; those of a simulator are far smaller.
inline constexpr std::size_t kMaxFileBytes = std::size_t{1} << 30U;

/// Throws ActionFailed with the path for any status but kOk.
void Require(platform::FileStatus status, std::string_view path);

/// The command's files: where a failure ends the command, the call throws ActionFailed. What is
/// told file by file goes through `files`, which returns a status.
class Disk {
 public:
  platform::FileSystem files{kTemporaryPrefix};

  /// The host's path. A folder along it that can't be listed is a failure: a file in it must not
  /// be taken for absent.
  std::string HostPath(std::string_view path);
  bool HasFile(std::string_view path);

  std::vector<std::byte> Read(std::string_view path);
  /// True if both files exist and have the same bytes.
  bool SameContent(const std::string& a, const std::string& b);

  /// What is in a folder, here and below, temporaries left out. Empty if it does not exist.
  platform::FolderTree Tree(std::string_view folder);
  /// Its own entries alone.
  std::vector<platform::FolderEntry> List(std::string_view folder);

  void MakeFolders(std::string_view folder);
  /// Copies a file, on disk when it returns; makes the folders of the new one.
  void Copy(const std::string& source, const std::string& target);

  /// As platform::RemoveEntry.
  void Remove(const std::string& host);
  /// Removes a folder with all that is in it.
  void RemoveTree(const std::string& host);
  /// Removes the folders in a folder that have no file on any level, and the folder itself then.
  void RemoveEmptyFolders(const std::string& host);
  /// In a folder and those below it.
  void SweepTemporaries(std::string_view folder);
};

}  // namespace nimbrel
