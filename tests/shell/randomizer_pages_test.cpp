#include <gtest/gtest.h>

#include <QListWidget>
#include <QScrollBar>
#include <QtTest>
#include <filesystem>
#include <string>
#include <vector>

#include "ShellWorld.h"
#include "platform/system.h"
#include "randomizer/frm_RandomizerConstraints.h"
#include "randomizer/frm_RandomizerOverview.h"
#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "shell/MainSwitches.h"
#include "shell/PageForm.h"
#include "shell/Pages.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"
#include "shell/frm_Preview.h"

namespace nimbrel {
namespace {

constexpr const char* kOverview = "frm_RandomizerOverview";

struct RandomizerPages : testing::Test {
  RandomizerPages() { StartProgram(); }
  ShellWorld world;
};

TextureOption& Option(std::int16_t family, std::int16_t group, std::int16_t option) {
  return *Catalogue.Tables[static_cast<std::size_t>(family)].Cell(group, option);
}

ConstraintList& ListAt(std::int16_t family, std::size_t group) {
  return *RandomizerPage(family).lists[group];
}

/// Clicks on a row, on its check box or further right.
void Toggle(const char* page, const char* list, int row, int right = 10) {
  auto* widget = qobject_cast<QListWidget*>(Window(page, list));
  ASSERT_NE(nullptr, widget) << list;
  widget->scrollToItem(widget->item(row));
  const QRect place = widget->visualItemRect(widget->item(row));
  QTest::mouseClick(widget->viewport(), Qt::LeftButton, {},
                    {place.left() + right, place.center().y()});
}

/// Option and check mark of each row from the top, the button's state, the percentage.
std::string State(const ConstraintList& list) {
  std::string text;
  for (int row = 0; row < list.list.ListCount(); ++row) {
    text += std::to_string(list.list.ItemData(row)) + (list.list.Selected(row) ? "+ " : "- ");
  }
  const std::string caption = list.percentage.Caption();
  return text + list.check_all.state() + caption.substr(caption.find(':') + 1);
}

TEST_F(RandomizerPages, TabsLeadFromPageToPageAndShowWhoseTheyAre) {
  Press("frm_Main", "btn_Randomizer");
  EXPECT_EQ(kOverview, CurrentPage);
  const struct {
    const char* tab;
    const char* page;
    const char* list;
  } steps[] = {{"lbl_Sky", "frm_RandomizerSky", "lst_Day"},
               {"lbl_Water", "frm_RandomizerWater", "lst_Waves"},
               {"lbl_Cloud", "frm_RandomizerCloud", "lst_Solid"},
               {"lbl_Overview", kOverview, nullptr}};
  for (const auto& step : steps) {
    const std::string left = CurrentPage;
    ClickOn(left, step.tab);
    EXPECT_EQ(step.page, CurrentPage);
    EXPECT_FALSE(Window(left)->isVisible());
    EXPECT_TRUE(Window(step.page)->isVisible());
    EXPECT_EQ(Window("frm_Main"), Window(step.page)->parentWidget());
    EXPECT_TRUE(Window(step.page, step.tab)->font().bold());
    ClickOn(step.page, step.tab);
    EXPECT_EQ(step.page, CurrentPage) << "its own tab does nothing";
    if (step.list != nullptr) {
      EXPECT_TRUE(Window(step.page, step.list)->isVisible());
    }
  }
  Press("frm_Main", "btn_Home");
  EXPECT_FALSE(Window(kOverview)->isVisible());
}

struct Place {
  const char* page;
  const char* control;
  QRect rect;
};

TEST_F(RandomizerPages, ControlsStandWhereTheArtworkExpectsThem) {
  RandomizerOverview();
  for (const std::int16_t family : {kCloud, kSky, kWater}) {
    RandomizerPage(family);
  }
  for (const Place& place : {Place{kOverview, "lbl_Water", {275, 11, 70, 16}},
                             Place{kOverview, "Label3", {15, 40, 566, 42}},
                             Place{kOverview, "lbl_Cloud_Cirrus", {114, 171, 242, 16}},
                             Place{kOverview, "lbl_Sky_Sunset", {114, 252, 242, 16}},
                             Place{kOverview, "lbl_Water_Waves", {114, 349, 242, 16}},
                             Place{kOverview, "lbl_SkyPreview(3)", {537, 200, 47, 35}},
                             Place{kOverview, "lbl_WaterPreview(1)", {417, 297, 47, 35}},
                             Place{kOverview, "btn_Randomize", {305, 378, 128, 43}},
                             Place{"frm_RandomizerCloud", "lst_Stratus", {311, 105, 267, 79}},
                             Place{"frm_RandomizerCloud", "btn_Wispy_CheckAll", {243, 365, 44, 44}},
                             Place{"frm_RandomizerSky", "lbl_Night_pct", {311, 345, 173, 16}},
                             Place{"frm_RandomizerSky", "btn_Sunset_CheckAll", {243, 345, 44, 44}},
                             Place{"frm_RandomizerSky", "chk_Contrails", {15, 416, 561, 19}},
                             Place{"frm_RandomizerWater", "lst_Waves", {15, 278, 267, 79}}}) {
    EXPECT_EQ(place.rect, Window(place.page, place.control)->geometry()) << place.control;
  }
}

TEST_F(RandomizerPages, ListsAreSortedKeepTheirMarksAndRepairThemselves) {
  Option(kSky, 0, 0).Title = "  zenith ";
  Option(kSky, 0, 1).Title = "Alpha";
  Option(kSky, 0, 1).InhibitRandomizer = 5;
  for (std::int16_t option = 0; option < 3; ++option) {
    Option(kSky, 1, option).InhibitRandomizer = 1;
    Option(kSky, 2, option).Title = std::string(1, static_cast<char>('c' - option));
  }
  Catalogue.HighestIndex[kSky][3] = -1;
  EXPECT_EQ("1- 2+ 0+ enabled 50.0%", State(ListAt(kSky, 0)));
  EXPECT_EQ("zenith", ListAt(kSky, 0).list.List(2));
  EXPECT_EQ("0+ 1- 2- enabled 100.0%", State(ListAt(kSky, 1)));
  EXPECT_EQ("2+ 1+ 0+ disabled 33.3%", State(ListAt(kSky, 2)));
  EXPECT_EQ("disabled 00.0%", State(ListAt(kSky, 3)));
  EXPECT_EQ(1, RandomizerPage(kSky).chk_Sun->Value());
  EXPECT_EQ(0, RandomizerPage(kSky).chk_Contrails->Value());
  EXPECT_EQ(5, Option(kSky, 0, 1).InhibitRandomizer) << "only a draw or the exit writes flags";
}

TEST_F(RandomizerPages, ClicksChangeTheListAloneAndNeverLeaveItWithNothing) {
  Press("frm_Main", "btn_Randomizer");
  ClickOn(kOverview, "lbl_Water");
  constexpr const char* kPage = "frm_RandomizerWater";
  const ConstraintList& waves = ListAt(kWater, 2);
  Toggle(kPage, "lst_Waves", 0);
  EXPECT_EQ("0- 1+ 2+ enabled 50.0%", State(waves));
  Toggle(kPage, "lst_Waves", 2);
  EXPECT_EQ("0- 1+ 2- enabled 100.0%", State(waves));
  Toggle(kPage, "lst_Waves", 1, 200);
  EXPECT_EQ("0+ 1- 2- enabled 100.0%", State(waves)) << "the first row stands in";
  Toggle(kPage, "lst_Waves", 0);
  EXPECT_EQ("0+ 1- 2- enabled 100.0%", State(waves)) << "also for itself";
  ClickOn(kPage, "lbl_Sky");
  Press("frm_Main", "btn_Home");
  Press("frm_Main", "btn_Randomizer");
  ClickOn(kOverview, "lbl_Water");
  EXPECT_EQ("0+ 1- 2- enabled 100.0%", State(waves)) << "kept across pages";
  EXPECT_EQ("0+ 1+ 2+ disabled 33.3%", State(ListAt(kWater, 0)));
  EXPECT_EQ(0, Option(kWater, 2, 1).InhibitRandomizer);
  Press(kPage, "btn_Waves_CheckAll");
  EXPECT_EQ("0+ 1+ 2+ disabled 33.3%", State(waves));
}

TEST_F(RandomizerPages, EveryCheckAllButtonServesItsOwnList) {
  for (const OptionGroup& group : kOptionGroups) {
    const auto place = static_cast<std::size_t>(group.index);
    ConstraintList& list = ListAt(group.family, place);
    list.list.SetSelected(1, false);
    UpdateConstraintPage(RandomizerPage(group.family));
    ASSERT_EQ("0+ 1- 2+ enabled 50.0%", State(list));
    list.check_all.Activate();
    EXPECT_EQ("0+ 1+ 2+ disabled 33.3%", State(list)) << list.look.name;
  }
}

TEST_F(RandomizerPages, TheOverviewShowsTheRecordOfEachGroupInItsOwnPlace) {
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    RandomizerRecord.*kRecordFields[i] = static_cast<std::int16_t>(i % 3);
  }
  RandomizerRecord.Date = 39087.63135416667;
  RandomizerRecord.Sun = 1;
  RandomizerRecord.Contrails = 2;
  Press("frm_Main", "btn_Randomizer");
  const frm_RandomizerOverview& page = RandomizerOverview();
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    const int option = static_cast<int>(i % 3);
    EXPECT_EQ(OptionTitle(group.family, group.index, option), page.titles[i]->Caption());
    const QPoint middle = Window(kOverview, page.preview_spots[i]->Name())->geometry().center();
    EXPECT_EQ(OptionColor(group.family, group.index, option),
              platform::GetPixel(page.form.hDC(), middle.x(), middle.y()));
  }
  EXPECT_EQ("Jan 5, 03:09:09 PM", page.lbl_DateTime.Caption());
  EXPECT_EQ("Use Replacement", page.lbl_Sky_Sun.Caption());
  EXPECT_EQ("Use Default", page.lbl_Sky_Contrails.Caption()) << "on at exactly 1";
  EXPECT_EQ(kValueColor, page.lbl_DateTime.ForeColor());
}

