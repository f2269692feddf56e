#include "platform/FileStatus.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace platform {
namespace {

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

std::string_view Describe(FileStatus status) {
  constexpr auto kWords = std::to_array<std::string_view>(
      {"is in place", "was not found", "has no destination folder", "is read-only",
       "can't be read or written: you have no permission", "does not fit: the disk is full",
       "is in use", "lies outside the folder it belongs to", "is not a file", "is too large",
       "could not be read or written"});
  static_assert(kWords.size() == static_cast<std::size_t>(FileStatus::kOther) + 1);
  return kWords[static_cast<std::size_t>(status)];
}

}  // namespace platform
