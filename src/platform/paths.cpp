#include "platform/paths.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <climits>
#include <string_view>
#include <vector>

#include "platform/Descriptor.h"
#include "platform/FolderListings.h"
#include "platform/files.h"

namespace platform {
namespace {

void TakeComponent(std::vector<std::string_view>& components, std::string_view component,
                   bool absolute) {
  if (component.empty() || component == ".") {
    return;
  }
  if (component != "..") {
    components.push_back(component);
  } else if (!components.empty() && components.back() != "..") {
    components.pop_back();
  } else if (!absolute) {
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

/// The longest beginning of `path`, cut at a separator, that exists as written: "/" or "." when
/// nothing else does.
std::string ExistingBeginning(const std::string& path) {
  std::string beginning = path;
  while (!Exists(beginning)) {
    std::string folder = SplitPath(beginning).folder;
    if (folder == beginning) {
      break;
    }
    beginning = std::move(folder);
  }
  return beginning;
}

/// What `path` has behind `beginning`, without a leading separator.
std::string_view Rest(std::string_view path, const std::string& beginning) {
  if (beginning == "." && path != ".") {
    return path;
  }
  path.remove_prefix(beginning.size());
  return path.starts_with('/') ? path.substr(1) : path;
}

std::string MatchCase(const std::string& path) {
  std::string matched = ExistingBeginning(path);
  std::string_view rest = Rest(path, matched);
  while (!rest.empty()) {
    const std::string_view component = rest.substr(0, rest.find('/'));
    std::string next = JoinPath(matched, component);
    if (!Exists(next)) {
      const std::string name = FindIgnoringCase(matched, component);
      if (name.empty()) {
        return JoinPath(matched, rest);
      }
      next = JoinPath(matched, name);
    }
    matched = std::move(next);
    rest.remove_prefix(std::min(component.size() + 1, rest.size()));
  }
  return matched;
}

}  // namespace

std::string HostPath(std::string_view path) {
  if (path.empty() || path.find('\0') != std::string_view::npos) {
    return {};
  }
  std::string text = Normalise(path);
  return text.size() < PATH_MAX ? MatchCase(text) : text;
}

std::string RealPathOf(int descriptor) {
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  std::array<char, PATH_MAX> buffer{};
  const ssize_t length = readlink(link.c_str(), buffer.data(), buffer.size());
  const bool whole = length > 0 && static_cast<std::size_t>(length) < buffer.size();
  return whole && buffer[0] == '/' ? std::string(buffer.data(), static_cast<std::size_t>(length))
                                   : std::string();
}

std::string RealFolder(std::string_view path) {
  const Descriptor place = OpenPlace(HostPath(path), O_DIRECTORY);
  return place.IsOpen() ? RealPathOf(place.Number()) : std::string();
}

bool IsBelow(const std::string& real, const std::string& root) {
  if (root.empty() || !real.starts_with(root)) {
    return false;
  }
  return real.size() == root.size() || root.back() == '/' || real[root.size()] == '/';
}

bool LiesWithin(std::string_view path, std::string_view root) {
  const std::string real_root = RealFolder(root);
  std::string place_path = HostPath(path);
  if (real_root.empty() || place_path.empty()) {
    return false;
  }
  // What does not exist yet can't lead anywhere else than its deepest existing folder does; a link
  // whose end is missing could.
  place_path = ExistingBeginning(place_path);
  const Descriptor place = OpenPlace(place_path);
  return place.IsOpen() && IsBelow(RealPathOf(place.Number()), real_root);
}

}  // namespace platform
