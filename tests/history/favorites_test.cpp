#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>

#include "history/FavoriteStore.h"
#include "settings/Failure.h"
#include "support/World.h"

using namespace nimbrel;
namespace fs = std::filesystem;

namespace {

struct Favorites : testing::Test {
  Favorites() { world.MakeFolders(); }
  fs::path File(std::string_view name) const { return world.Program("Favorites") / name; }
  /// The path under which the title is saved now.
  std::string Save(std::string_view title, std::string_view description = "",
                   const SettingsRecord& record = {}) const {
    std::string path = FavoritePath(title, world.folders());
    WriteFavoriteFile(path, {std::string(title), std::string(description), record});
    return path;
  }
  std::vector<Favorite> Read() const { return ReadFavoriteFiles(world.folders()); }

  World world;
};

TEST_F(Favorites, FileIsThreeFieldsAtFixedPlaces) {
  const SettingsRecord record{45000.25, kFromFavorite, {{{1, 2, 3, 4}}, true, false}};
  Save("  Caf\xC3\xA9 (\xE2\x82\xAC \xE2\x98\x83) ", " one\r\ntwo ", record);
  std::string expected(1315, '\0');
  expected.replace(0, 10, "Caf\xE9 (\x80 ?)");
  expected.replace(255, 8, "one\r\ntwo");
  const auto settings = EncodeRecord(record);
  expected.replace(1279, 36, reinterpret_cast<const char*>(settings.data()), settings.size());
  EXPECT_EQ(expected, ReadText(File("Caf\xC3\xA9_\xE2\x82\xAC_\xE2\x98\x83.nbf")));
  ASSERT_EQ(1U, Read().size());
  EXPECT_EQ(record, Read()[0].record.Settings);
  EXPECT_EQ("one\r\ntwo", Read()[0].record.Description);

  const auto full = EncodeFavorite({std::string(300, 't'), std::string(2000, 'd'), {}});
  EXPECT_EQ(std::string(254, 't'), DecodeFavorite(full).Title) << "a field's last byte stays zero";
  EXPECT_EQ(std::string(1023, 'd'), DecodeFavorite(full).Description);
}

TEST_F(Favorites, FileNameComesFromTheTitle) {
  const std::pair<const char*, const char*> rows[] = {
      {"Sky (new), two", "Sky_new_two.nbf"},
      {"  \t ", "\t.nbf"},
      {"", ".nbf"},
      {"..\\..\\Texture/sun", "....Texturesun.nbf"},
      {"[a]:;=*'\"b", "ab.nbf"},
      {"a<>|?b", "a<>|?b.nbf"},
  };
  for (const auto& [title, name] : rows) {
    EXPECT_EQ(name, FavoriteFileName(title)) << title;
  }
}

TEST_F(Favorites, NoFileIsWrittenUnderAnUnusableName) {
  WriteText(world.Program("outside.txt"), "kept");
  fs::create_symlink("../outside.txt", File("link.nbf"));
  fs::create_symlink("../nowhere.txt", File("dangling.nbf"));
  fs::create_directories(File("folder.nbf"));
  const Tree before = Files(world.Program());
  for (const std::string& title :
       {std::string("link"), std::string("dangling"), std::string("folder"), std::string(254, 'x'),
        std::string("a\0b", 3), std::string("a\nb"), std::string("\x1F"), std::string("\x7F")}) {
    EXPECT_THROW(Save(title), ActionFailed) << title;
  }
  EXPECT_EQ(before, Files(world.Program()));
  for (const char* title : {".", "..", "~", ""}) {
    Save(title);
    EXPECT_TRUE(fs::exists(File(FavoriteFileName(title)))) << title;
  }
}

TEST_F(Favorites, ATitleInAnotherCaseIsTheSameFile) {
  EXPECT_FALSE(FavoriteExists(FavoritePath("SKY one", world.folders())));
  Save("Sky (one)", "old");
  const std::string path = FavoritePath("SKY one", world.folders());
  EXPECT_TRUE(FavoriteExists(path));
  ASSERT_EQ(0, chmod(File("Sky_one.nbf").c_str(), 0444));
  EXPECT_THROW(Save("SKY one", "new"), ActionFailed);
  EXPECT_EQ(platform::FileStatus::kReadOnly, DeleteFavoriteFile(path));
  EXPECT_EQ("old", Read().at(0).record.Description);
  ASSERT_EQ(0, chmod(File("Sky_one.nbf").c_str(), 0644));
  Save("SKY one", "new");
  ASSERT_EQ(1U, Read().size());
  EXPECT_EQ("SKY one", Read()[0].record.Title);
  EXPECT_EQ("new", Read()[0].record.Description);
}

TEST_F(Favorites, MissingFolderIsEmptyAndMadeByASave) {
  fs::remove(world.Program("Favorites"));
  EXPECT_TRUE(Read().empty());
  const std::string path = Save("a");
  ASSERT_EQ(1U, Read().size());
  EXPECT_EQ(path, Read()[0].path);
  EXPECT_EQ(platform::FileStatus::kOk, DeleteFavoriteFile(path));
  EXPECT_TRUE(Read().empty());
  EXPECT_EQ(platform::FileStatus::kOk, DeleteFavoriteFile(path)) << "it is gone already";
}

TEST_F(Favorites, WhateverIsInTheFolderIsReadAsFarAsItGoes) {
  const auto bytes = EncodeFavorite({"T", "D", {0, 0, {{{-3}}, false, false}}});
  const std::string whole(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const std::string full = std::string(whole).replace(0, 255, 255, 'f');
  struct Row {
    std::string name, bytes, title, description;
    int solid;
  };
  const Row rows[] = {
      {"a_short.txt", "Ti", "Ti", "", 0},
      {"b_cut.nbf", whole.substr(0, 1289), "T", "D", 0},
      {"c_long.nbf", whole + std::string(5000, 'x'), "T", "D", -3},
      {"d_full.nbf", full, std::string(255, 'f'), "D", -3},
      {"e_empty", "", "", "", 0},
      {"f_limit.nbf", full + std::string((1 << 20) - full.size(), 'x'), full.substr(0, 255), "D",
       -3},
      {"g_huge.nbf", full + std::string((1 << 20) + 1 - full.size(), 'x'), "", "", 0},
      {"h_bytes.nbf", "\x01\x81\xFF\n", "\x01\xC2\x81\xC3\xBF\n", "", 0}};
  for (const Row& row : rows) {
    WriteText(File(row.name), row.bytes);
  }
  fs::create_directories(File("i_folder.nbf"));
  ASSERT_EQ(0, mkfifo(File("j_pipe.nbf").c_str(), 0600));
  fs::create_symlink("/dev/zero", File("k_zero.nbf"));
  fs::create_symlink("a_short.txt", File("l_link.nbf"));
  WriteText(File("~nimbrel-999999999-7.tmp"), "left by a killed run");
  const std::vector<Favorite> favorites = Read();
  ASSERT_EQ(std::size(rows) + 1, favorites.size());
  EXPECT_EQ("Ti", favorites.back().record.Title) << "through a link to a file";
  for (std::size_t i = 0; i < std::size(rows); ++i) {
    SCOPED_TRACE(rows[i].name);
    const FavoriteRecord& record = favorites[i].record;
    EXPECT_TRUE(favorites[i].path.ends_with(rows[i].name)) << favorites[i].path;
    EXPECT_EQ(rows[i].title, record.Title);
    EXPECT_EQ(rows[i].description, record.Description);
    EXPECT_EQ(rows[i].solid, record.Settings.choice.option[Group::kSolid]);
  }
  EXPECT_FALSE(fs::exists(File("~nimbrel-999999999-7.tmp")));
}

}  // namespace
