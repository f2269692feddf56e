#include "install/Report.h"

#include <algorithm>

#include "platform/text.h"

namespace nimbrel {

void Report::Add(const std::string& file, platform::FileStatus status) {
  using platform::FileStatus;
  if (status == FileStatus::kOk) {
    ++files;
    return;
  }
  if (status == FileStatus::kNoSource || status == FileStatus::kNoFolder) {
    return;
  }
  const bool known = std::any_of(failures.begin(), failures.end(), [&](const FileFailure& failure) {
    return platform::SameName(failure.file, file);
  });
  if (!known) {
    failures.push_back({file, status});
  }
}

}  // namespace nimbrel
