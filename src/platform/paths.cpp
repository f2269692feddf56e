#include "platform/paths.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/FileStamp.h"
#include "platform/FileSteps.h"
#include "platform/FolderListings.h"
#include "platform/files.h"

namespace platform {
namespace {

void TakeComponent(std::vector<std::string_view>& components, std::string_view component,
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
    TakeComponent(components, path.substr(0, cut), absolute);
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

/// The path as it is or would be on disk. At most two looks at the disk for an existing folder.
std::string MatchCase(std::string path, int& unread) {
  if (path == "." || path == "/" || Exists(path)) {
    return path;
  }
  auto [folder, name] = SplitPath(path);
  std::string found;
  if (!FindIgnoringCase(folder, name, found)) {
    folder = MatchCase(std::move(folder), unread);
    if (!Exists(JoinPath(folder, name)) && !FindIgnoringCase(folder, name, found) &&
        !IsAbsence(errno)) {
      unread = errno;
    }
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

struct Root {
  std::string host;
  FileStamp stamp;
  std::string real;
  int error = 0;  ///< errno value of the look at it
};

FileStamp FolderStamp(const std::string& host) {
  struct stat facts {};
  return stat(host.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode) ? StampOf(facts) : FileStamp{};
}

Root FindRoot(std::string_view path) {
  std::string host = HostPath(path);
  const FileStamp stamp = FolderStamp(host);
  std::string real;
  const int error = OpenReal(host, O_PATH | O_DIRECTORY, real).IsOpen() ? 0 : errno;
  return {std::move(host), stamp, std::move(real), error};
}

bool IsBelow(const std::string& real, const std::string& root) {
  if (root.empty() || !real.starts_with(root)) {
    return false;
  }
  return real.size() == root.size() || root.back() == '/' || real[root.size()] == '/';
}

}  // namespace

std::string HostPath(std::string_view path, FileStatus* status) {
  int unread = 0;
  std::string host = FindHostPath(path, unread);
  if (status != nullptr) {
    *status = StatusFromErrno(unread);
  }
  return host;
}

std::string FindHostPath(std::string_view path, int& unread) {
  unread = 0;
  if (path.empty() || path.find('\0') != std::string_view::npos) {
    return {};
  }
  std::string text = Normalise(path);
  return text.size() < PATH_MAX ? MatchCase(text, unread) : text;
}

Descriptor OpenReal(const std::string& host, int flags, std::string& real) {
  // Most paths hold no link: then the path is its own real one, and nothing more need be asked.
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

bool IsInRoot(const std::string& real, std::string_view root, int* error) {
  constexpr std::size_t kMostRoots = 16;
  // Asked for every file of a run, and the answer hardly ever changes.
  static std::unordered_map<std::string, Root> roots;
  const auto known = roots.find(std::string(root));
  if (known != roots.end() && FolderStamp(known->second.host) == known->second.stamp &&
      IsBelow(real, known->second.real)) {
    return true;
  }
  Root fresh = FindRoot(root);
  const bool inside = IsBelow(real, fresh.real);
  if (error != nullptr) {
    *error = fresh.error;
  }
  if (roots.size() >= kMostRoots) {
    roots.clear();
  }
  roots.insert_or_assign(std::string(root), std::move(fresh));
  return inside;
}

bool LiesWithin(std::string_view path, std::string_view root, FileStatus* status) {
  FileStatus ignored = FileStatus::kOk;
  FileStatus& told = status == nullptr ? ignored : *status;
  std::string host = HostPath(path, &told);
  if (host.empty()) {
    return false;
  }
  // What does not exist yet can't lead anywhere else than its deepest existing folder does; a link
  // whose end is missing could.
  while (!Exists(host) && host != "/" && host != ".") {
    host = SplitPath(host).folder;
  }
  std::string real;
  int error = OpenReal(host, O_PATH, real).IsOpen() ? 0 : errno;
  const bool inside = error == 0 && IsInRoot(real, root, &error);
  told = error == 0 ? told : StatusFromErrno(error);
  return inside;
}

}  // namespace platform
