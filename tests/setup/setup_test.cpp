#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "SetupWorld.h"

namespace fs = std::filesystem;
using namespace nimbrel;

namespace {

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(SetupWorld, SaysWhatItDoesAndKeepsTheOriginals) {
  const Tree before = Simulator();
  const Outcome outcome = Run({"setup", "--yes", "@"});
  EXPECT_EQ(With(R"(In @ this will
  * keep a copy of every file that Nimbrel could ever replace (0.1 MB)
    in @/Modules/Nimbrel Originals:
      TEXTURE: 5 files
      effects: 2 files
      scenery/world/Texture: 1 file
  * note what does not exist now, for restore to delete it again (3 files):
      TEXTURE/extra.bmp
      TEXTURE/halo.bmp
      TEXTURE/sun6.bmp
  * back up the simulator's own sun for Nimbrel (2 files):
      TEXTURE/corona1.bmp
      TEXTURE/SUN.BMP
  * copy the texture pack %
    (10 files) into @/Modules/Nimbrel
  * copy the program there: @/Modules/Nimbrel/nimbrel
Done. Start Nimbrel with
  @/Modules/Nimbrel/nimbrel
)",
                 "%", pack.string()),
            outcome.out);
  EXPECT_EQ(kDone, outcome.status) << outcome.err;
  EXPECT_EQ(before, Simulator());
  Tree wanted = Files(pack);
  for (const char* file : {"Backups/TEX/sun.bmp", "TempBitmaps/", "TempBitmaps/solid.bmp",
                           "Data/History.nbh", "Media/~nimbrel-1-1.tmp"}) {
    EXPECT_EQ(1, wanted.erase(file)) << file;
  }
  wanted["Backups/TEX/SUN.BMP"] = "own TEXTURE/SUN.BMP";
  wanted["Backups/TEX/corona1.bmp"] = "own TEXTURE/corona1.bmp";
  wanted["Favorites/"] = "";
  wanted["nimbrel"] = "program";
  EXPECT_EQ(wanted, Files(Nimbrel("")));
  EXPECT_EQ(0, access(Nimbrel("nimbrel").c_str(), X_OK));
  EXPECT_EQ("own TEXTURE/SUN.BMP", ReadText(Originals("files/TEXTURE/SUN.BMP")));

  // Again: the program is renewed, artwork added, the rest left as it is.
  WriteText(sources.program, "newer");
  fs::remove(Nimbrel("Media/icon_Home.bmp"));
  wanted.erase("Sets/day.0/day.bmp");
  fs::remove(Nimbrel("Sets/day.0/day.bmp"));
  wanted["nimbrel"] = "newer";
  wanted["Backups/TEX/SUN.BMP"] = "the user's";
  WriteText(Nimbrel("Backups/TEX/SUN.BMP"), "the user's");
  WriteText(Nimbrel("Media/~nimbrel-2147480000-1.tmp"), "half");
  WriteText(Originals("~nimbrel-2147480000-1.tmp"), "half");
  EXPECT_TRUE(
      Contains(Run({"setup", "--yes", "@"}).out, "will\n  * add missing artwork (1 file)\n"));
  EXPECT_EQ(wanted, Files(Nimbrel("")));
  EXPECT_FALSE(fs::exists(Originals("~nimbrel-2147480000-1.tmp")));
}

