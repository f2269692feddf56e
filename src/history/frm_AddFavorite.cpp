#include "history/frm_AddFavorite.h"

#include <string>

#include "history/frm_Favorite.h"
#include "history/mod_Favorites.h"
#include "platform/system.h"
#include "platform/text.h"
#include "shell/PageForm.h"
#include "shell/frm_Main.h"
#include "shell/frm_Msg.h"
#include "shell/mod_GDIP_PagePainting.h"
#include "widgets/SmallFontFix.h"

namespace nimbrel {
namespace {

frm_AddFavorite* add_favorite_form = nullptr;
std::int16_t favorite_source = kFavoriteOfSelection;

// Twips, whatever the display's density.
constexpr float kDialogWidth = 7500;
constexpr float kDialogHeight = 5220;
/// Characters, so that neither text reaches the end of its field in the file.
constexpr int kMostTitle = 254;
constexpr int kMostDescription = 999;

constexpr const char* kTitleText = "Enter a Title for this Favorite";
constexpr const char* kDescriptionText = "Enter a Description for this Favorite";

std::string MediaFile(std::string_view name) {
  return platform::ApplicationFolder() + "\\Media\\" + std::string(name);
}

/// So that the first key takes the place of what stands there.
void SelectWhole(toolkit::TextBox& box) {
  box.Select(0, static_cast<int>(platform::ToAnsi(platform::Trim(box.Text())).size()));
}

void SetUpText(toolkit::TextBox& box, int most, std::string_view text) {
  box.SetFont(kRingFont);
  box.SetMaxLength(most);
  box.SetText(text);
  box.GotFocus = [&box] { SelectWhole(box); };
  box.DblClick = box.GotFocus;
}

/// What the form holds before its load runs; the font fix scales it.
void LayOut(frm_AddFavorite& dialog) {
  dialog.form.SetCaption("Add Settings to Favorites");
  dialog.pic_ScreenIcon.PlacePixels(27, 27, 44, 44);
  PlaceLabel(dialog.Label1, {30, 81, 440, 45},
             "Use this form to enter the information about the new Favorite set you are adding to "
             "Nimbrel.  Fill in a title for the favorite settings as well as a description.  Press "
             "the checkmark button to complete.");
  PlaceLabel(dialog.Label2, {30, 133, 111, 17}, "Title:");
  dialog.txt_Title.PlacePixels(31, 154, 437, 24);
  PlaceLabel(dialog.Label3, {30, 185, 111, 17}, "Description:");
  dialog.txt_Description.PlacePixels(31, 206, 437, 65);
  SetUpText(dialog.txt_Title, kMostTitle, kTitleText);
  SetUpText(dialog.txt_Description, kMostDescription, std::string(kDescriptionText) + "\r\n");
}

void Load(frm_AddFavorite& dialog) {
  dialog.shape = std::make_unique<clsTransForm>();
  FixFormForFontSize(dialog.form);
  dialog.form.SetWidth(kDialogWidth);
  dialog.form.SetHeight(kDialogHeight);
  dialog.form.SetMouseIcon(toolkit::LoadCursorFile(MediaFile("HMOVE.cur")));
  ShapeFromFile(*dialog.shape, dialog.form, "\\Media\\AddRegion.dat");
  dialog.form.SetBackColor(kPlainColor);
  dialog.form.SetPicture(MediaFile("AddFavorite_BG.bmp"));
  SetFormLoaded(FormId::kAddFavorite);
  for (toolkit::Label* label : {&dialog.Label1, &dialog.Label2, &dialog.Label3}) {
    label->SetForeColor(kTextColor);
    label->SetTransparent(true);
  }
  SetUpButton(dialog.btn_Cancel, dialog.form,
              {340, 275, "cancel", "btn_Cancel",
               "Click to cancel saving the selected favorite collection."});
  SetUpButton(dialog.btn_Continue, dialog.form,
              {395, 275, "continue", "btn_CheckAll",
               "Click to save the favorite collection with the entered information."});
}

void SetPlaceholders(frm_AddFavorite& dialog) {
  dialog.txt_Title.SetText(kTitleText);
  dialog.txt_Description.SetText(kDescriptionText);
}

void CenterOn(const toolkit::Form& owner, toolkit::Form& form) {
  form.SetLeft(owner.Width() / 2 - form.Width() / 2 + owner.Left());
  form.SetTop(owner.Height() / 2 - form.Height() / 2 + owner.Top());
}

}  // namespace

frm_AddFavorite::frm_AddFavorite() {
  LayOut(*this);
  // The window manager's close is the button that keeps nothing.
  form.QueryUnload = [this] { btn_Cancel.Activate(); };
  Load(*this);
}

frm_AddFavorite& AddFavoriteForm() {
  if (add_favorite_form == nullptr) {
    add_favorite_form = new frm_AddFavorite;
    // Paints on the form, so the form has to be found by then.
    SetAddFavoriteTitle("Favorite Information", "icon_favorites.bmp");
  }
  return *add_favorite_form;
}

void ReleaseAddFavoriteForm() { ReleasePage(add_favorite_form, FormId::kAddFavorite); }

void OpenAddFavorite(std::int16_t source) {
  frm_AddFavorite& dialog = AddFavoriteForm();
  CenterOn(MainForm().form, dialog.form);
  favorite_source = source;
  dialog.txt_Title.SetFocus();
  dialog.form.ShowModal();
}

void ContinueAddFavorite() {
  frm_AddFavorite& dialog = AddFavoriteForm();
  if (!SaveFavorite(favorite_source, dialog.txt_Title.Text(), dialog.txt_Description.Text())) {
    return;
  }
  SetPlaceholders(dialog);
  ListFavorites();
  dialog.form.Hide();
  ShowMessage("Information", "Favorite Collection Saved",
              "A favorites collection has been saved.\r\r"
              "You can access all favorites collections on the Favorites screen by pressing the "
              "Favorites button.\r\rPress the checkmark to continue.",
              true, false, false);
}

void CancelAddFavorite() {
  frm_AddFavorite& dialog = AddFavoriteForm();
  SetPlaceholders(dialog);
  dialog.form.Hide();
}

}  // namespace nimbrel
