#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <QTimer>
#include <functional>

#include "ShellWorld.h"
#include "history/frm_AddFavorite.h"
#include "history/frm_Favorite.h"
#include "history/mod_Favorites.h"
#include "platform/files.h"
#include "platform/text.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "shell/Pages.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"

using namespace nimbrel;
namespace fs = std::filesystem;

namespace {

constexpr const char* kTitleText = "Enter a Title for this Favorite";

SettingsRecord Choice(std::int16_t option) {
  SettingsRecord record;
  for (const auto field : kRecordFields) {
    record.*field = option;
  }
  record.Sun = 1;
  record.Contrails = option == 1 ? 1 : 0;
  return record;
}

/// A started program with the given favourites.
class FavoritesTest : public testing::Test {
 protected:
  void Write(const std::string& name, const FavoriteRecord& favorite) const {
    const auto bytes = EncodeFavorite(favorite);
    WriteText(world.Program() / "Favorites" / (name + ".nbf"),
              {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
  }
  static void Start() { StartProgram(); }
  static void OpenPage() { Press("frm_Main", "btn_Favorites"); }
  static void ClickRow(int row) {
    auto* list = static_cast<QListWidget*>(Window("frm_Favorite", "lst_Favorites"));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(row)).center());
  }
  static std::string Solid() { return FavoritePage().GroupValues[0].Caption(); }
  /// Runs once the dialog that the press opens is up.
  static void PressAndThen(const char* form, const char* button, std::function<void()> then) {
    QTimer::singleShot(0, std::move(then));
    Press(form, button);
  }

  ShellWorld world;
};

TEST_F(FavoritesTest, FirstOneIsShownAtTheFirstVisit) {
  Write("a", {" Alpha ", " words\r\nmore ", Choice(1)});
  Write("b", {"Beta", "", Choice(30000)});
  Start();
  OpenPage();
  frm_Favorite& page = FavoritePage();
  EXPECT_EQ("frm_Favorite", CurrentPage);
  EXPECT_EQ("Alpha", page.lst_Favorites.List(0));
  EXPECT_EQ(0, page.lst_Favorites.ListIndex());
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    EXPECT_EQ(OptionTitle(group.family, group.index, 1), page.GroupValues[i].Caption());
  }
  EXPECT_EQ("Yes /  Yes", page.lbl_SunContrail.Caption());
  EXPECT_EQ("words\r\nmore", page.lbl_Description.Caption());
  ClickRow(1);
  EXPECT_EQ(1, page.lst_Favorites.ListIndex());
  EXPECT_EQ("", Solid()) << "an index outside the catalogue is an option without a title";
  EXPECT_EQ("Yes /  No", page.lbl_SunContrail.Caption());
  EXPECT_EQ(0, CurrentSelection[0][0]);
  Press("frm_Main", "btn_Home");
  OpenPage();
  EXPECT_EQ(1, page.lst_Favorites.ListIndex());
}

TEST_F(FavoritesTest, ClickFarDownKeepsTheRowUnderThePointer) {
  for (int i = 100; i < 300; ++i) {
    Write("f" + std::to_string(i), {"row " + std::to_string(i), "", Choice(1)});
  }
  Start();
  OpenPage();
  toolkit::ListBox& list = FavoritePage().lst_Favorites;
  list.SetTopIndex(120);
  ClickRow(125);
  EXPECT_EQ(125, list.ListIndex());
  EXPECT_EQ(120, list.TopIndex());
}

TEST_F(FavoritesTest, LoadMakesItTheSelectionAndGoesHome) {
  Write("a", {"Alpha", "", Choice(1)});
  Write("b", {"Beta", "", Choice(2)});
  Start();
  Answers answers;
  OpenPage();
  ClickRow(1);
  Press("frm_Favorite", "btn_Load");
  EXPECT_EQ(2, CurrentSelection[2][2]);
  EXPECT_EQ("frm_Main", CurrentPage);
  EXPECT_FALSE(FavoritePage().form.Visible());
  EXPECT_EQ((std::vector<std::string>{"Favorites Collection Loaded"}), answers.titles);
}

TEST_F(FavoritesTest, DeleteTakesTheSelectedFileAfterTheQuestion) {
  Write("a", {"Alpha", "", Choice(1)});
  Write("b", {"Beta", "", Choice(2)});
  Start();
  OpenPage();
  ClickRow(1);
  PressAndThen("frm_Favorite", "btn_Delete", [] { Press("frm_Msg", "btn_Cancel"); });
  EXPECT_EQ(0, PendingMessageAction);
  EXPECT_EQ(1, FavoriteLastIndex);
  for (const int left : {0, -1}) {
    PressAndThen("frm_Favorite", "btn_Delete", [] { Press("frm_Msg", "btn_OK"); });
    EXPECT_EQ(0, PendingMessageAction);
    EXPECT_EQ(left, FavoriteLastIndex);
  }
  EXPECT_TRUE(fs::is_empty(world.Program() / "Favorites"));
  EXPECT_EQ(0, FavoritePage().lst_Favorites.ListCount());
  for (toolkit::Label* label : FavoritePage().Values()) {
    EXPECT_EQ("", label->Caption());
  }
  Answers answers;
  Press("frm_Favorite", "btn_Delete");
  Press("frm_Favorite", "btn_Load");
  EXPECT_TRUE(answers.titles.empty());
  EXPECT_EQ("frm_Favorite", CurrentPage);
}

