#pragma once

#include <array>

#include "toolkit/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// The sky page: one large round picture in a rim of fourteen small ones.
struct frm_Sky {
  frm_Sky();

  toolkit::Form form;
  toolkit::Label Label7;
  toolkit::Label lbl_Setting;
  toolkit::Label Label2;
  std::array<toolkit::Label, 4> GroupLabels;  ///< Label3 to Label6
  std::array<toolkit::Label, 4> lbl_Title;
  toolkit::Label Label1;
  toolkit::Label lbl_Description;
  StandardButton btn_Clockwise;
  StandardButton btn_CounterClockwise;
  StandardButton btn_Left;
  StandardButton btn_Right;
};

/// The page, loaded at the first call.
frm_Sky& SkyPage();
/// For shutdown.
void ReleaseSkyPage();

}  // namespace nimbrel
