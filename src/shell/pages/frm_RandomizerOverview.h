#pragma once

#include "shell/PageForm.h"
#include "shell/pages/GroupLabels.h"
#include "shell/pages/RandomizerTabs.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// The randomizer's first page: the latest random selection, and the buttons that draw a new one
/// and keep the shown one as a favourite.
struct frm_RandomizerOverview {
  frm_RandomizerOverview();

  toolkit::Form form{"frm_RandomizerOverview"};
  RandomizerTabs tabs;
  Captions captions;
  toolkit::Label lbl_DateTime{form, "lbl_DateTime"};
  TitleLabels titles;
  toolkit::Label lbl_Sky_Sun{form, "lbl_Sky_Sun"};
  toolkit::Label lbl_Sky_Contrails{form, "lbl_Sky_Contrails"};
  toolkit::Label lbl_PreviewText{form, "lbl_PreviewText"};
  LargeButton btn_Randomize{form, "btn_Randomize"};
  LargeButton btn_AddFavorite{form, "btn_AddFavorite"};
  PreviewSpots preview_spots;
};

/// The small previews on the page.
inline constexpr PreviewGrid kOverviewPreviews{357, 103, 97};

}  // namespace nimbrel
