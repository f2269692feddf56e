#include "app/mod_ReadConfiguration.h"

#include <exception>
#include <string>

#include "platform/FileSystem.h"
#include "platform/inifile.h"
#include "settings/Configuration.h"
#include "settings/Failure.h"
#include "shell/State.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/mod_Misc.h"
#include "shell/pages/frm_Main.h"

namespace nimbrel {
namespace {

using platform::FileStatus;

/// True if `read` accepts the file.
bool Accepts(const platform::IniFile& file, void (*read)(const platform::IniFile& file)) {
  try {
    read(file);
    return true;
  } catch (const std::exception&) {
    // The end of the program must not run inside a handler.
    return false;
  }
}

void Read(const std::string& name, void (*read)(const platform::IniFile& file)) {
  platform::FileSystem files(kTemporaryPrefix);
  const platform::IniFile file(files, InformationFile(ui.folders));
  if (file.status() == FileStatus::kNoSource || file.status() == FileStatus::kNotAFile) {
    ShowMissingInformationFile();
    ui.ShutDownProgram();
  }
  if (file.status() != FileStatus::kOk || !Accepts(file, read)) {
    TellFatal("An error has occured in the Load " + name +
              " Configuration sub routine\r\rPress the checkmark to Exit");
    ui.ShutDownProgram();
  }
}

void ReadSwitches(const platform::IniFile& file) {
  const MachineSwitches switches = ReadMachineSwitches(file);
  frm_Main& main = Loaded(ui.forms.main);
  Set(main.chk_DXT, switches.dxt);
  Set(main.chk_Fast, switches.fast);
}

}  // namespace

void LoadCumulusConfiguration() {
  Read("Cumulus", [](const auto& file) { ReadFamily(Family::kCloud, file, ui.catalogue); });
}

void LoadSkyConfiguration() {
  Read("Sky", [](const auto& file) { ReadFamily(Family::kSky, file, ui.catalogue); });
}

void LoadWaterConfiguration() {
  Read("Water", [](const auto& file) { ReadFamily(Family::kWater, file, ui.catalogue); });
}

void LoadMainConfiguration() {
  Read("Main", ReadSwitches);
  ui.ConfigurationLoaded = true;
}

}  // namespace nimbrel
