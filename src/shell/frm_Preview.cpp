#include "shell/frm_Preview.h"

#include <algorithm>

#include "platform/system.h"
#include "randomizer/frm_RandomizerOverview.h"
#include "settings/Catalogue.h"
#include "shell/FormLoaded.h"
#include "shell/PageForm.h"
#include "shell/frm_Main.h"
#include "shell/mod_GDIP_PagePainting.h"
#include "widgets/SmallFontFix.h"

namespace nimbrel {
namespace {

constexpr int kWidth = 272;
constexpr int kHeight = 210;

/// The window it was a child of before it went onto a page.
toolkit::HWND PreviewParent = nullptr;

const toolkit::Form* previewed_on = nullptr;
std::size_t previewed_group = 0;  ///< its place in kOptionGroups

std::size_t GroupPlace(std::int16_t family, std::int16_t index) {
  const auto is_it = [family, index](const OptionGroup& group) {
    return group.family == family && group.index == index;
  };
  return static_cast<std::size_t>(std::find_if(kOptionGroups.begin(), kOptionGroups.end(), is_it) -
                                  kOptionGroups.begin());
}

void SetHints(const char* text) {
  MainForm().lbl_PreviewText.SetCaption(text);
  if (IsFormLoaded(FormId::kRandomizerOverview)) {
    RandomizerOverview().lbl_PreviewText.SetCaption(text);
  }
}

}  // namespace

frm_Preview::frm_Preview() {
  form.PlacePixels(0, 0, kWidth, kHeight);
  FixFormForFontSize(form);
  form.SetCaption("Preview Screen Shot");
  form.SetBackColor(kPlainColor);
  form.SetPicture(platform::ApplicationFolder() + "\\Media\\Preview_BG.bmp");
  form.SetMouseIcon(toolkit::HandCursor());
  form.SetMousePointer(toolkit::kPointerCustom);
  form.Click = ClosePreview;
  SetFormLoaded(FormId::kPreview);
}

frm_Preview& PreviewForm() {
  // Lives to the end of the process: static objects end after the toolkit does.
  static auto* const preview = new frm_Preview;
  return *preview;
}

void OpenPreview(std::int16_t family, std::int16_t group, std::int16_t option, toolkit::Form& page,
                 int left, int top) {
  toolkit::Form& form = PreviewForm().form;
  if (!form.Visible()) {
    form.SetLeft(static_cast<float>(left) * toolkit::Screen::TwipsPerPixelX());
    form.SetTop(static_cast<float>(top) * toolkit::Screen::TwipsPerPixelY());
    form.Show();
    form.ZOrder();
    PreviewParent = toolkit::SetParent(form.hWnd(), page.hWnd());
  }
  previewed_on = &page;
  previewed_group = GroupPlace(family, group);
  form.Cls();
  DrawLargePreview(family, group, option);
  form.Refresh();
  SetHints(kPreviewOpenText);
}

void ClosePreview() {
  if (PreviewIsOpen()) {
    ReleasePreview();
    SetHints(kPreviewClosedText);
  }
}

std::optional<std::size_t> PreviewedGroup(const toolkit::Form& page) {
  return PreviewIsOpen() && previewed_on == &page ? std::optional(previewed_group) : std::nullopt;
}

bool PreviewIsOpen() { return IsFormLoaded(FormId::kPreview) && PreviewForm().form.Visible(); }

void ReleasePreview() {
  if (PreviewIsOpen()) {
    toolkit::SetParent(PreviewForm().form.hWnd(), PreviewParent);
    PreviewForm().form.Hide();
  }
}

}  // namespace nimbrel
