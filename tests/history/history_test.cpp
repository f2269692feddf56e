#include <gtest/gtest.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

#include "history/mod_History.h"
#include "platform/files.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"
#include "settings/Selection.h"
#include "support/SimulatorTree.h"
#include "support/recorders.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

constexpr std::string_view kFile = "Data/History.nbh";

std::string Bytes(const SettingsRecord& record) {
  const auto bytes = EncodeRecord(record);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// A file of `length` bytes whose records carry their number in Solid.
std::string NumberedFile(std::size_t length) {
  std::string bytes;
  for (std::int16_t i = 0; bytes.size() < length; ++i) {
    SettingsRecord record;
    record.Solid = i;
    record.Contrails = 1;
    bytes += Bytes(record);
  }
  return bytes.substr(0, length);
}

struct Length {
  std::size_t bytes;
  std::int16_t last_index;
  std::int16_t newest;            ///< Solid of the newest entry
  std::int16_t newest_contrails;  ///< its last field: 0 where the file ends before it
};
constexpr Length kLengths[] = {
    {0, -1, 0, 0},     {35, -1, 0, 0},
    {36, 0, 0, 1},     {54, 0, 0, 1},  // half an entry more: to even 0
    {90, 2, 2, 0},                     // half an entry more: to even 2
    {100, 2, 2, 0},    {1080, 29, 29, 1},
    {1116, 29, 30, 1}, {5'000'000, 29, 7816, 0},
};

TEST(History, LengthGivesEntriesByRounding) {
  for (const auto& [bytes, last_index, newest, newest_contrails] : kLengths) {
    SCOPED_TRACE(bytes);
    const SimulatorTree tree;
    WriteText(tree.Program(kFile), NumberedFile(bytes));
    ReadHistory();
    EXPECT_EQ(last_index, HistoryLastIndex);
    ASSERT_EQ(static_cast<std::size_t>(last_index + 1), HistoryEntries.size());
    if (!HistoryEntries.empty()) {
      EXPECT_EQ(newest, HistoryEntries.back().Solid);
      EXPECT_EQ(newest_contrails, HistoryEntries.back().Contrails);
    }
  }
}

TEST(History, NoFileIsAnEmptyHistory) {
  const SimulatorTree tree;
  HistoryLastIndex = 5;
  ReadHistory();
  EXPECT_EQ(-1, HistoryLastIndex);
  std::filesystem::create_directories(tree.Program(kFile));
  ReadHistory();
  EXPECT_EQ(-1, HistoryLastIndex) << "a folder of the name";
}

TEST(History, TheThirtyFirstEntryDropsTheOldest) {
  const SimulatorTree tree;
  std::filesystem::create_directories(tree.Program("Data"));
  platform::SetClock([] { return 39999.0; });
  for (std::int16_t i = 0; i < 31; ++i) {
    CurrentSelection[kCloud][0] = i;
    AppendHistory(0);
    EXPECT_EQ(std::min<int>(i, 29), HistoryLastIndex);
  }
  const std::string file = ReadText(tree.Program(kFile));
  EXPECT_EQ(1080U, file.size());
  SettingsRecord first;
  first.Date = 39999;
  first.Solid = 1;
  EXPECT_EQ(Bytes(first), file.substr(0, kRecordBytes));
  const auto entries = HistoryEntries;
  ReadHistory();
  EXPECT_EQ(entries, HistoryEntries);
}

TEST(History, EveryByteOfADateSurvives) {
  const SimulatorTree tree;
  std::string bytes;
  for (const double date : {std::nan("7"), -std::numeric_limits<double>::infinity(), 1e300}) {
    SettingsRecord record;
    record.Date = date;
    bytes += Bytes(record);
  }
  bytes += std::string("\x01\0\0\0\0\0\xF0\x7F", 8) + std::string(28, '\xFF');  // signalling
  WriteText(tree.Program(kFile), bytes);
  ReadHistory();
  RandomizerRecord.Date = std::nan("");
  AppendHistory(1);
  EXPECT_EQ(bytes, ReadText(tree.Program(kFile)).substr(0, bytes.size()));
  EXPECT_TRUE(std::isnan(HistoryEntries.back().Date));
  LoadHistoryEntry(3);
  EXPECT_EQ(-1, CurrentSelection[kWater][2]);
}

const char* failing_step = "";
int FailStep(const char* step, const char*) {
  return std::strcmp(step, failing_step) == 0 ? EIO : 0;
}

TEST(History, AFailedAppendChangesNothing) {
  const SimulatorTree tree;
  EXPECT_THROW(AppendHistory(0), RunTimeFailure) << "no Data folder";
  EXPECT_EQ(-1, HistoryLastIndex);
  WriteText(tree.Program(kFile), NumberedFile(72));
  ReadHistory();
  for (const char* step : {"open", "write", "flush", "rename"}) {
    failing_step = step;
    platform::SetFailureHook(FailStep);
    EXPECT_THROW(AppendHistory(0), RunTimeFailure) << step;
    EXPECT_EQ(1, HistoryLastIndex);
    EXPECT_EQ(2U, HistoryEntries.size());
    EXPECT_EQ(NumberedFile(72), ReadText(tree.Program(kFile))) << step;
  }
}

TEST(History, EntriesThatCouldNotBeReadAreNotReplaced) {
  const SimulatorTree tree;
  WriteText(tree.Program(kFile), NumberedFile(72));
  // A link to itself can't be opened, and is no missing file either.
  fs::rename(tree.Program(kFile), tree.Program("kept"));
  fs::create_symlink(tree.Program(kFile), tree.Program(kFile));
  ReadHistory();
  EXPECT_THROW(AppendHistory(0), RunTimeFailure);
  fs::rename(tree.Program("kept"), tree.Program(kFile));
  EXPECT_EQ(-1, HistoryLastIndex);
  AppendHistory(0);
  EXPECT_EQ(2, HistoryLastIndex);
  EXPECT_EQ(NumberedFile(72), ReadText(tree.Program(kFile)).substr(0, 72));
}

TEST(History, LoadsOnlyEntriesThatAreThere) {
  const SimulatorTree tree;
  WriteText(tree.Program(kFile), NumberedFile(72));
  ReadHistory();
  for (const int index : {-1, 2, 32767, -32768}) {
    LoadHistoryEntry(static_cast<std::int16_t>(index));
  }
  EXPECT_EQ(0, Recorded.refreshes);
  LoadHistoryEntry(1);
  EXPECT_EQ(1, CurrentSelection[kCloud][0]);
  EXPECT_EQ(1, Recorded.refreshes);
}

}  // namespace
