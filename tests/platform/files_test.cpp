#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <numeric>
#include <set>

#include "platform/FileStamp.h"
#include "platform/FileSystem.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using enum platform::FileStatus;
using namespace std::string_literals;
using platform::FileStatus;
using List = std::vector<std::string>;

std::span<const std::byte> Bytes(std::string_view text) { return std::as_bytes(std::span(text)); }

/// The names in a folder, in byte order, each followed by a blank.
std::string Names(const fs::path& folder) {
  std::set<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) {
    names.insert(entry.path().filename().string() + ' ');
  }
  return std::accumulate(names.begin(), names.end(), std::string());
}

struct Files : testing::Test {
  TempFolder root;
  platform::FileSystem files{"~test-"};

  std::string At(std::string_view composed) const { return root.string() + std::string(composed); }
  FileStatus Put(std::string_view target, std::string_view text) {
    return files.ReplaceFile(At(target), Bytes(text), platform::Durability::kFlushedRename);
  }
  FileStatus Copy(std::string_view source, std::string_view target, std::string_view from = {},
                  std::string_view to = {}) {
    return files.CopyOver(At(source), At(target), platform::Durability::kRename, from, to);
  }
};

TEST_F(Files, AreFoundWithoutCase) {
  for (const char* name : {"Texture/Sun.BMP", "Texture/Zürich Größe.bmp", "both/a", "both/A"}) {
    WriteText(root / name, "");
  }
  for (const auto& [composed, host] : std::vector<std::array<const char*, 2>>{
           {"\\texture\\SUN.bmp", "/Texture/Sun.BMP"},
           {"/TEXTURE\\\\new.bmp", "/Texture/new.bmp"},
           {"\\new\\Texture\\x", "/new/Texture/x"},
           {"\\Texture\\..\\TEXTURE\\.\\sun.bmp", "/Texture/Sun.BMP"},
           {"\\not there\\..\\texture\\", "/Texture"},
           {"\\texture\\ZÜRICH grösse.bmp", "/Texture/ZÜRICH grösse.bmp"},
           {"\\texture\\ZÜRICH GRÖßE.bmp", "/Texture/Zürich Größe.bmp"},
           {"\\Both\\A", "/both/A"},
           {"\\texture\\sun.bmp\\x", "/Texture/Sun.BMP/x"}}) {
    EXPECT_EQ(At(host), files.HostPath(At(composed)));
  }
  const std::vector<std::string> short_paths = {
      "", "", "/tmp\0/x"s, "", "\\..\\..", "/", "a\\..\\..\\x", "../x", "a\\..", "."};
  for (std::size_t i = 0; i < short_paths.size(); i += 2) {
    EXPECT_EQ(short_paths[i + 1], files.HostPath(short_paths[i]));
  }
  EXPECT_FALSE(files.FileExists(std::string(9000, '/') + std::string(9000, 'a')));
  EXPECT_TRUE(files.FileExists(At("\\texture\\sun.bmp")) && files.FolderExists(At("\\texture")));
  EXPECT_FALSE(files.FolderExists(At("\\texture\\sun.bmp")) || files.FileExists(At("\\texture")));
}

