#include "platform/files.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>

#include "platform/Descriptor.h"
#include "platform/FileSteps.h"
#include "platform/FolderListings.h"
#include "platform/paths.h"
#include "platform/text.h"

namespace platform {
namespace {

bool IsTail(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80; }

/// Drops the first character of a text that is not empty.
void DropCharacter(std::string_view& text) {
  do {
    text.remove_prefix(1);
  } while (!text.empty() && IsTail(text.front()));
}

/// Whether a folded name is what a folded pattern describes. On a mismatch the latest star takes
/// one character more, so the cost is bounded by the product of the two lengths.
bool Matches(std::string_view pattern, std::string_view name) {
  std::string_view star_pattern;
  std::string_view star_name;
  bool star = false;
  while (!name.empty()) {
    if (pattern.starts_with('*')) {
      star = true;
      star_pattern = pattern.substr(1);
      star_name = name;
      pattern = star_pattern;
    } else if (pattern.starts_with('?')) {
      pattern.remove_prefix(1);
      DropCharacter(name);
    } else if (!pattern.empty() && pattern.front() == name.front()) {
      pattern.remove_prefix(1);
      name.remove_prefix(1);
    } else if (star) {
      DropCharacter(star_name);
      pattern = star_pattern;
      name = star_name;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*') == std::string_view::npos;
}

/// A pattern's ".*" also stands for no extension at all.
bool MatchesPattern(std::string_view pattern, std::string_view name) {
  return Matches(pattern, name) ||
         (pattern.ends_with(".*") && Matches(pattern.substr(0, pattern.size() - 2), name));
}

/// Whether a program that composes paths with backslashes may see the name at all.
bool IsListed(std::string_view name, std::uint16_t attributes) {
  return name.find('\\') == std::string_view::npos &&
         (!name.starts_with('.') || (attributes & kHidden) != 0);
}

bool IsFile(const std::string& host) {
  struct stat facts {};
  return stat(host.c_str(), &facts) == 0 && S_ISREG(facts.st_mode);
}

bool IsFolder(const std::string& host) {
  struct stat facts {};
  return stat(host.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

/// What the lack of something says, after a look for it that may have failed itself.
FileStatus Absence(int error, int unread, FileStatus absent) {
  if (error != ENOENT && error != ENOTDIR) {
    return StatusFromErrno(error);
  }
  return unread == 0 ? absent : StatusFromErrno(unread);
}

std::vector<std::string> MatchingFiles(std::string_view path, std::string_view pattern,
                                       std::uint16_t attributes, FileStatus& status) {
  int unread = 0;
  const std::string folder = FindHostPath(path, unread);
  const std::string folded = FoldName(pattern);
  std::vector<std::pair<std::string, std::string>> found;
  const bool scanned = ScanFolder(folder, [&](const dirent& entry) {
    std::string key = FoldName(entry.d_name);
    if (IsListed(entry.d_name, attributes) && MatchesPattern(folded, key) &&
        (entry.d_type == DT_REG || IsFile(JoinPath(folder, entry.d_name)))) {
      found.emplace_back(std::move(key), entry.d_name);
    }
  });
  status = scanned ? FileStatus::kOk : Absence(errno, unread, FileStatus::kNoSource);
  std::sort(found.begin(), found.end());
  std::vector<std::string> names;
  names.reserve(found.size());
  for (auto& [key, name] : found) {
    names.push_back(std::move(name));
  }
  return names;
}

FileStatus Deletable(const std::string& host, const struct stat& entry) {
  struct stat target = entry;
  if (S_ISLNK(entry.st_mode) && stat(host.c_str(), &target) != 0) {
    return FileStatus::kOk;  // a link to nothing is only itself
  }
  if (!S_ISREG(target.st_mode)) {
    return FileStatus::kNotAFile;
  }
  return (target.st_mode & S_IWUSR) == 0 ? FileStatus::kReadOnly : FileStatus::kOk;
}

/// Reads to the end, or to one byte more than `limit`. Returns an errno value.
int ReadAll(int descriptor, std::size_t expected, std::size_t limit,
            std::vector<std::byte>& bytes) {
  constexpr std::size_t kGrowth = std::size_t{64} << 10U;
  std::size_t filled = 0;
  bytes.resize(std::min(expected, limit) + 1);  // the byte more finds the end in one call
  for (;;) {
    const ssize_t count = read(descriptor, bytes.data() + filled, bytes.size() - filled);
    if (count < 0 && errno != EINTR) {
      return errno;
    }
    filled += count > 0 ? static_cast<std::size_t>(count) : 0;
    if (count == 0 || filled > limit) {
      bytes.resize(filled);
      return 0;
    }
    if (filled == bytes.size()) {
      bytes.resize(filled + std::min(kGrowth + filled, limit + 1 - filled));
    }
  }
}

FileStatus ReadOpened(const Descriptor& file, std::size_t limit, std::vector<std::byte>& bytes) {
  struct stat facts {};
  if (fstat(file.Number(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
    return FileStatus::kNotAFile;
  }
  limit = std::min(limit, SIZE_MAX - 1);
  const auto size = static_cast<std::size_t>(facts.st_size);
  if (size > limit) {
    return FileStatus::kTooLarge;
  }
  const int error = ReadAll(file.Number(), size, limit, bytes);
  return error == 0 && bytes.size() > limit ? FileStatus::kTooLarge : StatusFromErrno(error);
}

bool TakeNumber(std::string_view& text, pid_t& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return error == std::errc() && number > 0;
}

/// Whether a name is one of our temporaries whose process is gone. This process writes none while
/// it asks.
bool IsLeftOver(std::string_view name) {
  constexpr std::string_view kStart = kTemporaryPattern.substr(0, kTemporaryPattern.find('*'));
  constexpr std::string_view kEnd = kTemporaryPattern.substr(kTemporaryPattern.find('*') + 1);
  if (!name.starts_with(kStart)) {
    return false;
  }
  name.remove_prefix(kStart.size());
  pid_t process = 0;
  pid_t count = 0;
  if (!TakeNumber(name, process) || !name.starts_with('-')) {
    return false;
  }
  name.remove_prefix(1);
  if (!TakeNumber(name, count) || name != kEnd) {
    return false;
  }
  return process == getpid() || (kill(process, 0) != 0 && errno == ESRCH);
}

}  // namespace

std::vector<std::string> ListFiles(std::string_view pattern, std::uint16_t attributes,
                                   FileStatus* status) {
  FileStatus ignored = FileStatus::kOk;
  FileStatus& result = status == nullptr ? ignored : *status;
  result = FileStatus::kOk;
  const std::size_t cut = pattern.find_last_of("\\/");
  const std::size_t start = cut == std::string_view::npos ? 0 : cut + 1;
  const std::string_view last = pattern.substr(start);
  // No last component lists nothing: a delete built on it would empty a folder.
  if (last.empty() || pattern.find('\0') != std::string_view::npos) {
    return {};
  }
  if (last.find_first_of("*?") != std::string_view::npos) {
    return MatchingFiles(start == 0 ? "." : pattern.substr(0, start), last, attributes, result);
  }
  const std::string host = HostPath(pattern);
  std::string name = SplitPath(host).name;
  return IsFile(host) && IsListed(name, attributes) ? std::vector{std::move(name)}
                                                    : std::vector<std::string>();
}

bool FileExists(std::string_view path) { return IsFile(HostPath(path)); }

bool FolderExists(std::string_view path) { return IsFolder(HostPath(path)); }

bool CreateFolder(std::string_view path) {
  int unread = 0;
  const std::string host = FindHostPath(path, unread);
  if (host.empty() || IsFolder(host)) {
    return !host.empty();
  }
  if (unread != 0) {
    return false;  // it may stand there in another case
  }
  const PathParts parts = SplitPath(host);
  OwnFolderChange change(parts.folder);
  if (mkdir(host.c_str(), S_IRWXU | S_IRWXG | S_IRWXO) != 0) {
    return IsFolder(host);
  }
  change.Added(parts.name);
  return true;
}

FileStatus DeleteFile(std::string_view path) {
  int unread = 0;
  const std::string host = FindHostPath(path, unread);
  struct stat entry {};
  if (lstat(host.c_str(), &entry) != 0) {
    return Absence(errno, unread, FileStatus::kOk);
  }
  if (const FileStatus status = Deletable(host, entry); status != FileStatus::kOk) {
    return status;
  }
  if (const int error = FailureAt("delete", host); error != 0) {
    return StatusFromErrno(error);
  }
  const PathParts parts = SplitPath(host);
  OwnFolderChange change(parts.folder);
  if (unlink(host.c_str()) != 0 && errno != ENOENT) {
    return StatusFromErrno(errno);
  }
  change.Removed(parts.name);
  return FileStatus::kOk;
}

std::optional<std::vector<std::byte>> ReadFile(std::string_view path, std::size_t limit,
                                               FileStatus* status) {
  int unread = 0;
  const Descriptor file(open(FindHostPath(path, unread).c_str(), kOpenToRead));
  std::vector<std::byte> bytes;
  const FileStatus result = file.IsOpen() ? ReadOpened(file, limit, bytes)
                                          : Absence(errno, unread, FileStatus::kNoSource);
  if (status != nullptr) {
    *status = result;
  }
  return result == FileStatus::kOk ? std::optional(std::move(bytes)) : std::nullopt;
}

FileStatus RemoveTemporaries(std::string_view folder) {
  const std::string host = HostPath(folder);
  std::vector<std::string> left_over;
  const bool scanned = ScanFolder(host, [&](const dirent& entry) {
    if (IsLeftOver(entry.d_name)) {
      left_over.emplace_back(entry.d_name);
    }
  });
  FileStatus status = scanned ? FileStatus::kOk : Absence(errno, 0, FileStatus::kOk);
  for (const std::string& name : left_over) {
    // A listing known before is carried through the deletions; without, every look until the
    // clock's next tick would read the folder again.
    std::string ignored;
    FindIgnoringCase(host, name, ignored);
    OwnFolderChange change(host);
    if (unlink(JoinPath(host, name).c_str()) == 0 || errno == ENOENT) {
      change.Removed(name);
    } else {
      status = StatusFromErrno(errno);
    }
  }
  return status;
}

}  // namespace platform
