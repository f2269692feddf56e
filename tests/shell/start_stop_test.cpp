#include <gtest/gtest.h>

#include <QtTest>

#include "ShellWorld.h"
#include "app/mod_Main.h"
#include "shell/State.h"
#include "shell/dialogs/frm_Splash.h"
#include "shell/pages/frm_Main.h"
#include "shell/pages/frm_Preview.h"

namespace nimbrel {
namespace {

using testing::ExitedWithCode;

const std::vector<std::string> kNothing;

TEST(Start, WithoutAHistoryShowsTheFirstOptionsAndWritesNothing) {
  const ShellWorld world;
  StartProgram();
  const frm_Main& main = *ui.forms.main;
  EXPECT_TRUE(Window("frm_Main")->isVisible());
  EXPECT_FALSE(ui.forms.splash->form.Visible());
  EXPECT_EQ("", ui.CurrentPage);
  EXPECT_EQ(OptionTitle(Group::kWaves, 0), main.titles[Group::kWaves]->Caption());
  EXPECT_TRUE(IsOn(main.chk_Sun));
  EXPECT_TRUE(IsOn(main.chk_Contrails));
  EXPECT_TRUE(IsOn(main.chk_DXT));
  EXPECT_FALSE(IsOn(main.chk_Fast));
  EXPECT_EQ(-1, main.combo_History.ListIndex());
  EXPECT_EQ(kNothing, world.Changed());
}

TEST(Start, BringsTheNewestEntryBackAndTheNewestOfTheRandomizer) {
  struct Case {
    std::vector<std::int16_t> sources;  ///< oldest first
    int randomized;                     ///< entry that RandomizerRecord gets, -1: none
  };
  for (const Case& row : {Case{{1, 0, 1, 0, 2}, 2}, Case{{0, 1}, 1}, Case{{0, 0}, -1}}) {
    const ShellWorld world;
    History history;
    for (const std::int16_t source : row.sources) {
      SettingsRecord entry{1.0 + static_cast<double>(history.entries.size()), source, {}};
      entry.choice.option[Group::kDay] = static_cast<std::int16_t>(history.entries.size() % 3);
      AppendToHistory(history, entry, ui.folders);
    }
    StartProgram();
    const SettingsRecord& newest = history.entries.back();
    EXPECT_EQ(newest.choice.option, ui.CurrentSelection);
    EXPECT_EQ(OptionTitle(Group::kDay, newest.choice.option[Group::kDay]),
              ui.forms.main->titles[Group::kDay]->Caption());
    EXPECT_FALSE(IsOn(ui.forms.main->chk_Sun));
    EXPECT_FALSE(IsOn(ui.forms.main->chk_Contrails));
    EXPECT_EQ(row.randomized < 0 ? SettingsRecord{}
                                 : history.entries[static_cast<std::size_t>(row.randomized)],
              ui.RandomizerRecord);
  }
}

/// The process ends, so each of these runs it in a child.
struct EndOfProcess : testing::Test {
  EndOfProcess() { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};
using FailedStart = EndOfProcess;
using Stop = EndOfProcess;

TEST_F(FailedStart, SaysWhyAndLeavesEveryStoredByte) {
  const std::string whole = InformationText(2);
  for (const auto& [information, message] :
       {std::pair{std::string("none"), "NB_Information.cfg file has not been found"},
        {"", "Load Cumulus Configuration"},
        {"\x01\xff[[=\r\n]\n=garbage", "Load Cumulus Configuration"},
        {With(whole, "numSolid=2", "numSolid=99999"), "Load Cumulus Configuration"},
        {With(whole, "numDay=2", "numDay=99999"), "Load Sky Configuration"},
        {With(whole, "numBase=2", "numBase=99999"), "Load Water Configuration"}}) {
    ShellWorld world;
    world.WriteInformation(information);
    if (information == "none") {
      std::filesystem::remove(world.Program("NB_Information.cfg"));
    }
    WriteText(world.Program("Data/History.nbh"), "a history");
    world.MarkUnchanged();
    EXPECT_EXIT(
        {
          const Answers answers;
          StartProgram();
        },
        ExitedWithCode(1), message);
    EXPECT_EQ(kNothing, world.Changed());
  }
}

void LeaveByExit() { Press("frm_Main", "btn_Exit"); }
void LeaveByClose() { Window("frm_Main")->close(); }
void LeaveWithPreview() {
  Press("frm_Main", "lbl_SkyPreview(0)");
  ShutDownProgram();
}

TEST_F(Stop, WritesTheTwoMachineSwitchesAndNothingElse) {
  for (void (*leave)() : {LeaveByExit, LeaveByClose, LeaveWithPreview}) {
    const ShellWorld world;
    EXPECT_EXIT(
        {
          StartProgram();
          Press("frm_Main", "lbl_Check_DXT");
          Press("frm_Main", "lbl_Check_Fast");
          Press("frm_Main", "lbl_Check_Sun");
          ui.CurrentSelection[Group::kSolid] = 2;
          leave();
        },
        ExitedWithCode(0), "");
    EXPECT_EQ(With(With(InformationText(2), "useDXT=1", "useDXT=0"), "useLowRes=0", "useLowRes=1"),
              ReadText(world.Program("NB_Information.cfg")));
    EXPECT_EQ(std::vector<std::string>{"Modules/Nimbrel/NB_Information.cfg"}, world.Changed());
  }
}

TEST_F(Stop, SaysThatTheInformationFileIsGoneAndMakesNone) {
  ShellWorld world;
  EXPECT_EXIT(
      {
        StartProgram();
        std::filesystem::remove(world.Program("NB_Information.cfg"));
        // A second end, asked for while the message is shown, changes nothing.
        QTimer::singleShot(0, LeaveByClose);
        const Answers answers;
        Press("frm_Main", "btn_Exit");
      },
      ExitedWithCode(0), "has not been found");
  EXPECT_FALSE(std::filesystem::exists(world.Program("NB_Information.cfg")));
}

}  // namespace
}  // namespace nimbrel
