#include "shell/dialogs/frm_Splash.h"

#include "shell/PageForm.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {

frm_Splash::frm_Splash() {
  shape = LoadShapedForm(form, {"Nimbrel Message", 400, 300, "MsgRegion.dat", "Splash_BG.bmp"});
}

frm_Splash::~frm_Splash() = default;

}  // namespace nimbrel
