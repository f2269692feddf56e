#include <gtest/gtest.h>

#include <QtTest>
#include <array>
#include <memory>

#include "ShellWorld.h"
#include "platform/system.h"
#include "settings/Selection.h"
#include "settings/SettingsRecord.h"
#include "settings/mod_Main.h"
#include "shell/MainSwitches.h"
#include "shell/Pages.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"
#include "shell/frm_Preview.h"
#include "toolkit/desktop.h"

namespace nimbrel {
namespace {

/// A page with one list, standing for the real ones.
struct TestPage {
  toolkit::Form form{"frm_Test"};
  toolkit::PictureBox list{form, "lst_Test"};
};
std::unique_ptr<TestPage> test_page;
std::array<toolkit::Control*, 1> test_lists{};

constexpr Page kTestPage{"frm_test", FormId::kFavorite,
                         []() -> toolkit::Form& { return test_page->form; },
                         [] { return std::span<toolkit::Control* const>(test_lists); }};

struct Navigation : testing::Test {
  Navigation() {
    StartProgram();
    test_page = std::make_unique<TestPage>();
    test_page->list.SetVisible(false);
    test_lists = {&test_page->list};
    SetFormLoaded(FormId::kFavorite);
    Pages = {&kTestPage, 1};
  }
  ~Navigation() override {
    Pages = pages_;
    ClearFormLoaded(FormId::kFavorite);
    test_page.reset();
  }
  ShellWorld world;

 private:
  std::span<const Page> pages_ = Pages;
};

TEST_F(Navigation, APageLiesOverThePanelAndComesOutAgain) {
  for (int round = 0; round < 2; ++round) {
    ShowPage(test_page->form);
    EXPECT_EQ(Window("frm_Main"), Window("frm_Test")->parentWidget());
    EXPECT_EQ(QPoint(177, 128), Window("frm_Test")->pos());
    EXPECT_TRUE(test_page->form.Visible());
    EXPECT_TRUE(test_page->list.Visible());
  }
  HidePage("FRM_Test");
  EXPECT_EQ(nullptr, Window("frm_Test")->parentWidget());
  EXPECT_FALSE(test_page->form.Visible());
  EXPECT_FALSE(test_page->list.Visible());
}

TEST_F(Navigation, HomeClosesThePageAndBringsTheSummaryUpToDate) {
  ShowPage(test_page->form);
  CurrentPage = "frm_Test";
  CurrentSelection[kCloud][1] = 2;
  Press("frm_Main", "btn_Home");
  EXPECT_FALSE(test_page->form.Visible());
  EXPECT_EQ("frm_Main", CurrentPage);
  EXPECT_EQ(OptionTitle(kCloud, 1, 2), MainForm().lbl_Cloud_Stratus.Caption());
}

TEST_F(Navigation, OnlyTheFirstHomeAfterTheStartClosesThePreview) {
  ClickOn("frm_Main", "lbl_CloudPreview(0)");
  Press("frm_Main", "btn_Home");
  EXPECT_FALSE(PreviewIsOpen());
  ClickOn("frm_Main", "lbl_CloudPreview(0)");
  Press("frm_Main", "btn_Home");
  EXPECT_TRUE(PreviewIsOpen());
  ShowPage(test_page->form);
  EXPECT_FALSE(PreviewIsOpen());
  EXPECT_EQ(kPreviewClosedText, MainForm().lbl_PreviewText.Caption());
}

TEST_F(Navigation, SaveAndInstallReachesTheSimulatorAndTheHistory) {
  Answers answers;
  CurrentSelection[kWater][0] = 1;
  CurrentSelection[kSky][3] = 2;
  ClickOn("frm_Main", "lbl_Check_Sun");
  WriteText(world.Simulator() / "Texture" / "BASE.BMP", "old");
  WriteText(world.Program() / "TempBitmaps" / "cumulus01.bmp", "clouds of the last run");
  Press("frm_Main", "btn_Install");
  EXPECT_EQ(std::vector<std::string>{"Copying Files to Flight Simulator"}, answers.titles);
  EXPECT_EQ("base1", ReadText(world.Simulator() / "Texture" / "BASE.BMP"));
  EXPECT_EQ("night2", ReadText(world.Simulator() / "Texture" / "night.bmp"));
  EXPECT_EQ("waves0", ReadText(world.Simulator() / "Waves" / "waves.bmp"));
  const std::string history = ReadText(world.Program() / "Data" / "History.nbh");
  ASSERT_EQ(kRecordBytes, history.size());
  const SettingsRecord record = DecodeRecord(std::as_bytes(std::span(history)));
  EXPECT_EQ(1, record.Base);
  EXPECT_EQ(2, record.Night);
  EXPECT_EQ(0, record.Source);
  EXPECT_EQ(0, record.Sun);
  EXPECT_EQ(1, record.Contrails);
  EXPECT_EQ(1, MainForm().combo_History.ListCount());
}

TEST_F(Navigation, LoadHistoryBringsTheChosenEntryBack) {
  Answers answers;
  Press("frm_Main", "btn_History");
  EXPECT_TRUE(answers.titles.empty()) << "no row selected";
  for (const int option : {1, 2}) {
    CurrentSelection[kCloud][2] = static_cast<std::int16_t>(option);
    Press("frm_Main", "btn_Install");
  }
  answers.titles.clear();
  MainForm().combo_History.SetListIndex(1);
  EXPECT_EQ(2, CurrentSelection[kCloud][2]) << "picking a row alone loads nothing";
  ClickOn("frm_Main", "lbl_CloudPreview(2)");
  Press("frm_Main", "btn_History");
  EXPECT_EQ(std::vector<std::string>{"History Settings Loaded"}, answers.titles);
  EXPECT_EQ(1, CurrentSelection[kCloud][2]);
  EXPECT_EQ(OptionTitle(kCloud, 2, 1), MainForm().lbl_Cloud_Wispy.Caption());
  EXPECT_EQ(OptionColor(kCloud, 2, 1), platform::GetPixel(PreviewForm().form.hDC(), 130, 100))
      << "an open large preview";
  EXPECT_EQ(1, MainForm().combo_History.ListIndex());
  EXPECT_EQ(-1, HistoryFocusIndex);
}

TEST_F(Navigation, CancelClearsWhatAnOkWouldHaveDone) {
  PendingMessageAction = 2;
  MessageAnswer = 1;
  QTimer::singleShot(0, [] { Press("frm_Msg", "btn_Cancel"); });
  ShowMessage("Question", "?", "?", true, true, false);
  EXPECT_EQ(0, PendingMessageAction);
  EXPECT_EQ(0, MessageAnswer);
}

TEST_F(Navigation, HelpOpensTheManual) {
  static std::string opened;
  toolkit::SetOpenListener([](std::string_view file) { opened = file; });
  Press("frm_Main", "btn_Help");
  toolkit::SetOpenListener(nullptr);
  EXPECT_TRUE(opened.ends_with("Nimbrel Help.pdf")) << opened;
}

}  // namespace
}  // namespace nimbrel
