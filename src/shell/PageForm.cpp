#include "shell/PageForm.h"

#include <string>

#include "platform/system.h"
#include "widgets/SmallFontFix.h"

namespace nimbrel {
namespace {
constexpr float kPageWidth = 8940;   // twips
constexpr float kPageHeight = 6750;  // twips
}  // namespace

void PlaceLabel(toolkit::Label& label, const LabelPlace& place, std::string_view caption) {
  label.PlacePixels(place.left, place.top, place.width, place.height);
  label.SetCaption(caption);
}

void LoadPageForm(toolkit::Form& form, FormId id, std::string_view background) {
  FixFormForFontSize(form);
  form.SetWidth(FontScaleFactor * kPageWidth);
  form.SetHeight(FontScaleFactor * kPageHeight);
  SetFormLoaded(id);
  for (toolkit::Control* control : form.Controls()) {
    if (auto* label = dynamic_cast<toolkit::Label*>(control)) {
      label->SetForeColor(kTextColor);
      label->SetTransparent(true);
    }
  }
  form.SetBackColor(kPlainColor);
  form.SetPicture(platform::ApplicationFolder() + "\\Media\\" + std::string(background));
}

}  // namespace nimbrel
