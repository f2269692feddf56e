#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileStatus.h"

namespace platform {

struct FileSystemState;

/// Attribute mask of a listing, as the platform's Dir function takes it.
enum FileAttribute : std::uint16_t {
  kNormal = 0,
  kReadOnly = 1,
  kHidden = 2,
  kSystem = 4,
};

/// How safely a replacement has to be stored.
enum class Durability : std::uint8_t {
  kRename,         ///< killed program: old or new file
  kFlushedRename,  ///< also after a loss of power: flushed before the rename
};

/// The one way to files. Paths are taken as the program composes them: backslashes or slashes,
/// "..", doubled separators, letters in any case; every call turns them into the host's own first.
///
/// An object caches folder listings and checks them against the folders' time stamps. It is cheap
/// to make: one for each action of the user is enough, and none has to be shared. Not for two
/// threads at once.
class FileSystem {
 public:
  /// `temporary_prefix` begins the names under which ReplaceFile and CopyOver write before the
  /// rename: prefix, process number, count and ".tmp". They write nothing else beside a target.
  explicit FileSystem(std::string temporary_prefix);
  FileSystem(const FileSystem&) = delete;
  FileSystem& operator=(const FileSystem&) = delete;
  ~FileSystem();

  /// The host's path: separators turned, "." and ".." resolved by text, and each component that
  /// does not exist as written replaced by the one that differs only in case. A component that
  /// exists in no case is kept as written. Empty for an empty path or one with a null character.
  ///
  /// If a folder along the path can't be listed, the path may exist in another case: `status` is
  /// then that error, otherwise kOk.
  std::string HostPath(std::string_view path, FileStatus* status = nullptr);

  /// Names of the files that match `pattern`, whose last component may hold the wildcards * and ?
  /// ("*.*" matches every name). Folders are never listed. Hidden files (a name that begins with a
  /// full stop) need kHidden in the mask. Sorted by folded name. Empty if the folder is missing or
  /// can't be read; `status` is then kNoSource or the error.
  std::vector<std::string> ListFiles(std::string_view pattern, std::uint16_t attributes,
                                     FileStatus* status = nullptr);

  bool FileExists(std::string_view path);    ///< a regular file, links followed
  bool FolderExists(std::string_view path);  ///< a folder, links followed

  /// Makes one folder, whose parent has to exist. kOk also if it exists already.
  FileStatus CreateFolder(std::string_view path);

  /// Deletes one file. kOk also if it does not exist. A read-only file is refused with kReadOnly.
  FileStatus DeleteFile(std::string_view path);

  /// The whole file; empty if it is missing, no regular file, unreadable or longer than `limit`
  /// bytes. `status` is the reason. A pipe or a device is refused at once.
  std::optional<std::vector<std::byte>> ReadFile(std::string_view path, std::size_t limit,
                                                 FileStatus* status = nullptr);

  /// Replaces or creates `path` with `bytes`: written beside it under a temporary name, then
  /// renamed over it. On any failure the old file is untouched and the temporary one is removed. A
  /// read-only file is not replaced. Keeps the old file's permissions and the letter case of its
  /// name. A link is followed and stays; one that leads nowhere is kNotAFile.
  FileStatus ReplaceFile(std::string_view path, std::span<const std::byte> bytes,
                         Durability durability);

  /// The same with the bytes of another file, moved inside the kernel where possible.
  /// `source_root` and `target_root`: folders that the real paths of source and target (links
  /// followed) must lie in, else kOutside; empty means anywhere.
  FileStatus CopyOver(std::string_view source, std::string_view target, Durability durability,
                      std::string_view source_root = {}, std::string_view target_root = {});

  /// True if the real path of `path` (of its deepest existing folder, if it does not exist) lies in
  /// `root`. False also if that can't be determined: `status` is then the error, otherwise kOk.
  bool LiesWithin(std::string_view path, std::string_view root, FileStatus* status = nullptr);

  /// True for the name of a temporary file of this program, whoever wrote it.
  bool IsTemporary(std::string_view name) const;
  /// Deletes the temporary files in `folder` whose process has ended. kOk also if there are none.
  FileStatus SweepTemporaries(std::string_view folder);

 private:
  std::unique_ptr<FileSystemState> state_;
};

}  // namespace platform
