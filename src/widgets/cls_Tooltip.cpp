#include "widgets/cls_Tooltip.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "platform/system.h"

namespace nimbrel {

namespace {

std::intptr_t Send(platform::HWND window, std::uint32_t message, std::uintptr_t wparam,
                   std::intptr_t lparam) {
  return window == nullptr ? 0 : platform::SendMessageA(window, message, wparam, lparam);
}

/// The colour messages want a pointer to a zero beside the colour.
void SendColor(platform::HWND window, std::uint32_t message, platform::ColorRef color) {
  const std::int32_t zero = 0;
  Send(window, message, color, reinterpret_cast<std::intptr_t>(&zero));
}

/// The times travel in a signed 16-bit half of the message's parameter.
void SendTime(platform::HWND window, std::uintptr_t which, std::int32_t& milliseconds) {
  milliseconds = std::clamp(milliseconds, 0, 32767);
  Send(window, platform::TTM_SETDELAYTIME, which, milliseconds);
}

std::uint32_t SystemCharset() {
  const std::string digits = platform::GetLocaleInfoA(platform::GetSystemDefaultLCID(),
                                                      platform::LOCALE_IDEFAULTANSICODEPAGE);
  std::uint32_t code_page = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), code_page);
  return platform::TranslateCharsetInfo(code_page, platform::TCI_SRCCODEPAGE);
}

/// Sizes round to whole points first, halves to the even neighbour.
int CharacterHeight(platform::HWND window, float points) {
  platform::HDC dc = platform::GetDC(window);
  const int dots_per_inch = platform::GetDeviceCaps(dc, platform::LOGPIXELSY);
  platform::ReleaseDC(window, dc);
  return -platform::MulDiv(static_cast<int>(std::lrint(points)), dots_per_inch, 72);
}

}  // namespace

cls_Tooltip::cls_Tooltip() { platform::InitCommonControls(); }

cls_Tooltip::~cls_Tooltip() { Destroy(); }

void cls_Tooltip::SetForeColor(platform::ColorRef color) {
  fore_color_ = color;
  SendColor(window_, platform::TTM_SETTIPTEXTCOLOR, color);
}

void cls_Tooltip::SetBackColor(platform::ColorRef color) {
  back_color_ = color;
  SendColor(window_, platform::TTM_SETTIPBKCOLOR, color);
}

void cls_Tooltip::SetMaxWidth(std::int32_t lngMaxWidth) {
  max_width_ = lngMaxWidth;
  Send(window_, platform::TTM_SETMAXTIPWIDTH, 0, lngMaxWidth);
}

std::int32_t cls_Tooltip::VisibleTime() const {
  return static_cast<std::int32_t>(
      Send(window_, platform::TTM_GETDELAYTIME, platform::TTDT_AUTOPOP, 0));
}

void cls_Tooltip::SetVisibleTime(std::int32_t& lngTime) {
  SendTime(window_, platform::TTDT_AUTOPOP, lngTime);
}

std::int32_t cls_Tooltip::DelayTime() const {
  return static_cast<std::int32_t>(
      Send(window_, platform::TTM_GETDELAYTIME, platform::TTDT_INITIAL, 0));
}

void cls_Tooltip::SetDelayTime(std::int32_t& lngTime) {
  SendTime(window_, platform::TTDT_INITIAL, lngTime);
}

void cls_Tooltip::SetFont(const platform::Font* objFont) {
  if (objFont == nullptr) {
    return;
  }
  platform::HFONT font = platform::CreateFontA(
      CharacterHeight(window_, objFont->size), 0, 0, 0, objFont->weight, objFont->italic,
      objFont->underline, objFont->strikethrough, SystemCharset(), objFont->name);
  Send(window_, platform::WM_SETFONT, reinterpret_cast<std::uintptr_t>(&font), 1);
  font_ = std::move(font);
}

void cls_Tooltip::Create(platform::HWND lngHwndParent) {
  font_.reset();
  window_ = platform::CreateWindowExA(
      platform::WS_EX_TOPMOST, "tooltips_class32", nullptr,
      platform::TTS_ALWAYSTIP | platform::TTS_NOPREFIX, platform::CW_USEDEFAULT,
      platform::CW_USEDEFAULT, platform::CW_USEDEFAULT, platform::CW_USEDEFAULT, lngHwndParent);
  SetMaxWidth(max_width_);
  SetForeColor(fore_color_);
  SetBackColor(back_color_);
}

void cls_Tooltip::Destroy() {
  if (window_ != nullptr) {
    platform::DestroyWindow(window_);
    window_ = nullptr;
  }
  font_.reset();
}

void cls_Tooltip::AddControl(const platform::Control& ctlTool, std::string_view strCaption,
                             bool blnCenterTip) {
  platform::ToolInfo tool;
  tool.uFlags = platform::TTF_IDISHWND | platform::TTF_SUBCLASS;
  if (blnCenterTip) {
    tool.uFlags |= platform::TTF_CENTERTIP;
  }
  tool.hwnd = ctlTool.hWnd();
  tool.uId = ctlTool.hWnd();
  tool.rect = platform::GetClientRect(ctlTool.hWnd());
  tool.lpszText = strCaption;
  Send(window_, platform::TTM_ADDTOOLA, 0, reinterpret_cast<std::intptr_t>(&tool));
}

}  // namespace nimbrel
