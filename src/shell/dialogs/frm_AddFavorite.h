#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

class clsTransForm;

/// The dialog that takes a favourite's title and description.
struct frm_AddFavorite {
  frm_AddFavorite();
  ~frm_AddFavorite();
  /// Puts the texts of an untouched dialog into the two boxes.
  void SetPlaceholders();

  std::unique_ptr<clsTransForm> shape;
  toolkit::Form form{"frm_AddFavorite"};
  toolkit::PictureBox pic_ScreenIcon{form, "pic_ScreenIcon"};
  toolkit::Label Label1{form, "Label1"};
  toolkit::Label Label2{form, "Label2"};
  toolkit::TextBox txt_Title{form, "txt_Title"};
  toolkit::Label Label3{form, "Label3"};
  toolkit::TextBox txt_Description{form, "txt_Description", toolkit::TextLines::kSeveral};
  StandardButton btn_Cancel{form, "btn_Cancel"};
  StandardButton btn_Continue{form, "btn_Continue"};
  std::int16_t source = 0;  ///< what is to be saved: 0 the selection, 1 the RandomizerRecord
};

/// Title and icon at the head of the dialog, shown at once.
void SetAddFavoriteTitle(std::string_view title, std::string_view icon_file);

}  // namespace nimbrel
