#pragma once

#include "toolkit/forms.h"

namespace nimbrel {

/// The page that names the program and its version.
struct frm_About {
  frm_About();

  toolkit::Form form{"frm_About"};
  toolkit::Label Label12{form, "Label12"};
  toolkit::Label Label11{form, "Label11"};
  toolkit::Label lbl_Version{form, "lbl_Version"};
};

}  // namespace nimbrel