TEST_F(FavoritesTest, DeleteThatFailsIsToldAndPendsNoMore) {
  Write("a", {"Alpha", "", Choice(1)});
  Start();
  OpenPage();
  platform::SetFailureHook(
      [](const char* step, const char*) { return std::string_view(step) == "delete" ? 13 : 0; });
  Answers answers;
  Press("frm_Favorite", "btn_Delete");
  platform::SetFailureHook(nullptr);
  EXPECT_EQ(2U, answers.titles.size());
  EXPECT_EQ(0, PendingMessageAction);
  EXPECT_EQ(0, FavoritePage().lst_Favorites.ListIndex());
  EXPECT_FALSE(MessageForm().form.Visible());
}

TEST_F(FavoritesTest, DialogSavesWhatIsTyped) {
  Start();
  PressAndThen("frm_Main", "btn_AddFavorite", [] {
    Window("frm_AddFavorite")->activateWindow();  // what a window manager does by itself
    toolkit::DoEvents();
    frm_AddFavorite& dialog = AddFavoriteForm();
    const toolkit::Form& main = MainForm().form;
    EXPECT_FLOAT_EQ(main.Left() + main.Width() / 2, dialog.form.Left() + dialog.form.Width() / 2);
    EXPECT_EQ(31, dialog.txt_Title.SelLength()) << "the placeholder is selected whole";
    QWidget* title = Window("frm_AddFavorite", "txt_Title");
    QTest::keyClicks(title, "My sky");
    QTest::keyClick(title, Qt::Key_Return);
    EXPECT_TRUE(dialog.form.Visible());
    auto* description = Window("frm_AddFavorite", "txt_Description");
    QTest::keyClick(title, Qt::Key_Tab);
    QTest::keyClicks(description, "one");
    QTest::keyClick(description, Qt::Key_Return);
    QTest::keyClicks(description, "two");
    const Answers answers;
    Press("frm_AddFavorite", "btn_Continue");
    EXPECT_EQ((std::vector<std::string>{"Favorite Collection Saved"}), answers.titles);
  });
  EXPECT_FALSE(AddFavoriteForm().form.Visible());
  EXPECT_EQ(kTitleText, AddFavoriteForm().txt_Title.Text());
  ASSERT_EQ(0, FavoriteLastIndex);
  EXPECT_EQ("My sky", FavoriteEntries[0].Title);
  EXPECT_EQ("one\r\ntwo", FavoriteEntries[0].Description);
  EXPECT_EQ("My sky", FavoritePage().lst_Favorites.List(0));
}

TEST_F(FavoritesTest, RandomizersPageSavesWhatWasDrawn) {
  Start();
  Press("frm_Main", "btn_Randomizer");
  RandomizerRecord.Solid = 2;
  PressAndThen("frm_RandomizerOverview", "btn_AddFavorite", [] {
    const Answers answers;
    Press("frm_AddFavorite", "btn_Continue");
  });
  ASSERT_EQ(0, FavoriteLastIndex);
  EXPECT_EQ(2, FavoriteEntries[0].Settings.Solid);
  EXPECT_EQ(0, CurrentSelection[kCloud][0]);
}

TEST_F(FavoritesTest, PastedTextIsCutToItsFieldAndKeptInTheFilesCodePage) {
  Start();
  PressAndThen("frm_Main", "btn_AddFavorite", [] {
    Window("frm_AddFavorite")->activateWindow();
    toolkit::DoEvents();
    QGuiApplication::clipboard()->setText(QChar(0x2603) + QString(1100, QChar(0xE9)));
    for (const auto& [box, most] : {std::pair{&AddFavoriteForm().txt_Title, 254U},
                                    std::pair{&AddFavoriteForm().txt_Description, 999U}}) {
      box->SetText({});
      QTest::keyClick(Window("frm_AddFavorite", box->Name()), Qt::Key_V, Qt::ControlModifier);
      EXPECT_EQ(most, platform::ToAnsi(box->Text()).size());
    }
    AddFavoriteForm().txt_Title.SetText("\xE2\x98\x83 ski");
    const Answers answers;
    Press("frm_AddFavorite", "btn_Continue");
  });
  const std::string bytes = ReadText(world.Program() / "Favorites" / "\xE2\x98\x83_ski.nbf");
  EXPECT_EQ("? ski", bytes.substr(0, bytes.find('\0')));
  EXPECT_EQ("?" + std::string(998, '\xE9') + '\0', bytes.substr(255, 1000));
  EXPECT_EQ("? ski", FavoritePage().lst_Favorites.List(0));
}

TEST_F(FavoritesTest, FailedAndDeclinedSavesLeaveTheTextAndCancelDropsIt) {
  Write("taken", {"taken", "old", Choice(1)});
  Start();
  const auto before = world.Files();
  PressAndThen("frm_Main", "btn_AddFavorite", [] {
    frm_AddFavorite& dialog = AddFavoriteForm();
    dialog.txt_Title.SetText(std::string(254, 'x'));
    dialog.txt_Description.SetText("mine");
    Press("frm_AddFavorite", "btn_Continue");
    EXPECT_TRUE(dialog.form.Visible());
    EXPECT_EQ("mine", dialog.txt_Description.Text());
    EXPECT_EQ(std::string(254, 'x'), dialog.txt_Title.Text());
    dialog.txt_Title.SetText("(taken)");
    PressAndThen("frm_AddFavorite", "btn_Continue", [] { Press("frm_Msg", "btn_Cancel"); });
    EXPECT_TRUE(dialog.form.Visible());
    EXPECT_EQ("(taken)", dialog.txt_Title.Text());
    Window("frm_AddFavorite")->close();
  });
  EXPECT_FALSE(AddFavoriteForm().form.Visible());
  EXPECT_EQ(kTitleText, AddFavoriteForm().txt_Title.Text());
  EXPECT_EQ("Enter a Description for this Favorite", AddFavoriteForm().txt_Description.Text());
  EXPECT_EQ(std::vector<std::string>(), world.Changes(before));
}

}  // namespace
