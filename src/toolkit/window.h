#pragma once

#include <cstdint>
#include <functional>

#include <memory>

namespace toolkit {

struct Region;
using HRGN = std::shared_ptr<const Region>;

/// The window manager's calls on native windows. Every control of forms.h has one.
struct NativeWindow;
using HWND = NativeWindow*;  ///< null: the desktop

/// Puts `child` into `parent` at the place its form holds, in pixels of the parent's client area,
/// shown if it was shown; null makes it a window of its own again. Returns the parent it had.
HWND SetParent(HWND child, HWND parent);
HWND GetParent(HWND window);

/// Gives the window the region's outline; an empty handle takes the outline away.
bool SetWindowRgn(HWND window, const HRGN& region, bool redraw);

inline constexpr std::uint32_t WM_MOUSELEAVE = 675;
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

}  // namespace toolkit
