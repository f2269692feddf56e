#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace platform {
class FileSystem;
}

namespace nimbrel {

enum class OriginalState : std::uint8_t {
  kKept,     ///< a copy is in the store
  kAbsent,   ///< there was no such file
  kUnknown,  ///< an install replaced the file before the first setup
};

/// One file of the simulator as it was before Nimbrel.
struct Original {
  std::string path;  ///< from the simulator's root on, with slashes, in its own letter case
  OriginalState state = OriginalState::kKept;
  std::uintmax_t size = 0;  ///< in bytes; like the checksum only of a kept one
  std::string checksum;     ///< SHA-256 in hexadecimal digits
};

/// The list of the store of originals. Written after every file that it lists: a store with a
/// manifest is complete.
struct Manifest {
  bool made_modules = false;  ///< the folder Modules came with Nimbrel
  std::vector<Original> originals;
};

/// Empty if there is no manifest. Throws ActionFailed if it is damaged: a list that is not whole
/// must not be restored from.
std::optional<Manifest> ReadManifest(platform::FileSystem& files, const std::string& file);
/// On disk when it returns. No path may hold a line break. Throws ActionFailed.
void WriteManifest(platform::FileSystem& files, const std::string& file, const Manifest& manifest);

}  // namespace nimbrel
