#pragma once

#include "toolkit/forms.h"

namespace nimbrel {

/// The four switches. Their check boxes on the main page are the only copy of their state.
struct MainSwitches {
  toolkit::CheckBox& chk_Sun;
  toolkit::CheckBox& chk_Contrails;
  toolkit::CheckBox& chk_DXT;
  toolkit::CheckBox& chk_Fast;
};

/// Loads frm_Main when it does not exist yet.
MainSwitches Switches();

/// A switch is on at exactly 1.
inline bool IsOn(const toolkit::CheckBox& box) { return box.Value() == 1; }

}  // namespace nimbrel
