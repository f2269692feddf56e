#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "settings/Catalogue.h"
#include "settings/SettingsRecord.h"

namespace nimbrel {

/// What is chosen now: option indices by (family, group). Written by single steps on a ring page
/// and by RecordToSelection; 0 in a new process.
using Selection = std::array<std::array<std::int16_t, kMostGroups>, kFamilies>;
extern Selection CurrentSelection;

/// The group each ring has in front. Written by the turn buttons of the ring pages alone.
extern std::int16_t CloudFrontGroup;
extern std::int16_t SkyFrontGroup;
extern std::int16_t WaterFrontGroup;

/// The latest random selection. Written by RandomizeSelection, and at start-up from the history.
extern SettingsRecord RandomizerRecord;

/// Oldest first, at most 30. Written by ReadHistory and AppendHistory.
extern std::vector<SettingsRecord> HistoryEntries;
extern std::int16_t HistoryLastIndex;  ///< -1 while the history is empty

/// The entry that the history list keeps selected across a refresh; -1: the newest. Written by
/// start-up and the Load History action.
extern std::int16_t HistoryFocusIndex;

/// Makes the record the selection: the eleven indices, chk_Sun and chk_Contrails, then
/// RefreshMainPage.
void RecordToSelection(const SettingsRecord& record);

/// The selection as a record of the given source, dated now; for the randomizer's entry (source 1)
/// with the date of RandomizerRecord.
SettingsRecord SelectionToRecord(std::int16_t source);

}  // namespace nimbrel
