#pragma once

#include "install/Report.h"
#include "settings/Choice.h"

namespace nimbrel {

struct Catalogue;
struct Folders;
class Progress;

/// Installs the choice into the simulator: every set, the sun, the contrails and the composed
/// cumulus texture, each file replaced whole or not at all. Never throws for a file: the report
/// says what failed. `machine` decides size and format of the cumulus texture.
Report Install(const Choice& choice, const MachineSwitches& machine, const Catalogue& catalogue,
               const Folders& folders, Progress& progress);

}  // namespace nimbrel
