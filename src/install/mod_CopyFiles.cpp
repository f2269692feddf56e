#include "install/mod_CopyFiles.h"

#include <string>
#include <vector>

#include "install/CopyFailures.h"
#include "install/CopyPlan.h"
#include "platform/system.h"
#include "settings/Catalogue.h"
#include "settings/Functions_Configuration.h"
#include "shell/frm_Msg.h"
#include "toolkit/forms.h"

namespace nimbrel {
namespace {

using platform::FileStatus;

/// A file that somebody holds open is tried for about half a second, then it stays as it is.
constexpr int kTries = 20;
constexpr std::uint32_t kPause = 25;  // milliseconds between two tries

void WaitForNextTry() {
  toolkit::DoEvents();
  platform::Sleep(kPause);
}

/// The copy of every set and fixed folder. `file_done` gets the number of names found after each of
/// the at most 100 files that are copied. The old files stay until each one's new file is complete
/// beside it, so nothing is deleted first; the event loop runs once for each file.
template <typename FileDone>
void CopyFiles(const CopyRoute& route, FileDone file_done) {
  const CopyPlan plan = PlanCopies(route);
  NoteCopy(route.destination, plan.listed);  // how many files that are is not known
  for (const FileCopy& copy : plan.copies) {
    if (!copy.target.empty()) {
      ReplaceSimulatorFile(copy.source, copy.target);
    }
    toolkit::DoEvents();
    file_done(plan.found);
  }
}

/// With the progress bar going from `start` to `end` in equal steps, worked out from all the names
/// found, so that it stops short when there are more than are copied; the end is always drawn.
void CopyWithProgress(const CopyRoute& route, double start, double end) {
  double value = start;
  CopyFiles(route, [&](std::size_t found) {
    value += (end - start) / static_cast<double>(found);
    DrawProgress(value);
  });
  DrawProgress(end);
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

void CopyFolder(const CopyRoute& route) {
  CopyFiles(route, [](std::size_t) {});
}

void CopyWaterSet(std::int16_t column, std::int16_t selection, double start, double end) {
  CopyWithProgress(SetRoute(kWater, column, selection), start, end);
}

void CopyWavesSet(std::int16_t selection) {
  constexpr std::int16_t kWaves = 2;
  CopyFolder(SetRoute(kWater, kWaves, selection));
}

void CopySkySet(std::int16_t column, std::int16_t selection, double start, double end) {
  CopyWithProgress(SetRoute(kSky, column, selection), start, end);
}

void CopyCirrusSet(std::int16_t selection, double start, double end) {
  constexpr std::int16_t kCirrus = 3;
  CopyWithProgress(SetRoute(kCloud, kCirrus, selection), start, end);
}

void CopyCldFolder(double start, double end) {
  CopyWithProgress(FixedRoute(FixedFolder::kCld), start, end);
}

void CopyCumulusFolder(double start, double end) {
  CopyWithProgress(FixedRoute(FixedFolder::kCumulus), start, end);
}

void CopyStratusFolder(double start, double end) {
  CopyWithProgress(FixedRoute(FixedFolder::kStratus), start, end);
}

}  // namespace nimbrel
