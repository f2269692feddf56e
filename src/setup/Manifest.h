#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace nimbrel {

enum class Was : std::uint8_t {
  kKept,     ///< as the store has it
  kAbsent,   ///< not there
  kUnknown,  ///< replaced by an install before setup first saw it
};

/// One file of the simulator as it was before Nimbrel.
struct Original {
  std::string path;  ///< from the simulator's root on, with slashes, in its own letter case
  Was was = Was::kKept;
  std::uintmax_t size = 0;  ///< this and the next of a kept one
  std::string checksum;     ///< SHA-256 in hexadecimal digits
};

/// The list of the store of originals. It is written when all that it lists is in the store, so
/// where it stands, the store is complete.
struct Manifest {
  bool made_modules = false;  ///< the folder Modules came with Nimbrel
  std::vector<Original> originals;
};

/// Empty when there is none. Throws SetupFailure when it is damaged: a list that is not whole must
/// not be restored from.
std::optional<Manifest> ReadManifest(const std::string& file);
/// Safely, flushed to disk. Throws SetupFailure.
void WriteManifest(const std::string& file, const Manifest& manifest);

}  // namespace nimbrel
