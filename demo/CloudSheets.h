#pragma once

#include <array>
#include <span>

#include "CloudVolume.h"

namespace demo {

enum class Form { kHeap, kTower, kLayer, kRoll, kShred };

/// One option of solid, stratus or wispy clouds.
struct CloudRecipe {
  Form form;
  CloudLook look;
};

enum class CloudGroup { kSolid, kStratus, kWispy };
/// In the catalogue's order, then the simulator's own.
std::span<const CloudRecipe> CloudRecipes(CloudGroup group);

/// A rectangle of the 512 x 512 sheet that belongs to a group.
struct SheetCell {
  int left;
  int top;
  int width;
  int height;
};
/// The pictures in a group's own part of the sheet.
std::span<const SheetCell> CloudCells(CloudGroup group);

/// The whole sheet at 512 x 512, clear outside the group's own cells.
Canvas PaintSheet(CloudGroup group, const CloudRecipe& recipe, std::uint32_t seed);

/// One such cloud alone, in a square.
Canvas PaintPuff(const CloudRecipe& recipe, int side, std::uint32_t seed);

}  // namespace demo
