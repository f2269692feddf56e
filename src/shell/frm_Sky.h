#pragma once

#include <array>

#include "platform/forms.h"
#include "widgets/SkinnedButtons.h"

namespace nimbrel {

/// The sky page: one large round picture in a rim of fourteen small ones.
struct frm_Sky {
  frm_Sky();

  platform::Form form;
  platform::Label Label7;
  platform::Label lbl_Setting;
  platform::Label Label2;
  std::array<platform::Label, 4> GroupLabels;  ///< Label3 to Label6
  std::array<platform::Label, 4> lbl_Title;
  platform::Label Label1;
  platform::Label lbl_Description;
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
