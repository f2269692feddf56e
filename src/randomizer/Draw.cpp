#include "randomizer/Draw.h"

#include <array>
#include <cmath>

#include "platform/random.h"
#include "settings/Catalogue.h"

namespace nimbrel {
namespace {

/// Families in the order of the draw.
constexpr std::array kDrawOrder{Family::kCloud, Family::kWater, Family::kSky};

bool IsOption(std::int32_t option, Group group, const Catalogue& catalogue) {
  return option >= 0 && option <= catalogue.HighestIndex(group);
}

void ConstrainGroup(const std::vector<ConstraintRow>& rows, Group group, Catalogue& catalogue) {
  for (const ConstraintRow& row : rows) {
    if (IsOption(row.option, group, catalogue)) {
      catalogue.options[group][static_cast<std::size_t>(row.option)].InhibitRandomizer =
          row.checked ? 0 : 1;
    }
  }
}

std::vector<std::int16_t> AllowedOptions(const std::vector<TextureOption>& options) {
  std::vector<std::int16_t> allowed;
  for (std::size_t option = 0; option < options.size(); ++option) {
    if (options[option].InhibitRandomizer != 1) {
      allowed.push_back(static_cast<std::int16_t>(option));
    }
  }
  return allowed;
}

/// If no option is allowed the first row counts, the one that its page would check again; a group
/// without options keeps index 0.
std::int16_t PickOption(Group group, const Catalogue& catalogue,
                        const std::vector<ConstraintRow>& rows, const RandomSource& random) {
  const std::vector<std::int16_t> allowed = AllowedOptions(catalogue.options[group]);
  if (!allowed.empty()) {
    const auto highest = static_cast<std::int16_t>(allowed.size() - 1);
    return allowed[static_cast<std::size_t>(PickIndex(highest, random))];
  }
  return !rows.empty() && IsOption(rows.front().option, group, catalogue)
             ? static_cast<std::int16_t>(rows.front().option)
             : std::int16_t{0};
}

/// On in half of the draws; a switch that is not allowed is off without one.
bool PickSwitch(bool allowed, const RandomSource& random) {
  return allowed && static_cast<int>(10 * random()) >= 5;
}

}  // namespace

float RandomNumber(std::uint64_t seed) {
  std::uint64_t mixed = seed;
  mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
  mixed ^= mixed >> 31U;
  return std::ldexp(static_cast<float>(mixed >> 40U), -24);
}

RandomSource ClockRandom() {
  return [seed = platform::ClockSeed()]() mutable { return RandomNumber(seed.Next()); };
}

void ConstrainOptions(const Constraints& constraints, Catalogue& catalogue) {
  for (const GroupFacts& facts : kGroups) {
    ConstrainGroup(constraints.rows[facts.group], facts.group, catalogue);
  }
}

void ConstrainAll(const Constraints& constraints, Catalogue& catalogue) {
  ConstrainOptions(constraints, catalogue);
  catalogue.sunInhibitRandomizer = constraints.sun ? 0 : 1;
  catalogue.contrailsInhibitRandomizer = constraints.contrails ? 0 : 1;
}

Choice PickChoice(const Catalogue& catalogue, const Constraints& constraints,
                  const RandomSource& random) {
  Choice choice;
  for (const Family family : kDrawOrder) {
    for (const GroupFacts& facts : GroupsOf(family)) {
      choice.option[facts.group] =
          PickOption(facts.group, catalogue, constraints.rows[facts.group], random);
    }
  }
  choice.sun = PickSwitch(constraints.sun, random);
  choice.contrails = PickSwitch(constraints.contrails, random);
  return choice;
}

std::int16_t PickIndex(std::int16_t highest, const RandomSource& random) {
  // Below the count even after rounding: a float below 1 is at most 1 - 2^-24.
  return static_cast<std::int16_t>(static_cast<float>(highest + 1) * random());
}

std::string PercentageText(int checked) {
  const long tenths = checked > 0 ? std::lround(1000.0 / checked) : 0;
  const std::string whole = std::to_string(tenths / 10);
  return (whole.size() < 2 ? "0" : "") + whole + "." + std::to_string(tenths % 10);
}

}  // namespace nimbrel
