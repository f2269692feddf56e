#include <algorithm>
#include <filesystem>
#include <string>

#include "history/mod_History.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "settings/SettingsRecord.h"
#include "support.h"
#include "support/recorders.h"

using namespace nimbrel;
using fuzz::Require;

namespace {

constexpr std::size_t kMostEntries = 30;

std::filesystem::path File() { return fuzz::Program("Data/History.nbh"); }

std::string StoredForm() {
  std::string bytes;
  for (const SettingsRecord& entry : HistoryEntries) {
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

/// What the list shows of an entry, and what a press on it loads.
void UseEntries() {
  for (std::int16_t i = 0; i <= HistoryLastIndex; ++i) {
    platform::FormatMoment(HistoryEntries[static_cast<std::size_t>(i)].Date);
    LoadHistoryEntry(i);
    for (const OptionGroup& group : kOptionGroups) {
      const auto option = CurrentSelection[static_cast<std::size_t>(group.family)]
                                          [static_cast<std::size_t>(group.index)];
      Require(Catalogue.At(group.family, group.index, option).Title.empty());
    }
  }
}

}  // namespace

/// Any bytes as the history: the newest records are taken as they are, and the next install's entry
/// goes behind them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Recorded = {};
  fuzz::Put(File(), std::as_bytes(std::span(data, size)));
  ReadHistory();
  const std::string kept = StoredForm();
  Require(HistoryEntries.size() == std::min(kMostEntries, EntriesIn(size)));
  Require(HistoryLastIndex + 1 == static_cast<int>(HistoryEntries.size()));
  UseEntries();
  AppendHistory(0);
  const std::string written = fuzz::Get(File());
  Require(written == StoredForm() && HistoryEntries.size() <= kMostEntries);
  const std::size_t dropped = kept.size() == kMostEntries * kRecordBytes ? kRecordBytes : 0;
  Require(written.substr(0, written.size() - kRecordBytes) == kept.substr(dropped));
  ReadHistory();
  Require(StoredForm() == written);
  return 0;
}
