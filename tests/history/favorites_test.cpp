#include "history/mod_Favorites.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <fstream>

#include "platform/system.h"
#include "settings/Functions_Configuration.h"
#include "settings/Selection.h"
#include "shell/MainSwitches.h"
#include "shell/frm_Msg.h"
#include "support/SimulatorTree.h"
#include "support/recorders.h"

using namespace nimbrel;
namespace fs = std::filesystem;

namespace {

/// A program with an empty Favorites folder, at a fixed moment.
struct Store {
  Store() {
    fs::create_directories(Folder());
    platform::SetClock([] { return 45000.25; });
    FavoriteEntries.clear();
    FavoritePaths.clear();
    FavoriteLastIndex = -1;
  }
  ~Store() { platform::SetClock(nullptr); }
  fs::path Folder() const { return tree.Program("Favorites"); }
  fs::path File(std::string_view name) const { return Folder() / name; }

  SimulatorTree tree;
};

SettingsRecord Numbered(std::int16_t first) {
  SettingsRecord record;
  for (const auto field : kRecordFields) {
    record.*field = first++;
  }
  return record;
}

std::string Bytes(const FavoriteRecord& favorite) {
  const auto bytes = EncodeFavorite(favorite);
  return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

TEST(Favorites, FileIsThreeFieldsAtFixedPlaces) {
  const Store store;
  CurrentSelection[0] = {1, 2, 3, 4};
  Switches().chk_Sun.SetValue(1);
  ASSERT_TRUE(SaveFavorite(kFavoriteOfSelection, "  Caf\xC3\xA9 (\xE2\x82\xAC \xE2\x98\x83) ",
                           " one\r\ntwo "));
  const std::string bytes = ReadText(store.File("Caf\xC3\xA9_\xE2\x82\xAC_\xE2\x98\x83.nbf"));
  std::string expected(1315, '\0');
  expected.replace(0, 10, "Caf\xE9 (\x80 ?)");
  expected.replace(255, 8, "one\r\ntwo");
  // 45000.25 as a double, then source, solid, wispy, stratus, cirrus; the sun at the 13th number.
  constexpr unsigned char kDate[] = {0, 0, 0, 0, 8, 0xF9, 0xE5, 0x40};
  expected.replace(1279, 8, std::string(std::begin(kDate), std::end(kDate)));
  constexpr int kNumbers[] = {2, 1, 3, 2, 4, 0, 0, 0, 0, 0, 0, 0, 1, 0};
  for (std::size_t i = 0; i < std::size(kNumbers); ++i) {
    expected[1287 + 2 * i] = static_cast<char>(kNumbers[i]);
  }
  EXPECT_EQ(expected, bytes);
}

TEST(Favorites, OfTheRandomizerHoldsItsRecordDatedNow) {
  const Store store;
  RandomizerRecord = Numbered(3);
  RandomizerRecord.Date = 1;
  RandomizerRecord.Source = 1;
  RandomizerRecord.Contrails = 1;
  ASSERT_TRUE(SaveFavorite(kFavoriteOfRandomizer, "r", ""));
  ReadFavorites();
  SettingsRecord expected = RandomizerRecord;
  expected.Date = 45000.25;
  expected.Source = 2;
  ASSERT_EQ(0, FavoriteLastIndex);
  EXPECT_EQ(expected, FavoriteEntries[0].Settings);
  LoadFavorite(0);
  LoadFavorite(1);
  LoadFavorite(-1);
  EXPECT_EQ(3, CurrentSelection[0][0]);
  EXPECT_EQ(1, Recorded.refreshes);
}

TEST(Favorites, FileNameComesFromTheTitle) {
  struct Row {
    const char* title;
    const char* name;
  };
  constexpr Row kRows[] = {
      {"Sky (new), two", "Sky_new_two.nbf"},
      {"  \t ", "\t.nbf"},
      {"", ".nbf"},
      {"..\\..\\Texture/sun", "....Texturesun.nbf"},
      {"[a]:;=*'\"b", "ab.nbf"},
      {"a<>|?b", "a<>|?b.nbf"},
      {"Enter a Title for this Favorite", "Enter_a_Title_for_this_Favorite.nbf"},
  };
  for (const Row& row : kRows) {
    EXPECT_EQ(row.name, FavoriteFileName(row.title)) << row.title;
  }
}

TEST(Favorites, NothingIsWrittenUnderANameThatIsNone) {
  const Store store;
  WriteText(store.tree.Program("outside.txt"), "kept");
  fs::create_symlink("../outside.txt", store.File("link.nbf"));
  fs::create_symlink("../nowhere.txt", store.File("dangling.nbf"));
  fs::create_directories(store.File("folder.nbf"));
  const std::string long_title(254, 'x');
  const std::string with_null("a\0b", 3);
  Recorded.on_message = [] { MessageAnswer = 1; };
  for (const std::string& title :
       {std::string("link"), std::string("dangling"), std::string("folder"), long_title, with_null,
        std::string("a\nb"), std::string("\x7F")}) {
    EXPECT_THROW(SaveFavorite(kFavoriteOfSelection, title, "d"), RunTimeFailure) << title;
  }
  Recorded.on_message = nullptr;
  EXPECT_EQ("kept", ReadText(store.tree.Program("outside.txt")));
  EXPECT_FALSE(fs::exists(store.tree.Program("nowhere.txt")));
  EXPECT_EQ(3, std::distance(fs::directory_iterator(store.Folder()), {}));
  for (const char* title : {".", "..", "~"}) {
    EXPECT_TRUE(SaveFavorite(kFavoriteOfSelection, title, "")) << title;
    EXPECT_TRUE(fs::exists(store.File(FavoriteFileName(title))));
  }
}

TEST(Favorites, OldFileIsReplacedOnlyAtTheUsersWord) {
  const Store store;
  ASSERT_TRUE(SaveFavorite(kFavoriteOfSelection, "Sky (one)", "old"));
  const std::string old = ReadText(store.File("Sky_one.nbf"));
  for (const std::int16_t answer : {std::int16_t{0}, std::int16_t{-1}}) {
    Recorded.on_message = [answer] { MessageAnswer = answer; };
    EXPECT_FALSE(SaveFavorite(kFavoriteOfSelection, "SKY one", "new"));
    EXPECT_EQ(-1, MessageAnswer);
    EXPECT_EQ(old, ReadText(store.File("Sky_one.nbf")));
  }
  Recorded.on_message = [] { MessageAnswer = 1; };
  platform::SetFailureHook(
      [](const char* step, const char*) { return std::string_view(step) == "write" ? ENOSPC : 0; });
  EXPECT_THROW(SaveFavorite(kFavoriteOfSelection, "SKY one", "new"), RunTimeFailure);
  platform::SetFailureHook(nullptr);
  EXPECT_EQ(old, ReadText(store.File("Sky_one.nbf")));
  EXPECT_TRUE(SaveFavorite(kFavoriteOfSelection, "SKY one", "new"));
  Recorded.on_message = nullptr;
  ReadFavorites();
  ASSERT_EQ(0, FavoriteLastIndex);
  EXPECT_EQ("SKY one", FavoriteEntries[0].Title);
  EXPECT_EQ("new", FavoriteEntries[0].Description);
  EXPECT_EQ("Overwrite Favorites Collection?", Recorded.messages.back().title);
  EXPECT_TRUE(Recorded.messages.back().cancel);
}

TEST(Favorites, MissingFolderIsEmptyAndMadeByASave) {
  const Store store;
  fs::remove(store.Folder());
  ReadFavorites();
  EXPECT_EQ(-1, FavoriteLastIndex);
  EXPECT_TRUE(SaveFavorite(kFavoriteOfSelection, "", ""));
  ReadFavorites();
  ASSERT_EQ(0, FavoriteLastIndex);
  EXPECT_EQ("", FavoriteEntries[0].Title);
  EXPECT_TRUE(FavoritePaths[0].ends_with("\\Favorites\\.nbf"));
}

TEST(Favorites, WhateverLiesInTheFolderIsReadAsFarAsItGoes) {
  const Store store;
  const std::string whole = Bytes({"T", "D", Numbered(-3)});
  std::string full = whole;
  full.replace(0, 255, std::string(255, 'f'));
  struct Row {
    const char* name;
    std::string bytes;
    std::string title;
    std::string description;
    std::int16_t solid;
  };
  const Row rows[] = {{"a_short.txt", "Ti", "Ti", "", 0},
                      {"b_cut.nbf", whole.substr(0, 1289), "T", "D", 0},
                      {"c_long.nbf", whole + std::string(5000, 'x'), "T", "D", -3},
                      {"d_full.nbf", full, std::string(255, 'f'), "D", -3},
                      {"e_empty", "", "", "", 0},
                      {"f_huge.nbf", std::string(2 << 20, 'h'), "", "", 0},
                      {"g_bytes.nbf", "\x01\x81\xFF\n", "\x01\xC2\x81\xC3\xBF\n", "", 0}};
  for (const Row& row : rows) {
    WriteText(store.File(row.name), row.bytes);
  }
  fs::create_directories(store.File("h_folder.nbf"));
  ASSERT_EQ(0, mkfifo(store.File("i_pipe.nbf").c_str(), 0600));
  fs::create_symlink("/dev/zero", store.File("j_zero.nbf"));
  fs::create_symlink("j_nowhere", store.File("k_dangling.nbf"));
  fs::create_symlink("a_short.txt", store.File("l_link.nbf"));
  WriteText(store.File("~nimbrel-999999999-7.tmp"), "left by a killed run");
  ReadFavorites();
  ASSERT_EQ(static_cast<int>(std::size(rows)), FavoriteLastIndex);
  EXPECT_EQ("Ti", FavoriteEntries.back().Title) << "through a link to a file";
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    EXPECT_TRUE(FavoritePaths[i].ends_with(rows[i].name)) << FavoritePaths[i];
    EXPECT_EQ(rows[i].title, FavoriteEntries[i].Title) << rows[i].name;
    EXPECT_EQ(rows[i].description, FavoriteEntries[i].Description) << rows[i].name;
    EXPECT_EQ(rows[i].solid, FavoriteEntries[i].Settings.Solid) << rows[i].name;
  }
}

TEST(Favorites, ThousandFilesAreTakenAndOnlyTheChosenOneDeleted) {
  const Store store;
  for (int i = 0; i < 5000; ++i) {
    WriteText(store.File("f" + std::to_string(1000 + i)), std::to_string(i));
  }
  ReadFavorites();
  ASSERT_EQ(999, FavoriteLastIndex);
  EXPECT_EQ("999", FavoriteEntries[999].Title);
  for (const std::int32_t index : {7, 7, -1, 1000, 70000}) {
    EXPECT_EQ(platform::FileStatus::kOk, DeleteFavorite(index));
  }
  EXPECT_FALSE(fs::exists(store.File("f1007")));
  EXPECT_EQ(4999, std::distance(fs::directory_iterator(store.Folder()), {}));
}

}  // namespace
