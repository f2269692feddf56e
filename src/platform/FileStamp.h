#pragma once

#include <sys/stat.h>

#include <cstdint>
#include <optional>
#include <string>

namespace platform {

/// Tells one state of a file or folder from another without reading it.
struct FileStamp {
  dev_t device = 0;
  ino_t inode = 0;
  off_t size = -1;
  std::int64_t modified = 0;  ///< nanoseconds since 1970
  std::int64_t changed = 0;   ///< the same, of the entry itself; tools can't set it back

  bool operator==(const FileStamp&) const = default;
};

FileStamp StampOf(const struct stat& facts);

/// The stamp of a folder. None for anything else, with the reason in errno.
std::optional<FileStamp> StampOfFolder(const std::string& folder);

/// The present time as stamps count it.
std::int64_t StampClock();

/// True if a reading begun at `taken` includes every change made under this stamp. Changes within
/// one tick of the file system's clock leave the same stamp, so a reading that follows the latest
/// change too closely may lack another one.
bool IsSettled(const FileStamp& stamp, std::int64_t taken);

}  // namespace platform
