#pragma once

#include <string>
#include <string_view>

namespace platform {

/// The real path behind an open place, links followed; empty when the system has none for it.
std::string RealPathOf(int descriptor);

/// The real path of a composed path to a folder; empty when there is no such folder.
std::string RealFolder(std::string_view path);

/// Whether a real path is `root` or lies below it.
bool IsBelow(const std::string& real, const std::string& root);

}  // namespace platform
