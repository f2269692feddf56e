#pragma once

#include <string_view>

namespace nimbrel {

/// The readers of the information file, run once in this order at start-up. Each ends the program
/// by a fatal message and ShutDownProgram when the file is missing or holds what it can't take.
void LoadCumulusConfiguration();
void LoadSkyConfiguration();
void LoadWaterConfiguration();
void LoadMainConfiguration();

/// Whether all four readers came to their end: until then nothing may be written back.
bool ConfigurationLoaded();

/// The message that the information file is missing, in the program's dialog.
void ShowMissingInformationFile();

}  // namespace nimbrel
