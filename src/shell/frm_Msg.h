#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {

/// The program's one message dialog. In message mode it is modal and answers by what its buttons'
/// actions do; in progress mode it stays open beside a running install, without buttons.
struct frm_Msg {
  frm_Msg();
  toolkit::Form form;
  toolkit::Label lbl_Title;
  toolkit::Label lbl_Message;
  toolkit::PictureBox pic_Icon;
  StandardButton btn_Cancel;
  StandardButton btn_OK;
  std::unique_ptr<clsTransForm> shape;
};

/// The dialog, loaded at the first call.
frm_Msg& MessageForm();
/// For shutdown.
void ReleaseMessageForm();

/// What an OK is to do: 0 nothing, 1 delete the selected favourite, 2 randomize and install. The
/// asker sets it before ShowMessage; the buttons' actions clear it.
extern std::int16_t PendingMessageAction;
/// 1 after OK, 0 after Cancel. Written by the buttons' actions, and -1 by the reader of an answer.
extern std::int16_t MessageAnswer;

/// The window that the dialog centres on. Set once by the shell; loads that window when needed.
/// Null (a test): the screen.
extern toolkit::Form& (*MessageOwner)();

/// Kinds: "Information", "Exclamation", "Error", "Question", "Progress". Without `progress` it
/// returns when the dialog has been hidden, with it at once.
void ShowMessage(std::string_view kind, std::string_view title, std::string_view text, bool showOk,
                 bool showCancel, bool progress);
/// Changes a dialog in progress mode, on the screen when it returns; `percent` from 0 to 100.
void UpdateProgress(std::string_view title, std::string_view text, double percent);
/// Box, bar and text of the progress on the dialog, on the screen when it returns.
void DrawProgress(double percent);
/// Hides the dialog; the ShowMessage that opened it returns.
void HideMessage();

/// Hands the help file to the system's viewer.
void OpenHelpFile();

}  // namespace nimbrel
