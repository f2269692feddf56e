#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "settings/Choice.h"

namespace nimbrel {

struct Catalogue;

/// The random draw within the constraints that the user has checked.

/// A source of uniform numbers, 0 <= r < 1.
using RandomSource = std::function<float()>;
/// The number of a seed, with the full 24 bits of single precision. Seeds that differ in any bits
/// give numbers that look independent.
float RandomNumber(std::uint64_t seed);
/// Numbers of seeds that are taken from the clock one by one.
RandomSource ClockRandom();

/// One row of a constraint list.
struct ConstraintRow {
  std::int32_t option;  ///< index in the catalogue; the row's place says nothing about it
  bool checked;
};

/// What may be drawn: a row for each option of each group, in the order the user sees.
struct Constraints {
  PerGroup<std::vector<ConstraintRow>> rows;
  bool sun = true;  ///< whether a draw may turn the switch on
  bool contrails = true;
};

/// Copies the constraints into the catalogue's inhibit flags: those of the options.
void ConstrainOptions(const Constraints& constraints, Catalogue& catalogue);
/// The flags of options, sun and contrails.
void ConstrainAll(const Constraints& constraints, Catalogue& catalogue);

/// A choice among the options whose inhibit flag is not 1, each with the same chance. A group
/// without an allowed option gets the option of its first row.
Choice PickChoice(const Catalogue& catalogue, const Constraints& constraints,
                  const RandomSource& random);

/// One uniform index from 0 to `highest`, which is at least 0.
std::int16_t PickIndex(std::int16_t highest, const RandomSource& random);

/// The chance of each of `checked` allowed options, as the constraint pages show it: at least two
/// digits before the point and one after it. None has a chance of 00.0.
std::string PercentageText(int checked);

}  // namespace nimbrel
