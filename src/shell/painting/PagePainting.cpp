#include "shell/painting/PagePainting.h"

#include "shell/PageForm.h"
#include "shell/State.h"
#include "shell/painting/Pictures.h"
#include "shell/painting/mod_GDIP_DrawingRoutines.h"
#include "toolkit/forms.h"

namespace nimbrel {
namespace {

void DrawSmallPreview(const toolkit::Container& surface, const toolkit::RectF& place, Group group,
                      std::int16_t option) {
  DrawFramedPicture(surface.hDC(), place, kSummaryFrame, ui.pictures->Preview(group, option));
}

toolkit::RectF Place(int left, int top, int width, int height) {
  return {static_cast<float>(left), static_cast<float>(top), static_cast<float>(width),
          static_cast<float>(height)};
}

}  // namespace

void DrawHead(toolkit::Form& form, toolkit::PictureBox& icon, const toolkit::RectF& place,
              std::string_view title, std::string_view icon_file) {
  form.Cls();
  DrawPageText(form.hDC(), place, title, "Verdana", 22.0F, toolkit::FontStyleRegular,
               toolkit::StringAlignmentNear, toolkit::StringAlignmentCenter, kTitleColor, true);
  icon.SetVisible(icon.SetPicture(MediaFile(icon_file)));
}

void DrawSummaryPreview(toolkit::Container& surface, int left, int top, int width, int height,
                        Group group, std::int16_t option) {
  DrawSmallPreview(surface, Place(left, top, width, height), group, option);
}

void DrawOverviewPreview(toolkit::Container& surface, int left, int top, int width, int height,
                         Group group, std::int16_t option) {
  DrawSmallPreview(surface, Place(left, top, width, height), group, option);
}

void DrawLargePreview(toolkit::Container& surface, Group group, std::int16_t option) {
  DrawLargePicture(surface.hDC(), ui.pictures->Preview(group, option));
}

}  // namespace nimbrel
