#include "platform/FileStamp.h"

#include <algorithm>
#include <cerrno>
#include <ctime>

namespace platform {
namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kTick = kSecond / 20;  ///< well over a tick of any kernel's file clock
/// For file systems that keep whole seconds, or every second one.
constexpr std::int64_t kCoarseTick = 2 * kSecond + kTick;

std::int64_t Nanoseconds(const timespec& time) {
  return static_cast<std::int64_t>(time.tv_sec) * kSecond + time.tv_nsec;
}

}  // namespace

FileStamp StampOf(const struct stat& facts) {
  return {facts.st_dev, facts.st_ino, facts.st_size, Nanoseconds(facts.st_mtim),
          Nanoseconds(facts.st_ctim)};
}

std::optional<FileStamp> StampOfFolder(const std::string& folder) {
  struct stat facts {};
  if (stat(folder.c_str(), &facts) != 0) {
    return {};
  }
  if (!S_ISDIR(facts.st_mode)) {
    errno = ENOTDIR;
    return {};
  }
  return StampOf(facts);
}

std::int64_t StampClock() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return Nanoseconds(now);
}

bool IsSettled(const FileStamp& stamp, std::int64_t taken) {
  const std::int64_t newest = std::max(stamp.modified, stamp.changed);
  return taken - newest > (newest % kSecond == 0 ? kCoarseTick : kTick);
}

}  // namespace platform
