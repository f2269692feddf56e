#include "shell/dialogs/frm_AddFavorite.h"

#include <string>

#include "platform/text.h"
#include "shell/PageForm.h"
#include "shell/State.h"
#include "shell/painting/PagePainting.h"
#include "toolkit/gdiplus.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {
namespace {

constexpr ShapedWindowSpec kWindow{"Add Settings to Favorites", 500, 348, "AddRegion.dat",
                                   "AddFavorite_BG.bmp"};
constexpr toolkit::RectF kTitlePlace{77, 27, 350, 44};

/// Characters, so that neither text reaches the end of its field in the file.
constexpr int kMaxTitle = 254;
constexpr int kMaxDescription = 999;

constexpr const char* kTitleText = "Enter a Title for this Favorite";
constexpr const char* kDescriptionText = "Enter a Description for this Favorite";

/// The first key then replaces the text.
void SelectWhole(toolkit::TextBox& box) {
  box.Select(0, static_cast<int>(platform::ToAnsi(platform::Trim(box.Text())).size()));
}

void SetUpText(toolkit::TextBox& box, int max_length, std::string_view text) {
  box.SetFont(kRingFont);
  box.SetMaxLength(max_length);
  box.SetText(text);
  box.GotFocus = [&box] { SelectWhole(box); };
  box.DblClick = box.GotFocus;
}

}  // namespace

frm_AddFavorite::frm_AddFavorite() {
  shape = LoadShapedForm(form, kWindow);
  pic_ScreenIcon.PlacePixels(27, 27, 44, 44);
  PlaceLabel(Label1, {30, 81, 440, 45},
             "Use this form to enter the information about the new Favorite set you are adding to "
             "Nimbrel.  Fill in a title for the favorite settings as well as a description.  Press "
             "the checkmark button to complete.");
  PlaceLabel(Label2, {30, 133, 111, 17}, "Title:");
  txt_Title.PlacePixels(31, 154, 437, 24);
  PlaceLabel(Label3, {30, 185, 111, 17}, "Description:");
  txt_Description.PlacePixels(31, 206, 437, 65);
  SetUpText(txt_Title, kMaxTitle, kTitleText);
  SetUpText(txt_Description, kMaxDescription, std::string(kDescriptionText) + "\r\n");
  PlaceButton(btn_Cancel, form,
              {340, 275, "cancel", "btn_Cancel",
               "Click to cancel saving the selected favorite collection."});
  PlaceButton(btn_Continue, form,
              {395, 275, "continue", "btn_CheckAll",
               "Click to save the favorite collection with the entered information."});
  // The window manager's close is the button that keeps nothing.
  form.QueryUnload = [this] { btn_Cancel.Activate(); };
}

frm_AddFavorite::~frm_AddFavorite() = default;

void frm_AddFavorite::SetPlaceholders() {
  txt_Title.SetText(kTitleText);
  txt_Description.SetText(kDescriptionText);
}

void SetAddFavoriteTitle(std::string_view title, std::string_view icon_file) {
  frm_AddFavorite& dialog = Loaded(ui.forms.add_favorite);
  DrawHead(dialog.form, dialog.pic_ScreenIcon, kTitlePlace, title, icon_file);
  dialog.form.Refresh();
}

}  // namespace nimbrel
