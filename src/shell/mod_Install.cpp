#include "shell/mod_Install.h"

#include <algorithm>
#include <string>

#include "install/Install.h"
#include "install/Progress.h"
#include "shell/State.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/mod_Misc.h"
#include "shell/pages/frm_Main.h"

namespace nimbrel {
namespace {

constexpr const char* kTitle = "Copying Files to Flight Simulator";
constexpr std::size_t kMaxNamedFailures = 3;  ///< for which the message dialog has room

/// Shows a run on the message dialog.
class ShownProgress final : public Progress {
 public:
  void Announce(std::string_view sentence, double percent) override {
    UpdateProgress(kTitle, sentence, percent);
  }
  void Advance(double percent) override { DrawProgress(percent); }
  void Breathe() override { toolkit::DoEvents(); }
};

/// What the user sees and can't do during a run. However the run ends, the dialog, whose buttons
/// are off, is hidden and the pointer restored.
class RunOnScreen {
 public:
  RunOnScreen() {
    toolkit::Screen::SetMousePointer(toolkit::kPointerHourglass);
    ShowMessage("Progress", kTitle, kTitle, false, false, true);
  }
  RunOnScreen(const RunOnScreen&) = delete;
  RunOnScreen& operator=(const RunOnScreen&) = delete;
  ~RunOnScreen() {
    HideMessage();
    toolkit::Screen::SetMousePointer(toolkit::kPointerDefault);
  }

 private:
  toolkit::InputGuard no_second_press_;
};

std::string FailureText(const Report& report) {
  const std::size_t count = report.failures.size();
  std::string text = count == 1
                         ? "One file could not be put into Flight Simulator."
                         : std::to_string(count) + " files could not be put into Flight Simulator.";
  text += " What stood there before is still in place.\r";
  for (std::size_t i = 0; i < std::min(count, kMaxNamedFailures); ++i) {
    const FileFailure& failure = report.failures[i];
    text += "\r" + failure.file + " " + std::string(platform::Describe(failure.status)) + ".";
  }
  return text + (count > kMaxNamedFailures ? "\r..." : "");
}

}  // namespace

Report InstallSettings() {
  const frm_Main& main = Loaded(ui.forms.main);
  const RunOnScreen screen;
  ShownProgress progress;
  return Install(CurrentChoice(), {.dxt = IsOn(main.chk_DXT), .fast = IsOn(main.chk_Fast)},
                 ui.catalogue, ui.folders, progress);
}

void TellReport(const Report& report) {
  if (report.error.empty()) {
    ShowMessage("Information", kTitle,
                "All environment files have been copied to Flight Simulator.\r\r"
                "Please press the checkmark to continue.",
                true, false, false);
  } else {
    Tell("Error", kTitle, report.error);
  }
  if (!report.failures.empty()) {
    Tell("Exclamation", kTitle, FailureText(report));
  }
}

}  // namespace nimbrel
