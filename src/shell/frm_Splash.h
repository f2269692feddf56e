#pragma once

#include <memory>

#include "toolkit/forms.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {

/// Stands on the desktop while the program starts. It has no timer and takes no input.
struct frm_Splash {
  frm_Splash();
  std::unique_ptr<clsTransForm> shape;
  toolkit::Form form{"frm_Splash"};
};
/// The form, loaded at the first call.
frm_Splash& SplashForm();
/// For shutdown.
void ReleaseSplashForm();

}  // namespace nimbrel
