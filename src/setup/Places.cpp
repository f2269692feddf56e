#include "setup/Places.h"

#include <algorithm>
#include <iterator>

#include "settings/Failure.h"
#include "setup/Disk.h"

namespace nimbrel {
namespace {

using platform::FileStatus;

/// The marks of the simulator, in any letter case: all of these folders, and one of these files.
/// Installs write into the folders or beside them; other programs have folders of such common
/// names, but none of the files.
constexpr const char* kFolderMarks[] = {"Texture", "Effects", "Scenery"};
constexpr const char* kFileMarks[] = {"FS9.exe", "Effects\\fx_contrail_s.fx",
                                      "Effects\\fx_contrail_L.fx"};

std::string RealFolder(const std::string& folder) {
  std::string real;
  if (platform::RealPath(folder, real) != FileStatus::kOk ||
      platform::KindOf(real) != platform::EntryKind::kFolder) {
    throw ActionFailed("There is no folder " + folder);
  }
  if (real.find('\\') != std::string::npos) {
    throw ActionFailed("Nimbrel cannot be installed below a folder with a backslash in its name: " +
                       real);
  }
  return real;
}

/// What the folder lacks to be the simulator's; empty if it lacks nothing.
std::string MissingMark(Disk& disk, const std::string& folder) {
  for (const char* mark : kFolderMarks) {
    if (!disk.files.FolderExists(folder + "\\" + mark)) {
      return std::string("it has no folder ") + mark;
    }
  }
  const bool known =
      std::any_of(std::begin(kFileMarks), std::end(kFileMarks),
                  [&](const char* mark) { return disk.files.FileExists(folder + "\\" + mark); });
  return known ? "" : "it has neither FS9.exe nor the contrail effects in Effects";
}

/// The program asks the system for its own folder and goes up from there: a link on the way would
/// lead it out of this simulator.
void RefuseLinks(const Places& places) {
  for (const std::string& folder : {places.modules, places.program, places.originals}) {
    if (platform::KindOf(folder) == platform::EntryKind::kNone) {
      continue;
    }
    std::string real;
    Require(platform::RealPath(folder, real), folder);
    if (real != folder) {
      throw ActionFailed(folder + " is a symbolic link, from which Nimbrel would not find its way");
    }
  }
}

}  // namespace

Places FindPlaces(Disk& disk, const std::string& folder) {
  Places places;
  places.simulator = RealFolder(folder);
  const std::string missing = MissingMark(disk, places.simulator);
  if (!missing.empty()) {
    throw ActionFailed(places.simulator +
                       " is not the folder of Flight Simulator 2004: " + missing);
  }
  places.modules = disk.HostPath(places.simulator + "\\Modules");
  places.program = disk.HostPath(places.modules + "\\Nimbrel");
  places.originals = disk.HostPath(places.modules + "\\Nimbrel Originals");
  RefuseLinks(places);
  return places;
}

}  // namespace nimbrel
