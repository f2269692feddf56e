#pragma once

#include <cstdint>
#include <string_view>

#include "platform/gdi.h"
#include "toolkit/forms.h"
#include "toolkit/window.h"

namespace nimbrel {

/// One native tooltip window, and what that window can't be asked for.
class cls_Tooltip {
 public:
  cls_Tooltip();
  cls_Tooltip(const cls_Tooltip&) = delete;
  cls_Tooltip& operator=(const cls_Tooltip&) = delete;
  ~cls_Tooltip();

  platform::ColorRef ForeColor() const { return fore_color_; }
  void SetForeColor(platform::ColorRef color);
  platform::ColorRef BackColor() const { return back_color_; }
  void SetBackColor(platform::ColorRef color);
  std::int32_t MaxWidth() const { return max_width_; }
  void SetMaxWidth(std::int32_t lngMaxWidth);  ///< pixels
  std::int32_t VisibleTime() const;
  void SetVisibleTime(std::int32_t& lngTime);  ///< milliseconds, clamped to 0..32767 in place
  std::int32_t DelayTime() const;
  void SetDelayTime(std::int32_t& lngTime);    ///< the same
  void SetFont(const toolkit::Font* objFont);  ///< null does nothing

  void Create(toolkit::HWND lngHwndParent);
  void Destroy();
  void AddControl(const toolkit::Control& ctlTool, std::string_view strCaption,
                  bool blnCenterTip = false);
  toolkit::HWND hWnd() const { return window_; }

 private:
  toolkit::HWND window_ = nullptr;
  std::int32_t max_width_ = 300;
  toolkit::HFONT font_;
  platform::ColorRef fore_color_ = 0;
  platform::ColorRef back_color_ = 0;
};

}  // namespace nimbrel
