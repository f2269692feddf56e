#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <set>
#include <string>

#include "install/CopyPlan.h"
#include "install/Install.h"
#include "platform/FileSystem.h"
#include "settings/Configuration.h"
#include "support/QuietProgress.h"
#include "support/World.h"

namespace fs = std::filesystem;
using namespace nimbrel;
using platform::FileStatus;

namespace {

int busy_renames = 0;  ///< how many to fail as if another process held the old file open

Choice AllOf(std::int16_t option) {
  Choice choice;
  choice.option.values.fill(option);
  return choice;
}

/// The simulator's files, without the program and the composed texture.
Tree Installed(const World& world) {
  Tree tree = Files(world.Simulator());
  std::erase_if(tree, [](const auto& entry) {
    return entry.first.starts_with("Modules") || entry.first.ends_with('/') ||
           entry.first.ends_with("cumulus01.bmp");
  });
  return tree;
}

TEST(Install, TakesTenLines) {
  const World world;
  WritePack(world.Program(), 1);
  WriteCloudInputs(world.Program(), 1);
  world.MakeFolders();
  QuietProgress progress;
  const Report report =
      Install(AllOf(1), {.fast = true}, ReadCatalogue(world.folders()), world.folders(), progress);
  EXPECT_TRUE(report.Whole());
  EXPECT_EQ(11U, report.files) << "eight sets, two effects, one texture";
  EXPECT_EQ("day 1", ReadText(world.Simulator("Texture/day.bmp")));
}

/// A program with every source but the cloud inputs, and a simulator with every folder.
class Installing : public testing::Test {
 protected:
  Installing() {
    Fill(world);
    catalogue = ReadCatalogue(world.folders());
    catalogue.CloudDestination = "";
  }

  static void Fill(const World& world) {
    WritePack(world.Program(), 1);
    world.MakeFolders();
    for (const char* file : {"Cld/c.bmp", "cumulus/cu.bmp", "stratus/st.bmp"}) {
      WriteText(world.Program("Data/Clouds") / file, file);
    }
    WriteText(world.Program("Data/Sun/sun.bmp"), "new sun");
    WriteText(world.Program("Backups/TEX/sun.bmp"), "own sun");
  }

  Report Run(const Choice& choice, const World* other = nullptr) {
    return Install(choice, {}, catalogue, (other != nullptr ? *other : world).folders(), bar);
  }

