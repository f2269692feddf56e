#include "toolkit/window.h"

#include <QRegion>
#include <QVector>
#include <cstring>

#include "toolkit/forms_shown.h"
#include "toolkit/move_loop.h"
#include "toolkit/native_window.h"
#include "toolkit/tooltip.h"

namespace toolkit {

namespace {

QRegion ToRegion(const Region& region) {
  QVector<QRect> rects;
  rects.reserve(static_cast<qsizetype>(region.Rects().size()));
  for (const Rect& rect : region.Rects()) {
    rects.emplaceBack(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
  }
  QRegion shape;
  shape.setRects(rects.constData(), static_cast<int>(rects.size()));
  // To the toolkit an empty mask is none at all: one pixel off the window hides it whole.
  return shape.isEmpty() ? QRegion(-1, -1, 1, 1) : shape;
}

void ShowAgain(NativeWindow& form) {
  if (!form.shown) {
    return;
  }
  if (IsTopLevel(form)) {
    RequestShow(form);
  } else {
    form.widget->show();
    form.widget->raise();
  }
}

bool IsWithin(const NativeWindow& inner, const NativeWindow& outer) {
  return inner.widget == outer.widget || outer.widget->isAncestorOf(inner.widget);
}

}  // namespace

HWND SetParent(HWND child, HWND parent) {
  const HWND before = GetParent(child);
  const bool valid = IsWindow(child) && child->form_state != nullptr &&
                     (parent == nullptr || (IsWindow(parent) && !IsWithin(*parent, *child)));
  if (!valid || before == parent) {
    return before;
  }
  DetachForm(*child);
  if (parent == nullptr) {
    child->widget->setParent(nullptr, Qt::Window | Qt::FramelessWindowHint);
  } else {
    child->widget->setParent(parent->widget, Qt::Widget);
  }
  ApplyPosition(*child);
  ShowAgain(*child);
  return before;
}

HWND GetParent(HWND window) {
  const bool inside = IsWindow(window) && !IsTopLevel(*window);
  return inside ? NativeOf(window->widget->parentWidget()) : nullptr;
}

bool SetWindowRgn(HWND window, HRGN region, bool redraw) {
  if (!IsWindow(window)) {
    return false;
  }
  if (region) {
    window->widget->setMask(ToRegion(*region));
  } else {
    window->widget->clearMask();
  }
  if (redraw) {
    window->widget->update();
  }
  return true;
}

HWND GetDesktopWindow() { return nullptr; }

platform::HDC GetDC(HWND) { return std::make_shared<platform::DeviceContext>(); }

void ReleaseDC(HWND, platform::HDC& dc) { dc.reset(); }

Rect GetClientRect(HWND window) {
  return IsWindow(window) ? Rect{0, 0, window->widget->width(), window->widget->height()} : Rect{};
}

bool ReleaseCapture() {
  if (QWidget* grabber = QWidget::mouseGrabber(); grabber != nullptr) {
    grabber->releaseMouse();
  }
  return true;
}

std::intptr_t SendMessageA(HWND window, std::uint32_t message, std::uintptr_t wparam,
                           std::intptr_t lparam) {
  if (!IsWindow(window)) {
    return 0;
  }
  if (message != WM_NCLBUTTONDOWN) {
    return TooltipMessage(*window, message, wparam, lparam);
  }
  if (wparam == HTCAPTION) {
    const std::weak_ptr<char> alive = window->alive;
    RunMoveLoop(*window->widget);
    if (!alive.expired()) {
      window->pressed = kNoButton;  // the release ended the move and comes to nobody
    }
  }
  return 0;
}

bool TrackMouseEvent(const TrackMouseEventRecord& record) {
  const bool served = record.dwFlags == TME_LEAVE && IsWindow(record.hwndTrack);
  if (served) {
    record.hwndTrack->leave_armed = true;
  }
  return served;
}

SmartSubClass::~SmartSubClass() { SetSubclassing(watched_, false); }

void SmartSubClass::SetSubclassing(HWND hwnd, bool on) {
  if (IsWindow(watched_)) {
    std::erase(watched_->watchers, this);
  }
  watched_ = on && IsWindow(hwnd) ? hwnd : nullptr;
  if (watched_ != nullptr) {
    watched_->watchers.push_back(this);
  }
}

void InitCommonControls() {}

HWND CreateWindowExA(std::uint32_t, const char* window_class, const char*, std::uint32_t,
                     std::int32_t, std::int32_t, std::int32_t, std::int32_t, HWND parent) {
  const bool served = window_class != nullptr && std::strcmp(window_class, "tooltips_class32") == 0;
  return served ? CreateTooltip(parent) : nullptr;
}

bool DestroyWindow(HWND window) { return IsWindow(window) && DestroyTooltip(*window); }

}  // namespace toolkit
