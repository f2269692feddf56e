#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/gdi.h"
#include "toolkit/region.h"

namespace toolkit {

/// The window manager's calls on native windows. Every control of forms.h is one.
struct NativeWindow;
using HWND = NativeWindow*;  ///< null: the desktop, or none

/// Puts `child` into `parent` at the place its form holds, in pixels of the parent's client area,
/// shown if it was shown; null makes it a window of its own again. Gives the parent it had.
HWND SetParent(HWND child, HWND parent);
HWND GetParent(HWND window);

/// Gives the window the region's outline; the region belongs to the window from here on.
bool SetWindowRgn(HWND window, HRGN region, bool redraw);

HWND GetDesktopWindow();
/// The device context of a window, enough for GetDeviceCaps.
platform::HDC GetDC(HWND window);
void ReleaseDC(HWND window, platform::HDC& dc);
inline constexpr int LOGPIXELSX = 88;
inline constexpr int LOGPIXELSY = 90;
/// The two facts served: dots per inch, 96 in the logical pixels that all of the layer counts in,
/// whatever the display's own density.
int GetDeviceCaps(const platform::HDC& dc, int index);
/// For tests: another density; 0 takes 96 again.
void SetDeviceDpi(int dots_per_inch);

/// A font of the device, as CreateFontA takes it: what a native window is told to write with.
struct LogFont {
  int height = 0;  ///< negative: height of the characters in pixels
  int weight = 400;
  bool italic = false;
  bool underline = false;
  bool strikeout = false;
  std::uint32_t charset = 0;
  std::string face;
};
using HFONT = std::shared_ptr<LogFont>;
HFONT CreateFontA(int height, int width, int escapement, int orientation, int weight, bool italic,
                  bool underline, bool strikeout, std::uint32_t charset, std::string_view face);

/// number * numerator / denominator, rounded to nearest, halves away from zero; -1 for 0.
int MulDiv(int number, int numerator, int denominator);

/// (0, 0, width, height) in pixels.
Rect GetClientRect(HWND window);

bool ReleaseCapture();

inline constexpr std::uint32_t WM_SETFONT = 48;
inline constexpr std::uint32_t WM_NCLBUTTONDOWN = 161;
inline constexpr std::uint32_t WM_MOUSELEAVE = 675;
inline constexpr std::uintptr_t HTCAPTION = 2;
/// Served: WM_NCLBUTTONDOWN with HTCAPTION (moves the top-level window with the mouse and returns
/// when the button is up), and on tooltip windows WM_SETFONT and the TTM_ messages below.
std::intptr_t SendMessageA(HWND window, std::uint32_t message, std::uintptr_t wparam,
                           std::intptr_t lparam);

inline constexpr std::uint32_t TME_LEAVE = 2;
struct TrackMouseEventRecord {
  std::uint32_t cbSize = 16;
  std::uint32_t dwFlags = TME_LEAVE;
  HWND hwndTrack = nullptr;
  std::uint32_t dwHoverTime = 0;
};
/// Published as _TrackMouseEvent: one WM_MOUSELEAVE when the pointer next leaves the window, also
/// when it leaves with a button held.
bool TrackMouseEvent(const TrackMouseEventRecord& record);

/// Reports the messages of watched windows. The program asks for WM_MOUSELEAVE alone, and that is
/// what is delivered.
class SmartSubClass {
 public:
  using Handler = std::function<void(HWND hwnd, std::uint32_t& message, std::uintptr_t& wparam,
                                     std::intptr_t& lparam, bool& cancel)>;
  SmartSubClass() = default;
  SmartSubClass(const SmartSubClass&) = delete;
  SmartSubClass& operator=(const SmartSubClass&) = delete;
  ~SmartSubClass();

  void SetSubclassing(HWND hwnd, bool on);
  Handler NewMessage;

 private:
  HWND watched_ = nullptr;
};

// The native tooltip class.

inline constexpr std::uint32_t WS_EX_TOPMOST = 8;
inline constexpr std::uint32_t TTS_ALWAYSTIP = 1;
inline constexpr std::uint32_t TTS_NOPREFIX = 2;
inline constexpr std::uint32_t TTF_IDISHWND = 1;
inline constexpr std::uint32_t TTF_CENTERTIP = 2;
inline constexpr std::uint32_t TTF_SUBCLASS = 16;
inline constexpr std::uint32_t TTM_SETDELAYTIME = 1027;
inline constexpr std::uint32_t TTM_ADDTOOLA = 1028;
inline constexpr std::uint32_t TTM_SETTIPBKCOLOR = 1043;
inline constexpr std::uint32_t TTM_SETTIPTEXTCOLOR = 1044;
inline constexpr std::uint32_t TTM_GETDELAYTIME = 1045;
inline constexpr std::uint32_t TTM_SETMAXTIPWIDTH = 1048;
inline constexpr std::uintptr_t TTDT_AUTOPOP = 2;
inline constexpr std::uintptr_t TTDT_INITIAL = 3;
inline constexpr std::int32_t CW_USEDEFAULT = INT32_MIN;

/// TOOLINFO: one tool of a tooltip window. TTM_ADDTOOLA takes its address as lparam.
struct ToolInfo {
  std::uint32_t uFlags = 0;
  HWND hwnd = nullptr;
  HWND uId = nullptr;
  Rect rect;
  std::string lpszText;  ///< UTF-8
};

void InitCommonControls();
/// Class "tooltips_class32" is served; null for any other. The tip appears under the pointer after
/// the initial delay (TTDT_INITIAL) on a tool at rest, stays for the autopop time (TTDT_AUTOPOP) or
/// until the pointer leaves or presses, and wraps at the maximum width. WM_SETFONT takes the
/// address of an HFONT as wparam. The window is destroyed with its parent or by DestroyWindow.
HWND CreateWindowExA(std::uint32_t extended_style, const char* window_class, const char* title,
                     std::uint32_t style, std::int32_t x, std::int32_t y, std::int32_t width,
                     std::int32_t height, HWND parent);
bool DestroyWindow(HWND window);

}  // namespace toolkit
