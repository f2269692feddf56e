#include <gtest/gtest.h>

#include <string>

#include "settings/Catalogue.h"
#include "settings/mod_ReadConfiguration.h"
#include "settings/mod_WriteConfiguration.h"
#include "shell/MainSwitches.h"
#include "support/BmpFile.h"
#include "support/SimulatorTree.h"
#include "support/recorders.h"
#include "toolkit/gdiplus.h"

using namespace nimbrel;

namespace {

TEST(Catalogue, EveryKeyReachesItsCell) {
  const SimulatorTree tree;
  WriteText(tree.Program("Media/Day_1.BMP"), ColorBmp(1, 1, [](int, int) { return 0U; }).Bytes());
  std::string text = InformationText(2);
  text = With(text, "numWispy=2", "numWispy=0");
  text = With(text, "nightInhibitRandomizer.2=0", "nightInhibitRandomizer.2=1");
  text = With(text, "baseTitle.1=base title 1", "baseTitle.1=   ");
  text = With(text, "cirrusTitle.1=cirrus title 1", "cirrusTitle.1=Caf\xE9");
  text =
      With(text, "wavesDescription.0=waves text 0", "wavesDescription.0=" + std::string(600, 'w'));
  tree.Load(text);

  EXPECT_EQ(2, Catalogue.HighestIndex[kCloud][0]);
  EXPECT_EQ(0, Catalogue.HighestIndex[kCloud][2]);
  for (const OptionGroup& group : kOptionGroups) {
    const TextureOption& row = Catalogue.At(group.family, group.index, 0);
    EXPECT_EQ("Sets\\" + std::string(group.prefix) + ".0", row.Textures);
    EXPECT_EQ(std::string(group.prefix) + " title 0", row.Title);
  }
  EXPECT_EQ("", Catalogue.At(kCloud, 2, 1).Title) << "above the group's own HighestIndex";
  EXPECT_EQ(1, Catalogue.At(kSky, 3, 2).InhibitRandomizer);
  EXPECT_EQ("", Catalogue.At(kWater, 0, 1).Title);
  EXPECT_EQ("Caf\u00E9", Catalogue.At(kCloud, 3, 1).Title);
  EXPECT_EQ(std::string(511, 'w'), Catalogue.At(kWater, 2, 0).Description);
  EXPECT_TRUE(Catalogue.At(kSky, 1, 1).Preview) << "found in another case";
  EXPECT_FALSE(Catalogue.At(kSky, 1, 0).Preview);
  EXPECT_EQ("Texture\\cumulus01.bmp", Catalogue.CloudDestination);
  EXPECT_EQ("Scenery\\World\\texture", Catalogue.DestinationWater);
  EXPECT_TRUE(Recorded.messages.empty());
  EXPECT_TRUE(ConfigurationLoaded());
}

TEST(Catalogue, PlacesOutsideItAreEmptyCells) {
  const SimulatorTree tree;
  tree.Load(InformationText(1));
  const std::int16_t places[][3] = {{0, 0, 2}, {0, 0, -1}, {0, 4, 0},     {0, -1, 0},    {2, 3, 0},
                                    {3, 0, 0}, {-1, 0, 0}, {1, 0, 32767}, {1, 3, -32768}};
  for (const auto& [family, group, option] : places) {
    EXPECT_EQ("", Catalogue.At(family, group, option).Textures) << family << group << option;
  }
}

struct Change {
  const char* from;
  const char* to;
  const char* reader;  ///< named by the fatal message; null: the start goes on
};
constexpr Change kChanges[] = {
    {"numSolid=1", "numSolid=99999", "Cumulus"},
    {"numSolid=1", "numSolid=-32769", "Cumulus"},
    {"numSolid=1", "numSolid=32767", "Cumulus"},  // legal, but its rows are not there
    {"numSolid=1", "numSolid=abc", nullptr},
    {"numSolid=1", "numSolid=-1", nullptr},
    {"numBase=1", "numBase=3", "Water"},
    {"sunInhibitRandomizer=0", "sunInhibitRandomizer=", "Sky"},
    {"contrailsInhibitRandomizer=0\r\n", "", "Sky"},
    {"wavesInhibitRandomizer.1=0\r\n", "", "Water"},
    {"dayInhibitRandomizer.1=0", "dayInhibitRandomizer.1=yes", "Sky"},
    {"dayInhibitRandomizer.1=0", "dayInhibitRandomizer.1=1.0", "Sky"},
    {"dayInhibitRandomizer.1=0", "dayInhibitRandomizer.1=+-1", "Sky"},
    {"dayInhibitRandomizer.1=0", "dayInhibitRandomizer.1=32768", "Sky"},
    {"dayInhibitRandomizer.1=0", "dayInhibitRandomizer.1=  +1  ", nullptr},
    {"dayInhibitRandomizer.1=0", "dayInhibitRandomizer.1=-7", nullptr},
    {"useDXT=1", "useDXT=99999", nullptr},
};

TEST(Catalogue, WhatItCantTakeEndsTheProgram) {
  for (const auto& [from, to, reader] : kChanges) {
    SCOPED_TRACE(to);
    const SimulatorTree tree;
    const std::string text = With(InformationText(1), from, to);
    if (reader == nullptr) {
      EXPECT_NO_THROW(tree.Load(text));
      EXPECT_TRUE(ConfigurationLoaded());
      continue;
    }
    EXPECT_THROW(tree.Load(text), ProgramEnded);
    const ShownMessage& message = Recorded.messages.at(0);
    EXPECT_EQ("Error", message.kind);
    EXPECT_EQ("Nimbrel Fatal Error", message.title);
    EXPECT_EQ("An error has occured in the Load " + std::string(reader) +
                  " Configuration sub routine\r\rPress the checkmark to Exit",
              message.text);
    EXPECT_TRUE(message.ok && !message.cancel && !message.progress);
    WriteMainFlags();
    WriteInhibitFlags();
    EXPECT_EQ(text, ReadText(tree.Program("NB_Information.cfg"))) << "values that were never read";
  }
}

TEST(Catalogue, AFamilyWithoutASecondOptionEndsTheProgram) {
  const SimulatorTree tree;
  EXPECT_THROW(tree.Load(InformationText(0)), ProgramEnded);
  EXPECT_NE(std::string::npos, Recorded.messages.at(0).text.find("Load Cumulus"));
}

TEST(Catalogue, WithoutItsFileTheProgramEnds) {
  const SimulatorTree tree;
  EXPECT_THROW(LoadCumulusConfiguration(), ProgramEnded);
  EXPECT_EQ(
      "Your NB_Information.cfg file has not been found.\r\r"
      "Nimbrel will not be able to load.\r\r"
      "Press the checkmark to Exit.",
      Recorded.messages.at(0).text);
  WriteMainFlags();
  EXPECT_FALSE(std::filesystem::exists(tree.Program("NB_Information.cfg")));
}

TEST(Catalogue, OnlyOneChecksASwitch) {
  const SimulatorTree tree;
  for (const auto& [value, checked] : {std::pair{"1", 1}, {"2", 0}, {"-1", 0}, {"65537", 0}}) {
    tree.Load(With(InformationText(1), "useLowRes=0", "useLowRes=" + std::string(value)));
    EXPECT_EQ(1, Switches().chk_DXT.Value());
    EXPECT_EQ(checked, Switches().chk_Fast.Value()) << value;
  }
}

}  // namespace
