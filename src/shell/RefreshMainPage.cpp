#include "shell/RefreshMainPage.h"

#include <string>

#include "platform/system.h"
#include "platform/text.h"
#include "settings/Selection.h"
#include "shell/frm_Main.h"
#include "shell/frm_Preview.h"
#include "shell/mod_GDIP_PagePainting.h"

namespace nimbrel {
namespace {

constexpr int kPreviewLeft = 177;
constexpr int kPreviewTop = 240;

std::int16_t SelectedOption(const OptionGroup& group) {
  return CurrentSelection[static_cast<std::size_t>(group.family)]
                         [static_cast<std::size_t>(group.index)];
}

void ShowTitles(frm_Main& main) {
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    (main.*kSummaryLabels[i])
        .SetCaption(Catalogue.At(group.family, group.index, SelectedOption(group)).Title);
  }
}

void ShowPictures(frm_Main& main) {
  main.pic_Main.Cls();
  for (const OptionGroup& group : kOptionGroups) {
    DrawSummaryPreview(MiniLeft(group), MiniTop(group), kMiniWidth, kMiniHeight, group.family,
                       group.index, SelectedOption(group));
  }
  main.pic_Main.Refresh();
  if (const auto place = PreviewedGroup(main.form)) {
    ShowMainPreview(kOptionGroups[*place]);
  }
}

std::string HistoryRow(const SettingsRecord& entry) {
  return platform::Trim(platform::FormatMoment(entry.Date) +
                        (entry.Source == 1 ? " - Randomizer" : " - User"));
}

void FillHistory(toolkit::ComboBox& combo) {
  combo.SetEnabled(true);
  combo.Clear();
  for (int i = HistoryLastIndex; i >= 0; --i) {
    combo.AddItem(HistoryRow(HistoryEntries[static_cast<std::size_t>(i)]), i);
  }
}

/// The row of the entry in focus, the newest when none is, and -1 when there is no such row.
int RowToSelect(const toolkit::ComboBox& combo) {
  if (HistoryFocusIndex == -1) {
    return combo.ListCount() > 0 ? 0 : -1;
  }
  for (int row = 0; row < combo.ListCount(); ++row) {
    if (combo.ItemData(row) == HistoryFocusIndex) {
      return row;
    }
  }
  return -1;
}

}  // namespace

void RefreshMainPage() {
  frm_Main& main = MainForm();
  ShowTitles(main);
  ShowPictures(main);
  FillHistory(main.combo_History);
  main.combo_History.SetListIndex(RowToSelect(main.combo_History));
}

void ShowMainPreview(const OptionGroup& group) {
  OpenPreview(group.family, group.index, SelectedOption(group), MainForm().form, kPreviewLeft,
              kPreviewTop);
}

}  // namespace nimbrel
