#include "platform/paths.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <string_view>
#include <vector>

#include "platform/FolderListings.h"
#include "platform/host_folder.h"

namespace platform {
namespace {

/// Adds a component to a normalised path; "." adds nothing and ".." takes the last one off.
void ApplyComponent(std::vector<std::string_view>& components, std::string_view component,
                    bool absolute) {
  if (component.empty() || component == ".") {
    return;
  }
  const bool upwards = component == "..";
  if (upwards && !components.empty() && components.back() != "..") {
    components.pop_back();
  } else if (!upwards || !absolute) {
    components.push_back(component);
  }
}

/// Separators turned, "." and ".." resolved by text.
std::string Normalise(std::string_view path) {
  constexpr std::string_view kSeparators = "\\/";
  const bool absolute = kSeparators.find(path.front()) != std::string_view::npos;
  std::vector<std::string_view> components;
  while (!path.empty()) {
    const std::size_t cut = std::min(path.find_first_of(kSeparators), path.size());
    ApplyComponent(components, path.substr(0, cut), absolute);
    path.remove_prefix(std::min(cut + 1, path.size()));
  }
  std::string text = absolute ? "/" : "";
  for (const std::string_view component : components) {
    text += text.empty() || text.back() == '/' ? "" : "/";
    text += component;
  }
  return text.empty() ? "." : text;
}

bool Exists(const std::string& path) {
  struct stat facts {};
  return lstat(path.c_str(), &facts) == 0;
}

bool IsAbsence(int error) { return error == ENOENT || error == ENOTDIR; }

/// The path as it is or would be on disk. Looks for the whole path, then for its last component in
/// another case, and only then for its folder in another case: most paths are as composed.
std::string MatchCase(FolderListings& listings, std::string path, FileStatus& unlisted) {
  if (path == "." || path == "/" || Exists(path)) {
    return path;
  }
  auto [folder, name] = SplitPath(path);
  std::string found;
  if (listings.FindIgnoringCase(folder, name, found) != 0) {
    folder = MatchCase(listings, std::move(folder), unlisted);
    const int error =
        Exists(JoinPath(folder, name)) ? 0 : listings.FindIgnoringCase(folder, name, found);
    unlisted = error == 0 || IsAbsence(error) ? unlisted : StatusFromErrno(error);
  }
  return JoinPath(folder, found.empty() ? name : found);
}

std::string RealPathOf(int descriptor) {
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  std::array<char, PATH_MAX> buffer{};
  const ssize_t length = readlink(link.c_str(), buffer.data(), buffer.size());
  const bool whole = length > 0 && static_cast<std::size_t>(length) < buffer.size();
  return whole && buffer[0] == '/' ? std::string(buffer.data(), static_cast<std::size_t>(length))
                                   : std::string();
}

bool IsBelow(const std::string& real, const std::string& root) {
  if (root.empty() || !real.starts_with(root)) {
    return false;
  }
  return real.size() == root.size() || root.back() == '/' || real[root.size()] == '/';
}

}  // namespace

std::string FindHostPath(FolderListings& listings, std::string_view path, FileStatus& unlisted) {
  unlisted = FileStatus::kOk;
  if (path.empty() || path.find('\0') != std::string_view::npos) {
    return {};
  }
  std::string text = Normalise(path);
  return text.size() < PATH_MAX ? MatchCase(listings, text, unlisted) : text;
}

FileStatus Absence(int error, FileStatus unlisted, FileStatus absent) {
  if (!IsAbsence(error)) {
    return StatusFromErrno(error);
  }
  return unlisted == FileStatus::kOk ? absent : unlisted;
}

Descriptor OpenReal(const std::string& host, int flags, std::string& real) {
  // Most paths hold no link and are their own real path.
  open_how how{};
  how.flags = static_cast<unsigned>(flags | O_CLOEXEC);
  how.resolve = RESOLVE_NO_SYMLINKS;
  Descriptor place(
      static_cast<int>(syscall(SYS_openat2, AT_FDCWD, host.c_str(), &how, sizeof how)));
  if (place.IsOpen() && host.front() == '/') {
    real = host;
    return place;
  }
  place = Descriptor(open(host.c_str(), flags | O_CLOEXEC));
  real = place.IsOpen() ? RealPathOf(place.Number()) : std::string();
  return place;
}

bool IsInRoot(FolderListings& listings, const std::string& real, std::string_view root,
              FileStatus& status) {
  const std::string host = FindHostPath(listings, root, status);
  std::string real_root;
  const bool opened = OpenReal(host, O_PATH | O_DIRECTORY, real_root).IsOpen();
  status = opened ? FileStatus::kOk : Absence(errno, status, FileStatus::kNoFolder);
  return opened && IsBelow(real, real_root);
}

}  // namespace platform