TEST_F(RandomizerPages, APreviewOpensOnTheOverviewAndClosesWithItsPage) {
  RandomizerRecord.Wispy = 2;
  Press("frm_Main", "btn_Randomizer");
  ClickOn(kOverview, "lbl_CloudPreview(2)");
  ASSERT_TRUE(PreviewIsOpen());
  EXPECT_EQ(QRect(0, 120, 272, 210), Window("frm_Preview")->geometry());
  EXPECT_EQ(Window(kOverview), Window("frm_Preview")->parentWidget());
  EXPECT_EQ(OptionColor(kCloud, 2, 2), platform::GetPixel(PreviewForm().form.hDC(), 130, 100));
  EXPECT_EQ(kPreviewOpenText, RandomizerOverview().lbl_PreviewText.Caption());
  EXPECT_EQ(kPreviewOpenText, MainForm().lbl_PreviewText.Caption());
  ClickOn(kOverview, "lbl_Sky");
  EXPECT_FALSE(PreviewIsOpen());
  EXPECT_EQ(kPreviewClosedText, RandomizerOverview().lbl_PreviewText.Caption());
}

/// Leaves option 2 of every group as the only choice.
void AllowLastOptionsOnly() {
  for (const OptionGroup& group : kOptionGroups) {
    toolkit::ListBox& list = ListAt(group.family, static_cast<std::size_t>(group.index)).list;
    list.SetSelected(0, false);
    list.SetSelected(1, false);
  }
  RandomizerPage(kSky).chk_Sun->SetValue(0);
}

