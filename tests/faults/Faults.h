#pragma once

#include <string>

/// Stands between the program and the kernel: the file calls of this executable and of the
/// libraries under it come here first, are counted when they touch files below a folder, and the
/// n-th of them ends the process or fails.
namespace faults {

/// Kinds of calls, summed up to say which count.
enum Call : unsigned {
  kOpenNew = 1U << 0U,  ///< open for writing
  kMakeFolder = 1U << 1U,
  kWrite = 1U << 2U,
  kReserve = 1U << 3U,    ///< fallocate
  kMoveBytes = 1U << 4U,  ///< copy_file_range
  kFlush = 1U << 5U,
  kRename = 1U << 6U,
  kDelete = 1U << 7U,
  kMode = 1U << 8U,      ///< permissions and owner
  kCloseNew = 1U << 9U,  ///< close of what was opened for writing
  kOpenOld = 1U << 10U,  ///< open to read, or as a place in the tree; opendir
  kRead = 1U << 11U,     ///< and readdir
};
inline constexpr unsigned kChanges = kOpenOld - 1;
inline constexpr unsigned kSpends = kWrite | kMoveBytes;  ///< calls that can be done by half

/// At a place: every call on the n-th of the paths fails.
enum class Deed { kKill, kKillHalfWay, kFail, kFailFromThere, kFailAtPlace };

struct Plan {
  unsigned calls = 0;
  long strike = 0;  ///< which of the calls or paths, from 1; 0: only count
  Deed deed = Deed::kKill;
  int error = 0;  ///< errno of a failure. Out of space from there on, a write first does its half
};

/// In memory that the parent process shares.
struct Seen {
  long calls;        ///< or paths
  char struck[400];  ///< the call that was struck, with its path
};

/// From now on; `root` is a real host path.
void Arm(const std::string& root, const Plan& plan, Seen* seen);
void Disarm();

}  // namespace faults
