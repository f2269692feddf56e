#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "install/CopyFailures.h"
#include "install/mod_CopyFiles.h"
#include "platform/files.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "support/SimulatorTree.h"
#include "support/recorders.h"

namespace fs = std::filesystem;
using namespace nimbrel;
using platform::FileStatus;

namespace {

/// A loaded catalogue of two options and a simulator with a texture folder in lower case.
class Copying : public testing::Test {
 protected:
  Copying() {
    CopyFailures.clear();
    tree.Load(InformationText(1));
    fs::create_directories(tree.Simulator("texture"));
  }

  std::size_t FilesIn(const fs::path& folder) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }

  SimulatorTree tree;
};

TEST_F(Copying, ReplacesByNameAndKeepsTheRest) {
  WriteText(tree.Simulator("texture/SKY ONE.BMP"), "old");
  WriteText(tree.Simulator("texture/other.bmp"), "other");
  WriteText(tree.Program("Sets/Day.1/sky one.bmp"), "new");
  WriteText(tree.Program("Sets/Day.1/a.bmp"), "");
  WriteText(tree.Program("Sets/Day.1/.hidden"), "hidden");
  WriteText(tree.Program("Sets/Day.1/b"), "b");
  WriteText(tree.Program("Sets/Day.1/c.BMP"), "c");
  WriteText(tree.Program("Sets/Day.1/sub/deep.bmp"), "deep");
  CopySkySet(1, 1, 0, 20);
  EXPECT_EQ("new", ReadText(tree.Simulator("texture/SKY ONE.BMP")));
  EXPECT_EQ("other", ReadText(tree.Simulator("texture/other.bmp")));
  EXPECT_EQ("", ReadText(tree.Simulator("texture/a.bmp")));
  EXPECT_EQ("hidden", ReadText(tree.Simulator("texture/.hidden")));
  EXPECT_EQ(6U, FilesIn(tree.Simulator("texture")));
  EXPECT_EQ((std::vector<double>{4, 8, 12, 16, 20, 20}), Recorded.percents);
  EXPECT_TRUE(CopyFailures.empty());
}

TEST_F(Copying, OfThreeHundredFilesTheFirstHundred) {
  for (int i = 0; i < 300; ++i) {
    WriteText(tree.Program("Sets/cirrus.0") / std::to_string(1000 + i), "x");
  }
  CopyCirrusSet(0, 70, 73);
  EXPECT_EQ(100U, FilesIn(tree.Simulator("texture")));
  EXPECT_TRUE(fs::exists(tree.Simulator("texture/1099")));
  ASSERT_EQ(101U, Recorded.percents.size());
  EXPECT_NEAR(71, Recorded.percents[99], 1e-9) << "a step counts all that were found";
  EXPECT_EQ(73, Recorded.percents.back());
}

TEST_F(Copying, WhatIsNotThereIsPassedOverInSilence) {
  WriteText(tree.Program("stray.bmp"), "stray");
  WriteText(tree.Program("Sets/sunset.1"), "a file, no folder");
  WriteText(tree.Program("Sets/night.0/n.bmp"), "n");
  WriteText(tree.Program("Sets/base.0/b.bmp"), "b");
  Catalogue.Tables[kSky].Cell(0, 0)->Textures = "";
  Catalogue.Tables[kSky].Cell(0, 1)->Textures = ".";
  CopySkySet(0, 0, 0, 1);
  CopySkySet(0, 1, 0, 1);
  CopySkySet(0, 32767, 0, 1);
  CopySkySet(0, -1, 0, 1);
  CopySkySet(2, 1, 0, 1);    // a file
  CopySkySet(1, 0, 0, 1);    // a missing folder
  CopyWaterSet(0, 0, 0, 1);  // its destination is missing
  Catalogue.SkyDestination = "";
  CopySkySet(3, 0, 0, 1);
  EXPECT_EQ(0U, FilesIn(tree.Simulator("texture")));
  EXPECT_FALSE(fs::exists(tree.Simulator("n.bmp")));
  EXPECT_FALSE(fs::exists(tree.Simulator("stray.bmp")));
  EXPECT_FALSE(fs::exists(tree.Simulator("Scenery")));
  EXPECT_TRUE(CopyFailures.empty());
  EXPECT_EQ(std::vector<double>(9, 1), Recorded.percents);
}

