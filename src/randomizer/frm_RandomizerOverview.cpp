#include "randomizer/frm_RandomizerOverview.h"

#include <string>

#include "platform/system.h"
#include "settings/Selection.h"
#include "shell/PageForm.h"
#include "shell/frm_Preview.h"
#include "shell/mod_GDIP_PagePainting.h"

namespace nimbrel {
namespace {

constexpr const char* kHelp =
    "The previous setting, installed by the randomizer, is displayed on this page.  Constraints on "
    "the randomizer can be made by selecting the Clouds, Sky, or Water settings tabs.   New random "
    "settings can be created with the Randomize button at the bottom of the page.";

// Pixels of the page.
constexpr int kMiniWidth = 47;
constexpr int kMiniHeight = 35;
constexpr int kPreviewLeft = 0;
constexpr int kPreviewTop = 120;
/// Each family's block of the page starts here, with its heading and its row of previews.
constexpr int FamilyTop(std::int16_t family) { return 103 + 97 * family; }
constexpr int MiniLeft(const OptionGroup& group) { return 357 + 60 * group.index; }
constexpr int TitleTop(const OptionGroup& group) {
  return FamilyTop(group.family) + 20 + 16 * group.index;
}

struct CaptionRow {
  const char* name;
  const char* caption;
  LabelPlace place;
  bool bold = false;
};
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

/// In the order of kOptionGroups.
constexpr std::array<const char*, kOptionGroups.size()> kTitleNames{
    "lbl_Cloud_Solid", "lbl_Cloud_Stratus",     "lbl_Cloud_Wispy", "lbl_Cloud_Cirrus",
    "lbl_Sky_Sunrise", "lbl_Sky_Day",           "lbl_Sky_Sunset",  "lbl_Sky_Night",
    "lbl_Water_Base",  "lbl_Water_Environment", "lbl_Water_Waves"};

constexpr std::array<const char*, kFamilies> kSpotNames{"lbl_CloudPreview", "lbl_SkyPreview",
                                                        "lbl_WaterPreview"};

std::int16_t DrawnOption(std::size_t place) { return RandomizerRecord.*kRecordFields[place]; }

void ShowOptionPreview(std::size_t place) {
  const OptionGroup& group = kOptionGroups[place];
  OpenPreview(group.family, group.index, DrawnOption(place), RandomizerOverview().form,
              kPreviewLeft, kPreviewTop);
}

/// Freed by its release alone: static objects end after the toolkit does.
frm_RandomizerOverview* overview = nullptr;

}  // namespace

frm_RandomizerOverview::frm_RandomizerOverview() : tabs(form, RandomizerTab::kOverviewTab, kHelp) {
  PlaceCaptions();
  PlaceValues();
  MakePreviewSpots();
  LoadPageForm(form, FormId::kRandomizerOverview, "SubLighter_BG.bmp");
  PlaceButtons();
  tabs.ColorTabs();
  for (toolkit::Label* label : {&lbl_DateTime, &lbl_Sky_Sun, &lbl_Sky_Contrails}) {
    label->SetForeColor(kValueColor);
  }
  for (const auto& title : titles) {
    title->SetForeColor(kValueColor);
  }
}

void frm_RandomizerOverview::PlaceCaptions() {
  for (const CaptionRow& row : kCaptions) {
    captions.push_back(std::make_unique<toolkit::Label>(form, row.name));
    PlaceLabel(*captions.back(), row.place, row.caption);
    if (row.bold) {
      captions.back()->SetFont(kBoldFont);
    }
  }
}

void frm_RandomizerOverview::PlaceValues() {
  PlaceLabel(lbl_DateTime, {143, 84, 210, 16});
  PlaceLabel(lbl_Sky_Sun, {466, 252, 107, 16});
  PlaceLabel(lbl_Sky_Contrails, {466, 268, 107, 16});
  PlaceLabel(lbl_PreviewText, {4, 427, 587, 16}, kPreviewClosedText);
  lbl_PreviewText.SetAlignment(toolkit::kAlignCenter);
  for (std::size_t i = 0; i < titles.size(); ++i) {
    titles[i] = std::make_unique<toolkit::Label>(form, kTitleNames[i]);
    PlaceLabel(*titles[i], {114, TitleTop(kOptionGroups[i]), 242, 16});
  }
}

void frm_RandomizerOverview::MakePreviewSpots() {
  for (std::size_t i = 0; i < preview_spots.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    preview_spots[i] = std::make_unique<toolkit::Label>(
        form, std::string(kSpotNames[static_cast<std::size_t>(group.family)]) + "(" +
                  std::to_string(group.index) + ")");
    PlaceLabel(*preview_spots[i],
               {MiniLeft(group), FamilyTop(group.family), kMiniWidth, kMiniHeight});
    preview_spots[i]->Click = [i] { ShowOptionPreview(i); };
    preview_spots[i]->SetMouseIcon(toolkit::HandCursor());
    preview_spots[i]->SetMousePointer(toolkit::kPointerCustom);
  }
}

void frm_RandomizerOverview::PlaceButtons() {
  SetUpButton(btn_Randomize, form,
              {305, 378, "randomize", "btn_Random",
               "Click to create new randomized options and set those options into the Nimbrel "
               "Interface."});
  SetUpButton(btn_AddFavorite, form,
              {165, 378, "add_favorite", "btn_AddFavorites",
               "Click to save the currently displayed options to your Favorites List."});
}

frm_RandomizerOverview& RandomizerOverview() { return LoadedPage(overview); }
void ReleaseRandomizerOverview() { ReleasePage(overview, FormId::kRandomizerOverview); }

void FillRandomizerOverview() {
  frm_RandomizerOverview& page = RandomizerOverview();
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    page.titles[i]->SetCaption(Catalogue.At(group.family, group.index, DrawnOption(i)).Title);
  }
  page.lbl_Sky_Sun.SetCaption(RandomizerRecord.Sun == 1 ? "Use Replacement" : "Use Default");
  page.lbl_Sky_Contrails.SetCaption(RandomizerRecord.Contrails == 1 ? "Use Extended"
                                                                    : "Use Default");
  page.lbl_DateTime.SetCaption(platform::FormatMoment(RandomizerRecord.Date));
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    DrawOverviewPreview(MiniLeft(group), FamilyTop(group.family), kMiniWidth, kMiniHeight,
                        group.family, group.index, DrawnOption(i));
  }
  if (const auto place = PreviewedGroup(page.form)) {
    ShowOptionPreview(*place);
  }
}

}  // namespace nimbrel
