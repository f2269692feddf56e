#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

#include "SetupWorld.h"
#include "support/SimulatorTree.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

TEST_F(SetupWorld, PutsItselfInAndKeepsTheOriginals) {
  const Tree before = Simulator();
  const Outcome outcome = Run({"--yes", simulator});
  EXPECT_EQ(kDone, outcome.status) << outcome.err;
  EXPECT_EQ(before, Simulator());
  EXPECT_EQ("own TEXTURE/SUN.BMP", ReadText(Originals("files/TEXTURE/SUN.BMP")));
  EXPECT_EQ("own TEXTURE/SUN.BMP", ReadText(Nimbrel("Backups/TEX/SUN.BMP")));
  EXPECT_FALSE(fs::exists(Nimbrel("Backups/TEX/sun6.bmp")));
  EXPECT_FALSE(fs::exists(Originals("files/TEXTURE/untouched.bmp")));
  EXPECT_EQ("pack Sets/day.1/extra.bmp", ReadText(Nimbrel("Sets/day.1/extra.bmp")));
  EXPECT_EQ("program", ReadText(Nimbrel("nimbrel")));
  EXPECT_EQ(0, access(Nimbrel("nimbrel").c_str(), X_OK));

  fs::remove(Nimbrel("Media/icon_Home.bmp"));
  EXPECT_EQ(kDone, Run({"--yes", simulator}).status);
  EXPECT_EQ("pack Media/icon_Home.bmp", ReadText(Nimbrel("Media/icon_Home.bmp")));
}

TEST_F(InstallWorld, BringsBackEveryByteAndNameAfterManyInstalls) {
  const Tree before = TreeOf(simulator);
  const Tree simulator_before = Simulator();
  ASSERT_EQ(kDone, Run({simulator}, "y\n").status);
  Install(0, true, true);
  EXPECT_EQ("pack Data/Sun/halo.bmp", ReadText(InSimulator("TEXTURE/halo.bmp")));
  Install(1, false, false);
  Install(1, true, true);
  EXPECT_EQ("pack Sets/day.1/day.bmp", ReadText(InSimulator("TEXTURE/DAY.bmp")));
  EXPECT_TRUE(fs::exists(InSimulator("TEXTURE/extra.bmp")));
  // What else may have happened since: a file lost and installed anew, a name changed, a run
  // killed.
  fs::remove(InSimulator("TEXTURE/Cld.bmp"));
  Install(0, true, true);
  EXPECT_TRUE(fs::exists(InSimulator("TEXTURE/cld.bmp")));
  fs::rename(InSimulator("scenery/world/Texture/base.bmp"),
             InSimulator("scenery/world/Texture/BASE.BMP"));
  WriteText(InSimulator("TEXTURE/~nimbrel-2147480000-1.tmp"), "half");
  const Outcome restored = Run({"--restore", simulator}, "y\n");
  EXPECT_EQ(kDone, restored.status) << restored.err;
  EXPECT_EQ(simulator_before, Simulator());
  EXPECT_TRUE(fs::exists(Nimbrel("nimbrel")));
  fs::rename(InSimulator("TEXTURE/DAY.bmp"), InSimulator("TEXTURE/day.bmp"));  // the name alone
  EXPECT_EQ(kDone, Run({"--yes", "--restore", simulator}).status);
  EXPECT_EQ(simulator_before, Simulator());

  Install(1, true, true);
  WriteText(Nimbrel("Favorites/Mine.nbf"), "mine");
  ASSERT_EQ(kDone, Run({"--remove", simulator}, "y\nn\n").status);
  EXPECT_EQ(simulator_before, Simulator());
  EXPECT_EQ((Tree{{"Data", "/"},
                  {"Data/History.nbh", "as the program does first"},
                  {"Favorites", "/"},
                  {"Favorites/Mine.nbf", "mine"}}),
            TreeOf(Nimbrel("")));
  ASSERT_EQ(kDone, Run({"--yes", simulator}).status);
  ASSERT_EQ(kDone, Run({"--restore", "--remove", simulator}, "y\ny\n").status);
  EXPECT_EQ(before, TreeOf(simulator));
}

