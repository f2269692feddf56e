#include "widgets/SkinnedButtons.h"

#include <array>
#include <cstdint>

#include "platform/gdi.h"
#include "platform/text.h"
#include "toolkit/gdiplus.h"
#include "toolkit/window.h"
#include "widgets/cls_Tooltip.h"

namespace nimbrel {

using toolkit::Twips;

namespace {

constexpr std::string_view kEnabled = "enabled";
constexpr std::string_view kHighlight = "highlight";
constexpr std::string_view kDown = "down";
constexpr std::string_view kDisabled = "disabled";
/// The states in the order of their frames in the strip.
constexpr std::array kFrames = {kEnabled, kHighlight, kDown, kDisabled};
constexpr int kFrameCount = static_cast<int>(kFrames.size());

// Place of a caption in the first frame, pixels.
constexpr double kCaptionLeft = 48;
constexpr double kCaptionTop = 15;
constexpr double kCaptionWidth = 85;
constexpr double kCaptionHeight = 18;

/// The frame that a state shows; -1 for any other text.
int FrameOf(std::string_view state) {
  for (int frame = 0; frame < kFrameCount; ++frame) {
    if (kFrames[static_cast<std::size_t>(frame)] == state) {
      return frame;
    }
  }
  return -1;
}

/// One frame of a button whose artwork is missing.
struct PlainLook {
  toolkit::ARGB fill;
  toolkit::ARGB edge;
  toolkit::ARGB text;
};
constexpr std::array<PlainLook, kFrames.size()> kPlainLooks = {{
    {0xFFE3EAF2, 0xFF708090, 0xFF404040},
    {0xFFFFFFFF, 0xFF0372AC, 0xFF0372AC},
    {0xFF9DB6CF, 0xFF404040, 0xFF202020},
    {0xFFE6E6E6, 0xFFC8C8C8, 0xFFB0B0B0},
}};

/// What a plain button says: its tooltip without the opening that all tooltips share.
std::string_view PlainText(std::string_view tool_tip) {
  for (const std::string_view opening : {"Click to ", "Click "}) {
    if (tool_tip.starts_with(opening)) {
      return tool_tip.substr(opening.size());
    }
  }
  return tool_tip;
}

void DrawPlainFrame(const toolkit::GpGraphics& graphics, const PlainLook& look,
                    const toolkit::RectF& place) {
  toolkit::GpBrush edge;
  toolkit::GpBrush fill;
  toolkit::GdipCreateSolidFill(look.edge, edge);
  toolkit::GdipCreateSolidFill(look.fill, fill);
  toolkit::GdipFillRectangle(graphics, edge, place.x, place.y, place.width, place.height);
  toolkit::GdipFillRectangle(graphics, fill, place.x + 1, place.y + 1, place.width - 2,
                             place.height - 2);
}

void DrawPlainText(const toolkit::GpGraphics& graphics, const PlainLook& look,
                   const toolkit::RectF& place, std::string_view text) {
  constexpr float kLargeText = 11;  // pixels
  constexpr float kSmallText = 9;
  constexpr float kRoomForLarge = 100;
  toolkit::GpFontFamily family;
  toolkit::GpFont font;
  toolkit::GpStringFormat format;
  toolkit::GpBrush brush;
  toolkit::GdipCreateFontFamilyFromName("Tahoma", family);
  toolkit::GdipCreateFont(family, place.width < kRoomForLarge ? kSmallText : kLargeText,
                          toolkit::FontStyleRegular, toolkit::UnitPixel, font);
  toolkit::GdipCreateStringFormat(0, 0, format);
  toolkit::GdipCreateSolidFill(look.text, brush);
  toolkit::GdipDrawString(graphics, text, font, place, format, brush);
}

}  // namespace

template <class Part>
void SkinnedButton::Wire(Part& part) {
  part.SetMouseIcon(toolkit::HandCursor());
  part.SetMousePointer(toolkit::kPointerCustom);
  part.MouseMove = [this](const toolkit::MouseEvent&) { PointerMoved(); };
  part.MouseDown = [this](const toolkit::MouseEvent&) { click_event(); };
  part.DblClick = [this] { click_event(); };
  part.MouseUp = [this](const toolkit::MouseEvent&) { Release(); };
}

SkinnedButton::SkinnedButton(toolkit::Container& container, std::string_view name,
                             const ButtonLook& look)
    : UserControl(container, name),
      look_(look),
      pic_BG_(*this, "pic_BG"),
      m_Sniff_(std::make_unique<toolkit::SmartSubClass>()) {
  if (look_.has_text) {
    Label1_ = std::make_unique<toolkit::Label>(pic_BG_, "Label1");
    Label1_->SetTransparent(true);
    Label1_->SetFont({.name = "Verdana", .size = 8.25F});
    Wire(*Label1_);
  }
  SetFont({.name = "Tahoma", .size = 9.75F});
  ForceSize();
  pic_BG_.SetBackColor(platform::RGB(127, 155, 187));
  Wire(pic_BG_);
  Resize = [this] { ForceSize(); };
  m_Sniff_->NewMessage = [this](toolkit::HWND, std::uint32_t& message, std::uintptr_t&,
                                std::intptr_t&, bool&) {
    if (message == toolkit::WM_MOUSELEAVE) {
      PointerLeft();
    }
  };
  m_Sniff_->SetSubclassing(pic_BG_.hWnd(), true);
}

SkinnedButton::~SkinnedButton() { end_sub_class(); }

void SkinnedButton::end_sub_class() {
  tooltip_.reset();
  if (m_Sniff_) {
    m_Sniff_->SetSubclassing(pic_BG_.hWnd(), false);
    m_Sniff_.reset();
  }
}

void SkinnedButton::click_event() {
  if (state_ != kDisabled) {
    Setstate(kDown);
  }
}

void SkinnedButton::Activate() {
  click_event();
  Release();
}

void SkinnedButton::SetToolTip(std::string_view text) {
  std::int32_t visible_time = 10000;  // milliseconds
  std::int32_t delay_time = 250;      // milliseconds
  tooltip_.reset();
  tool_tip_ = text;
  tooltip_ = std::make_unique<cls_Tooltip>();
  tooltip_->Create(hWnd());
  tooltip_->SetForeColor(platform::RGB(45, 45, 45));
  tooltip_->SetBackColor(platform::RGB(231, 231, 231));
  tooltip_->SetMaxWidth(400);
  tooltip_->SetVisibleTime(visible_time);
  tooltip_->SetDelayTime(delay_time);
  tooltip_->AddControl(pic_BG_, text);
  tooltip_->SetFont(&GetFont());
  DrawPlainStrip();
}

void SkinnedButton::Setpicture(std::string_view name) {
  picture_ = name;
  if (context_ != nullptr) {
    pic_BG_.SetPicture(context_->media + "\\" + platform::Trim(name) + ".bmp");
  }
  DrawPlainStrip();
}

void SkinnedButton::Setstate(std::string_view state) {
  state_ = state;
  ShowFrame();
}

void SkinnedButton::SetCaptionText(std::string_view text) {
  caption_ = text;
  Label1_->SetCaption(platform::Trim(text));
}

void SkinnedButton::ShowFrame() {
  const int frame = FrameOf(state_);
  if (frame < 0) {
    return;
  }
  const double shift = frame * look_.height;
  pic_BG_.SetTop(Twips(-shift));
  if (Label1_) {
    Label1_->SetTop(Twips(kCaptionTop + shift));
  }
}

/// The strip is as high as its four frames and the button clips it: moving it up shows another one.
void SkinnedButton::ForceSize() {
  const float width = Twips(look_.width);
  const float height = Twips(look_.height);
  if (Width() != width || Height() != height) {
    SetWidth(width);
    SetHeight(height);
  }
  pic_BG_.PlacePixels(0, 0, look_.width, look_.height * kFrameCount);
  if (Label1_) {
    Label1_->PlacePixels(kCaptionLeft, kCaptionTop, kCaptionWidth, kCaptionHeight);
  }
  pic_BG_.SetBackColor(platform::RGB(217, 223, 219));
  DrawPlainStrip();
}

/// Text that is too long for its frame runs downwards only, and the next frame paints over it.
void SkinnedButton::DrawPlainStrip() {
  toolkit::GpGraphics graphics;
  if (!NeedsPlainStrip() ||
      toolkit::GdipCreateFromHDC(pic_BG_.hDC(), graphics) != toolkit::Status::Ok) {
    return;
  }
  const auto width = static_cast<float>(look_.width);
  const auto height = static_cast<float>(look_.height);
  float top = 0;
  for (const PlainLook& plain : kPlainLooks) {
    DrawPlainFrame(graphics, plain, {0, top, width, height});
    if (!look_.has_text) {
      DrawPlainText(graphics, plain, {1, top + 2, width - 2, height - 3}, PlainText(tool_tip_));
    }
    top += height;
  }
  pic_BG_.Refresh();
}

void SkinnedButton::PointerMoved() {
  if (tracking_) {
    return;
  }
  toolkit::TrackMouseEvent({.hwndTrack = pic_BG_.hWnd()});
  tracking_ = true;
  if (state_ != kDisabled) {
    Setstate(kHighlight);
  }
}

void SkinnedButton::PointerLeft() {
  tracking_ = false;
  if (state_ != kDisabled) {
    Setstate(kEnabled);
  }
}

void SkinnedButton::Release() {
  if (state_ == kDisabled) {
    return;
  }
  const std::weak_ptr<const int> alive = alive_;
  try {
    Setstate(kHighlight);
    if (form_ != nullptr && context_ != nullptr && context_->dispatch) {
      const std::string form = form_->Name();
      context_->dispatch(look_.button_class, form, platform::LowerCase(button_type_));
    }
  } catch (...) {
    // The action itself shows what the user has to know of a failure.
  }
  if (alive.expired()) {
    return;
  }
  tracking_ = false;
  if (state_ != kDisabled) {
    Setstate(kHighlight);
  }
}

void SetUpButton(SkinnedButton& button, toolkit::Form& form, const ButtonContext& context,
                 const ButtonSetup& setup) {
  button.SetContext(context);
  button.SetLeft(Twips(setup.left));
  button.SetTop(Twips(setup.top));
  button.Setbutton_type(setup.button_type);
  button.Setform_name(&form);
  button.Setpicture(setup.picture);
  button.Setstate(kEnabled);
  button.SetToolTip(setup.tool_tip);
}

}  // namespace nimbrel