TEST_F(SetupWorld, BringsBackEveryByteAndNameAfterManyInstalls) {
  const Tree before = Files(simulator);
  const Tree simulator_before = Simulator();
  ASSERT_EQ(kDone, Run({"setup", "@"}, "y\n").status);
  Install(0, true, true);
  EXPECT_EQ("pack Data/Sun/halo.bmp", ReadText(InSimulator("TEXTURE/halo.bmp")));
  Install(1, false, false);
  Install(1, true, true);
  EXPECT_EQ("pack Sets/day.1/day.bmp", ReadText(InSimulator("TEXTURE/DAY.bmp")));
  // What else may have happened: a file lost and installed anew, a name changed, a run killed.
  fs::remove(InSimulator("TEXTURE/Cld.bmp"));
  Install(0, true, true);
  EXPECT_TRUE(fs::exists(InSimulator("TEXTURE/cld.bmp")));
  fs::rename(InSimulator("scenery/world/Texture/base.bmp"),
             InSimulator("scenery/world/Texture/BASE.BMP"));
  WriteText(InSimulator("TEXTURE/~nimbrel-2147480000-1.tmp"), "half");
  const Outcome restored = Run({"restore", "@"}, "y\n");
  EXPECT_EQ(kDone, restored.status) << restored.err;
  EXPECT_EQ(simulator_before, Simulator());
  EXPECT_TRUE(fs::exists(Nimbrel("nimbrel")));
  fs::rename(InSimulator("TEXTURE/DAY.bmp"), InSimulator("TEXTURE/day.bmp"));  // the name alone
  EXPECT_EQ(kFailed, Run({"restore", "@"}, "n\n").status);
  EXPECT_EQ(kDone, Do("restore"));
  EXPECT_EQ(simulator_before, Simulator());
  EXPECT_EQ(kDone, Run({"restore", "@"}).status) << "asks although nothing is to be done";

  Install(1, true, true);
  WriteText(Nimbrel("Favorites/Mine.nbf"), "mine");
  WriteText(Nimbrel("NB_Information.cfg"), InformationText(1) + "; the program's settings");
  WriteText(Nimbrel("Data/~nimbrel-2147480000-1.tmp"), "half");
  const Outcome removed = Run({"remove", "@"}, "y\nn\n");
  ASSERT_EQ(kDone, removed.status);
  EXPECT_TRUE(removed.out.ends_with("Your own files are still in @/Modules/Nimbrel.\n"));
  EXPECT_EQ(simulator_before, Simulator());
  EXPECT_EQ((Tree{{"Data/", ""},
                  {"Data/History.nbh", "as the program does first"},
                  {"Favorites/", ""},
                  {"Favorites/Mine.nbf", "mine"}}),
            Files(Nimbrel("")));
  ASSERT_EQ(kDone, Do("setup"));
  EXPECT_TRUE(Run({"remove", "@"}, "y\ny\n").out.ends_with("Nimbrel has been removed.\n"));
  EXPECT_EQ(before, Files(simulator));
  fs::create_directories(Originals("files"));  // a removal killed at its end
  EXPECT_EQ(kDone, Run({"remove", "@"}).status);
  EXPECT_EQ(before, Files(simulator));
}

TEST_F(SetupWorld, ChangesNothingWithoutAYes) {
  const Tree before = Files(simulator);
  for (const std::string answer : {"", "n\n", "\n", "yo\n"}) {
    EXPECT_EQ(kFailed, Run({"setup", "@"}, answer).status);
    EXPECT_EQ(before, Files(simulator));
  }
  const Outcome asked = Run({"setup"}, simulator.string() + "\nYes\n\n");
  ASSERT_EQ(kDone, asked.status);
  EXPECT_TRUE(asked.out.ends_with("Press Enter to close."));
  Install(1, true, true);
  for (char name = 'a'; name < 'a' + 12; ++name) {
    WriteText(Nimbrel("Favorites") / std::string(1, name), "");
  }
  const Tree installed = Files(simulator);
  for (const char* task : {"restore", "remove"}) {
    EXPECT_EQ(kFailed, Run({task, "@"}, "n\n").status);
    EXPECT_EQ(installed, Files(simulator));
  }
  const std::string removal = Run({"remove", "@"}).out;
  EXPECT_TRUE(removal.starts_with("In @ this will\n  * bring back the originals (6 files)"))
      << removal;
  EXPECT_TRUE(Contains(removal, "  * remove Nimbrel with its texture pack (26 files) and"))
      << removal;
  EXPECT_TRUE(Contains(removal, "      Favorites/i\n      and 3 more\n"));
}

