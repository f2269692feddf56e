#pragma once

namespace nimbrel {

/// Makes the main page show the CurrentSelection: eleven titles, eleven mini previews, and the
/// history list.
void RefreshMainPage();

}  // namespace nimbrel
