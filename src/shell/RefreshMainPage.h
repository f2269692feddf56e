#pragma once

#include "settings/Catalogue.h"

namespace nimbrel {

/// Makes the main page show the CurrentSelection: eleven titles, eleven mini previews, an open
/// large preview, and the history list.
void RefreshMainPage();
/// Opens the large preview on the main page with the selected option of the group.
void ShowMainPreview(const OptionGroup& group);

}  // namespace nimbrel