TEST_F(SetupWorld, FindsTheFolderHoweverItIsWritten) {
  fs::create_directory_symlink(simulator, temp / "link");
  fs::current_path(temp.path());
  WriteText(simulator / "MODULES/other.dll", "");
  const std::string name = simulator.filename().string();
  for (const std::string& folder : {name, "./" + name + "//", temp.string() + "/link",
                                    temp.string() + "/from/../" + name + "/"}) {
    EXPECT_EQ(kDone, Run({"setup", folder, "-y"}).status) << folder;
    EXPECT_TRUE(fs::exists(simulator / "MODULES/Nimbrel/NB_Information.cfg"));
    EXPECT_FALSE(fs::exists(simulator / "Modules"));
    EXPECT_EQ(kDone, Run({"remove", "-y", "--", folder}).status);
    EXPECT_EQ(1U, Files(simulator / "MODULES").size());
  }
  fs::current_path("/");
}

struct Refusal {
  const char* spoil;  ///< run by the shell in the simulator's folder
  std::vector<std::string> arguments;
  const char* message;
};
const Refusal kRefusals[] = {
    {"rm -r TEXTURE", {"setup", "@"}, "no folder Texture"},
    {"rm fs9.exe effects/FX*", {"setup", "@"}, "neither FS9.exe"},
    {":", {"setup", "@/nowhere"}, "There is no folder @/"},
    {":", {"setup", "@/fs9.exe"}, "There is no folder @/"},
    {"mkdir 'back\\slash'", {"setup", "@/back\\slash"}, "cannot be installed below"},
    {"ln -s ../from Modules", {"setup", "@"}, "Modules is a symbolic link"},
    {"ln -s /nowhere Modules", {"setup", "@"}, "Modules was not found"},
    {":", {"setup", "--pack=/nowhere", "@"}, "no texture pack"},
    {"echo >../from/pack/NB_Information.cfg", {"setup", "@"}, "NB_Information.cfg can't be read: "},
    {"rm ../from/nimbrel", {"setup", "@"}, "not where it should be"},
    {"touch \"$(printf '../from/pack/Sets/day.1/a\\nb')\"", {"setup", "@"}, "line break"},
    {":", {"restore", "@"}, "No originals are kept"},
    {"mkdir -p 'Modules/Nimbrel Originals/files/a'", {"remove", "@"}, "come to its end"},
    {"mkdir -p Modules/Nimbrel; touch Modules/Nimbrel/nimbrel",
     {"restore", "@"},
     "Run nimbrelctl setup first"},
};

TEST_F(SetupWorld, RefusesInItsOwnWordsAndChangesNothing) {
  const auto shell = [this](const std::string& command) {
    ASSERT_EQ(0, std::system(("cd '" + simulator.string() + "' && " + command).c_str())) << command;
  };
  shell("cp -r .. " + temp.string() + ".whole");
  for (const Refusal& row : kRefusals) {
    shell(row.spoil);
    const Tree before = Files(temp.path());
    const Outcome outcome = Run(row.arguments, "y\n");
    EXPECT_EQ(kFailed, outcome.status) << row.message;
    EXPECT_TRUE(Contains(outcome.err, row.message)) << row.message << '\n' << outcome.err;
    EXPECT_TRUE(Changes(before, Files(temp.path())).empty()) << row.message;
    shell("rm -r ./* ../from && cp -r " + temp.string() + ".whole/* ..");
  }
  fs::remove_all(temp.string() + ".whole");
}

