#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "setup/Places.h"

namespace nimbrel {

/// What setup reads its answers from and writes to.
struct Console {
  std::istream& in;
  std::ostream& out;
  std::ostream& err;
};

/// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;  ///< or the user has said no
inline constexpr int kUsage = 2;

/// The whole command, as its manual page has it. `arguments` without the command's own name.
int RunSetup(const std::vector<std::string>& arguments, const SetupSources& sources,
             const Console& console);

}  // namespace nimbrel
