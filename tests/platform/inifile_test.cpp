#include "platform/inifile.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using platform::FileStatus;
using platform::GetPrivateProfileIntA;
using platform::GetPrivateProfileStringA;
using platform::IniBatch;
using platform::WritePrivateProfileStringA;

constexpr std::size_t kBuffer = 512;

/// One file in a folder of its own.
struct IniFile {
  TempFolder folder;
  std::string path = folder.string() + "\\File.cfg";

  explicit IniFile(std::string_view bytes) { WriteText(folder / "File.cfg", bytes); }
  std::string Bytes() const { return ReadText(folder / "File.cfg"); }
  std::string Get(std::string_view section, std::string_view key) const {
    return GetPrivateProfileStringA(section, key, "none  ", kBuffer, path);
  }
};

TEST(IniFile, ReadsAsPublished) {
  const IniFile file(
      "stray=1\r\n[Main]\r\n  Key = a b \t\r\nkey=second\r\n;Comment=1\r\n ; Indented=1\r\n"
      "Quoted=\" x \"\r\nSingle='y'\nMixed=\"z'\r\nLone=\"\r\nDouble=\"\"q\"\"\r\nempty=\r\nno "
      "sign\r\n"
      "Equals=a=b;c\r\nUmlaut\xC4=\x80\xDF\r\n[ OTHER ] "
      "trailing\nKey=other\n[main]\nLate=1\nLast=no end");
  struct Row {
    const char* section;
    const char* key;
    const char* value;
  };
  constexpr auto kRows = std::to_array<Row>({
      {"Main", "Key", "a b"},       {"MAIN", " kEY ", "a b"},    {"Main", "stray", "none"},
      {"", "stray", "none"},        {"Main", "Comment", "none"}, {"Main", ";Comment", "none"},
      {"Main", "Indented", "none"}, {"Main", "Quoted", " x "},   {"Main", "Single", "y"},
      {"Main", "Mixed", "\"z'"},    {"Main", "Lone", "\""},      {"Main", "Double", "\"q\""},
      {"Main", "Empty", ""},        {"Main", "no sign", "none"}, {"Main", "Equals", "a=b;c"},
      {"Main", "umlautä", "€ß"},    {"Other", "Key", "other"},   {"Main", "Late", "none"},
      {"Other", "Last", "none"},    {"Nowhere", "Key", "none"},
  });
  for (const auto& [section, key, value] : kRows) {
    EXPECT_EQ(value, file.Get(section, key)) << section << " " << key;
  }
}

TEST(IniFile, CutsAtTheBufferInBytesOfTheFile) {
  const IniFile file("[a]\nlong=" + std::string(600, '\xE4') + "\nnul=x" + std::string(1, '\0') +
                     "y\n");
  EXPECT_EQ(511U * 2, file.Get("a", "long").size());
  EXPECT_EQ("", GetPrivateProfileStringA("a", "long", "", 1, file.path));
  EXPECT_EQ("", GetPrivateProfileStringA("a", "long", "", 0, file.path));
  EXPECT_EQ("fa", GetPrivateProfileStringA("a", "x", "fallback", 3, file.path));
  EXPECT_EQ("", GetPrivateProfileStringA("a", "x", " ", kBuffer, file.path));
  EXPECT_EQ(std::string("x\0y", 3), file.Get("a", "nul"));
}

TEST(IniFile, ReadsNumbers) {
  struct Row {
    const char* text;
    std::int32_t value;
  };
  constexpr auto kRows = std::to_array<Row>({{"12", 12},
                                             {" -7 ", -7},
                                             {"+3", 3},
                                             {"\"5\"", 5},
                                             {"1.9", 1},
                                             {"0x10", 0},
                                             {"abc", 0},
                                             {"", 0},
                                             {"- 4", 0},
                                             {"4294967297", 1},
                                             {"2147483648", INT32_MIN},
                                             {"\x31\xB2", 1}});
  for (const auto& [text, value] : kRows) {
    const IniFile file(std::string("[a]\nk=") + text + "\n");
    EXPECT_EQ(value, GetPrivateProfileIntA("A", "K", 99, file.path)) << text;
  }
  const IniFile file("[a]\n");
  EXPECT_EQ(99, GetPrivateProfileIntA("a", "k", 99, file.path));
  EXPECT_EQ(98, GetPrivateProfileIntA("a", "k", 98, file.path + ".missing"));
}