TEST_F(SetupWorld, RefusesWithoutPermissionOrRoom) {
  const auto fails = [this](const std::string& task, const std::string& message) {
    const Outcome outcome = Run({task, "--yes", "@"});
    EXPECT_EQ(kFailed, outcome.status);
    EXPECT_TRUE(Contains(outcome.err, message)) << outcome.err;
  };
  const auto fails_with_mode = [&](const std::string& folder, int mode, const std::string& task) {
    const OrdinaryUser user(temp.path());
    fs::permissions(InSimulator(folder), fs::perms(mode));
    fails(task, "you have no permission");
    fs::permissions(InSimulator(folder), fs::perms::owner_all);
  };
  fails_with_mode("", 0555, "setup");
  fails_with_mode("TEXTURE", 0111, "setup");
  EXPECT_FALSE(fs::exists(simulator / "Modules"));
  ASSERT_EQ(kDone, Do("setup"));
  fails_with_mode("TEXTURE", 0111, "restore");
  WriteText(InSimulator("TEXTURE/~nimbrel-2147480000-1.tmp"), "half");
  fails_with_mode("TEXTURE", 0555, "restore");
  fails_with_mode("Modules/Nimbrel/Media", 0111, "remove");
  fails_with_mode("Modules/Nimbrel/Media", 0555, "remove");
  fs::resize_file(sources.program, std::uintmax_t{1} << 42U);
  fails("setup", "This takes 4398046.6 MB, and only ");
}

TEST_F(SetupWorld, RefusesListsThatItNeverWrote) {
  const std::string sum(64, 'a');
  for (const std::string& text : std::vector<std::string>{
           "", "1\nabsent a\n", "1\nabsent a\nend 2\n", "1\nend 0", "1\nend 0\nend 0\n",
           "1\nend 0x\n", "2\nend 0\n", "1\ngone a\nend 1\n", "1\nkept 1 short a\nend 1\n",
           "1\nkept -1 " + sum + " a\nend 1\n", "1\nabsent Texture/../../a\nend 1\n",
           "1\nabsent .\nend 1\n", "1\nabsent a/./b\nend 1\n", "1\nabsent /a\nend 1\n",
           "1\nabsent a\r\nend 1\n", "1\nabsent a\nunknown A\nend 2\n"}) {
    WriteText(Originals("manifest"), "Nimbrel originals " + text);
    EXPECT_TRUE(
        Contains(Run({"restore", "-y", "@"}).err, "manifest, the list of the originals, is"))
        << text;
  }
  WriteText(Originals("manifest"), "Nimbrel originals 1\nmade Modules\nabsent a\nend 1\n");
  EXPECT_EQ(kDone, Do("restore"));
}

struct Usage {
  std::vector<std::string> arguments;
  int status;
  const char* text;
};
const Usage kUsages[] = {
    {{}, kUsage, "usage: nimbrelctl SUBCOMMAND"},
    {{"install", "@"}, kUsage, "unknown subcommand install"},
    {{"-q"}, kUsage, "unknown option -q"},
    {{"setup", "--yes", "-q", "@"}, kUsage, "unknown option -q"},
    {{"setup", "--force", "@"}, kUsage, "unknown option --force"},
    {{"setup", "@", "--yes=no"}, kUsage, "unknown option --yes=no"},
    {{"restore", "--pack", "@", "@"}, kUsage, "unknown option --pack"},
    {{"setup", "@", "--pack"}, kUsage, "--pack needs a folder.\n\nusage: nimbrelctl setup"},
    {{"setup", "@", "--pack="}, kUsage, "--pack needs a folder"},
    {{"remove", "@", "/b"}, kUsage, "one folder is enough: /b"},
    {{"remove", ""}, kUsage, "is empty.\n\nusage: nimbrelctl remove"},
    {{"restore", "-y"}, kUsage, "usage: nimbrelctl restore"},
    {{"--help"}, kDone, "usage: nimbrelctl SUBCOMMAND"},
    {{"setup", "@", "-h"}, kDone, "usage: nimbrelctl setup [--yes] [--pack PACK]"},
    {{"--version"}, kDone, "nimbrelctl "},
};

TEST_F(SetupWorld, KnowsItsSubcommandsAndOptions) {
  for (const Usage& row : kUsages) {
    const Outcome outcome = Run(row.arguments);
    EXPECT_EQ(row.status, outcome.status) << row.text;
    EXPECT_TRUE(Contains(row.status == kDone ? outcome.out : outcome.err, row.text)) << row.text;
  }
}

