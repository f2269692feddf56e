#pragma once

#include <cstddef>
#include <vector>

#include "platform/FileStatus.h"
#include "settings/SettingsRecord.h"

namespace nimbrel {

struct Folders;

/// Data\History.nbh: at most 30 records of 36 bytes, the oldest first.
inline constexpr std::size_t kMaxHistoryEntries = 30;

struct History {
  std::vector<SettingsRecord> entries;
  /// kOk also for a file that does not exist; else why the entries could not be read.
  platform::FileStatus status = platform::FileStatus::kOk;
};

/// Reads the file. A file below 36 bytes is an empty history; of a longer one than the program
/// writes the newest 30 entries count.
History ReadHistoryFile(const Folders& folders);

/// Adds a record, drops the oldest beyond 30, and replaces the file, on disk when it returns. A
/// history that could not be read is read again first, so that no entry is lost. Throws
/// ActionFailed, with history and file as they were, if the file can't be read or replaced.
void AppendToHistory(History& history, const SettingsRecord& record, const Folders& folders);

}  // namespace nimbrel