TEST(IniFile, AWriteTouchesNothingElse) {
  struct Row {
    std::string before;
    const char* section;
    const char* key;
    const char* value;
    std::string after;
  };
  const std::string nul(1, '\0');
  const std::vector<Row> rows = {
      {"[P]\r\n\tLife\t=  1.5  \r\nx=1", "p", "LIFE", "180.0,180.0",
       "[P]\r\n\tLife\t=  180.0,180.0  \r\nx=1"},
      {"[P]\nk=\"old\"\n;k=2\nk=3\n[p]\nk=4", "P", "k", "new", "[P]\nk=new\n;k=2\nk=3\n[p]\nk=4"},
      {"[P]\nk=", "P", "k", "v", "[P]\nk=v"},
      {"[P]\nk= \r\n", "P", "k", "v", "[P]\nk=v \r\n"},
      {"\xEF\xBB\xBF[P]\r\n\xE4" + nul + "\x81=\xFF\r\nk=1\r\r\n", "P", "k", "2",
       "\xEF\xBB\xBF[P]\r\n\xE4" + nul + "\x81=\xFF\r\nk=2\r\r\n"},
      {"[P]\r\na=1\r\n;end\r\n\r\n \t\r\n[Q]\r\n", "P", "New", "v",
       "[P]\r\na=1\r\n;end\r\nNew=v\r\n\r\n \t\r\n[Q]\r\n"},
      {"[P]\na=1", "P", "b", "2", "[P]\na=1\nb=2\n"},
      {"[P]\na=1", "Größe", "Ä", "€",
       "[P]\na=1\n[Gr\xF6\xDF"
       "e]\n\xC4=\x80\n"},
      {"\xEF\xBB\xBF", "P", "k", "v", "\xEF\xBB\xBF[P]\r\nk=v\r\n"},
      {"", "P", "k", "", "[P]\r\nk=\r\n"},
      {"[P]\nk=1\n", "P", "k", " a ", "[P]\nk=\" a \"\n"},
      {"[P]\nk=1\n", "P", "k", "'a'", "[P]\nk=\"'a'\"\n"},
      {"[P]\nk=1\n", "P", "k", "日", "[P]\nk=?\n"},
      {"[P]\nk= \"1\" \n", "P", "k", "1", "[P]\nk= \"1\" \n"},
  };
  for (const auto& [before, section, key, value, after] : rows) {
    const IniFile file(before);
    EXPECT_EQ(FileStatus::kOk, WritePrivateProfileStringA(section, key, value, file.path));
    EXPECT_EQ(after, file.Bytes());
    EXPECT_EQ(std::string_view(value) == "日" ? "?" : value, file.Get(section, key)) << before;
  }
}

TEST(IniFile, NobodySmugglesALine) {
  const std::string bytes = "[P]\nk=1\n";
  const IniFile file(bytes);
  struct Row {
    std::string_view section;
    std::string_view key;
    std::string_view value;
  };
  constexpr auto kRows = std::to_array<Row>({{"P", "k", "1\nx=2"},
                                             {"P", "k", "1\r"},
                                             {"P", "k\nx", "1"},
                                             {"P]\n[Q", "k", "1"},
                                             {"P", "x=y", "1"},
                                             {"P", ";x", "1"},
                                             {"P", "[x]", "1"},
                                             {"P", " ", "1"},
                                             {"P", "日", "1"},
                                             {"P", "k", std::string_view("a\0b", 3)}});
  for (const auto& [section, key, value] : kRows) {
    EXPECT_EQ(FileStatus::kOther, WritePrivateProfileStringA(section, key, value, file.path))
        << key;
  }
  EXPECT_EQ(bytes, file.Bytes());
}

