// What the layers under the shell ask of it, for benchmarks that do without its windows.

#include <cstdio>
#include <cstdlib>

#include "settings/mod_Main.h"
#include "shell/MainSwitches.h"
#include "shell/RefreshMainPage.h"
#include "toolkit/forms.h"

namespace nimbrel {

MainSwitches Switches() {
  static toolkit::Form form("frm_Main");
  static toolkit::CheckBox sun(form, "chk_Sun");
  static toolkit::CheckBox contrails(form, "chk_Contrails");
  static toolkit::CheckBox dxt(form, "chk_DXT");
  static toolkit::CheckBox fast(form, "chk_Fast");
  return {sun, contrails, dxt, fast};
}

void RefreshMainPage() {}

void ShutDownProgram() {
  std::fprintf(stderr, "the program refused what the benchmark gave it\n");
  std::_Exit(EXIT_FAILURE);
}

}  // namespace nimbrel
