#pragma once

#include <cstdint>

namespace nimbrel {

/// The doors to the history.

/// Reads the file; a file that is missing or can't be read is an empty history.
void ReadHistory();
/// Adds the current choice with this source, on disk when it returns. Throws ActionFailed, with
/// history and file as they were, if the file can't be replaced.
void AppendHistory(std::int16_t Source);
/// Makes entry `index` the selection; an index outside the history does nothing.
void LoadHistoryEntry(std::int16_t index);

/// What the Load History button does: loads the selected row's entry and says so.
void LoadSelectedHistory();

}  // namespace nimbrel
