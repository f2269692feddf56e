#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "settings/Catalogue.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// The page that lists the favourites and shows what the selected one holds.
struct frm_Favorite {
  frm_Favorite();
  /// All thirteen.
  std::vector<toolkit::Label*> Values();

  toolkit::Form form{"frm_Favorite"};
  toolkit::Label lbl_Help{form, "lbl_Help"};
  toolkit::ListBox lst_Favorites{form, "lst_Favorites"};
  std::vector<std::unique_ptr<toolkit::Label>> Captions;
  /// In the order of kOptionGroups.
  std::array<toolkit::Label, kOptionGroups.size()> GroupValues{{{form, "lbl_Cloud_Solid"},
                                                                {form, "lbl_Cloud_Stratus"},
                                                                {form, "lbl_Cloud_Wispy"},
                                                                {form, "lbl_Cloud_Cirrus"},
                                                                {form, "lbl_Sky_Sunrise"},
                                                                {form, "lbl_Sky_Day"},
                                                                {form, "lbl_Sky_Sunset"},
                                                                {form, "lbl_Sky_Night"},
                                                                {form, "lbl_Water_Base"},
                                                                {form, "lbl_Water_Environment"},
                                                                {form, "lbl_Water_Waves"}}};
  toolkit::Label lbl_SunContrail{form, "lbl_SunContrail"};
  toolkit::Label lbl_Description{form, "lbl_Description"};
  StandardButton btn_Delete{form, "btn_Delete"};
  StandardButton btn_Load{form, "btn_Load"};
};

/// The PendingMessageAction of the question before a deletion.
inline constexpr std::int16_t kDeleteFavorite = 1;

/// The page, loaded at the first call.
frm_Favorite& FavoritePage();
/// For shutdown.
void ReleaseFavoritePage();
/// The lists that page navigation switches.
std::span<toolkit::Control* const> FavoriteLists();

/// Reads the folder anew and shows its first favourite.
void ListFavorites();
/// Shows entry `index` on the page and fills its list; without entries it empties both.
void ShowFavoriteDetails(std::int16_t index);

/// The actions of the page's buttons. Without a selected row they do nothing.
void AskToDeleteFavorite();
void LoadSelectedFavorite();

/// What OK does after AskToDeleteFavorite. It clears PendingMessageAction, and tells when the file
/// can't be deleted.
void DeleteSelectedFavorite();

}  // namespace nimbrel
