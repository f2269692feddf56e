#include "history/HistoryStore.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "platform/FileSystem.h"
#include "settings/Failure.h"
#include "settings/Folders.h"

namespace nimbrel {
namespace {

using platform::FileStatus;

/// A longer file is no history and is not read into memory.
constexpr std::size_t kMaxFileBytes = std::size_t{16} << 20U;

std::string DataFolder(const Folders& folders) { return folders.program + "\\Data"; }
std::string HistoryFile(const Folders& folders) { return DataFolder(folders) + "\\History.nbh"; }

/// The length in records, rounded to the nearest whole number, a half to the odd one: the published
/// rounding is of the last index, and to the even one. The last entry may thus be cut.
std::size_t EntriesInLength(std::size_t bytes) {
  const std::size_t whole = bytes / kRecordBytes;
  const std::size_t rest = bytes % kRecordBytes * 2;
  const bool one_more = rest > kRecordBytes || (rest == kRecordBytes && whole % 2 == 0);
  return whole + (one_more ? 1 : 0);
}

/// The newest entries, so that the last choice comes back from a file of any length.
std::vector<SettingsRecord> DecodeHistory(std::span<const std::byte> bytes) {
  std::vector<SettingsRecord> entries;
  if (bytes.size() < kRecordBytes) {
    return entries;
  }
  const std::size_t count = EntriesInLength(bytes.size());
  for (std::size_t i = count - std::min(count, kMaxHistoryEntries); i < count; ++i) {
    entries.push_back(DecodeRecord(bytes.subspan(i * kRecordBytes)));
  }
  return entries;
}

std::vector<std::byte> EncodeHistory(const std::vector<SettingsRecord>& entries) {
  std::vector<std::byte> bytes;
  for (const SettingsRecord& entry : entries) {
    const auto record = EncodeRecord(entry);
    bytes.insert(bytes.end(), record.begin(), record.end());
  }
  return bytes;
}

History ReadEntries(platform::FileSystem& files, const Folders& folders) {
  History history;
  const auto bytes = files.ReadFile(HistoryFile(folders), kMaxFileBytes, &history.status);
  if (bytes) {
    history.entries = DecodeHistory(*bytes);
  } else if (history.status == FileStatus::kNoSource) {
    history.status = FileStatus::kOk;
  }
  return history;
}

void Require(bool done, FileStatus status) {
  if (!done) {
    throw ActionFailed("The history file " + std::string(platform::Describe(status)) + ".");
  }
}

}  // namespace

History ReadHistoryFile(const Folders& folders) {
  platform::FileSystem files(kTemporaryPrefix);
  files.SweepTemporaries(DataFolder(folders));
  return ReadEntries(files, folders);
}

void AppendToHistory(History& history, const SettingsRecord& record, const Folders& folders) {
  platform::FileSystem files(kTemporaryPrefix);
  History next = platform::IsReadError(history.status) ? ReadEntries(files, folders) : history;
  Require(!platform::IsReadError(next.status), next.status);
  next.entries.push_back(record);
  if (next.entries.size() > kMaxHistoryEntries) {
    next.entries.erase(next.entries.begin());
  }
  next.status = files.ReplaceFile(HistoryFile(folders), EncodeHistory(next.entries),
                                  platform::Durability::kFlushedRename);
  Require(next.status == FileStatus::kOk, next.status);
  history = std::move(next);
}

}  // namespace nimbrel
