#include "install/mod_SunContrails.h"

#include <string>

#include "install/CopyFailures.h"
#include "install/CopyPlan.h"
#include "install/mod_CopyFiles.h"
#include "platform/files.h"
#include "settings/Functions_Configuration.h"

namespace nimbrel {

void ApplySun(bool on) {
  if (on) {
    CopyFolder(SunRoute());
    return;
  }
  // Where a backup is missing the simulator keeps the sun file it has: a wrong sun is better than
  // none.
  for (const char* file : kSunFiles) {
    ReplaceSimulatorFile(SunBackupFolder() + file, SimulatorTextures() + file);
  }
}

void ApplyContrails(bool on) {
  for (const ContrailEffect& effect : kContrailEffects) {
    const std::string file = SimulatorEffects() + effect.file;
    const bool inside = platform::LiesWithin(file, SimulatorRoot);
    NoteCopy(file, inside
                       ? WriteIniString("Particle.0", "Lifetime", on ? effect.on : effect.off, file)
                       : platform::FileStatus::kOutside);
  }
}

}  // namespace nimbrel