TEST_F(InstallWorld, ChangesNothingWithoutAYes) {
  const Tree before = TreeOf(simulator);
  for (const std::string answer : {"", "n\n", "\n", "yo\n"}) {
    EXPECT_EQ(kFailed, Run({simulator}, answer).status);
    EXPECT_EQ(before, TreeOf(simulator));
  }
  ASSERT_EQ(kDone, Run({}, simulator.string() + "\nYes\n\n").status);
  Install(1, true, true);
  const Tree installed = TreeOf(simulator);
  for (const char* task : {"--restore", "--remove"}) {
    const Outcome outcome = Run({task, simulator}, "n\n");
    EXPECT_EQ(kFailed, outcome.status);
    EXPECT_NE(std::string::npos, outcome.out.find("TEXTURE/halo.bmp")) << outcome.out;
    EXPECT_EQ(installed, TreeOf(simulator));
  }
}

TEST_F(SetupWorld, FindsTheFolderHoweverItIsWritten) {
  fs::create_directory_symlink(simulator, temp / "link");
  fs::current_path(temp.path());
  WriteText(simulator / "MODULES/other.dll", "");
  const std::string name = simulator.filename().string();
  for (const std::string& folder : {name, "./" + name + "//", temp.string() + "/link",
                                    temp.string() + "/from/../" + name + "/"}) {
    EXPECT_EQ(kDone, Run({"-y", folder}).status) << folder;
    EXPECT_TRUE(fs::exists(simulator / "MODULES/Nimbrel/NB_Information.cfg"));
    EXPECT_FALSE(fs::exists(simulator / "Modules"));
    EXPECT_EQ(kDone, Run({"--remove", "-y", "--", folder}).status);
  }
  fs::current_path("/");
}

struct Refusal {
  const char* what;
  std::function<void(const fs::path& simulator, const fs::path& pack)> spoil;
  std::vector<std::string> arguments;  ///< "@" stands for the simulator's folder
  int status;
  const char* message;
};

const Refusal kRefusals[] = {
    {"no textures",
     [](auto& s, auto&) { fs::remove_all(s / "TEXTURE"); },
     {"@"},
     1,
     "no folder Texture"},
    {"no mark",
     [](auto& s, auto&) {
       fs::remove(s / "fs9.exe");
       fs::rename(s / "effects", s / "e");
       fs::create_directory(s / "effects");
     },
     {"@"},
     1,
     "neither FS9.exe"},
    {"no folder", nullptr, {"@/nowhere"}, 1, "no folder"},
    {"a file", nullptr, {"@/fs9.exe"}, 1, "no folder"},
    {"linked Modules",
     [](auto& s, auto& p) { fs::create_directory_symlink(p, s / "Modules"); },
     {"@"},
     1,
     "symbolic link"},
    {"no pack", nullptr, {"--pack", "/nowhere", "@"}, 1, "no texture pack"},
    {"damaged catalogue",
     [](auto&, auto& p) { WriteText(p / "NB_Information.cfg", "[CloudTextures]"); },
     {"@"},
     1,
     "can't be read"},
    {"no program",
     [](auto&, auto& p) { fs::remove(p.parent_path() / "nimbrel"); },
     {"@"},
     1,
     "not where it should be"},
    {"cut manifest",
     [](auto& s, auto&) {
       WriteText(s / "Modules/Nimbrel Originals/manifest",
                 "Nimbrel originals 1\nabsent Texture/halo.bmp\n");
     },
     {"--restore", "@"},
     1,
     "damaged"},
    {"manifest that leads out",
     [](auto& s, auto&) {
       WriteText(s / "Modules/Nimbrel Originals/manifest",
                 "Nimbrel originals 1\nabsent Texture/../../from/nimbrel\nend 1\n");
     },
     {"--restore", "@"},
     1,
     "damaged"},
    {"nothing kept", nullptr, {"--restore", "@"}, 1, "No originals"},
    {"unfinished",
     [](auto& s, auto&) { WriteText(s / "Modules/Nimbrel Originals/files/a", ""); },
     {"--remove", "@"},
     1,
     "come to its end"},
    {"put there by hand",
     [](auto& s, auto&) { WriteText(s / "Modules/Nimbrel/nimbrel", ""); },
     {"--restore", "@"},
     1,
     "come to its end"},
    {"unknown option", nullptr, {"--force", "@"}, 2, "usage:"},
    {"two folders", nullptr, {"@", "@"}, 2, "usage:"},
    {"no folder named", nullptr, {}, 2, "usage:"},
    {"pack without a folder", nullptr, {"@", "--pack"}, 2, "usage:"},
    {"restoring a pack", nullptr, {"--pack", "@", "--restore", "@"}, 2, "usage:"},
};

