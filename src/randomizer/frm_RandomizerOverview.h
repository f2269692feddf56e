#pragma once

#include <array>
#include <memory>
#include <vector>

#include "randomizer/frm_RandomizerTabs.h"
#include "settings/Catalogue.h"
#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// The randomizer's first page: the latest random selection, and the buttons that draw a new one
/// and keep the shown one as a favourite.
struct frm_RandomizerOverview {
  frm_RandomizerOverview();

  toolkit::Form form{"frm_RandomizerOverview"};
  RandomizerTabs tabs;
  std::vector<std::unique_ptr<toolkit::Label>> captions;  ///< the labels that never change
  toolkit::Label lbl_DateTime{form, "lbl_DateTime"};
  /// Title of each group's option, in the order of kOptionGroups: lbl_Cloud_Solid and so on.
  std::array<std::unique_ptr<toolkit::Label>, kOptionGroups.size()> titles;
  toolkit::Label lbl_Sky_Sun{form, "lbl_Sky_Sun"};
  toolkit::Label lbl_Sky_Contrails{form, "lbl_Sky_Contrails"};
  toolkit::Label lbl_PreviewText{form, "lbl_PreviewText"};
  LargeButton btn_Randomize{form, "btn_Randomize"};
  LargeButton btn_AddFavorite{form, "btn_AddFavorite"};
  /// Transparent labels over the small previews: the control arrays lbl_CloudPreview,
  /// lbl_SkyPreview and lbl_WaterPreview, in the order of kOptionGroups.
  std::array<std::unique_ptr<toolkit::Label>, kOptionGroups.size()> preview_spots;

 private:
  void PlaceCaptions();
  void PlaceValues();
  void MakePreviewSpots();
  void PlaceButtons();
};

/// The page, loaded at the first call.
frm_RandomizerOverview& RandomizerOverview();
/// For shutdown.
void ReleaseRandomizerOverview();

/// Shows the RandomizerRecord: titles, words, date and the eleven previews. Clearing and refreshing
/// the page is the caller's.
void FillRandomizerOverview();

}  // namespace nimbrel
