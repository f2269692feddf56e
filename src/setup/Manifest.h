#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace nimbrel {

/// One file of the simulator as it was before Nimbrel.
struct Original {
  std::string path;     ///< from the simulator's root on, with slashes, in its own letter case
  bool absent = false;  ///< there was none: the two below say nothing
  std::uintmax_t size = 0;
  std::string checksum;  ///< SHA-256 in hexadecimal digits
};

/// The list of the store of originals. It is written when all that it lists is in the store, so
/// where it stands, the store is complete.
struct Manifest {
  bool made_modules = false;  ///< the folder Modules came with Nimbrel
  std::vector<Original> originals;

  const Original* Find(const std::string& path) const;  ///< in any letter case
};

/// Empty when there is none. Throws SetupFailure when it is damaged: a list that is not whole must
/// not be restored from.
std::optional<Manifest> ReadManifest(const std::string& file);
/// Safely, flushed to disk. Throws SetupFailure.
void WriteManifest(const std::string& file, const Manifest& manifest);

}  // namespace nimbrel
