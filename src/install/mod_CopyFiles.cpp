#include "install/mod_CopyFiles.h"

#include <string_view>

#include "install/Progress.h"
#include "install/Report.h"
#include "platform/FileSystem.h"
#include "platform/system.h"
#include "settings/Folders.h"

namespace nimbrel {
namespace {

using platform::FileStatus;

/// A file that another process holds open is tried for about half a second.
constexpr int kMaxTries = 20;
constexpr std::uint32_t kPause = 25;  // milliseconds between two tries

template <typename Action>
FileStatus TryWhileBusy(const CopyRun& run, Action action) {
  FileStatus status = action();
  for (int tries = 1; tries < kMaxTries && status == FileStatus::kBusy; ++tries) {
    run.progress.Breathe();
    platform::Sleep(kPause);
    status = action();
  }
  return status;
}

/// `file_done` gets the number of files found, after each of those that are copied. No old file is
/// deleted first: each stays until its new one is complete beside it.
template <typename FileDone>
void CopyFiles(const CopyRun& run, const CopyRoute& route, FileDone file_done) {
  const CopyPlan plan = run.routes.Plan(route);
  if (plan.listed != FileStatus::kOk) {
    ReportFile(run, route.destination, plan.listed);
  }
  for (const FileCopy& copy : plan.copies) {
    if (!copy.target.empty()) {
      ReplaceSimulatorFile(run, copy.source, copy.target);
    }
    file_done(plan.found);
  }
}

/// Equal steps, computed from all files found, so that the progress stops short if there are more
/// than are copied; the end is always drawn.
void CopyWithProgress(const CopyRun& run, const CopyRoute& route, double start, double end) {
  double value = start;
  CopyFiles(run, route, [&](std::size_t found) {
    value += (end - start) / static_cast<double>(found);
    run.progress.Advance(value);
  });
  run.progress.Advance(end);
}

}  // namespace

void ReportFile(const CopyRun& run, const std::string& target, FileStatus status) {
  std::string_view file = target;
  if (file.starts_with(run.folders.simulator)) {
    file.remove_prefix(run.folders.simulator.size());
  }
  run.report.Add(std::string(file), status);
}

void DeleteUntilGone(const CopyRun& run, const std::string& folder) {
  TryWhileBusy(run, [&] { return run.files.SweepTemporaries(folder); });
}

void ReplaceSimulatorFile(const CopyRun& run, const std::string& source,
                          const std::string& target) {
  const FileStatus status = TryWhileBusy(run, [&] {
    return run.files.CopyOver(source, target, platform::Durability::kRename, run.folders.program,
                              run.folders.simulator);
  });
  ReportFile(run, target, status);
  run.progress.Breathe();
}

void CopyFolder(const CopyRun& run, const CopyRoute& route) {
  CopyFiles(run, route, [](std::size_t) {});
}

void CopyWaterSet(const CopyRun& run, Group column, std::int16_t selection, double start,
                  double end) {
  CopyWithProgress(run, run.routes.Set(column, selection), start, end);
}

void CopyWavesSet(const CopyRun& run, std::int16_t selection) {
  CopyFolder(run, run.routes.Set(Group::kWaves, selection));
}

void CopySkySet(const CopyRun& run, Group column, std::int16_t selection, double start,
                double end) {
  CopyWithProgress(run, run.routes.Set(column, selection), start, end);
}

void CopyCirrusSet(const CopyRun& run, std::int16_t selection, double start, double end) {
  CopyWithProgress(run, run.routes.Set(Group::kCirrus, selection), start, end);
}

void CopyCldFolder(const CopyRun& run, double start, double end) {
  CopyWithProgress(run, run.routes.Fixed(FixedFolder::kCld), start, end);
}

void CopyCumulusFolder(const CopyRun& run, double start, double end) {
  CopyWithProgress(run, run.routes.Fixed(FixedFolder::kCumulus), start, end);
}

void CopyStratusFolder(const CopyRun& run, double start, double end) {
  CopyWithProgress(run, run.routes.Fixed(FixedFolder::kStratus), start, end);
}

}  // namespace nimbrel
