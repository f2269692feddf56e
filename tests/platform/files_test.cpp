#include "platform/files.h"

#include <gtest/gtest.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <set>

#include "platform/FileStamp.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using enum platform::FileStatus;
using platform::FileStatus;
constexpr auto kRename = platform::Durability::kRename;

std::span<const std::byte> Bytes(std::string_view text) { return std::as_bytes(std::span(text)); }

/// The names in a folder, in byte order, each followed by a blank.
std::string Names(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename());
  }
  std::string text;
  for (const std::string& name : names) {
    text += name + ' ';
  }
  return text;
}

TEST(HostPath, MatchesEveryComponentWithoutCase) {
  const TempFolder root;
  WriteText(root / "Texture/Sun.BMP", "");
  WriteText(root / "Texture/Zürich Größe.bmp", "");
  WriteText(root / "both/a", "");
  WriteText(root / "both/A", "");
  struct Row {
    std::string_view composed;
    std::string_view host;
  };
  constexpr auto kRows = std::to_array<Row>({
      {"\\Texture\\Sun.BMP", "/Texture/Sun.BMP"},
      {"\\texture\\SUN.bmp", "/Texture/Sun.BMP"},
      {"/TEXTURE\\\\new.bmp", "/Texture/new.bmp"},
      {"\\new\\Texture\\x", "/new/Texture/x"},
      {"\\Texture\\..\\TEXTURE\\.\\sun.bmp", "/Texture/Sun.BMP"},
      {"\\not there\\..\\texture\\", "/Texture"},
      {"\\texture\\ZÜRICH grösse.bmp", "/Texture/ZÜRICH grösse.bmp"},
      {"\\texture\\ZÜRICH GRÖßE.bmp", "/Texture/Zürich Größe.bmp"},
      {"\\Both\\a", "/both/a"},
      {"\\Both\\A", "/both/A"},
      {"\\texture\\sun.bmp\\x", "/Texture/Sun.BMP/x"},
  });
  for (const auto& [composed, host] : kRows) {
    EXPECT_EQ(root.string() + std::string(host),
              platform::HostPath(root.string() + std::string(composed)));
  }
  EXPECT_EQ("", platform::HostPath(""));
  EXPECT_EQ("", platform::HostPath(std::string_view("/tmp\0/x", 7)));
  EXPECT_EQ("/", platform::HostPath("\\..\\.."));
  EXPECT_EQ("../x", platform::HostPath("a\\..\\..\\x"));
  const std::string longer = "/" + std::string(300, 'x');
  EXPECT_EQ(longer, platform::HostPath(longer));
  EXPECT_FALSE(platform::FileExists(std::string(9000, '/') + std::string(9000, 'a')));
}

TEST(HostPath, SeesWhatOthersDoInAFolderAtOnce) {
  const TempFolder root;
  for (int i = 0; i < 200; ++i) {
    const std::string name = "File" + std::to_string(i);
    const std::string asked = root.string() + "\\fILE" + std::to_string(i);
    ASSERT_EQ(root.string() + "/fILE" + std::to_string(i), platform::HostPath(asked));
    WriteText(root / name, "");
    ASSERT_EQ(root.string() + "/" + name, platform::HostPath(asked));
    fs::remove(root / name);
    ASSERT_FALSE(platform::FileExists(asked));
  }
}

