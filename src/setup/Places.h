#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/files.h"

namespace nimbrel {

/// Why setup can't go on, as a sentence for the user without a full stop.
class SetupFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  SetupFailure(const std::string& path, platform::FileStatus status)
      : std::runtime_error(path + " " + std::string(platform::Describe(status))) {}
};

/// What setup puts in place: host paths.
struct SetupSources {
  std::string program;  ///< the program's file
  std::string pack;     ///< a folder with NB_Information.cfg, Media and Data
};

/// Where all of it stands in one simulator: host paths without a separator at the end.
struct Places {
  SetupSources from;
  std::string simulator;  ///< its real path
  std::string modules;    ///< simulator/Modules, in the letter case that is there
  std::string program;    ///< modules/Nimbrel
  /// modules/Nimbrel Originals. Beside the program's folder, not in it: who deletes that by hand
  /// must not lose the originals with it.
  std::string originals;

  std::string ProgramFile() const { return program + "/nimbrel"; }
  std::string PackInPlace() const { return program + "/NB_Information.cfg"; }
};

/// Finds out whether a folder is the simulator's and where things stand in it. Throws SetupFailure
/// that says by which mark it is none.
Places FindPlaces(const std::string& folder, const SetupSources& from);

/// Whether the program that stands there is running.
bool ProgramRuns(const Places& places);

/// Reads the catalogue that counts: that of the pack in place, else of the one to be put there.
void ReadCatalogueOf(const Places& places);

/// The largest file that is read at once; those of a simulator are far below it.
inline constexpr std::size_t kMostBytes = std::size_t{1} << 30U;
/// The content of a file. Throws SetupFailure.
std::vector<std::byte> BytesOf(const std::string& file);
/// Whether both files are there and the same.
bool SameContent(const std::string& a, const std::string& b);

/// The host's path, and whether a file is there. Throw SetupFailure when a folder on the way can't
/// be looked into: what is not seen is not to be taken for absent.
std::string HostOf(const std::string& path);
bool FileIsThere(const std::string& path);

/// Makes a folder with all those above it.
void MakeFolders(const std::string& folder);

/// Removes what killed runs left half-written in a folder, or also below it. Throws SetupFailure.
void RemoveTemporariesIn(const std::string& folder);
void RemoveTemporariesBelow(const std::string& folder);

/// Copies a file, flushed to disk; makes the folders of the new one.
void CopyIn(const std::string& source, const std::string& target);

}  // namespace nimbrel
