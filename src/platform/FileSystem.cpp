#include "platform/FileSystem.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>

#include "platform/Descriptor.h"
#include "platform/FileSystemState.h"
#include "platform/host_folder.h"
#include "platform/paths.h"
#include "platform/text.h"
#include "platform/wildcards.h"

namespace platform {
namespace {

constexpr std::string_view kTemporaryEnd = ".tmp";

/// True if a program that composes paths with backslashes can name the file.
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

bool Exists(const std::string& host) {
  struct stat facts {};
  return lstat(host.c_str(), &facts) == 0;
}

FileStatus CheckDeletable(const std::string& host, const struct stat& entry) {
  struct stat target = entry;
  if (S_ISLNK(entry.st_mode) && stat(host.c_str(), &target) != 0) {
    return FileStatus::kOk;  // of a link to nothing only the link is deleted
  }
  if (!S_ISREG(target.st_mode)) {
    return FileStatus::kNotAFile;
  }
  return (target.st_mode & S_IWUSR) == 0 ? FileStatus::kReadOnly : FileStatus::kOk;
}

/// A pattern cut before its last component, which alone may hold wildcards.
struct ListPattern {
  std::string_view folder;  ///< empty for the current one
  std::string_view name;

  explicit ListPattern(std::string_view pattern) {
    const std::size_t cut = pattern.find_last_of("\\/");
    const std::size_t start = cut == std::string_view::npos ? 0 : cut + 1;
    folder = pattern.substr(0, start);
    name = pattern.substr(start);
  }
  bool HasWildcards() const { return name.find_first_of("*?") != std::string_view::npos; }
};

/// The regular files of a folder that match a folded pattern, in the order of their folded names.
/// Returns an errno value.
int FindFiles(const std::string& folder, std::string_view pattern, std::uint16_t attributes,
              std::vector<std::string>& names) {
  std::vector<std::pair<std::string, std::string>> found;
  const int error = ScanFolder(folder, [&](const dirent& entry) {
    std::string key = FoldName(entry.d_name);
    if (IsListed(entry.d_name, attributes) && MatchesPattern(pattern, key) &&
        (entry.d_type == DT_REG || IsFile(JoinPath(folder, entry.d_name)))) {
      found.emplace_back(std::move(key), entry.d_name);
    }
  });
  std::sort(found.begin(), found.end());
  for (auto& [key, name] : found) {
    names.push_back(std::move(name));
  }
  return error;
}

/// Reads to the end, or to one byte more than `limit`. Returns an errno value.
int ReadAll(int descriptor, std::size_t expected, std::size_t limit,
            std::vector<std::byte>& bytes) {
  constexpr std::size_t kGrowth = std::size_t{64} << 10U;
  std::size_t filled = 0;
  bytes.resize(std::min(expected, limit) + 1);  // one byte more: the same call finds the end
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

/// Parses a positive number off the front of the text.
bool ParseNumber(std::string_view& text, pid_t& number) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return error == std::errc() && number > 0;
}

/// True for the temporary name of a process that has ended, or of this one, which has no temporary
/// file while it sweeps.
bool IsLeftOver(std::string_view name, std::string_view prefix) {
  name.remove_prefix(prefix.size());
  pid_t process = 0;
  pid_t count = 0;
  if (!ParseNumber(name, process) || !name.starts_with('-')) {
    return false;
  }
  name.remove_prefix(1);
  if (!ParseNumber(name, count) || name != kTemporaryEnd) {
    return false;
  }
  return process == getpid() || (kill(process, 0) != 0 && errno == ESRCH);
}

/// Where a caller that does not ask for the status lets it go.
FileStatus& OrIgnored(FileStatus* status, FileStatus& ignored) {
  return status == nullptr ? ignored : *status;
}

}  // namespace

FileSystem::FileSystem(std::string temporary_prefix) : state_(std::make_unique<FileSystemState>()) {
  state_->temporary_prefix = std::move(temporary_prefix);
}

FileSystem::~FileSystem() = default;

std::string FileSystem::HostPath(std::string_view path, FileStatus* status) {
  FileStatus ignored = FileStatus::kOk;
  return FindHostPath(state_->listings, path, OrIgnored(status, ignored));
}

std::vector<std::string> FileSystem::ListFiles(std::string_view pattern, std::uint16_t attributes,
                                               FileStatus* status) {
  FileStatus ignored = FileStatus::kOk;
  FileStatus& result = OrIgnored(status, ignored);
  result = FileStatus::kOk;
  const ListPattern parts(pattern);
  std::vector<std::string> names;
  // No last component lists nothing: a delete built on it would empty a folder.
  if (parts.name.empty() || pattern.find('\0') != std::string_view::npos) {
    return names;
  }
  if (!parts.HasWildcards()) {
    const std::string host = HostPath(pattern, &result);
    std::string name = SplitPath(host).name;
    if (IsFile(host) && IsListed(name, attributes)) {
      names.push_back(std::move(name));
    }
    return names;
  }
  const std::string folder = HostPath(parts.folder.empty() ? "." : parts.folder, &result);
  const int error = FindFiles(folder, FoldName(parts.name), attributes, names);
  result = Absence(error, result, FileStatus::kNoSource);
  return names;
}

bool FileSystem::FileExists(std::string_view path) { return IsFile(HostPath(path)); }

bool FileSystem::FolderExists(std::string_view path) { return IsFolder(HostPath(path)); }

FileStatus FileSystem::CreateFolder(std::string_view path) {
  FileStatus unlisted = FileStatus::kOk;
  const std::string host = HostPath(path, &unlisted);
  if (host.empty()) {
    return FileStatus::kNoFolder;
  }
  if (IsFolder(host)) {
    return FileStatus::kOk;
  }
  if (unlisted != FileStatus::kOk) {
    return unlisted;  // the folder may exist in another case
  }
  const PathParts parts = SplitPath(host);
  FolderListings::OwnChange change(state_->listings, parts.folder);
  if (mkdir(host.c_str(), S_IRWXU | S_IRWXG | S_IRWXO) == 0) {
    change.Added(parts.name);
    return FileStatus::kOk;
  }
  const int error = errno;
  if (error == EEXIST) {
    return IsFolder(host) ? FileStatus::kOk : FileStatus::kNotAFile;
  }
  return Absence(error, FileStatus::kOk, FileStatus::kNoFolder);
}

FileStatus FileSystem::DeleteFile(std::string_view path) {
  FileStatus unlisted = FileStatus::kOk;
  const std::string host = HostPath(path, &unlisted);
  struct stat entry {};
  if (lstat(host.c_str(), &entry) != 0) {
    return Absence(errno, unlisted, FileStatus::kOk);
  }
  if (const FileStatus status = CheckDeletable(host, entry); status != FileStatus::kOk) {
    return status;
  }
  const PathParts parts = SplitPath(host);
  FolderListings::OwnChange change(state_->listings, parts.folder);
  if (unlink(host.c_str()) != 0 && errno != ENOENT) {
    return StatusFromErrno(errno);
  }
  change.Removed(parts.name);
  return FileStatus::kOk;
}

std::optional<std::vector<std::byte>> FileSystem::ReadFile(std::string_view path, std::size_t limit,
                                                           FileStatus* status) {
  FileStatus ignored = FileStatus::kOk;
  FileStatus& result = OrIgnored(status, ignored);
  const Descriptor file(open(HostPath(path, &result).c_str(), kOpenToRead));
  std::vector<std::byte> bytes;
  result = file.IsOpen() ? ReadOpened(file, limit, bytes)
                         : Absence(errno, result, FileStatus::kNoSource);
  return result == FileStatus::kOk ? std::optional(std::move(bytes)) : std::nullopt;
}

bool FileSystem::LiesWithin(std::string_view path, std::string_view root, FileStatus* status) {
  FileStatus ignored = FileStatus::kOk;
  FileStatus& result = OrIgnored(status, ignored);
  std::string host = HostPath(path, &result);
  if (host.empty()) {
    return false;
  }
  // What does not exist yet leads where its deepest existing folder does. A link exists even if its
  // end does not, and that end may lie elsewhere.
  while (!Exists(host) && host != "/" && host != ".") {
    host = SplitPath(host).folder;
  }
  std::string real;
  if (!OpenReal(host, O_PATH, real).IsOpen()) {
    result = StatusFromErrno(errno);
    return false;
  }
  FileStatus root_status = FileStatus::kOk;
  const bool inside = IsInRoot(state_->listings, real, root, root_status);
  result = root_status == FileStatus::kOk ? result : root_status;
  return inside;
}

bool FileSystem::IsTemporary(std::string_view name) const {
  return name.starts_with(state_->temporary_prefix) && name.ends_with(kTemporaryEnd);
}

FileStatus FileSystem::SweepTemporaries(std::string_view folder) {
  FileStatus status = FileStatus::kOk;
  const std::string host = HostPath(folder, &status);
  std::vector<std::string> left_over;
  const int error = ScanFolder(host, [&](const dirent& entry) {
    if (IsTemporary(entry.d_name) && IsLeftOver(entry.d_name, state_->temporary_prefix)) {
      left_over.emplace_back(entry.d_name);
    }
  });
  status = Absence(error, status, FileStatus::kOk);
  FolderListings::OwnChange change(state_->listings, host);
  for (const std::string& name : left_over) {
    if (unlink(JoinPath(host, name).c_str()) == 0 || errno == ENOENT) {
      change.Removed(name);
    } else {
      status = StatusFromErrno(errno);
    }
  }
  return status;
}

}  // namespace platform
