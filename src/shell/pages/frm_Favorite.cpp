#include "shell/pages/frm_Favorite.h"

#include <array>
#include <string>

#include "platform/text.h"
#include "shell/State.h"

namespace nimbrel {
namespace {

constexpr int kCaptionLeft = 269;
constexpr int kValueLeft = 368;
constexpr int kValueWidth = 220;
constexpr int kLineHeight = 16;
constexpr int kSunContrailTop = 239;

/// Of the first title of each family.
constexpr PerFamily<int> kTitleTops{{{87, 175, 280}}};
constexpr int TitleTop(const GroupFacts& group) {
  return kTitleTops[group.family] + kLineHeight * IndexInFamily(group.group);
}

constexpr const char* kName = "lbl_Caption";
constexpr std::array kCaptions{
    CaptionRow{kName, "Favorites List:", {10, 71, 134, kLineHeight}, true},
    CaptionRow{kName, "Cloud Settings:", {kCaptionLeft, 71, 221, kLineHeight}, true},
    CaptionRow{kName, "Solid Cumulus:", {kCaptionLeft, 87, 95, kLineHeight}},
    CaptionRow{kName, "Stratus:", {kCaptionLeft, 103, 95, kLineHeight}},
    CaptionRow{kName, "Wispy Edges:", {kCaptionLeft, 119, 95, kLineHeight}},
    CaptionRow{kName, "Cirrus:", {kCaptionLeft, 135, 95, kLineHeight}},
    CaptionRow{kName, "Sky Texture Settings:", {kCaptionLeft, 159, 221, kLineHeight}, true},
    CaptionRow{kName, "Sunrise:", {kCaptionLeft, 175, 95, kLineHeight}},
    CaptionRow{kName, "Day:", {kCaptionLeft, 191, 95, kLineHeight}},
    CaptionRow{kName, "Sunset:", {kCaptionLeft, 207, 95, kLineHeight}},
    CaptionRow{kName, "Night:", {kCaptionLeft, 223, 95, kLineHeight}},
    CaptionRow{kName, "Sun/Contrails:", {kCaptionLeft, kSunContrailTop, 95, kLineHeight}},
    CaptionRow{kName, "Water Settings:", {kCaptionLeft, 264, 221, kLineHeight}, true},
    CaptionRow{kName, "Base Color Set:", {kCaptionLeft, 280, 95, kLineHeight}},
    CaptionRow{kName, "Reflection Set:", {kCaptionLeft, 296, 95, kLineHeight}},
    CaptionRow{kName, "Wave Height:", {kCaptionLeft, 312, 95, kLineHeight}},
    CaptionRow{kName, "Collection Description:", {kCaptionLeft, 336, 189, kLineHeight}, true},
};

constexpr const char* kHelp =
    "This form displays a list of all collections that you have added to your favorites list.  You "
    "may select a collection and view the information about the it by highlighting the collection "
    "in the list.  To remove a collection, highlight the desired collection and press the Delete "
    "button.  To set an existing collection into the current interface settings, press the Open "
    "button.";

/// The rebuild keeps the row that was clicked, and its place under the pointer.
void OnRowClick(toolkit::ListBox& list) {
  if (ui.FavoriteListBusy || list.ListIndex() < 0) {
    return;
  }
  const int top = list.TopIndex();
  ui.FavoriteFocusIndex = static_cast<std::int16_t>(list.ItemData(list.ListIndex()));
  ShowFavoriteDetails(ui.FavoriteFocusIndex);
  ui.FavoriteFocusIndex = -1;
  list.SetTopIndex(top);
}

void ShowValues(frm_Favorite& page, const FavoriteRecord& favorite) {
  const Choice& choice = favorite.Settings.choice;
  ShowTitles(page.titles, choice);
  page.lbl_SunContrail.SetCaption(std::string(choice.sun ? "Yes / " : "No / ") +
                                  (choice.contrails ? " Yes" : " No"));
  page.lbl_Description.SetCaption(platform::Trim(favorite.Description));
}

void EmptyValues(frm_Favorite& page) {
  for (const auto& title : page.titles) {
    title->SetCaption({});
  }
  page.lbl_SunContrail.SetCaption({});
  page.lbl_Description.SetCaption({});
}

void SelectFocusedRow(toolkit::ListBox& list) {
  if (ui.FavoriteFocusIndex == -1) {
    list.SetListIndex(0);
    return;
  }
  for (int row = 0; row < list.ListCount(); ++row) {
    if (list.ItemData(row) == ui.FavoriteFocusIndex) {
      list.SetListIndex(row);
      return;
    }
  }
}

void FillList(toolkit::ListBox& list) {
  ui.FavoriteListBusy = true;
  list.SetEnabled(true);
  list.Clear();
  for (std::size_t i = 0; i < ui.favorites.size(); ++i) {
    list.AddItem(platform::Trim(ui.favorites[i].record.Title), static_cast<std::int32_t>(i));
  }
  SelectFocusedRow(list);
  ui.FavoriteListBusy = false;
}

}  // namespace

frm_Favorite::frm_Favorite() {
  LoadPageForm(form, "SubLighter_BG.bmp");
  PlaceLabel(lbl_Help, {10, 9, 576, 54}, kHelp);
  lst_Favorites.PlacePixels(10, 89, 251, 303);
  lst_Favorites.Click = [this] { OnRowClick(lst_Favorites); };
  captions = MakeCaptions(form, kCaptions);
  titles = MakeTitleLabels(form, kValueLeft, kValueWidth, TitleTop);
  PlaceLabel(lbl_SunContrail, {kValueLeft, kSunContrailTop, kValueWidth, kLineHeight});
  PlaceLabel(lbl_Description, {kCaptionLeft, 354, 317, 82});
  lbl_SunContrail.SetForeColor(kValueColor);
  lbl_Description.SetForeColor(kValueColor);
  PlaceButton(
      btn_Delete, form,
      {166, 395, "delete", "btn_Delete", "Click to Delete the selected Favorite collection."});
  PlaceButton(btn_Load, form,
              {220, 395, "load", "btn_Open",
               "Click to set the selected Favorite collection and its settings into the Nimbrel "
               "interface."});
}

void ShowFavoriteDetails(std::int16_t index) {
  frm_Favorite& page = Loaded(ui.forms.favorites);
  if (index >= 0 && static_cast<std::size_t>(index) < ui.favorites.size()) {
    ShowValues(page, ui.favorites[static_cast<std::size_t>(index)].record);
  } else {
    EmptyValues(page);
  }
  FillList(page.lst_Favorites);
}

std::int32_t SelectedFavorite() {
  const toolkit::ListBox& list = Loaded(ui.forms.favorites).lst_Favorites;
  return list.ListIndex() < 0 ? -1 : list.ItemData(list.ListIndex());
}

}  // namespace nimbrel
