#include "support/recorders.h"

#include "settings/mod_Main.h"
#include "shell/MainSwitches.h"
#include "shell/RefreshMainPage.h"
#include "shell/frm_Msg.h"

RecordedCalls Recorded;

namespace nimbrel {

std::int16_t MessageAnswer = 0;

namespace {

struct SwitchForm {
  toolkit::Form form{"frm_Main"};
  toolkit::CheckBox sun{form, "chk_Sun"};
  toolkit::CheckBox contrails{form, "chk_Contrails"};
  toolkit::CheckBox dxt{form, "chk_DXT"};
  toolkit::CheckBox fast{form, "chk_Fast"};
};

void TakePercent(double percent) {
  Recorded.percents.push_back(percent);
  if (Recorded.on_percent) {
    Recorded.on_percent();
  }
}

}  // namespace

MainSwitches Switches() {
  static auto* const form = new SwitchForm;  // outlives the toolkit, as its windows would not
  return {form->sun, form->contrails, form->dxt, form->fast};
}

void RefreshMainPage() { ++Recorded.refreshes; }

void ShutDownProgram() {
  ++Recorded.endings;
  if (Recorded.on_ending) {
    Recorded.on_ending();
  }
  throw ProgramEnded();
}

void ShowMessage(std::string_view kind, std::string_view title, std::string_view text, bool showOk,
                 bool showCancel, bool progress) {
  Recorded.messages.push_back(
      {std::string(kind), std::string(title), std::string(text), showOk, showCancel, progress});
  if (Recorded.on_message) {
    Recorded.on_message();
  }
}

void UpdateProgress(std::string_view title, std::string_view text, double percent) {
  Recorded.updates.push_back({std::string(title), std::string(text), percent});
  TakePercent(percent);
}

void DrawProgress(double percent) { TakePercent(percent); }

void HideMessage() { ++Recorded.hides; }

}  // namespace nimbrel
