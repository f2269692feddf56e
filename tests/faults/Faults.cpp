#include "Faults.h"

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <string_view>
#include <unordered_map>

namespace {

using faults::Deed;

std::string g_root;
faults::Plan g_plan;
faults::Seen* g_seen = nullptr;  ///< null while disarmed

template <typename Function>
Function* Next(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

template <typename... Arguments>
long Kernel(long number, Arguments... arguments) {
  static auto* const call = Next<long(long, ...)>("syscall");
  return call(number, arguments...);
}

std::string PathOf(int descriptor) {
  char buffer[PATH_MAX];
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const long length = Kernel(SYS_readlink, link.c_str(), buffer, sizeof buffer);
  return {buffer, length > 0 ? static_cast<std::size_t>(length) : 0};
}

std::string PathAt(int folder, const char* path) {
  return *path == '/' ? path : PathOf(folder) + '/' + path;
}

/// Artwork is only read, hundreds of times, and a missing picture is passed over.
bool IsWatched(std::string_view path) {
  return path.starts_with(g_root) && (path.size() == g_root.size() || path[g_root.size()] == '/') &&
         path.find("/Media/") == std::string_view::npos;
}

[[noreturn]] void Die() {
  Kernel(SYS_kill, getpid(), SIGKILL);
  _exit(0);  // never reached
}

/// The path's number in the order in which they came up.
long PlaceNumber(const std::string& path) {
  static std::unordered_map<std::string, long> numbers;
  const long number =
      numbers.try_emplace(path, static_cast<long>(numbers.size()) + 1).first->second;
  g_seen->calls = static_cast<long>(numbers.size());
  return number;
}

/// What a call is to do: go on (0), fail with the errno value, or do only half of its bytes.
constexpr int kHalf = -1;
int Strike(faults::Call call, const char* name, const std::string& path) {
  if (g_seen == nullptr || (g_plan.calls & call) == 0 || !IsWatched(path)) {
    return 0;
  }
  const long count = g_plan.deed == Deed::kFailAtPlace ? PlaceNumber(path) : ++g_seen->calls;
  const bool now = count == g_plan.strike;
  if (now) {
    std::snprintf(g_seen->struck, sizeof g_seen->struck, "%s %s", name,
                  path.c_str() + g_root.size());
  }
  switch (g_plan.deed) {
    case Deed::kKill:
      if (now) {
        Die();
      }
      return 0;
    case Deed::kKillHalfWay:
      return now ? kHalf : 0;
    case Deed::kFail:
    case Deed::kFailAtPlace:
      return now ? g_plan.error : 0;
    default:
      if (now && g_plan.error == ENOSPC && (call & faults::kSpends) != 0) {
        return kHalf;
      }
      return g_plan.strike > 0 && count >= g_plan.strike ? g_plan.error : 0;
  }
}

/// Only what is there can fail to be opened.
int StrikeOpening(const char* name, int folder, const char* path, bool writes) {
  if (g_seen == nullptr || (!writes && Kernel(SYS_faccessat, folder, path, F_OK) != 0)) {
    return 0;
  }
  return Strike(writes ? faults::kOpenNew : faults::kOpenOld, name, PathAt(folder, path));
}

/// Fails as told, or makes the call.
template <typename Result = int, typename... Arguments>
Result Pass(int error, long number, Arguments... arguments) {
  if (error > 0) {
    errno = error;
    return -1;
  }
  return static_cast<Result>(Kernel(number, arguments...));
}

/// `size` halved; a process that is to end there ends when `finish` has moved the half.
template <typename Finish>
ssize_t PassBytes(int error, std::size_t size, Finish finish) {
  if (error > 0) {
    errno = error;
    return -1;
  }
  const auto done = static_cast<ssize_t>(finish(error == kHalf ? (size + 1) / 2 : size));
  if (error == kHalf && g_plan.deed == Deed::kKillHalfWay) {
    Die();
  }
  return done;
}

int Open(int folder, const char* path, int flags, va_list rest) {
  const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
  const bool writes = (flags & (O_ACCMODE | O_CREAT | O_TRUNC)) != O_RDONLY;
  return Pass(StrikeOpening("open", folder, path, writes), SYS_openat, folder, path, flags, mode);
}

int StrikeDescriptor(faults::Call call, const char* name, int descriptor) {
  return g_seen == nullptr ? 0 : Strike(call, name, PathOf(descriptor));
}

}  // namespace

namespace faults {

void Arm(const std::string& root, const Plan& plan, Seen* seen) {
  g_root = root;
  g_plan = plan;
  g_seen = seen;
}

void Disarm() { g_seen = nullptr; }

}  // namespace faults

// The calls that the program makes, those of the libraries under it among them.
// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the system's are reserved ones
extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const int opened = Open(AT_FDCWD, path, flags, rest);
  va_end(rest);
  return opened;
}

int open64(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const int opened = Open(AT_FDCWD, path, flags, rest);
  va_end(rest);
  return opened;
}

int openat(int folder, const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const int opened = Open(folder, path, flags, rest);
  va_end(rest);
  return opened;
}