TEST_F(RandomizerPages, OkDrawsRecordsAndInstallsBeforeTheClosingMessage) {
  platform::SetClock([] { return 39087.63135416667; });
  Press("frm_Main", "btn_Randomizer");
  AllowLastOptionsOnly();
  ClickOn(kOverview, "lbl_SkyPreview(1)");
  Answers answers;
  Press(kOverview, "btn_Randomize");
  platform::SetClock(nullptr);
  ASSERT_EQ(2U, answers.titles.size());
  EXPECT_EQ("Randomize Settings?", answers.titles[0]);
  EXPECT_EQ("Copying Files to Flight Simulator", answers.titles[1]);
  EXPECT_FALSE(MessageForm().form.Visible());
  EXPECT_EQ(0, PendingMessageAction);
  EXPECT_EQ(1, MessageAnswer);
  for (const auto field : kRecordFields) {
    EXPECT_EQ(2, RandomizerRecord.*field);
  }
  EXPECT_EQ(2, CurrentSelection[kSky][3]);
  EXPECT_FALSE(IsOn(Switches().chk_Sun));
  EXPECT_TRUE(IsOn(Switches().chk_DXT));
  EXPECT_EQ(OptionTitle(kCloud, 0, 2), RandomizerOverview().titles[0]->Caption());
  EXPECT_TRUE(PreviewIsOpen());
  EXPECT_EQ(OptionColor(kSky, 1, 2), platform::GetPixel(PreviewForm().form.hDC(), 130, 100));
  ASSERT_EQ(1U, HistoryEntries.size());
  EXPECT_EQ(1, HistoryEntries[0].Source);
  EXPECT_EQ(39087.63135416667, HistoryEntries[0].Date);
  EXPECT_EQ("base2", ReadText(world.Simulator() / "Texture" / "base.bmp"));
  const std::string stored = ReadText(world.Program() / "NB_Information.cfg");
  EXPECT_NE(std::string::npos, stored.find("nightInhibitRandomizer.1=1"));
  EXPECT_NE(std::string::npos, stored.find("nightInhibitRandomizer.2=0"));
  EXPECT_NE(std::string::npos, stored.find("sunInhibitRandomizer=0")) << "the exit's to write";
}

