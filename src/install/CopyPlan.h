#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/FileStatus.h"
#include "settings/Choice.h"

namespace platform {
class FileSystem;
}

namespace nimbrel {

struct Catalogue;
struct Folders;

/// What an install writes, planned apart from the writing: the run copies by it, and the console
/// command keeps by it the originals of all that a run could ever replace.

/// The simulator's own sun, of which Backups\TEX holds copies.
inline constexpr std::array<const char*, 3> kSunFiles{"Corona1.bmp", "sun.bmp", "sun6.bmp"};

/// Values of `Lifetime` in section `Particle.0`: seconds, least and most.
struct ContrailEffect {
  const char* file;
  const char* on;
  const char* off;
};
inline constexpr std::array<ContrailEffect, 2> kContrailEffects{{
    {"fx_contrail_s.fx", "180.0,180.0", "1.50,1.50"},
    {"fx_contrail_L.fx", "180.0,180.0", "30.50,30.50"},
}};

/// The three folders that every install copies, whatever is selected.
enum class FixedFolder : std::uint8_t { kCld, kCumulus, kStratus };

/// From where to where the files of one set or folder go. Both end in a backslash; if either is
/// empty nothing is copied.
struct CopyRoute {
  std::string source;
  std::string destination;
};

/// One file of a route.
struct FileCopy {
  std::string source;
  std::string target;  ///< empty if the trimmed name is empty: the file is passed over
};
struct CopyPlan {
  std::vector<FileCopy> copies;                             ///< at most 100
  std::size_t found = 0;                                    ///< files in the source folder
  platform::FileStatus listed = platform::FileStatus::kOk;  ///< why the folder could not be listed
};

/// The paths of one program and its simulator.
class CopyRoutes {
 public:
  /// All three have to live as long as the object.
  CopyRoutes(const Catalogue& catalogue, const Folders& folders, platform::FileSystem& files);

  /// Of a group whose sets are folders; empty for the three cloud inputs.
  CopyRoute Set(Group group, std::int16_t option) const;
  CopyRoute Fixed(FixedFolder folder) const;
  CopyRoute Sun() const;

  // Each ends in a backslash.
  std::string SunBackups() const;
  std::string SimulatorTextures() const;
  std::string SimulatorEffects() const;

  /// The texture that the composer makes.
  std::string ComposedCumulus() const;
  /// The simulator's file that it replaces; empty if the catalogue names none.
  std::string CumulusTarget() const;

  /// Every folder of the simulator that a run writes into, with a backslash at the end.
  std::vector<std::string> Destinations() const;

  CopyPlan Plan(const CopyRoute& route) const;

 private:
  std::string FolderBelow(const std::string& root, const std::string& part) const;

  const Catalogue& catalogue_;
  const Folders& folders_;
  platform::FileSystem& files_;
};

/// A file of the simulator that some install of the catalogue writes.
struct WrittenFile {
  std::string target;                ///< the host's path
  std::vector<std::string> sources;  ///< files of the program of which one is put there
  bool edited = false;               ///< changed in place, by every install
};
struct UnreadPlace {
  std::string path;
  platform::FileStatus status = platform::FileStatus::kOk;
};
struct WrittenFiles {
  std::vector<WrittenFile> files;
  UnreadPlace unread;  ///< a folder that could not be read; its path is empty if the list is whole
};
/// Every file any install could write, once each, whatever is selected. Leaves out files whose
/// destination folder is missing or outside the simulator.
WrittenFiles FilesThatInstallsWrite(const CopyRoutes& routes, const Catalogue& catalogue,
                                    const Folders& folders, platform::FileSystem& files);

}  // namespace nimbrel
