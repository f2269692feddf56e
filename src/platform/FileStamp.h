#pragma once

#include <sys/stat.h>

#include <cstdint>

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

/// The present moment as the stamps count it.
std::int64_t StampClock();

/// Whether a reading begun at `taken` saw all that was done under this stamp. A change within the
/// clock tick of the reading leaves the stamp as it is, so a reading taken too soon after the last
/// change proves nothing.
bool IsSettled(const FileStamp& stamp, std::int64_t taken);

}  // namespace platform
