#pragma once

#include <memory>

#include "platform/forms.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {

struct frm_Splash {
  frm_Splash();
  std::unique_ptr<clsTransForm> shape;
  platform::Form form;
};
/// The form, loaded at the first call.
frm_Splash& SplashForm();
void ReleaseSplashForm();

}  // namespace nimbrel
