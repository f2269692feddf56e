#include "platform/host_folder.h"

#include <cerrno>
#include <memory>

namespace platform {

PathParts SplitPath(const std::string& path) {
  const std::size_t cut = path.rfind('/');
  if (cut == std::string::npos) {
    return {".", path};
  }
  return {cut == 0 ? "/" : path.substr(0, cut), path.substr(cut + 1)};
}

std::string JoinPath(const std::string& folder, std::string_view name) {
  if (folder == ".") {
    return std::string(name);
  }
  std::string path = folder;
  if (path.back() != '/') {
    path += '/';
  }
  return path += name;
}

int ScanFolder(const std::string& folder, const std::function<void(const dirent& entry)>& visit) {
  const std::unique_ptr<DIR, int (*)(DIR*)> stream(opendir(folder.c_str()), closedir);
  if (!stream) {
    return errno;
  }
  for (;;) {
    errno = 0;  // the only sign that tells a failure from the end
    const dirent* const entry = readdir(stream.get());
    if (entry == nullptr) {
      return errno;
    }
    const std::string_view name = entry->d_name;
    if (name != "." && name != "..") {
      visit(*entry);
    }
  }
}

}  // namespace platform
