#pragma once

#include <cstdint>

namespace nimbrel {

/// Data\History.nbh: at most 30 records of 36 bytes, the oldest first.

/// Reads the file into HistoryEntries; an absent file or one below 36 bytes is an empty history.
void ReadHistory();
/// Adds the CurrentSelection with this source, drops the oldest beyond 30, and replaces the file,
/// on disk when it returns. Throws RunTimeFailure, with entries and file as they were, when the
/// file can't be replaced.
void AppendHistory(std::int16_t Source);
/// Makes entry `index` the CurrentSelection; an index outside the history does nothing.
void LoadHistoryEntry(std::int16_t index);

}  // namespace nimbrel
