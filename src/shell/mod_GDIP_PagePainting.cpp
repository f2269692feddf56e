#include "shell/mod_GDIP_PagePainting.h"

#include <string>

#include "history/frm_AddFavorite.h"
#include "platform/system.h"
#include "randomizer/frm_RandomizerOverview.h"
#include "settings/Catalogue.h"
#include "shell/frm_Main.h"
#include "shell/frm_Preview.h"
#include "shell/mod_GDIP_DrawingRoutines.h"

namespace nimbrel {
namespace {

toolkit::RectF Place(int left, int top, int width, int height) {
  return {static_cast<float>(left), static_cast<float>(top), static_cast<float>(width),
          static_cast<float>(height)};
}

void DrawSmallPreview(const toolkit::Container& surface, const toolkit::RectF& place,
                      const toolkit::GpImage& image) {
  DrawFramedPicture(surface.hDC(), place, kSummaryFrame, image);
}

void DrawHead(toolkit::Form& form, toolkit::PictureBox& icon, const toolkit::RectF& place,
              std::string_view title, std::string_view icon_file) {
  form.Cls();
  DrawPageText(form.hDC(), place, title, "Verdana", 22.0F, toolkit::FontStyleRegular,
               toolkit::StringAlignmentNear, toolkit::StringAlignmentCenter, kTitleColor, true);
  // Without its file there is no icon: that of the page before would name the wrong page.
  icon.SetVisible(
      icon.SetPicture(platform::ApplicationFolder() + "\\Media\\" + std::string(icon_file)));
}

}  // namespace

void SetPageTitle(std::string_view title, std::string_view icon_file) {
  frm_Main& main = MainForm();
  DrawHead(main.form, main.pic_ScreenIcon, {230, 79, 500, 44}, title, icon_file);
}

void SetAddFavoriteTitle(std::string_view title, std::string_view icon_file) {
  frm_AddFavorite& dialog = AddFavoriteForm();
  DrawHead(dialog.form, dialog.pic_ScreenIcon, {77, 27, 350, 44}, title, icon_file);
  dialog.form.Refresh();
}

void DrawSummaryPreview(int left, int top, int width, int height, std::int16_t family,
                        std::int16_t group, std::int16_t option) {
  DrawSmallPreview(MainForm().pic_Main, Place(left, top, width, height),
                   Catalogue.At(family, group, option).Preview);
}

void DrawOverviewPreview(int left, int top, int width, int height, std::int16_t family,
                         std::int16_t group, std::int16_t option) {
  DrawSmallPreview(RandomizerOverview().form, Place(left, top, width, height),
                   Catalogue.At(family, group, option).Preview);
}

void DrawLargePreview(std::int16_t family, std::int16_t group, std::int16_t option) {
  DrawLargePicture(PreviewForm().form.hDC(), Catalogue.At(family, group, option).Preview);
}

}  // namespace nimbrel
