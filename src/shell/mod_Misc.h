#pragma once

#include <cstdint>

#include "settings/Choice.h"
#include "settings/Groups.h"

namespace nimbrel {

struct SettingsRecord;

/// What of the shell has no other home.

/// What the user sees chosen: the CurrentSelection, chk_Sun and chk_Contrails.
Choice CurrentChoice();
/// Makes the record the selection: the eleven options and the two check boxes, then
/// RefreshMainPage.
void RecordToSelection(const SettingsRecord& record);
/// The current choice as a record of the given source, dated now; for the randomizer's entry with
/// the date of the RandomizerRecord.
SettingsRecord SelectionToRecord(std::int16_t source);

/// Makes the main page show the CurrentSelection: eleven titles, eleven small previews, an open
/// large preview, and the history list.
void RefreshMainPage();
/// Opens the large preview on the main page with the selected option of the group.
void ShowMainPreview(Group group);

/// Hands the help file to the system's viewer.
void OpenHelpFile();

/// The fatal message that there is no information file.
void ShowMissingInformationFile();

}  // namespace nimbrel
