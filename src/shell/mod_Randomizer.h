#pragma once

#include "settings/Groups.h"
#include "shell/pages/RandomizerTabs.h"

namespace nimbrel {

/// The doors to the randomizer.

/// Copies every constraint list into the inhibit flags and draws a selection into the
/// RandomizerRecord, dated now; the record's source is left as it was.
void RandomizeSelection();
/// Makes the RandomizerRecord the selection.
void ApplyRandomSelection();
/// Copies every constraint list and the two switch boxes into the inhibit flags, and writes the
/// flags to the information file.
void SaveConstraints();

/// Shows the RandomizerRecord on the overview: titles, words, date and the small previews. Clearing
/// and refreshing the page is the caller's.
void FillRandomizerOverview();
/// Paints a page of the randomizer, the overview with the RandomizerRecord.
void DrawRandomizerPage(toolkit::Form& form, RandomizerTab tab);
/// Opens the large preview on the overview with the drawn option of the group.
void ShowOverviewPreview(Group group);

}  // namespace nimbrel
