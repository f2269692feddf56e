#include "history/frm_Favorite.h"

#include <string>

#include "history/mod_Favorites.h"
#include "platform/text.h"
#include "shell/PageForm.h"
#include "shell/Pages.h"
#include "shell/frm_Msg.h"
#include "shell/mod_GDIP_PagePainting.h"

namespace nimbrel {
namespace {

frm_Favorite* favorite_page = nullptr;

/// The entry that the list keeps selected across a refresh; -1 selects the first row.
std::int16_t FavoriteFocusIndex = 0;
/// True while the list is refilled: what it tells then is not the user's.
bool FavoriteListBusy = false;

constexpr const char* kDeleteTitle = "Delete Favorite Collection?";

constexpr int kCaptionLeft = 269;
constexpr int kValueLeft = 368;
constexpr int kValueWidth = 220;
constexpr int kLineHeight = 16;
constexpr int kSunContrailTop = 239;
/// In the order of kOptionGroups.
constexpr std::array<int, kOptionGroups.size()> kValueTops{87,  103, 119, 135, 175, 191,
                                                           207, 223, 280, 296, 312};

struct CaptionRow {
  const char* text;
  LabelPlace place;
  bool heading = false;
};
constexpr std::array kCaptions{
    CaptionRow{"Favorites List:", {10, 71, 134, kLineHeight}, true},
    CaptionRow{"Cloud Settings:", {kCaptionLeft, 71, 221, kLineHeight}, true},
    CaptionRow{"Solid Cumulus:", {kCaptionLeft, 87, 95, kLineHeight}},
    CaptionRow{"Stratus:", {kCaptionLeft, 103, 95, kLineHeight}},
    CaptionRow{"Wispy Edges:", {kCaptionLeft, 119, 95, kLineHeight}},
    CaptionRow{"Cirrus:", {kCaptionLeft, 135, 95, kLineHeight}},
    CaptionRow{"Sky Texture Settings:", {kCaptionLeft, 159, 221, kLineHeight}, true},
    CaptionRow{"Sunrise:", {kCaptionLeft, 175, 95, kLineHeight}},
    CaptionRow{"Day:", {kCaptionLeft, 191, 95, kLineHeight}},
    CaptionRow{"Sunset:", {kCaptionLeft, 207, 95, kLineHeight}},
    CaptionRow{"Night:", {kCaptionLeft, 223, 95, kLineHeight}},
    CaptionRow{"Sun/Contrails:", {kCaptionLeft, kSunContrailTop, 95, kLineHeight}},
    CaptionRow{"Water Settings:", {kCaptionLeft, 264, 221, kLineHeight}, true},
    CaptionRow{"Base Color Set:", {kCaptionLeft, 280, 95, kLineHeight}},
    CaptionRow{"Reflection Set:", {kCaptionLeft, 296, 95, kLineHeight}},
    CaptionRow{"Wave Height:", {kCaptionLeft, 312, 95, kLineHeight}},
    CaptionRow{"Collection Description:", {kCaptionLeft, 336, 189, kLineHeight}, true},
};

constexpr const char* kHelp =
    "This form displays a list of all collections that you have added to your favorites list.  You "
    "may select a collection and view the information about the it by highlighting the collection "
    "in the list.  To remove a collection, highlight the desired collection and press the Delete "
    "button.  To set an existing collection into the current interface settings, press the Open "
    "button.";

void AddCaptions(frm_Favorite& page) {
  for (const CaptionRow& row : kCaptions) {
    auto& label =
        *page.Captions.emplace_back(std::make_unique<toolkit::Label>(page.form, "lbl_Caption"));
    PlaceLabel(label, row.place, row.text);
    if (row.heading) {
      label.SetFont(kBoldFont);
    }
  }
}

void PlaceValues(frm_Favorite& page) {
  for (std::size_t group = 0; group < kValueTops.size(); ++group) {
    PlaceLabel(page.GroupValues[group], {kValueLeft, kValueTops[group], kValueWidth, kLineHeight});
  }
  PlaceLabel(page.lbl_SunContrail, {kValueLeft, kSunContrailTop, kValueWidth, kLineHeight});
  PlaceLabel(page.lbl_Description, {kCaptionLeft, 354, 317, 82});
}

/// The rebuild keeps the row that was clicked, and its place under the pointer.
void OnRowClick() {
  toolkit::ListBox& list = FavoritePage().lst_Favorites;
  if (FavoriteListBusy || list.ListIndex() < 0) {
    return;
  }
  const int top = list.TopIndex();
  FavoriteFocusIndex = static_cast<std::int16_t>(list.ItemData(list.ListIndex()));
  ShowFavoriteDetails(FavoriteFocusIndex);
  FavoriteFocusIndex = -1;
  list.SetTopIndex(top);
}

void ShowValues(frm_Favorite& page, const FavoriteRecord& favorite) {
  const SettingsRecord& settings = favorite.Settings;
  for (std::size_t i = 0; i < kOptionGroups.size(); ++i) {
    const OptionGroup& group = kOptionGroups[i];
    page.GroupValues[i].SetCaption(
        Catalogue.At(group.family, group.index, settings.*kRecordFields[i]).Title);
  }
  page.lbl_SunContrail.SetCaption(std::string(settings.Sun == 1 ? "Yes / " : "No / ") +
                                  (settings.Contrails == 1 ? " Yes" : " No"));
  page.lbl_Description.SetCaption(platform::Trim(favorite.Description));
}

void SelectFocusedRow(toolkit::ListBox& list) {
  if (FavoriteFocusIndex == -1) {
    list.SetListIndex(0);
    return;
  }
  for (int row = 0; row < list.ListCount(); ++row) {
    if (list.ItemData(row) == FavoriteFocusIndex) {
      list.SetListIndex(row);
      return;
    }
  }
}

void FillList(toolkit::ListBox& list) {
  FavoriteListBusy = true;
  list.SetEnabled(true);
  list.Clear();
  for (std::int16_t i = 0; i <= FavoriteLastIndex; ++i) {
    list.AddItem(platform::Trim(FavoriteEntries[static_cast<std::size_t>(i)].Title), i);
  }
  SelectFocusedRow(list);
  FavoriteListBusy = false;
}

}  // namespace

frm_Favorite::frm_Favorite() {
  PlaceLabel(lbl_Help, {10, 9, 576, 54}, kHelp);
  lst_Favorites.PlacePixels(10, 89, 251, 303);
  lst_Favorites.Click = OnRowClick;
  AddCaptions(*this);
  PlaceValues(*this);
  LoadPageForm(form, FormId::kFavorite, "SubLighter_BG.bmp");
  SetUpButton(
      btn_Delete, form,
      {166, 395, "delete", "btn_Delete", "Click to Delete the selected Favorite collection."});
  SetUpButton(btn_Load, form,
              {220, 395, "load", "btn_Open",
               "Click to set the selected Favorite collection and its settings into the Nimbrel "
               "interface."});
  for (toolkit::Label* label : Values()) {
    label->SetForeColor(kValueColor);
  }
}

std::vector<toolkit::Label*> frm_Favorite::Values() {
  std::vector<toolkit::Label*> labels{&lbl_SunContrail, &lbl_Description};
  for (toolkit::Label& label : GroupValues) {
    labels.push_back(&label);
  }
  return labels;
}

frm_Favorite& FavoritePage() { return LoadedPage(favorite_page); }

void ReleaseFavoritePage() {
  ReleasePage(favorite_page, FormId::kFavorite);
  FavoriteFocusIndex = 0;
}

std::span<toolkit::Control* const> FavoriteLists() {
  static toolkit::Control* list = nullptr;
  list = &FavoritePage().lst_Favorites;
  return {&list, 1};
}

void ListFavorites() {
  ReadFavorites();
  ShowFavoriteDetails(0);
}

void ShowFavoriteDetails(std::int16_t index) {
  frm_Favorite& page = FavoritePage();
  if (index >= 0 && index <= FavoriteLastIndex) {
    ShowValues(page, FavoriteEntries[static_cast<std::size_t>(index)]);
  } else {
    for (toolkit::Label* label : page.Values()) {
      label->SetCaption({});
    }
  }
  FillList(page.lst_Favorites);
}

void AskToDeleteFavorite() {
  if (FavoritePage().lst_Favorites.ListIndex() < 0) {
    return;
  }
  PendingMessageAction = kDeleteFavorite;
  ShowMessage("Question", kDeleteTitle,
              "You are about to permanently delete the selected favorite collection.\r\r"
              "Do you wish to continue?",
              true, true, false);
}

void DeleteSelectedFavorite() {
  const toolkit::ListBox& list = FavoritePage().lst_Favorites;
  const platform::FileStatus status = list.ListIndex() < 0
                                          ? platform::FileStatus::kOk
                                          : DeleteFavorite(list.ItemData(list.ListIndex()));
  ListFavorites();
  PendingMessageAction = 0;
  // The user has asked for it to be gone: a row that comes back needs its reason.
  if (status != platform::FileStatus::kOk) {
    ShowMessage("Error", kDeleteTitle,
                "The favorite collection was not deleted: its file " +
                    std::string(platform::Describe(status)) +
                    ".\r\rPress the checkmark to continue.",
                true, false, false);
  }
}

void LoadSelectedFavorite() {
  const toolkit::ListBox& list = FavoritePage().lst_Favorites;
  if (list.ListIndex() < 0) {
    return;
  }
  LoadFavorite(list.ItemData(list.ListIndex()));
  HidePage(CurrentPage);
  CurrentPage = "frm_Main";
  SetPageTitle("Nimbrel Main", "icon_Home.bmp");
  ShowMessage("Information", "Favorites Collection Loaded",
              "The selected favorite collection has been loaded into the Nimbrel interface.\r\r"
              "To use these settings in Flight Simulator, press the Save and Install button.\r\r"
              "Press the checkmark to continue.",
              true, false, false);
}

}  // namespace nimbrel