TEST_F(SetupWorld, FollowsNoLinkOutAndLeavesItsStoreAlone) {
  fs::create_directory_symlink(pack, InSimulator("TEXTURE/link"));
  WriteText(Originals("manifest"),
            "Nimbrel originals 1\nabsent Texture/link/NB_Information.cfg\n"
            "absent Modules/Nimbrel Originals/manifest\nend 2\n");
  const Tree before = Files(temp.path());
  const Outcome outcome = Run({"restore", "--yes", "@"});
  EXPECT_EQ(kFailed, outcome.status);
  EXPECT_TRUE(Contains(outcome.err, "link/NB_Information.cfg lies outside")) << outcome.err;
  EXPECT_EQ(before, Files(temp.path()));
}

TEST_F(SetupWorld, RefusesWhileTheProgramRuns) {
  sources.program = "/bin/sleep";
  ASSERT_EQ(kDone, Do("setup"));
  std::string program = Nimbrel("nimbrel").string();
  std::string seconds = "60";
  char* const arguments[] = {program.data(), seconds.data(), nullptr};
  pid_t child = 0;
  ASSERT_EQ(0, posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, nullptr));
  for (const char* task : {"setup", "restore", "remove"}) {
    EXPECT_TRUE(Contains(Run({task, "--yes", "@"}).err, "is running")) << task;
  }
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  fs::remove_all(Nimbrel(""));  // by hand
  EXPECT_EQ(kDone, Do("remove"));
  EXPECT_FALSE(fs::exists(simulator / "Modules"));
}

TEST_F(SetupWorld, RestoresWhatItCanAndKeepsTheRest) {
  const Tree simulator_before = Simulator();
  ASSERT_EQ(kDone, Do("setup"));
  Install(1, true, true);
  const fs::path day = InSimulator("TEXTURE/DAY.bmp");
  fs::permissions(day, fs::perms::owner_read);
  WriteText(Originals("files/TEXTURE/SUN.BMP"), "own TEXTURE/SUN.BMp");
  const Outcome outcome = Run({"remove", "--yes", "@"});
  EXPECT_EQ(kFailed, outcome.status);
  EXPECT_EQ(
      "TEXTURE/DAY.bmp is read-only.\n"
      "TEXTURE/SUN.BMP could not be restored: its stored original is damaged.\n",
      outcome.err);
  EXPECT_EQ("pack Data/Sun/sun.bmp", ReadText(InSimulator("TEXTURE/SUN.BMP")));
  EXPECT_FALSE(fs::exists(InSimulator("TEXTURE/halo.bmp")));
  EXPECT_TRUE(fs::exists(Nimbrel("nimbrel")));
  fs::permissions(day, fs::perms::owner_write, fs::perm_options::add);
  WriteText(Originals("files/TEXTURE/SUN.BMP"), "own TEXTURE/SUN.BMP");
  EXPECT_EQ(kDone, Do("restore"));
  EXPECT_EQ(simulator_before, Simulator());
}

// What the list says of a store that lost files is not enough: a file that is still original is
// stored again, one that has changed never.
TEST_F(SetupWorld, MendsAStoreThatLostFiles) {
  Tree wanted = Simulator();
  ASSERT_EQ(kDone, Do("setup"));
  fs::remove_all(Originals("files/TEXTURE"));
  WriteText(Originals("files/TEXTURE/day.BMP"), "own TEXTURE/DAY.bmp");
  fs::remove(Nimbrel("Backups/TEX/SUN.BMP"));
  WriteText(InSimulator("TEXTURE/SUN.BMP"), "another");
  wanted["TEXTURE/SUN.BMP"] = "another";
  ASSERT_EQ(kDone, Do("setup"));
  EXPECT_FALSE(fs::exists(Nimbrel("Backups/TEX/SUN.BMP")));
  Install(1, false, true);
  EXPECT_EQ(kFailed, Do("restore"));
  EXPECT_EQ(wanted, Simulator());
}