TEST_F(Files, ShowWhatOthersChangeAtOnce) {
  for (int i = 0; i < 200; ++i) {
    const std::string name = "File" + std::to_string(i);
    const std::string asked = At("\\fILE" + std::to_string(i));
    ASSERT_EQ(At("/fILE" + std::to_string(i)), files.HostPath(asked));
    WriteText(root / name, "");
    ASSERT_EQ(At("/" + name), files.HostPath(asked));
    fs::remove(root / name);
    ASSERT_FALSE(files.FileExists(asked));
  }
  usleep(100'000);  // past the clock tick of the last change, so that the next listing is kept
  ASSERT_FALSE(files.FileExists(At("\\SUN.BMP")) || files.FileExists(At("\\SUN.BMP")));
  WriteText(root / "sun.bmp", "");
  EXPECT_TRUE(files.FileExists(At("\\SUN.BMP")));
}

TEST(FileStamp, AReadingWithinTheTickOfAChangeProvesNothing) {
  constexpr std::int64_t kMillisecond = 1'000'000;
  platform::FileStamp stamp{.modified = 5, .changed = 7 * kMillisecond + 1};
  EXPECT_FALSE(platform::IsSettled(stamp, stamp.changed + 10 * kMillisecond));
  EXPECT_TRUE(platform::IsSettled(stamp, stamp.changed + 100 * kMillisecond));
  stamp.changed = 3000 * kMillisecond;  // a file system that counts in seconds
  EXPECT_FALSE(platform::IsSettled(stamp, stamp.changed + 1900 * kMillisecond));
  EXPECT_TRUE(platform::IsSettled(stamp, stamp.changed + 2200 * kMillisecond));
}

TEST_F(Files, ShowOwnChanges) {
  for (int i = 0; i < 50; ++i) {
    const std::string number = std::to_string(i);
    ASSERT_EQ(kOk, Put("\\New" + number, "1"));
    ASSERT_EQ(kOk, Put("\\nEW" + number, "2"));
    ASSERT_EQ(kOk, files.DeleteFile(At("\\NEW" + number)));
    ASSERT_EQ(kOk, Put("\\nEW" + number, "3"));
    ASSERT_EQ(At("/nEW" + number), files.HostPath(At("\\New" + number)));
  }
  EXPECT_EQ(kOk, files.CreateFolder(At("\\Data")));
  EXPECT_EQ(kOk, files.CreateFolder(At("\\DATA")));
  EXPECT_EQ(kNoFolder, files.CreateFolder(At("\\missing\\x")));
  EXPECT_EQ(kNoFolder, files.CreateFolder(At("\\new1\\x")));
  EXPECT_EQ(kNotAFile, files.CreateFolder(At("\\NEW1")));
  EXPECT_EQ(kNoFolder, files.CreateFolder(""));
  EXPECT_EQ(51, std::distance(fs::directory_iterator(root.path()), fs::directory_iterator()));
}

/// Only another system can have made them. No third one is added.
TEST_F(Files, OfTwoNamesThatDifferOnlyInCaseAreTakenInOrder) {
  WriteText(root / "SUN.bmp", "1");
  WriteText(root / "sun.bmp", "2");
  EXPECT_EQ(At("/SUN.bmp"), files.HostPath(At("\\Sun.BMP")));
  EXPECT_EQ(kOk, files.DeleteFile(At("\\Sun.BMP")));
  EXPECT_EQ(kOk, Put("\\Sun.BMP", "3"));
  EXPECT_EQ("sun.bmp ", Names(root.path()));
}

/// A folder that can't be listed may hold the name in another case: nothing counts as absent there.
TEST_F(Files, StayWithoutPermission) {
  WriteText(root / "a", "new");
  WriteText(root / "secret", "x");
  WriteText(root / "Closed/Sun.bmp", "old");
  WriteText(root / "Texture/sun.bmp", "old");
  const OrdinaryUser user(root.path());
  fs::permissions(root / "secret", fs::perms(0));
  fs::permissions(root / "Closed", fs::perms(0300));
  fs::permissions(root / "Texture", fs::perms(0555));
  EXPECT_EQ(kNoPermission, Copy("\\secret", "\\b"));
  EXPECT_EQ(kNoPermission, Copy("\\closed\\SUN.bmp", "\\b"));
  for (const char* name : {"\\closed\\SUN.bmp", "\\texture\\SUN.bmp"}) {
    EXPECT_EQ(kNoPermission, Copy("\\a", name));
    EXPECT_EQ(kNoPermission, files.DeleteFile(At(name)));
    EXPECT_EQ(kNoPermission, files.CreateFolder(At(std::string(name) + "x")));
  }
  FileStatus found = kOk;
  FileStatus read = kOk;
  FileStatus listed = kOk;
  files.HostPath(At("\\closed\\SUN.bmp"), &found);
  files.ReadFile(At("\\closed\\SUN.bmp"), 9, &read);
  files.ListFiles(At("\\closed\\*"), 0, &listed);
  EXPECT_EQ((std::array{kNoPermission, kNoPermission, kNoPermission}),
            (std::array{found, read, listed}));
  EXPECT_EQ(kNoPermission, files.SweepTemporaries(At("\\closed")));
  EXPECT_EQ(kOk, Put("\\closed\\Sun.bmp", "new"));
  EXPECT_EQ("old", ReadText(root / "Texture/sun.bmp"));
  EXPECT_EQ("Closed Texture a secret ", Names(root.path()));
}

TEST_F(Files, AreListedByPatterns) {
  for (const char* name : {"b.bmp", "A.BMP", "noextension", "Été 日本 .bmp", ".hidden", "c.bmp.old",
                           "folder.bmp/inside.bmp", "..\\evil.bmp"}) {
    WriteText(root / name, "");
  }
  fs::create_symlink("b.bmp", root / "link.bmp");
  fs::create_symlink("nowhere", root / "dangling.bmp");
  ASSERT_EQ(0, mkfifo((root / "pipe.bmp").c_str(), 0600));
  const auto list = [this](std::string_view pattern) {
    FileStatus status = kBusy;
    const List names = files.ListFiles(At(pattern), platform::kReadOnly, &status);
    EXPECT_EQ(kOk, status) << pattern;
    return std::accumulate(names.begin(), names.end(), std::string());
  };
  const std::string all = "A.BMPb.bmpc.bmp.oldlink.bmpnoextensionÉté 日本 .bmp";
  const List rows = {"\\*.*",        all,
                     "\\*",          all,
                     "\\*.bmp",      "A.BMPb.bmplink.bmpÉté 日本 .bmp",
                     "\\?.BMP",      "A.BMPb.bmp",
                     "\\*b*b*.bmp",  "",
                     "\\*B*mp*",     "A.BMPb.bmpc.bmp.oldlink.bmpÉté 日本 .bmp",
                     "\\éT? ?? .b*", "Été 日本 .bmp",
                     "\\NOext*.*",   "noextension",
                     "\\a.bmp",      "A.BMP",
                     "\\folder.bmp", "",
                     "\\.hidden",    "",
                     "\\",           ""};
  for (std::size_t i = 0; i < rows.size(); i += 2) {
    EXPECT_EQ(rows[i + 1], list(rows[i])) << rows[i];
  }
  FileStatus status = kOk;
  EXPECT_EQ(List{".hidden"}, files.ListFiles(At("\\.*"), platform::kHidden));
  EXPECT_EQ(List{}, files.ListFiles(At("\\missing\\*.*"), 0, &status));
  EXPECT_EQ(kNoSource, status);
  EXPECT_EQ(List{}, files.ListFiles(std::string_view("/tmp/*\0", 7), 7));
}

TEST_F(Files, LieWithinTheRealRoot) {
  WriteText(root / "sim/Real/in", "");
  WriteText(root / "simulator/x", "");
  fs::create_symlink("../simulator", root / "sim/Gone");
  fs::create_symlink("../simulator/new", root / "sim/dangling");
  fs::create_symlink("sim", root / "link");
  FileStatus status = kBusy;
  for (const char* path : {"\\sim", "\\SIM\\new\\deeper\\x", "\\link\\x"}) {
    EXPECT_TRUE(files.LiesWithin(At(path), At("\\Sim\\"), &status)) << path;
    EXPECT_TRUE(files.LiesWithin(At(path), At("\\link"))) << path;
    EXPECT_EQ(kOk, status) << path;
  }
  for (const char* path : {"\\simulator\\x", "\\sim\\..\\x", "\\sim\\Gone\\x\\y"}) {
    EXPECT_FALSE(files.LiesWithin(At(path), At("\\sim"), &status)) << path;
    EXPECT_EQ(kOk, status) << path;
  }
  EXPECT_FALSE(files.LiesWithin(At("\\sim\\dangling"), At("\\sim"), &status));
  EXPECT_EQ(kOther, status);
  EXPECT_FALSE(files.LiesWithin(At("\\sim\\x"), At("\\no root"), &status));
  EXPECT_EQ(kNoFolder, status);
  EXPECT_TRUE(files.LiesWithin(At("\\sim"), "/"));
  EXPECT_FALSE(files.LiesWithin(At("\\sim"), "") || files.LiesWithin("", At("\\sim")));
}

TEST_F(Files, AreReadWithinALimitAndWithoutWaiting) {
  WriteText(root / "f", "12345");
  ASSERT_EQ(0, mkfifo((root / "pipe").c_str(), 0600));
  const auto read = [this](std::string_view name, std::size_t limit) {
    FileStatus status = kBusy;
    const auto bytes = files.ReadFile(At(name), limit, &status);
    EXPECT_EQ(status == kOk, bytes && std::ranges::equal(*bytes, Bytes("12345"))) << name;
    return status;
  };
  EXPECT_EQ(kOk, read("/F", 5));
  EXPECT_EQ(kOk, read("/f", SIZE_MAX));
  EXPECT_EQ(kTooLarge, read("/f", 4));
  EXPECT_EQ(kNoSource, read("/x", 9));
  EXPECT_EQ(kNoSource, read("/f/x", 9));
  EXPECT_EQ(kNotAFile, read("", 9));
  EXPECT_EQ(kNotAFile, read("/pipe", 9));
  // Longer than its size, which is 0.
  EXPECT_FALSE(files.ReadFile("/proc/self/maps", 16));
  EXPECT_LT(100U,
            files.ReadFile("/proc/self/maps", 1 << 20).value_or(std::vector<std::byte>()).size());
}

TEST_F(Files, KeepNameOwnerAndPermissionsWhenReplaced) {
  WriteText(root / "Texture/SUN.bmp", "old");
  const uid_t owner = geteuid() == 0 ? 1234 : geteuid();  // only root gives files away
  ASSERT_EQ(0, chown((root / "Texture/SUN.bmp").c_str(), owner, getegid()));
  fs::permissions(root / "Texture/SUN.bmp", fs::perms(0666));
  WriteText(root / "set/sun.bmp", "new");
  fs::permissions(root / "set/sun.bmp", fs::perms(0444));
  EXPECT_EQ(kOk, Copy("\\SET\\sun.bmp", "\\texture\\sun.BMP"));
  EXPECT_EQ(kOk, Copy("\\SET\\sun.bmp", "\\texture\\fresh.bmp"));
  EXPECT_EQ("SUN.bmp fresh.bmp ", Names(root / "Texture"));
  EXPECT_EQ("new", ReadText(root / "Texture/SUN.bmp"));
  struct stat facts {};
  ASSERT_EQ(0, stat((root / "Texture/SUN.bmp").c_str(), &facts));
  EXPECT_EQ(owner, facts.st_uid);
  EXPECT_EQ(0666U, facts.st_mode & 0777U);
  ASSERT_EQ(0, stat((root / "Texture/fresh.bmp").c_str(), &facts));
  EXPECT_EQ(0600U, facts.st_mode & 0711U);
}

TEST_F(Files, AreReplacedOnlyWhereTheyBelong) {
  for (const char* name : {"set/a", "sim/Real/in", "sim/read-only", "sim/folder/x", "out/out"}) {
    WriteText(root / name, name);
  }
  fs::permissions(root / "sim/read-only", fs::perms(0444));
  ASSERT_EQ(0, mkfifo((root / "sim/pipe").c_str(), 0600));
  const List links = {"sim/in", "Real/in",      "sim/out", "../out/out", "sim/Gone",
                      "../out", "sim/dangling", "nowhere", "set/secret", "../out/out"};
  for (std::size_t i = 0; i < links.size(); i += 2) {
    fs::create_symlink(links[i + 1], root / links[i]);
  }
  const std::string long_name = "\\sim\\" + std::string(256, 'x');
  const std::vector<std::pair<FileStatus, List>> targets = {
      {kOk, {"\\sim\\IN"}},
      {kOutside, {"\\sim\\out", "\\sim\\gone\\new", "\\sim\\..\\x"}},
      {kNoFolder, {"\\sim\\none\\a", "\\sim\\read-only\\a"}},
      {kReadOnly, {"\\sim\\READ-only"}},
      {kNotAFile, {"\\sim\\folder", "\\sim\\pipe", "\\sim\\dangling"}},
      {kOther, {long_name}}};
  for (const auto& [status, names] : targets) {
    for (const std::string& name : names) {
      EXPECT_EQ(status, Copy("\\set\\a", name, At("\\SET"), At("\\SIM"))) << name;
    }
  }
  const std::vector<std::pair<FileStatus, List>> sources = {
      {kOutside, {"\\set\\secret", "\\sim\\read-only"}},
      {kNoSource, {"\\set\\missing"}},
      {kNotAFile, {"\\set", "\\sim\\pipe"}}};
  for (const auto& [status, names] : sources) {
    for (const std::string& name : names) {
      EXPECT_EQ(status, Copy(name, "\\sim\\new", At("\\SET"), At("\\SIM"))) << name;
    }
  }
  EXPECT_EQ(kNoFolder, files.ReplaceFile("", Bytes("x"), platform::Durability::kRename));
  EXPECT_EQ("Gone Real dangling folder in out pipe read-only ", Names(root / "sim"));
  EXPECT_TRUE(fs::is_symlink(root / "sim/in"));
  EXPECT_EQ("set/a", ReadText(root / "sim/Real/in"));
  EXPECT_EQ("out/out", ReadText(root / "out/out"));
  EXPECT_EQ("out ", Names(root / "out"));
}

/// A limit for the size of this process's files stands for the end of the disk.
TEST_F(Files, StayOnAFullDisk) {
  WriteText(root / "old", "old");
  WriteText(root / "big", std::string(2000, 'n'));
  rlimit before{};
  ASSERT_EQ(0, getrlimit(RLIMIT_FSIZE, &before));
  const rlimit limit{1000, before.rlim_max};
  std::signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &limit));
  const std::array results = {Copy("\\big", "\\OLD"), Put("\\old", std::string(2000, 'n')),
                              Put("\\fits", std::string(1000, 'n'))};
  ASSERT_EQ(0, setrlimit(RLIMIT_FSIZE, &before));
  EXPECT_EQ((std::array{kNoSpace, kNoSpace, kOk}), results);
  EXPECT_EQ("old", ReadText(root / "old"));
  EXPECT_EQ("big fits old ", Names(root.path()));
}