TEST_F(Copying, OutsideTheTwoTreesNothingIsFollowed) {
  const TempFolder elsewhere;
  WriteText(elsewhere / "kept.bmp", "kept");
  WriteText(tree.Program("Sets/night.0/kept.bmp"), "new");
  fs::create_directory_symlink(elsewhere.path(), tree.Simulator("links"));
  for (const std::string& destination :
       {std::string("links"), std::string("..\\..\\") + elsewhere.path().filename().string()}) {
    CopyFailures.clear();
    Catalogue.SkyDestination = destination;
    CopySkySet(3, 0, 0, 1);
    ASSERT_EQ(1U, CopyFailures.size()) << destination;
    EXPECT_EQ(FileStatus::kOutside, CopyFailures[0].status);
    EXPECT_EQ(destination + "\\kept.bmp", CopyFailures[0].file);
  }
  EXPECT_EQ("kept", ReadText(elsewhere / "kept.bmp"));

  CopyFailures.clear();
  Catalogue.SkyDestination = "texture";
  Catalogue.Tables[kSky].Cell(3, 1)->Textures = "..\\..\\links";  // a source outside
  CopySkySet(3, 1, 0, 1);
  EXPECT_EQ(0U, FilesIn(tree.Simulator("texture")));
  EXPECT_EQ(1U, CopyFailures.size());
}

TEST_F(Copying, AReadOnlyFileStaysAndIsNoted) {
  WriteText(tree.Simulator("texture/a.bmp"), "old");
  ASSERT_EQ(0, chmod(tree.Simulator("texture/a.bmp").c_str(), 0444));
  WriteText(tree.Program("Sets/day.0/a.bmp"), "new");
  WriteText(tree.Program("Sets/day.0/b.bmp"), "new");
  CopySkySet(1, 0, 0, 1);
  CopySkySet(1, 0, 0, 1);
  EXPECT_EQ("old", ReadText(tree.Simulator("texture/a.bmp")));
  EXPECT_EQ("new", ReadText(tree.Simulator("texture/b.bmp")));
  ASSERT_EQ(1U, CopyFailures.size()) << "a file is told once";
  EXPECT_EQ("Texture\\a.bmp", CopyFailures[0].file);
  EXPECT_EQ(FileStatus::kReadOnly, CopyFailures[0].status);
}

int busy_left = 0;
int Busy(const char* step, const char*) {
  return std::strcmp(step, "rename") == 0 && busy_left-- > 0 ? EBUSY : 0;
}

TEST_F(Copying, AFileHeldOpenIsTriedAgainButNotForEver) {
  WriteText(tree.Program("Sets/day.0/a.bmp"), "new");
  platform::SetFailureHook(Busy);
  busy_left = 3;
  CopySkySet(1, 0, 0, 1);
  EXPECT_EQ("new", ReadText(tree.Simulator("texture/a.bmp")));
  EXPECT_TRUE(CopyFailures.empty());
  busy_left = 1'000'000;
  CopySkySet(1, 0, 0, 1);
  ASSERT_EQ(1U, CopyFailures.size());
  EXPECT_EQ(FileStatus::kBusy, CopyFailures[0].status);
}

TEST_F(Copying, DeleteUntilGoneTakesWhatItMayAndComesBack) {
  for (const char* name : {"x1.tmp", "X2.TMP", ".x3.tmp", "x4.tmp", "x.bmp"}) {
    WriteText(tree.Simulator("texture") / name, "");
  }
  ASSERT_EQ(0, chmod(tree.Simulator("texture/x4.tmp").c_str(), 0444));
  DeleteUntilGone(SimulatorRoot + "Texture\\x*.tmp");
  EXPECT_FALSE(fs::exists(tree.Simulator("texture/x1.tmp")));
  EXPECT_FALSE(fs::exists(tree.Simulator("texture/X2.TMP")));
  EXPECT_EQ(3U, FilesIn(tree.Simulator("texture")));
}

TEST(CopyFailureText, TellsHowManyAndNamesTheFirst) {
  CopyFailures.clear();
  EXPECT_EQ("", CopyFailureText());
  SimulatorRoot = "/app\\..\\..\\";
  for (const char* name : {"Texture\\1", "Texture\\2", "TEXTURE\\2", "3", "4"}) {
    NoteCopy(SimulatorRoot + name, FileStatus::kReadOnly);
  }
  const std::string text = CopyFailureText();
  EXPECT_TRUE(text.starts_with("4 files ")) << text;
  EXPECT_NE(std::string::npos, text.find("\r3 is read-only.\r...\r")) << "no room for a fourth";
}

}  // namespace
