#include "widgets/cls_Tooltip.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "platform/system.h"
#include "toolkit/desktop.h"

namespace nimbrel {

namespace {

std::intptr_t Send(toolkit::HWND window, std::uint32_t message, std::uintptr_t wparam,
                   std::intptr_t lparam) {
  return window == nullptr ? 0 : toolkit::SendMessageA(window, message, wparam, lparam);
}

/// The colour messages want a pointer to a zero beside the colour.
void SendColor(toolkit::HWND window, std::uint32_t message, platform::ColorRef color) {
  const std::int32_t zero = 0;
  Send(window, message, color, reinterpret_cast<std::intptr_t>(&zero));
}

/// The times travel in a signed 16-bit half of the message's parameter.
void SendTime(toolkit::HWND window, std::uintptr_t which, std::int32_t& milliseconds) {
  milliseconds = std::clamp(milliseconds, 0, 32767);
  Send(window, toolkit::TTM_SETDELAYTIME, which, milliseconds);
}

std::uint32_t SystemCharset() {
  const std::string digits = toolkit::GetLocaleInfoA(toolkit::GetSystemDefaultLCID(),
                                                     toolkit::LOCALE_IDEFAULTANSICODEPAGE);
  std::uint32_t code_page = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), code_page);
  return toolkit::TranslateCharsetInfo(code_page, toolkit::TCI_SRCCODEPAGE);
}

/// Sizes round to whole points first, halves to the even neighbour.
int CharacterHeight(toolkit::HWND window, float points) {
  platform::HDC dc = toolkit::GetDC(window);
  const int dots_per_inch = toolkit::GetDeviceCaps(dc, toolkit::LOGPIXELSY);
  toolkit::ReleaseDC(window, dc);
  return -toolkit::MulDiv(static_cast<int>(std::lrint(points)), dots_per_inch, 72);
}

}  // namespace

cls_Tooltip::cls_Tooltip() { toolkit::InitCommonControls(); }

cls_Tooltip::~cls_Tooltip() { Destroy(); }

void cls_Tooltip::SetForeColor(platform::ColorRef color) {
  fore_color_ = color;
  SendColor(window_, toolkit::TTM_SETTIPTEXTCOLOR, color);
}

void cls_Tooltip::SetBackColor(platform::ColorRef color) {
  back_color_ = color;
  SendColor(window_, toolkit::TTM_SETTIPBKCOLOR, color);
}

void cls_Tooltip::SetMaxWidth(std::int32_t lngMaxWidth) {
  max_width_ = lngMaxWidth;
  Send(window_, toolkit::TTM_SETMAXTIPWIDTH, 0, lngMaxWidth);
}

std::int32_t cls_Tooltip::VisibleTime() const {
  return static_cast<std::int32_t>(
      Send(window_, toolkit::TTM_GETDELAYTIME, toolkit::TTDT_AUTOPOP, 0));
}

void cls_Tooltip::SetVisibleTime(std::int32_t& lngTime) {
  SendTime(window_, toolkit::TTDT_AUTOPOP, lngTime);
}

std::int32_t cls_Tooltip::DelayTime() const {
  return static_cast<std::int32_t>(
      Send(window_, toolkit::TTM_GETDELAYTIME, toolkit::TTDT_INITIAL, 0));
}

void cls_Tooltip::SetDelayTime(std::int32_t& lngTime) {
  SendTime(window_, toolkit::TTDT_INITIAL, lngTime);
}

void cls_Tooltip::SetFont(const toolkit::Font* objFont) {
  if (objFont == nullptr) {
    return;
  }
  toolkit::HFONT font = toolkit::CreateFontA(
      CharacterHeight(window_, objFont->size), 0, 0, 0, objFont->weight, objFont->italic,
      objFont->underline, objFont->strikethrough, SystemCharset(), objFont->name);
  Send(window_, toolkit::WM_SETFONT, reinterpret_cast<std::uintptr_t>(&font), 1);
  font_ = std::move(font);
}

void cls_Tooltip::Create(toolkit::HWND lngHwndParent) {
  font_.reset();
  window_ = toolkit::CreateWindowExA(toolkit::WS_EX_TOPMOST, "tooltips_class32", nullptr,
                                     toolkit::TTS_ALWAYSTIP | toolkit::TTS_NOPREFIX,
                                     toolkit::CW_USEDEFAULT, toolkit::CW_USEDEFAULT,
                                     toolkit::CW_USEDEFAULT, toolkit::CW_USEDEFAULT, lngHwndParent);
  SetMaxWidth(max_width_);
  SetForeColor(fore_color_);
  SetBackColor(back_color_);
}

void cls_Tooltip::Destroy() {
  if (window_ != nullptr) {
    toolkit::DestroyWindow(window_);
    window_ = nullptr;
  }
  font_.reset();
}

void cls_Tooltip::AddControl(const toolkit::Control& ctlTool, std::string_view strCaption,
                             bool blnCenterTip) {
  toolkit::ToolInfo tool;
  tool.uFlags = toolkit::TTF_IDISHWND | toolkit::TTF_SUBCLASS;
  if (blnCenterTip) {
    tool.uFlags |= toolkit::TTF_CENTERTIP;
  }
  tool.hwnd = ctlTool.hWnd();
  tool.uId = ctlTool.hWnd();
  tool.rect = toolkit::GetClientRect(ctlTool.hWnd());
  tool.lpszText = strCaption;
  Send(window_, toolkit::TTM_ADDTOOLA, 0, reinterpret_cast<std::intptr_t>(&tool));
}

}  // namespace nimbrel
