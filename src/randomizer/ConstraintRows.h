#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace nimbrel {

/// What the randomizer asks of the constraint pages: while the program runs, their lists and check
/// boxes are the authority on what may be drawn. Either call loads a page that is not there yet.

struct ConstraintRow {
  std::int32_t option;  ///< index in the catalogue; the row's place says nothing about it
  bool checked;
};

/// The list of a group (its place in kOptionGroups), in the list's own order.
std::vector<ConstraintRow> ConstraintRows(std::size_t group);

struct SwitchConstraints {
  bool sun;  ///< whether a draw may turn the switch on
  bool contrails;
};
SwitchConstraints AllowedSwitches();

}  // namespace nimbrel
