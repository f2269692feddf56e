#include "toolkit/native_window.h"

#include <QHash>
#include <algorithm>
#include <cmath>

#include "toolkit/handlers.h"
#include "toolkit/surface.h"

namespace toolkit {

namespace {

constexpr float kMaxTwips = 32767.0F * kTwipsPerPixel;

QHash<const QWidget*, NativeWindow*>& Registry() {
  static QHash<const QWidget*, NativeWindow*> registry;
  return registry;
}

}  // namespace

void Register(const QWidget& widget, NativeWindow& window) { Registry().insert(&widget, &window); }

void Unregister(const NativeWindow& window) {
  Registry().removeIf([&window](const auto& entry) { return entry.value() == &window; });
}

NativeWindow* NativeOf(const QWidget* widget) { return Registry().value(widget, nullptr); }

bool IsWindow(const NativeWindow* window) {
  return window != nullptr &&
         std::any_of(Registry().cbegin(), Registry().cend(),
                     [window](const NativeWindow* other) { return other == window; });
}

std::vector<NativeWindow*> AllWindows() { return {Registry().cbegin(), Registry().cend()}; }

int Pixels(float twips) {
  const float bounded = std::isfinite(twips) ? twips : 0.0F;
  return static_cast<int>(std::lround(std::clamp(bounded, -kMaxTwips, kMaxTwips) / kTwipsPerPixel));
}

void ApplyPosition(NativeWindow& window) {
  window.widget->move(Pixels(window.place.left), Pixels(window.place.top));
}

void ApplySize(NativeWindow& window) {
  const QSize size(std::max(0, Pixels(window.place.width)),
                   std::max(0, Pixels(window.place.height)));
  if (window.form_state != nullptr) {
    window.widget->setFixedSize(size);
  } else {
    window.widget->resize(size);
  }
  if (auto* surface = dynamic_cast<Surface*>(window.widget.data()); surface != nullptr) {
    surface->Fit();
  }
}

void NotifyResize(NativeWindow& window) {
  auto* container = dynamic_cast<Container*>(window.control);
  if (container == nullptr || window.resizing) {
    return;
  }
  const std::weak_ptr<char> alive = window.alive;
  window.resizing = true;
  Call(container->Resize);
  if (!alive.expired()) {
    window.resizing = false;
  }
}

QRect VisibleRect(const QWidget& widget) {
  QRect seen = widget.rect();
  QPoint offset;
  for (const QWidget* inner = &widget; !inner->isWindow() && inner->parentWidget() != nullptr;
       inner = inner->parentWidget()) {
    offset += inner->pos();
    seen = seen.intersected(inner->parentWidget()->rect().translated(-offset));
  }
  return seen;
}

bool IsTopLevel(const NativeWindow& window) { return window.widget->isWindow(); }

void DeliverLeave(NativeWindow& window) {
  if (!window.leave_armed) {
    return;
  }
  window.leave_armed = false;
  const std::weak_ptr<char> alive = window.alive;
  const std::vector<SmartSubClass*> watchers = window.watchers;
  for (SmartSubClass* watcher : watchers) {
    if (alive.expired() ||
        std::count(window.watchers.begin(), window.watchers.end(), watcher) == 0) {
      continue;
    }
    std::uint32_t message = WM_MOUSELEAVE;
    std::uintptr_t wparam = 0;
    std::intptr_t lparam = 0;
    bool cancel = false;
    Call(watcher->NewMessage, &window, message, wparam, lparam, cancel);
  }
}

void DeliverLeavesOutside(const NativeWindow& form) {
  for (NativeWindow* window : AllWindows()) {
    if (IsWindow(window) && window->leave_armed && window->form != &form) {
      DeliverLeave(*window);
    }
  }
}

QColor ToColor(platform::ColorRef color) {
  return {static_cast<int>(color & 0xFFU), static_cast<int>((color >> 8U) & 0xFFU),
          static_cast<int>((color >> 16U) & 0xFFU)};
}

}  // namespace toolkit
