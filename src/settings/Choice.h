#pragma once

#include <cstdint>

#include "settings/Groups.h"

namespace nimbrel {

/// Option indices as they are stored: one for each group. They may lie outside the catalogue.
using Selection = PerGroup<std::int16_t>;

/// One complete choice: what an install installs and what the stores keep.
struct Choice {
  Selection option;
  bool sun = false;        ///< the replacement sun
  bool contrails = false;  ///< extended contrails
  bool operator==(const Choice&) const = default;
};

/// How this machine wants its cumulus texture; kept in the information file, not in a choice.
struct MachineSwitches {
  bool dxt = false;   ///< DXT3, else 32-bit
  bool fast = false;  ///< 256 x 256 pixels, else 512 x 512
  bool operator==(const MachineSwitches&) const = default;
};

}  // namespace nimbrel
