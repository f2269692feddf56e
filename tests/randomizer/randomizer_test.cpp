#include "randomizer/mod_Randomizer.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <vector>

#include "platform/random.h"
#include "platform/system.h"
#include "randomizer/ConstraintRows.h"
#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "shell/MainSwitches.h"
#include "support/SimulatorTree.h"
#include "support/recorders.h"

using namespace nimbrel;

namespace {

using Rows = std::vector<ConstraintRow>;

/// What the constraint pages, which these tests go without, would hold.
struct Lists {
  std::array<Rows, kOptionGroups.size()> rows;
  SwitchConstraints switches{true, true};
  std::vector<std::size_t> asked;
};
Lists lists;
std::uint64_t seeds = 0;

constexpr std::size_t kStratusPlace = 1;
constexpr std::size_t kSunrisePlace = 4;
constexpr std::size_t kDayPlace = 5;

struct Randomizer : testing::Test {
  Randomizer() {
    lists = {};
    seeds = 0;
    platform::SetSeedSource([] { return ++seeds; });
  }
  ~Randomizer() override { platform::SetSeedSource(nullptr); }

  /// A catalogue with options 0 to `highest` in each group, all of them allowed.
  void Load(std::int16_t highest) {
    tree.Load(InformationText(highest));
    for (Rows& rows : lists.rows) {
      for (std::int32_t option = highest; option >= 0; --option) {
        rows.push_back({option, true});
      }
    }
  }
  std::map<std::int16_t, int> Drawn(std::size_t group, int times) {
    std::map<std::int16_t, int> drawn;
    for (int i = 0; i < times; ++i) {
      RandomizeSelection();
      ++drawn[RandomizerRecord.*kRecordFields[group]];
    }
    return drawn;
  }
  SimulatorTree tree;
};

/// How far the counts are from equal ones; with 15 degrees of freedom one in a thousand is
/// over 37.7.
template <class Counts>
double ChiSquared(const Counts& counts, double expected) {
  double sum = 0;
  for (const auto& [value, count] : counts) {
    sum += (count - expected) * (count - expected) / expected;
  }
  return sum;
}

TEST_F(Randomizer, ADrawIsUniformAndStaysInsideItsBounds) {
  std::map<std::int16_t, int> counts;
  for (int i = 0; i < 160000; ++i) {
    ++counts[DrawIndex(15)];
  }
  ASSERT_EQ(16U, counts.size());
  EXPECT_LT(ChiSquared(counts, 10000), 37.7);
  constexpr std::int16_t kHighest[] = {0, 1, 2, 9, 999, 32766, 32767};
  for (const std::int16_t highest : kHighest) {
    for (int i = 0; i < 20000; ++i) {
      const std::int16_t index = DrawIndex(highest);
      ASSERT_TRUE(index >= 0 && index <= highest) << index << " of " << highest;
    }
  }
}

/// By the real clock: a generator that starts anew from a coarse reading repeats itself.
TEST_F(Randomizer, DrawsWithinOneTickDiffer) {
  platform::SetSeedSource(nullptr);
  std::map<std::int16_t, int> counts;
  for (int i = 0; i < 1000; ++i) {
    ++counts[DrawIndex(32767)];
  }
  EXPECT_GT(counts.size(), 900U);
}

TEST_F(Randomizer, OnlyCheckedOptionsComeUpEachAsOftenAsTheOthers) {
  Load(5);
  for (ConstraintRow& row : lists.rows[0]) {
    row.checked = row.option < 3;
  }
  const auto drawn = Drawn(0, 3000);
  ASSERT_EQ(3U, drawn.size());
  EXPECT_EQ(2, drawn.rbegin()->first);
  EXPECT_LT(ChiSquared(drawn, 1000), 13.8) << "one in a thousand with 2 degrees of freedom";
}

TEST_F(Randomizer, EachGroupObeysItsOwnColumnAndTheListsDecide) {
  Load(3);
  for (std::size_t group = 0; group < lists.rows.size(); ++group) {
    for (ConstraintRow& row : lists.rows[group]) {
      row.checked = row.option == static_cast<std::int32_t>(group % 4);
    }
  }
  // Flags from before that say the opposite.
  for (std::int16_t option = 0; option < 4; ++option) {
    Catalogue.Tables[kSky].Cell(1, option)->InhibitRandomizer = option == 1 ? 7 : 0;
  }
  RandomizeSelection();
  for (std::size_t group = 0; group < kOptionGroups.size(); ++group) {
    EXPECT_EQ(group % 4, static_cast<std::size_t>(RandomizerRecord.*kRecordFields[group]));
  }
  EXPECT_EQ((std::vector<std::size_t>{0, 1, 2, 3, 8, 9, 10, 4, 5, 6, 7}), lists.asked)
      << "clouds, waters, skies";
  EXPECT_EQ(1, Catalogue.At(kSky, 1, 0).InhibitRandomizer);
  EXPECT_EQ(0, Catalogue.At(kSky, 1, 1).InhibitRandomizer);
}

TEST_F(Randomizer, GivesUpNoDrawAndHangsOnNone) {
  tree.Load(InformationText(1));
  CatalogueTable& clouds = Catalogue.Tables[kCloud];
  clouds.Create(4, 32767);
  Catalogue.HighestIndex[kCloud] = {32767, 32767, 0, -1};
  for (std::int32_t option = 0; option < 32768; ++option) {
    lists.rows[0].push_back({option, option == 31000});
    lists.rows[kStratusPlace].push_back({32767 - option, option % 16384 == 0});
  }
  lists.rows[2] = {{0, true}};
  lists.rows[kSunrisePlace] = {{1, false}, {0, false}};
  lists.rows[kDayPlace] = {{-1, false}, {2, true}, {70000, true}, {1, false}, {0, false}};
  const auto drawn = Drawn(kStratusPlace, 200);
  ASSERT_EQ(2U, drawn.size());
  EXPECT_GT(drawn.at(32767), 60);
  EXPECT_GT(drawn.at(16383), 60);
  EXPECT_EQ(31000, RandomizerRecord.Solid);
  EXPECT_EQ(0, RandomizerRecord.Wispy);
  EXPECT_EQ(0, RandomizerRecord.Cirrus) << "no option at all";
  EXPECT_EQ(1, RandomizerRecord.Sunrise) << "nothing allowed: the first row of the list";
  EXPECT_EQ(0, RandomizerRecord.Day) << "rows that name no option";
}

TEST_F(Randomizer, SwitchesAreOnInHalfOfTheDrawsWhenAllowed) {
  Load(1);
  int on = 0;
  for (int i = 0; i < 2000; ++i) {
    lists.switches = {true, false};
    RandomizeSelection();
    on += RandomizerRecord.Sun;
    ASSERT_EQ(0, RandomizerRecord.Contrails);
  }
  EXPECT_NEAR(1000, on, 75);
}

TEST_F(Randomizer, TheRecordIsDatedAndAppliedWithItsSourceAndTheOtherSwitchesKept) {
  Load(9);
  platform::SetClock([] { return 40123.5; });
  RandomizerRecord.Source = 1;
  lists.switches = {false, false};
  Switches().chk_Sun.SetValue(1);
  Switches().chk_DXT.SetValue(1);
  RandomizeSelection();
  EXPECT_EQ(40123.5, RandomizerRecord.Date);
  EXPECT_EQ(1, RandomizerRecord.Source);
  ApplyRandomSelection();
  EXPECT_EQ(RandomizerRecord.Wispy, CurrentSelection[kCloud][2]);
  EXPECT_EQ(RandomizerRecord.Stratus, CurrentSelection[kCloud][1]);
  EXPECT_EQ(0, Switches().chk_Sun.Value());
  EXPECT_EQ(1, Switches().chk_DXT.Value());
}

TEST_F(Randomizer, SavingCopiesListsAndBoxesIntoTheFileAndDrawsNothing) {
  Load(2);
  lists.rows[kDayPlace][0].checked = false;  // option 2: the rows run backwards
  lists.switches = {false, true};
  const std::string before = ReadText(tree.Program("NB_Information.cfg"));
  SaveConstraints();
  std::string expected = With(before, "dayInhibitRandomizer.2=0", "dayInhibitRandomizer.2=1");
  expected = With(expected, "sunInhibitRandomizer=0", "sunInhibitRandomizer=1");
  EXPECT_EQ(expected, ReadText(tree.Program("NB_Information.cfg")));
  EXPECT_EQ(SettingsRecord{}, RandomizerRecord);
  EXPECT_EQ(0U, seeds);
}

TEST(PercentageText, HasTwoDigitsBeforeThePointAndOneBehind) {
  const std::pair<int, const char*> rows[] = {{1, "100.0"},    {3, "33.3"},  {4, "25.0"},
                                              {6, "16.7"},     {12, "08.3"}, {1000, "00.1"},
                                              {32768, "00.0"}, {0, "00.0"}};
  for (const auto& [checked, text] : rows) {
    EXPECT_EQ(text, PercentageText(checked));
  }
}

}  // namespace

namespace nimbrel {

std::vector<ConstraintRow> ConstraintRows(std::size_t group) {
  lists.asked.push_back(group);
  return lists.rows[group];
}

SwitchConstraints AllowedSwitches() { return lists.switches; }

}  // namespace nimbrel
