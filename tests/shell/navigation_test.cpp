#include <gtest/gtest.h>

#include <QtTest>

#include "ShellWorld.h"
#include "app/mod_Main.h"
#include "shell/State.h"
#include "shell/pages/frm_Main.h"
#include "shell/pages/frm_Preview.h"
#include "support/BmpFile.h"
#include "support/OpenedDocument.h"

namespace nimbrel {
namespace {

struct Navigation : testing::Test {
  Navigation() { StartProgram(); }
  static frm_Main& Main() { return *ui.forms.main; }
  ShellWorld world;
};

/// A press that opens a page, the icon over the page, and a list on it that is hidden with it.
struct Step {
  const char* form;
  const char* control;
  const char* page;
  const char* icon;
  const char* list = nullptr;
};
constexpr const char* kMain = "frm_Main";
constexpr const char* kOverview = "frm_RandomizerOverview";
constexpr Step kSteps[] = {
    {kMain, "btn_Favorites", "frm_Favorite", "icon_Favorites.bmp", "lst_Favorites"},
    {kMain, "btn_3d", "frm_3d", "icon_3d.bmp"},
    {kMain, "btn_Sky", "frm_Sky", "icon_Sky.bmp"},
    {kMain, "btn_Water", "frm_Water", "icon_Water.bmp"},
    {kMain, "btn_Water", "frm_Water", "icon_Water.bmp"},
    {kMain, "btn_Randomizer", kOverview, "icon_Randomizer.bmp"},
    {kOverview, "lbl_Overview", kOverview, "icon_Randomizer.bmp"},
    {kOverview, "lbl_Sky", "frm_RandomizerSky", "icon_Randomizer.bmp", "lst_Day"},
    {"frm_RandomizerSky", "lbl_Water", "frm_RandomizerWater", "icon_Randomizer.bmp", "lst_Waves"},
    {"frm_RandomizerWater", "lbl_Cloud", "frm_RandomizerCloud", "icon_Randomizer.bmp", "lst_Solid"},
    {"frm_RandomizerCloud", "lbl_Overview", kOverview, "icon_Randomizer.bmp"},
    {kMain, "btn_About", "frm_About", "icon_About.bmp"},
};

TEST_F(Navigation, EachButtonAndTabPutsItsPageOverThePanelInPlaceOfTheLast) {
  const Step* left = nullptr;
  std::uint32_t color = 0;
  for (const Step& step : kSteps) {
    if (left == nullptr || step.icon != std::string(left->icon)) {
      color += 0x101010;
      WriteText(world.Program("Media/" + std::string(step.icon)),
                ColorBmp(44, 44, [color](int, int) { return color; }).Bytes());
    }
    Press(step.form, step.control);
    EXPECT_EQ(0, QString::compare(step.page, ui.CurrentPage.c_str(), Qt::CaseInsensitive));
    EXPECT_EQ(Window(kMain), Window(step.page)->parentWidget());
    EXPECT_EQ(QPoint(177, 128), Window(step.page)->pos());
    EXPECT_TRUE(Window(step.page)->isVisible());
    EXPECT_TRUE(step.list == nullptr || Window(step.page, step.list)->isVisible());
    EXPECT_EQ(color, ColorAt(Main().pic_ScreenIcon, {20, 20})) << step.icon;
    if (left != nullptr && left->page != std::string(step.page)) {
      EXPECT_FALSE(Window(left->page)->isVisible());
      EXPECT_EQ(nullptr, Window(left->page)->parentWidget());
      EXPECT_TRUE(left->list == nullptr || Window(left->page, left->list)->isHidden());
    }
    left = &step;
  }
  ui.CurrentSelection[Group::kStratus] = 2;
  Press(kMain, "btn_Home");
  EXPECT_FALSE(Window(left->page)->isVisible());
  EXPECT_EQ(kMain, ui.CurrentPage);
  EXPECT_FALSE(Window(kMain, "pic_ScreenIcon")->isVisible()) << "its file is missing";
  EXPECT_EQ(OptionTitle(Group::kStratus, 2), Main().titles[Group::kStratus]->Caption());
}

TEST_F(Navigation, SaveAndInstallReachesSimulatorAndHistoryAndLoadHistoryComesBack) {
  WriteText(world.Simulator("Texture/NIGHT.BMP"), "old");
  WriteText(world.Program("TempBitmaps/cumulus01.bmp"), "clouds of the last run");
  Answers answers;
  Press("frm_Main", "btn_History");
  EXPECT_TRUE(answers.titles.empty()) << "no row selected";
  Press("frm_Main", "lbl_Check_Sun");
  for (const int option : {1, 2}) {
    ui.CurrentSelection[Group::kBase] = 1;
    ui.CurrentSelection[Group::kNight] = static_cast<std::int16_t>(option);
    Press("frm_Main", "btn_Install");
    EXPECT_EQ("night " + std::to_string(option), ReadText(world.Simulator("Texture/NIGHT.BMP")));
  }
  EXPECT_EQ("base 1", ReadText(world.Simulator("Scenery/World/texture/base.bmp")));
  ASSERT_EQ(2U, answers.titles.size());
  EXPECT_EQ("Copying Files to Flight Simulator", answers.titles[0]);
  EXPECT_TRUE(answers.texts[0].starts_with("All environment files have been copied"));
  const std::string history = ReadText(world.Program("Data/History.nbh"));
  ASSERT_EQ(2 * kRecordBytes, history.size());
  const SettingsRecord newest =
      DecodeRecord(std::as_bytes(std::span(history)).subspan(kRecordBytes));
  EXPECT_EQ((Choice{ui.CurrentSelection, false, true}), newest.choice);
  EXPECT_EQ(kFromUser, newest.Source);

  Main().combo_History.SetListIndex(1);
  EXPECT_EQ(2, ui.CurrentSelection[Group::kNight]) << "picking a row alone loads nothing";
  Press("frm_Main", "lbl_SkyPreview(3)");
  Press("frm_Main", "btn_History");
  EXPECT_EQ("History Settings Loaded", answers.titles.back());
  EXPECT_EQ(1, ui.CurrentSelection[Group::kNight]);
  EXPECT_EQ(OptionTitle(Group::kNight, 1), Main().titles[Group::kNight]->Caption());
  EXPECT_EQ(OptionColor(Group::kNight, 1), ColorAt(ui.forms.preview->form, {130, 100}));
  EXPECT_EQ(1, Main().combo_History.ListIndex());
  EXPECT_EQ(-1, ui.HistoryFocusIndex);
}

/// A read-only file is refused also if the tests run as root.
TEST_F(Navigation, AnInstallNamesUpToThreeFilesThatItCouldNotReplace) {
  const auto install = [this](const std::vector<const char*>& kept) {
    for (const char* file : kept) {
      WriteText(world.Simulator(file), "old");
      std::filesystem::permissions(world.Simulator(file), std::filesystem::perms::owner_read);
    }
    Answers answers;
    Press("frm_Main", "btn_Install");
    EXPECT_EQ(2U, answers.texts.size());
    return answers.texts.back();
  };
  EXPECT_EQ(
      "One file could not be put into Flight Simulator. What stood there before is still in "
      "place.\r\rTexture\\waves.bmp is read-only.\r\rPress the checkmark to continue.",
      install({"Texture/waves.bmp"}));
  EXPECT_EQ(
      "4 files could not be put into Flight Simulator. What stood there before is still in "
      "place.\r\rTexture\\waves.bmp is read-only.\rTexture\\sunrise.bmp is read-only.\r"
      "Texture\\day.bmp is read-only.\r...\r\rPress the checkmark to continue.",
      install({"Texture/sunrise.bmp", "Texture/day.bmp", "Texture/night.bmp"}));
}

TEST_F(Navigation, HelpOpensTheManualAndMinimizeTheTaskList) {
  const OpenedDocument opened;
  WriteText(world.Program("Nimbrel Help.pdf"), "pages");
  Press("frm_Main", "btn_Help");
  EXPECT_EQ(world.Program("Nimbrel Help.pdf").string(), opened.File());
  Press("frm_Main", "btn_Minimize");
  EXPECT_TRUE(Window("frm_Main")->isMinimized());
}

}  // namespace
}  // namespace nimbrel
