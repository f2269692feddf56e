#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <functional>
#include <memory>

#include "platform/Descriptor.h"
#include "platform/FileStamp.h"
#include "platform/FileSystem.h"
#include "platform/FileSystemState.h"
#include "platform/host_folder.h"
#include "platform/paths.h"

namespace platform {
namespace {

/// Puts the new content into an open file; gives an errno value.
using Fill = std::function<int(int descriptor)>;

constexpr mode_t kPermissions = S_IRWXU | S_IRWXG | S_IRWXO;

/// Where a replacement goes. The folder stays open, so that checks and rename see the same one.
struct Place {
  Descriptor folder;
  std::string folder_path;
  std::string name;
  std::string path;
  bool exists = false;
  struct stat old {};  ///< of the existing file
};

/// kOk if the existing file may be replaced.
FileStatus CheckReplaceable(const Place& place) {
  if (!S_ISREG(place.old.st_mode)) {
    return FileStatus::kNotAFile;
  }
  if ((place.old.st_mode & S_IWUSR) == 0) {
    return FileStatus::kReadOnly;
  }
  // A rename asks only for the folder's permission; a file that this user may not write stays.
  const bool writable = faccessat(place.folder.Number(), place.name.c_str(), W_OK, AT_EACCESS) == 0;
  return writable ? FileStatus::kOk : StatusFromErrno(errno);
}

enum class Links : bool { kRefuse, kFollow };

/// Opens the folder of a host path, which has to lie in `root` unless that is empty, and checks the
/// file that exists there. A link is followed and stays: the file at its end is replaced.
FileStatus Locate(FileSystemState& state, const std::string& path, std::string_view root,
                  Links links, Place& place) {
  auto [folder, name] = SplitPath(path);
  place.path = path;
  place.folder_path = std::move(folder);
  place.name = std::move(name);
  std::string real;
  place.folder = OpenReal(place.folder_path, O_PATH | O_DIRECTORY, real);
  if (!place.folder.IsOpen()) {
    return Absence(errno, FileStatus::kOk, FileStatus::kNoFolder);
  }
  if (FileStatus ignored{}; !root.empty() && !IsInRoot(state.listings, real, root, ignored)) {
    return FileStatus::kOutside;
  }
  place.exists =
      fstatat(place.folder.Number(), place.name.c_str(), &place.old, AT_SYMLINK_NOFOLLOW) == 0;
  if (!place.exists) {
    return errno == ENOENT ? FileStatus::kOk : StatusFromErrno(errno);
  }
  if (!S_ISLNK(place.old.st_mode) || links == Links::kRefuse) {
    return CheckReplaceable(place);
  }
  const std::unique_ptr<char, decltype(&free)> end(realpath(path.c_str(), nullptr), free);
  return end ? Locate(state, end.get(), root, Links::kRefuse, place) : FileStatus::kNotAFile;
}

/// The new file beside its target. Deleted at the end unless it has taken the target's place.
class Temporary {
 public:
  Temporary(FileSystemState& state, const Place& place)
      : state_(state), place_(place), change_(state.listings, place.folder_path) {}
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  ~Temporary() {
    file_.Close();
    if (!name_.empty()) {
      unlinkat(place_.folder.Number(), name_.c_str(), 0);
    }
  }

  int Open();
  int Number() const { return file_.Number(); }
  int Finish(Durability durability);
  int TakePlace();

 private:
  void KeepPermissions() const;

