#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

class clsTransForm;

/// The program's one message dialog. In message mode it is modal and answers by what its buttons'
/// actions do; in progress mode it stays open beside a running install, without buttons.
struct frm_Msg {
  frm_Msg();
  ~frm_Msg();

  std::unique_ptr<clsTransForm> shape;
  toolkit::Form form{"frm_Msg"};
  toolkit::Label lbl_Title{form, "lbl_Title"};
  toolkit::Label lbl_Message{form, "lbl_Message"};
  toolkit::PictureBox pic_Icon{form, "pic_Icon"};
  StandardButton btn_Cancel{form, "btn_Cancel"};
  StandardButton btn_OK{form, "btn_OK"};
};

/// Kinds: "Information", "Exclamation", "Error", "Question", "Progress". Without `progress` it
/// returns when the dialog has been hidden, with it at once. Centred on the main window.
void ShowMessage(std::string_view kind, std::string_view title, std::string_view text, bool showOk,
                 bool showCancel, bool progress);
/// A message with an OK button. The sentence that names the button is added to the text.
void Tell(std::string_view kind, std::string_view title, const std::string& text);
/// A question with OK and Cancel. The sentence "Do you wish to continue?" is added to the text.
void Ask(std::string_view title, const std::string& text);
/// The message before the program ends by a failure.
void TellFatal(std::string_view text);

/// Changes a dialog in progress mode, on the screen when it returns; `percent` from 0 to 100.
void UpdateProgress(std::string_view title, std::string_view text, double percent);
/// Box, bar and text of the progress on the dialog, on the screen when it returns.
void DrawProgress(double percent);
/// Hides the dialog; the ShowMessage that opened it returns.
void HideMessage();

}  // namespace nimbrel
