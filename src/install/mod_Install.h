#pragma once

#include <string>

namespace nimbrel {

/// Installs the CurrentSelection into the simulator: the one run of seventeen steps, with the
/// progress dialog up. Returns when the run is finished. Input is thrown away meanwhile. An error
/// that leaves the run closes the dialog, gives the pointer back and goes on as RunTimeFailure.
void InstallSettings();

/// InstallSettings, with the text of the error that has left the run, empty when none has. The
/// caller puts its own state in order before it tells the user with ReportInstall.
std::string RunInstall();
/// The closing message, or the message that an error has left the run; then what could not be put
/// in place, if there is anything.
void ReportInstall(const std::string& error);
/// Both, one after the other.
void InstallAndReport();

}  // namespace nimbrel
