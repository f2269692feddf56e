#include "shell/mod_Misc.h"

#include <string>

#include "platform/system.h"
#include "platform/text.h"
#include "settings/SettingsRecord.h"
#include "shell/State.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/pages/frm_Main.h"
#include "shell/pages/frm_Preview.h"
#include "shell/painting/PagePainting.h"
#include "toolkit/desktop.h"

namespace nimbrel {
namespace {

// Pixels of the main window.
constexpr int kPreviewLeft = 177;
constexpr int kPreviewTop = 240;

void ShowPictures(frm_Main& main, const Choice& choice) {
  main.pic_Main.Cls();
  DrawPreviews(main.pic_Main, kMainPreviews, choice, DrawSummaryPreview);
  main.pic_Main.Refresh();
  if (const auto group = PreviewedGroup(main.form)) {
    ShowMainPreview(*group);
  }
}

std::string HistoryRow(const SettingsRecord& entry) {
  return platform::Trim(platform::FormatMoment(entry.Date) +
                        (entry.Source == kFromRandomizer ? " - Randomizer" : " - User"));
}

/// Newest first.
void FillHistory(toolkit::ComboBox& combo) {
  combo.SetEnabled(true);
  combo.Clear();
  for (std::size_t i = ui.history.entries.size(); i-- > 0;) {
    combo.AddItem(HistoryRow(ui.history.entries[i]), static_cast<std::int32_t>(i));
  }
}

/// The row of the entry in focus, -1 if there is no such row.
int RowToSelect(const toolkit::ComboBox& combo) {
  if (ui.HistoryFocusIndex == -1) {
    return combo.ListCount() > 0 ? 0 : -1;
  }
  for (int row = 0; row < combo.ListCount(); ++row) {
    if (combo.ItemData(row) == ui.HistoryFocusIndex) {
      return row;
    }
  }
  return -1;
}

}  // namespace

Choice CurrentChoice() {
  const frm_Main& main = Loaded(ui.forms.main);
  return {ui.CurrentSelection, IsOn(main.chk_Sun), IsOn(main.chk_Contrails)};
}

void RecordToSelection(const SettingsRecord& record) {
  frm_Main& main = Loaded(ui.forms.main);
  ui.CurrentSelection = record.choice.option;
  Set(main.chk_Sun, record.choice.sun);
  Set(main.chk_Contrails, record.choice.contrails);
  RefreshMainPage();
}

SettingsRecord SelectionToRecord(std::int16_t source) {
  return {.Date = source == kFromRandomizer ? ui.RandomizerRecord.Date : ui.Now(),
          .Source = source,
          .choice = CurrentChoice()};
}

void RefreshMainPage() {
  frm_Main& main = Loaded(ui.forms.main);
  const Choice choice = CurrentChoice();
  ShowTitles(main.titles, choice);
  ShowPictures(main, choice);
  FillHistory(main.combo_History);
  main.combo_History.SetListIndex(RowToSelect(main.combo_History));
}

void ShowMainPreview(Group group) {
  OpenPreview(group, ui.CurrentSelection[group], Loaded(ui.forms.main).form, kPreviewLeft,
              kPreviewTop);
}

void OpenHelpFile() { toolkit::ShellExecuteA(ui.folders.program + "\\Nimbrel Help.pdf"); }

void ShowMissingInformationFile() {
  TellFatal(
      "Your NB_Information.cfg file has not been found.\r\r"
      "Nimbrel will not be able to load.\r\r"
      "Press the checkmark to Exit.");
}

}  // namespace nimbrel
