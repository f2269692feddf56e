#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

/// Paths come in as the program composes them: backslashes or slashes, "..", doubled separators,
/// letters in any case. Every call here turns them into the host's own first (HostPath).

/// Attribute mask of a listing, as the platform's Dir function takes it.
enum FileAttribute : std::uint16_t {
  kNormal = 0,
  kReadOnly = 1,
  kHidden = 2,
  kSystem = 4,
};

/// Why a file operation failed. kOk is success.
enum class FileStatus : std::uint8_t {
  kOk,
  kNoSource,      ///< the file to read is not there
  kNoFolder,      ///< the folder to write into is not there
  kReadOnly,      ///< the old file is marked read-only (no owner write permission)
  kNoPermission,  ///< the system refuses
  kNoSpace,       ///< the device, the quota or the size limit is full
  kBusy,          ///< held open by somebody; may pass
  kOutside,       ///< would lead outside the folder it has to stay in
  kNotAFile,      ///< a folder or a device stands where a file is meant
  kTooLarge,      ///< longer than the reader takes
  kOther,
};

/// Whether a reading failed although there may be something to read. What was read before, or is on
/// disk, is not to be taken for gone then.
constexpr bool IsUnread(FileStatus status) {
  return status != FileStatus::kOk && status != FileStatus::kNoSource &&
         status != FileStatus::kNotAFile && status != FileStatus::kTooLarge;
}

/// A few words for a message to the user, such as "is read-only".
std::string_view Describe(FileStatus status);

/// The host's path for a composed one: separators turned, "." and ".." resolved by text, and every
/// component that does not exist as written replaced by the one that differs only in case. A
/// component that exists in no case is kept as written. Listings are cached per folder and checked
/// against the folder's time stamp, so a call costs no scan while nothing changes.
///
/// A folder on the way that can't be looked into may hold the path in another case: `status` tells
/// of it when it is given, else it is kOk.
std::string HostPath(std::string_view path, FileStatus* status = nullptr);

/// Names of the entries that match `pattern`, whose last component may hold the wildcards * and ?
/// ("*.*" matches every name, as the platform has it). Folders are never listed. Hidden files (a
/// name that begins with a full stop) need kHidden in the mask. Sorted by folded name, so that two
/// runs see one order. Empty when the folder is missing or can't be read; `status` tells which when
/// it is given: kNoSource, or the reason.
std::vector<std::string> ListFiles(std::string_view pattern, std::uint16_t attributes,
                                   FileStatus* status = nullptr);

bool FileExists(std::string_view path);    ///< a regular file (links followed)
bool FolderExists(std::string_view path);  ///< a folder (links followed)
bool CreateFolder(std::string_view path);  ///< true when it stands afterwards

/// Deletes one file. kOk also when it was not there. A read-only file is refused with kReadOnly.
FileStatus DeleteFile(std::string_view path);

/// The whole file. Empty optional when it is missing, no file, unreadable or longer than `limit`
/// bytes. `status` tells why when it is given.
std::optional<std::vector<std::byte>> ReadFile(std::string_view path, std::size_t limit,
                                               FileStatus* status = nullptr);

/// How safely a replacement has to stand.
enum class Durability : std::uint8_t {
  kRename,         ///< killed program: old or new file
  kFlushedRename,  ///< also after a loss of power: flushed before the rename
};

/// Replaces or creates `path` with `bytes`: written beside it under a temporary name, then renamed
/// over it. On any failure the old file stands untouched and the temporary one is gone. An
/// existing file that is read-only is not replaced. Keeps the old file's permissions and the
/// letter case of its name. A link is followed and stays; one that leads nowhere is kNotAFile.
FileStatus ReplaceFile(std::string_view path, std::span<const std::byte> bytes,
                       Durability durability);

/// The same with the bytes of another file, moved inside the kernel where it can.
/// `source_root` and `target_root`: folders that the real paths of source and target (links
/// followed) must lie in, else kOutside; empty means anywhere.
FileStatus CopyOver(std::string_view source, std::string_view target, Durability durability,
                    std::string_view source_root = {}, std::string_view target_root = {});

/// Whether the real path of `path` (of its folder, when it does not exist) lies in `root`. False
/// also when that can't be found out, of which `status` tells when it is given; else it is kOk.
bool LiesWithin(std::string_view path, std::string_view root, FileStatus* status = nullptr);

/// The pattern of temporary names, to be put behind a folder: ReplaceFile and CopyOver write
/// nothing else beside their targets.
inline constexpr std::string_view kTemporaryPattern = "~nimbrel-*.tmp";

/// Deletes what a killed run left under kTemporaryPattern in `folder`. kOk also when that is not
/// there.
FileStatus RemoveTemporaries(std::string_view folder);

/// Replaceable device under ReplaceFile, CopyOver and DeleteFile, so that a test can make the n-th
/// step fail. Each hook gives an errno value to fail with, or 0 to go on. `step` is one of "open",
/// "write", "flush", "rename", "delete"; `path` is the host's, of the file to be replaced or
/// deleted.
using FailureHook = int (*)(const char* step, const char* path);
void SetFailureHook(FailureHook hook);

}  // namespace platform
