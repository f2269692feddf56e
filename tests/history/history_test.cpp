#include <gtest/gtest.h>
#include <sys/stat.h>

#include <bit>
#include <filesystem>
#include <string>

#include "history/HistoryStore.h"
#include "settings/Failure.h"
#include "support/World.h"

namespace fs = std::filesystem;
using namespace nimbrel;
using platform::FileStatus;

namespace {

constexpr std::string_view kFile = "Data/History.nbh";

/// Its date is a signalling NaN, whose bits are not to change either.
SettingsRecord Numbered(std::int16_t solid) {
  return {std::bit_cast<double>(0x7FF0000000000001U), kFromUser, {{{{solid}}}, false, true}};
}

std::string Bytes(const SettingsRecord& record) {
  const auto bytes = EncodeRecord(record);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// A file of `length` bytes whose records are numbered from 0.
std::string NumberedFile(std::size_t length) {
  std::string bytes;
  for (std::int16_t i = 0; bytes.size() < length; ++i) {
    bytes += Bytes(Numbered(i));
  }
  return bytes.substr(0, length);
}

struct Length {
  std::size_t bytes, entries;
  std::int16_t newest;  ///< its number
  bool whole;           ///< whether the file holds all of it
};
constexpr Length kLengths[] = {
    {0, 0, 0, false},   {35, 0, 0, false},    {36, 1, 0, true},
    {54, 1, 0, true},                       // half an entry more
    {55, 2, 1, false},  {90, 3, 2, false},  // half an entry more
    {100, 3, 2, false}, {1080, 30, 29, true}, {1116, 30, 30, true},
};

TEST(History, LengthGivesEntriesByRounding) {
  const World world;
  for (const auto& [bytes, entries, newest, whole] : kLengths) {
    SCOPED_TRACE(bytes);
    WriteText(world.Program(kFile), NumberedFile(bytes));
    const History history = ReadHistoryFile(world.folders());
    ASSERT_EQ(entries, history.entries.size());
    if (entries > 0) {
      EXPECT_EQ(newest, history.entries.back().choice.option[Group::kSolid]);
      EXPECT_EQ(whole, history.entries.back().choice.contrails);
    }
  }
  fs::resize_file(world.Program(kFile), 16U << 20U);
  EXPECT_EQ(30U, ReadHistoryFile(world.folders()).entries.size());
  fs::resize_file(world.Program(kFile), (16U << 20U) + 1);
  EXPECT_EQ(FileStatus::kTooLarge, ReadHistoryFile(world.folders()).status);
}

TEST(History, WithoutAFileIsEmptyAndKeepsThirtyEntries) {
  const World world;
  world.MakeFolders();
  WriteText(world.Program("Data/~nimbrel-999999999-7.tmp"), "left by a killed run");
  History history = ReadHistoryFile(world.folders());
  EXPECT_EQ(FileStatus::kOk, history.status);
  EXPECT_TRUE(fs::is_empty(world.Program("Data")));
  std::string expected;
  for (std::int16_t i = 0; i < 32; ++i) {
    AppendToHistory(history, Numbered(i), world.folders());
    expected += Bytes(Numbered(i));
    expected.erase(0, i < 30 ? 0 : kRecordBytes);
    EXPECT_EQ(expected, ReadText(world.Program(kFile)));
  }
  EXPECT_EQ(30U, history.entries.size());
}

/// The reason why an append fails, which must leave history and files as they are.
std::string RefusalBy(const World& world, History& history) {
  const History before = history;
  const Tree files = Files(world.Program());
  std::string reason;
  try {
    AppendToHistory(history, Numbered(9), world.folders());
  } catch (const ActionFailed& failure) {
    reason = failure.what();
  }
  EXPECT_EQ(before.entries.size(), history.entries.size());
  EXPECT_EQ(before.status, history.status);
  EXPECT_EQ(files, Files(world.Program()));
  return reason;
}

TEST(History, AFailedAppendChangesNothing) {
  const World world;
  History history;
  EXPECT_EQ("The history file has no destination folder.", RefusalBy(world, history));
  WriteText(world.Program(kFile), NumberedFile(72));
  history = ReadHistoryFile(world.folders());
  ASSERT_EQ(0, chmod(world.Program(kFile).c_str(), 0444));
  EXPECT_EQ("The history file is read-only.", RefusalBy(world, history));
  fs::remove(world.Program(kFile));
  fs::create_directories(world.Program(kFile));
  EXPECT_EQ(FileStatus::kNotAFile, ReadHistoryFile(world.folders()).status);
  EXPECT_EQ("The history file is not a file.", RefusalBy(world, history));
}

TEST(History, EntriesThatCouldNotBeReadAreNotReplaced) {
  const World world;
  WriteText(world.Program(kFile), NumberedFile(72));
  const OrdinaryUser user(world.Simulator());
  ASSERT_EQ(0, chmod(world.Program(kFile).c_str(), 0200));  // may be written and not read
  History history = ReadHistoryFile(world.folders());
  EXPECT_EQ(FileStatus::kNoPermission, history.status);
  EXPECT_THROW(AppendToHistory(history, Numbered(9), world.folders()), ActionFailed);
  ASSERT_EQ(0, chmod(world.Program(kFile).c_str(), 0600));
  EXPECT_EQ(NumberedFile(72), ReadText(world.Program(kFile)));
  AppendToHistory(history, Numbered(2), world.folders());
  EXPECT_EQ(NumberedFile(108), ReadText(world.Program(kFile)));
}

}  // namespace