/// Such names of an earlier process with the same number are passed over when a file is replaced.
TEST_F(Files, ThatAreTemporaryAreSweptAfterTheirProcess) {
  const pid_t child = fork();
  if (child == 0) {
    _exit(0);
  }
  ASSERT_EQ(child, waitpid(child, nullptr, 0));
  const std::string dead = "~test-" + std::to_string(child);
  const std::string own = "~test-" + std::to_string(getpid());
  for (const std::string& name :
       {"~test-1-1.tmp"s, "~test-" + std::to_string(getppid()) + "-1.tmp", dead + "-1.tmp.bmp",
        dead + "-0.tmp", dead + "+1.tmp", "~test-x-1.tmp"s, "~test-.tmp"s, "a~test-1-2.tmp"s,
        "~other-1-2.tmp"s}) {
    WriteText(root / name, "");
  }
  const std::string names = Names(root.path());
  for (const std::string& name : {dead + "-7.tmp", own + "-1.tmp", own + "-2.tmp"}) {
    WriteText(root / name, "foreign");
  }
  EXPECT_EQ(kOk, Put("\\file", "new"));
  EXPECT_EQ("foreign", ReadText(root / (own + "-2.tmp")));
  EXPECT_EQ(kOk, files.SweepTemporaries(At("\\")));
  EXPECT_EQ(At("/~TEST" + dead.substr(5) + "-7.TMP"),
            files.HostPath(At("\\~TEST" + dead.substr(5) + "-7.TMP")));
  EXPECT_EQ(kOk, files.DeleteFile(At("\\file")));
  EXPECT_EQ(names, Names(root.path()));
  EXPECT_EQ(kOk, files.SweepTemporaries(At("\\missing")));
  EXPECT_TRUE(files.IsTemporary("~test-1-2.tmp"));
  EXPECT_FALSE(files.IsTemporary("~test-1-2.bmp") || files.IsTemporary("a~test-1-2.tmp"));
}

TEST_F(Files, AreDeletedAlone) {
  WriteText(root / "Read", "");
  fs::permissions(root / "Read", fs::perms(0444));
  WriteText(root / "Gone", "");
  fs::create_directories(root / "folder");
  fs::create_symlink("nowhere", root / "dangling");
  fs::create_symlink("Read", root / "link");
  EXPECT_EQ(kReadOnly, files.DeleteFile(At("\\read")));
  EXPECT_EQ(kReadOnly, files.DeleteFile(At("\\link")));
  EXPECT_EQ(kNotAFile, files.DeleteFile(At("\\folder")));
  for (const char* name : {"\\gONE", "\\gONE", "\\no\\folder", "\\dangling"}) {
    EXPECT_EQ(kOk, files.DeleteFile(At(name))) << name;
  }
  EXPECT_EQ("Read folder link ", Names(root.path()));
}

}  // namespace
