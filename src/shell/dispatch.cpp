#include "shell/dispatch.h"

#include <array>
#include <exception>
#include <string_view>

#include "install/Report.h"
#include "shell/Pages.h"
#include "shell/State.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/mod_Favorites.h"
#include "shell/mod_History.h"
#include "shell/mod_Install.h"
#include "shell/mod_Misc.h"
#include "shell/mod_Randomizer.h"
#include "shell/mod_WriteConfiguration.h"
#include "shell/pages/ConstraintPage.h"
#include "shell/pages/frm_Main.h"
#include "shell/pages/frm_Preview.h"
#include "shell/rings/RingActions.h"

namespace nimbrel {
namespace {

constexpr const char* kRandomizeTitle = "Randomize Settings?";

void Minimize() { Loaded(ui.forms.main).form.Minimize(); }

void GoHome() {
  if (ui.CurrentPage == "frm_Main") {
    return;
  }
  ClosePreview();
  ShowMainPage();
  RefreshMainPage();
}

/// The history entry is written before the first file is copied, so that a run that fails half-way
/// can be repeated from the list.
void SaveAndInstall() {
  AppendHistory(kFromUser);
  RefreshMainPage();
  TellReport(InstallSettings());
}

void AskToRandomize() {
  ui.PendingMessageAction = kRandomizeAndInstall;
  Ask(kRandomizeTitle,
      "You are about to randomize the Nimbrel settings and save those changes into Flight "
      "Simulator.");
}

/// Everything before the first file of the simulator is written.
void DrawAndRecord() {
  RandomizeSelection();
  ApplyRandomSelection();
  ShowRandomizerPage(RandomizerTab::kOverviewTab);
  WriteInhibitFlags();
  AppendHistory(kFromRandomizer);
}

/// The question is still open while all of this runs inside its OK. It counts as answered before
/// the next message is shown: an OK to that one must not draw again.
void RandomizeAndInstall() {
  Report report;
  std::string unrecorded;
  try {
    DrawAndRecord();
    report = InstallSettings();
  } catch (const std::exception& failure) {
    unrecorded = failure.what();
  }
  ui.PendingMessageAction = 0;
  if (unrecorded.empty()) {
    TellReport(report);
  } else {
    Tell("Error", kRandomizeTitle, unrecorded);
  }
}

void AnswerOk() {
  ui.MessageAnswer = 1;
  if (ui.PendingMessageAction == kDeleteFavorite) {
    DeleteSelectedFavorite();
  }
  if (ui.PendingMessageAction == kRandomizeAndInstall) {
    RandomizeAndInstall();
  }
  HidePage("frm_msg");
}

void AnswerCancel() {
  ui.PendingMessageAction = 0;
  ui.MessageAnswer = 0;
  HidePage("frm_msg");
}

struct ClickRow {
  ButtonClass button_class;
  std::string_view form;
  std::string_view type;
  void (*action)();
};
constexpr std::array kClicks{
    ClickRow{ButtonClass::kSmall, "frm_Main", "exit", [] { ui.ShutDownProgram(); }},
    ClickRow{ButtonClass::kSmall, "frm_Main", "minimize", Minimize},
    ClickRow{ButtonClass::kMedium, "frm_Main", "home", GoHome},
    ClickRow{ButtonClass::kMedium, "frm_Main", "help", OpenHelpFile},
    ClickRow{ButtonClass::kLarge, "frm_Main", "install", SaveAndInstall},
    ClickRow{ButtonClass::kLarge, "frm_Main", "load_history", LoadSelectedHistory},
    ClickRow{ButtonClass::kLarge, "frm_Main", "add_favorite",
             [] { OpenAddFavorite(kFavoriteOfSelection); }},
    ClickRow{ButtonClass::kLarge, "frm_RandomizerOverview", "randomize", AskToRandomize},
    ClickRow{ButtonClass::kLarge, "frm_RandomizerOverview", "add_favorite",
             [] { OpenAddFavorite(kFavoriteOfRandomizer); }},
    ClickRow{ButtonClass::kStandard, "frm_AddFavorite", "continue", ContinueAddFavorite},
    ClickRow{ButtonClass::kStandard, "frm_AddFavorite", "cancel", CancelAddFavorite},
    ClickRow{ButtonClass::kStandard, "frm_Favorite", "load", LoadSelectedFavorite},
    ClickRow{ButtonClass::kStandard, "frm_Favorite", "delete", AskToDeleteFavorite},
    ClickRow{ButtonClass::kStandard, "frm_Msg", "ok", AnswerOk},
    ClickRow{ButtonClass::kStandard, "frm_Msg", "cancel", AnswerCancel},
};

/// The clicks on what exists once for each group: check-all buttons and small previews.
void RunGroupClick(std::string_view form, std::string_view type) {
  for (const GroupFacts& facts : kGroups) {
    if (type == std::string(facts.prefix) + kCheckAllType) {
      CheckAllOptions(facts.group);
    } else if (type == std::string(kPreviewType) + facts.prefix) {
      const auto show = form == "frm_Main" ? ShowMainPreview : ShowOverviewPreview;
      show(facts.group);
    }
  }
}

}  // namespace

void RunClick(ButtonClass button_class, const std::string& form_name,
              const std::string& button_type) {
  for (const ClickRow& row : kClicks) {
    if (row.button_class == button_class && row.form == form_name && row.type == button_type) {
      row.action();
      return;
    }
  }
  if (RunRingClick(form_name, button_type)) {
    return;
  }
  if (button_class == ButtonClass::kMedium) {
    OpenPage(button_type);
  } else {
    RunGroupClick(form_name, button_type);
  }
}

}  // namespace nimbrel
