#include "install/mod_CopyFiles.h"

#include <algorithm>
#include <string>
#include <vector>

#include "install/CopyFailures.h"
#include "platform/forms.h"
#include "platform/system.h"
#include "platform/text.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "shell/frm_Msg.h"

namespace nimbrel {
namespace {

using platform::FileStatus;

constexpr std::size_t kMostFiles = 100;
/// A file that somebody holds open is tried for about half a second, then it stays as it is.
constexpr int kTries = 20;
constexpr std::uint32_t kPause = 25;  // milliseconds between two tries

void WaitForNextTry() {
  platform::DoEvents();
  platform::Sleep(kPause);
}

/// The names in a set folder. A set path that names a file or nothing has none.
std::vector<std::string> SetFiles(const std::string& folder) {
  return platform::ListFiles(folder + "*.*",
                             platform::kReadOnly | platform::kHidden | platform::kSystem);
}

/// A composed folder, or empty text when `part` adds nothing to `root`: an empty `Textures` or
/// destination of the catalogue would else stand for the whole program or simulator folder, and
/// files that belong to no set would be copied.
std::string FolderBelow(const std::string& root, const std::string& part) {
  const std::string folder = root + "\\" + part + "\\";
  const bool nothing =
      part.empty() || platform::HostPath(folder) == platform::HostPath(root + "\\");
  return nothing ? std::string() : folder;
}

std::string SourceFolder(std::int16_t family, std::int16_t group, std::int16_t option) {
  return FolderBelow(platform::ApplicationFolder(), Catalogue.At(family, group, option).Textures);
}

std::string DestinationFolder(const std::string& part) {
  const std::string_view root = SimulatorRoot;
  return FolderBelow(std::string(root.substr(0, root.find_last_not_of('\\') + 1)), part);
}

/// The copy of every set and fixed folder. `file_done` gets the number of names found after each of
/// the at most 100 files that are copied. The old files stay until each one's new file is complete
/// beside it, so nothing is deleted first; the event loop runs once for each file.
template <typename FileDone>
void CopyFiles(const std::string& source, const std::string& destination, FileDone file_done) {
  if (source.empty() || destination.empty()) {
    return;
  }
  const std::vector<std::string> names = SetFiles(source);
  for (std::size_t i = 0; i < std::min(names.size(), kMostFiles); ++i) {
    const std::string target = platform::Trim(names[i]);
    if (!target.empty()) {
      ReplaceSimulatorFile(source + names[i], destination + target);
    }
    platform::DoEvents();
    file_done(names.size());
  }
}

/// With the progress bar going from `start` to `end` in equal steps, worked out from all the names
/// found, so that it stops short when there are more than are copied; the end is always drawn.
void CopyWithProgress(const std::string& source, const std::string& destination, double start,
                      double end) {
  double value = start;
  CopyFiles(source, destination, [&](std::size_t found) {
    value += (end - start) / static_cast<double>(found);
    DrawProgress(value);
  });
  DrawProgress(end);
}

void CopyFixedFolder(const char* folder, double start, double end) {
  CopyWithProgress(FolderBelow(platform::ApplicationFolder(), folder), DestinationFolder("Texture"),
                   start, end);
}

}  // namespace

void DeleteUntilGone(std::string_view pattern) {
  const std::string folder(pattern.substr(0, pattern.find_last_of("\\/") + 1));
  for (int tries = 0; tries < kTries; ++tries) {
    bool all_gone = true;
    for (const std::string& name : platform::ListFiles(pattern, platform::kNormal)) {
      all_gone = platform::DeleteFile(folder + name) == FileStatus::kOk && all_gone;
    }
    if (all_gone) {
      return;
    }
    WaitForNextTry();
  }
}

FileStatus ReplaceSimulatorFile(std::string_view source, std::string_view target) {
  FileStatus status = FileStatus::kBusy;
  for (int tries = 0; tries < kTries && status == FileStatus::kBusy; ++tries) {
    if (tries > 0) {
      WaitForNextTry();
    }
    status = platform::CopyOver(source, target, platform::Durability::kRename,
                                platform::ApplicationFolder(), SimulatorRoot);
  }
  NoteCopy(target, status);
  return status;
}

void CopyFolder(std::string_view source, std::string_view destination) {
  CopyFiles(std::string(source), std::string(destination), [](std::size_t) {});
}

void CopyWaterSet(std::int16_t column, std::int16_t selection, double start, double end) {
  CopyWithProgress(SourceFolder(kWater, column, selection),
                   DestinationFolder(Catalogue.DestinationWater), start, end);
}

void CopyWavesSet(std::int16_t selection) {
  constexpr std::int16_t kWaves = 2;
  CopyFolder(SourceFolder(kWater, kWaves, selection),
             DestinationFolder(Catalogue.DestinationWaves));
}

void CopySkySet(std::int16_t column, std::int16_t selection, double start, double end) {
  CopyWithProgress(SourceFolder(kSky, column, selection),
                   DestinationFolder(Catalogue.SkyDestination), start, end);
}

void CopyCirrusSet(std::int16_t selection, double start, double end) {
  constexpr std::int16_t kCirrus = 3;
  CopyWithProgress(SourceFolder(kCloud, kCirrus, selection),
                   DestinationFolder(Catalogue.DestinationCirrus), start, end);
}

void CopyCldFolder(double start, double end) { CopyFixedFolder("Data\\Clouds\\Cld", start, end); }

void CopyCumulusFolder(double start, double end) {
  CopyFixedFolder("Data\\Clouds\\cumulus", start, end);
}

void CopyStratusFolder(double start, double end) {
  CopyFixedFolder("Data\\Clouds\\stratus", start, end);
}

}  // namespace nimbrel
