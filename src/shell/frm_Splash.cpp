#include "shell/frm_Splash.h"

#include <string>

#include "platform/system.h"
#include "shell/FormLoaded.h"
#include "shell/PageForm.h"
#include "widgets/SmallFontFix.h"

namespace nimbrel {
namespace {

constexpr float kWidth = 6000;   ///< twips
constexpr float kHeight = 4500;  ///< twips

/// Freed by its release alone: static objects end after the toolkit does.
frm_Splash* splash_form = nullptr;

}  // namespace

frm_Splash::frm_Splash() : shape(std::make_unique<clsTransForm>()) {
  const std::string media = platform::ApplicationFolder() + "\\Media\\";
  FixFormForFontSize(form);
  form.SetCaption("Nimbrel Message");
  form.SetWidth(kWidth);
  form.SetHeight(kHeight);
  form.CenterOnScreen();
  form.SetMouseIcon(toolkit::LoadCursorFile(media + "HMOVE.cur"));
  ShapeFromFile(*shape, form, "\\Media\\MsgRegion.dat");
  form.SetBackColor(kPlainColor);
  form.SetPicture(media + "Splash_BG.bmp");
  SetFormLoaded(FormId::kSplash);
}

frm_Splash& SplashForm() {
  if (splash_form == nullptr) {
    splash_form = new frm_Splash;
  }
  return *splash_form;
}

void ReleaseSplashForm() {
  delete splash_form;
  splash_form = nullptr;
  ClearFormLoaded(FormId::kSplash);
}

}  // namespace nimbrel
