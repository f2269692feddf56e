#include <gtest/gtest.h>

#include <QImage>
#include <string>
#include <vector>

#include "ShellWorld.h"
#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "shell/Pages.h"
#include "shell/RingPage.h"
#include "shell/frm_About.h"
#include "shell/frm_Main.h"
#include "shell/frm_Sky.h"

namespace nimbrel {
namespace {

struct RingPages : testing::Test {
  RingPages() {
    StartProgram();
    CloudFrontGroup = SkyFrontGroup = WaterFrontGroup = 0;
  }
  ShellWorld world;
};

platform::ColorRef ColorAt(const toolkit::Form& form, int x, int y) {
  return platform::GetPixel(form.hDC(), x, y);
}

struct Labels {
  std::string base;
  std::string right;
  std::string center;
  std::string left;
};

void ExpectLabels(const RingPage& page, const Labels& expected) {
  EXPECT_EQ(expected.base, page.lbl_Base.Caption());
  EXPECT_EQ(expected.right, page.lbl_Right.Caption());
  EXPECT_EQ(expected.left, page.lbl_Left.Caption());
  if (page.lbl_Center) {
    EXPECT_EQ(expected.center, page.lbl_Center->Caption());
  }
}

TEST_F(RingPages, TheCloudRingTurnsThroughItsFourGroupsAndBack) {
  CurrentSelection[kCloud] = {0, 1, 2, 0};
  Press("frm_Main", "btn_3d");
  EXPECT_EQ("frm_3d", CurrentPage);
  EXPECT_EQ(Window("frm_Main"), Window("frm_3d")->parentWidget());
  const std::string solid = OptionTitle(kCloud, 0, 0);
  const std::string stratus = OptionTitle(kCloud, 1, 1);
  const std::string wispy = OptionTitle(kCloud, 2, 2);
  const std::string cirrus = OptionTitle(kCloud, 3, 0);
  const std::vector<Labels> turns{
      {"Solid Cumulus: " + solid, "Stratus: " + stratus, "Wispy: " + wispy, "Cirrus: " + cirrus},
      {"Stratus: " + stratus, "Wispy: " + wispy, "Cirrus: " + cirrus, "Solid: " + solid},
      {"Wispy Edges: " + wispy, "Cirrus: " + cirrus, "Solid: " + solid, "Stratus: " + stratus},
      {"Cirrus: " + cirrus, "Solid: " + solid, "Stratus: " + stratus, "Wispy: " + wispy}};
  const Selection before = CurrentSelection;
  for (std::size_t turn = 0; turn < 4; ++turn) {
    ExpectLabels(CloudPage(), turns[turn]);
    const int group = static_cast<int>(turn);
    EXPECT_EQ(OptionColor(kCloud, group, before[kCloud][turn]),
              ColorAt(CloudPage().form, 298, 220));
    Press("frm_3d", "btn_Clockwise");
  }
  EXPECT_EQ(0, CloudFrontGroup);
  Press("frm_3d", "btn_CounterClockwise");
  ExpectLabels(CloudPage(), turns[3]);
  EXPECT_EQ(before, CurrentSelection);
}

TEST_F(RingPages, ATurnEndsAsTheRingAtRestIsDrawn) {
  for (const char* direction : {"btn_Clockwise", "btn_CounterClockwise"}) {
    Press("frm_Main", "btn_Water");
    Press("frm_Water", direction);
    const std::vector<std::uint8_t> turned = WaterPage().form.hDC()->bitmap->bits;
    Press("frm_Main", "btn_Water");
    EXPECT_EQ(turned, WaterPage().form.hDC()->bitmap->bits) << direction;
  }
  EXPECT_EQ(0, WaterFrontGroup);
}

TEST_F(RingPages, StepsEndAtBothEndsAndTheArrowsFollow) {
  Press("frm_Main", "btn_Water");
  RingPage& page = WaterPage();
  const auto arrows = [&page] { return page.btn_Left.state() + "/" + page.btn_Right.state(); };
  EXPECT_EQ("enabled/enabled", arrows()) << "stale until the first step";
  const struct {
    const char* button;
    int option;
    const char* arrows;
  } steps[] = {
      {"btn_Left", 0, "disabled/enabled"},  {"btn_Right", 1, "enabled/highlight"},
      {"btn_Right", 2, "enabled/disabled"}, {"btn_Right", 2, "enabled/disabled"},
      {"btn_Left", 1, "highlight/enabled"},
  };
  for (const auto& step : steps) {
    Press("frm_Water", step.button);
    EXPECT_EQ(step.option, CurrentSelection[kWater][0]);
    EXPECT_EQ(step.arrows, arrows());
  }
  EXPECT_EQ("Base Color: " + OptionTitle(kWater, 0, 1), page.lbl_Base.Caption());
  EXPECT_EQ(OptionColor(kWater, 0, 1), ColorAt(page.form, 298, 220));
  Press("frm_Main", "btn_Home");
  EXPECT_EQ(OptionTitle(kWater, 0, 1), MainForm().lbl_Water_Base.Caption());
}

TEST_F(RingPages, TheSkyRingTurnsTheOtherWayAndKeepsItsFrontGroup) {
  CurrentSelection[kSky] = {0, 1, 2, 1};
  Press("frm_Main", "btn_Sky");
  EXPECT_EQ("frm_sky", CurrentPage);
  EXPECT_EQ("Sunrise Options", SkyPage().lbl_Setting.Caption());
  const struct {
    const char* button;
    int group;
    const char* setting;
  } turns[] = {{"btn_CounterClockwise", 1, "Day Options"},
               {"btn_CounterClockwise", 2, "Sunset Options"},
               {"btn_Clockwise", 1, "Day Options"},
               {"btn_Clockwise", 0, "Sunrise Options"},
               {"btn_Clockwise", 3, "Night Options"}};
  for (const auto& turn : turns) {
    Press("frm_Sky", turn.button);
    const auto group = static_cast<std::size_t>(turn.group);
    EXPECT_EQ(turn.setting, SkyPage().lbl_Setting.Caption());
    EXPECT_EQ(OptionColor(kSky, turn.group, CurrentSelection[kSky][group]),
              ColorAt(SkyPage().form, 298, 167));
  }
  Press("frm_Main", "btn_Home");
  Press("frm_Main", "btn_Sky");
  EXPECT_EQ(3, SkyFrontGroup);
  EXPECT_EQ("Night Options", SkyPage().lbl_Setting.Caption());
  EXPECT_EQ(OptionTitle(kSky, 2, 2), SkyPage().lbl_Title[2].Caption());
}

TEST_F(RingPages, AnOptionOutsideTheCatalogueShowsItsFrameAlone) {
  CurrentSelection[kCloud] = {-5, 99, 32767, 0};
  Press("frm_Main", "btn_3d");
  EXPECT_EQ("Solid Cumulus: ", CloudPage().lbl_Base.Caption());
  Press("frm_3d", "btn_Clockwise");
  EXPECT_EQ("Stratus: ", CloudPage().lbl_Base.Caption());
  Press("frm_3d", "btn_Left");
  EXPECT_EQ(98, CurrentSelection[kCloud][1]);
}

TEST_F(RingPages, AboutNamesTheVersion) {
  Press("frm_Main", "btn_About");
  EXPECT_EQ("frm_About", CurrentPage);
  EXPECT_EQ("version: 1.3.0", AboutPage().lbl_Version.Caption());
}

}  // namespace
}  // namespace nimbrel