TEST_F(RandomizerPages, CancelChangesNothing) {
  const auto before = world.Files();
  const Selection selection = CurrentSelection;
  Press("frm_Main", "btn_Randomizer");
  AllowLastOptionsOnly();
  QTimer::singleShot(0, [] { Press("frm_Msg", "btn_Cancel"); });
  Press(kOverview, "btn_Randomize");
  EXPECT_EQ(0, PendingMessageAction);
  EXPECT_EQ(0, MessageAnswer);
  EXPECT_EQ(selection, CurrentSelection);
  EXPECT_EQ(SettingsRecord{}, RandomizerRecord);
  EXPECT_TRUE(world.Changes(before).empty());
}

TEST_F(RandomizerPages, AHistoryThatCantBeWrittenIsToldAndNothingIsInstalled) {
  std::filesystem::remove_all(world.Program() / "Data");
  WriteText(world.Program() / "Data", "no folder");
  Press("frm_Main", "btn_Randomizer");
  Answers answers;
  Press(kOverview, "btn_Randomize");
  ASSERT_EQ(2U, answers.texts.size());
  EXPECT_TRUE(answers.texts[1].starts_with("The history file ")) << answers.texts[1];
  EXPECT_EQ(0, PendingMessageAction);
  EXPECT_FALSE(MessageForm().form.Visible());
  EXPECT_FALSE(std::filesystem::exists(world.Simulator() / "Texture" / "base.bmp"));
}

/// A thousand options in each of the four groups: the page fills, and refreshes at a click.
TEST_F(RandomizerPages, AThousandOptionsInEachGroupFillTheirLists) {
  Catalogue.Tables[kCloud].Create(4, 999);
  Catalogue.HighestIndex[kCloud] = {999, 999, 999, 999};
  for (std::int16_t group = 0; group < 4; ++group) {
    for (std::int16_t option = 0; option < 1000; ++option) {
      Option(kCloud, group, option).Title = std::to_string(option * 7919 % 1000);
    }
  }
  Press("frm_Main", "btn_Randomizer");
  ClickOn(kOverview, "lbl_Cloud");
  EXPECT_EQ(1000, ListAt(kCloud, 3).list.ListCount());
  Toggle("frm_RandomizerCloud", "lst_Cirrus", 999);
  EXPECT_FALSE(ListAt(kCloud, 3).list.Selected(999));
  EXPECT_EQ("Selection Percentage: 00.1%", ListAt(kCloud, 3).percentage.Caption());
}

/// The process ends, so it runs in a child.
TEST(RandomizerExit, SavesTheListsAndBoxesAlsoOfPagesThatWereNeverOpened) {
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  const ShellWorld world;
  std::string text = ReadText(world.Program() / "NB_Information.cfg");
  for (const char* row : {"dayInhibitRandomizer.0", "dayInhibitRandomizer.1",
                          "dayInhibitRandomizer.2", "baseInhibitRandomizer.1"}) {
    text.replace(text.find(row), std::string(row).size() + 2, std::string(row) + "=1");
  }
  WriteText(world.Program() / "NB_Information.cfg", text);
  EXPECT_EXIT(
      {
        StartProgram();
        Press("frm_Main", "btn_Randomizer");
        ClickOn(kOverview, "lbl_Cloud");
        Toggle("frm_RandomizerCloud", "lst_Wispy", 1);
        Press("frm_Main", "btn_Exit");
      },
      testing::ExitedWithCode(0), "");
  const struct {
    const char* from;
    const char* to;
  } changes[] = {{"dayInhibitRandomizer.0=1", "dayInhibitRandomizer.0=0"},
                 {"wispyInhibitRandomizer.1=0", "wispyInhibitRandomizer.1=1"}};
  for (const auto& change : changes) {
    text.replace(text.find(change.from), std::string(change.from).size(), change.to);
  }
  EXPECT_EQ(text, ReadText(world.Program() / "NB_Information.cfg"));
}

}  // namespace
}  // namespace nimbrel
