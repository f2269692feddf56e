#pragma once

#include <cstdint>
#include <string_view>

#include "install/CopyPlan.h"
#include "platform/files.h"

namespace nimbrel {

/// Deletes everything that matches a pattern (hidden and system files apart), yielding to the event
/// loop between two tries. Gives up after a bounded number of tries: a file that stays, stays.
void DeleteUntilGone(std::string_view pattern);

/// Puts one file of the program's folder in the place of one of the simulator's, whole or not at
/// all, yielding to the event loop and trying again a bounded number of times while the old file
/// is held open. Notes a failure in CopyFailures. Both paths as composed text.
platform::FileStatus ReplaceSimulatorFile(std::string_view source, std::string_view target);

/// The copies of one route, without progress. A folder that is not there copies nothing.
void CopyFolder(const CopyRoute& route);

/// The copies of one set or fixed folder, file by file under the names of the source folder.
/// `start` and `end` are percent of the progress bar; `selection` an option index.
void CopyWaterSet(std::int16_t column, std::int16_t selection, double start, double end);
void CopyWavesSet(std::int16_t selection);
void CopySkySet(std::int16_t column, std::int16_t selection, double start, double end);
void CopyCirrusSet(std::int16_t selection, double start, double end);
void CopyCldFolder(double start, double end);
void CopyCumulusFolder(double start, double end);
void CopyStratusFolder(double start, double end);

}  // namespace nimbrel
