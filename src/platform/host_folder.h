#pragma once

#include <dirent.h>

#include <functional>
#include <string>
#include <string_view>

namespace platform {

/// A host path cut before its last component: "a" gives "." and "a", "/a" gives "/" and "a".
struct PathParts {
  std::string folder;
  std::string name;
};
PathParts SplitPath(const std::string& path);
std::string JoinPath(const std::string& folder, std::string_view name);

/// Calls `visit` for each entry of a folder but "." and "..". Returns the errno value of a folder
/// that can't be read to its end.
int ScanFolder(const std::string& folder, const std::function<void(const dirent& entry)>& visit);

}  // namespace platform
