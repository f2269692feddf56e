#include "platform/inifile.h"

#include <sys/stat.h>

#include <algorithm>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/FileStamp.h"
#include "platform/IniDocument.h"
#include "platform/text.h"

namespace platform {
namespace {

constexpr std::size_t kMostBytes = std::size_t{16} << 20U;
constexpr std::size_t kMostFiles = 16;  ///< far more than the program reads

struct Change {
  std::string section;
  std::string key;
  std::string value;  ///< in the file's code page
};

/// What is known of one file.
struct IniFile {
  FileStamp stamp;         ///< of the state that `document` was made of
  std::int64_t taken = 0;  ///< when that was read
  IniDocument document;    ///< with `changes` in it
  std::vector<Change> changes;
  int batches = 0;
};

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): one thread, one file system
std::unordered_map<std::string, IniFile> files;

IniFile& Entry(const std::string& host) {
  if (files.size() >= kMostFiles && !files.contains(host)) {
    std::erase_if(files, [](const auto& file) { return file.second.batches == 0; });
  }
  return files[host];
}

void Rebuild(IniFile& file, std::string bytes) {
  file.document = IniDocument(std::move(bytes));
  for (const Change& change : file.changes) {
    file.document.Set(change.section, change.key, change.value);
  }
}

FileStatus Reread(const std::string& host, IniFile& file) {
  FileStatus status = FileStatus::kOk;
  const auto bytes = ReadFile(host, kMostBytes, &status);
  if (IsUnread(status)) {
    return status;
  }
  const std::string_view text =
      bytes ? std::string_view(reinterpret_cast<const char*>(bytes->data()), bytes->size()) : "";
  if (text != file.document.Original()) {
    Rebuild(file, std::string(text));
  }
  return status;
}

/// Brings what is known of a file up to what is on disk. A failure is not remembered: the file is
/// tried again at the next call.
FileStatus Refresh(const std::string& host, IniFile& file) {
  const std::int64_t now = StampClock();
  struct stat facts {};
  const FileStamp stamp = stat(host.c_str(), &facts) == 0 ? StampOf(facts) : FileStamp{};
  if (stamp != FileStamp{} && stamp == file.stamp && IsSettled(stamp, file.taken)) {
    return FileStatus::kOk;
  }
  const FileStatus status = Reread(host, file);
  file.stamp = status == FileStatus::kOk ? stamp : FileStamp{};
  file.taken = now;
  return status;
}

std::optional<std::string_view> FindValue(std::string_view section, std::string_view key,
                                          std::string_view path) {
  const std::string host = HostPath(path);
  IniFile& file = Entry(host);
  Refresh(host, file);
  return file.document.Find(section, key);
}

/// Writes what is collected for a file. Whatever comes of it, nothing stays collected.
FileStatus WriteChanges(const std::string& host) {
  IniFile& file = Entry(host);
  if (file.changes.empty()) {
    return FileStatus::kOk;
  }
  FileStatus status = Refresh(host, file);
  const std::string text = file.document.Render();
  file.changes.clear();
  // A file that is there and can't be read is not replaced by one that holds the new keys alone.
  if (status == FileStatus::kNoSource ||
      (status == FileStatus::kOk && text != file.document.Original())) {
    status = ReplaceFile(host, std::as_bytes(std::span(text)), Durability::kFlushedRename);
  }
  Rebuild(file, status == FileStatus::kOk ? text : file.document.Original());
  file.stamp = {};
  return status;
}

std::int32_t ParseInt(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) {
    text.remove_prefix(1);
  }
  std::uint32_t number = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') {
      break;
    }
    number = number * 10U + static_cast<std::uint32_t>(c - '0');
  }
  return static_cast<std::int32_t>(negative ? 0U - number : number);
}

}  // namespace

std::int32_t GetPrivateProfileIntA(std::string_view section, std::string_view key,
                                   std::int32_t fallback, std::string_view file) {
  const auto value = FindValue(section, key, file);
  return value ? ParseInt(*value) : fallback;
}

std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                     std::string_view fallback, std::size_t size,
                                     std::string_view file) {
  const std::size_t most = size == 0 ? 0 : size - 1;
  if (const auto value = FindValue(section, key, file)) {
    return FromAnsi(value->substr(0, most));
  }
  const std::size_t end = fallback.find_last_not_of(' ') + 1;  // 0 when it is nothing but blanks
  return FromAnsi(ToAnsi(fallback.substr(0, end)).substr(0, most));
}

FileStatus ReadProfile(std::string_view file) {
  const std::string host = HostPath(file);
  return Refresh(host, Entry(host));
}

FileStatus WritePrivateProfileStringA(std::string_view section, std::string_view key,
                                      std::string_view value, std::string_view file) {
  if (!IniDocument::CanHold(section, key, value)) {
    return FileStatus::kOther;
  }
  const std::string host = HostPath(file);
  IniFile& entry = Entry(host);
  const FileStatus status = Refresh(host, entry);
  if (status != FileStatus::kOk && status != FileStatus::kNoSource) {
    return status;
  }
  entry.changes.push_back({std::string(section), std::string(key), ToAnsi(value)});
  const Change& change = entry.changes.back();
  entry.document.Set(change.section, change.key, change.value);
  return entry.batches > 0 ? FileStatus::kOk : WriteChanges(host);
}

IniBatch::IniBatch(std::string_view file) : file_(HostPath(file)) { ++Entry(file_).batches; }

IniBatch::~IniBatch() { Commit(); }

FileStatus IniBatch::Commit() {
  if (!std::exchange(open_, false)) {
    return FileStatus::kOk;
  }
  --Entry(file_).batches;
  return WriteChanges(file_);
}

}  // namespace platform