  FileSystemState& state_;
  const Place& place_;
  FolderListings::OwnChange change_;
  Descriptor file_;
  std::string name_;
};

int Temporary::Open() {
  constexpr int kMaxTries = 1000;  // a killed run of the same process number may have left names
  const mode_t mode = place_.exists ? place_.old.st_mode & kPermissions
                                    : S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
  for (int i = 0; i < kMaxTries; ++i) {
    std::string name = state_.temporary_prefix + std::to_string(getpid()) + "-" +
                       std::to_string(++state_.temporaries) + ".tmp";
    file_ = Descriptor(openat(place_.folder.Number(), name.c_str(),
                              O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (file_.IsOpen()) {
      name_ = std::move(name);
      return 0;
    }
    if (errno != EEXIST) {
      return errno;
    }
  }
  return EEXIST;
}

/// Best effort: some file systems keep no permissions, and only root may give a file away.
void Temporary::KeepPermissions() const {
  struct stat fresh {};
  if (fstat(file_.Number(), &fresh) != 0) {
    return;
  }
  if (fresh.st_uid != place_.old.st_uid || fresh.st_gid != place_.old.st_gid) {
    [[maybe_unused]] const int ignored =
        fchown(file_.Number(), place_.old.st_uid, place_.old.st_gid);
  }
  if (((fresh.st_mode ^ place_.old.st_mode) & kPermissions) != 0) {
    fchmod(file_.Number(), place_.old.st_mode & kPermissions);
  }
}

int Temporary::Finish(Durability durability) {
  if (place_.exists) {
    KeepPermissions();
  }
  if (durability == Durability::kFlushedRename && fsync(file_.Number()) != 0) {
    return errno;
  }
  return file_.Close();
}

int Temporary::TakePlace() {
  if (renameat(place_.folder.Number(), name_.c_str(), place_.folder.Number(),
               place_.name.c_str()) != 0) {
    return errno;
  }
  name_.clear();
  change_.Added(place_.name);
  return 0;
}

/// Makes the rename itself survive a loss of power. The new file is in place by now, so that a file
/// system that can't flush a folder is no failure.
void FlushFolder(const Place& place) {
  const Descriptor folder(openat(place.folder.Number(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder.IsOpen()) {
    fsync(folder.Number());
  }
}

FileStatus Replace(FileSystemState& state, const Place& place, Durability durability,
                   const Fill& fill) {
  Temporary temporary(state, place);
  int error = temporary.Open();
  if (error == 0) {
    error = fill(temporary.Number());
  }
  if (error == 0) {
    error = temporary.Finish(durability);
  }
  if (error == 0) {
    error = temporary.TakePlace();
  }
  if (error == 0 && durability == Durability::kFlushedRename) {
    FlushFolder(place);
  }
  return StatusFromErrno(error);
}

int WriteAll(int descriptor, const std::byte* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t count = write(descriptor, bytes, size);
    if (count < 0 && errno != EINTR) {
      return errno;
    }
    if (count == 0) {
      return EIO;
    }
    const auto written = count > 0 ? static_cast<std::size_t>(count) : 0;
    bytes += written;
    size -= written;
  }
  return 0;
}

int ReadAndWrite(int from, int to, std::size_t size) {
  constexpr std::size_t kPiece = std::size_t{256} << 10U;
  const auto piece = std::make_unique<std::byte[]>(kPiece);
  while (size > 0) {
    const ssize_t count = read(from, piece.get(), std::min(size, kPiece));
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count <= 0) {
      return count == 0 ? EBUSY : errno;  // shorter than it was: somebody is writing it
    }
    const auto got = static_cast<std::size_t>(count);
    if (const int error = WriteAll(to, piece.get(), got); error != 0) {
      return error;
    }
    size -= got;
  }
  return 0;
}

/// Copies `size` bytes from the present positions of both files. What the kernel can't move between
/// the two, for whatever reason, is read and written, where a real failure shows again.
int CopyBytes(int from, int to, std::size_t size) {
  while (size > 0) {
    const ssize_t count = copy_file_range(from, nullptr, to, nullptr, size, 0);
    if (count > 0) {
      size -= static_cast<std::size_t>(count);
    } else if (count == 0 || errno != EINTR) {
      return ReadAndWrite(from, to, size);
    }
  }
  return 0;
}

/// Reserves the room of the whole file before its first byte: a full device shows at once, and the
/// rename then has no blocks left to allocate, which would take as long as the copy. Not all file
/// systems can reserve; the copy then finds out.
int ReserveRoom(int to, std::size_t size) {
  if (size == 0 || fallocate(to, 0, 0, static_cast<off_t>(size)) == 0) {
    return 0;
  }
  return errno == ENOSPC || errno == EDQUOT || errno == EFBIG ? errno : 0;
}

/// Copies a file. EBUSY if it changed meanwhile: the copy of a file that is being written would be
/// torn.
int CopyWhole(int from, const struct stat& before, int to) {
  const auto size = static_cast<std::size_t>(before.st_size);
  if (const int error = ReserveRoom(to, size); error != 0) {
    return error;
  }
  if (const int error = CopyBytes(from, to, size); error != 0) {
    return error;
  }
  struct stat after {};
  if (fstat(from, &after) != 0) {
    return errno;
  }
  const bool unchanged =
      after.st_size == before.st_size && StampOf(after).modified == StampOf(before).modified;
  return unchanged ? 0 : EBUSY;
}

FileStatus OpenSource(FileSystemState& state, std::string_view path, std::string_view root,
                      Descriptor& source, struct stat& facts) {
  std::string real;
  FileStatus status = FileStatus::kOk;
  source = OpenReal(FindHostPath(state.listings, path, status), kOpenToRead, real);
  if (!source.IsOpen()) {
    return Absence(errno, status, FileStatus::kNoSource);
  }
  if (fstat(source.Number(), &facts) != 0 || !S_ISREG(facts.st_mode)) {
    return FileStatus::kNotAFile;
  }
  return root.empty() || IsInRoot(state.listings, real, root, status) ? FileStatus::kOk
                                                                      : FileStatus::kOutside;
}

FileStatus LocateTarget(FileSystemState& state, std::string_view path, std::string_view root,
                        Place& place) {
  FileStatus unlisted = FileStatus::kOk;
  const std::string host = FindHostPath(state.listings, path, unlisted);
  const FileStatus status =
      host.empty() ? FileStatus::kNoFolder : Locate(state, host, root, Links::kFollow, place);
  const bool absent =
      status == FileStatus::kNoFolder || (status == FileStatus::kOk && !place.exists);
  // No second file that differs only in case beside one in a folder that can't be listed.
  return absent && unlisted != FileStatus::kOk ? unlisted : status;
}

}  // namespace

FileStatus FileSystem::ReplaceFile(std::string_view path, std::span<const std::byte> bytes,
                                   Durability durability) {
  Place place;
  if (const FileStatus status = LocateTarget(*state_, path, {}, place); status != FileStatus::kOk) {
    return status;
  }
  return Replace(*state_, place, durability, [bytes](int descriptor) {
    return WriteAll(descriptor, bytes.data(), bytes.size());
  });
}

FileStatus FileSystem::CopyOver(std::string_view source, std::string_view target,
                                Durability durability, std::string_view source_root,
                                std::string_view target_root) {
  Descriptor from;
  struct stat facts {};
  if (const FileStatus status = OpenSource(*state_, source, source_root, from, facts);
      status != FileStatus::kOk) {
    return status;
  }
  Place place;
  if (const FileStatus status = LocateTarget(*state_, target, target_root, place);
      status != FileStatus::kOk) {
    return status;
  }
  return Replace(*state_, place, durability, [&from, &facts](int descriptor) {
    return CopyWhole(from.Number(), facts, descriptor);
  });
}

}  // namespace platform
