#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The real path behind an open place, links followed; empty when the system has none for it.
std::string RealPathOf(int descriptor);

/// Whether a real path is the folder `root`, a composed path, or lies below it. False when there is
/// no such folder.
bool IsInRoot(const std::string& real, std::string_view root);

}  // namespace platform
