#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <string>

#include "install/CopyFailures.h"
#include "install/mod_CopyFiles.h"
#include "install/mod_Install.h"
#include "install/mod_SunContrails.h"
#include "platform/files.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"
#include "settings/Selection.h"
#include "shell/MainSwitches.h"
#include "support/BmpFile.h"
#include "support/SimulatorTree.h"
#include "support/recorders.h"
#include "toolkit/forms.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

constexpr const char* kFolderGroups[] = {"cirrus", "sunrise", "day",         "sunset",
                                         "night",  "base",    "environment", "waves"};

/// A program with every source an install reads, and a simulator with every folder it writes, each
/// file there in an old form.
class Installing : public testing::Test {
 protected:
  Installing() {
    tree.Load(InformationText(1));
    Switches().chk_DXT.SetValue(0);
    Switches().chk_Fast.SetValue(1);
    Switches().chk_Sun.SetValue(1);
    for (const std::string group : kFolderGroups) {
      const bool deep = group == "base" || group == "environment";
      PlaceSet("Sets/", group, ".0/", deep ? "Scenery/World/texture/" : "Texture/");
    }
    for (const std::string folder : {"Cld", "cumulus", "stratus"}) {
      PlaceSet("Data/Clouds/", folder, "/", "Texture/");
    }
    Source("Data/Sun/sun.bmp", "Texture/sun.bmp");
    for (const std::string input : {"solid", "stratus", "wispy"}) {
      WriteInput("Sets/" + input + ".0");
    }
    WriteText(tree.Simulator("Texture/cumulus01.bmp"), kOld);
    WriteText(tree.Simulator("Effects/fx_contrail_s.fx"), kOld);
    WriteText(tree.Simulator("Effects/fx_contrail_L.fx"), kOld);
  }

  /// A set of one texture that bears the set's name.
  void PlaceSet(const std::string& parent, const std::string& name, const std::string& suffix,
                const std::string& target) {
    Source(parent + name + suffix + name + ".bmp", target + name + ".bmp");
  }

  void Source(const std::string& source, const std::string& target) {
    WriteText(tree.Program(source), "new " + source);
    WriteText(tree.Simulator(target), kOld);
    new_text[target] = "new " + source;
  }

  /// The two small bitmaps of a cloud input.
  void WriteInput(const std::string& path) {
    const auto plain = [](int, int) { return 100U; };
    WriteText(tree.Program(path + "_Fast.bmp"), ColorBmp(256, 256, plain).Bytes());
    WriteText(tree.Program(path + "_a_Fast.bmp"), GreyBmp(256, 256, false, plain).Bytes());
  }

  /// Files that are old; every other must be new. Temporary ones fail the test when `no_rest`.
  int OldFiles(bool no_rest = true) {
    int old = 0;
    for (const auto& [target, text] : new_text) {
      const std::string found = ReadText(tree.Simulator(target));
      EXPECT_TRUE(found == kOld || found == text) << target << ": " << found.substr(0, 40);
      old += found == kOld ? 1 : 0;
    }
    for (const auto& entry : fs::recursive_directory_iterator(tree.Simulator(""))) {
      EXPECT_FALSE(no_rest && entry.path().filename().string().starts_with("~nimbrel"))
          << entry.path();
    }
    return old;
  }

  std::string Cumulus() { return ReadText(tree.Simulator("Texture/cumulus01.bmp")); }

  static constexpr const char* kOld = "[Old]\r\nold=1\r\n";
  SimulatorTree tree;
  std::map<std::string, std::string> new_text;  ///< by the file's place in the simulator
};

TEST_F(Installing, RunsItsStepsInOrder) {
  int hourglasses = 0;
  Recorded.on_percent = [&] {
    hourglasses += toolkit::Screen::MousePointer() == toolkit::kPointerHourglass ? 1 : 0;
  };
  InstallAndReport();
  EXPECT_EQ(0, OldFiles());
  EXPECT_TRUE(Cumulus().starts_with("BM"));
  EXPECT_EQ(74U + 256 * 256 * 4, Cumulus().size());

  const std::pair<double, const char*> expected[] = {
      {0, "Copying Base Water files to"},         {20, "Copying Water Reflection files to"},
      {24, "Copying Wave Height files to"},       {25, "Copying Sunrise Sky Textures to"},
      {42, "Copying Day Sky Textures to"},        {52, "Copying Sunset Sky Textures to"},
      {69, "Copying Night Sky Textures to"},      {73, "Copying Replacement Sun files to"},
      {74, "Copying Cirrus Cloud Textures to"},   {79, "Copying CLD Cloud Textures to"},
      {86, "Copying Cumulus Cloud Textures to"},  {91, "Copying Stratus Cloud Textures to"},
      {94, "Creating Cumulus Cloud Texture for"}, {96, "Creating Cumulus Cloud Texture for"},
      {98, "Creating Cumulus Cloud Texture for"}, {100, nullptr},
  };
  ASSERT_EQ(std::size(expected), Recorded.updates.size());
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    const auto& [percent, work] = expected[i];
    EXPECT_EQ(percent, Recorded.updates[i].percent);
    const std::string text =
        work == nullptr
            ? "Completed copying environment files to Flight Simulator."
            : std::string(work) + " flight simulator.  This process will take a few moments.";
    EXPECT_EQ(text + "\r\rPlease stand by...", Recorded.updates[i].text);
  }
  EXPECT_TRUE(std::is_sorted(Recorded.percents.begin(), Recorded.percents.end()));
  EXPECT_EQ(Recorded.percents.size(), static_cast<std::size_t>(hourglasses));
  EXPECT_EQ(toolkit::kPointerDefault, toolkit::Screen::MousePointer());

  ASSERT_EQ(2U, Recorded.messages.size());
  EXPECT_EQ("Progress", Recorded.messages[0].kind);
  EXPECT_TRUE(Recorded.messages[0].progress);
  EXPECT_EQ("Information", Recorded.messages[1].kind);
  EXPECT_EQ(
      "All environment files have been copied to Flight Simulator.\r\r"
      "Please press the checkmark to continue.",
      Recorded.messages[1].text);
  EXPECT_EQ(1, Recorded.hides);
}

