#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/files.h"

namespace nimbrel {

/// What an install puts where, apart from the doing: the run copies by it, and the setup keeps by
/// it the originals of all that a run could ever replace. Paths are composed text.

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

std::string SunBackupFolder();  ///< with a backslash behind it, as the next two
std::string SimulatorTextures();
std::string SimulatorEffects();
/// The texture that the composer makes, and the file of the simulator that it replaces, which is
/// empty when the catalogue names none.
std::string ComposedCumulus();
std::string CumulusTarget();

/// From where to where the files of one set or folder go. Both end in a backslash; when either is
/// empty nothing is copied.
struct CopyRoute {
  std::string source;
  std::string destination;
};
/// Of a group that is copied by folder, which the three cloud inputs are not.
CopyRoute SetRoute(std::int16_t family, std::int16_t group, std::int16_t option);
CopyRoute FixedRoute(FixedFolder folder);
CopyRoute SunRoute();

/// One file of a route. `target` is empty when the trimmed name is.
struct FileCopy {
  std::string source;
  std::string target;
};
struct CopyPlan {
  std::vector<FileCopy> copies;                             ///< at most 100
  std::size_t found = 0;                                    ///< all the names of the source folder
  platform::FileStatus listed = platform::FileStatus::kOk;  ///< how the look into it went
};
CopyPlan PlanCopies(const CopyRoute& route);

/// A file of the simulator that some install of the Catalogue writes.
struct WrittenFile {
  std::string target;                ///< the host's path
  std::vector<std::string> sources;  ///< files of the program of which one is put there
  bool edited = false;               ///< changed where it stands, by every install
};
struct UnreadPlace {
  std::string path;
  platform::FileStatus status = platform::FileStatus::kOk;
};
/// All of them, each once however many options write it, for every option, both sizes and either
/// state of each switch. Files in a folder that the simulator lacks, or outside its root, are not
/// among them: no install writes them. Nor may those be that hide in a folder that can't be looked
/// into: `unread` names one, and why. It is empty when the list is whole.
std::vector<WrittenFile> FilesThatInstallsWrite(UnreadPlace& unread);

}  // namespace nimbrel
