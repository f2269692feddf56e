#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "toolkit/tip.h"

namespace nimbrel {

/// The tooltip of a control made of others.
class cls_Tooltip {
 public:
  platform::ColorRef ForeColor() const { return look_.fore_color; }
  void SetForeColor(platform::ColorRef color);
  platform::ColorRef BackColor() const { return look_.back_color; }
  void SetBackColor(platform::ColorRef color);
  std::int32_t MaxWidth() const { return look_.max_width; }
  void SetMaxWidth(std::int32_t lngMaxWidth);  ///< pixels
  std::int32_t VisibleTime() const { return look_.visible_time; }
  void SetVisibleTime(std::int32_t& lngTime);  ///< milliseconds, clamped to 0..32767 in place
  std::int32_t DelayTime() const { return look_.delay; }
  void SetDelayTime(std::int32_t& lngTime);    ///< the same
  void SetFont(const toolkit::Font* objFont);  ///< null does nothing

  void Create(toolkit::HWND lngHwndParent);
  void Destroy() { tip_.reset(); }
  /// Shows the text on a control inside the parent. Before Create it does nothing.
  void AddControl(const toolkit::Control& ctlTool, std::string_view strCaption);

 private:
  void Apply();

  toolkit::TipLook look_;
  std::unique_ptr<toolkit::Tip> tip_;
};

}  // namespace nimbrel
