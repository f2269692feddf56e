#include "widgets/SmallFontFix.h"

#include <algorithm>
#include <array>
#include <span>
#include <vector>

#include "platform/gdi.h"
#include "toolkit/window.h"

namespace nimbrel {

std::int32_t ScreenDpi = 96;
float FontScaleFactor = 1.0F;

namespace {

using toolkit::Container;
using toolkit::Control;
using ScaleStep = void (*)(Control&, float factor);

void ScaleWidthOf(Control& control, float factor) { control.SetWidth(control.Width() * factor); }
void ScaleHeightOf(Control& control, float factor) { control.SetHeight(control.Height() * factor); }
void ScaleTopOf(Control& control, float factor) { control.SetTop(control.Top() * factor); }
void ScaleLeftOf(Control& control, float factor) { control.SetLeft(control.Left() * factor); }
void ScaleInnerHeight(Control& control, float factor) {
  auto& container = static_cast<Container&>(control);
  container.SetScaleHeight(container.ScaleHeight() * factor);
}
void ScaleInnerWidth(Control& control, float factor) {
  auto& container = static_cast<Container&>(control);
  container.SetScaleWidth(container.ScaleWidth() * factor);
}

/// A list that snaps to whole rows would not take the height it is given.
void TakeAnyHeight(Control& control, float) {
  static_cast<toolkit::ListBox&>(control).SetIntegralHeight(false);
}

constexpr std::array<ScaleStep, 6> kPictureBoxSteps = {
    ScaleWidthOf, ScaleHeightOf, ScaleTopOf, ScaleLeftOf, ScaleInnerHeight, ScaleInnerWidth};
constexpr std::array<ScaleStep, 5> kListBoxSteps = {TakeAnyHeight, ScaleWidthOf, ScaleHeightOf,
                                                    ScaleTopOf, ScaleLeftOf};
constexpr std::array<ScaleStep, 4> kOtherSteps = {ScaleWidthOf, ScaleHeightOf, ScaleTopOf,
                                                  ScaleLeftOf};

struct KindSteps {
  toolkit::ControlKind kind;
  std::span<const ScaleStep> steps;
};
/// What is scaled, by the control's kind and in this order; a kind without a row takes kOtherSteps.
constexpr std::array<KindSteps, 2> kSteps = {{
    {toolkit::ControlKind::kPictureBox, kPictureBoxSteps},
    {toolkit::ControlKind::kListBox, kListBoxSteps},
}};

std::span<const ScaleStep> StepsOf(toolkit::ControlKind kind) {
  for (const KindSteps& row : kSteps) {
    if (row.kind == kind) {
      return row.steps;
    }
  }
  return kOtherSteps;
}

/// Whether the control is a part of a control made of others: those lay out their parts themselves.
bool IsPart(const Control& control, std::span<const toolkit::HWND> user_controls) {
  for (toolkit::HWND parent = toolkit::GetParent(control.hWnd()); parent != nullptr;
       parent = toolkit::GetParent(parent)) {
    if (std::find(user_controls.begin(), user_controls.end(), parent) != user_controls.end()) {
      return true;
    }
  }
  return false;
}

void ScaleControl(Control& control, float factor) {
  toolkit::Font font = control.GetFont();
  font.size *= factor;
  control.SetFont(font);
  for (const ScaleStep step : StepsOf(control.Kind())) {
    step(control, factor);
  }
}

}  // namespace

bool IsSmallFonts() {
  const toolkit::HWND desktop = toolkit::GetDesktopWindow();
  platform::HDC dc = toolkit::GetDC(desktop);
  ScreenDpi = toolkit::GetDeviceCaps(dc, toolkit::LOGPIXELSX);
  toolkit::ReleaseDC(desktop, dc);
  return ScreenDpi == 96;
}

void FixFormForFontSize(toolkit::Form& form) {
  const std::int32_t dots_per_inch = IsSmallFonts() ? 96 : ScreenDpi;
  FontScaleFactor = 96.0F / static_cast<float>(dots_per_inch);
  if (FontScaleFactor != 1.0F) {
    form.SetHeight(form.Height() * FontScaleFactor);
    form.SetWidth(form.Width() * FontScaleFactor);
  }
  std::vector<toolkit::HWND> user_controls;
  for (Control* control : form.Controls()) {
    if (control->Kind() == toolkit::ControlKind::kUserControl) {
      user_controls.push_back(control->hWnd());
    }
    if (!IsPart(*control, user_controls)) {
      ScaleControl(*control, FontScaleFactor);
    }
  }
}

}  // namespace nimbrel
