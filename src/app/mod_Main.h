#pragma once

namespace toolkit {
class Form;
}

namespace nimbrel {

/// The one way in, with the folders of `ui` set: shows the splash, loads everything, shows the main
/// window with the last installed selection, and returns to the event loop.
void StartProgram();

/// The one way out: saves what is to survive, releases everything and ends the process. A step that
/// fails is passed over. Called again while it runs it ends the step that calls it, by an
/// exception.
[[noreturn]] void ShutDownProgram();

void StartGraphics();
void StopGraphics();

/// Ends the delivery of messages to every skinned button of the form.
void ReleaseSkinnedButtons(toolkit::Form& form);

}  // namespace nimbrel
