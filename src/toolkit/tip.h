#pragma once

#include <memory>
#include <string_view>

#include "platform/gdi.h"
#include "toolkit/forms.h"

namespace toolkit {

/// The name of a widget's property that holds its tips' delay in milliseconds.
inline constexpr const char* kTipDelay = "tipDelay";

/// How a tip looks, and its times in milliseconds.
struct TipLook {
  platform::ColorRef fore_color = platform::RGB(0, 0, 0);
  platform::ColorRef back_color = platform::RGB(255, 255, 225);
  int max_width = 300;      ///< pixels; longer lines wrap at words
  int delay = 500;          ///< for which the pointer has to rest
  int visible_time = 5000;  ///< unless the pointer leaves or a button is pressed
  Font font{.name = "Tahoma"};
};

/// Texts that appear below the pointer when it rests on a control. A tip that has been shown comes
/// again only after the pointer has left the control.
class Tip {
 public:
  /// `owner` is the control whose parts get a text.
  Tip(HWND owner, TipLook look);
  Tip(const Tip&) = delete;
  Tip& operator=(const Tip&) = delete;
  ~Tip();

  void SetLook(const TipLook& look);
  /// The text is also the accessible name of the control, and of all it is in up to the owner.
  void Add(const Control& control, std::string_view text);

 private:
  class Watch;
  std::unique_ptr<Watch> watch_;
};

}  // namespace toolkit
