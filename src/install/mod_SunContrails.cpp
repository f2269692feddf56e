#include "install/mod_SunContrails.h"

#include <string>

#include "install/CopyFailures.h"
#include "install/mod_CopyFiles.h"
#include "platform/files.h"
#include "platform/system.h"
#include "settings/Functions_Configuration.h"

namespace nimbrel {
namespace {

constexpr const char* kSunFiles[] = {"Corona1.bmp", "sun.bmp", "sun6.bmp"};

/// Values of `Lifetime` in section `Particle.0`: seconds, least and most.
struct ContrailEffect {
  const char* file;
  const char* on;
  const char* off;
};
constexpr ContrailEffect kContrailEffects[] = {
    {"fx_contrail_s.fx", "180.0,180.0", "1.50,1.50"},
    {"fx_contrail_L.fx", "180.0,180.0", "30.50,30.50"},
};

std::string SimulatorTextures() { return SimulatorRoot + "Texture\\"; }

}  // namespace

void ApplySun(bool on) {
  if (on) {
    CopyFolder(platform::ApplicationFolder() + "\\Data\\Sun\\", SimulatorTextures());
    return;
  }
  // Where a backup is missing the simulator keeps the sun file it has: a wrong sun is better than
  // none.
  for (const char* file : kSunFiles) {
    ReplaceSimulatorFile(platform::ApplicationFolder() + "\\Backups\\TEX\\" + file,
                         SimulatorTextures() + file);
  }
}

void ApplyContrails(bool on) {
  const std::string folder = SimulatorRoot + "Effects\\";
  if (!platform::FolderExists(folder)) {
    return;  // silent, as every missing destination folder
  }
  for (const ContrailEffect& effect : kContrailEffects) {
    const std::string file = folder + effect.file;
    const bool inside = platform::LiesWithin(file, SimulatorRoot);
    NoteCopy(file, inside
                       ? WriteIniString("Particle.0", "Lifetime", on ? effect.on : effect.off, file)
                       : platform::FileStatus::kOutside);
  }
}

}  // namespace nimbrel
