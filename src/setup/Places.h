#pragma once

#include <string>

namespace nimbrel {

class Disk;

/// What setup copies into a simulator: host paths.
struct SetupSources {
  std::string program;  ///< the program's file
  std::string pack;     ///< a folder with NB_Information.cfg, Media and Data
};

/// Where everything is in one simulator: host paths without a separator at the end.
struct Places {
  std::string simulator;  ///< its real path
  std::string modules;    ///< simulator/Modules, in the letter case on disk
  std::string program;    ///< modules/Nimbrel
  /// modules/Nimbrel Originals. Beside the program's folder: a user who deletes that one by hand
  /// keeps the originals.
  std::string originals;

  std::string ProgramFile() const { return program + "/nimbrel"; }
  std::string InformationFile() const { return program + "/NB_Information.cfg"; }
  std::string HistoryFile() const { return program + "/Data/History.nbh"; }
  std::string ComposedTexture() const { return program + "/TempBitmaps/cumulus01.bmp"; }
};

/// Checks that a folder is the simulator's and finds the places in it. Throws ActionFailed, which
/// names the missing mark.
Places FindPlaces(Disk& disk, const std::string& folder);

}  // namespace nimbrel
