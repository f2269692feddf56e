#pragma once

#include <cstdint>
#include <memory>

#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {

/// The dialog that takes a favourite's title and description.
struct frm_AddFavorite {
  frm_AddFavorite();

  toolkit::Form form{"frm_AddFavorite"};
  toolkit::PictureBox pic_ScreenIcon{form, "pic_ScreenIcon"};
  toolkit::Label Label1{form, "Label1"};
  toolkit::Label Label2{form, "Label2"};
  toolkit::TextBox txt_Title{form, "txt_Title"};
  toolkit::Label Label3{form, "Label3"};
  toolkit::TextBox txt_Description{form, "txt_Description", toolkit::TextLines::kSeveral};
  StandardButton btn_Cancel{form, "btn_Cancel"};
  StandardButton btn_Continue{form, "btn_Continue"};
  std::unique_ptr<clsTransForm> shape;
};

/// The dialog, loaded at the first call.
frm_AddFavorite& AddFavoriteForm();
/// For shutdown.
void ReleaseAddFavoriteForm();

/// Asks for title and description of what `source` shows, kFavoriteOfSelection or
/// kFavoriteOfRandomizer, and returns when the dialog has closed.
void OpenAddFavorite(std::int16_t source);

/// The actions of the dialog's buttons. A failed save throws RunTimeFailure and leaves the dialog
/// with the user's texts.
void ContinueAddFavorite();
void CancelAddFavorite();

}  // namespace nimbrel