TEST_F(Installing, SwitchesShapeTheTextureAndTheSun) {
  Switches().chk_DXT.SetValue(1);
  Switches().chk_Sun.SetValue(0);
  Switches().chk_Contrails.SetValue(1);
  WriteText(tree.Program("Backups/TEX/sun.bmp"), "own");
  InstallSettings();
  EXPECT_EQ("DXT3", Cumulus().substr(30, 4));
  EXPECT_EQ("own", ReadText(tree.Simulator("Texture/sun.bmp")));
  EXPECT_TRUE(Recorded.updates.at(7).text.starts_with("Copying Sun files to"));
  EXPECT_NE(std::string::npos,
            ReadText(tree.Simulator("Effects/fx_contrail_L.fx")).find("Lifetime=180.0,180.0"));
}

TEST_F(Installing, TellsWhatCouldNotBePutInPlace) {
  for (const char* file : {"Texture/day.bmp", "Texture/cumulus01.bmp"}) {
    ASSERT_EQ(0, chmod(tree.Simulator(file).c_str(), 0444));
  }
  InstallAndReport();
  EXPECT_EQ(1, OldFiles());
  EXPECT_EQ(kOld, Cumulus());
  ASSERT_EQ(3U, Recorded.messages.size());
  EXPECT_EQ("Information", Recorded.messages[1].kind);
  EXPECT_EQ("Exclamation", Recorded.messages[2].kind);
  EXPECT_EQ("Copying Files to Flight Simulator", Recorded.messages[2].title);
  EXPECT_TRUE(Recorded.messages[2].text.starts_with("2 files ")) << Recorded.messages[2].text;
  InstallSettings();
  EXPECT_EQ(2U, CopyFailures.size()) << "those of the run before are forgotten";
}

TEST_F(Installing, WithoutACloudTextureItEndsInAMessage) {
  // Outside the catalogue: no input, and no stray "\.bmp" either.
  for (const std::size_t input : {0U, 1U, 2U}) {
    CurrentSelection[kCloud][input] = 7;
  }
  WriteInput("");
  InstallAndReport();
  EXPECT_EQ(0, OldFiles());
  EXPECT_EQ(kOld, Cumulus());
  ASSERT_EQ(2U, Recorded.messages.size());
  EXPECT_EQ("Error", Recorded.messages[1].kind);
  EXPECT_TRUE(Recorded.messages[1].text.ends_with("\r\rPress the checkmark to continue."));
  EXPECT_EQ(1, Recorded.hides);
  EXPECT_EQ(toolkit::kPointerDefault, toolkit::Screen::MousePointer());
}

TEST_F(Installing, CleansUpAfterAKilledRunButOnlyInTheSimulator) {
  const TempFolder elsewhere;
  const std::string name = With(std::string(platform::kTemporaryPattern), "*", "0001");
  WriteText(elsewhere / name, "not ours");
  fs::create_directory_symlink(elsewhere.path(), tree.Simulator("links"));
  Catalogue.DestinationCirrus = "links";
  WriteText(tree.Simulator("Texture") / name, "half");
  WriteText(tree.Simulator("Effects") / name, "half");
  InstallSettings();
  EXPECT_FALSE(fs::exists(tree.Simulator("Texture") / name));
  EXPECT_FALSE(fs::exists(tree.Simulator("Effects") / name));
  EXPECT_TRUE(fs::exists(elsewhere / name));
}

int steps_left = 0;
int FailOneStep(const char*, const char* path) {
  return std::string_view(path).find("TempBitmaps") == std::string_view::npos && steps_left-- == 0
             ? EIO
             : 0;
}

TEST_F(Installing, AFailingStepCostsOneFileThatIsTold) {
  int step = 0;
  for (; step < 200; ++step) {
    for (const auto& [target, text] : new_text) {
      WriteText(tree.Simulator(target), kOld);
    }
    steps_left = step;
    platform::SetFailureHook(FailOneStep);
    InstallSettings();
    platform::SetFailureHook(nullptr);
    if (steps_left >= 0) {
      break;  // the run has no more steps than this
    }
    const int untold = OldFiles() - static_cast<int>(CopyFailures.size());
    EXPECT_LE(untold, 0) << "step " << step;
    EXPECT_LE(CopyFailures.size(), 1U);
  }
  EXPECT_GT(step, 30);
  EXPECT_LT(step, 200);
}

int DieAtStep(const char*, const char*) {
  if (steps_left-- == 0) {
    _exit(0);
  }
  return 0;
}

TEST_F(Installing, KilledAtAnyStepEveryFileIsWhole) {
  for (int step = 0; step < 12; ++step) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      steps_left = step;
      platform::SetFailureHook(DieAtStep);
      ApplySun(true);
      CopySkySet(0, 0, 0, 1);
      ApplyContrails(true);
      _exit(1);
    }
    int status = 0;
    ASSERT_EQ(child, waitpid(child, &status, 0));
    EXPECT_TRUE(WIFEXITED(status)) << "step " << step;
    OldFiles(false);
    const std::string effect = ReadText(tree.Simulator("Effects/fx_contrail_s.fx"));
    EXPECT_TRUE(effect.starts_with(kOld)) << effect;
  }
  InstallSettings();
  EXPECT_EQ(0, OldFiles()) << "and nothing of the killed runs is left";
}

}  // namespace
