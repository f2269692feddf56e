#include <algorithm>
#include <filesystem>
#include <string>

#include "history/HistoryStore.h"
#include "platform/system.h"
#include "support.h"

using namespace nimbrel;
using fuzz::Require;

namespace {

std::string StoredForm(const History& history) {
  std::string bytes;
  for (const SettingsRecord& entry : history.entries) {
    bytes += fuzz::Text(EncodeRecord(entry));
  }
  return bytes;
}

/// A record that is more than half there counts; of one exactly half, every second one.
std::size_t EntriesIn(std::size_t size) {
  const std::size_t whole = size / kRecordBytes;
  const std::size_t rest = size % kRecordBytes * 2;
  const bool one_more = rest > kRecordBytes || (rest == kRecordBytes && whole % 2 == 0);
  return whole == 0 ? 0 : whole + (one_more ? 1 : 0);
}

}  // namespace

/// Any bytes as the history: the newest records are taken as they are, and the next install's entry
/// is added after them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Folders folders = fuzz::Simulator().folders();
  const std::filesystem::path file = fuzz::Simulator().Program("Data/History.nbh");
  fuzz::Put(file, std::as_bytes(std::span(data, size)));
  History history = ReadHistoryFile(folders);
  const std::string kept = StoredForm(history);
  Require(history.entries.size() == std::min(kMaxHistoryEntries, EntriesIn(size)));
  for (const SettingsRecord& entry : history.entries) {
    platform::FormatMoment(entry.Date);
  }
  AppendToHistory(history, {}, folders);
  const std::string written = ReadText(file);
  Require(written == StoredForm(history) && history.entries.size() <= kMaxHistoryEntries);
  const std::size_t dropped = kept.size() == kMaxHistoryEntries * kRecordBytes ? kRecordBytes : 0;
  Require(written.substr(0, written.size() - kRecordBytes) == kept.substr(dropped));
  Require(StoredForm(ReadHistoryFile(folders)) == written);
  return 0;
}
