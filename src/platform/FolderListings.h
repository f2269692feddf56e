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

/// Calls `visit` for each entry of a folder but "." and "..". False when it can't be read to
/// its end, with the reason in errno.
bool ScanFolder(const std::string& folder, const std::function<void(const dirent& entry)>& visit);

/// Finds the name in `folder` that equals `name` but for its case; of several the first in byte
/// order, and empty when there is none. False when the folder can't be read, with the reason in
/// errno. Answers from a listing that is read once and again only when the folder's stamp says so.
bool FindIgnoringCase(const std::string& folder, std::string_view name, std::string& found);

/// Lives round a change that the program itself makes in a folder, and keeps the folder's listing
/// good through it: a run of hundreds of new files must not read a large folder for each.
class OwnFolderChange {
 public:
  explicit OwnFolderChange(std::string folder);
  OwnFolderChange(const OwnFolderChange&) = delete;
  OwnFolderChange& operator=(const OwnFolderChange&) = delete;
  ~OwnFolderChange();

  void Added(std::string_view name) { added_ = name; }
  void Removed(std::string_view name) { removed_ = name; }

 private:
  std::string folder_;
  std::string added_;
  std::string removed_;
  bool was_valid_ = false;
};

}  // namespace platform
