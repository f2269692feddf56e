#include "shell/PageForm.h"

#include "shell/State.h"
#include "widgets/SkinnedButtons.h"
#include "widgets/clsTransForm.h"

namespace nimbrel {
namespace {

constexpr int kPageWidth = 596;
constexpr int kPageHeight = 450;

}  // namespace

std::string MediaFile(std::string_view name) {
  return ui.folders.program + "\\Media\\" + std::string(name);
}

void PlaceLabel(toolkit::Label& label, const LabelPlace& place, std::string_view caption) {
  label.PlacePixels(place.left, place.top, place.width, place.height);
  label.SetCaption(caption);
  label.SetForeColor(kTextColor);
  label.SetTransparent(true);
}

Captions MakeCaptions(toolkit::Container& container, std::span<const CaptionRow> rows) {
  Captions captions;
  for (const CaptionRow& row : rows) {
    toolkit::Label& label =
        *captions.emplace_back(std::make_unique<toolkit::Label>(container, row.name));
    PlaceLabel(label, row.place, row.text);
    if (row.bold) {
      label.SetFont(kBoldFont);
    }
  }
  return captions;
}

void PlaceButton(SkinnedButton& button, toolkit::Form& form, const ButtonSetup& setup) {
  SetUpButton(button, form, ui.buttons, setup);
}

void SetHandPointer(toolkit::Control& control) {
  control.SetMouseIcon(toolkit::HandCursor());
  control.SetMousePointer(toolkit::kPointerCustom);
}

void LoadPageForm(toolkit::Form& form, std::string_view background) {
  form.PlacePixels(0, 0, kPageWidth, kPageHeight);
  form.SetBackColor(kPlainColor);
  form.SetPicture(MediaFile(background));
}

std::unique_ptr<clsTransForm> LoadShapedForm(toolkit::Form& form, const ShapedWindowSpec& spec) {
  auto shape = std::make_unique<clsTransForm>();
  form.SetCaption(spec.caption);
  form.PlacePixels(0, 0, spec.width, spec.height);
  form.CenterOnScreen();
  form.SetMouseIcon(toolkit::LoadCursorFile(MediaFile("HMOVE.cur")));
  ShapeFromFile(*shape, form, MediaFile(spec.region));
  form.SetBackColor(kPlainColor);
  form.SetPicture(MediaFile(spec.background));
  return shape;
}

void CenterOn(const toolkit::Form& owner, toolkit::Form& form) {
  form.SetLeft(owner.Width() / 2 - form.Width() / 2 + owner.Left());
  form.SetTop(owner.Height() / 2 - form.Height() / 2 + owner.Top());
}

}  // namespace nimbrel
