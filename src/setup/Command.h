#pragma once

#include <string>
#include <vector>

#include "setup/Dialogue.h"
#include "setup/Places.h"

namespace nimbrel {

/// Exit statuses.
inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;  ///< also if the user answered no
inline constexpr int kUsage = 2;

/// The whole of nimbrelctl, as its manual page describes it. `arguments` without the command's own
/// name.
int RunCommand(const std::vector<std::string>& arguments, const SetupSources& sources,
               const Console& console);

}  // namespace nimbrel
