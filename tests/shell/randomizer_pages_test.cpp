#include <gtest/gtest.h>

#include <QtTest>
#include <filesystem>
#include <string>
#include <vector>

#include "ShellWorld.h"
#include "app/mod_Main.h"
#include "shell/State.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/pages/ConstraintPage.h"
#include "shell/pages/frm_Main.h"
#include "shell/pages/frm_Preview.h"
#include "shell/pages/frm_RandomizerOverview.h"

namespace nimbrel {
namespace {

constexpr const char* kOverview = "frm_RandomizerOverview";
constexpr double kMoment = 39087.63135416667;  // 5 January 2007, 15:09:09

struct RandomizerPages : testing::Test {
  RandomizerPages() { StartProgram(); }
  ShellWorld world;
};

ConstraintPage& PageOf(Family family) { return Loaded(ui.forms.constraints[family], family); }
ConstraintList& ListOf(Group group) {
  return *PageOf(FamilyOf(group)).lists[static_cast<std::size_t>(IndexInFamily(group))];
}

/// Option and check mark of each row from the top, the button's state, the percentage.
std::string StateOf(Group group) {
  const ConstraintList& list = ListOf(group);
  std::string text;
  for (int row = 0; row < list.list.ListCount(); ++row) {
    text += std::to_string(list.list.ItemData(row)) + (list.list.Selected(row) ? "+ " : "- ");
  }
  const std::string caption = list.percentage.Caption();
  return text + list.check_all.state() + caption.substr(caption.find(':') + 1);
}

TEST_F(RandomizerPages, ListsAreSortedKeepTheirMarksAndRepairThemselves) {
  PerGroup<std::vector<TextureOption>>& options = ui.catalogue.options;
  options[Group::kSunrise][0].Title = "zenith";
  options[Group::kSunrise][1].Title = "Alpha";
  options[Group::kSunrise][1].InhibitRandomizer = 5;
  for (TextureOption& option : options[Group::kDay]) {
    option.InhibitRandomizer = 1;
  }
  options[Group::kSunset][2].Title = "a";
  options[Group::kNight].clear();
  ui.catalogue.contrailsInhibitRandomizer = 1;
  EXPECT_EQ("1- 2+ 0+ enabled 50.0%", StateOf(Group::kSunrise));
  EXPECT_EQ("0+ 1- 2- enabled 100.0%", StateOf(Group::kDay));
  EXPECT_EQ("2+ 0+ 1+ disabled 33.3%", StateOf(Group::kSunset));
  EXPECT_EQ("disabled 00.0%", StateOf(Group::kNight));
  EXPECT_EQ(1, PageOf(Family::kSky).chk_Sun->Value());
  EXPECT_EQ(0, PageOf(Family::kSky).chk_Contrails->Value());
  EXPECT_EQ(5, options[Group::kSunrise][1].InhibitRandomizer) << "only a draw or the exit writes";
}

TEST_F(RandomizerPages, ClicksChangeTheListAloneAndNeverLeaveItWithNothing) {
  Press("frm_Main", "btn_Randomizer");
  Press(kOverview, "lbl_Water");
  constexpr const char* kPage = "frm_RandomizerWater";
  ClickRow(kPage, "lst_Waves", 0);
  EXPECT_EQ("0- 1+ 2+ enabled 50.0%", StateOf(Group::kWaves));
  ClickRow(kPage, "lst_Waves", 2);
  EXPECT_EQ("0- 1+ 2- enabled 100.0%", StateOf(Group::kWaves));
  ClickRow(kPage, "lst_Waves", 1, 200);
  EXPECT_EQ("0+ 1- 2- enabled 100.0%", StateOf(Group::kWaves)) << "the first row stands in";
  ClickRow(kPage, "lst_Waves", 0);
  EXPECT_EQ("0+ 1- 2- enabled 100.0%", StateOf(Group::kWaves)) << "also for itself";
  Press("frm_Main", "btn_Home");
  Press("frm_Main", "btn_Randomizer");
  EXPECT_EQ("0+ 1- 2- enabled 100.0%", StateOf(Group::kWaves)) << "kept across pages";
  EXPECT_EQ("0+ 1+ 2+ disabled 33.3%", StateOf(Group::kBase));
  EXPECT_EQ(0, ui.catalogue.At(Group::kWaves, 1).InhibitRandomizer);
}

TEST_F(RandomizerPages, TheOverviewShowsTheRecordOfEachGroupInItsOwnPlace) {
  Choice& choice = ui.RandomizerRecord.choice;
  choice.option.values = {0, 1, 2, 0, 1, 2, 0, 1, 2, 0, 1};
  choice.sun = true;
  ui.RandomizerRecord.Date = kMoment;
  Press("frm_Main", "btn_Randomizer");
  const frm_RandomizerOverview& page = *ui.forms.overview;
  for (const GroupFacts& facts : kGroups) {
    const int option = choice.option[facts.group];
    EXPECT_EQ(OptionTitle(facts.group, option), page.titles[facts.group]->Caption());
    const QPoint middle =
        Window(kOverview, page.preview_spots[facts.group]->Name())->geometry().center();
    EXPECT_EQ(OptionColor(facts.group, option), ColorAt(page.form, middle));
  }
  EXPECT_EQ("Jan 5, 03:09:09 PM", page.lbl_DateTime.Caption());
  EXPECT_EQ("Use Replacement", page.lbl_Sky_Sun.Caption());
  EXPECT_EQ("Use Default", page.lbl_Sky_Contrails.Caption());
  Press(kOverview, "lbl_CloudPreview(2)");
  EXPECT_EQ(QRect(0, 120, 272, 210), Window("frm_Preview")->geometry());
  EXPECT_EQ(Window(kOverview), Window("frm_Preview")->parentWidget());
  EXPECT_EQ(OptionColor(Group::kWispy, 2), ColorAt(ui.forms.preview->form, {130, 100}));
  EXPECT_EQ(kPreviewOpenText, page.lbl_PreviewText.Caption());
  Press(kOverview, "lbl_Sky");
  EXPECT_FALSE(PreviewIsOpen());
  EXPECT_EQ(kPreviewClosedText, page.lbl_PreviewText.Caption());
}

/// Leaves option 2 of every group as the only choice.
void AllowLastOptionsOnly() {
  for (const GroupFacts& facts : kGroups) {
    ListOf(facts.group).list.SetSelected(0, false);
    ListOf(facts.group).list.SetSelected(1, false);
  }
  PageOf(Family::kSky).chk_Sun->SetValue(0);
}

TEST_F(RandomizerPages, CancelChangesNothingAndOkDrawsRecordsAndInstalls) {
  ui.Now = [] { return kMoment; };
  ui.random = [] { return 0.999F; };
  Press("frm_Main", "btn_Randomizer");
  AllowLastOptionsOnly();
  Press(kOverview, "lbl_SkyPreview(1)");
  WriteText(world.Program("TempBitmaps/cumulus01.bmp"), "clouds of the last run");
  world.MarkUnchanged();
  PressAndThen(kOverview, "btn_Randomize", [] { Press("frm_Msg", "btn_Cancel"); });
  EXPECT_EQ(0, ui.PendingMessageAction);
  EXPECT_EQ(0, ui.MessageAnswer);
  EXPECT_EQ(Selection(), ui.CurrentSelection);
  EXPECT_EQ(SettingsRecord(), ui.RandomizerRecord);
  EXPECT_TRUE(world.Changed().empty());

  Answers answers;
  Press(kOverview, "btn_Randomize");
  EXPECT_EQ((std::vector<std::string>{"Randomize Settings?", "Copying Files to Flight Simulator"}),
            answers.titles);
  EXPECT_FALSE(ui.forms.message->form.Visible());
  EXPECT_EQ(0, ui.PendingMessageAction);
  EXPECT_EQ(1, ui.MessageAnswer);
  Selection last;
  last.values.fill(2);
  EXPECT_EQ(last, ui.CurrentSelection);
  EXPECT_FALSE(IsOn(ui.forms.main->chk_Sun));
  EXPECT_TRUE(IsOn(ui.forms.main->chk_Contrails));
  EXPECT_EQ(OptionTitle(Group::kSolid, 2), ui.forms.overview->titles[Group::kSolid]->Caption());
  EXPECT_EQ(OptionColor(Group::kDay, 2), ColorAt(ui.forms.preview->form, {130, 100}));
  EXPECT_EQ((std::vector<SettingsRecord>{{kMoment, kFromRandomizer, {last, false, true}}}),
            ui.history.entries);
  EXPECT_EQ("night 2", ReadText(world.Simulator("Texture/night.bmp")));
  const std::string stored = ReadText(world.Program("NB_Information.cfg"));
  EXPECT_NE(std::string::npos, stored.find("nightInhibitRandomizer.1=1"));
  EXPECT_NE(std::string::npos, stored.find("nightInhibitRandomizer.2=0"));
  EXPECT_NE(std::string::npos, stored.find("sunInhibitRandomizer=0")) << "the exit's to write";
}

TEST_F(RandomizerPages, AHistoryThatCantBeWrittenIsToldAndNothingIsInstalled) {
  std::filesystem::remove_all(world.Program("Data"));
  WriteText(world.Program("Data"), "no folder");
  Press("frm_Main", "btn_Randomizer");
  Answers answers;
  Press(kOverview, "btn_Randomize");
  ASSERT_EQ(2U, answers.texts.size());
  EXPECT_TRUE(answers.texts[1].starts_with("The history file ")) << answers.texts[1];
  EXPECT_EQ(0, ui.PendingMessageAction);
  EXPECT_FALSE(ui.forms.message->form.Visible());
  EXPECT_FALSE(std::filesystem::exists(world.Simulator("Texture/night.bmp")));
}

/// The process ends, so it runs in a child.
TEST(RandomizerExit, SavesTheListsAndBoxesAlsoOfPagesThatWereNeverOpened) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  const ShellWorld world;
  std::string text = InformationText(2);
  for (const char* row : {"dayInhibitRandomizer.0", "dayInhibitRandomizer.1",
                          "dayInhibitRandomizer.2", "baseInhibitRandomizer.1"}) {
    text = With(text, row + std::string("=0"), row + std::string("=1"));
  }
  world.WriteInformation(text);
  EXPECT_EXIT(
      {
        StartProgram();
        Press("frm_Main", "btn_Randomizer");
        Press(kOverview, "lbl_Cloud");
        ClickRow("frm_RandomizerCloud", "lst_Wispy", 1);
        PageOf(Family::kSky).chk_Contrails->SetValue(0);
        Press("frm_Main", "btn_Exit");
      },
      testing::ExitedWithCode(0), "");
  text = With(text, "dayInhibitRandomizer.0=1", "dayInhibitRandomizer.0=0");
  text = With(text, "wispyInhibitRandomizer.1=0", "wispyInhibitRandomizer.1=1");
  text = With(text, "contrailsInhibitRandomizer=0", "contrailsInhibitRandomizer=1");
  EXPECT_EQ(text, ReadText(world.Program("NB_Information.cfg")));
}

}  // namespace
}  // namespace nimbrel
