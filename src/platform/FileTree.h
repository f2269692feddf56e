#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStatus.h"

namespace platform {

class FileSystem;

/// Whole folders, and what FileSystem does not tell of an entry. Nothing here throws.
///
/// Paths named `host` are the host's own, as FileSystem::HostPath gives them: the name of a listed
/// file may hold a backslash, which no composed path can.

enum class EntryKind : std::uint8_t { kNone, kFile, kFolder, kLink, kOther };

/// Links are not followed. kNone also if the entry can't be examined.
EntryKind KindOf(const std::string& host);

/// The size of a file in bytes, links followed.
FileStatus FileSize(const std::string& host, std::uintmax_t& size);

/// The path with every link resolved. kNoSource if it does not exist.
FileStatus RealPath(const std::string& host, std::string& real);

struct FolderEntry {
  std::string name;
  EntryKind kind;
};
/// What a folder holds, sorted by name. kNoSource if it does not exist.
FileStatus ListFolder(const std::string& host, std::vector<FolderEntry>& entries);

/// What a folder holds on all levels, as paths from that folder on.
struct FolderTree {
  std::vector<std::string> files;    ///< all but folders; a link to a folder is not entered
  std::vector<std::string> folders;  ///< each before those in it
  FileStatus status = FileStatus::kOk;
  std::string unread;  ///< the folder whose listing failed with `status`; the rest is incomplete
};
FolderTree ListTree(const std::string& host);

/// Makes a folder and all missing ones above it.
FileStatus MakeFolders(FileSystem& files, std::string_view path);

/// Removes a file, also a read-only one, a link, or an empty folder. kOk also if it does not exist
/// or is a folder that is not empty.
FileStatus RemoveEntry(const std::string& host);

/// Renames an entry within its folder.
FileStatus RenameEntry(const std::string& host, const std::string& new_host);

/// Lets everybody execute a file.
FileStatus AllowExecution(const std::string& host);

/// The bytes that an ordinary user may still write to the device of a folder.
FileStatus FreeSpace(const std::string& host, std::uintmax_t& bytes);

/// True if a process executes the file.
bool IsBeingRun(const std::string& host);

}  // namespace platform
