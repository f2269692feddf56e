#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "platform/FileSystem.h"
#include "platform/inifile.h"
#include "settings/Catalogue.h"
#include "settings/Configuration.h"
#include "settings/Failure.h"
#include "settings/SettingsRecord.h"
#include "support/World.h"

using namespace nimbrel;
using platform::FileStatus;

namespace {

/// The groups are found by family and index from the one table, each of them once.
TEST(Groups, FormTheirFamilies) {
  int groups = 0;
  for (const Family family : kFamilies) {
    const int count = static_cast<int>(GroupsOf(family).size());
    for (int index = 0; index < count; ++index) {
      const Group group = GroupAt(family, index);
      EXPECT_EQ(group, kGroups[group].group);
      EXPECT_EQ(family, FamilyOf(group));
      EXPECT_EQ(index, IndexInFamily(group));
      EXPECT_EQ(groups++, static_cast<int>(group));
    }
    EXPECT_EQ(GroupAt(family, count - 1), GroupAt(family, -1));
    EXPECT_EQ(GroupAt(family, 0), GroupAt(family, count));
  }
  EXPECT_EQ(kGroups.values.size(), static_cast<std::size_t>(groups));
}

TEST(Catalogue, EveryKeyReachesItsOption) {
  const World world;
  std::string text = InformationText(2);
  text = With(text, "numWispy=2", "numWispy=0");
  text = With(text, "nightInhibitRandomizer.2=0", "nightInhibitRandomizer.2=1");
  text = With(text, "contrailsInhibitRandomizer=0", "contrailsInhibitRandomizer=1");
  text = With(text, "baseTitle.1=base title 1", "baseTitle.1=   ");
  text = With(text, "cirrusTitle.1=cirrus title 1", {"cirrusTitle.1=Caf\xE9\0two", 22});
  text =
      With(text, "wavesDescription.0=waves text 0", "wavesDescription.0=" + std::string(600, 'w'));
  const Catalogue catalogue = world.Load(text);

  for (const GroupFacts& facts : kGroups) {
    const std::string prefix = facts.prefix;
    EXPECT_EQ(facts.group == Group::kWispy ? 0 : 2, catalogue.HighestIndex(facts.group));
    const TextureOption& option = catalogue.At(facts.group, 0);
    EXPECT_EQ("Media\\" + prefix + "_0", option.Preview);
    EXPECT_EQ("Sets\\" + prefix + ".0", option.Textures);
    EXPECT_EQ(prefix + " title 0", option.Title);
  }
  EXPECT_EQ("day text 2", catalogue.At(Group::kDay, 2).Description);
  for (const int outside : {1, -1, 32767, -32768}) {
    EXPECT_EQ("", catalogue.At(Group::kWispy, static_cast<std::int16_t>(outside)).Title);
  }
  EXPECT_EQ(1, catalogue.At(Group::kNight, 2).InhibitRandomizer);
  EXPECT_EQ(0, catalogue.sunInhibitRandomizer);
  EXPECT_EQ(1, catalogue.contrailsInhibitRandomizer);
  EXPECT_EQ("", catalogue.At(Group::kBase, 1).Title);
  EXPECT_EQ("Caf\u00E9 two", catalogue.At(Group::kCirrus, 1).Title);
  EXPECT_EQ(std::string(511, 'w'), catalogue.At(Group::kWaves, 0).Description);
  EXPECT_EQ("Texture\\cumulus01.bmp", catalogue.CloudDestination);
  EXPECT_EQ("Texture", catalogue.DestinationCirrus);
  EXPECT_EQ("Texture", catalogue.SkyDestination);
  EXPECT_EQ("Scenery\\World\\texture", catalogue.DestinationWater);
  EXPECT_EQ("Texture", catalogue.DestinationWaves);
}

/// Empty if the catalogue was read.
std::string FailureOf(const World& world, std::string_view information) {
  try {
    world.Load(information);
    return "";
  } catch (const ActionFailed& failure) {
    return failure.what();
  }
}

struct Change {
  const char *from, *to, *failure;
};
constexpr const char* kDayFlag = "dayInhibitRandomizer.1=0";
constexpr const char* kNoDayFlag = "dayInhibitRandomizer.1 is not a number";
constexpr Change kChanges[] = {
    {"numSolid=1", "numSolid=32768", "numSolid is too large"},
    {"numSolid=1", "numSolid=-32769", "numSolid is too large"},
    {"numSolid=1", "numSolid=32767", "solidInhibitRandomizer.2 is not a number"},
    {"numSolid=1", "numSolid=abc", ""},
    {"numSolid=1", "numSolid=-32768", ""},
    {"sunInhibitRandomizer=0", "sunInhibitRandomizer=", "sunInhibitRandomizer is not a number"},
    {"contrailsInhibitRandomizer=0\r\n", "", "contrailsInhibitRandomizer is not a number"},
    {"wavesInhibitRandomizer.1=0\r\n", "", "wavesInhibitRandomizer.1 is not a number"},
    {kDayFlag, "dayInhibitRandomizer.1=1.0", kNoDayFlag},
    {kDayFlag, "dayInhibitRandomizer.1=+", kNoDayFlag},
    {kDayFlag, "dayInhibitRandomizer.1=+-1", kNoDayFlag},
    {kDayFlag, "dayInhibitRandomizer.1=32768", kNoDayFlag},
    {kDayFlag, "dayInhibitRandomizer.1=  +1  ", ""},
};

TEST(Catalogue, TellsWhatItCantAccept) {
  const World world;
  EXPECT_THROW(ReadCatalogue(world.folders()), ActionFailed) << "no file";
  for (const auto& [from, to, failure] : kChanges) {
    EXPECT_EQ(failure, FailureOf(world, With(InformationText(1), from, to))) << to;
  }
}

TEST(Catalogue, EachFamilyNeedsAGroupWithASecondOption) {
  const World world;
  for (const Family family : kFamilies) {
    PerGroup<int> highest;
    for (const GroupFacts& facts : kGroups) {
      highest[facts.group] = facts.family == family ? 0 : 1;
    }
    EXPECT_NE("", FailureOf(world, InformationText(highest)));
    highest[GroupAt(family, -1)] = 1;
    EXPECT_EQ("", FailureOf(world, InformationText(highest)));
  }
}

TEST(MachineSwitches, AreOnAtExactlyOne) {
  struct Row {
    const char* lines;
    MachineSwitches switches;
  };
  const World world;
  for (const auto& [lines, switches] : {Row{"useDXT=1\r\nuseLowRes=2", {true, false}},
                                        {"useDXT=-1\r\nuseLowRes=1", {false, true}},
                                        {"useDXT=65537\r\nuseLowRes=65537", {}},
                                        {"", {}}}) {
    world.WriteInformation(With(InformationText(1), "useDXT=1\r\nuseLowRes=0", lines));
    platform::FileSystem files(kTemporaryPrefix);
    const platform::IniFile file(files, InformationFile(world.folders()));
    EXPECT_EQ(switches, ReadMachineSwitches(file)) << lines;
  }
}

constexpr const char* kFile = "NB_Information.cfg";

/// The catalogue as a user may have edited it: comments, odd spacing, a key above the highest
/// index.
std::string EditedText() {
  std::string text = InformationText(1);
  text = With(text, "dayTitle.0", "; my favourite\r\ndayTitle.0");
  text = With(text, "dayInhibitRandomizer.1=0", "DAYinhibitrandomizer.1 =  0");
  text = With(text, "dayTitle.1", "dayInhibitRandomizer.2=0\r\nothers = kept \r\ndayTitle.1");
  return text + "\r\n[Notes]\r\nwispyInhibitRandomizer.0=5\r\nno newline at the end \xFF";
}

TEST(WriteBack, ChangesTheFlagsAndNoOtherByte) {
  const World world;
  Catalogue catalogue = world.Load(EditedText());
  catalogue.options[Group::kWispy][0].InhibitRandomizer = 1;
  catalogue.options[Group::kBase][1].InhibitRandomizer = 1;
  catalogue.sunInhibitRandomizer = 1;
  EXPECT_EQ(FileStatus::kOk, WriteMachineSwitches({.dxt = false, .fast = true}, world.folders()));
  std::string expected = With(EditedText(), "useDXT=1\r\nuseLowRes=0", "useDXT=0\r\nuseLowRes=1");
  EXPECT_EQ(expected, ReadText(world.Program(kFile)));

  EXPECT_EQ(FileStatus::kOk, WriteInhibitFlags(catalogue, world.folders()));
  expected = With(expected, "wispyInhibitRandomizer.0=0", "wispyInhibitRandomizer.0=1");
  expected = With(expected, "baseInhibitRandomizer.1=0", "baseInhibitRandomizer.1=1");
  expected = With(expected, "sunInhibitRandomizer=0", "sunInhibitRandomizer=1");
  EXPECT_EQ(expected, ReadText(world.Program(kFile)));
}

TEST(WriteBack, MakesNoFileAndTellsWhyItCantWrite) {
  const World world;
  const Catalogue catalogue;
  EXPECT_EQ(FileStatus::kNoSource, WriteMachineSwitches({}, world.folders()));
  EXPECT_EQ(FileStatus::kNoSource, WriteInhibitFlags(catalogue, world.folders()));
  EXPECT_TRUE(Files(world.Program()).empty());
  world.WriteInformation(InformationText(1));
  ASSERT_EQ(0, chmod(world.Program(kFile).c_str(), 0444));
  EXPECT_EQ(FileStatus::kReadOnly, WriteMachineSwitches({}, world.folders()));
  EXPECT_EQ(InformationText(1), ReadText(world.Program(kFile)));
}

/// Each group with a value of its own.
const SettingsRecord kRecord{
    38000.5, kFromFavorite, {{{10, 12, 11, 13, 17, 18, 19, -2, 14, 15, 16}}, true, false}};

TEST(SettingsRecord, StoredFormIsByteForByte) {
  constexpr unsigned char kBytes[kRecordBytes] = {
      0,  0, 0,  0, 0x10, 0x8E, 0xE2, 0x40,  // 38000.5
      2,  0, 10, 0, 11,   0,    12,   0,    13,   0,    14, 0, 15, 0,
      16, 0, 17, 0, 18,   0,    19,   0,    0xFE, 0xFF, 1,  0, 0,  0};
  auto bytes = EncodeRecord(kRecord);
  for (std::size_t i = 0; i < kRecordBytes; ++i) {
    EXPECT_EQ(kBytes[i], std::to_integer<unsigned char>(bytes[i])) << "byte " << i;
  }
  EXPECT_EQ(kRecord, DecodeRecord(bytes));
  bytes[32] = std::byte{2};
  bytes[34] = std::byte{1};
  EXPECT_FALSE(DecodeRecord(bytes).choice.sun) << "a switch is on at exactly 1";
  EXPECT_TRUE(DecodeRecord(bytes).choice.contrails);
  EXPECT_EQ((SettingsRecord{kRecord.Date, kFromFavorite, {}}),
            DecodeRecord(std::span(bytes).first(10)));
}

}  // namespace
