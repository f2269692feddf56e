#include "platform/FileSteps.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace platform {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-avoid-non-const-global-variables): one device for all
FailureHook failure_hook = nullptr;

struct Meaning {
  int error;
  FileStatus status;
};
constexpr auto kMeanings = std::to_array<Meaning>({
    {0, FileStatus::kOk},
    {EACCES, FileStatus::kNoPermission},
    {EPERM, FileStatus::kNoPermission},
    {EROFS, FileStatus::kNoPermission},
    {ENOSPC, FileStatus::kNoSpace},
    {EDQUOT, FileStatus::kNoSpace},
    {EFBIG, FileStatus::kNoSpace},
    {EBUSY, FileStatus::kBusy},
    {ETXTBSY, FileStatus::kBusy},
    {EAGAIN, FileStatus::kBusy},
    {EISDIR, FileStatus::kNotAFile},
    {ENXIO, FileStatus::kNotAFile},
});

}  // namespace

FileStatus StatusFromErrno(int error) {
  const auto* meaning = std::find_if(kMeanings.begin(), kMeanings.end(),
                                     [error](const Meaning& row) { return row.error == error; });
  return meaning == kMeanings.end() ? FileStatus::kOther : meaning->status;
}

int FailureAt(const char* step, const std::string& path) {
  return failure_hook == nullptr ? 0 : failure_hook(step, path.c_str());
}

void SetFailureHook(FailureHook hook) { failure_hook = hook; }

std::string_view Describe(FileStatus status) {
  constexpr auto kWords = std::to_array<std::string_view>(
      {"is in place", "was not found", "has no folder to go to", "is read-only",
       "may not be written by this user", "found no room on the disk", "is in use",
       "would lie outside its folder", "is not a file", "is too large", "could not be written"});
  const auto index = static_cast<std::size_t>(status);
  return index < kWords.size() ? kWords[index] : kWords.back();
}

}  // namespace platform
