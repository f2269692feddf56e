#pragma once

namespace nimbrel {

/// Installs the CurrentSelection into the simulator: the one run of seventeen steps, with the
/// progress dialog up. Returns when the run is finished. Input is thrown away meanwhile. An error
/// that leaves the run closes the dialog, gives the pointer back and goes on as RunTimeFailure.
void InstallSettings();

/// InstallSettings, then the closing message, then what could not be put in place if there is
/// anything, or the message that an error has left the run.
void InstallAndReport();

}  // namespace nimbrel