TEST(HostPath, SeesAChangeAfterAListingThatWasBelieved) {
  const TempFolder root;
  usleep(100'000);  // past the tick of the folder's making, so that its listing counts
  const std::string asked = root.string() + "\\SUN.BMP";
  for (int i = 0; i < 2; ++i) {
    ASSERT_FALSE(platform::FileExists(asked));
  }
  WriteText(root / "sun.bmp", "");
  EXPECT_TRUE(platform::FileExists(asked));
}

TEST(FileStamp, AReadingWithinTheTickOfAChangeProvesNothing) {
  constexpr std::int64_t kMillisecond = 1'000'000;
  platform::FileStamp stamp{.modified = 5, .changed = 7 * kMillisecond + 1};
  EXPECT_FALSE(platform::IsSettled(stamp, stamp.changed));
  EXPECT_FALSE(platform::IsSettled(stamp, stamp.changed - kMillisecond));
  EXPECT_FALSE(platform::IsSettled(stamp, stamp.changed + 10 * kMillisecond));
  EXPECT_TRUE(platform::IsSettled(stamp, stamp.changed + 100 * kMillisecond));
  stamp.changed = 3000 * kMillisecond;  // a file system that counts in seconds
  EXPECT_FALSE(platform::IsSettled(stamp, stamp.changed + 1900 * kMillisecond));
  EXPECT_TRUE(platform::IsSettled(stamp, stamp.changed + 2200 * kMillisecond));
}

TEST(HostPath, KnowsItsOwnChanges) {
  const TempFolder root;
  for (int i = 0; i < 50; ++i) {
    const std::string name = "\\New" + std::to_string(i);
    const std::string other = "\\nEW" + std::to_string(i);
    ASSERT_EQ(kOk, platform::ReplaceFile(root.string() + name, Bytes("1"), kRename));
    ASSERT_EQ(kOk, platform::ReplaceFile(root.string() + other, Bytes("2"), kRename));
    ASSERT_EQ(kOk, platform::DeleteFile(root.string() + other));
    ASSERT_EQ(kOk, platform::ReplaceFile(root.string() + other, Bytes("3"), kRename));
    ASSERT_EQ(root.string() + "/nEW" + std::to_string(i), platform::HostPath(root.string() + name));
  }
  EXPECT_TRUE(platform::CreateFolder(root.string() + "\\Data"));
  EXPECT_TRUE(platform::CreateFolder(root.string() + "\\DATA"));
  EXPECT_FALSE(platform::CreateFolder(root.string() + "\\new1\\x"));
  EXPECT_EQ(51, std::distance(fs::directory_iterator(root.path()), fs::directory_iterator()));
}

/// Only another system can have made them. No third one comes to stand beside them.
TEST(HostPath, TakesOneOfTwoNamesThatDifferOnlyInCase) {
  const TempFolder root;
  WriteText(root / "SUN.bmp", "1");
  WriteText(root / "sun.bmp", "2");
  const std::string asked = root.string() + "\\Sun.BMP";
  EXPECT_EQ(root.string() + "/SUN.bmp", platform::HostPath(asked));
  EXPECT_EQ(root.string() + "/sun.bmp", platform::HostPath(root.string() + "\\sun.bmp"));
  EXPECT_EQ(kOk, platform::DeleteFile(asked));
  EXPECT_EQ(kOk, platform::ReplaceFile(asked, Bytes("3"), kRename));
  EXPECT_EQ("sun.bmp ", Names(root.path()));
}

TEST(ListFiles, MatchesPatternsAsThePlatformDoes) {
  const TempFolder root;
  for (const char* name :
       {"b.bmp", "A.BMP", "noextension", "Été 日本 .bmp", ".hidden", "c.bmp.old"}) {
    WriteText(root / name, "");
  }
  WriteText(root / "folder.bmp/inside.bmp", "");
  fs::create_symlink("b.bmp", root / "link.bmp");
  fs::create_symlink("nowhere", root / "dangling.bmp");
  WriteText(root / "..\\evil.bmp", "");
  ASSERT_EQ(0, mkfifo((root / "pipe.bmp").c_str(), 0600));
  using List = std::vector<std::string>;
  const List all = {"A.BMP", "b.bmp", "c.bmp.old", "link.bmp", "noextension", "Été 日本 .bmp"};
  const std::string folder = root.string() + "\\";
  EXPECT_EQ(all, platform::ListFiles(folder + "*.*", platform::kNormal));
  EXPECT_EQ(all, platform::ListFiles(folder + "*", platform::kReadOnly | platform::kSystem));
  EXPECT_EQ(7U, platform::ListFiles(folder + "*.*", 7).size());
  EXPECT_EQ((List{"A.BMP", "b.bmp", "link.bmp", "Été 日本 .bmp"}),
            platform::ListFiles(folder + "*.bmp", 0));
  EXPECT_EQ((List{"A.BMP", "b.bmp"}), platform::ListFiles(folder + "?.BMP", 0));
  EXPECT_EQ((List{"Été 日本 .bmp"}), platform::ListFiles(folder + "éT? ?? .b*", 0));
  EXPECT_EQ((List{"noextension"}), platform::ListFiles(folder + "NOext*.*", 0));
  EXPECT_EQ((List{"A.BMP"}), platform::ListFiles(folder + "a.bmp", 0));
  EXPECT_EQ(List{}, platform::ListFiles(folder + "folder.bmp", 0));
  EXPECT_EQ(List{}, platform::ListFiles(folder + ".hidden", 0));
  EXPECT_EQ(List{}, platform::ListFiles(folder, 7));
  EXPECT_EQ(List{}, platform::ListFiles(folder + "missing\\*.*", 7));
  EXPECT_EQ(List{}, platform::ListFiles("", 7));
}

TEST(ListFiles, HasNoMostNames) {
  const TempFolder root;
  for (int i = 0; i < 300; ++i) {
    WriteText(root / ("set/" + std::to_string(i) + ".bmp"), "");
  }
  const auto names = platform::ListFiles(root.string() + "\\SET\\*.*", 7);
  EXPECT_EQ(300U, std::set<std::string>(names.begin(), names.end()).size());
}

TEST(ReadFile, IsBoundedAndNeverWaits) {
  const TempFolder root;
  WriteText(root / "f", "12345");
  ASSERT_EQ(0, mkfifo((root / "pipe").c_str(), 0600));
  struct Row {
    const char* name;
    std::size_t limit;
    FileStatus status;
  };
  constexpr auto kRows = std::to_array<Row>({{"/F", 5, kOk},
                                             {"/f", SIZE_MAX, kOk},
                                             {"/f", 4, kTooLarge},
                                             {"/missing", 9, kNoSource},
                                             {"/f/x", 9, kNoSource},
                                             {"", 9, kNotAFile},
                                             {"/pipe", 9, kNotAFile}});
  for (const auto& [name, limit, expected] : kRows) {
    FileStatus status = kBusy;
    const auto bytes = platform::ReadFile(root.string() + name, limit, &status);
    EXPECT_EQ(expected, status) << name;
    EXPECT_EQ(expected == kOk, bytes && bytes->size() == 5) << name;
  }
  EXPECT_FALSE(platform::ReadFile("/proc/self/maps", 16));  // grows past what its size tells
}

TEST(Replace, KeepsTheOldNameOwnerAndPermissions) {
  const TempFolder root;
  WriteText(root / "Texture/SUN.bmp", "old");
  const uid_t owner = geteuid() == 0 ? 1234 : geteuid();  // only root gives files away
  ASSERT_EQ(0, chown((root / "Texture/SUN.bmp").c_str(), owner, getegid()));
  fs::permissions(root / "Texture/SUN.bmp", fs::perms(0666));
  const std::string big(3 << 20, 'n');
  WriteText(root / "set/sun.bmp", big);
  fs::permissions(root / "set/sun.bmp", fs::perms(0444));
  for (const char* target : {"\\texture\\sun.BMP", "\\texture\\fresh.bmp"}) {
    EXPECT_EQ(
        kOk, platform::CopyOver(root.string() + "\\SET\\sun.bmp", root.string() + target, kRename));
  }
  EXPECT_EQ("SUN.bmp fresh.bmp ", Names(root / "Texture"));
  EXPECT_EQ(big, ReadText(root / "Texture/SUN.bmp"));
  EXPECT_EQ(fs::perms(0666), fs::status(root / "Texture/SUN.bmp").permissions());
  struct stat facts {};
  ASSERT_EQ(0, stat((root / "Texture/SUN.bmp").c_str(), &facts));
  EXPECT_EQ(owner, facts.st_uid);
  EXPECT_EQ(fs::perms::owner_write,
            fs::status(root / "Texture/fresh.bmp").permissions() & fs::perms::owner_write);
}

TEST(Replace, RefusesWithItsReason) {
  const TempFolder all;
  const fs::path root = all / "root";
  WriteText(root / "set/a", "new");
  WriteText(root / "sim/read-only", "old");
  fs::permissions(root / "sim/read-only", fs::perms(0444));
  fs::create_directories(root / "sim/folder");
  ASSERT_EQ(0, mkfifo((root / "sim/pipe").c_str(), 0600));
  fs::create_symlink("nowhere", root / "sim/dangling");
  struct Row {
    std::string source;
    std::string target;
    FileStatus status;
  };
  const std::vector<Row> rows = {{"\\set\\missing", "\\none\\a", kNoSource},
                                 {"\\set", "\\sim\\a", kNotAFile},
                                 {"\\sim\\pipe", "\\sim\\a", kNotAFile},
                                 {"\\set\\a", "\\none\\a", kNoFolder},
                                 {"\\set\\a", "\\set\\a\\a", kNoFolder},
                                 {"\\set\\a", "\\sim\\READ-only", kReadOnly},
                                 {"\\set\\a", "\\sim\\folder", kNotAFile},
                                 {"\\set\\a", "\\sim\\pipe", kNotAFile},
                                 {"\\set\\a", "\\sim\\dangling", kNotAFile},
                                 {"\\set\\a", "\\sim\\" + std::string(256, 'x'), kOther},
                                 {"\\set\\a", "\\sim\\..\\..\\x", kOutside},
                                 {"\\set\\..\\..\\x", "\\sim\\a", kNoSource},
                                 {"\\sim\\read-only", "\\sim\\a", kOutside}};
  const std::string names = Names(root / "sim");
  for (const auto& [source, target, status] : rows) {
    EXPECT_EQ(status,
              platform::CopyOver(root.string() + source, root.string() + target, kRename,
                                 status == kOutside ? root.string() + "\\set" : "", root.string()))
        << source << " " << target;
  }
  EXPECT_EQ(kNoFolder, platform::ReplaceFile("", Bytes("x"), kRename));
  EXPECT_EQ(names, Names(root / "sim"));
  EXPECT_EQ("old", ReadText(root / "sim/read-only"));
}

TEST(Replace, LinksAreFollowedOnlyInsideTheirRoot) {
  const TempFolder root;
  for (const char* name : {"set/a", "sim/Real/in.bmp", "outside/out.bmp", "outside/secret"}) {
    WriteText(root / name, name);
  }
  fs::create_symlink("Real/in.bmp", root / "sim/in.bmp");
  fs::create_symlink("../outside/out.bmp", root / "sim/out.bmp");
  fs::create_symlink("../outside", root / "sim/Gone");
  fs::create_symlink("../outside/secret", root / "set/secret");
  const auto copy = [&root](const char* source, const char* target) {
    return platform::CopyOver(root.string() + source, root.string() + target, kRename,
                              root.string() + "/SET", root.string() + "/SIM");
  };
  EXPECT_EQ(kOk, copy("\\set\\a", "\\sim\\in.bmp"));
  EXPECT_TRUE(fs::is_symlink(root / "sim/in.bmp"));
  EXPECT_EQ("set/a", ReadText(root / "sim/Real/in.bmp"));
  EXPECT_EQ(kOutside, copy("\\set\\a", "\\sim\\out.bmp"));
  EXPECT_EQ(kOutside, copy("\\set\\a", "\\sim\\gone\\new.bmp"));
  EXPECT_EQ(kOutside, copy("\\set\\secret", "\\sim\\new.bmp"));
  EXPECT_EQ("outside/out.bmp", ReadText(root / "outside/out.bmp"));
  EXPECT_EQ("out.bmp secret ", Names(root / "outside"));

  const std::string sim = root.string() + "\\sim";
  EXPECT_TRUE(platform::LiesWithin(sim, sim));
  EXPECT_TRUE(platform::LiesWithin(sim + "\\new\\deeper\\x", sim));
  EXPECT_FALSE(platform::LiesWithin(sim + "ulator", sim));
  EXPECT_FALSE(platform::LiesWithin(sim + "\\..\\x", sim));
  EXPECT_FALSE(platform::LiesWithin(sim + "\\Gone\\x\\y", sim));
  EXPECT_FALSE(platform::LiesWithin(sim + "\\x", root.string() + "\\no root"));
  EXPECT_FALSE(platform::LiesWithin(sim + "\\x", ""));
}

TEST(Replace, PermissionsOfAnOrdinaryUserHold) {
  const TempFolder root;
  WriteText(root / "a", "new");
  WriteText(root / "Texture/sun.bmp", "old");
  WriteText(root / "secret", "x");
  const OrdinaryUser user(root.path());
  fs::permissions(root / "Texture", fs::perms(0555));
  fs::permissions(root / "secret", fs::perms(0));
  const std::string texture = root.string() + "\\texture\\";
  EXPECT_EQ(kNoPermission, platform::CopyOver(root.string() + "\\a", texture + "SUN.bmp", kRename));
  EXPECT_EQ(kNoPermission, platform::CopyOver(root.string() + "\\a", texture + "new", kRename));
  EXPECT_EQ(kNoPermission,
            platform::CopyOver(root.string() + "\\secret", root.string() + "\\b", kRename));
  EXPECT_EQ(kNoPermission, platform::DeleteFile(texture + "sun.bmp"));
  EXPECT_EQ("old", ReadText(root / "Texture/sun.bmp"));
  EXPECT_EQ("sun.bmp ", Names(root / "Texture"));
}

TEST(Replace, AFullDiskLeavesTheOldFile) {
  const TempFolder root;
  fs::create_directories(root / "disk");
  const std::string disk = root.string() + "/disk";
  if (mount("none", disk.c_str(), "tmpfs", 0, "size=1m") != 0) {
    GTEST_SKIP() << "no permission to mount a small disk";
  }
  const std::string old(600 << 10, 'o');
  WriteText(root / "disk/sun.bmp", old);
  WriteText(root / "big", std::string(600 << 10, 'n'));
  EXPECT_EQ(kNoSpace, platform::CopyOver(root.string() + "\\big", disk + "\\sun.bmp", kRename));
  EXPECT_EQ(kNoSpace, platform::ReplaceFile(disk + "\\x", Bytes(old), kRename));
  EXPECT_EQ("sun.bmp ", Names(disk));
  EXPECT_EQ(old, ReadText(root / "disk/sun.bmp"));
  EXPECT_EQ(0, umount2(disk.c_str(), MNT_DETACH));
}

// A device that fails, or a process that is killed, at the n-th step of a replacement.
constexpr int kKill = -1;
int countdown = 0;
int failure = 0;
int FailAtLast(const char*, const char*) {
  if (--countdown != 0) {
    return 0;
  }
  if (failure == kKill) {
    _exit(0);
  }
  return failure;
}

struct Hook {
  Hook() { platform::SetFailureHook(FailAtLast); }
  Hook(const Hook&) = delete;
  Hook& operator=(const Hook&) = delete;
  ~Hook() { platform::SetFailureHook(nullptr); }
};

FileStatus ReplaceInSteps(const TempFolder& root, int step, int error) {
  countdown = step;
  failure = error;
  const Hook hook;
  return platform::ReplaceFile(root.string() + "\\F", Bytes("new"),
                               platform::Durability::kFlushedRename);
}

/// Cut short or grown between its opening and the copy.
TEST(Replace, TakesNoFileThatIsBeingWritten) {
  static fs::path source;
  static std::size_t size = 0;
  const TempFolder root;
  source = root / "set/a";
  WriteText(root / "f", "old");
  for (const std::size_t cut : {0U, 3U, 9U}) {
    WriteText(source, "12345");
    size = cut;
    platform::SetFailureHook([](const char* step, const char*) {
      if (std::string_view(step) == "write") {
        fs::resize_file(source, size);
      }
      return 0;
    });
    EXPECT_EQ(kBusy, platform::CopyOver(source.string(), root.string() + "\\f", kRename)) << cut;
    platform::SetFailureHook(nullptr);
    EXPECT_EQ("old", ReadText(root / "f"));
  }
}

TEST(Replace, AFailureAtAnyStepLeavesTheOldFileAlone) {
  constexpr int kSteps = 4;
  const TempFolder root;
  WriteText(root / "f", "old");
  for (const auto& [error, status] : {std::pair(ENOSPC, kNoSpace), std::pair(EBUSY, kBusy),
                                      std::pair(EROFS, kNoPermission), std::pair(EIO, kOther)}) {
    for (int step = 1; step <= kSteps; ++step) {
      EXPECT_EQ(status, ReplaceInSteps(root, step, error));
      EXPECT_EQ("f ", Names(root.path()));
      EXPECT_EQ("old", ReadText(root / "f"));
    }
  }
  countdown = 1;
  failure = EACCES;
  {
    const Hook hook;
    EXPECT_EQ(kNoPermission, platform::DeleteFile(root.string() + "\\f"));
  }
  EXPECT_EQ(kOk, ReplaceInSteps(root, kSteps + 1, EIO));
  EXPECT_EQ("new", ReadText(root / "f"));
}

TEST(Replace, AKillAtAnyStepLeavesAWholeFileAndTheNextRunCleansUp) {
  constexpr int kSteps = 4;
  for (int step = 1; step <= kSteps; ++step) {
    const TempFolder root;
    WriteText(root / "f", "old");
    const pid_t child = fork();
    if (child == 0) {
      ReplaceInSteps(root, step, kKill);
      _exit(1);
    }
    int result = 1;
    ASSERT_EQ(child, waitpid(child, &result, 0));
    ASSERT_EQ(0, result);
    EXPECT_EQ("old", ReadText(root / "f"));
    EXPECT_EQ(step == 1, Names(root.path()) == "f ");
    platform::RemoveTemporaries(root.string());
    EXPECT_EQ("f ", Names(root.path()));
  }
}

TEST(RemoveTemporaries, TakesNothingElse) {
  const TempFolder root;
  const std::string alive = "~nimbrel-" + std::to_string(getppid()) + "-1.tmp";
  for (const std::string& name :
       {alive, std::string("~nimbrel-x-1.tmp"), std::string("~nimbrel-.tmp"),
        std::string("~nimbrel-1-2.tmp.bmp"), std::string("a~nimbrel-1-2.tmp")}) {
    WriteText(root / name, "");
  }
  const std::string names = Names(root.path());
  WriteText(root / "~nimbrel-999999999-7.tmp", "");
  platform::RemoveTemporaries(root.string());
  EXPECT_EQ(names, Names(root.path()));
}

TEST(DeleteFile, DeletesFilesAlone) {
  const TempFolder root;
  WriteText(root / "Read", "");
  fs::permissions(root / "Read", fs::perms(0444));
  WriteText(root / "Gone", "");
  fs::create_directories(root / "folder");
  EXPECT_EQ(kReadOnly, platform::DeleteFile(root.string() + "\\read"));
  EXPECT_EQ(kNotAFile, platform::DeleteFile(root.string() + "\\folder"));
  EXPECT_EQ(kOk, platform::DeleteFile(root.string() + "\\gONE"));
  EXPECT_EQ(kOk, platform::DeleteFile(root.string() + "\\gONE"));
  EXPECT_EQ(kOk, platform::DeleteFile(root.string() + "\\no\\folder"));
  EXPECT_EQ("Read folder ", Names(root.path()));
}

}  // namespace
