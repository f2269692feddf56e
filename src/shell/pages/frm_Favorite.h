#pragma once

#include <cstdint>
#include <vector>

#include "shell/PageForm.h"
#include "shell/pages/GroupLabels.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// The page that lists the favourites and shows what the selected one holds.
struct frm_Favorite {
  frm_Favorite();

  toolkit::Form form{"frm_Favorite"};
  toolkit::Label lbl_Help{form, "lbl_Help"};
  toolkit::ListBox lst_Favorites{form, "lst_Favorites"};
  Captions captions;
  TitleLabels titles;
  toolkit::Label lbl_SunContrail{form, "lbl_SunContrail"};
  toolkit::Label lbl_Description{form, "lbl_Description"};
  StandardButton btn_Delete{form, "btn_Delete"};
  StandardButton btn_Load{form, "btn_Load"};
};

/// Shows entry `index` on the page and fills its list; an index outside the list empties the
/// values.
void ShowFavoriteDetails(std::int16_t index);
/// Index of the favourite in the selected row, -1 if no row is selected.
std::int32_t SelectedFavorite();

}  // namespace nimbrel
