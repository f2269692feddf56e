#include <gtest/gtest.h>

#include <QtTest>

#include "ShellWorld.h"
#include "app/mod_Main.h"
#include "shell/State.h"
#include "shell/mod_Misc.h"
#include "shell/pages/frm_Main.h"
#include "shell/pages/frm_Preview.h"

namespace nimbrel {
namespace {

constexpr const char* kWindow = "frm_Main";

struct MainPage : testing::Test {
  MainPage() { StartProgram(); }
  static frm_Main& Main() { return *ui.forms.main; }
  ShellWorld world;
};

TEST_F(MainPage, ShowsTheSelectionOfEachGroupInItsOwnPlace) {
  ui.CurrentSelection.values = {0, 1, 2, 0, 1, 2, 99, 1, 2, 0, 1};
  RefreshMainPage();
  for (const GroupFacts& facts : kGroups) {
    const int option = ui.CurrentSelection[facts.group];
    const bool exists = option < 3;
    EXPECT_EQ(exists ? OptionTitle(facts.group, option) : "",
              Main().titles[facts.group]->Caption());
    const std::uint32_t color =
        ColorAt(Main().pic_Main,
                Window(kWindow, Main().preview_spots[facts.group]->Name())->geometry().center());
    EXPECT_EQ(exists, OptionColor(facts.group, option) == color) << facts.name;
  }
}

TEST_F(MainPage, TheHistoryListRunsFromTheNewestAndKeepsTheFocus) {
  ui.history.entries.assign(4, SettingsRecord{});
  ui.history.entries[0].Date = 39087.63135416667;  // 5 January 2007, 15:09:09
  ui.history.entries[1].Source = kFromRandomizer;
  ui.history.entries[2].Source = kFromFavorite;
  const toolkit::ComboBox& combo = Main().combo_History;
  for (const auto& [focus, selected] : {std::pair{-1, 0}, {1, 2}, {0, 3}, {9, -1}}) {
    ui.HistoryFocusIndex = static_cast<std::int16_t>(focus);
    RefreshMainPage();
    EXPECT_EQ(selected, combo.ListIndex()) << focus;
  }
  ASSERT_EQ(4, combo.ListCount());
  EXPECT_EQ("Jan 5, 03:09:09 PM - User", combo.List(3));
  EXPECT_TRUE(combo.List(2).ends_with(" - Randomizer")) << combo.List(2);
  EXPECT_TRUE(combo.List(1).ends_with(" - User")) << combo.List(1);
}

TEST_F(MainPage, ACheckLabelTogglesItsBoxAndADoubleClickTwice) {
  Press(kWindow, "lbl_Check_Contrails");
  EXPECT_FALSE(IsOn(Main().chk_Contrails));
  QWidget* label = Window(kWindow, "lbl_Check_Contrails");
  QTest::mouseClick(label, Qt::LeftButton, {}, {3, 3});
  QTest::mouseDClick(label, Qt::LeftButton, {}, {3, 3});
  QTest::mouseRelease(label, Qt::LeftButton, {}, {3, 3});
  EXPECT_FALSE(IsOn(Main().chk_Contrails));
}

TEST_F(MainPage, APreviewOpensChangesAndCloses) {
  const auto shown = [] { return ColorAt(ui.forms.preview->form, {130, 100}); };
  Press(kWindow, "lbl_SkyPreview(2)");
  ASSERT_TRUE(PreviewIsOpen());
  EXPECT_EQ(QRect(177, 240, 272, 210), Window("frm_Preview")->geometry());
  EXPECT_EQ(Window(kWindow), Window("frm_Preview")->parentWidget());
  EXPECT_EQ(kPreviewOpenText, Main().lbl_PreviewText.Caption());
  EXPECT_EQ(OptionColor(Group::kSunset, 0), shown());
  ui.CurrentSelection[Group::kEnvironment] = 2;
  Press(kWindow, "lbl_WaterPreview(1)");
  EXPECT_EQ(OptionColor(Group::kEnvironment, 2), shown());
  Press("frm_Preview");
  EXPECT_FALSE(PreviewIsOpen());
  EXPECT_EQ(nullptr, Window("frm_Preview")->parentWidget());
  EXPECT_EQ(kPreviewClosedText, Main().lbl_PreviewText.Caption());
}

}  // namespace
}  // namespace nimbrel
