#include "shell/pages/frm_Preview.h"

#include "shell/PageForm.h"
#include "shell/State.h"
#include "shell/pages/frm_Main.h"
#include "shell/pages/frm_RandomizerOverview.h"
#include "shell/painting/PagePainting.h"

namespace nimbrel {
namespace {

constexpr int kWidth = 272;
constexpr int kHeight = 210;

void SetHints(const char* text) {
  Loaded(ui.forms.main).lbl_PreviewText.SetCaption(text);
  if (ui.forms.overview != nullptr) {
    ui.forms.overview->lbl_PreviewText.SetCaption(text);
  }
}

}  // namespace

frm_Preview::frm_Preview() {
  form.PlacePixels(0, 0, kWidth, kHeight);
  form.SetCaption("Preview Screen Shot");
  form.SetBackColor(kPlainColor);
  form.SetPicture(MediaFile("Preview_BG.bmp"));
  SetHandPointer(form);
  form.Click = ClosePreview;
}

void OpenPreview(Group group, std::int16_t option, toolkit::Form& page, int left, int top) {
  frm_Preview& preview = Loaded(ui.forms.preview);
  toolkit::Form& form = preview.form;
  if (!form.Visible()) {
    form.SetLeft(static_cast<float>(left) * toolkit::Screen::TwipsPerPixelX());
    form.SetTop(static_cast<float>(top) * toolkit::Screen::TwipsPerPixelY());
    form.Show();
    form.ZOrder();
    toolkit::SetParent(form.hWnd(), page.hWnd());
  }
  preview.page = &page;
  preview.group = group;
  form.Cls();
  DrawLargePreview(form, group, option);
  form.Refresh();
  SetHints(kPreviewOpenText);
}

void ClosePreview() {
  if (PreviewIsOpen()) {
    ReleasePreview();
    SetHints(kPreviewClosedText);
  }
}

void ReleasePreview() {
  if (PreviewIsOpen()) {
    toolkit::Form& form = ui.forms.preview->form;
    toolkit::SetParent(form.hWnd(), nullptr);
    form.Hide();
  }
}

bool PreviewIsOpen() { return ui.forms.preview != nullptr && ui.forms.preview->form.Visible(); }

std::optional<Group> PreviewedGroup(const toolkit::Form& page) {
  return PreviewIsOpen() && ui.forms.preview->page == &page ? std::optional(ui.forms.preview->group)
                                                            : std::nullopt;
}

}  // namespace nimbrel
