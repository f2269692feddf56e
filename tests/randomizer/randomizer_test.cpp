#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
#include <vector>

#include "randomizer/Draw.h"
#include "settings/Catalogue.h"
#include "settings/Configuration.h"
#include "support/World.h"

using namespace nimbrel;

namespace {

/// The numbers of the seeds 1, 2, 3 ...
RandomSource Seeded() {
  return [seed = std::uint64_t{0}]() mutable { return RandomNumber(++seed); };
}

/// The given numbers, then an exception.
RandomSource Given(std::vector<float> numbers) {
  return [numbers, next = std::size_t{0}]() mutable { return numbers.at(next++); };
}

Catalogue WithOptions(std::size_t count) {
  Catalogue catalogue;
  for (auto& options : catalogue.options) {
    options.resize(count);
  }
  return catalogue;
}

/// Rows from the last option to the first, all checked.
Constraints EverythingOf(const Catalogue& catalogue) {
  Constraints constraints;
  for (const GroupFacts& facts : kGroups) {
    for (std::int32_t option = catalogue.HighestIndex(facts.group); option >= 0; --option) {
      constraints.rows[facts.group].push_back({option, true});
    }
  }
  return constraints;
}

TEST(Random, NumbersAreUniformAndHaveAllTheirBits) {
  std::array<int, 16> first_bits{};
  std::array<int, 16> last_bits{};
  const RandomSource random = Seeded();
  for (int i = 0; i < 160000; ++i) {
    const float number = random();
    ++first_bits.at(static_cast<std::size_t>(16 * number));
    ++last_bits.at(static_cast<std::size_t>(std::ldexp(number, 24)) % 16);
  }
  for (const auto& counts : {first_bits, last_bits}) {
    const auto [least, most] = std::minmax_element(counts.begin(), counts.end());
    EXPECT_TRUE(*least > 9600 && *most < 10400) << *least << " " << *most;
  }
}

TEST(Random, NumbersWithinOneTickOfTheClockDiffer) {
  std::set<float> numbers;
  std::generate_n(std::inserter(numbers, numbers.end()), 1000, ClockRandom());
  EXPECT_GT(numbers.size(), 900U);
}

TEST(PickIndex, TruncatesTheProductWithTheCount) {
  constexpr float kLast = 0x0.FFFFFFp0F;  // before 1
  struct Row {
    int highest;
    float number;
    int index;
  };
  constexpr Row kRows[] = {
      {0, kLast, 0}, {1, 0.499F, 0}, {1, 0.5F, 1},          {9, 0, 0},
      {9, 0.3F, 3},  {9, kLast, 9},  {32766, kLast, 32766}, {32767, kLast, 32767}};
  for (const auto& [highest, number, index] : kRows) {
    EXPECT_EQ(index, PickIndex(static_cast<std::int16_t>(highest), Given({number}))) << highest;
  }
}

TEST(PickChoice, DrawsCloudsWatersSkiesAndTheSwitches) {
  const Catalogue catalogue = WithOptions(11);
  Constraints constraints = EverythingOf(catalogue);
  std::vector<float> numbers(11);
  std::generate(numbers.begin(), numbers.end(), [next = 0.5F]() mutable { return next++ / 11; });
  numbers.insert(numbers.end(), {0.5F, 0.4999F});
  const Selection expected{{0, 1, 2, 3, 7, 8, 9, 10, 4, 5, 6}};
  EXPECT_EQ((Choice{expected, true, false}), PickChoice(catalogue, constraints, Given(numbers)));

  constraints.sun = false;
  numbers.pop_back();
  EXPECT_EQ((Choice{expected, false, true}), PickChoice(catalogue, constraints, Given(numbers)))
      << "a switch that is not allowed takes no number";
  constraints = {.rows = constraints.rows, .sun = true, .contrails = false};
  EXPECT_EQ((Choice{expected, true, false}), PickChoice(catalogue, constraints, Given(numbers)));
}

TEST(PickChoice, OnlyCheckedOptionsComeUpEachAsOftenAsTheOthers) {
  Catalogue catalogue = WithOptions(6);
  Constraints constraints = EverythingOf(catalogue);
  for (ConstraintRow& row : constraints.rows[Group::kDay]) {
    row.checked = row.option % 2 == 0;
  }
  catalogue.options[Group::kDay][2].InhibitRandomizer = 1;  // from before; the rows decide
  catalogue.options[Group::kNight][5].InhibitRandomizer = 7;
  constraints.rows[Group::kNight].clear();
  ConstrainOptions(constraints, catalogue);
  std::map<int, int> days;
  std::set<int> nights;
  const RandomSource random = Seeded();
  for (int i = 0; i < 3000; ++i) {
    const Choice choice = PickChoice(catalogue, constraints, random);
    ++days[choice.option[Group::kDay]];
    nights.insert(choice.option[Group::kNight]);
  }
  for (const int day : {0, 2, 4}) {
    EXPECT_NEAR(1000, days[day], 100);
  }
  EXPECT_EQ(3U, days.size());
  EXPECT_EQ(6U, nights.size()) << "a flag of 7 inhibits nothing";
}

/// Nothing of a group with two options is allowed: by the rows of its list, which option is picked.
TEST(PickChoice, WithoutAnAllowedOptionTheFirstRowCounts) {
  const std::pair<std::vector<ConstraintRow>, int> rows[] = {
      {{{1, false}, {0, false}}, 1},
      {{{0, false}, {1, false}}, 0},
      {{{-1, false}, {2, true}, {70000, true}, {1, false}, {0, false}}, 0},
      {{{2, false}, {1, false}, {0, false}}, 0}};
  for (const auto& [list, option] : rows) {
    Catalogue catalogue = WithOptions(2);
    catalogue.options[Group::kCirrus].clear();
    const Constraints constraints{.rows = {{{list, {}, {}, list}}}};
    ConstrainOptions(constraints, catalogue);
    const Choice choice = PickChoice(catalogue, constraints, Seeded());
    EXPECT_EQ(option, choice.option[Group::kSolid]);
    EXPECT_EQ(0, choice.option[Group::kCirrus]) << "no option at all";
  }
}

TEST(Constraints, ReachTheInformationFile) {
  const World world;
  Catalogue catalogue = world.Load(InformationText(2));
  Constraints constraints = EverythingOf(catalogue);
  constraints.rows[Group::kDay][0].checked = false;  // option 2
  constraints.sun = false;
  ConstrainAll(constraints, catalogue);
  WriteInhibitFlags(catalogue, world.folders());
  const std::string expected =
      With(InformationText(2), "dayInhibitRandomizer.2=0", "dayInhibitRandomizer.2=1");
  EXPECT_EQ(With(expected, "sunInhibitRandomizer=0", "sunInhibitRandomizer=1"),
            ReadText(world.Program("NB_Information.cfg")));
  constraints.sun = true;
  constraints.contrails = false;
  ConstrainAll(constraints, catalogue);
  EXPECT_EQ(0, catalogue.sunInhibitRandomizer);
  EXPECT_EQ(1, catalogue.contrailsInhibitRandomizer);
}

TEST(PercentageText, HasTwoDigitsBeforeThePointAndOneAfterIt) {
  const std::pair<int, const char*> rows[] = {{1, "100.0"},    {3, "33.3"},  {4, "25.0"},
                                              {6, "16.7"},     {12, "08.3"}, {1000, "00.1"},
                                              {32768, "00.0"}, {0, "00.0"}};
  for (const auto& [checked, text] : rows) {
    EXPECT_EQ(text, PercentageText(checked));
  }
}

}  // namespace
