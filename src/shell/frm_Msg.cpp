#include "shell/frm_Msg.h"

#include <array>
#include <string>

#include "platform/system.h"
#include "platform/text.h"
#include "shell/FormLoaded.h"
#include "shell/mod_GDIP_DrawingRoutines.h"
#include "toolkit/desktop.h"
#include "widgets/SmallFontFix.h"

namespace nimbrel {

std::int16_t PendingMessageAction = 0;
std::int16_t MessageAnswer = 0;
toolkit::Form& (*MessageOwner)() = nullptr;

namespace {

// Twips, whatever the display's density.
constexpr float kDialogWidth = 6000;
constexpr float kDialogHeight = 4500;

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

/// Freed by its release alone: static objects end after the toolkit does.
frm_Msg* dialog_form = nullptr;

std::string MediaFile(std::string_view name) {
  return platform::ApplicationFolder() + "\\Media\\" + std::string(name);
}

void Place(toolkit::Control& control, float left, float top, float width, float height) {
  control.SetLeft(left);
  control.SetTop(top);
  control.SetWidth(width);
  control.SetHeight(height);
}

/// What the form holds before its load runs; the font fix scales it.
void LayOut(frm_Msg& dialog) {
  dialog.form.SetCaption("Nimbrel Message");
  Place(dialog.lbl_Title, 278, 840, 5445, 525);
  Place(dialog.lbl_Message, 1973, 1470, 3750, 1995);
  Place(dialog.pic_Icon, 225, 1800, 1500, 1500);
  dialog.lbl_Title.SetFont({.name = "Verdana", .size = 9.75F, .weight = 700, .bold = true});
  dialog.lbl_Title.SetAlignment(toolkit::kAlignCenter);
}

void ColorLabel(toolkit::Label& label) {
  label.SetForeColor(platform::RGB(96, 96, 96));
  label.SetTransparent(true);
}

void Load(frm_Msg& dialog) {
  dialog.shape = std::make_unique<clsTransForm>();
  FixFormForFontSize(dialog.form);
  dialog.form.SetWidth(kDialogWidth);
  dialog.form.SetHeight(kDialogHeight);
  dialog.form.SetMouseIcon(toolkit::LoadCursorFile(MediaFile("HMOVE.cur")));
  ShapeFromFile(*dialog.shape, dialog.form, "\\Media\\MsgRegion.dat");
  dialog.form.SetBackColor(platform::RGB(201, 213, 231));
  dialog.form.SetPicture(MediaFile("Msg_BG.bmp"));
  SetFormLoaded(FormId::kMsg);
  ColorLabel(dialog.lbl_Title);
  ColorLabel(dialog.lbl_Message);
  SetUpButton(dialog.btn_Cancel, dialog.form, kCancelSetup);
  SetUpButton(dialog.btn_OK, dialog.form, kOkSetup);
}

/// The window manager's close presses the button that means "no", or else the only one there is.
/// In progress mode there is none.
void AnswerClose() {
  frm_Msg& dialog = MessageForm();
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

/// Without its icon file a message shows none: another kind's would say something false.
void ShowIcon(toolkit::PictureBox& icon, std::string_view kind) {
  icon.SetVisible(icon.SetPicture(MediaFile("icon_" + std::string(kind) + ".bmp")));
}

void OfferButton(StandardButton& button, bool offered) {
  button.SetVisible(offered);
  button.Setstate(offered ? "enabled" : "disabled");
}

void Center(toolkit::Form& form) {
  if (MessageOwner == nullptr) {
    form.CenterOnScreen();
    return;
  }
  const toolkit::Form& owner = MessageOwner();
  form.SetLeft(owner.Width() / 2 - form.Width() / 2 + owner.Left());
  form.SetTop(owner.Height() / 2 - form.Height() / 2 + owner.Top());
}

void ShowProgressMode(frm_Msg& dialog) {
  OfferButton(dialog.btn_OK, false);
  OfferButton(dialog.btn_Cancel, false);
  Center(dialog.form);
  dialog.form.Show();
  dialog.form.ZOrder();
}

void ShowMessageMode(frm_Msg& dialog, bool show_ok, bool show_cancel) {
  OfferButton(dialog.btn_OK, show_ok);
  OfferButton(dialog.btn_Cancel, show_cancel);
  Center(dialog.form);
  dialog.form.Cls();
  dialog.form.Refresh();
  dialog.form.ShowModal();
}

}  // namespace

frm_Msg::frm_Msg()
    : form("frm_Msg"),
      lbl_Title(form, "lbl_Title"),
      lbl_Message(form, "lbl_Message"),
      pic_Icon(form, "pic_Icon"),
      btn_Cancel(form, "btn_Cancel"),
      btn_OK(form, "btn_OK") {
  LayOut(*this);
  form.QueryUnload = AnswerClose;
  Load(*this);
}

frm_Msg& MessageForm() {
  if (dialog_form == nullptr) {
    dialog_form = new frm_Msg;
  }
  return *dialog_form;
}

void ReleaseMessageForm() {
  delete dialog_form;
  dialog_form = nullptr;
  ClearFormLoaded(FormId::kMsg);
}

void ShowMessage(std::string_view kind, std::string_view title, std::string_view text, bool showOk,
                 bool showCancel, bool progress) {
  frm_Msg& dialog = MessageForm();
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

void UpdateProgress(std::string_view title, std::string_view text, double percent) {
  frm_Msg& dialog = MessageForm();
  dialog.lbl_Title.SetCaption(platform::Trim(title));
  dialog.lbl_Message.SetCaption(platform::Trim(text));
  DrawProgress(percent);
}

void DrawProgress(double percent) {
  toolkit::Form& form = MessageForm().form;
  form.Cls();
  DrawProgressBox(form.hDC(), percent);
  form.Refresh();
}

void HideMessage() {
  if (dialog_form != nullptr && dialog_form->form.Visible()) {
    dialog_form->form.Hide();
  }
}

void OpenHelpFile() {
  toolkit::ShellExecuteA(platform::ApplicationFolder() + "\\Nimbrel Help.pdf");
}

}  // namespace nimbrel
