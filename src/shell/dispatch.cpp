#include <array>
#include <string>
#include <string_view>

#include "history/mod_History.h"
#include "install/mod_Install.h"
#include "settings/Selection.h"
#include "settings/mod_Main.h"
#include "shell/Pages.h"
#include "shell/RefreshMainPage.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"
#include "shell/frm_Preview.h"
#include "shell/mod_GDIP_PagePainting.h"

namespace nimbrel {
namespace {

void Minimize() { MainForm().form.Minimize(); }

void GoHome() {
  if (CurrentPage == "frm_Main") {
    return;
  }
  ClosePreview();
  HidePage(CurrentPage);
  CurrentPage = "frm_Main";
  SetPageTitle("Nimbrel Main", "icon_Home.bmp");
  RefreshMainPage();
}

/// The history entry stands before the first file is copied, so that a run that fails half-way can
/// be done again from the list.
void Install() {
  AppendHistory(0);
  RefreshMainPage();
  InstallAndReport();
}

void LoadHistory() {
  const platform::ComboBox& combo = MainForm().combo_History;
  if (combo.ListIndex() < 0) {
    return;
  }
  HistoryFocusIndex = static_cast<std::int16_t>(combo.ItemData(combo.ListIndex()));
  LoadHistoryEntry(HistoryFocusIndex);
  HistoryFocusIndex = -1;
  ShowMessage("Information", "History Settings Loaded",
              "The history settings have been loaded into the Nimbrel interface.\r\r"
              "To use these settings in Flight Simulator, press the Save and Install button.\r\r"
              "Press the checkmark to continue.",
              true, false, false);
}

void AnswerOk() {
  MessageAnswer = 1;
  HidePage("frm_msg");
}

void AnswerCancel() {
  PendingMessageAction = 0;
  MessageAnswer = 0;
  HidePage("frm_msg");
}

struct ClickRow {
  ButtonClass button_class;
  std::string_view form;
  std::string_view type;
  void (*action)();
};

constexpr std::array kClicks{
    ClickRow{ButtonClass::kSmall, "frm_Main", "exit", [] { ShutDownProgram(); }},
    ClickRow{ButtonClass::kSmall, "frm_Main", "minimize", Minimize},
    ClickRow{ButtonClass::kMedium, "frm_Main", "home", GoHome},
    ClickRow{ButtonClass::kMedium, "frm_Main", "help", OpenHelpFile},
    ClickRow{ButtonClass::kLarge, "frm_Main", "install", Install},
    ClickRow{ButtonClass::kLarge, "frm_Main", "load_history", LoadHistory},
    ClickRow{ButtonClass::kStandard, "frm_Msg", "ok", AnswerOk},
    ClickRow{ButtonClass::kStandard, "frm_Msg", "cancel", AnswerCancel},
};

}  // namespace

void RunClick(ButtonClass button_class, const std::string& form_name,
              const std::string& button_type) {
  for (const ClickRow& row : kClicks) {
    if (row.button_class == button_class && row.form == form_name && row.type == button_type) {
      row.action();
      return;
    }
  }
}

}  // namespace nimbrel
