#pragma once

namespace nimbrel {

struct Report;

/// The door to the install.

/// Installs the current choice into the simulator with the progress dialog open. Returns when the
/// run is finished. What the user does meanwhile is thrown away.
Report InstallSettings();
/// Tells the user that all is installed or what ended the run, then which files could not be put in
/// place.
void TellReport(const Report& report);

}  // namespace nimbrel
