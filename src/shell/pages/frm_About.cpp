#include "shell/pages/frm_About.h"

#include <string>

#include "settings/Version.h"
#include "shell/PageForm.h"

namespace nimbrel {

frm_About::frm_About() {
  LoadPageForm(form, "About_BG.bmp");
  PlaceLabel(Label12, {190, 62, 221, 18}, "Nimbrel");
  Label12.SetFont({.size = 9.75F, .weight = 700, .bold = true});
  PlaceLabel(Label11, {200, 82, 279, 16}, "For Flight Simulator 2004");
  Label11.SetFont(kBoldFont);
  PlaceLabel(lbl_Version, {190, 393, 200, 16}, std::string("version: ") + kVersion);
  lbl_Version.SetForeColor(kValueColor);
}

}  // namespace nimbrel