/// openat2 has no wrapper of its own and comes this way. No call has more than six arguments.
long syscall(long number, ...) noexcept {
  va_list rest;
  va_start(rest, number);
  long a[6];
  for (long& argument : a) {
    argument = va_arg(rest, long);
  }
  va_end(rest);
  const bool opens = number == SYS_openat2;
  const int error = opens ? StrikeOpening("openat2", static_cast<int>(a[0]),
                                          reinterpret_cast<const char*>(a[1]), false)
                          : 0;
  return Pass<long>(error, number, a[0], a[1], a[2], a[3], a[4], a[5]);
}

int close(int descriptor) {
  const long flags = g_seen == nullptr ? 0 : Kernel(SYS_fcntl, descriptor, F_GETFL);
  const bool written = flags > 0 && (flags & O_ACCMODE) != O_RDONLY;
  const int error = written ? StrikeDescriptor(faults::kCloseNew, "close", descriptor) : 0;
  const long closed = Kernel(SYS_close, descriptor);  // gone whatever the call tells
  return error > 0 ? Pass(error, 0) : static_cast<int>(closed);
}

ssize_t write(int descriptor, const void* bytes, size_t size) {
  const int error = StrikeDescriptor(faults::kWrite, "write", descriptor);
  return PassBytes(error, size,
                   [&](size_t count) { return Kernel(SYS_write, descriptor, bytes, count); });
}

ssize_t read(int descriptor, void* bytes, size_t size) {
  return Pass<ssize_t>(StrikeDescriptor(faults::kRead, "read", descriptor), SYS_read, descriptor,
                       bytes, size);
}

ssize_t copy_file_range(int from, off64_t* from_at, int to, off64_t* to_at, size_t size,
                        unsigned flags) {
  return PassBytes(StrikeDescriptor(faults::kMoveBytes, "copy_file_range", to), size,
                   [&](size_t count) {
                     return Kernel(SYS_copy_file_range, from, from_at, to, to_at, count, flags);
                   });
}

int fallocate(int descriptor, int mode, off_t offset, off_t length) {
  return Pass(StrikeDescriptor(faults::kReserve, "fallocate", descriptor), SYS_fallocate,
              descriptor, mode, offset, length);
}

int fsync(int descriptor) {
  const int error = StrikeDescriptor(faults::kFlush, "fsync", descriptor);
  // Whether it reaches the disk can't be seen here, and to wait for that hundreds of times costs
  // more than all the rest.
  return error == 0 && g_seen != nullptr ? 0 : Pass(error, SYS_fsync, descriptor);
}

int fchmod(int descriptor, mode_t mode) noexcept {
  return Pass(StrikeDescriptor(faults::kMode, "fchmod", descriptor), SYS_fchmod, descriptor, mode);
}

int fchmodat(int folder, const char* path, mode_t mode, int flags) noexcept {
  static auto* const next = Next<int(int, const char*, mode_t, int)>("fchmodat");
  const int error = Strike(faults::kMode, "fchmodat", PathAt(folder, path));
  errno = error > 0 ? error : errno;
  return error > 0 ? -1 : next(folder, path, mode, flags);
}

int fchown(int descriptor, uid_t owner, gid_t group) noexcept {
  return Pass(StrikeDescriptor(faults::kMode, "fchown", descriptor), SYS_fchown, descriptor, owner,
              group);
}

int renameat(int from, const char* old_path, int to, const char* new_path) noexcept {
  return Pass(Strike(faults::kRename, "rename", PathAt(to, new_path)), SYS_renameat, from, old_path,
              to, new_path);
}

int rename(const char* old_path, const char* new_path) noexcept {
  return renameat(AT_FDCWD, old_path, AT_FDCWD, new_path);
}

int unlinkat(int folder, const char* path, int flags) noexcept {
  return Pass(Strike(faults::kDelete, "unlink", PathAt(folder, path)), SYS_unlinkat, folder, path,
              flags);
}

int unlink(const char* path) noexcept { return unlinkat(AT_FDCWD, path, 0); }

int remove(const char* path) noexcept {
  struct stat facts {};
  const bool folder = lstat(path, &facts) == 0 && S_ISDIR(facts.st_mode);
  return unlinkat(AT_FDCWD, path, folder ? AT_REMOVEDIR : 0);
}

int mkdir(const char* path, mode_t mode) noexcept {
  return Pass(Strike(faults::kMakeFolder, "mkdir", PathAt(AT_FDCWD, path)), SYS_mkdirat, AT_FDCWD,
              path, mode);
}

DIR* opendir(const char* path) {
  static auto* const next = Next<DIR*(const char*)>("opendir");
  const int error = StrikeOpening("opendir", AT_FDCWD, path, false);
  errno = error > 0 ? error : errno;
  return error > 0 ? nullptr : next(path);
}

dirent* readdir(DIR* folder) {
  static auto* const next = Next<dirent*(DIR*)>("readdir");
  const int error = StrikeDescriptor(faults::kRead, "readdir", dirfd(folder));
  errno = error > 0 ? error : errno;
  return error > 0 ? nullptr : next(folder);
}

}  // extern "C"
// NOLINTEND(readability-inconsistent-declaration-parameter-name)
