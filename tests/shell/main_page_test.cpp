#include <gtest/gtest.h>

#include <QtTest>

#include "ShellWorld.h"
#include "platform/system.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "shell/MainSwitches.h"
#include "shell/RefreshMainPage.h"
#include "shell/frm_Main.h"
#include "shell/frm_Preview.h"

namespace nimbrel {
namespace {

using platform::RGB;

struct MainPage : testing::Test {
  MainPage() { StartProgram(); }
  ShellWorld world;
};

struct Place {
  const char* control;
  const char* parent;
  QRect rect;
};

constexpr const char* kWindow = "frm_Main";
constexpr const char* kPanel = "pic_Main";
const Place kPlaces[] = {
    {"pic_ScreenIcon", kWindow, {180, 79, 44, 44}},
    {"pic_Main", kWindow, {177, 128, 596, 450}},
    {"btn_Exit", kWindow, {754, 12, 28, 28}},
    {"btn_Minimize", kWindow, {722, 12, 28, 28}},
    {"btn_Home", kWindow, {24, 121, 142, 44}},
    {"btn_3d", kWindow, {24, 171, 142, 44}},
    {"btn_Sky", kWindow, {24, 221, 142, 44}},
    {"btn_Water", kWindow, {24, 271, 142, 44}},
    {"btn_Randomizer", kWindow, {24, 321, 142, 44}},
    {"btn_Favorites", kWindow, {24, 371, 142, 44}},
    {"btn_Help", kWindow, {24, 475, 142, 44}},
    {"btn_About", kWindow, {24, 525, 142, 44}},
    {"btn_Install", kPanel, {305, 378, 128, 43}},
    {"btn_AddFavorite", kPanel, {165, 378, 128, 43}},
    {"btn_History", kPanel, {255, 20, 128, 43}},
    {"Label19", kPanel, {10, 13, 212, 16}},
    {"combo_History", kPanel, {10, 31, 236, 21}},
    {"Label2", kPanel, {10, 73, 221, 16}},
    {"Label6", kPanel, {10, 146, 95, 16}},
    {"lbl_Cloud_Solid", kPanel, {108, 98, 242, 16}},
    {"lbl_Cloud_Stratus", kPanel, {108, 114, 242, 16}},
    {"lbl_Cloud_Wispy", kPanel, {108, 130, 242, 16}},
    {"lbl_Cloud_Cirrus", kPanel, {108, 146, 242, 16}},
    {"Label11", kPanel, {10, 183, 221, 16}},
    {"Label10", kPanel, {10, 208, 95, 16}},
    {"lbl_Sky_Sunrise", kPanel, {108, 208, 242, 16}},
    {"lbl_Sky_Day", kPanel, {108, 224, 242, 16}},
    {"lbl_Sky_Sunset", kPanel, {108, 240, 242, 16}},
    {"lbl_Sky_Night", kPanel, {108, 256, 242, 16}},
    {"Label16", kPanel, {10, 293, 221, 16}},
    {"Label13", kPanel, {10, 350, 95, 16}},
    {"lbl_Water_Base", kPanel, {108, 318, 242, 16}},
    {"lbl_Water_Environment", kPanel, {108, 334, 242, 16}},
    {"lbl_Water_Waves", kPanel, {108, 350, 242, 16}},
    {"chk_Fast", kPanel, {353, 119, 14, 14}},
    {"lbl_Check_Fast", kPanel, {371, 112, 222, 29}},
    {"chk_DXT", kPanel, {353, 152, 14, 14}},
    {"lbl_Check_DXT", kPanel, {371, 145, 222, 29}},
    {"chk_Sun", kPanel, {353, 241, 14, 14}},
    {"lbl_Check_Sun", kPanel, {371, 240, 222, 16}},
    {"chk_Contrails", kPanel, {353, 257, 14, 14}},
    {"lbl_Check_Contrails", kPanel, {371, 256, 222, 16}},
    {"lbl_PreviewText", kPanel, {4, 423, 587, 16}},
    {"lbl_CloudPreview(0)", kPanel, {355, 73, 47, 35}},
    {"lbl_CloudPreview(3)", kPanel, {535, 73, 47, 35}},
    {"lbl_SkyPreview(1)", kPanel, {415, 183, 47, 35}},
    {"lbl_WaterPreview(2)", kPanel, {475, 293, 47, 35}},
};

TEST_F(MainPage, StandsWhereTheArtworkExpectsIt) {
  EXPECT_EQ(QSize(798, 603), Window(kWindow)->size());
  for (const Place& place : kPlaces) {
    const QWidget* control = Window(kWindow, place.control);
    ASSERT_NE(nullptr, control) << place.control;
    EXPECT_EQ(place.parent, control->parentWidget()->objectName().toStdString()) << place.control;
    EXPECT_EQ(place.rect, control->geometry()) << place.control;
  }
  EXPECT_EQ("Version 1.30", MainForm().lbl_Version.Caption());
}

TEST_F(MainPage, ColoursTextAndValuesButNotButtonCaptions) {
  EXPECT_EQ(RGB(96, 96, 96), MainForm().Label19.ForeColor());
  EXPECT_EQ(RGB(96, 96, 96), MainForm().lbl_SelectOption.ForeColor());
  for (const auto label : kSummaryLabels) {
    EXPECT_EQ(RGB(0, 101, 161), (MainForm().*label).ForeColor());
  }
  for (toolkit::Control* control : MainForm().form.Controls()) {
    if (control->Name() == "Label1") {
      EXPECT_NE(RGB(96, 96, 96), static_cast<toolkit::Label*>(control)->ForeColor());
    }
  }
}

TEST_F(MainPage, ShowsTheSelectionOfEachGroupInItsOwnPlace) {
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    CurrentSelection[static_cast<std::size_t>(group.family)]
                    [static_cast<std::size_t>(group.index)] = static_cast<std::int16_t>(i % 3);
  }
  RefreshMainPage();
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    const int option = static_cast<int>(i % 3);
    EXPECT_EQ(OptionTitle(group.family, group.index, option),
              (MainForm().*kSummaryLabels[i]).Caption());
    EXPECT_EQ(
        OptionColor(group.family, group.index, option),
        platform::GetPixel(MainForm().pic_Main.hDC(), MiniLeft(group) + 23, MiniTop(group) + 17));
  }
}

