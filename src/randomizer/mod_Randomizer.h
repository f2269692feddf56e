#pragma once

#include <cstdint>
#include <string>

namespace nimbrel {

/// The random draw within the constraints that the user has ticked.

/// Copies every constraint list into the inhibit flags and draws a selection into the
/// RandomizerRecord, dated now; its Source is left as it was.
void RandomizeSelection();

/// Makes the RandomizerRecord the CurrentSelection.
void ApplyRandomSelection();

/// Copies every constraint list and the two switch boxes into the inhibit flags, and writes the
/// flags to the information file.
void SaveConstraints();

/// One uniform draw from 0 to `highest`, which is at least 0.
std::int16_t DrawIndex(std::int16_t highest);

/// The chance of each of `checked` allowed options, as the constraint pages show it: at least two
/// digits before the point and one behind it. None has a chance of 00.0.
std::string PercentageText(int checked);

}  // namespace nimbrel
