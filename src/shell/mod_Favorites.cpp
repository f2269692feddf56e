#include "shell/mod_Favorites.h"

#include <cstddef>
#include <string>

#include "history/FavoriteStore.h"
#include "shell/PageForm.h"
#include "shell/Pages.h"
#include "shell/State.h"
#include "shell/dialogs/frm_AddFavorite.h"
#include "shell/dialogs/frm_Msg.h"
#include "shell/mod_Misc.h"
#include "shell/pages/frm_Favorite.h"
#include "shell/pages/frm_Main.h"

namespace nimbrel {
namespace {

constexpr const char* kDeleteTitle = "Delete Favorite Collection?";

bool MayOverwrite() {
  Ask("Overwrite Favorites Collection?",
      "You are about to overwrite an existing Favorites Collection file.");
  const bool yes = ui.MessageAnswer == 1;
  ui.MessageAnswer = -1;
  return yes;
}

SettingsRecord RecordOf(std::int16_t source) {
  SettingsRecord record =
      source == kFavoriteOfRandomizer ? ui.RandomizerRecord : SelectionToRecord(kFromFavorite);
  record.Date = ui.Now();
  record.Source = kFromFavorite;
  return record;
}

/// The favourite at `index`, null outside the list.
const Favorite* FavoriteAt(std::int32_t index) {
  return index >= 0 && static_cast<std::size_t>(index) < ui.favorites.size()
             ? &ui.favorites[static_cast<std::size_t>(index)]
             : nullptr;
}

}  // namespace

void ListFavorites() {
  ui.favorites = ReadFavoriteFiles(ui.folders);
  ShowFavoriteDetails(0);
}

bool SaveFavorite(std::int16_t source, std::string_view title, std::string_view description) {
  const std::string path = FavoritePath(title, ui.folders);
  if (FavoriteExists(path) && !MayOverwrite()) {
    return false;
  }
  WriteFavoriteFile(path, {std::string(title), std::string(description), RecordOf(source)});
  return true;
}

void LoadFavorite(std::int32_t index) {
  if (const Favorite* favorite = FavoriteAt(index)) {
    RecordToSelection(favorite->record.Settings);
  }
}

void OpenAddFavorite(std::int16_t source) {
  frm_AddFavorite& dialog = Loaded(ui.forms.add_favorite);
  SetAddFavoriteTitle("Favorite Information", "icon_favorites.bmp");
  CenterOn(Loaded(ui.forms.main).form, dialog.form);
  dialog.source = source;
  dialog.txt_Title.SetFocus();
  dialog.form.ShowModal();
}

void ContinueAddFavorite() {
  frm_AddFavorite& dialog = Loaded(ui.forms.add_favorite);
  if (!SaveFavorite(dialog.source, dialog.txt_Title.Text(), dialog.txt_Description.Text())) {
    return;
  }
  dialog.SetPlaceholders();
  ListFavorites();
  dialog.form.Hide();
  Tell("Information", "Favorite Collection Saved",
       "A favorites collection has been saved.\r\r"
       "You can access all favorites collections on the Favorites screen by pressing the "
       "Favorites button.");
}

void CancelAddFavorite() {
  frm_AddFavorite& dialog = Loaded(ui.forms.add_favorite);
  dialog.SetPlaceholders();
  dialog.form.Hide();
}

void LoadSelectedFavorite() {
  const std::int32_t selected = SelectedFavorite();
  if (selected < 0) {
    return;
  }
  LoadFavorite(selected);
  ShowMainPage();
  Tell("Information", "Favorites Collection Loaded",
       "The selected favorite collection has been loaded into the Nimbrel interface.\r\r"
       "To use these settings in Flight Simulator, press the Save and Install button.");
}

void AskToDeleteFavorite() {
  if (SelectedFavorite() < 0) {
    return;
  }
  ui.PendingMessageAction = kDeleteFavorite;
  Ask(kDeleteTitle, "You are about to permanently delete the selected favorite collection.");
}

void DeleteSelectedFavorite() {
  const Favorite* favorite = FavoriteAt(SelectedFavorite());
  const platform::FileStatus status =
      favorite == nullptr ? platform::FileStatus::kOk : DeleteFavoriteFile(favorite->path);
  ListFavorites();
  ui.PendingMessageAction = 0;
  // A row that comes back needs its reason.
  if (status != platform::FileStatus::kOk) {
    Tell("Error", kDeleteTitle,
         "The favorite collection was not deleted: its file " +
             std::string(platform::Describe(status)) + ".");
  }
}

}  // namespace nimbrel
