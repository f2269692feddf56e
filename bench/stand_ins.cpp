// What the layers under the shell ask of it, for benchmarks that do without its windows.

#include <cstdio>
#include <cstdlib>

#include "platform/forms.h"
#include "settings/mod_Main.h"
#include "shell/MainSwitches.h"
#include "shell/RefreshMainPage.h"

namespace nimbrel {

MainSwitches Switches() {
  static platform::Form form("frm_Main");
  static platform::CheckBox sun(form, "chk_Sun");
  static platform::CheckBox contrails(form, "chk_Contrails");
  static platform::CheckBox dxt(form, "chk_DXT");
  static platform::CheckBox fast(form, "chk_Fast");
  return {sun, contrails, dxt, fast};
}

void RefreshMainPage() {}

void ShutDownProgram() {
  std::fprintf(stderr, "the program refused what the benchmark gave it\n");
  std::_Exit(EXIT_FAILURE);
}

}  // namespace nimbrel
