#include "shell/pages/frm_RandomizerOverview.h"

#include <array>

namespace nimbrel {
namespace {

constexpr const char* kHelp =
    "The previous setting, installed by the randomizer, is displayed on this page.  Constraints on "
    "the randomizer can be made by selecting the Clouds, Sky, or Water settings tabs.   New random "
    "settings can be created with the Randomize button at the bottom of the page.";

constexpr std::array kCaptions{
    CaptionRow{"Label12", "Currently Viewing:", {15, 84, 125, 16}, true},
    CaptionRow{"Label2", "Cloud Settings:", {15, 103, 221, 16}, true},
    CaptionRow{"Label1", "Solid Cumulus:", {15, 123, 95, 16}},
    CaptionRow{"Label4", "Stratus:", {15, 139, 95, 16}},
    CaptionRow{"Label5", "Wispy Edges:", {15, 155, 95, 16}},
    CaptionRow{"Label6", "Cirrus:", {15, 171, 95, 16}},
    CaptionRow{"Label11", "Sky Texture Settings:", {15, 200, 221, 16}, true},
    CaptionRow{"Label10", "Sunrise:", {15, 220, 95, 16}},
    CaptionRow{"Label9", "Day:", {15, 236, 95, 16}},
    CaptionRow{"Label8", "Sunset:", {15, 252, 95, 16}},
    CaptionRow{"Label7", "Night:", {15, 268, 95, 16}},
    CaptionRow{"Label18", "Sun Texture:", {367, 252, 95, 16}},
    CaptionRow{"Label20", "Contrails:", {367, 268, 95, 16}},
    CaptionRow{"Label16", "Water Settings:", {15, 297, 221, 16}, true},
    CaptionRow{"Label15", "Base Color Set:", {15, 317, 95, 16}},
    CaptionRow{"Label14", "Reflection Set:", {15, 333, 95, 16}},
    CaptionRow{"Label13", "Wave Height:", {15, 349, 95, 16}},
};

/// Each family has a row of previews; its titles begin 20 pixels below that row's top.
constexpr int TitleTop(const GroupFacts& group) {
  return kOverviewPreviews.Top(group.group) + 20 + 16 * IndexInFamily(group.group);
}

}  // namespace

frm_RandomizerOverview::frm_RandomizerOverview() : tabs(form, RandomizerTab::kOverviewTab, kHelp) {
  LoadPageForm(form, "SubLighter_BG.bmp");
  captions = MakeCaptions(form, kCaptions);
  titles = MakeTitleLabels(form, 114, 242, TitleTop);
  PlaceLabel(lbl_DateTime, {143, 84, 210, 16});
  PlaceLabel(lbl_Sky_Sun, {466, 252, 107, 16});
  PlaceLabel(lbl_Sky_Contrails, {466, 268, 107, 16});
  for (toolkit::Label* label : {&lbl_DateTime, &lbl_Sky_Sun, &lbl_Sky_Contrails}) {
    label->SetForeColor(kValueColor);
  }
  PlaceLabel(lbl_PreviewText, {4, 427, 587, 16}, kPreviewClosedText);
  lbl_PreviewText.SetAlignment(toolkit::kAlignCenter);
  preview_spots = MakePreviewSpots(form, kOverviewPreviews, form);
  PlaceButton(btn_Randomize, form,
              {305, 378, "randomize", "btn_Random",
               "Click to create new randomized options and set those options into the Nimbrel "
               "Interface."});
  PlaceButton(btn_AddFavorite, form,
              {165, 378, "add_favorite", "btn_AddFavorites",
               "Click to save the currently displayed options to your Favorites List."});
}

}  // namespace nimbrel
