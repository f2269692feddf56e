#pragma once

namespace nimbrel {

/// The one way in: shows the splash, loads everything, shows the main window with the last
/// installed selection, and returns to the event loop.
void StartProgram();

/// The one way out: saves what is to survive, gives everything back and ends the process. Every
/// step is tried, whatever the ones before it came to.
[[noreturn]] void ShutDownProgram();

void StartGraphics();
void StopGraphics();

}  // namespace nimbrel
