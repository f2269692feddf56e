#include "randomizer/mod_Randomizer.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "platform/random.h"
#include "platform/system.h"
#include "randomizer/ConstraintRows.h"
#include "settings/Catalogue.h"
#include "settings/Selection.h"
#include "settings/mod_WriteConfiguration.h"

namespace nimbrel {
namespace {

/// Families in the order of the draw and of the copying.
constexpr std::array kDrawOrder{kCloud, kWater, kSky};

/// Draws that may meet an inhibited option before the allowed ones are counted out. With half of
/// the options allowed not one draw in 10^19 comes that far.
constexpr int kMostRetries = 64;

/// Uniform, 0 <= r < 1, with the full 24 bits of a single-precision number. The generator is a
/// mixing of its seed and gives one number for each seed, so it is seeded before every draw.
float Random() {
  std::uint64_t mixed = platform::ClockSeed();
  mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
  mixed ^= mixed >> 31U;
  return std::ldexp(static_cast<float>(mixed >> 40U), -24);
}

std::int16_t HighestIndex(const OptionGroup& group) {
  return Catalogue
      .HighestIndex[static_cast<std::size_t>(group.family)][static_cast<std::size_t>(group.index)];
}

TextureOption* Cell(const OptionGroup& group, std::int32_t option) {
  return option < 0 || option > HighestIndex(group)
             ? nullptr
             : Catalogue.Tables[static_cast<std::size_t>(group.family)].Cell(
                   group.index, static_cast<std::int16_t>(option));
}

void CopyRows(const OptionGroup& group, const std::vector<ConstraintRow>& rows) {
  for (const ConstraintRow& row : rows) {
    if (TextureOption* option = Cell(group, row.option)) {
      option->InhibitRandomizer = row.checked ? 0 : 1;
    }
  }
}

bool MayPick(const OptionGroup& group, std::int32_t option) {
  return Catalogue.At(group.family, group.index, static_cast<std::int16_t>(option))
             .InhibitRandomizer != 1;
}

std::vector<std::int16_t> AllowedOptions(const OptionGroup& group) {
  std::vector<std::int16_t> allowed;
  for (std::int32_t option = 0; option <= HighestIndex(group); ++option) {
    if (MayPick(group, option)) {
      allowed.push_back(static_cast<std::int16_t>(option));
    }
  }
  return allowed;
}

/// One allowed option among 32,768 would take so many retries that the click seems to hang. A draw
/// among the allowed ones alone has the same outcome, each with the same chance. When a list has
/// nothing checked its first row counts, the one that its page would check again; a group
/// without options keeps index 0.
std::int16_t DrawAmongAllowed(const OptionGroup& group, const std::vector<ConstraintRow>& rows) {
  const std::vector<std::int16_t> allowed = AllowedOptions(group);
  if (!allowed.empty()) {
    const auto last = static_cast<std::int16_t>(allowed.size() - 1);
    return allowed[static_cast<std::size_t>(DrawIndex(last))];
  }
  return rows.empty() || Cell(group, rows.front().option) == nullptr
             ? std::int16_t{0}
             : static_cast<std::int16_t>(rows.front().option);
}

std::int16_t DrawOption(const OptionGroup& group, const std::vector<ConstraintRow>& rows) {
  const std::int16_t highest = HighestIndex(group);
  for (int i = 0; highest >= 0 && i <= kMostRetries; ++i) {
    const std::int16_t option = DrawIndex(highest);
    if (MayPick(group, option)) {
      return option;
    }
  }
  return DrawAmongAllowed(group, rows);
}

/// On in half of the draws; an option that is not allowed is off without one.
std::int16_t DrawSwitch(bool allowed) {
  return allowed && static_cast<int>(10 * Random()) >= 5 ? 1 : 0;
}

/// Calls step(place in kOptionGroups) for each group in the order of the draw.
template <class Step>
void ForEachGroup(Step step) {
  for (const std::int16_t family : kDrawOrder) {
    for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
      if (kOptionGroups[i].family == family) {
        step(i);
      }
    }
  }
}

}  // namespace

std::int16_t DrawIndex(std::int16_t highest) {
  const int count = highest + 1;
  // A product next to the count must not round up to it.
  return static_cast<std::int16_t>(
      std::min(static_cast<int>(static_cast<float>(count) * Random()), count - 1));
}

void RandomizeSelection() {
  SettingsRecord record = RandomizerRecord;
  ForEachGroup([&record](std::size_t i) {
    const std::vector<ConstraintRow> rows = ConstraintRows(i);
    CopyRows(kOptionGroups[i], rows);
    record.*kRecordFields[i] = DrawOption(kOptionGroups[i], rows);
  });
  const SwitchConstraints allowed = AllowedSwitches();
  record.Sun = DrawSwitch(allowed.sun);
  record.Contrails = DrawSwitch(allowed.contrails);
  record.Date = platform::Now();
  RandomizerRecord = record;
}

void ApplyRandomSelection() { RecordToSelection(RandomizerRecord); }

void SaveConstraints() {
  ForEachGroup([](std::size_t i) { CopyRows(kOptionGroups[i], ConstraintRows(i)); });
  const SwitchConstraints allowed = AllowedSwitches();
  Catalogue.sunInhibitRandomizer = allowed.sun ? 0 : 1;
  Catalogue.contrailsInhibitRandomizer = allowed.contrails ? 0 : 1;
  WriteInhibitFlags();
}

std::string PercentageText(int checked) {
  const long tenths = checked > 0 ? std::lround(1000.0 / checked) : 0;
  const std::string whole = std::to_string(tenths / 10);
  return (whole.size() < 2 ? "0" : "") + whole + "." + std::to_string(tenths % 10);
}

}  // namespace nimbrel