TEST_F(SetupWorld, KeepsWhatANewOptionEndangersUnlessItIsInstalledAlready) {
  ASSERT_EQ(kDone, Do("setup"));
  Install(0, true, true);
  WriteText(InSimulator("TEXTURE/new.bmp"), "own new");
  WriteText(InSimulator("TEXTURE/placed.bmp"), "pack placed");
  WriteText(InSimulator("TEXTURE/stored.bmp"), "pack stored");
  for (const std::string file : {"night.0/new", "night.1/placed", "night.1/stored"}) {
    WriteText(Nimbrel("Sets/" + file + ".bmp"), "pack " + file.substr(8));
  }
  WriteText(Originals("files/TEXTURE/stored.bmp"), "own stored");  // by a setup that was killed
  WriteText(Nimbrel("NB_Information.cfg"), InformationText(1) + "; mine\r\n");
  const Outcome again = Run({"setup", "--yes", "@"});
  ASSERT_EQ(kDone, again.status) << again.err;
  EXPECT_TRUE(Contains(again.out, "will not touch it (1 file):\n      TEXTURE/placed.bmp\n"))
      << again.out;
  EXPECT_TRUE(Contains(again.out, "setup made (1 file):\n      TEXTURE/stored.bmp\n")) << again.out;
  EXPECT_EQ("own TEXTURE/DAY.bmp", ReadText(Originals("files/TEXTURE/DAY.bmp")));
  EXPECT_TRUE(ReadText(Nimbrel("NB_Information.cfg")).ends_with("; mine\r\n"));
  Install(0, true, true);
  Install(1, true, true);
  const Outcome restored = Run({"restore", "--yes", "@"});
  ASSERT_EQ(kDone, restored.status);
  EXPECT_EQ("own new", ReadText(InSimulator("TEXTURE/new.bmp")));
  EXPECT_TRUE(Contains(restored.out, "except for 1 file whose originals are not known.\n"));
  EXPECT_EQ("own stored", ReadText(InSimulator("TEXTURE/stored.bmp")));
  EXPECT_EQ("pack placed", ReadText(InSimulator("TEXTURE/placed.bmp")));
  WriteText(Nimbrel("Data/Mine/own.bmp"), "");
  EXPECT_EQ(kDone, Run({"remove", "@"}, "y\nn\n").status);
  EXPECT_TRUE(ReadText(Nimbrel("NB_Information.cfg")).ends_with("; mine\r\n"));
}

// Copied there by hand and used before the first setup: what an install has written is no original.
TEST_F(SetupWorld, TakesNoInstalledFileForAnOriginal) {
  fs::create_directories(simulator / "Modules");
  fs::copy(pack, Nimbrel(""), fs::copy_options::recursive);
  Install(1, true, true);
  const Tree installed = Simulator();
  const Outcome outcome = Run({"setup", "--yes", "@"});
  ASSERT_EQ(kDone, outcome.status) << outcome.err;
  for (const char* file : {"TEXTURE/DAY.bmp", "TEXTURE/SUN.BMP", "TEXTURE/Cumulus01.bmp",
                           "effects/FX_contrail_s.fx"}) {
    EXPECT_FALSE(fs::exists(Originals("files") / file)) << file;
  }
  EXPECT_TRUE(fs::exists(Originals("files/scenery/world/Texture/base.bmp")));
  const Outcome removed = Run({"remove", "@"}, "y\n");
  EXPECT_EQ(kDone, removed.status) << removed.err;
  EXPECT_TRUE(Contains(removed.out, "originals are not known")) << removed.out;
  EXPECT_EQ(installed, Simulator());
  EXPECT_TRUE(fs::exists(Nimbrel("Backups/TEX/sun.bmp")));
  EXPECT_FALSE(fs::exists(Nimbrel("nimbrel")));
}

}  // namespace
