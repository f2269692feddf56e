#pragma once

#include <cstdint>
#include <string>

#include "install/CopyPlan.h"
#include "platform/FileStatus.h"
#include "settings/Groups.h"

namespace nimbrel {

class Progress;
struct Folders;
struct Report;

/// What the copying routines of one run share. The owner of a run makes it; all parts outlive it.
struct CopyRun {
  const CopyRoutes& routes;
  platform::FileSystem& files;
  const Folders& folders;
  Report& report;
  Progress& progress;
};

/// Adds the outcome of one file to the report, under its path from the simulator's root on.
void ReportFile(const CopyRun& run, const std::string& target, platform::FileStatus status);

/// Deletes the temporary files that a killed run has left in a folder. Tries a bounded number of
/// times while another process holds one open.
void DeleteUntilGone(const CopyRun& run, const std::string& folder);

/// Replaces one file of the simulator by one of the program's folder, whole or not at all, and
/// reports it. Tries a bounded number of times while another process holds the old file open.
void ReplaceSimulatorFile(const CopyRun& run, const std::string& source, const std::string& target);

/// Copies the files of one route, without progress. Copies nothing if a folder is missing.
void CopyFolder(const CopyRun& run, const CopyRoute& route);

/// Each copies one set or fixed folder, file by file under the names of the source folder, and
/// moves the progress from `start` to `end`, in percent. `selection` is an option index, `column` a
/// group of the routine's own family.
void CopyWaterSet(const CopyRun& run, Group column, std::int16_t selection, double start,
                  double end);
void CopyWavesSet(const CopyRun& run, std::int16_t selection);
void CopySkySet(const CopyRun& run, Group column, std::int16_t selection, double start, double end);
void CopyCirrusSet(const CopyRun& run, std::int16_t selection, double start, double end);
void CopyCldFolder(const CopyRun& run, double start, double end);
void CopyCumulusFolder(const CopyRun& run, double start, double end);
void CopyStratusFolder(const CopyRun& run, double start, double end);

}  // namespace nimbrel
