#pragma once

#include "platform/forms.h"

namespace nimbrel {

/// The four switches. Their check boxes on the main page are the only copy of their state.
struct MainSwitches {
  platform::CheckBox& chk_Sun;
  platform::CheckBox& chk_Contrails;
  platform::CheckBox& chk_DXT;
  platform::CheckBox& chk_Fast;
};

/// Loads frm_Main when it does not exist yet.
MainSwitches Switches();

/// A switch is on at exactly 1.
inline bool IsOn(const platform::CheckBox& box) { return box.Value() == 1; }

}  // namespace nimbrel
