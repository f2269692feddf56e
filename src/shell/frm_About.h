#pragma once

#include "platform/forms.h"

namespace nimbrel {

/// The page that names the program and its version.
struct frm_About {
  frm_About();

  platform::Form form{"frm_About"};
  platform::Label Label12{form, "Label12"};
  platform::Label Label11{form, "Label11"};
  platform::Label lbl_Version{form, "lbl_Version"};
};

/// The page, loaded at the first call.
frm_About& AboutPage();
/// For shutdown.
void ReleaseAboutPage();

}  // namespace nimbrel
