#include "install/SunContrails.h"

#include <string>

#include "install/mod_CopyFiles.h"
#include "platform/FileSystem.h"
#include "platform/inifile.h"
#include "settings/Folders.h"
#include "settings/Functions_Configuration.h"

namespace nimbrel {
namespace {

using platform::FileStatus;

FileStatus SetLifetime(const CopyRun& run, const std::string& path, const char* value) {
  if (!run.files.LiesWithin(path, run.folders.simulator)) {
    return FileStatus::kOutside;
  }
  platform::IniFile file(run.files, path);
  WriteIniString("Particle.0", "Lifetime", value, file);
  return file.Save();
}

}  // namespace

void ApplySun(const CopyRun& run, bool on) {
  if (on) {
    CopyFolder(run, run.routes.Sun());
    return;
  }
  // If a backup is missing the simulator keeps its sun file: a wrong sun is better than none.
  for (const char* file : kSunFiles) {
    ReplaceSimulatorFile(run, run.routes.SunBackups() + file,
                         run.routes.SimulatorTextures() + file);
  }
}

void ApplyContrails(const CopyRun& run, bool on) {
  for (const ContrailEffect& effect : kContrailEffects) {
    const std::string path = run.routes.SimulatorEffects() + effect.file;
    ReportFile(run, path, SetLifetime(run, path, on ? effect.on : effect.off));
  }
}

}  // namespace nimbrel
