#pragma once

namespace nimbrel {

/// The readers of the information file, run once in this order at start-up. Each ends the program
/// by a fatal message and ShutDownProgram if the file is missing or can't be accepted.
void LoadCumulusConfiguration();
void LoadSkyConfiguration();
void LoadWaterConfiguration();
/// Reads the machine's switches into chk_DXT and chk_Fast.
void LoadMainConfiguration();

}  // namespace nimbrel
