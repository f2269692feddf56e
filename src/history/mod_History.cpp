#include "history/mod_History.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"
#include "settings/Selection.h"
#include "settings/SettingsRecord.h"

namespace nimbrel {
namespace {

constexpr std::size_t kMostEntries = 30;
/// A file beyond this is no history and is not taken into memory.
constexpr std::size_t kLargestFile = std::size_t{16} << 20;

std::string DataFolder() { return platform::ApplicationFolder() + "\\Data"; }
std::string HistoryFile() { return DataFolder() + "\\History.nbh"; }

/// Length divided by the length of a record, less one, to the nearest whole number, halves to the
/// even one (the default rounding mode), plus one. A last entry may thus be only half there.
std::size_t EntriesInLength(std::size_t length) {
  const double last_index =
      std::nearbyint(static_cast<double>(length) / static_cast<double>(kRecordBytes) - 1);
  return static_cast<std::size_t>(last_index) + 1;
}

/// The program never writes more than 30 entries; of a longer file the newest 30 count, so that the
/// last choice comes back and indices stay within 16 bits.
std::vector<SettingsRecord> DecodeHistory(std::span<const std::byte> bytes) {
  std::vector<SettingsRecord> entries;
  if (bytes.size() < kRecordBytes) {
    return entries;
  }
  const std::size_t count = EntriesInLength(bytes.size());
  for (std::size_t i = count > kMostEntries ? count - kMostEntries : 0; i < count; ++i) {
    entries.push_back(DecodeRecord(bytes.subspan(i * kRecordBytes)));
  }
  return entries;
}

/// Whether HistoryEntries lacks what the file holds: the system would not read it just then.
bool history_unread = false;

std::vector<std::byte> EncodeHistory(const std::vector<SettingsRecord>& entries) {
  std::vector<std::byte> bytes;
  bytes.reserve(entries.size() * kRecordBytes);
  for (const SettingsRecord& entry : entries) {
    const auto record = EncodeRecord(entry);
    bytes.insert(bytes.end(), record.begin(), record.end());
  }
  return bytes;
}

void TakeEntries(std::vector<SettingsRecord> entries) {
  HistoryEntries = std::move(entries);
  HistoryLastIndex = static_cast<std::int16_t>(static_cast<int>(HistoryEntries.size()) - 1);
}

platform::FileStatus ReadEntries() {
  platform::FileStatus status = platform::FileStatus::kOk;
  const auto bytes = platform::ReadFile(HistoryFile(), kLargestFile, &status);
  TakeEntries(bytes ? DecodeHistory(*bytes) : std::vector<SettingsRecord>());
  history_unread = platform::IsUnread(status);
  return status;
}

void RequireWritten(platform::FileStatus status) {
  if (status != platform::FileStatus::kOk) {
    throw RunTimeFailure("The history file " + std::string(platform::Describe(status)) + ".");
  }
}

}  // namespace

void ReadHistory() {
  platform::RemoveTemporaries(DataFolder());
  ReadEntries();
}

void AppendHistory(std::int16_t Source) {
  // Else the file would be replaced by one without the entries that could not be read before.
  if (history_unread) {
    const platform::FileStatus status = ReadEntries();
    RequireWritten(history_unread ? status : platform::FileStatus::kOk);
  }
  std::vector<SettingsRecord> entries = HistoryEntries;
  entries.push_back(SelectionToRecord(Source));
  if (entries.size() > kMostEntries) {
    entries.erase(entries.begin(), entries.end() - static_cast<std::ptrdiff_t>(kMostEntries));
  }
  RequireWritten(platform::ReplaceFile(HistoryFile(), EncodeHistory(entries),
                                       platform::Durability::kFlushedRename));
  TakeEntries(std::move(entries));
}

void LoadHistoryEntry(std::int16_t index) {
  if (index >= 0 && static_cast<std::size_t>(index) < HistoryEntries.size()) {
    // A copy: what the record sets off may read the history anew.
    const SettingsRecord entry = HistoryEntries[static_cast<std::size_t>(index)];
    RecordToSelection(entry);
  }
}

}  // namespace nimbrel