TEST_F(MainPage, AnOptionOutsideTheCatalogueHasNoTitleAndNoPicture) {
  CurrentSelection[kSky][2] = 99;
  RefreshMainPage();
  EXPECT_EQ("", MainForm().lbl_Sky_Sunset.Caption());
  EXPECT_NE(OptionColor(kSky, 2, 0),
            platform::GetPixel(MainForm().pic_Main.hDC(), 475 + 23, 183 + 17));
}

TEST_F(MainPage, TheHistoryListRunsFromTheNewestAndKeepsTheFocus) {
  HistoryEntries.assign(4, SettingsRecord{});
  HistoryLastIndex = 3;
  HistoryEntries[0].Date = 39087.63135416667;  // 5 January 2007, 15:09:09
  HistoryEntries[1].Source = 1;
  HistoryEntries[2].Source = 2;
  struct Row {
    std::int16_t focus;
    int selected;
  };
  for (const Row& row : {Row{-1, 0}, Row{1, 2}, Row{0, 3}, Row{9, -1}}) {
    HistoryFocusIndex = row.focus;
    RefreshMainPage();
    EXPECT_EQ(row.selected, MainForm().combo_History.ListIndex()) << row.focus;
  }
  const toolkit::ComboBox& combo = MainForm().combo_History;
  ASSERT_EQ(4, combo.ListCount());
  EXPECT_EQ("Jan 5, 03:09:09 PM - User", combo.List(3));
  EXPECT_EQ(0, combo.ItemData(3));
  EXPECT_TRUE(combo.List(2).ends_with(" - Randomizer")) << combo.List(2);
  EXPECT_TRUE(combo.List(1).ends_with(" - User")) << combo.List(1);
}

TEST_F(MainPage, ACheckLabelTogglesItsOwnBox) {
  struct Pair {
    const char* label;
    toolkit::CheckBox& box;
  };
  const MainSwitches boxes = Switches();
  for (const Pair& pair :
       {Pair{"lbl_Check_Fast", boxes.chk_Fast}, Pair{"lbl_Check_DXT", boxes.chk_DXT},
        Pair{"lbl_Check_Sun", boxes.chk_Sun}, Pair{"lbl_Check_Contrails", boxes.chk_Contrails}}) {
    const bool before = IsOn(pair.box);
    ClickOn(kWindow, pair.label);
    EXPECT_EQ(!before, IsOn(pair.box)) << pair.label;
    QTest::mouseDClick(Window(kWindow, pair.label), Qt::LeftButton, {}, {3, 3});
    QTest::mouseRelease(Window(kWindow, pair.label), Qt::LeftButton, {}, {3, 3});
    EXPECT_EQ(before, IsOn(pair.box)) << "a double click toggles twice: " << pair.label;
  }
}

TEST_F(MainPage, APreviewOpensSwapsAndCloses) {
  const auto shown = [] { return platform::GetPixel(PreviewForm().form.hDC(), 130, 100); };
  ClickOn(kWindow, "lbl_SkyPreview(2)");
  ASSERT_TRUE(PreviewIsOpen());
  EXPECT_EQ(QRect(177, 240, 272, 210), Window("frm_Preview")->geometry());
  EXPECT_EQ(Window(kWindow), Window("frm_Preview")->parentWidget());
  EXPECT_EQ(kPreviewOpenText, MainForm().lbl_PreviewText.Caption());
  EXPECT_EQ(OptionColor(kSky, 2, 0), shown());
  CurrentSelection[kWater][1] = 2;
  ClickOn(kWindow, "lbl_WaterPreview(1)");
  EXPECT_EQ(OptionColor(kWater, 1, 2), shown());
  ClickOn("frm_Preview", {});
  EXPECT_FALSE(PreviewIsOpen());
  EXPECT_EQ(nullptr, Window("frm_Preview")->parentWidget());
  EXPECT_EQ(kPreviewClosedText, MainForm().lbl_PreviewText.Caption());
}

TEST_F(MainPage, OnlyTheLeftButtonOnTheBackgroundTakesHoldOfTheWindow) {
  QWidget* window = Window(kWindow);
  QTest::mousePress(window, Qt::RightButton, {}, {400, 30});
  EXPECT_EQ(toolkit::kPointerDefault, MainForm().form.MousePointer());
  QTest::mouseRelease(window, Qt::RightButton, {}, {400, 30});
  QTest::mousePress(window, Qt::LeftButton, {}, {400, 30});
  EXPECT_EQ(toolkit::kPointerCustom, MainForm().form.MousePointer());
  QTest::mouseRelease(window, Qt::LeftButton, {}, {400, 30});
  EXPECT_EQ(toolkit::kPointerDefault, MainForm().form.MousePointer());
}

}  // namespace
}  // namespace nimbrel
