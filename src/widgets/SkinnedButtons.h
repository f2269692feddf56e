#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "toolkit/forms.h"

namespace toolkit {
class SmartSubClass;
}

namespace nimbrel {

class cls_Tooltip;

enum class ButtonClass : unsigned char { kSmall, kMedium, kStandard, kLarge };

/// What all buttons of a program share. The owner keeps it alive as long as any button.
struct ButtonContext {
  std::string media;  ///< the folder of the strips, without trailing separator
  /// The action of a click: given the class of the button, the name of its form and its button_type
  /// in lower case. Empty does nothing. An exception that leaves it ends the click silently.
  std::function<void(ButtonClass button_class, const std::string& form_name,
                     const std::string& button_type)>
      dispatch;
};

/// The fixed values of a class, in pixels. The frame step is the height.
struct ButtonLook {
  ButtonClass button_class;
  int width;
  int height;
  bool has_text;
};

/// A push button that is a strip of four stacked pictures: enabled, highlight, down, disabled.
class SkinnedButton : public toolkit::UserControl {
 public:
  SkinnedButton(toolkit::Container& container, std::string_view name, const ButtonLook& look);
  ~SkinnedButton() override;

  /// Destroys the tooltip and ends the delivery of messages. May be called again.
  void end_sub_class();
  /// A press of the mouse on the button, with any of its buttons.
  void click_event();
  /// A whole click without the mouse, press and release. It may destroy the button.
  void Activate();

  const std::string& ToolTip() const { return tool_tip_; }
  void SetToolTip(std::string_view text);
  const std::string& picture() const { return picture_; }
  /// Loads the strip `name` + ".bmp" from the context's folder. A missing file leaves the picture
  /// in place; a button that never had one draws itself plainly, with its caption or the first
  /// words of its tooltip.
  void Setpicture(std::string_view name);
  const std::string& state() const { return state_; }
  /// "enabled", "highlight", "down" or "disabled"; any other is stored and moves nothing.
  void Setstate(std::string_view state);
  toolkit::Form* form_name() const { return form_; }
  void Setform_name(toolkit::Form* form) { form_ = form; }
  const std::string& button_type() const { return button_type_; }
  void Setbutton_type(std::string_view type) { button_type_ = type; }
  /// Without a context the button has no strip and a click does nothing.
  void SetContext(const ButtonContext& context) { context_ = &context; }

 protected:
  const std::string& Caption() const { return caption_; }
  void SetCaptionText(std::string_view text);

 private:
  void ForceSize();
  void ShowFrame();
  bool NeedsPlainStrip() const { return !picture_.empty() && !pic_BG_.HasPicture(); }
  void DrawPlainStrip();
  template <class Part>
  void Wire(Part& part);
  void PointerMoved();
  void PointerLeft();
  void Release();

  ButtonLook look_;
  const ButtonContext* context_ = nullptr;
  toolkit::PictureBox pic_BG_;
  std::unique_ptr<toolkit::Label> Label1_;
  std::unique_ptr<toolkit::SmartSubClass> m_Sniff_;
  std::unique_ptr<cls_Tooltip> tooltip_;
  std::string button_type_;
  toolkit::Form* form_ = nullptr;
  std::string picture_;
  std::string state_ = "enabled";
  std::string tool_tip_;
  std::string caption_;
  bool tracking_ = false;  ///< true while the button waits for the pointer to leave
  /// Lives as long as the button: a release sees by it that its action destroyed the button.
  std::shared_ptr<const int> alive_ = std::make_shared<const int>(0);
};

inline constexpr ButtonLook kSmallLook{ButtonClass::kSmall, 28, 28, false};
inline constexpr ButtonLook kMediumLook{ButtonClass::kMedium, 142, 44, true};
inline constexpr ButtonLook kStandardLook{ButtonClass::kStandard, 44, 44, false};
inline constexpr ButtonLook kLargeLook{ButtonClass::kLarge, 128, 43, false};

/// The four classes are one design at four sizes.
template <const ButtonLook& Look>
class SizedButton : public SkinnedButton {
 public:
  SizedButton(toolkit::Container& container, std::string_view name)
      : SkinnedButton(container, name, Look) {}
  const std::string& ButtonText() const requires(Look.has_text) { return Caption(); }
  void SetButtonText(std::string_view text) requires(Look.has_text) { SetCaptionText(text); }
};
using SmallButton = SizedButton<kSmallLook>;
using MediumButton = SizedButton<kMediumLook>;
using StandardButton = SizedButton<kStandardLook>;
using LargeButton = SizedButton<kLargeLook>;

/// What an owner gives a button after making it.
struct ButtonSetup {
  double left;  ///< pixels in the container
  double top;
  const char* button_type;
  const char* picture;
  const char* tool_tip;
};
/// Places the button and sets it up in the fixed order, enabled. The button refers to `context`
/// from then on.
void SetUpButton(SkinnedButton& button, toolkit::Form& form, const ButtonContext& context,
                 const ButtonSetup& setup);

}  // namespace nimbrel