TEST(IniFile, FollowsWhatOthersWrite) {
  const IniFile file("[a]\nk=start\n");
  for (int i = 0; i < 300; ++i) {  // one length, so that only stamps tell the states apart
    const std::string value = std::to_string(1000 + i);
    WriteText(file.folder / "File.cfg", "[a]\nk=" + value + "\n");
    ASSERT_EQ(value, file.Get("a", "k"));
  }
  usleep(100'000);  // past the tick of the last write, so that the next reading counts
  EXPECT_EQ("1299", file.Get("a", "k"));
  WriteText(file.folder / "File.cfg", "[a]\nk=1300\n");
  EXPECT_EQ("1300", file.Get("a", "k"));
  fs::remove(file.folder / "File.cfg");
  EXPECT_EQ("none", file.Get("a", "k"));
  WriteText(file.folder / "FILE.CFG", "[a]\nk=back\n");
  EXPECT_EQ("back", file.Get("a", "k"));
}

TEST(IniFile, ABatchIsOneReplacement) {
  static int renames;
  renames = 0;
  platform::SetFailureHook([](const char* step, const char*) {
    renames += std::string_view(step) == "rename" ? 1 : 0;
    return 0;
  });
  const IniFile file("[a]\nk0=0\n\n[b]\n");
  {
    IniBatch batch(file.path);
    for (int i = 0; i < 50; ++i) {
      WritePrivateProfileStringA("a", "k" + std::to_string(i), "1", file.path);
    }
    WritePrivateProfileStringA("a", "K49", "22", file.path);
    WritePrivateProfileStringA("c", "d", "e", file.path);
    EXPECT_EQ("22", file.Get("a", "k49"));
    EXPECT_EQ("[a]\nk0=0\n\n[b]\n", file.Bytes());
    WriteText(file.folder / "File.cfg", "[a]\nk0=0\nother=x\n\n[b]\n");  // somebody else, meanwhile
    EXPECT_EQ(FileStatus::kOk, batch.Commit());
    EXPECT_EQ(1, renames);
  }
  EXPECT_EQ(FileStatus::kOk, WritePrivateProfileStringA("a", "k1", "1", file.path));
  platform::SetFailureHook(nullptr);
  EXPECT_EQ(1, renames);
  std::string expected = "[a]\nk0=1\nother=x\n";
  for (int i = 1; i < 50; ++i) {
    expected += "k" + std::to_string(i) + (i == 49 ? "=22\n" : "=1\n");
  }
  EXPECT_EQ(expected + "\n[b]\n[c]\nd=e\n", file.Bytes());
}

TEST(IniFile, AFailedWriteIsForgotten) {
  const IniFile file("[a]\nk=1\n");
  platform::SetFailureHook([](const char*, const char*) { return ENOSPC; });
  EXPECT_EQ(FileStatus::kNoSpace, WritePrivateProfileStringA("a", "k", "2", file.path));
  platform::SetFailureHook(nullptr);
  EXPECT_EQ("1", file.Get("a", "k"));
  EXPECT_EQ(FileStatus::kOk, WritePrivateProfileStringA("a", "j", "2", file.path));
  EXPECT_EQ("[a]\nk=1\nj=2\n", file.Bytes());
}

TEST(IniFile, WhatCantBeReadIsNeverOverwritten) {
  const IniFile file("[a]\nk=1\n");
  fs::create_directories(file.folder / "folder");
  EXPECT_EQ(FileStatus::kNotAFile,
            WritePrivateProfileStringA("a", "k", "2", file.folder.string() + "\\folder"));
  EXPECT_EQ(FileStatus::kNoFolder,
            WritePrivateProfileStringA("a", "k", "2", file.folder.string() + "\\no\\x"));
  EXPECT_EQ(FileStatus::kOk,
            WritePrivateProfileStringA("a", "k", "2", file.folder.string() + "\\new.fx"));
  EXPECT_EQ("[a]\r\nk=2\r\n", ReadText(file.folder / "new.fx"));
  const OrdinaryUser user(file.folder.path());
  fs::permissions(file.folder / "File.cfg", fs::perms(0200));
  EXPECT_EQ("none", file.Get("a", "k"));
  EXPECT_EQ(FileStatus::kNoPermission, WritePrivateProfileStringA("a", "k", "2", file.path));
  fs::permissions(file.folder / "File.cfg", fs::perms(0400));
  EXPECT_EQ("1", file.Get("a", "k"));
  EXPECT_EQ(FileStatus::kReadOnly, WritePrivateProfileStringA("a", "k", "2", file.path));
  fs::permissions(file.folder / "File.cfg", fs::perms(0600));
  EXPECT_EQ("1", file.Get("a", "k"));
  WriteText(file.folder / "File.cfg", "[a]\nk=33\n");
  fs::permissions(file.folder / "File.cfg", fs::perms(0200));
  EXPECT_EQ(FileStatus::kNoPermission, platform::ReadProfile(file.path));
  EXPECT_EQ("1", file.Get("a", "k")) << "what was read last does not stand";
}

TEST(IniFile, TakesNoiseAndSizeAsTheyCome) {
  std::string noise;
  std::uint32_t state = 1;
  for (int i = 0; i < (2 << 20); ++i) {
    state = state * 1664525U + 1013904223U;
    noise += static_cast<char>(state >> 24U);
  }
  const IniFile file(noise + "\n[end of noise]\nk=1");
  EXPECT_EQ("1", file.Get("end of noise", "k"));
  EXPECT_EQ(FileStatus::kOk, WritePrivateProfileStringA("end of noise", "k", "22", file.path));
  EXPECT_EQ(noise + "\n[end of noise]\nk=22", file.Bytes());
  fs::resize_file(file.folder / "File.cfg", (16U << 20U) + 1);
  EXPECT_EQ("none", file.Get("end of noise", "k"));
  EXPECT_EQ(FileStatus::kTooLarge, WritePrivateProfileStringA("a", "k", "2", file.path));
}

}  // namespace
