#pragma once

#include <string>

#include "setup/Arguments.h"
#include "setup/Dialogue.h"
#include "setup/Places.h"

namespace nimbrel {

class Disk;

/// What a subcommand works on.
struct Job {
  Disk& disk;
  Places places;
  SetupSources sources;
  bool yes;  ///< every question is answered with yes
  const Console& console;
};

/// The subcommands: each says what it will do, asks, and does it. True if all of it was done. Throw
/// ActionFailed.
bool SetUp(const Job& job);
bool RestoreOriginals(const Job& job);
bool RemoveNimbrel(const Job& job);

}  // namespace nimbrel
