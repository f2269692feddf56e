#include "platform/inifile.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "platform/FileSystem.h"
#include "platform/text.h"

namespace platform {
namespace {

constexpr std::size_t kMaxBytes = std::size_t{16} << 20U;

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

IniFile::IniFile(FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {
  const auto bytes = files_.ReadFile(path_, kMaxBytes, &status_);
  if (bytes) {
    document_ = IniDocument({reinterpret_cast<const char*>(bytes->data()), bytes->size()});
  }
}

FileStatus IniFile::Save() {
  if (status_ != FileStatus::kOk && status_ != FileStatus::kNoSource) {
    return status_;
  }
  std::string text = document_.Render();
  if (text == document_.Original()) {
    return FileStatus::kOk;
  }
  const FileStatus status =
      files_.ReplaceFile(path_, std::as_bytes(std::span(text)), Durability::kFlushedRename);
  if (status == FileStatus::kOk) {
    status_ = status;
    document_ = IniDocument(std::move(text));
  }
  return status;
}

std::int32_t GetPrivateProfileIntA(std::string_view section, std::string_view key,
                                   std::int32_t fallback, const IniFile& file) {
  const auto value = file.document().Find(section, key);
  return value ? ParseInt(*value) : fallback;
}

std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                     std::string_view fallback, std::size_t size,
                                     const IniFile& file) {
  const std::size_t maximum = size == 0 ? 0 : size - 1;
  if (const auto value = file.document().Find(section, key)) {
    return FromAnsi(value->substr(0, maximum));
  }
  const std::size_t end = fallback.find_last_not_of(' ') + 1;  // 0 for nothing but blanks
  return FromAnsi(ToAnsi(fallback.substr(0, end)).substr(0, maximum));
}

FileStatus WritePrivateProfileStringA(std::string_view section, std::string_view key,
                                      std::string_view value, IniFile& file) {
  if (!IniDocument::CanHold(section, key, value)) {
    return FileStatus::kOther;
  }
  file.document().Set(section, key, ToAnsi(value));
  return FileStatus::kOk;
}

}  // namespace platform