  const World world;
  Catalogue catalogue;
  QuietProgress bar;
};

TEST_F(Installing, TwoChoicesIntoTwoSimulators) {
  const World other;
  Fill(other);
  Choice changed = AllOf(1);
  changed.option[Group::kNight] = 0;
  changed.sun = changed.contrails = true;
  const Report first = Run(AllOf(0));
  const Report second = Run(changed, &other);
  EXPECT_TRUE(first.Whole() && first.installed == AllOf(0));
  EXPECT_TRUE(second.Whole() && second.installed == changed);
  for (const bool here : {true, false}) {
    const std::string option = here ? " 0" : " 1";
    const std::string large = here ? "30.50,30.50" : "180.0,180.0";
    const std::string small = here ? "1.50,1.50" : "180.0,180.0";
    const Tree expected{{"Effects/fx_contrail_L.fx", "[Particle.0]\r\nLifetime=" + large + "\r\n"},
                        {"Effects/fx_contrail_s.fx", "[Particle.0]\r\nLifetime=" + small + "\r\n"},
                        {"Scenery/World/texture/base.bmp", "base" + option},
                        {"Scenery/World/texture/environment.bmp", "environment" + option},
                        {"Texture/c.bmp", "Cld/c.bmp"},
                        {"Texture/cirrus.bmp", "cirrus" + option},
                        {"Texture/cu.bmp", "cumulus/cu.bmp"},
                        {"Texture/day.bmp", "day" + option},
                        {"Texture/night.bmp", "night 0"},
                        {"Texture/st.bmp", "stratus/st.bmp"},
                        {"Texture/sun.bmp", here ? "own sun" : "new sun"},
                        {"Texture/sunrise.bmp", "sunrise" + option},
                        {"Texture/sunset.bmp", "sunset" + option},
                        {"Texture/waves.bmp", "waves" + option}};
    EXPECT_EQ(expected, Installed(here ? world : other));
  }
}

TEST_F(Installing, TellsItsProgress) {
  Run(AllOf(0));
  ASSERT_EQ(16U, bar.sentences.size());
  EXPECT_EQ(14U, std::set(bar.sentences.begin(), bar.sentences.end()).size());
  const std::string moments = "  This process will take a few moments.\r\rPlease stand by...";
  EXPECT_EQ("Copying Base Water files to flight simulator." + moments, bar.sentences[0]);
  EXPECT_TRUE(bar.sentences[7].starts_with("Copying Sun files to"));
  EXPECT_EQ("Creating Cumulus Cloud Texture for flight simulator." + moments, bar.sentences[14]);
  EXPECT_EQ("Completed copying environment files to Flight Simulator.\r\rPlease stand by...",
            bar.sentences[15]);
  EXPECT_TRUE(std::is_sorted(bar.percents.begin(), bar.percents.end()));
  EXPECT_EQ((std::set<double>{0, 20, 24, 25, 42, 52, 69, 73, 74, 79, 86, 91, 94, 96, 98, 100}),
            std::set(bar.percents.begin(), bar.percents.end()))
      << "each stage ends where the next begins, or stands still";
  EXPECT_EQ(14, bar.breaths) << "once for each file: 8 in sets, 3 fixed, 3 suns";

  for (int i = 0; i < 299; ++i) {
    WriteText(world.Program("Sets/base.0/a") += std::to_string(1000 + i), "");
  }
  bar = {};
  Run({.option = {}, .sun = true, .contrails = false});
  EXPECT_EQ("Copying Replacement Sun files to flight simulator." + moments, bar.sentences[7]);
  EXPECT_NEAR(20.0 / 300, bar.percents[1], 1e-9) << "a step counts all that were found";
  EXPECT_NEAR(20.0 / 3, bar.percents[100], 1e-9);
  EXPECT_EQ(20, bar.percents[101]) << "only a hundred are copied, then the end is drawn";
  EXPECT_EQ(20, bar.percents[102]);
  EXPECT_EQ(14U + 100, Installed(world).size());
}

TEST_F(Installing, ReplacesByNameAndKeepsTheRest) {
  fs::rename(world.Simulator("Texture"), world.Simulator("texture"));
  const std::string effect =
      "[Library Effect]\nLifetime=5\n\n[PARTICLE.0]\nLifetime = 2.0, 2.0\nType=19\n";
  WriteText(world.Simulator("texture/DAY.BMP"), "old");
  WriteText(world.Simulator("texture/sun6.bmp"), "without a backup");
  WriteText(world.Simulator("effects/FX_Contrail_S.fx"), effect);
  fs::remove(world.Simulator("Effects"));
  for (const char* file : {".hidden", " b ", " ", "sub/deep.bmp"}) {
    WriteText(world.Program("Sets/day.0") / file, "new");
  }
  EXPECT_TRUE(Run(AllOf(0)).Whole());
  Tree tree = Installed(world);
  EXPECT_EQ("day 0", tree["texture/DAY.BMP"]);
  EXPECT_EQ(With(effect, "2.0, 2.0", "1.50,1.50"), tree["effects/FX_Contrail_S.fx"]);
  EXPECT_EQ("without a backup", tree["texture/sun6.bmp"]);
  EXPECT_TRUE(tree.contains("texture/.hidden") && tree.contains("texture/b"));
  EXPECT_EQ(14U + 3, tree.size()) << "and nothing else";
}

TEST_F(Installing, AMissingFolderCopiesNothingInSilence) {
  const World bare;
  fs::create_directory(bare.Simulator("Texture"));
  WriteText(bare.Program("stray.bmp"), "stray");
  WriteText(bare.Program("Sets/sunset.0"), "a file, no folder");
  WriteText(bare.Program("Sets/base.0/b.bmp"), "its destination is missing");
  catalogue.options[Group::kSunrise][0].Textures = "";
  catalogue.options[Group::kNight][0].Textures = ".";
  catalogue.DestinationWaves = ".";
  WriteText(bare.Program("Sets/waves.0/w.bmp"), "its destination is the simulator");
  Choice choice;
  choice.option[Group::kDay] = 2;
  choice.option[Group::kCirrus] = -1;
  const Report report = Run(choice, &bare);
  EXPECT_TRUE(report.Whole() && report.files == 0 && Installed(bare).empty());
}

TEST_F(Installing, ReportsEachFileThatStaysOld) {
  WriteText(world.Simulator("Texture/day.bmp"), "old");
  fs::permissions(world.Simulator("Texture/day.bmp"), fs::perms::owner_read);
  WriteText(world.Program("Data/Clouds/Cld/DAY.BMP"), "the same file again");
  const fs::path elsewhere = world.Simulator("../elsewhere");
  WriteText(elsewhere / "kept", "kept");
  fs::create_symlink(elsewhere / "kept", world.Simulator("Effects/fx_contrail_L.fx"));
  fs::create_directory_symlink(elsewhere, world.Simulator("links"));
  catalogue.DestinationCirrus = "links";
  catalogue.DestinationWaves = "..\\elsewhere";
  catalogue.options[Group::kNight][0].Textures = "..\\..\\links";
  const OrdinaryUser user(world.Simulator(".."));
  fs::permissions(world.Program("Sets/base.0"), fs::perms::none);
  const Report report = Run(AllOf(0));
  std::vector<std::pair<std::string, FileStatus>> failures;
  for (const FileFailure& failure : report.failures) {
    failures.emplace_back(failure.file, failure.status);
  }
  EXPECT_EQ((decltype(failures){{"Scenery\\World\\texture\\", FileStatus::kNoPermission},
                                {"..\\elsewhere\\waves.bmp", FileStatus::kOutside},
                                {"Texture\\day.bmp", FileStatus::kReadOnly},
                                {"Texture\\kept", FileStatus::kOutside},
                                {"Effects\\fx_contrail_L.fx", FileStatus::kOutside},
                                {"links\\cirrus.bmp", FileStatus::kOutside}}),
            failures);
  EXPECT_FALSE(report.Whole());
  EXPECT_EQ("old", ReadText(world.Simulator("Texture/day.bmp")));
  EXPECT_EQ((Tree{{"kept", "kept"}}), Files(elsewhere));
}

TEST_F(Installing, WaitsForAFileHeldOpenButNotForEver) {
  busy_renames = 3;
  EXPECT_TRUE(Run(AllOf(0)).Whole());
  EXPECT_EQ(14 + 3, bar.breaths) << "once for each wait too";
  busy_renames = 1000;
  bar.on_breath = [&] { busy_renames = bar.sentences.size() > 17 ? 0 : busy_renames; };
  const Report report = Run(AllOf(0));
  ASSERT_FALSE(report.failures.empty());
  EXPECT_EQ("Scenery\\World\\texture\\base.bmp", report.failures[0].file);
  EXPECT_EQ(FileStatus::kBusy, report.failures[0].status);
}

TEST_F(Installing, EveryFileWrittenIsForeseen) {
  catalogue.CloudDestination = "Texture\\cumulus01.bmp";
  platform::FileSystem files(kTemporaryPrefix);
  const Folders folders = world.folders();
  const CopyRoutes routes(catalogue, folders, files);
  const WrittenFiles foreseen = FilesThatInstallsWrite(routes, catalogue, folders, files);
  EXPECT_EQ("", foreseen.unread.path);
  std::set<std::string> targets;
  std::size_t sources = 0;
  for (const WrittenFile& file : foreseen.files) {
    targets.insert(fs::path(file.target).lexically_relative(world.Simulator()));
    EXPECT_EQ(file.target.ends_with(".fx"), file.edited) << file.target;
    sources += file.sources.size();
  }
  EXPECT_EQ(2U * 8 + 3 + 1 + 1, sources) << "two of each set, the fixed ones, the sun, the texture";
  std::set<std::string> written{"Texture/Corona1.bmp", "Texture/sun6.bmp", "Texture/cumulus01.bmp"};
  Run({.option = {}, .sun = true, .contrails = false});
  for (const auto& [file, text] : Installed(world)) {
    written.insert(file);
  }
  EXPECT_EQ(written, targets);

  const OrdinaryUser user(world.Simulator(".."));
  fs::permissions(world.Program("Sets/base.1"), fs::perms::none);
  fs::remove_all(world.Simulator("Texture"));
  const WrittenFiles others = FilesThatInstallsWrite(routes, catalogue, folders, files);
  EXPECT_EQ(4U, others.files.size()) << "no install writes where there is no folder";
  EXPECT_EQ(FileStatus::kNoPermission, others.unread.status);
}

TEST_F(Installing, SweepsAfterAKilledRunButOnlyInTheSimulator) {
  const std::string name = kTemporaryPrefix + std::to_string(getpid()) + "-9999.tmp";
  WriteText(world.Simulator("../elsewhere") / name, "not ours");
  fs::create_directory_symlink("../elsewhere", world.Simulator("links"));
  catalogue.DestinationCirrus = "links";
  catalogue.CloudDestination = "Clouds\\cumulus01.bmp";
  catalogue.SkyDestination = catalogue.DestinationWaves = "Sky";
  for (const char* folder : {"Texture", "Effects", "Scenery/World/texture", "Clouds", "Sky"}) {
    WriteText(world.Simulator(folder) / name, "half");
  }
  Run(AllOf(0));
  for (const auto& [file, text] : Installed(world)) {
    EXPECT_NE("half", text) << file;
  }
  EXPECT_TRUE(fs::exists(world.Simulator("../elsewhere") / name));
}

}  // namespace

// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): the system's are reserved
extern "C" int renameat(int from, const char* name, int to, const char* new_name) noexcept {
  errno = EBUSY;
  return busy_renames-- > 0 ? -1
                            : static_cast<int>(syscall(SYS_renameat2, from, name, to, new_name, 0));
}
