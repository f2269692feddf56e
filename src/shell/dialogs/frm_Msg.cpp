#include "shell/dialogs/frm_Msg.h"

#include <array>

#include "platform/text.h"
#include "shell/PageForm.h"
#include "shell/State.h"
#include "shell/pages/frm_Main.h"
#include "shell/painting/mod_GDIP_DrawingRoutines.h"
#include "toolkit/desktop.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {
namespace {

struct KindSound {
  std::string_view kind;
  std::string_view alias;
};
constexpr std::array<KindSound, 4> kSounds = {{
    {"Information", "SystemNotification"},
    {"Exclamation", "SystemExclamation"},
    {"Error", "SystemAsterisk"},
    {"Question", "SystemQuestion"},
}};

constexpr ButtonSetup kCancelSetup{280, 242, "cancel", "btn_Cancel",
                                   "Click to answer No or to close window."};
constexpr ButtonSetup kOkSetup{335, 242, "ok", "btn_CheckAll",
                               "Click to answer Yes or to continue."};

/// A place that was laid out in twips.
constexpr LabelPlace FromTwips(double left, double top, double width, double height) {
  constexpr double kTwips = toolkit::kTwipsPerPixel;
  return {left / kTwips, top / kTwips, width / kTwips, height / kTwips};
}

/// The window manager's close presses the button that means "no", or else the only one. In progress
/// mode the dialog has no button and stays open.
void AnswerClose(frm_Msg& dialog) {
  for (StandardButton* button : {&dialog.btn_Cancel, &dialog.btn_OK}) {
    if (button->Visible()) {
      button->Activate();
      return;
    }
  }
}

void PlayKind(std::string_view kind) {
  for (const KindSound& row : kSounds) {
    if (row.kind == kind) {
      toolkit::PlaySoundA(row.alias, toolkit::SND_ALIAS | toolkit::SND_ASYNC);
    }
  }
}

/// Without its icon file a message shows none: another kind's would be wrong.
void ShowIcon(toolkit::PictureBox& icon, std::string_view kind) {
  icon.SetVisible(icon.SetPicture(MediaFile("icon_" + std::string(kind) + ".bmp")));
}

void OfferButton(StandardButton& button, bool offered) {
  button.SetVisible(offered);
  button.Setstate(offered ? "enabled" : "disabled");
}

void ShowProgressMode(frm_Msg& dialog) {
  OfferButton(dialog.btn_OK, false);
  OfferButton(dialog.btn_Cancel, false);
  CenterOn(Loaded(ui.forms.main).form, dialog.form);
  dialog.form.Show();
  dialog.form.ZOrder();
}

void ShowMessageMode(frm_Msg& dialog, bool show_ok, bool show_cancel) {
  OfferButton(dialog.btn_OK, show_ok);
  OfferButton(dialog.btn_Cancel, show_cancel);
  CenterOn(Loaded(ui.forms.main).form, dialog.form);
  dialog.form.Cls();
  dialog.form.Refresh();
  dialog.form.ShowModal();
}

}  // namespace

frm_Msg::frm_Msg() {
  shape = LoadShapedForm(form, {"Nimbrel Message", 400, 300, "MsgRegion.dat", "Msg_BG.bmp"});
  PlaceLabel(lbl_Title, FromTwips(278, 840, 5445, 525));
  PlaceLabel(lbl_Message, FromTwips(1973, 1470, 3750, 1995));
  pic_Icon.PlacePixels(15, 120, 100, 100);
  lbl_Title.SetFont({.size = 9.75F, .weight = 700, .bold = true});
  lbl_Title.SetAlignment(toolkit::kAlignCenter);
  PlaceButton(btn_Cancel, form, kCancelSetup);
  PlaceButton(btn_OK, form, kOkSetup);
  form.QueryUnload = [this] { AnswerClose(*this); };
}

frm_Msg::~frm_Msg() = default;

void ShowMessage(std::string_view kind, std::string_view title, std::string_view text, bool showOk,
                 bool showCancel, bool progress) {
  frm_Msg& dialog = Loaded(ui.forms.message);
  HideMessage();
  PlayKind(kind);
  ShowIcon(dialog.pic_Icon, kind);
  dialog.lbl_Title.SetCaption(title);
  dialog.lbl_Message.SetCaption(text);
  if (progress) {
    ShowProgressMode(dialog);
  } else {
    ShowMessageMode(dialog, showOk, showCancel);
  }
}

void Tell(std::string_view kind, std::string_view title, const std::string& text) {
  ShowMessage(kind, title, text + "\r\rPress the checkmark to continue.", true, false, false);
}

void Ask(std::string_view title, const std::string& text) {
  ShowMessage("Question", title, text + "\r\rDo you wish to continue?", true, true, false);
}

void TellFatal(std::string_view text) {
  ShowMessage("Error", "Nimbrel Fatal Error", text, true, false, false);
}

void UpdateProgress(std::string_view title, std::string_view text, double percent) {
  frm_Msg& dialog = Loaded(ui.forms.message);
  dialog.lbl_Title.SetCaption(platform::Trim(title));
  dialog.lbl_Message.SetCaption(platform::Trim(text));
  DrawProgress(percent);
}

void DrawProgress(double percent) {
  toolkit::Form& form = Loaded(ui.forms.message).form;
  form.Cls();
  DrawProgressBox(form.hDC(), percent);
  form.Refresh();
}

void HideMessage() {
  if (ui.forms.message != nullptr && ui.forms.message->form.Visible()) {
    ui.forms.message->form.Hide();
  }
}

}  // namespace nimbrel