TEST_F(SetupWorld, RefusesWhatItCantDoAndChangesNothing) {
  const fs::path whole = temp / "whole";
  fs::copy(simulator, whole, fs::copy_options::recursive);
  fs::copy(pack.parent_path(), temp / "whole from", fs::copy_options::recursive);
  for (const Refusal& row : kRefusals) {
    SCOPED_TRACE(row.what);
    if (row.spoil) {
      row.spoil(simulator, pack);
    }
    const Tree before = TreeOf(temp.path());
    std::vector<std::string> arguments = {"--yes"};
    for (const std::string& argument : row.arguments) {
      arguments.push_back(argument.starts_with('@') ? simulator.string() + argument.substr(1)
                                                    : argument);
    }
    const Outcome outcome = Run(arguments);
    EXPECT_EQ(row.status, outcome.status);
    EXPECT_NE(std::string::npos, outcome.err.find(row.message)) << outcome.err;
    EXPECT_EQ(before, TreeOf(temp.path()));
    for (const auto& [from, to] :
         {std::pair{whole, simulator}, {temp / "whole from", temp / "from"}}) {
      fs::remove_all(to);
      fs::copy(from, to, fs::copy_options::recursive);
    }
  }
}

TEST_F(SetupWorld, RefusesListsThatItNeverWrote) {
  for (const std::string entries : {"absent .\nend 1", "absent TEXTURE/./SUN.BMP\nend 1",
                                    "absent SUN\r\nend 1", "absent Sun\nunknown SUN\nend 2"}) {
    WriteText(Originals("manifest"), "Nimbrel originals 1\n" + entries + "\n");
    EXPECT_NE(std::string::npos, Run({"--yes", simulator}).err.find("is damaged")) << entries;
  }
}

TEST_F(SetupWorld, FollowsNoLinkOutAndLeavesItsStoreAlone) {
  fs::create_directory_symlink(pack, InSimulator("TEXTURE/link"));
  WriteText(Originals("manifest"),
            "Nimbrel originals 1\nabsent Texture/link/NB_Information.cfg\n"
            "absent Modules/Nimbrel Originals/manifest\nend 2\n");
  const Tree before = TreeOf(temp.path());
  EXPECT_EQ(kFailed, Run({"--yes", "--restore", simulator}).status);
  EXPECT_EQ(before, TreeOf(temp.path()));
}

TEST_F(SetupWorld, GoesOnWithAStoreThatChanged) {
  ASSERT_EQ(kDone, Run({"--yes", simulator}).status);
  fs::rename(Originals("files/TEXTURE/DAY.bmp"), Originals("files/TEXTURE/day.BMP"));
  fs::remove(Originals("files/TEXTURE/SUN.BMP"));
  fs::remove(Nimbrel("Backups/TEX/SUN.BMP"));
  WriteText(InSimulator("TEXTURE/SUN.BMP"), "another");
  EXPECT_EQ(kDone, Run({"--yes", simulator}).status);
  WriteText(InSimulator("TEXTURE/DAY.bmp"), "another");
  Run({"--yes", "--restore", simulator});
  EXPECT_EQ("own TEXTURE/DAY.bmp", ReadText(InSimulator("TEXTURE/DAY.bmp")));
}

