#include "shell/frm_About.h"

#include <string>

#include "platform/system.h"
#include "shell/PageForm.h"

namespace nimbrel {
namespace {

frm_About* about_page = nullptr;

}  // namespace

frm_About::frm_About() {
  PlaceLabel(Label12, {190, 62, 221, 18}, "Nimbrel");
  Label12.SetFont({.size = 9.75F, .weight = 700, .bold = true});
  PlaceLabel(Label11, {200, 82, 279, 16}, "For Flight Simulator 2004");
  Label11.SetFont(kBoldFont);
  const platform::Version version = platform::ProgramVersion();
  PlaceLabel(lbl_Version, {190, 393, 200, 16},
             "version: " + std::to_string(version.major) + "." + std::to_string(version.minor) +
                 "." + std::to_string(version.revision));
  LoadPageForm(form, FormId::kAbout, "About_BG.bmp");
  lbl_Version.SetForeColor(kValueColor);
}

frm_About& AboutPage() { return LoadedPage(about_page); }
void ReleaseAboutPage() { ReleasePage(about_page, FormId::kAbout); }

}  // namespace nimbrel
