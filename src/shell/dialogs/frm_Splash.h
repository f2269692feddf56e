#pragma once

#include <memory>

#include "toolkit/forms.h"

namespace nimbrel {

class clsTransForm;

/// Shown on the desktop while the program starts. It has no timer and takes no input.
struct frm_Splash {
  frm_Splash();
  ~frm_Splash();

  std::unique_ptr<clsTransForm> shape;
  toolkit::Form form{"frm_Splash"};
};

}  // namespace nimbrel