TEST_F(SetupWorld, RefusesWhileTheProgramRuns) {
  sources.program = "/bin/sleep";
  ASSERT_EQ(kDone, Run({"--yes", simulator}).status);
  const pid_t child = fork();
  if (child == 0) {
    execl(Nimbrel("nimbrel").c_str(), "nimbrel", "60", nullptr);
    _exit(1);
  }
  const std::string program = Nimbrel("nimbrel").string();
  for (int i = 0; i < 500 && fs::read_symlink("/proc/" + std::to_string(child) + "/exe") != program;
       ++i) {
    usleep(10'000);
  }
  for (const char* task : {"--yes", "--restore", "--remove"}) {
    EXPECT_NE(std::string::npos, Run({"--yes", task, simulator}).err.find("is running")) << task;
  }
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(kDone, Run({"--yes", "--remove", simulator}).status);
}

TEST_F(InstallWorld, RestoresWhatItCanAndKeepsTheRest) {
  const Tree simulator_before = Simulator();
  ASSERT_EQ(kDone, Run({"--yes", simulator}).status);
  Install(1, true, true);
  const fs::path day = InSimulator("TEXTURE/DAY.bmp");
  fs::permissions(day, fs::perms::owner_read);
  WriteText(Originals("files/TEXTURE/SUN.BMP"), "own TEXTURE/SUN.BMp");
  const Outcome outcome = Run({"--yes", "--remove", simulator});
  EXPECT_EQ(kFailed, outcome.status);
  EXPECT_NE(std::string::npos, outcome.err.find("TEXTURE/DAY.bmp is read-only")) << outcome.err;
  EXPECT_NE(std::string::npos, outcome.err.find("TEXTURE/SUN.BMP could not")) << outcome.err;
  EXPECT_EQ("pack Data/Sun/sun.bmp", ReadText(InSimulator("TEXTURE/SUN.BMP")));
  EXPECT_FALSE(fs::exists(InSimulator("TEXTURE/halo.bmp")));
  EXPECT_TRUE(fs::exists(Nimbrel("nimbrel")));
  fs::permissions(day, fs::perms::owner_write, fs::perm_options::add);
  WriteText(Originals("files/TEXTURE/SUN.BMP"), "own TEXTURE/SUN.BMP");
  EXPECT_EQ(kDone, Run({"--yes", "--restore", simulator}).status);
  EXPECT_EQ(simulator_before, Simulator());
}

// A removal that was killed has lost a part of the store. A new setup must not take the list's word
// for what is gone.
TEST_F(InstallWorld, MendsAStoreThatLostFiles) {
  const Tree simulator_before = Simulator();
  ASSERT_EQ(kDone, Run({"--yes", simulator}).status);
  fs::remove(Nimbrel("nimbrel"));
  fs::remove_all(Originals("files/TEXTURE"));
  ASSERT_EQ(kDone, Run({"--yes", simulator}).status);
  Install(1, true, true);
  EXPECT_EQ(kDone, Run({"--yes", "--restore", simulator}).status);
  EXPECT_EQ(simulator_before, Simulator());
}

TEST_F(InstallWorld, KeepsWhatANewOptionEndangersUnlessItIsInstalledAlready) {
  ASSERT_EQ(kDone, Run({"--yes", simulator}).status);
  Install(0, true, true);
  WriteText(InSimulator("TEXTURE/new.bmp"), "own new");
  WriteText(InSimulator("TEXTURE/placed.bmp"), "pack placed");
  WriteText(Nimbrel("Sets/night.0/new.bmp"), "pack new");
  WriteText(Nimbrel("Sets/night.1/placed.bmp"), "pack placed");
  WriteText(Nimbrel("NB_Information.cfg"), InformationText(1) + "; mine\r\n");
  const Outcome again = Run({"--yes", simulator});
  ASSERT_EQ(kDone, again.status) << again.err;
  EXPECT_NE(std::string::npos, again.out.find("will not touch it (1 file)")) << again.out;
  EXPECT_EQ("own TEXTURE/DAY.bmp", ReadText(Originals("files/TEXTURE/DAY.bmp")));
  EXPECT_TRUE(ReadText(Nimbrel("NB_Information.cfg")).ends_with("; mine\r\n"));
  Install(0, true, true);
  Install(1, true, true);
  EXPECT_EQ("pack new", ReadText(InSimulator("TEXTURE/new.bmp")));
  ASSERT_EQ(kDone, Run({"--yes", "--restore", simulator}).status);
  EXPECT_EQ("own new", ReadText(InSimulator("TEXTURE/new.bmp")));
  EXPECT_EQ("pack placed", ReadText(InSimulator("TEXTURE/placed.bmp")));
}

// Put in place by hand and used before the first setup: what an install has written is no original.
TEST_F(InstallWorld, TakesNoInstalledFileForAnOriginal) {
  fs::create_directories(simulator / "Modules");
  fs::copy(pack, Nimbrel(""), fs::copy_options::recursive);
  Install(1, true, true);
  const Tree installed = Simulator();
  const Outcome outcome = Run({"--yes", simulator});
  ASSERT_EQ(kDone, outcome.status) << outcome.err;
  for (const char* file : {"TEXTURE/DAY.bmp", "TEXTURE/SUN.BMP", "TEXTURE/Cumulus01.bmp",
                           "effects/FX_contrail_s.fx"}) {
    EXPECT_FALSE(fs::exists(Originals("files") / file)) << file;
  }
  EXPECT_TRUE(fs::exists(Originals("files/scenery/world/Texture/base.bmp")));
  EXPECT_EQ("pack Backups/TEX/sun.bmp", ReadText(Nimbrel("Backups/TEX/sun.bmp")));
  const Outcome removed = Run({"--remove", simulator}, "y\n");
  EXPECT_EQ(kDone, removed.status) << removed.err;
  EXPECT_NE(std::string::npos, removed.out.find("originals nobody knows")) << removed.out;
  EXPECT_EQ(installed, Simulator());
  EXPECT_TRUE(fs::exists(Nimbrel("Backups/TEX/sun.bmp")));
  EXPECT_FALSE(fs::exists(Nimbrel("nimbrel")));
}

}  // namespace
