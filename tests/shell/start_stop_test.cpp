#include <gtest/gtest.h>

#include <QtTest>

#include "ShellWorld.h"
#include "settings/Selection.h"
#include "settings/SettingsRecord.h"
#include "settings/mod_Main.h"
#include "shell/MainSwitches.h"
#include "shell/Pages.h"
#include "shell/frm_Main.h"
#include "shell/frm_Preview.h"
#include "shell/frm_Splash.h"
#include "toolkit/gdiplus.h"

namespace nimbrel {
namespace {

using testing::ExitedWithCode;

const std::vector<std::string> kNothing;

std::string HistoryBytes(const std::vector<SettingsRecord>& entries) {
  std::string bytes;
  for (const SettingsRecord& entry : entries) {
    for (const std::byte byte : EncodeRecord(entry)) {
      bytes += static_cast<char>(byte);
    }
  }
  return bytes;
}

TEST(Start, WithoutAHistoryShowsTheFirstOptionsAndWritesNothing) {
  const ShellWorld world;
  const auto before = world.Files();
  StartProgram();
  EXPECT_TRUE(Window("frm_Main")->isVisible());
  EXPECT_FALSE(SplashForm().form.Visible());
  EXPECT_EQ("", CurrentPage);
  EXPECT_EQ(OptionTitle(kWater, 2, 0), MainForm().lbl_Water_Waves.Caption());
  EXPECT_TRUE(IsOn(Switches().chk_Sun));
  EXPECT_TRUE(IsOn(Switches().chk_Contrails));
  EXPECT_TRUE(IsOn(Switches().chk_DXT));
  EXPECT_FALSE(IsOn(Switches().chk_Fast));
  EXPECT_EQ(-1, MainForm().combo_History.ListIndex());
  EXPECT_EQ(kNothing, world.Changes(before));
}

TEST(Start, BringsTheNewestEntryBackAndTheNewestOfTheRandomizer) {
  struct Case {
    std::vector<std::int16_t> sources;  ///< oldest first
    int randomized;                     ///< entry that RandomizerRecord gets, -1: none
  };
  for (const Case& row : {Case{{1, 0, 1, 0, 2}, 2}, Case{{0, 1}, 1}, Case{{0, 0}, -1}}) {
    const ShellWorld world;
    std::vector<SettingsRecord> entries;
    for (const std::int16_t source : row.sources) {
      const auto index = static_cast<std::int16_t>(entries.size());
      entries.push_back({.Source = source, .Wispy = index, .Day = 1, .Sun = 0});
    }
    WriteText(world.Program() / "Data" / "History.nbh", HistoryBytes(entries));
    StartProgram();
    EXPECT_EQ(entries.back().Wispy, CurrentSelection[kCloud][2]);
    EXPECT_EQ(OptionTitle(kSky, 1, 1), MainForm().lbl_Sky_Day.Caption());
    EXPECT_FALSE(IsOn(Switches().chk_Sun));
    EXPECT_EQ(
        row.randomized < 0 ? SettingsRecord{} : entries[static_cast<std::size_t>(row.randomized)],
        RandomizerRecord);
  }
}

/// No process has the number in these names, so none is still at work on them.
TEST(Start, ClearsAwayWhatAKilledRunLeft) {
  const ShellWorld world;
  const auto before = world.Files();
  for (const char* name : {"~nimbrel-999999999-1.tmp", "Data/~nimbrel-999999999-2.tmp",
                           "TempBitmaps/~nimbrel-999999999-3.tmp"}) {
    WriteText(world.Program() / name, "half");
  }
  StartProgram();
  EXPECT_EQ(kNothing, world.Changes(before));
}

/// The process ends, so each of these runs it in a child.
struct EndOfProcess : testing::Test {
  EndOfProcess() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};
using FailedStart = EndOfProcess;
using Stop = EndOfProcess;

/// A start that can't be finished, what it says, and what the information file holds (null: there
/// is none).
struct BadStart {
  const char* information;
  const char* message;
};

TEST_F(FailedStart, SaysWhyAndLeavesEveryStoredByte) {
  for (const BadStart& row :
       {BadStart{nullptr, "NB_Information.cfg file has not been found"},
        BadStart{"", "Load Cumulus Configuration"},
        BadStart{"\x01\xff[[=\r\n]\n=\0garbage", "Load Cumulus Configuration"},
        BadStart{"[CloudTextures]\nnumSolid=99999\n", "Load Cumulus Configuration"}}) {
    const ShellWorld world;
    std::filesystem::remove(world.Program() / "NB_Information.cfg");
    if (row.information != nullptr) {
      WriteText(world.Program() / "NB_Information.cfg", row.information);
    }
    WriteText(world.Program() / "Data" / "History.nbh", "a history");
    const auto before = world.Files();
    EXPECT_EXIT(
        {
          const Answers answers;
          StartProgram();
        },
        ExitedWithCode(1), row.message);
    EXPECT_EQ(kNothing, world.Changes(before));
  }
}

TEST_F(FailedStart, WithoutTheGraphicsLibraryTheSystemsOwnBoxSaysSo) {
  const ShellWorld world;
  const auto before = world.Files();
  toolkit::SetGdiplusStartupStatus(toolkit::Status::GenericError);
  EXPECT_EXIT(
      {
        const Answers answers;
        StartProgram();
      },
      ExitedWithCode(1), "Error loading GDI");
  toolkit::SetGdiplusStartupStatus(toolkit::Status::Ok);
  EXPECT_EQ(kNothing, world.Changes(before));
}

void LeaveByExit() { Press("frm_Main", "btn_Exit"); }
void LeaveByClose() { Window("frm_Main")->close(); }
void LeaveWithPreview() {
  ClickOn("frm_Main", "lbl_SkyPreview(0)");
  ShutDownProgram();
}

TEST_F(Stop, WritesTheTwoMachineSwitchesAndNothingElse) {
  for (void (*leave)() : {LeaveByExit, LeaveByClose, LeaveWithPreview}) {
    const ShellWorld world;
    const auto before = world.Files();
    EXPECT_EXIT(
        {
          StartProgram();
          ClickOn("frm_Main", "lbl_Check_DXT");
          ClickOn("frm_Main", "lbl_Check_Fast");
          ClickOn("frm_Main", "lbl_Check_Sun");
          CurrentSelection[kCloud][0] = 2;
          leave();
        },
        ExitedWithCode(0), "");
    std::string expected = before.at("NB_Information.cfg");
    expected.replace(expected.find("useDXT=1"), 8, "useDXT=0");
    expected.replace(expected.find("useLowRes=0"), 11, "useLowRes=1");
    EXPECT_EQ(expected, ReadText(world.Program() / "NB_Information.cfg"));
    EXPECT_EQ(std::vector<std::string>{"NB_Information.cfg"}, world.Changes(before));
  }
}

}  // namespace
}  // namespace nimbrel
