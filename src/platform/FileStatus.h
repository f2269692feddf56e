#pragma once

#include <cstdint>
#include <string_view>

namespace platform {

/// Why a file operation failed. kOk is success.
enum class FileStatus : std::uint8_t {
  kOk,
  kNoSource,      ///< the file to read does not exist
  kNoFolder,      ///< the folder to write into does not exist
  kReadOnly,      ///< the old file is marked read-only (no owner write permission)
  kNoPermission,  ///< the system refuses
  kNoSpace,       ///< the device, the quota or the size limit is full
  kBusy,          ///< held open by another process; may pass
  kOutside,       ///< lies outside the folder it has to stay in
  kNotAFile,      ///< a folder or a device is in the place of a file
  kTooLarge,      ///< longer than the reader accepts
  kOther,
};

/// True if the read failed although the file may exist (permission, I/O). Keep what you have; do
/// not treat the file as missing.
constexpr bool IsReadError(FileStatus status) {
  return status != FileStatus::kOk && status != FileStatus::kNoSource &&
         status != FileStatus::kNotAFile && status != FileStatus::kTooLarge;
}

/// A few words to follow the name of the file in a message: "is read-only".
std::string_view Describe(FileStatus status);

/// The status for the errno value of a failed system call.
FileStatus StatusFromErrno(int error);

}  // namespace platform
