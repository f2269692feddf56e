#include "platform/inifile.h"

#include <gtest/gtest.h>

#include "platform/FileSystem.h"
#include "support/TempFolder.h"

namespace fs = std::filesystem;

namespace {

using enum platform::FileStatus;
using namespace std::string_literals;
using platform::FileStatus;
using platform::GetPrivateProfileIntA;
using platform::GetPrivateProfileStringA;
using platform::IniFile;
using platform::WritePrivateProfileStringA;

constexpr std::size_t kBuffer = 512;

/// A file in a folder of its own, opened.
struct Ini {
  TempFolder folder;
  platform::FileSystem files{"~test-"};
  IniFile file;

  explicit Ini(std::string_view bytes)
      : file((WriteText(folder / "File.cfg", bytes), files), folder.string() + "\\FILE.cfg") {}
  std::string Bytes() const { return ReadText(folder / "File.cfg"); }
  std::string Get(std::string_view section, std::string_view key) const {
    return GetPrivateProfileStringA(section, key, "none  ", kBuffer, file);
  }
  FileStatus Set(std::string_view section, std::string_view key, std::string_view value) {
    return WritePrivateProfileStringA(section, key, value, file);
  }
};

TEST(IniFile, ReadsAsPublished) {
  const Ini ini(
      "stray=1\r\n[Main]\r\n  Key = a b \t\r\nkey=second\r\n;Comment=1\r\n ; Indented=1\r\n"
      "Quoted=\" x \"\r\nSingle='y'\nMixed=\"z'\r\nLone=\"\r\nDouble=\"\"q\"\"\r\nempty=\r\n"
      "no sign\r\nEquals=a=b;c\r\nUmlaut\xC4=\x80\xDF\r\n[ OTHER ] trailing\nKey=other\nlong=" +
      std::string(600, '\xE4') + "\nnul=x\0y\n[main]\nLate=1\nLast=no end"s);
  for (const auto& [section, key, value] : std::vector<std::array<std::string, 3>>{
           {"Main", "Key", "a b"},       {"MAIN", " kEY ", "a b"},    {"Main", "stray", "none"},
           {"", "stray", "none"},        {"Main", "Comment", "none"}, {"Main", ";Comment", "none"},
           {"Main", "Indented", "none"}, {"Main", "Quoted", " x "},   {"Main", "Single", "y"},
           {"Main", "Mixed", "\"z'"},    {"Main", "Lone", "\""},      {"Main", "Double", "\"q\""},
           {"Main", "Empty", ""},        {"Main", "no sign", "none"}, {"Main", "Equals", "a=b;c"},
           {"Main", "umlautä", "€ß"},    {"Other", "Key", "other"},   {"Main", "Late", "none"},
           {"Other", "Last", "none"},    {"Nowhere", "Key", "none"},  {"Other", "nul", "x\0y"s}}) {
    EXPECT_EQ(value, ini.Get(section, key)) << section << " " << key;
  }
  // The buffer counts bytes of the file, and one of them ends the text.
  EXPECT_EQ(511U * 2, ini.Get("Other", "long").size());
  EXPECT_EQ("", GetPrivateProfileStringA("Other", "long", "", 1, ini.file));
  EXPECT_EQ("", GetPrivateProfileStringA("Other", "long", "", 0, ini.file));
  EXPECT_EQ("fa", GetPrivateProfileStringA("Other", "x", "fallback", 3, ini.file));
  EXPECT_EQ("", GetPrivateProfileStringA("Other", "x", " ", kBuffer, ini.file));
}

TEST(IniFile, ReadsNumbers) {
  const Ini ini(
      "[a]\n0=12\n1= -7 \n2=+3\n3=\"5\"\n4=90/\n5=1:\n6=0x10\n7=\n8=- "
      "4\n9=4294967297\n10=2147483648\n"
      "11=1\xB2\n");
  const std::vector values = {12, -7, 3, 5, 90, 1, 0, 0, 0, 1, INT32_MIN, 1, 99};
  for (std::size_t i = 0; i < values.size(); ++i) {
    EXPECT_EQ(values[i], GetPrivateProfileIntA("A", std::to_string(i), 99, ini.file)) << i;
  }
}

TEST(IniFile, AWriteTouchesNothingElse) {
  const std::string odd = "\xEF\xBB\xBF[P]\r\n\xE4\0\x81=\xFF\r\nk="s;
  for (const auto& [before, section, key, value, after] : std::vector<std::array<std::string, 5>>{
           {"[P]\r\n\tk\t=  1.5  \r\nx=1", "p", "K", "8,2", "[P]\r\n\tk\t=  8,2  \r\nx=1"},
           {"[P]\nk=\"o\"\n;k=2\nk=3\n[p]\nk=4", "P", "k", "n", "[P]\nk=n\n;k=2\nk=3\n[p]\nk=4"},
           {"[P]\nk=", "P", "k", "v", "[P]\nk=v"},
           {"[P]\nk= \r\n", "P", "k", "v", "[P]\nk=v \r\n"},
           {odd + "1\r\r\n", "P", "k", "2", odd + "2\r\r\n"},
           {"[P]\r\n;e\r\n\t\r\n[Q]\r\n", "P", "N", "v", "[P]\r\n;e\r\nN=v\r\n\t\r\n[Q]\r\n"},
           {"[P]\na=1", "P", "b", "2", "[P]\na=1\nb=2\n"},
           {"[P]\na=1", "Größte", "Ä", "€", "[P]\na=1\n[Gr\xF6\xDFte]\n\xC4=\x80\n"},
           {"\xEF\xBB\xBF", "P", "k", "v", "\xEF\xBB\xBF[P]\r\nk=v\r\n"},
           {"", "P", "k", "", "[P]\r\nk=\r\n"},
           {"[P]\nk=1\n", "P", "k", " a ", "[P]\nk=\" a \"\n"},
           {"[P]\nk=1\n", "P", "k", "'a'", "[P]\nk=\"'a'\"\n"},
           {"[P]\nk= \"1\" \n", "P", "k", "1", "[P]\nk= \"1\" \n"}}) {
    Ini ini(before);
    EXPECT_EQ(kOk, ini.Set(section, key, value));
    EXPECT_EQ(value, ini.Get(section, key)) << before;
    EXPECT_EQ(kOk, ini.file.Save());
    EXPECT_EQ(after, ini.Bytes());
    EXPECT_EQ(value, ini.Get(section, key)) << before;
  }
}

TEST(IniFile, RefusesWhatWouldNotReadBack) {
  Ini ini("[P]\nk=1\n");
  const std::vector<std::array<std::string, 3>> rows = {
      {"P", "k", "1\nx=2"}, {"P", "k", "1\r"}, {"P", "k\nx", "1"},  {"P]\n[Q", "k", "1"},
      {"P]", "k", "1"},     {"P", "x=y", "1"}, {"P", ";x", "1"},    {"P", "[x]", "1"},
      {"P", " ", "1"},      {"P", "日", "1"},  {"P", "k", "a\0b"s}, {"P", "k\0"s, "1"},
  };
  for (const auto& [section, key, value] : rows) {
    EXPECT_EQ(kOther, ini.Set(section, key, value)) << section << ' ' << key;
  }
  EXPECT_EQ(ini.file.document().Original(), ini.file.document().Render());
  EXPECT_EQ(kOk, ini.Set("P", "k", "日"));
  EXPECT_EQ("?", ini.Get("P", "k"));
}

TEST(IniFile, SavesAllChangesInOneReplacement) {
  Ini ini("[a]\nk0=0\n\n[b]\n");
  const std::vector<std::array<std::string, 3>> rows = {
      {"a", "k0", "1"},  {"a", "k1", "1"}, {"a", "k2", "1"},
      {"A", "K2", "22"}, {"c", "d", "e"},  {"C", "f", ""},
  };
  for (const auto& [section, key, value] : rows) {
    EXPECT_EQ(kOk, ini.Set(section, key, value));
  }
  EXPECT_EQ("[a]\nk0=0\n\n[b]\n", ini.Bytes());
  EXPECT_EQ(kOk, ini.file.Save());
  EXPECT_EQ("[a]\nk0=1\nk1=1\nk2=22\n\n[b]\n[c]\nd=e\nf=\n", ini.Bytes());
  // Without a change nothing is written, so that nothing can fail.
  fs::permissions(ini.folder / "File.cfg", fs::perms(0400));
  ini.Set("a", "k1", "1");
  EXPECT_EQ(kOk, ini.file.Save());
  ini.Set("a", "k1", "2");
  EXPECT_EQ(kReadOnly, ini.file.Save());
  fs::permissions(ini.folder / "File.cfg", fs::perms(0600));
  EXPECT_EQ(kOk, ini.file.Save());
  EXPECT_EQ("[a]\nk0=1\nk1=2\nk2=22\n\n[b]\n[c]\nd=e\nf=\n", ini.Bytes());
}

TEST(IniFile, IsNeverOverwrittenUnread) {
  Ini ini("[a]\nk=1\n");
  fs::create_directories(ini.folder / "folder");
  WriteText(ini.folder / "secret", "");
  WriteText(ini.folder / "longest", std::string(16U << 20U, ' '));
  WriteText(ini.folder / "long", std::string((16U << 20U) + 1, ' '));
  const OrdinaryUser user(ini.folder.path());
  fs::permissions(ini.folder / "secret", fs::perms(0200));
  const std::vector<std::tuple<std::string, FileStatus, FileStatus>> rows = {
      {"folder", kNotAFile, kNotAFile},
      {"long", kTooLarge, kTooLarge},
      {"longest", kOk, kOk},
      {"secret", kNoPermission, kNoPermission},
      {"no\\x", kNoSource, kNoFolder},
      {"new.fx", kNoSource, kOk},
  };
  for (const auto& [name, opened, saved] : rows) {
    IniFile file(ini.files, ini.folder.string() + "\\" + name);
    EXPECT_EQ(opened, file.status()) << name;
    EXPECT_EQ(7, GetPrivateProfileIntA("a", "k", 7, file));
    EXPECT_EQ(kOk, WritePrivateProfileStringA("a", "k", "2", file));
    EXPECT_EQ(saved, file.Save()) << name;
    EXPECT_EQ(saved == kOk ? kOk : opened, file.status()) << name;
  }
  EXPECT_EQ("[a]\r\nk=2\r\n", ReadText(ini.folder / "new.fx"));
  EXPECT_EQ(0U, fs::file_size(ini.folder / "secret"));
}

}  // namespace
