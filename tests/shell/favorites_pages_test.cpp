#include <gtest/gtest.h>

#include <QLineEdit>
#include <QtTest>

#include "ShellWorld.h"
#include "app/mod_Main.h"
#include "platform/text.h"
#include "shell/State.h"
#include "shell/dialogs/frm_AddFavorite.h"
#include "shell/pages/frm_Favorite.h"
#include "shell/pages/frm_Main.h"

using namespace nimbrel;
namespace fs = std::filesystem;

namespace {

constexpr const char* kTitleText = "Enter a Title for this Favorite";

Choice EachOf(std::int16_t option) {
  Choice choice;
  choice.option.values.fill(option);
  choice.sun = true;
  choice.contrails = option == 1;
  return choice;
}

/// A started program with the given favourites.
class FavoritesTest : public testing::Test {
 protected:
  void Write(const std::string& name, const std::string& title, const std::string& description,
             std::int16_t option) const {
    const auto bytes = EncodeFavorite({title, description, {.choice = EachOf(option)}});
    WriteText(world.Program("Favorites/" + name + ".nbf"),
              {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  }
  static void OpenPage() { Press("frm_Main", "btn_Favorites"); }
  static frm_Favorite& Page() { return *ui.forms.favorites; }
  static frm_AddFavorite& Dialog() { return *ui.forms.add_favorite; }
  static void ClickFavorite(int row) { ClickRow("frm_Favorite", "lst_Favorites", row); }

  ShellWorld world;
};

TEST_F(FavoritesTest, PageShowsTheSelectedOneAndLoadMakesItTheSelection) {
  Write("a", " Alpha ", " words\r\nmore ", 1);
  Write("b", "Beta", "", 30000);
  StartProgram();
  OpenPage();
  EXPECT_EQ("Alpha", Page().lst_Favorites.List(0));
  EXPECT_EQ(0, Page().lst_Favorites.ListIndex());
  for (const GroupFacts& facts : kGroups) {
    EXPECT_EQ(OptionTitle(facts.group, 1), Page().titles[facts.group]->Caption());
  }
  EXPECT_EQ("Yes /  Yes", Page().lbl_SunContrail.Caption());
  EXPECT_EQ("words\r\nmore", Page().lbl_Description.Caption());
  ClickFavorite(1);
  EXPECT_EQ(1, Page().lst_Favorites.ListIndex());
  EXPECT_EQ("", Page().titles[Group::kSolid]->Caption()) << "an index outside the catalogue";
  EXPECT_EQ("Yes /  No", Page().lbl_SunContrail.Caption());
  EXPECT_EQ(Selection(), ui.CurrentSelection);
  Press("frm_Main", "btn_Home");
  OpenPage();
  EXPECT_EQ(1, Page().lst_Favorites.ListIndex());
  Answers answers;
  Press("frm_Favorite", "btn_Load");
  EXPECT_EQ(EachOf(30000).option, ui.CurrentSelection);
  EXPECT_EQ("frm_Main", ui.CurrentPage);
  EXPECT_FALSE(Page().form.Visible());
  EXPECT_FALSE(IsOn(ui.forms.main->chk_Contrails));
  EXPECT_EQ((std::vector<std::string>{"Favorites Collection Loaded"}), answers.titles);
}

TEST_F(FavoritesTest, DeleteRemovesTheSelectedFileAfterTheQuestion) {
  Write("a", "Alpha", "", 1);
  Write("b", "Beta", "", 2);
  fs::permissions(world.Program("Favorites/a.nbf"), fs::perms::owner_read);
  StartProgram();
  OpenPage();
  ClickFavorite(1);
  PressAndThen("frm_Favorite", "btn_Delete", [] { Press("frm_Msg", "btn_Cancel"); });
  EXPECT_EQ(0, ui.PendingMessageAction);
  EXPECT_EQ(2U, ui.favorites.size());
  Answers answers;
  Press("frm_Favorite", "btn_Delete");
  EXPECT_EQ(0, ui.PendingMessageAction);
  EXPECT_FALSE(fs::exists(world.Program("Favorites/b.nbf")));
  EXPECT_EQ("Alpha", Page().lst_Favorites.List(0));
  Press("frm_Favorite", "btn_Delete");
  EXPECT_EQ(0, ui.PendingMessageAction);
  EXPECT_EQ(0, Page().lst_Favorites.ListIndex());
  EXPECT_EQ(
      "The favorite collection was not deleted: its file is read-only.\r\r"
      "Press the checkmark to continue.",
      answers.texts.back());
  fs::permissions(world.Program("Favorites/a.nbf"), fs::perms::owner_all);
  Press("frm_Favorite", "btn_Delete");
  EXPECT_TRUE(fs::is_empty(world.Program("Favorites")));
  EXPECT_EQ(0, Page().lst_Favorites.ListCount());
  EXPECT_EQ("", Page().titles[Group::kSolid]->Caption());
  EXPECT_EQ("", Page().lbl_SunContrail.Caption());
  answers.titles.clear();
  Press("frm_Favorite", "btn_Delete");
  Press("frm_Favorite", "btn_Load");
  EXPECT_TRUE(answers.titles.empty()) << "no row is selected";
  EXPECT_EQ("frm_Favorite", ui.CurrentPage);
}

TEST_F(FavoritesTest, AddTakesTheTypedTextsAndTheSelection) {
  StartProgram();
  ui.Now = [] { return 39087.5; };
  ui.CurrentSelection[Group::kDay] = 2;
  PressAndThen("frm_Main", "btn_AddFavorite", [] {
    Window("frm_AddFavorite")->activateWindow();
    toolkit::DoEvents();
    const toolkit::Form& main = ui.forms.main->form;
    EXPECT_FLOAT_EQ(main.Left() + main.Width() / 2,
                    Dialog().form.Left() + Dialog().form.Width() / 2);
    EXPECT_FLOAT_EQ(main.Top() + main.Height() / 2,
                    Dialog().form.Top() + Dialog().form.Height() / 2);
    auto* title = static_cast<QLineEdit*>(Window("frm_AddFavorite", "txt_Title"));
    EXPECT_EQ(kTitleText, title->selectedText().toStdString());
    QTest::keyClicks(title, "My sky");
    QTest::keyClick(title, Qt::Key_Return);
    EXPECT_TRUE(Dialog().form.Visible());
    QTest::keyClick(title, Qt::Key_Tab);
    auto* description = Window("frm_AddFavorite", "txt_Description");
    QTest::keyClicks(description, "one");
    QTest::keyClick(description, Qt::Key_Return);
    QTest::keyClicks(description, "two");
    const Answers answers;
    Press("frm_AddFavorite", "btn_Continue");
    EXPECT_EQ((std::vector<std::string>{"Favorite Collection Saved"}), answers.titles);
  });
  EXPECT_FALSE(Dialog().form.Visible());
  EXPECT_EQ(kTitleText, Dialog().txt_Title.Text());
  ASSERT_EQ(1U, ui.favorites.size());
  const FavoriteRecord& saved = ui.favorites[0].record;
  EXPECT_EQ("My sky", saved.Title);
  EXPECT_EQ("one\r\ntwo", saved.Description);
  EXPECT_EQ((SettingsRecord{39087.5, kFromFavorite, {ui.CurrentSelection, true, true}}),
            saved.Settings);
  EXPECT_EQ("My sky", Page().lst_Favorites.List(0));
}

TEST_F(FavoritesTest, RandomizersPageSavesWhatWasDrawnWithTextsCutToTheirFields) {
  StartProgram();
  Press("frm_Main", "btn_Randomizer");
  ui.RandomizerRecord.choice = EachOf(2);
  PressAndThen("frm_RandomizerOverview", "btn_AddFavorite", [] {
    std::string accents;
    while (accents.size() < 2200) {
      accents += "\xC3\xA9";
    }
    Dialog().txt_Description.SetText("\xE2\x98\x83" + accents);
    Dialog().txt_Title.SetText(accents);
    EXPECT_EQ(254U, platform::ToAnsi(Dialog().txt_Title.Text()).size());
    Dialog().txt_Title.SetText("\xE2\x98\x83 ski");
    const Answers answers;
    Press("frm_AddFavorite", "btn_Continue");
  });
  const std::string bytes = ReadText(world.Program("Favorites/\xE2\x98\x83_ski.nbf"));
  EXPECT_EQ("? ski", bytes.substr(0, bytes.find('\0')));
  EXPECT_EQ("?" + std::string(998, '\xE9') + '\0', bytes.substr(255, 1000));
  ASSERT_EQ(1U, ui.favorites.size());
  EXPECT_EQ(EachOf(2), ui.favorites[0].record.Settings.choice);
  EXPECT_EQ(kFromFavorite, ui.favorites[0].record.Settings.Source);
}

TEST_F(FavoritesTest, FailedAndDeclinedSavesLeaveTheTextAndCancelDropsIt) {
  Write("taken", "taken", "old", 1);
  StartProgram();
  world.MarkUnchanged();
  PressAndThen("frm_Main", "btn_AddFavorite", [] {
    Dialog().txt_Title.SetText(std::string(254, 'x'));
    Dialog().txt_Description.SetText("mine");
    Press("frm_AddFavorite", "btn_Continue");
    EXPECT_TRUE(Dialog().form.Visible());
    EXPECT_EQ("mine", Dialog().txt_Description.Text());
    Dialog().txt_Title.SetText("(taken)");
    PressAndThen("frm_AddFavorite", "btn_Continue", [] { Press("frm_Msg", "btn_Cancel"); });
    EXPECT_TRUE(Dialog().form.Visible());
    EXPECT_EQ("(taken)", Dialog().txt_Title.Text());
    Window("frm_AddFavorite")->close();
  });
  EXPECT_FALSE(Dialog().form.Visible());
  EXPECT_EQ(kTitleText, Dialog().txt_Title.Text());
  EXPECT_EQ("Enter a Description for this Favorite", Dialog().txt_Description.Text());
  EXPECT_EQ(std::vector<std::string>(), world.Changed());
}

}  // namespace
