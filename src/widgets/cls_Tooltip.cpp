#include "widgets/cls_Tooltip.h"

#include <algorithm>
#include <cmath>

namespace nimbrel {
namespace {

constexpr std::int32_t kMaxTime = 32767;  ///< milliseconds

}  // namespace

void cls_Tooltip::SetForeColor(platform::ColorRef color) {
  look_.fore_color = color;
  Apply();
}

void cls_Tooltip::SetBackColor(platform::ColorRef color) {
  look_.back_color = color;
  Apply();
}

void cls_Tooltip::SetMaxWidth(std::int32_t lngMaxWidth) {
  look_.max_width = lngMaxWidth;
  Apply();
}

void cls_Tooltip::SetVisibleTime(std::int32_t& lngTime) {
  lngTime = std::clamp(lngTime, 0, kMaxTime);
  look_.visible_time = lngTime;
  Apply();
}

void cls_Tooltip::SetDelayTime(std::int32_t& lngTime) {
  lngTime = std::clamp(lngTime, 0, kMaxTime);
  look_.delay = lngTime;
  Apply();
}

/// Whole points, and the weight alone tells whether it is bold, as published.
void cls_Tooltip::SetFont(const toolkit::Font* objFont) {
  if (objFont == nullptr) {
    return;
  }
  look_.font = *objFont;
  look_.font.size = std::nearbyint(objFont->size);
  look_.font.bold = false;
  Apply();
}

void cls_Tooltip::Create(toolkit::HWND lngHwndParent) {
  tip_ = std::make_unique<toolkit::Tip>(lngHwndParent, look_);
}

void cls_Tooltip::AddControl(const toolkit::Control& ctlTool, std::string_view strCaption) {
  if (tip_) {
    tip_->Add(ctlTool, strCaption);
  }
}

void cls_Tooltip::Apply() {
  if (tip_) {
    tip_->SetLook(look_);
  }
}

}  // namespace nimbrel
