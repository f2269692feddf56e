#include "shell/mod_WriteConfiguration.h"

#include "settings/Configuration.h"
#include "shell/State.h"
#include "shell/mod_Misc.h"
#include "shell/pages/frm_Main.h"

namespace nimbrel {

void WriteMainFlags() {
  if (!ui.ConfigurationLoaded) {
    return;
  }
  const frm_Main& main = Loaded(ui.forms.main);
  const MachineSwitches switches{.dxt = IsOn(main.chk_DXT), .fast = IsOn(main.chk_Fast)};
  if (WriteMachineSwitches(switches, ui.folders) == platform::FileStatus::kNoSource) {
    ShowMissingInformationFile();
  }
}

void WriteInhibitFlags() {
  if (!ui.ConfigurationLoaded) {
    return;
  }
  const platform::FileStatus status = WriteInhibitFlags(ui.catalogue, ui.folders);
  // ShutDownProgram comes here too, after WriteMainFlags has told.
  if (status == platform::FileStatus::kNoSource && !ui.ShuttingDown) {
    ShowMissingInformationFile();
    ui.ShutDownProgram();
  }
}

}  // namespace nimbrel
